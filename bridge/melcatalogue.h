// SPDX-License-Identifier: MIT
// Which words Maya knows. All of it is process-wide, filled by loadMelCatalogue(), kept until the
// plug-in is unloaded, and used on the GUI thread only; melNameTable() belongs to it.
#pragma once

#include "bridge/commandhelp.h"

#include <maya/MStringArray.h>

#include <QString>
#include <QStringList>

class QStandardItemModel;

// As Maya returned them: an element is empty for each name before it that is of another kind.
MStringArray &melCommands();
MStringArray &melRuntimeCommands();
MStringArray &melProcedures();

// Commands, then runtime commands, one item each, empty ones too; no procedures.
QStandardItemModel &melCommandModel();

// Asks Maya anew, three walks over all names it knows: once, when the plug-in is loaded and before
// an editor exists. A query that fails leaves its kind out and is not reported.
void loadMelCatalogue();

// Adds to melNames() what Maya has learned since: procedures of scripts that were sourced, commands
// of other plug-ins. One question, and nothing more while the names stay the same; the rest of the
// catalogue stays as it was loaded.
void addNewMelNames();

// Exactly this name, compiled commands only, in time linear in their number. An empty name may well
// be found: the array has empty elements.
bool isMelCommand(const QString &name);

// Three texts for each flag: short name, long name, first argument. Empty for anything that is not
// a compiled command, and for one whose help lists no flags. Asks Maya at every call.
QStringList commandFlags(const QString &command);

// What help there is on a name. Unlike the above, also for what came after the catalogue was
// loaded: commands of other plug-ins, new procedures. Asks Maya at every call.
CommandHelp melCommandHelp(const QString &name);
