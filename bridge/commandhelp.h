// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

// What the host knows of a name. Apart from the catalogue because it needs no host.
enum class CommandKind { Unknown, Command, RuntimeCommand, Procedure };

// A flag of a compiled command, its names without the dash. One of the names may be empty.
struct CommandFlag
{
    QString shortName;
    QString longName;
    QString argument; // the type of the first; empty for none
};

struct CommandHelp
{
    CommandKind kind = CommandKind::Unknown;
    bool hasPage = false;     // in the host's documentation; commands of plug-ins may have none
    QList<CommandFlag> flags; // of compiled commands alone, in the host's order
};

using CommandHelpSource = CommandHelp (*)(const QString &name);

// Process-wide, for the GUI thread; null, as at first, where there is no host. Whoever sets it
// takes it back before its code goes.
void setCommandHelpSource(CommandHelpSource source);
// Asks the host at every call; without one, every name is unknown.
CommandHelp commandHelp(const QString &name);
