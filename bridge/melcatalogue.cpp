// SPDX-License-Identifier: MIT
#include "bridge/melcatalogue.h"

#include "bridge/flagtext.h"
#include "bridge/melnametable.h"
#include "bridge/meltext.h"

#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>
#include <maya/MString.h>

#include <QSet>
#include <QStandardItem>
#include <QStandardItemModel>

#include <algorithm>

namespace {

// A kind of names. `test` is MEL that looks at $s, what "whatIs" says of a name.
struct QueryRow
{
    const char *procedure;
    const char *test;
    MStringArray &(*names)();
    CommandKind kind;
    bool isModelled; // whether its names become rows of the model
};

// In the order of the model's rows.
const QueryRow queries[] = {
    {"cvQueryMelCommands", "if ($s == \"Command\")", melCommands, CommandKind::Command, true},
    {"cvQueryMelRuntimeCommands", "if ($s == \"Run Time Command\")", melRuntimeCommands,
     CommandKind::RuntimeCommand, true},
    {"cvQueryMelProcedures", "if (startsWith($s, \"Mel procedure\"))", melProcedures,
     CommandKind::Procedure, false},
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
    melNameTable().reserve(melNameTable().size() + int(names.length()));
    bool hadEmpty = false; // most names are, and one of them is enough
    for (unsigned int i = 0; i < names.length(); ++i) {
        const bool isEmpty = names[i].length() == 0;
        if (isEmpty && hadEmpty)
            continue;
        hadEmpty = hadEmpty || isEmpty;
        const QString name = MQtUtil::toQString(names[i]);
        const auto known = melNameTable().size();
        melNameTable().insert(name, name);
        if (!isEmpty && melNameTable().size() > known)
            melNames().names.push_back({name, row.kind});
    }
}

quint32 lastDigest = 0; // of all names, when Maya was asked for new ones

// Tells lists of names apart, much faster than converting them.
quint32 digest(const MStringArray &names)
{
    quint32 value = names.length();
    for (unsigned int i = 0; i < names.length(); ++i) {
        for (const char *unit = names[i].asChar(); *unit; ++unit)
            value = value * 31 + uchar(*unit);
        value = value * 31 + 1;
    }
    return value;
}

// The model of the names last loaded is made when it is asked for: that takes a few milliseconds,
// which loading has no need to wait for.
bool modelIsOutdated = false;

void fillModel(QStandardItemModel &model)
{
    model.clear();
    QList<QStandardItem *> items;
    for (const QueryRow &row : queries) {
        const MStringArray &names = row.names();
        for (unsigned int i = 0; row.isModelled && i < names.length(); ++i)
            items << new QStandardItem(MQtUtil::toQString(names[i]));
    }
    model.invisibleRootItem()->appendRows(items);
}

bool holds(const MStringArray &names, const QString &name)
{
    const MString wanted = MQtUtil::toMString(name);
    for (unsigned int i = 0; i < names.length(); ++i) {
        if (names[i] == wanted)
            return true;
    }
    return false;
}

QStringList flagsOf(const QString &command)
{
    MString answer; // stays empty when the call fails
    const MString query = MQtUtil::toMString(QLatin1String("help -so ") + command);
    MGlobal::executeCommand(query, answer, false, false);
    return flagFields(MQtUtil::toQString(answer));
}

// What is not in the catalogue may be younger than that.
CommandKind kindFromMaya(const QString &name)
{
    MString answer;
    const MString query = MQtUtil::toMString(QLatin1String("whatIs ") + quotedForMel(name));
    MGlobal::executeCommand(query, answer, false, false);
    const QString kind = MQtUtil::toQString(answer);
    if (kind == QLatin1String("Command"))
        return CommandKind::Command;
    if (kind == QLatin1String("Run Time Command"))
        return CommandKind::RuntimeCommand;
    // In a script that is not sourced yet, Maya only presumes it.
    return kind.contains(QLatin1String("Mel procedure")) ? CommandKind::Procedure
                                                         : CommandKind::Unknown;
}

CommandKind kindOf(const QString &name)
{
    if (isMelCommand(name))
        return CommandKind::Command;
    if (holds(melRuntimeCommands(), name))
        return CommandKind::RuntimeCommand;
    return holds(melProcedures(), name) ? CommandKind::Procedure : kindFromMaya(name);
}

// Those that came after loading are at the end, and all of that kind. False when they are the same.
bool replaceLaterNames(const MStringArray &all, std::vector<MelName> *names)
{
    const auto isLater = [](const MelName &name) { return name.kind == CommandKind::Unknown; };
    const auto firstLater = std::find_if(names->begin(), names->end(), isLater);
    QSet<QString> known;
    known.reserve(int(names->size()));
    for (auto name = names->begin(); name != firstLater; ++name)
        known.insert(name->name);
    std::vector<MelName> later;
    for (unsigned int i = 0; i < all.length(); ++i) {
        const QString name = MQtUtil::toQString(all[i]);
        if (!known.contains(name))
            later.push_back({name, CommandKind::Unknown});
    }
    const auto isSame = [](const MelName &a, const MelName &b) { return a.name == b.name; };
    if (std::equal(firstLater, names->end(), later.begin(), later.end(), isSame))
        return false;
    names->erase(firstLater, names->end());
    names->insert(names->end(), later.begin(), later.end());
    return true;
}

QString withoutDash(const QString &flag)
{
    return flag.startsWith(QLatin1Char('-')) ? flag.mid(1) : flag;
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
    if (modelIsOutdated)
        fillModel(model);
    modelIsOutdated = false;
    return model;
}

void loadMelCatalogue()
{
    modelIsOutdated = true;
    lastDigest = 0;
    melNameTable().clear();
    melNames().names.clear();
    ++melNames().version;
    for (const QueryRow &row : queries) {
        MStringArray &names = row.names();
        names.clear();
        const MString text = MQtUtil::toMString(queryText(row));
        if (MGlobal::executeCommand(text, names, false, false) == MStatus::kSuccess)
            addNames(row);
        else
            names.clear();
    }
}

void addNewMelNames()
{
    MStringArray all;
    if (MGlobal::executeCommand("melInfo", all, false, false) != MStatus::kSuccess)
        return;
    const quint32 newDigest = digest(all);
    if (newDigest == lastDigest)
        return;
    lastDigest = newDigest;
    if (replaceLaterNames(all, &melNames().names))
        ++melNames().version;
}

bool isMelCommand(const QString &name)
{
    return holds(melCommands(), name);
}

QStringList commandFlags(const QString &command)
{
    return command.isEmpty() || !isMelCommand(command) ? QStringList() : flagsOf(command);
}

CommandHelp melCommandHelp(const QString &name)
{
    CommandHelp help;
    if (name.isEmpty())
        return help;
    help.kind = kindOf(name);
    help.hasPage = isMelCommand(name);
    if (help.kind != CommandKind::Command)
        return help;
    const QStringList fields = flagsOf(name);
    for (int i = 0; i + 2 < fields.size(); i += 3) {
        // Maya's help ends with lines that are none of flags.
        if (fields.at(i).startsWith(QLatin1Char('-')))
            help.flags << CommandFlag{withoutDash(fields.at(i)), withoutDash(fields.at(i + 1)),
                                      fields.at(i + 2)};
    }
    return help;
}
