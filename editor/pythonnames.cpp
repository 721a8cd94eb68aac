// SPDX-License-Identifier: MIT
#include "editor/pythonnames.h"

#include "compat/text.h"
#include "editor/pythonpackage.h"

namespace {

const QLatin1String commandModule("maya.cmds");
const int mostImports = 2000; // that are read
const int mostBases = 16;     // one above the other

// The words of "a.b as c", also of names in brackets.
QStringList wordsOf(QString part)
{
    part.replace(QLatin1Char('('), QLatin1Char(' ')).replace(QLatin1Char(')'), QLatin1Char(' '));
    return compat::nonEmptyParts(part.simplified(), QLatin1Char(' '));
}

bool isSelf(const QString &name)
{
    return name == QLatin1String("self") || name == QLatin1String("cls");
}

// Where the name is defined directly below a statement, or at the margin for -1; -1 for nowhere.
int definitionOf(const PythonContext &context, const QString &name, int owner)
{
    const std::vector<PythonStatement> &statements = context.statements;
    const int depth = owner < 0 ? 0 : statements[owner].depth + 1;
    for (int i = owner + 1; i < int(statements.size()); ++i) {
        if (owner >= 0 && statements[i].depth < depth)
            break;
        if (statements[i].depth == depth && definedName(context.text, statements[i]) == name)
            return i;
    }
    return -1;
}

// The first base of a class that is defined at the margin, too; -1 when there is none.
int baseOf(const PythonContext &context, int definition)
{
    if (definition < 0)
        return -1;
    const QStringList bases = argumentNames(context.text, context.statements[definition]);
    return bases.isEmpty() ? -1 : definitionOf(context, bases[0], -1);
}

int methodOf(const PythonContext &context, int definition, const QString &name)
{
    int method = -1;
    for (int bases = 0; definition >= 0 && method < 0 && bases < mostBases; ++bases) {
        method = definitionOf(context, name, definition);
        definition = baseOf(context, definition);
    }
    return method;
}

// What the statement at the caret means by a name.
int definitionInReach(const PythonContext &context, const QString &name)
{
    if (isSelf(name))
        return context.enclosingClass();
    if (name == QLatin1String("super"))
        return baseOf(context, context.enclosingClass());
    for (int header : context.headersAbove(context.current)) {
        const bool isFunction = context.statements[header].keyword == PythonKeyword::Function;
        const int inner = isFunction ? definitionOf(context, name, header) : -1;
        if (inner >= 0)
            return inner;
    }
    return definitionOf(context, name, -1);
}

// What a call of the name calls: that of a class its "__init__".
int calledDefinition(const PythonContext &context, const QString &function)
{
    const QString first = function.section(QLatin1Char('.'), 0, 0);
    const QString rest = function.mid(first.size() + 1);
    const int definition = definitionInReach(context, first);
    if (definition >= 0 && context.statements[definition].keyword == PythonKeyword::Class)
        return methodOf(context, definition,
                        rest.isEmpty() ? QString::fromLatin1("__init__") : rest);
    return rest.isEmpty() ? definition : -1;
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
            readImports(context, pythonCode(context.text, statement.start, statement.codeEnd).text);
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
void DeclaredNames::readImports(const PythonContext &context, const QString &code)
{
    for (const QString &statement : code.split(QLatin1Char(';'))) {
        const QString text = statement.simplified();
        if (text.startsWith(QLatin1String("from "))) {
            const int word = int(text.indexOf(QLatin1String(" import")));
            if (word > 0)
                readNames(absoluteModule(text.mid(5, word - 5), context.package),
                          text.mid(word + 7));
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
    if (module.isEmpty())
        return;
    for (const QString &part : names.split(QLatin1Char(','))) {
        const QStringList words = wordsOf(part);
        if (words.value(0) == QLatin1String("*") && !m_wholeModules.contains(module))
            m_wholeModules << module;
        else if (words.size() == 1 || words.size() == 3)
            m_paths.insert(words.last(), module + QLatin1Char('.') + words[0]);
    }
}

QStringList openArguments(const PythonContext &context, const PythonCall &call)
{
    const int definition = call.function.isEmpty() ? -1 : calledDefinition(context, call.function);
    if (definition < 0)
        return QStringList();
    QStringList names;
    for (const QString &part : argumentParts(context.text, context.statements[definition])) {
        if (!part.trimmed().startsWith(QLatin1Char('*')))
            names << argumentNames(part);
    }
    if (isSelf(names.value(0)))
        names.removeFirst();
    names = names.mid(call.values);
    for (const QString &given : call.keywords)
        names.removeAll(given);
    return names;
}
