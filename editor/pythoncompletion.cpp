// SPDX-License-Identifier: MIT
#include "editor/pythoncompletion.h"

#include "analysis/pythonkeywords.h"
#include "bridge/melnametable.h"
#include "bridge/pythonnamesource.h"
#include "editor/openscripts.h"
#include "editor/pythonexcerpt.h"
#include "editor/pythonnames.h"
#include "editor/pythonpackage.h"
#include "preferences/preferences.h"

#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace {

// What Python parses in a few hundredths of a second even where it is dense and broken.
const int mostUnitsForPython = 25000;
// Reading more than this takes longer than a typist waits.
const int longestDocument = 4000000;
const int mostWholeModules = 4; // whose names are looked up

const QLatin1Char equalsSign('=');

const QString &commandPrefix()
{
    static const QString prefix = QLatin1String("maya.cmds.");
    return prefix;
}

// "polySphere" of "maya.cmds.polySphere"; empty for what is no such path.
QString commandOf(const QString &path)
{
    return path.startsWith(commandPrefix()) ? path.mid(commandPrefix().size()) : QString();
}

Completion completion(const QString &text, CompletionKind kind)
{
    Completion item;
    item.text = text;
    item.kind = kind;
    return item;
}

QStringList texts(const std::vector<Completion> &items)
{
    QStringList list;
    for (const Completion &item : items)
        list << item.text;
    return list;
}

std::vector<Completion> completions(const QStringList &names, CompletionKind kind)
{
    std::vector<Completion> items;
    for (const QString &name : names)
        items.push_back(completion(name, kind));
    return items;
}

CompletionKind kindCalled(const QString &word)
{
    return word == QLatin1String("function")   ? CompletionKind::Function
           : word == QLatin1String("class")    ? CompletionKind::Class
           : word == QLatin1String("module")   ? CompletionKind::Module
           : word == QLatin1String("variable") ? CompletionKind::Variable
                                               : CompletionKind::Name;
}

// Of a module or another object, each as "kind name"; only Maya's are known to be commands.
std::vector<Completion> members(const QStringList &namesWithKinds, const QString &path)
{
    const bool hasCommands = path + QLatin1Char('.') == commandPrefix();
    std::vector<Completion> items;
    for (const QString &words : namesWithKinds) {
        const int blank = int(words.indexOf(QLatin1Char(' ')));
        const QString name = words.mid(blank + 1);
        items.push_back(completion(name, hasCommands && melNameTable().contains(name)
                                             ? CompletionKind::Command
                                             : kindCalled(words.left(blank))));
    }
    return items;
}

// Whether the script has a name for something of its own.
bool isDeclared(const Completion &name)
{
    return name.kind != CompletionKind::Keyword && name.kind != CompletionKind::BuiltIn;
}

QSet<QString> setOf(const QStringList &names)
{
    QSet<QString> set;
    for (const QString &name : names)
        set.insert(name);
    return set;
}

// Flags first. A variable that is called as one of them goes before that one: who types its name to
// the end means the variable, since the flag has a sign to come. What is called as a flag that has
// its value already can only be the flag.
std::vector<Completion> joined(const std::vector<Completion> &flags,
                               const std::vector<Completion> &names)
{
    const QSet<QString> flagTexts = setOf(texts(flags));
    std::vector<Completion> items = flags;
    for (const Completion &name : names) {
        const QString flag = name.text + equalsSign;
        const auto isFlag = [&flag](const Completion &item) { return item.text == flag; };
        if (isDeclared(name) && flagTexts.contains(flag))
            items.insert(std::find_if(items.begin(), items.end(), isFlag), name);
        else if (!flagTexts.contains(name.text))
            items.push_back(name);
    }
    return items;
}

// What "from module import *" binds.
std::vector<Completion> namesOfWholeModules(const QStringList &modules)
{
    std::vector<Completion> names;
    for (const QString &module : modules.mid(0, mostWholeModules)) {
        const std::vector<Completion> exported =
            members(pythonNames(PythonQuestion::ExportedNames, QString(), module), module);
        names.insert(names.end(), exported.begin(), exported.end());
    }
    return names;
}

// As the script has them: those that begin with "_" last.
bool comesBefore(const Completion &a, const Completion &b)
{
    const bool isPrivate = a.text.startsWith(QLatin1Char('_'));
    if (isPrivate != b.text.startsWith(QLatin1Char('_')))
        return !isPrivate;
    return QString::compare(a.text, b.text, Qt::CaseInsensitive) < 0;
}

// Those that are not there yet, each in its place.
void addNames(const std::vector<Completion> &added, std::vector<Completion> *names)
{
    QSet<QString> known = setOf(texts(*names));
    for (const Completion &name : added) {
        if (!known.contains(name.text))
            names->push_back(name);
        known.insert(name.text);
    }
    std::stable_sort(names->begin(), names->end(), comesBefore);
}

// Only where it matters: files are looked for, perhaps over a network, at every opening of the
// list.
QString packageOf(const QTextDocument *document, const QString &text)
{
    return openScripts() && hasRelativeImport(text)
               ? packageOfFolder(openScripts()->folderOf(document))
               : QString();
}

