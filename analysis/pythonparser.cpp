// SPDX-License-Identifier: MIT
// The scan of lines, blocks, brackets and strings; declarations are in pythondeclarations.cpp.
#include "analysis/pythonparser.h"

#include "preferences/preferences.h"

namespace {

// The distance of the tab stops of Python's own tokenizer, whatever the editor draws.
const int tabWidth = 8;

} // namespace

void PythonParser::addError(const QString &message, int start, int end)
{
    if (preferences().pythonDisplayErrors)
        BaseParser::addError(message, start, end);
}

void PythonParser::addWarning(const QString &message, int start, int end)
{
    if (preferences().pythonDisplayErrors)
        BaseParser::addWarning(message, start, end);
}

void PythonParser::addTodo(const QString &message, int start, int end)
{
    if (preferences().pythonDisplayErrors)
        BaseParser::addTodo(message, start, end);
}

void PythonParser::parse(const QString &text, const QString &filePath)
{
    clear();
    setFile(filePath);
    const QString source = prepared(text);
    m_cursor = SourceCursor(source);
    m_tokenSearchedFrom = 0;
    m_token = -1;
    // Deliberate: the first line is taken to start at 1, as if a line feed stood at 0.
    startLine();
    m_indentStart = 0;
    m_decorators.clear();
    m_indentErrorReported = false;
    m_mixedIndentReported = false;
    resetBlocks();
    scan();
    m_cursor = SourceCursor();
}

void PythonParser::scan()
{
    for (; !m_cursor.isAtEnd(); m_cursor.advance()) {
        const ushort unit = m_cursor.current();
        if (!m_atLineStart || !scanLineStart(unit))
            scanUnit(unit);
    }
}

// Returns whether the unit is done with.
bool PythonParser::scanLineStart(ushort unit)
{
    if (unit == '\t' || unit == ' ')
        return true;
    if (unit == '\n') {
        startLine();
        return true;
    }
    if (unit != '#' && !m_cursor.isSpace(m_cursor.position()))
        checkIndent();
    if (unit == '@') {
        decorator();
        return true;
    }
    const bool defines = (unit == 'c' && classDefinition()) || (unit == 'd' && definition());
    // Neither is done with its line: the scan of code has to see the brackets of an import and the
    // colon of a main block.
    if (unit == 'f')
        fromImport();
    else if (unit == 'i' && !import())
        mainBlock();
    m_decorators.clear();
    m_atLineStart = false;
    return defines;
}

void PythonParser::scanUnit(ushort unit)
{
    switch (unit) {
    case '\n':
        return startLine();
    case ':':
        return colon();
    case '{':
        ++m_braces;
        return;
    case '[':
        ++m_brackets;
        return;
    case '(':
        ++m_parens;
        return;
    case '}':
        closeBracket('}', m_braces);
        return;
    case ']':
        closeBracket(']', m_brackets);
        return;
    case ')':
        closeBracket(')', m_parens);
        return;
    case '"':
    case '\'':
        return string();
    case '#':
        return comment();
    default:
        return;
    }
}

// The cursor is at a line feed. While a bracket is open the next line goes on with the statement.
void PythonParser::startLine()
{
    if ((m_parens > 0 || m_braces > 0 || m_brackets > 0) && !endsOpenBrackets())
        return;
    m_atLineStart = true;
    m_lineStart = m_cursor.position() + 1;
    m_indentStart = m_lineStart;
}

// Whether the next word can only begin a statement, so that a bracket was left open.
bool PythonParser::endsOpenBrackets()
{
    const int token = nextToken(m_cursor.position());
    for (const char *word : {"class", "def", "import", "from"}) {
        const int end = token + int(qstrlen(word));
        if (m_cursor.startsWith(word, token) && m_cursor.isSpace(end)) {
            reportOpenBracket();
            return true;
        }
    }
    return false;
}

// The next unit that is not white space, or the end of the text; kept, since many blank lines ask
// for the same one.
int PythonParser::nextToken(int from)
{
    const bool isKnown = m_tokenSearchedFrom <= from && from <= m_token;
    if (!isKnown) {
        const int found = m_cursor.findSolid(from);
        m_token = found < 0 ? m_cursor.size() : found;
        m_tokenSearchedFrom = from;
    }
    return m_token;
}

