// SPDX-License-Identifier: MIT
// Which word of a script may be the name of a command that help is wanted on.
#pragma once

#include <QString>
#include <QStringList>

// The first name in a text that somebody selected, or entered: of "cmds.ls(sl=True)" it is "ls".
// Empty without one; variables of MEL are none.
QString commandWord(const QString &text);

// The name that the column, counted from 0, is in or at an end of; empty for none.
QString commandWordAt(const QString &line, int column);

// The next two take code in which strings and comments are masked, the latter as blanks; lines end
// in line feeds.
//
// Whether that name looks like a flag, though it may be that of a command too: ls -type, or
// cmds.ls(type=...).
bool isFlagAt(const QString &code, int column);

// The command whose arguments the column is among, as far as the code tells:
//   ls -long `select -|     is in the arguments of select
//   cmds.ls(sl=|            in those of ls
// Empty in an expression, and where nothing stands before.
QString commandBefore(const QString &code, int column);

// All that it may be among those of, the innermost first. Some may be no commands:
//   cmds.window (f(1 + |    f, window, cmds
QStringList commandsBefore(const QString &code, int column);
