// SPDX-License-Identifier: MIT
#include "editor/melcompletion.h"

#include "bridge/commandhelp.h"
#include "bridge/melnametable.h"
#include "editor/melcontext.h"
#include "editor/melscanner.h"
#include "editor/openscripts.h"

#include <QTextCursor>

#include <algorithm>
#include <iterator>

namespace {

using List = std::vector<Completion>;

const QLatin1Char variableSign('$');

bool isVariable(const Completion &completion)
{
    return completion.text.startsWith(variableSign);
}

// Those that differ in case only are neighbours.
bool comesBefore(const Completion &a, const Completion &b)
{
    const int order = QString::compare(a.text, b.text, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : a.text < b.text;
}

bool isSameText(const Completion &a, const Completion &b)
{
    return a.text == b.text;
}

// Each once, as what it is first of all.
void sortOut(List *list)
{
    std::stable_sort(list->begin(), list->end(), comesBefore);
    list->erase(std::unique(list->begin(), list->end(), isSameText), list->end());
}

List merged(const List &first, const List &second)
{
    List all;
    all.reserve(first.size() + second.size());
    std::merge(first.begin(), first.end(), second.begin(), second.end(), std::back_inserter(all),
               comesBefore);
    all.erase(std::unique(all.begin(), all.end(), isSameText), all.end());
    return all;
}

CompletionKind completionKind(CommandKind kind)
{
    switch (kind) {
    case CommandKind::Command:
        return CompletionKind::Command;
    case CommandKind::RuntimeCommand:
        return CompletionKind::RuntimeCommand;
    case CommandKind::Procedure:
        return CompletionKind::Procedure;
    default:
        return CompletionKind::Name;
    }
}

List hostNamesAndKeywords()
{
    List list;
    for (std::string_view keyword : MelScanner::keywords())
        list.push_back(
            {QString::fromLatin1(keyword.data(), int(keyword.size())), CompletionKind::Keyword});
    for (const MelName &known : melNames().names)
        list.push_back({known.name, completionKind(known.kind)});
    sortOut(&list);
    return list;
}

// For all editors, since it is long.
const List &commonNames()
{
    static List names;
    static int version = -1;
    if (version != melNames().version) {
        version = melNames().version;
        names = hostNamesAndKeywords();
    }
    return names;
}

List scriptNames(const QTextCursor &caret)
{
    List names = openScripts() ? openScripts()->melNamesFor(caret.document()) : List();
    for (const QString &variable : melVariablesBefore(caret))
        names.push_back({variable, CompletionKind::Variable});
    sortOut(&names);
    return names;
}

List variablesOf(const List &names)
{
    List variables;
    std::copy_if(names.begin(), names.end(), std::back_inserter(variables), isVariable);
    return variables;
}

} // namespace

void MelCompletion::refresh(const QTextDocument *document)
{
    if (openScripts())
        openScripts()->refresh(document);
    updateMelNames();
}

Completions MelCompletion::completionsAt(const QTextCursor &caret)
{
    const MelContext context = melContextAt(caret);
    Completions found;
    found.prefixLength = int(context.prefix.size());
    switch (context.kind) {
    case MelContext::Nothing:
        break;
    case MelContext::Variable:
        found.items = variablesOf(scriptNames(caret));
        break;
    case MelContext::Flag:
        found.items = flagsOf(context.command);
        if (!found.items.empty())
            break;
        --found.prefixLength; // a minus
        [[fallthrough]];
    case MelContext::Name:
        found.items = merged(scriptNames(caret), commonNames());
        break;
    }
    return found;
}

std::vector<Completion> MelCompletion::flagsOf(const QString &command)
{
    const auto known = m_flags.constFind(command);
    if (known != m_flags.constEnd())
        return *known;
    const CommandHelp help = commandHelp(command);
    List flags;
    for (const CommandFlag &flag : help.flags) {
        for (const QString &name : {flag.shortName, flag.longName}) {
            if (!name.isEmpty())
                flags.push_back({QLatin1Char('-') + name, CompletionKind::Flag});
        }
    }
    sortOut(&flags);
    if (help.kind != CommandKind::Unknown) // a plug-in may still bring it
        m_flags.insert(command, flags);
    return flags;
}