// One report whatever is open. All of it counts as closed then, so that what follows is read as the
// statement that it is.
void PythonParser::reportOpenBracket()
{
    const char missing = m_braces >= 1 ? '}' : m_parens >= 1 ? ')' : ']';
    reportExpected(QLatin1Char(missing), m_cursor.position(), m_cursor.position());
    m_parens = 0;
    m_braces = 0;
    m_brackets = 0;
}

// What stands between the line's start and the cursor. Deliberate: every tab counts for a whole
// stop, also behind spaces, where it would fill up to the next one only.
Indent PythonParser::currentIndent() const
{
    Indent indent;
    indent.start = m_indentStart;
    indent.length = m_cursor.position() - m_indentStart;
    int tabs = 0;
    for (int i = indent.start; i < m_cursor.position(); ++i)
        tabs += m_cursor.at(i) == '\t' ? 1 : 0;
    indent.width = indent.length - tabs + tabs * tabWidth;
    indent.isMixed = tabs > 0 && tabs < indent.length;
    return indent;
}

// if a:
//     b
//   c         wider than "", narrower than "    ", and equal to neither: no block to go on with
//
// Deliberate: widths say what is deeper, but only the very same characters close blocks, so that a
// line that fits by its width alone is an error.
void PythonParser::checkIndent()
{
    const Indent indent = currentIndent();
    const bool isDeeper = m_blocks.topWidth() < indent.width;
    if (m_blockExpected) {
        m_blockExpected = false;
        if (isDeeper)
            m_blocks.push(indent);
        else
            indentError("Expected an indented block");
    } else if (isDeeper) {
        indentError("Unexpected indent");
    } else if (!m_blocks.popTo(m_cursor, indent)) {
        indentError("Unindent does not match any outer indentation level");
        m_mixedIndentReported = true; // the error says it already
    }
    warnOfMixedIndent(indent);
    m_atLineStart = false;
}

// Only the first one: the others follow from it.
void PythonParser::indentError(const char *message)
{
    if (!m_indentErrorReported)
        addError(QString::fromLatin1(message), m_lineStart, m_cursor.position());
    m_indentErrorReported = true;
}

void PythonParser::warnOfMixedIndent(const Indent &indent)
{
    if (m_mixedIndentReported || !indent.isMixed)
        return;
    addWarning(QString::fromLatin1("Indent contains both tabs and spaces"), m_lineStart,
               m_cursor.position());
    m_mixedIndentReported = true;
}

void PythonParser::resetBlocks()
{
    m_blocks.reset();
    m_blockExpected = false;
}

// A definition at the margin belongs to no block, whatever went wrong above it.
void PythonParser::resetBlocksAtMargin()
{
    if (currentIndent().length == 0)
        resetBlocks();
}

// A colon that ends its line, but for a comment, asks for a block. Deliberate: the comment is not
// searched for notes.
void PythonParser::colon()
{
    if (m_parens > 0 || m_braces > 0 || m_brackets > 0)
        return;
    int next = m_cursor.skipBlanks(m_cursor.position() + 1);
    if (m_cursor.at(next) == '#')
        next = m_cursor.lineEnd(next);
    if (m_cursor.at(next) != '\n')
        return;
    m_blockExpected = true;
    m_cursor.moveTo(next);
    startLine();
}

// Deliberate: the line feed that ends an unterminated string belongs to it, so the next line's
// indent is not checked.
void PythonParser::string()
{
    const int start = m_cursor.position();
    const ushort quote = m_cursor.current();
    if (m_cursor.at(start + 1) == quote && m_cursor.at(start + 2) == quote)
        tripleQuoted(char(quote));
    else
        scanString();
}

// The cursor is at the first of the opening quotes, and ends on the last of the closing ones.
// Without those no error is made of it: the scan of code goes on from where the last search began.
//
// Deliberate: one backslash before the closing quotes is enough to escape them.
void PythonParser::tripleQuoted(char quote)
{
    const char quotes[] = {quote, quote, quote, '\0'};
    int end = m_cursor.findText(quotes, m_cursor.position() + 3);
    while (end >= 0 && m_cursor.at(end - 1) == '\\') {
        m_cursor.moveTo(end + 1);
        end = m_cursor.findText(quotes, m_cursor.position() + 3);
    }
    noteTodo(end);
    if (end >= 0)
        m_cursor.moveTo(end + 2);
}

// The line feed is done with as well: it ends the logical line, unless a bracket is open.
void PythonParser::comment()
{
    const int end = m_cursor.lineEnd(m_cursor.position());
    noteTodo(end);
    m_cursor.moveTo(end);
    startLine();
}
