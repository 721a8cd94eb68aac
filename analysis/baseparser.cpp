// SPDX-License-Identifier: MIT
#include "analysis/baseparser.h"

BaseParser::~BaseParser() = default;

void BaseParser::clear()
{
    m_outlineItems.clear();
    m_errors.clear();
    m_warnings.clear();
    m_todos.clear();
    m_file = QFileInfo();
    m_parens = 0;
    m_braces = 0;
    m_brackets = 0;
    m_bracketErrorReported = false;
}

void BaseParser::addError(const QString &message, int start, int end)
{
    m_errors.add(message, start, end);
}

void BaseParser::addWarning(const QString &message, int start, int end)
{
    m_warnings.add(message, start, end);
}

void BaseParser::addTodo(const QString &message, int start, int end)
{
    m_todos.add(message, start, end);
}

void BaseParser::reportExpected(QChar character, int start, int end)
{
    reportBracket("Expected a '%1'", character, start, end);
}

void BaseParser::reportUnexpected(QChar character, int start, int end)
{
    reportBracket("Unexpected '%1'", character, start, end);
}

void BaseParser::reportBracket(const char *message, QChar character, int start, int end)
{
    if (m_bracketErrorReported)
        return;
    addError(QString::fromLatin1(message).arg(character), start, end);
    m_bracketErrorReported = true;
}

void BaseParser::addOutlineItem(int kind, const QString &name, int position, int depth)
{
    m_outlineItems << OutlineItem{kind, name, position, depth};
}

bool BaseParser::closeBracket(char bracket, int &depth)
{
    if (depth < 1) {
        reportUnexpected(QLatin1Char(bracket), m_cursor.position(), m_cursor.position() + 1);
        return false;
    }
    --depth;
    return true;
}

// print "a\"b";
//       |    |    start, and the cursor in the end: the second quote is escaped
//
// The line feed that ends the prepared text stops every string, whatever stands before it.
void BaseParser::scanString()
{
    const int start = m_cursor.position();
    const char quote = char(m_cursor.current());
    do {
        m_cursor.moveTo(m_cursor.findEither(quote, '\n', m_cursor.position() + 1));
    } while (m_cursor.isEscaped(m_cursor.position()) && m_cursor.position() < m_cursor.size() - 1);
    if (m_cursor.current() == '\n')
        addError(QString::fromLatin1("Unterminated String"), start, m_cursor.position());
}

void BaseParser::noteTodo(int end)
{
    const int start = m_cursor.position();
    if (m_cursor.hasWord("TODO", start, end < 0 ? m_cursor.size() : end))
        addTodo(QString::fromLatin1("TODO:"), start, end);
}

QString BaseParser::prepared(const QString &text)
{
    QString result;
    // One allocation: a shared copy would be taken for the line feeds and again for the last one.
    result.reserve(text.size() + 1);
    result += text;
    result.replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
    result += QLatin1Char('\n');
    return result;
}
