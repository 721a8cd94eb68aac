// SPDX-License-Identifier: MIT
#include "editor/pythonnames.h"

#include "compat/text.h"

namespace {

const QLatin1String commandModule("maya.cmds");
const int mostImports = 2000; // that are read

// The words of "a.b as c", also of names in brackets.
QStringList wordsOf(QString part)
{
    part.replace(QLatin1Char('('), QLatin1Char(' ')).replace(QLatin1Char(')'), QLatin1Char(' '));
    return compat::nonEmptyParts(part.simplified(), QLatin1Char(' '));
}

} // namespace

DeclaredNames::DeclaredNames(const PythonContext &context)
{
    m_paths.insert(QLatin1String("cmds"), commandModule);
    int function = -1;
    for (int header : context.headersAbove(context.current)) {
        const PythonStatement &statement = context.statements[header];
        if (statement.keyword != PythonKeyword::Function)
            continue;
        function = header;
        for (const QString &name : argumentNames(context.text, statement))
            m_kinds.insert(name, CompletionKind::Argument);
    }
    bool isInFunction = false;
    for (int i = 0; i < int(context.statements.size()); ++i) {
        const int depth = context.statements[i].depth;
        isInFunction = i > function && function >= 0 &&
                       depth > context.statements[function].depth &&
                       (isInFunction || i == function + 1);
        readStatement(context, i, depth == 0 || isInFunction);
    }
}

CompletionKind DeclaredNames::kind(const QString &name) const
{
    return m_kinds.value(name, CompletionKind::Name);
}

QString DeclaredNames::path(const QString &dotted) const
{
    const QString first = dotted.section(QLatin1Char('.'), 0, 0);
    if (m_paths.contains(first))
        return m_paths.value(first) + dotted.mid(first.size());
    const bool isCommand =
        m_wholeModules.contains(commandModule) && first == dotted && !m_kinds.contains(dotted);
    return isCommand ? commandModule + QLatin1Char('.') + dotted : dotted;
}

void DeclaredNames::add(const QString &name, CompletionKind kind)
{
    if (!name.isEmpty() && !m_kinds.contains(name))
        m_kinds.insert(name, kind);
}

void DeclaredNames::readStatement(const PythonContext &context, int index, bool isInReach)
{
    const PythonStatement &statement = context.statements[index];
    switch (statement.keyword) {
    case PythonKeyword::Import:
    case PythonKeyword::From:
        if (++m_importCount < mostImports)
            readImports(pythonCode(context.text, statement.start, statement.codeEnd).text);
        break;
    case PythonKeyword::Class:
        if (isInReach)
            add(definedName(context.text, statement), CompletionKind::Class);
        break;
    case PythonKeyword::Function:
        if (isInReach)
            add(definedName(context.text, statement), CompletionKind::Function);
        break;
    case PythonKeyword::None:
        if (isInReach)
            add(assignedName(context.text, statement), CompletionKind::Variable);
        break;
    }
}

// "import a.b as c, d; from e import f", with names of modules in any scope.
void DeclaredNames::readImports(const QString &code)
{
    for (const QString &statement : code.split(QLatin1Char(';'))) {
        const QString text = statement.simplified();
        if (text.startsWith(QLatin1String("from "))) {
            const int word = int(text.indexOf(QLatin1String(" import")));
            if (word > 0)
                readNames(text.mid(5, word - 5), text.mid(word + 7));
        } else if (text.startsWith(QLatin1String("import "))) {
            for (const QString &part : text.mid(7).split(QLatin1Char(','))) {
                const QStringList words = wordsOf(part);
                const bool hasAlias = words.size() == 3;
                const QString module = words.value(0);
                const QString first = module.section(QLatin1Char('.'), 0, 0);
                add(hasAlias ? words[2] : first, CompletionKind::Module);
                m_paths.insert(hasAlias ? words[2] : first, hasAlias ? module : first);
            }
        }
    }
}

void DeclaredNames::readNames(const QString &module, const QString &names)
{
    for (const QString &part : names.split(QLatin1Char(','))) {
        const QStringList words = wordsOf(part);
        if (words.value(0) == QLatin1String("*") && !m_wholeModules.contains(module))
            m_wholeModules << module;
        else if (words.size() == 1 || words.size() == 3)
            m_paths.insert(words.last(), module + QLatin1Char('.') + words[0]);
    }
}
