// SPDX-License-Identifier: MIT
#pragma once

class EdCodeEdit;
class QString;
struct CommandFlag;

// Puts a flag of a command into the script, as the document's language has it and in one step to
// undo: at the caret, or behind the word or the selection there, which may be the command, and
// never between a call's arguments and their commas. From behind the command's statement it goes
// into that. A start of the flag that stands there already is replaced.
//   polySphere -ra|            becomes     polySphere -radius |
//   cmds.polySphere(r=1)|      becomes     cmds.polySphere(r=1, radius=|)
// Python gets the short name where the long one is a keyword.
void insertFlag(EdCodeEdit *edit, const CommandFlag &flag, const QString &command);
