// SPDX-License-Identifier: MIT
#include "editor/pythonstatements.h"

#include "analysis/sourcecursor.h"

#include <cstring>

namespace {

const int tabWidth = 8; // as the interpreter reads them

// Steps over code a string, a comment or a unit at a time.
class CodeReader
{
public:
    enum Token { Unit, String, OpenString, Comment, Joint, End };

    CodeReader(const QString &text, int start) : m_text(text) { m_text.moveTo(start); }

    int position() const { return m_text.position(); }
    ushort unit() const { return m_unit; } // of a Unit

    Token next()
    {
        if (m_text.isAtEnd())
            return End;
        m_unit = m_text.current();
        if (m_unit == '"' || m_unit == '\'')
            return string();
        if (m_unit == '#') {
            m_text.moveTo(m_text.lineEnd(m_text.position()));
            return Comment;
        }
        const bool isJoint = m_unit == '\\' && m_text.at(m_text.position() + 1) == '\n';
        m_text.advance(isJoint ? 2 : 1);
        return isJoint ? Joint : Unit;
    }

private:
    Token string()
    {
        const int start = m_text.position();
        const bool isLong = m_text.at(start + 1) == m_unit && m_text.at(start + 2) == m_unit;
        const int quotes = isLong ? 3 : 1;
        for (int at = start + quotes; at < m_text.size(); ++at) {
            const ushort unit = m_text.at(at);
            if (unit == '\\') {
                ++at;
            } else if (unit == '\n' && !isLong) {
                m_text.moveTo(at);
                return OpenString;
            } else if (unit == m_unit &&
                       (!isLong || (m_text.at(at + 1) == unit && m_text.at(at + 2) == unit))) {
                m_text.moveTo(at + quotes);
                return String;
            }
        }
        m_text.moveTo(m_text.size());
        return OpenString;
    }

    SourceCursor m_text;
    ushort m_unit = 0;
};

// By what stands before its quote: "f", "rf".
bool isFormatted(const QString &text, int quote)
{
    int start = quote;
    while (start > 0 && isPythonName(text.at(start - 1)))
        --start;
    return quote - start <= 2 &&
           text.mid(start, quote - start).contains(QLatin1Char('f'), Qt::CaseInsensitive);
}

int bracketStep(ushort unit)
{
    if (unit == '(' || unit == '[' || unit == '{')
        return 1;
    return unit == ')' || unit == ']' || unit == '}' ? -1 : 0;
}

// Walks through the text of a formatted string.
class FieldReader
{
public:
    FieldReader(const QString &text, int start) : m_source(text), m_text(text), m_position(start) {}

    int position() const { return m_position; }
    int start() const { return m_place == Expression ? m_start : -1; } // of the expression

    void step()
    {
        const ushort unit = m_text.at(m_position++);
        if (m_place == Expression)
            stepInExpression(unit);
        else if (unit == '{' && m_place == Text && m_text.at(m_position) == '{')
            ++m_position;
        else if (unit == '{')
            enter();
        else if (unit == '}' && m_place == Format)
            m_place = Text;
    }

private:
    enum Place { Text, Expression, Format }; // "a {b:c}"

    void enter()
    {
        m_isInFormat = m_place == Format; // "{a:{b}}"
        m_place = Expression;
        m_start = m_position;
        m_brackets = 0;
    }

    void stepInExpression(ushort unit)
    {
        if (unit == '"' || unit == '\'') {
            CodeReader reader(m_source, m_position - 1);
            reader.next();
            m_position = reader.position();
        } else if (m_brackets == 0 && unit == '}') {
            m_place = m_isInFormat ? Format : Text;
        } else if (m_brackets == 0 &&
                   (unit == ':' || (unit == '!' && m_text.at(m_position) != '='))) {
            m_place = Format;
        }
        m_brackets += bracketStep(unit);
    }

