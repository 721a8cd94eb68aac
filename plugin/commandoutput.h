// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MCommandMessage.h>
#include <maya/MString.h>

#include <QString>

// A message of Maya as the Output Window shows it; empty for kinds that are not shown. Deliberate:
// the message is enclosed as it comes, even when it is empty or ends in a line break.
QString formatCommandOutput(const QString &message, MCommandMessage::MessageType type);

// Called by Maya for every line that a command prints; the client data is not used.
// Lets no exception out, and drops what arrives while output is suppressed or there is no
// window.
void commandOutputCallback(const MString &message, MCommandMessage::MessageType type,
                           void *clientData);
