// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MCommandMessage.h>
#include <maya/MString.h>

#include <QString>

// A message of Maya as the Output Window shows it; empty for kinds that are not shown.
QString formatCommandOutput(const QString &message, MCommandMessage::MessageType type);

// Called by Maya for every line that a command prints; the client data is not used.
void commandOutputCallback(const MString &message, MCommandMessage::MessageType type,
                           void *clientData);