    const QString &m_source;
    const SourceCursor m_text;
    int m_position;
    int m_start = -1;
    int m_brackets = 0;
    Place m_place = Text;
    bool m_isInFormat = false;
};

int nameEnd(const SourceCursor &text, int start)
{
    while (isPythonName(QChar(text.at(start))))
        ++start;
    return start;
}

// Where the statement begins, behind "async".
int keywordStart(const SourceCursor &text, int start)
{
    return text.hasWord("async", start, start + 5) && text.isSpace(start + 5)
               ? text.skipLineSpace(start + 5)
               : start;
}

PythonKeyword keywordAt(const SourceCursor &text, int statement)
{
    const int start = keywordStart(text, statement);
    const int end = nameEnd(text, start);
    if (text.isText("import", start, end))
        return PythonKeyword::Import;
    if (text.isText("from", start, end))
        return PythonKeyword::From;
    if (text.isText("class", start, end))
        return PythonKeyword::Class;
    return text.isText("def", start, end) ? PythonKeyword::Function : PythonKeyword::None;
}

class StatementReader
{
public:
    explicit StatementReader(const QString &text) : m_source(text), m_text(text) {}

    std::vector<PythonStatement> read()
    {
        int position = 0;
        while ((position = lineWithCode(position)) < m_text.size()) {
            m_statements.push_back(statement(position));
            position = m_statements.back().end + 1;
        }
        return std::move(m_statements);
    }

private:
    // The start of the next line that holds code.
    int lineWithCode(int position) const
    {
        while (position < m_text.size()) {
            const int solid = m_text.skipLineSpace(position);
            if (solid < m_text.size() && m_text.at(solid) != '\n' && m_text.at(solid) != '#')
                break;
            position = m_text.lineEnd(solid) + 1;
        }
        return position;
    }

    int columns(int start, int end) const
    {
        int width = 0;
        for (int i = start; i < end; ++i)
            width = m_text.at(i) == '\t' ? (width / tabWidth + 1) * tabWidth : width + 1;
        return width;
    }

    PythonStatement statement(int lineStart)
    {
        PythonStatement found;
        found.start = m_text.skipLineSpace(lineStart);
        found.codeEnd = found.start;
        found.indent = columns(lineStart, found.start);
        found.depth = depth(found.indent);
        found.keyword = keywordAt(m_text, found.start);
        walk(&found);
        return found;
    }

    void walk(PythonStatement *found)
    {
        CodeReader reader(m_source, found->start);
        int brackets = 0;
        ushort last = 0; // unit of code; 0 for a string
        for (;;) {
            const CodeReader::Token token = reader.next();
            const bool isLineEnd = token == CodeReader::Unit && reader.unit() == '\n';
            if (token == CodeReader::End ||
                (isLineEnd && (brackets <= 0 || beginsStatement(reader.position(), *found)))) {
                found->end = reader.position() - (isLineEnd ? 1 : 0);
                break;
            }
            found->isBroken |= token == CodeReader::OpenString;
            if (token == CodeReader::Unit) {
                if (QChar(reader.unit()).isSpace())
                    continue;
                brackets += bracketStep(reader.unit());
                last = reader.unit();
            }
            if (token <= CodeReader::OpenString)
                found->codeEnd = reader.position();
            if (token == CodeReader::String || token == CodeReader::OpenString)
                last = 0;
        }
        found->opensBlock = last == ':' && brackets == 0;
        found->isBroken |=
            brackets != 0 || (last && last < 0x80 && std::strchr(".=+-*/%<>&|^~", last));
    }

    // Whether a line inside brackets must be a statement of its own, so that a bracket above was
    // left open. A line that goes on is rarely indented less, and hardly ever begins with a name
    // then.
    bool beginsStatement(int lineStart, const PythonStatement &open) const
    {
        const int start = m_text.skipLineSpace(lineStart);
        const ushort unit = m_text.at(start);
        if (unit != '@' && unit != '_' && !QChar(unit).isLetter())
            return false;
        if (columns(lineStart, start) <= open.indent)
            return true;
        for (const char *word : {"class", "def", "import", "from", "return", "raise", "while",
                                 "with", "try:", "del", "pass", "break", "continue", "assert"}) {
            const int end = start + int(qstrlen(word));
            if (m_text.startsWith(word, start) && !isPythonName(QChar(m_text.at(end))) &&
                m_text.at(end) != '=')
                return true;
        }
        return false;
    }

