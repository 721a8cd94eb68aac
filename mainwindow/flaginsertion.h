// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class EdCodeEdit;

// Puts a flag of a command into the script, as the document's language has it and in one step to
// undo: at the caret, or behind the word or the selection there, which may be the command. A start
// of the flag that stands there already is replaced. A dash in front of the flag is no part of it.
//   polySphere -ra|            becomes     polySphere -radius |
//   cmds.polySphere(r=1|       becomes     cmds.polySphere(r=1, radius=|
void insertFlag(EdCodeEdit *edit, const QString &flag, const QString &command);
