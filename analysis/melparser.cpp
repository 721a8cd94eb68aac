// SPDX-License-Identifier: MIT
#include "analysis/melparser.h"

#include "preferences/preferences.h"

#include <cstring>

namespace {

// None begins like another, so the order does not matter.
const char *const types[] = {"string", "int", "float", "matrix", "vector"};

// What may stand between the parentheses of a declaration. Deliberate: no bracket, although MEL
// takes array parameters.
bool isArgumentUnit(ushort unit)
{
    return isNameUnit(unit) || unit == ',' || unit == '$' || unit == '*' || unit == '/';
}

// The length of the type's name that begins at `index`, 0 when there is none.
int typeLength(const SourceCursor &cursor, int index)
{
    for (const char *type : types) {
        if (cursor.startsWith(type, index))
            return int(std::strlen(type));
    }
    return 0;
}

} // namespace

// Deliberate: nothing. The scan is too simple to contradict a script that Maya runs.
void MelParser::addError(const QString &, int, int) {}

void MelParser::addWarning(const QString &message, int start, int end)
{
    if (preferences().melDisplayErrors)
        BaseParser::addWarning(message, start, end);
}

void MelParser::addTodo(const QString &message, int start, int end)
{
    if (preferences().melDisplayErrors)
        BaseParser::addTodo(message, start, end);
}

void MelParser::parse(const QString &text, const QString &filePath)
{
    clear();
    setFile(filePath);
    m_slashSeen = false;
    m_procedureDepth = 0;
    m_insideProcedure = false;
    const QString source = prepared(text);
    m_cursor = SourceCursor(source);
    warnOfEmptyFirstLine();
    scan();
    m_cursor = SourceCursor(); // the text it lies on goes with this function
}

// A text of white space alone has no line whose number could be wrong.
void MelParser::warnOfEmptyFirstLine()
{
    const int firstSolid = m_cursor.findSolid(0);
    if (firstSolid > m_cursor.find('\n', 0))
        addWarning(QString::fromLatin1("Empty line(s) at start of file. "
                                       "Line numbers in trace may be incorrect."),
                   0, 0);
}

void MelParser::scan()
{
    for (; !m_cursor.isAtEnd(); m_cursor.advance())
        scanUnit(m_cursor.current());
    if (m_braces >= 1)
        reportExpected(QLatin1Char('}'), m_cursor.size() - 1, m_cursor.size() - 1);
}

void MelParser::scanUnit(ushort unit)
{
    const bool slashSeen = m_slashSeen;
    // Deliberate: these four leave the mark of a slash, so a comment sign may have one between.
    if (unit != ';' && unit != '}' && unit != '"' && unit != '/')
        m_slashSeen = false;
    switch (unit) {
    case ';':
        return semicolon();
    case '{':
        ++m_braces;
        return;
    case '}':
        return closeBrace();
    case '[':
        ++m_brackets;
        return;
    case ']':
        closeBracket(']', m_brackets);
        return;
    case '(':
        ++m_parens;
        return;
    case ')':
        closeBracket(')', m_parens);
        return;
    case '"':
        return scanString();
    case '/':
        return slash();
    case '*':
        if (slashSeen)
            blockComment();
        return;
    case 'g':
        return globalDeclaration();
    case 'p':
        return localProcedure();
    default:
        return;
    }
}

// A statement ends here, so nothing that was opened in it can still be closed.
void MelParser::semicolon()
{
    const int position = m_cursor.position();
    if (m_parens > 0)
        reportExpected(QLatin1Char(')'), position, position + 1);
    else if (m_brackets > 0)
        reportExpected(QLatin1Char(']'), position, position + 1);
}

void MelParser::closeBrace()
{
    if (closeBracket('}', m_braces) && m_braces == m_procedureDepth)
        m_insideProcedure = false;
}

void MelParser::slash()
{
    if (m_slashSeen)
        lineComment();
    else
        m_slashSeen = true;
}

// The cursor is at the second slash.
void MelParser::lineComment()
{
    const int end = m_cursor.lineEnd(m_cursor.position());
    noteTodo(end);
    m_cursor.moveTo(end);
    m_slashSeen = false;
}

// The cursor is at the asterisk, which cannot be that of the end: "/*/" is open. Without an end all
// the rest of the text is comment.
void MelParser::blockComment()
{
    const int end = m_cursor.findText("*/", m_cursor.position() + 1);
    noteTodo(end);
    m_cursor.moveTo(end < 0 ? m_cursor.size() - 1 : end + 1);
}

// Deliberate: a declaration right behind a ";" or "}" is not listed.
bool MelParser::isAfterSpace() const
{
    const int position = m_cursor.position();
    return position == 0 || m_cursor.isSpace(position - 1);
}

// global proc
// |      |     the cursor, and the word
void MelParser::globalDeclaration()
{
    if (!isAfterSpace() || !m_cursor.startsWith("global", m_cursor.position()))
        return;
    const int gap = m_cursor.position() + 6;
    const int word = m_cursor.skipLineSpace(gap);
    if (word > gap && !globalProcedure(word))
        globalVariable(word);
}

