// SPDX-License-Identifier: MIT
#include "bridge/melcatalogue.h"

#include "bridge/flagtext.h"
#include "bridge/melnametable.h"

#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>
#include <maya/MString.h>

#include <QStandardItem>
#include <QStandardItemModel>

namespace {

// A kind of names. `test` is MEL that looks at $s, what "whatIs" says of a name.
struct QueryRow
{
    const char *procedure;
    const char *test;
    MStringArray &(*names)();
    bool isModelled; // whether its names become rows of the model
};

// In the order of the model's rows.
const QueryRow queries[] = {
    {"cvQueryMelCommands", "if ($s == \"Command\")", melCommands, true},
    {"cvQueryMelRuntimeCommands", "if ($s == \"Run Time Command\")", melRuntimeCommands, true},
    {"cvQueryMelProcedures", "if (startsWith($s, \"Mel procedure\"))", melProcedures, false},
};

// Deliberate: names of another kind leave empty elements, so every position is that of melInfo. One
// walk inside MEL for each kind: a call of "whatIs" from here for each name would take far longer.
QString queryText(const QueryRow &row)
{
    return QString::fromLatin1("proc string[] %1() {"
                               "string $procs[] = `melInfo`;"
                               "string $results[];"
                               "int $i;"
                               "for ($i = 0; $i < size($procs); $i++) {"
                               "string $s = `whatIs $procs[$i]`;"
                               "%2"
                               "$results[$i] = $procs[$i];"
                               "}"
                               "return $results;}"
                               "%1();")
        .arg(QLatin1String(row.procedure), QLatin1String(row.test));
}

// Deliberate: the empty name too; nobody looks for it.
void addNames(const QueryRow &row)
{
    const MStringArray &names = row.names();
    for (unsigned int i = 0; i < names.length(); ++i) {
        const QString name = MQtUtil::toQString(names[i]);
        if (row.isModelled)
            melCommandModel().appendRow(new QStandardItem(name));
        melNameTable().insert(name, name);
    }
}

} // namespace

MStringArray &melCommands()
{
    static MStringArray names;
    return names;
}

MStringArray &melRuntimeCommands()
{
    static MStringArray names;
    return names;
}

MStringArray &melProcedures()
{
    static MStringArray names;
    return names;
}

QStandardItemModel &melCommandModel()
{
    static QStandardItemModel model;
    return model;
}

void loadMelCatalogue()
{
    melCommandModel().clear();
    melNameTable().clear();
    for (const QueryRow &row : queries) {
        MStringArray &names = row.names();
        names.clear();
        const MString text = MQtUtil::toMString(queryText(row));
        if (MGlobal::executeCommand(text, names, false, false) == MStatus::kSuccess)
            addNames(row);
    }
}

bool isMelCommand(const QString &name)
{
    const MString wanted = MQtUtil::toMString(name);
    const MStringArray &commands = melCommands();
    for (unsigned int i = 0; i < commands.length(); ++i) {
        if (commands[i] == wanted)
            return true;
    }
    return false;
}

QStringList commandFlags(const QString &command)
{
    if (command.isEmpty() || !isMelCommand(command))
        return QStringList();
    MString answer; // stays empty when the call fails
    const MString query = MQtUtil::toMString(QLatin1String("help -so ") + command);
    MGlobal::executeCommand(query, answer, false, false);
    return flagFields(MQtUtil::toQString(answer));
}