std::vector<Completion> importable(const PythonCaret &caret, const QString &module)
{
    if (module.isEmpty() && !caret.object.isEmpty())
        return std::vector<Completion>(); // out of the package
    if (caret.place == PythonCaret::Module)
        return completions(pythonNames(PythonQuestion::Modules, QString(), module),
                           CompletionKind::Module);
    return members(pythonNames(PythonQuestion::NamesInModule, QString(), module), module);
}

std::vector<Completion> ownArguments(const PythonContext &context, const PythonCall &call)
{
    std::vector<Completion> items;
    for (const QString &name : openArguments(context, call))
        items.push_back(
            completion(call.hasValue ? name : name + equalsSign, CompletionKind::Argument));
    return items;
}

} // namespace

Completions PythonCompletion::completionsAt(const QTextCursor &caret)
{
    Completions found;
    if (caret.isNull() || caret.document()->characterCount() > longestDocument)
        return found;
    const QString text = caret.document()->toPlainText();
    const PythonContext context(text, caret.position(), packageOf(caret.document(), text));
    const PythonCaret place = pythonCaret(context);
    found.prefixLength = place.prefixLength;
    switch (place.place) {
    case PythonCaret::Nothing:
        break;
    case PythonCaret::Name:
        found.items = namesAt(context, place);
        break;
    case PythonCaret::Member:
        found.items = membersAt(context, place);
        break;
    case PythonCaret::Module:
    case PythonCaret::ImportedName:
        found.items = importable(place, absoluteModule(place.object, context.package));
        break;
    }
    return found;
}

std::vector<Completion> PythonCompletion::namesAt(const PythonContext &context,
                                                  const PythonCaret &caret)
{
    const DeclaredNames declared(context);
    const QString excerpt = pythonExcerpt(context, mostUnitsForPython);
    std::vector<Completion> names;
    for (const QString &name : pythonNames(PythonQuestion::NamesInScope, excerpt)) {
        CompletionKind kind = declared.kind(name);
        const QString command = commandOf(declared.path(name));
        if (kind == CompletionKind::Name && !command.isEmpty() && melNameTable().contains(command))
            kind = CompletionKind::Command;
        names.push_back(completion(name, kind == CompletionKind::Name ? wordKind(name) : kind));
    }
    std::vector<Completion> added = namesOfWholeModules(declared.wholeModules());
    if (preferences().pythonIncludeBuiltins)
        added.insert(added.end(), otherBuiltIns().begin(), otherBuiltIns().end());
    addNames(added, &names);
    const std::vector<Completion> arguments = ownArguments(context, caret.call);
    return joined(arguments.empty() ? flagsFor(caret.call, declared.path(caret.call.function))
                                    : arguments,
                  names);
}

std::vector<Completion> PythonCompletion::membersAt(const PythonContext &context,
                                                    const PythonCaret &caret) const
{
    const QString path = DeclaredNames(context).path(caret.object);
    const QString excerpt = pythonExcerpt(context, mostUnitsForPython);
    return members(pythonNames(PythonQuestion::Members, excerpt, caret.object), path);
}

// By both names, but for those that were given by either.
std::vector<Completion> PythonCompletion::flagsFor(const PythonCall &call, const QString &path)
{
    std::vector<Completion> flags;
    const QString command = commandOf(path);
    if (command.isEmpty())
        return flags;
    QStringList names;
    for (const CommandFlag &flag : flagsOf(command)) {
        if (!call.keywords.contains(flag.shortName) && !call.keywords.contains(flag.longName))
            names << flag.longName << flag.shortName;
    }
    names.removeAll(QString());
    names.removeDuplicates();
    names.sort();
    for (const QString &name : names) {
        if (!isPythonKeyword(name)) // "import=" is no Python
            flags.push_back(
                completion(call.hasValue ? name : name + equalsSign, CompletionKind::Flag));
    }
    return flags;
}

QList<CommandFlag> PythonCompletion::flagsOf(const QString &command)
{
    const auto known = m_flags.constFind(command);
    if (known != m_flags.constEnd())
        return *known;
    const CommandHelp help = commandHelp(command);
    if (help.kind != CommandKind::Unknown) // a plug-in may still bring it
        m_flags.insert(command, help.flags);
    return help.flags;
}

const std::vector<Completion> &PythonCompletion::otherBuiltIns()
{
    if (m_otherBuiltIns.empty())
        m_otherBuiltIns =
            completions(pythonNames(PythonQuestion::OtherBuiltIns), CompletionKind::BuiltIn);
    return m_otherBuiltIns;
}

CompletionKind PythonCompletion::wordKind(const QString &name)
{
    if (m_keywords.isEmpty()) {
        m_keywords = setOf(pythonNames(PythonQuestion::Keywords));
        m_builtIns = setOf(pythonNames(PythonQuestion::BuiltIns));
    }
    return m_keywords.contains(name)   ? CompletionKind::Keyword
           : m_builtIns.contains(name) ? CompletionKind::BuiltIn
                                       : CompletionKind::Name;
}
