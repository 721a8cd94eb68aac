// SPDX-License-Identifier: MIT
#include "editor/melcontext.h"

#include "analysis/commandword.h"
#include "analysis/wordunits.h"
#include "bridge/melnametable.h"
#include "editor/codearound.h"
#include "editor/editorlanguage.h"
#include "editor/longlines.h"
#include "editor/melscanner.h"
#include "editor/textblocks.h"

#include <QSet>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>

namespace {

const int mostLinesOfProcedure = 2000;

bool isName(QChar character)
{
    return isNameUnit(character.unicode());
}

bool isBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\t');
}

int nameStart(const QString &code, int end)
{
    while (end > 0 && isName(code.at(end - 1)))
        --end;
    return end;
}

// Of the caret's line what is before it.
struct LineStart
{
    QString text;
    QString code; // without strings and comments
    bool endsInCode = false;
};

// The block data would know the code, but not where in it the caret is.
LineStart lineBefore(const QTextCursor &caret)
{
    const QChar mark(0xFFFF); // which no text has
    const QTextBlock block = caret.block();
    MelScanner scanner(melNameTable());
    LineScan scan;
    LineStart start;
    start.text = block.text().left(caret.position() - block.position());
    const QString line = start.text + mark;
    scanner.scan(line, block.previous().userState(), scan);
    start.code = scan.code(line);
    start.endsInCode = start.code.endsWith(mark);
    if (start.endsInCode)
        start.code.chop(1);
    return start;
}

// int |           begins a statement or a parameter, where a declaration may; a flag's value does
// not
bool mayDeclare(const QString &line, int type)
{
    int end = type;
    while (end > 0 && isBlank(line.at(end - 1)))
        --end;
    if (end == 0 || QString::fromLatin1(";{}(,").contains(line.at(end - 1)))
        return true;
    const QString word = line.mid(nameStart(line, end), end - nameStart(line, end));
    return word == QLatin1String("proc") || word == QLatin1String("global");
}

// string |        a new name, or a "$"
// select |a|b     a node's
// |      |
bool isForeignName(const QString &line, int start)
{
    if (start > 0 && line.at(start - 1) == QLatin1Char('|'))
        return start < 2 || line.at(start - 2) != QLatin1Char('|');
    int end = start;
    while (end > 0 && isBlank(line.at(end - 1)))
        --end;
    const int typeStart = nameStart(line, end);
    const QString word = line.mid(typeStart, end - typeStart);
    for (const char *type : {"int", "float", "string", "vector", "matrix"}) {
        if (end < start && word == QLatin1String(type))
            return mayDeclare(line, typeStart);
    }
    return false;
}

// Of the same lines as those who ask for help, so that both find the same command.
QString calledBefore(const QTextCursor &caret, int typed)
{
    const CodeAround code = codeAround(caret, MelLanguage);
    return commandBefore(code.text, code.caret - typed);
}

// move -r $a-|
//      |    |     no flag without a gap
bool mayStartFlag(const QString &line, int dash)
{
    return dash == 0 || isBlank(line.at(dash - 1)) || line.at(dash - 1) == QLatin1Char('(') ||
           line.at(dash - 1) == QLatin1Char('`');
}

void addVariables(const QString &code, QSet<QString> *found)
{
    for (int at = int(code.indexOf(QLatin1Char('$'))); at >= 0;) {
        const int end = nameEnd(code, at + 1);
        if (end > at + 1)
            found->insert(code.mid(at, end - at));
        at = int(code.indexOf(QLatin1Char('$'), end));
    }
}

bool declaresProcedure(const QString &code)
{
    const QString rest = code.startsWith(QLatin1String("global")) ? code.mid(6).trimmed() : code;
    return rest.startsWith(QLatin1String("proc")) && (rest.size() == 4 || !isName(rest.at(4)));
}

// Collects the variables of a caret's scope, line by line upwards from the caret and each line from
// its end: those of blocks that were closed before it, and of other procedures, are out of scope.
class ScopeWalk
{
public:
    void add(const QString &code)
    {
        int end = int(code.size());
        for (int i = end - 1; i >= 0 && !m_isDone; --i) {
            const ushort unit = code.at(i).unicode();
            if (unit != '{' && unit != '}')
                continue;
            addPart(code.mid(i + 1, end - i - 1));
            addBrace(unit == '{' ? -1 : 1);
            end = i;
        }
        if (!m_isDone)
            addPart(code.left(end));
    }

    bool isDone() const { return m_isDone; } // all of the caret's procedure has been seen
    const QSet<QString> &variables() const { return m_variables; }

private:
    // One without braces.
    void addPart(const QString &code)
    {
        const bool isProcedure = declaresProcedure(code.trimmed());
        m_isDone = isProcedure && m_isHead;
        if (m_closed == m_least && (m_isDone || !isProcedure))
            addVariables(code, &m_variables);
        m_isHead = m_isHead && !code.contains(QLatin1Char(';'));
    }

    void addBrace(int closed)
    {
        m_closed += closed;
        m_isHead = m_closed < m_least; // of a block that the caret is in
        m_least = std::min(m_least, m_closed);
    }

    QSet<QString> m_variables;
    int m_closed = 0; // braces that close below, less those that open
    int m_least = 0;
    // proc f(int $a,
    //        int $b)
    // {                  the lines above may belong to the brace until something else ends
    bool m_isHead = false;
    bool m_isDone = false;
};

} // namespace

MelContext melContextAt(const QTextCursor &caret)
{
    MelContext context;
    if (isLong(caret.block()))
        return context;
    const LineStart line = lineBefore(caret);
    const int start = nameStart(line.text, int(line.text.size()));
    const QChar before = start > 0 ? line.text.at(start - 1) : QChar();
    context.prefix = line.text.mid(start);
    if (!line.endsInCode || before == QLatin1Char('.') || isForeignName(line.text, start) ||
        (!context.prefix.isEmpty() && context.prefix.at(0).isDigit()))
        return MelContext();
    context.kind = MelContext::Name;
    if (before == QLatin1Char('$'))
        context.kind = MelContext::Variable;
    else if (before == QLatin1Char('-') && mayStartFlag(line.text, start - 1))
        context.command = calledBefore(caret, int(context.prefix.size()) + 1);
    if (!context.command.isEmpty())
        context.kind = MelContext::Flag;
    if (context.kind != MelContext::Name)
        context.prefix.prepend(before);
    return context;
}

QStringList melVariablesBefore(const QTextCursor &caret)
{
    QTextBlock block = caret.block();
    if (isLong(block))
        return QStringList();
    QString code = lineBefore(caret).code;
    code.truncate(nameStart(code, int(code.size()))); // without what is being typed
    ScopeWalk walk;
    walk.add(code);
    for (int lines = 1; lines < mostLinesOfProcedure && !walk.isDone(); ++lines) {
        block = block.previous();
        if (!block.isValid())
            break;
        walk.add(isLong(block) ? QString() : codeOf(block));
    }
    return QStringList(walk.variables().values());
}