    // Of a line that follows the statements so far.
    int depth(int indent)
    {
        bool isLower = false;
        while (m_indents.back() > indent && m_indents.size() > 1) {
            m_indents.pop_back();
            isLower = true;
        }
        if (m_indents.back() < indent && (isLower || opensBlock()))
            m_indents.push_back(indent);
        return int(m_indents.size()) - 1;
    }

    // Deliberate: a definition opens one without its colon too, which may not be typed yet.
    bool opensBlock() const
    {
        return !m_statements.empty() && (m_statements.back().opensBlock ||
                                         m_statements.back().keyword == PythonKeyword::Class ||
                                         m_statements.back().keyword == PythonKeyword::Function);
    }

    const QString &m_source;
    const SourceCursor m_text;
    std::vector<PythonStatement> m_statements;
    std::vector<int> m_indents{0}; // of the blocks that are open
};

} // namespace

bool isPythonName(QChar unit)
{
    return unit.isLetterOrNumber() || unit == QLatin1Char('_') || unit.isMark();
}

std::vector<PythonStatement> pythonStatements(const QString &text)
{
    return StatementReader(text).read();
}

PythonCode pythonCode(const QString &text, int start, int end)
{
    PythonCode code;
    const QString part = text.mid(start, end - start);
    CodeReader reader(part, 0);
    for (;;) {
        const CodeReader::Token token = reader.next();
        switch (token) {
        case CodeReader::End:
            return code;
        case CodeReader::Unit:
            code.text += QChar(reader.unit() == '\n' ? ushort(' ') : reader.unit());
            break;
        case CodeReader::Joint:
            code.text += QLatin1Char(' ');
            break;
        case CodeReader::String:
        case CodeReader::OpenString:
            code.text += QLatin1String("\"\"");
            break;
        case CodeReader::Comment:
            break;
        }
        const bool isOpen = token == CodeReader::OpenString || token == CodeReader::Comment;
        code.endsInCode = !isOpen || reader.position() < part.size();
    }
}

PythonField pythonField(const QString &text, int start, int position)
{
    CodeReader reader(text, start);
    PythonField field;
    while (reader.position() < position) {
        const int token = reader.position();
        const CodeReader::Token kind = reader.next();
        const bool isInside = kind == CodeReader::String
                                  ? reader.position() > position
                                  : kind == CodeReader::OpenString && reader.position() >= position;
        if (!isInside || !isFormatted(text, token))
            continue;
        const int quotes = text.mid(token, 3) == QString(3, text.at(token)) ? 3 : 1;
        FieldReader fields(text, token + quotes);
        while (fields.position() < position)
            fields.step();
        field.start = fields.position() == position ? fields.start() : -1;
        field.stringEnd = reader.position();
        field.end = field.stringEnd - (kind == CodeReader::String ? quotes : 0);
    }
    return field;
}

int headerEnd(const QString &text, const PythonStatement &statement)
{
    CodeReader reader(text, statement.start);
    int brackets = 0;
    while (reader.position() < statement.codeEnd) {
        if (reader.next() != CodeReader::Unit)
            continue;
        brackets += bracketStep(reader.unit());
        if (reader.unit() == ':' && brackets == 0)
            return reader.position() - 1;
    }
    return statement.codeEnd;
}

QString firstWord(const QString &text, const PythonStatement &statement)
{
    const SourceCursor cursor(text);
    return text.mid(statement.start, nameEnd(cursor, statement.start) - statement.start);
}

QString definedName(const QString &text, const PythonStatement &statement)
{
    if (statement.keyword != PythonKeyword::Class && statement.keyword != PythonKeyword::Function)
        return QString();
    const SourceCursor cursor(text);
    const int name = cursor.skipLineSpace(nameEnd(cursor, keywordStart(cursor, statement.start)));
    return text.mid(name, nameEnd(cursor, name) - name);
}

QString assignedName(const QString &text, const PythonStatement &statement)
{
    const SourceCursor cursor(text);
    int end = nameEnd(cursor, statement.start);
    if (cursor.at(end) == '.')
        end = nameEnd(cursor, end + 1);
    const int sign = cursor.skipLineSpace(end);
    const bool isAssignment = cursor.at(sign) == '=' && cursor.at(sign + 1) != '=';
    return isAssignment ? text.mid(statement.start, end - statement.start) : QString();
}