// Whether the word is "proc" with a return type or none; its name may still be missing.
bool MelParser::globalProcedure(int word)
{
    const int matchEnd = m_cursor.startsWith("proc", word) ? typesEnd(word + 4) : -1;
    if (matchEnd < 0)
        return false;
    m_procedureDepth = m_braces;
    if (m_insideProcedure)
        reportNested(matchEnd);
    else
        declareProcedure(GlobalProcedureItem, m_braces, matchEnd);
    return true;
}

// Deliberate: unlike a global one, it is refused only inside braces, and does not move the depth at
// which the procedure ends; it is listed at depth 0 wherever it stands.
void MelParser::localProcedure()
{
    const int position = m_cursor.position();
    if (!isAfterSpace() || !m_cursor.startsWith("proc", position))
        return;
    const int matchEnd = typesEnd(position + 4);
    if (matchEnd < 0)
        return;
    if (m_braces >= 1 && m_insideProcedure)
        reportNested(matchEnd);
    else
        declareProcedure(LocalProcedureItem, 0, matchEnd);
}

// global proc string[] name(
//            |         |      from, and the result: behind the last white space of the types
//
// -1 when no white space follows. Types need none before them: "procstring x" declares x.
int MelParser::typesEnd(int from) const
{
    int end = -1;
    for (int i = from;;) {
        if (m_cursor.isSpace(i) && m_cursor.at(i) != '\n')
            end = ++i;
        else if (m_cursor.at(i) == '[' || m_cursor.at(i) == ']')
            ++i;
        else if (const int length = typeLength(m_cursor, i))
            i += length;
        else
            return end;
    }
}

// From the declaration's first word to the end of its types.
void MelParser::reportNested(int matchEnd)
{
    addError(QString::fromLatin1("Procedures cannot be nested within each other. Expected a '}'."),
             m_cursor.position(), matchEnd);
}

// Dots may stand inside the name, but not side by side, nor at its end.
void MelParser::declareProcedure(OutlineKind kind, int depth, int nameStart)
{
    const int nameEnd = m_cursor.skipPath(nameStart);
    if (nameEnd == nameStart)
        return;
    const QString name = m_cursor.text(nameStart, nameEnd);
    if (name.endsWith(QLatin1Char('.')) || name.contains(QLatin1String(".."))) {
        const int position = m_cursor.position();
        const bool isGlobal = kind == GlobalProcedureItem;
        // Deliberate: for a local one the length alone counts, from the word "proc".
        addError(QString::fromLatin1("Invalid procedure name"), position,
                 isGlobal ? nameEnd : position + int(name.size()));
        return;
    }
    addOutlineItem(kind, name, nameStart, depth);
    m_cursor.moveTo(nameEnd);
    argumentList(nameStart);
}

// The cursor is behind the name. Where the list is broken off, the main loop goes on behind what
// stands in place of "(" or behind the "(", which is not counted as open then.
void MelParser::argumentList(int nameStart)
{
    const int open = m_cursor.findSolid(m_cursor.position());
    if (open < 0 || m_cursor.at(open) != '(') {
        reportExpected(QLatin1Char('('), nameStart, m_cursor.position());
        m_cursor.moveTo(open < 0 ? m_cursor.size() - 1 : open);
        return;
    }
    const int close = argumentListEnd(open);
    if (m_cursor.at(close) != ')') {
        reportExpected(QLatin1Char(')'), nameStart, m_cursor.position());
        m_cursor.moveTo(open);
        return;
    }
    m_cursor.moveTo(close + 1);
    body(nameStart);
}

// Where the units of an argument list end.
int MelParser::argumentListEnd(int open) const
{
    int end = open + 1;
    while (isArgumentUnit(m_cursor.at(end)) || m_cursor.isSpace(end))
        ++end;
    return end;
}

// The cursor is behind the argument list. White space and line breaks may follow, but no comment.
void MelParser::body(int nameStart)
{
    const int open = m_cursor.findSolid(m_cursor.position());
    if (open >= 0 && m_cursor.at(open) == '{') {
        m_cursor.moveTo(open - 1); // the main loop counts the brace
        m_insideProcedure = true;
        return;
    }
    reportExpected(QLatin1Char('{'), nameStart, m_cursor.position());
    if (open < 0)
        m_cursor.moveTo(m_cursor.size() - 1);
}

// global string[] $name
//                 |      exactly one white space before it
void MelParser::globalVariable(int type)
{
    const int length = typeLength(m_cursor, type);
    if (length == 0)
        return;
    int gap = type + length;
    while (m_cursor.at(gap) == '[' || m_cursor.at(gap) == ']')
        ++gap;
    const int name = gap + 1;
    if (!m_cursor.isSpace(gap) || m_cursor.at(gap) == '\n' || m_cursor.at(name) != '$')
        return;
    const int nameEnd = m_cursor.skipName(name + 1);
    if (nameEnd == name + 1)
        return;
    addOutlineItem(GlobalVariableItem, m_cursor.text(name, nameEnd), name, m_braces);
    m_cursor.moveTo(nameEnd - 1);
}
