// SPDX-License-Identifier: MIT
#include "editor/pythoncaret.h"

#include "editor/pythonobject.h"

#include <algorithm>

namespace {

int lineStart(const QString &text, int position)
{
    return position == 0 ? 0 : int(text.lastIndexOf(QLatin1Char('\n'), position - 1)) + 1;
}

QString wordBefore(const QString &code)
{
    const int end = skipBlanksBack(code, int(code.size()));
    const int start = pythonNameStart(code, end);
    return code.mid(start, end - start);
}

// "keyword" of "keyword=value", else empty.
QString keywordArgument(const QString &part)
{
    const int sign = int(part.indexOf(QLatin1Char('=')));
    const bool isKeyword = sign >= 0 && part.mid(sign + 1, 1) != QLatin1String("=");
    const QString name = isKeyword ? part.left(sign).trimmed() : QString();
    return pythonNameStart(name, int(name.size())) == 0 ? name : QString();
}

// Where an import may name a package: "a.b." for those below "a.b", ".." for those below that.
void readModule(const QString &path, PythonCaret *caret)
{
    const QString trimmed = path.trimmed();
    int dots = 0;
    while (dots < trimmed.size() && trimmed.at(dots) == QLatin1Char('.'))
        ++dots;
    const QString name = trimmed.mid(dots);
    if (!name.isEmpty() && !name.endsWith(QLatin1Char('.')))
        return;
    const QString below = pythonObjectBefore(name, qMax(0, int(name.size()) - 1));
    caret->object = trimmed.left(dots) + below;
    if (below.isEmpty() == name.isEmpty())
        caret->place = PythonCaret::Module;
}

void readFrom(const QString &rest, PythonCaret *caret)
{
    const int word = int(rest.indexOf(QLatin1String(" import")));
    if (word < 0 || isPythonName(rest.at(word + 7))) {
        readModule(rest, caret);
        return;
    }
    QString names = rest.mid(word + 7);
    const QString module = rest.left(word).trimmed();
    if (names.trimmed().startsWith(QLatin1Char('(')))
        names = names.mid(names.indexOf(QLatin1Char('(')) + 1);
    if (!codeParts(names, QLatin1Char(',')).last().trimmed().isEmpty())
        return;
    caret->object = module;
    caret->place = PythonCaret::ImportedName;
}

// False when the code, which ends before the prefix, is no import.
bool readImport(const QString &code, PythonCaret *caret)
{
    const QString statement = codeParts(code, QLatin1Char(';')).last().trimmed() + QLatin1Char(' ');
    if (statement.startsWith(QLatin1String("import ")))
        readModule(codeParts(statement.mid(7), QLatin1Char(',')).last(), caret);
    else if (statement.startsWith(QLatin1String("from ")))
        readFrom(statement.mid(5).trimmed() + QLatin1Char(' '), caret);
    else
        return false;
    return true;
}

class CaretReader
{
public:
    explicit CaretReader(const PythonContext &context)
        : m_context(context), m_statement(context.statements[context.current])
    {
    }

    PythonCaret read()
    {
        PythonCaret caret;
        const PythonField field = pythonField(m_context.text, start(), m_context.position);
        const int begin = field.start < 0 ? start() : field.start;
        const PythonCode code = pythonCode(m_context.text, begin, m_context.position);
        const int prefix = pythonNameStart(code.text, int(code.text.size()));
        caret.prefixLength = int(code.text.size()) - prefix;
        if (!code.endsInCode || (caret.prefixLength > 0 && code.text.at(prefix).isDigit()))
            return PythonCaret();
        m_code = code.text.left(prefix);
        if (!readImport(m_code, &caret) && !readDefinition(&caret))
            readExpression(&caret);
        return caret;
    }

private:
    // An added statement may lie in a comment.
    int start() const
    {
        return m_statement.start < m_context.position
                   ? m_statement.start
                   : lineStart(m_context.text, m_context.position);
    }

    // New names are the user's to find, but a method may be one of the base classes'.
    bool readDefinition(PythonCaret *caret) const
    {
        const QString word = wordBefore(m_code);
        const bool isDefinition = word == QLatin1String("def");
        if (!isDefinition && word != QLatin1String("class") && word != QLatin1String("as"))
            return false;
        if (!m_code.at(m_code.size() - 1).isSpace())
            return false;
        const std::vector<int> headers = m_context.headersAbove(m_context.current);
        const bool isMethod = isDefinition && headers.size() == 1 &&
                              m_context.statements[headers[0]].keyword == PythonKeyword::Class;
        if (isMethod) {
            caret->place = PythonCaret::Member;
            caret->object = QLatin1String("self");
        }
        return true;
    }

    void readExpression(PythonCaret *caret) const
    {
        const int end = skipBlanksBack(m_code, int(m_code.size()));
        if (end > 0 && m_code.at(end - 1) == QLatin1Char('.')) {
            caret->object = pythonObjectBefore(m_code, end - 1);
            caret->place = caret->object.isEmpty() ? PythonCaret::Nothing : PythonCaret::Member;
            return;
        }
        caret->place = PythonCaret::Name;
        readCall(&caret->call);
    }

    void readCall(PythonCall *call) const
    {
        const int opener = openPythonBracket(m_code, int(m_code.size()));
        if (opener < 0 || m_code.at(opener) != QLatin1Char('('))
            return;
        QStringList parts = codeParts(m_code.mid(opener + 1), QLatin1Char(','));
        if (!parts.takeLast().trimmed().isEmpty())
            return;
        for (const QString &part : parts)
            call->values += keywordArgument(part).isEmpty() ? 1 : 0;
        const QString behind = codeBehind();
        call->hasValue = !keywordArgument(QLatin1Char('_') + behind).isEmpty();
        parts << codeParts(behind, QLatin1Char(',')).mid(1);
        for (const QString &part : parts)
            call->keywords << keywordArgument(part);
        call->keywords.removeAll(QString());
        call->function = pythonObjectBefore(m_code, opener);
    }

    // Without what is left of the word at the caret.
    QString codeBehind() const
    {
        const QString code = pythonCode(m_context.text, m_context.position, m_statement.end).text;
        int start = 0;
        while (start < code.size() && isPythonName(code.at(start)))
            ++start;
        return code.mid(start);
    }

    const PythonContext &m_context;
    const PythonStatement &m_statement;
    QString m_code; // of the statement, up to the prefix
};

} // namespace

PythonContext::PythonContext(const QString &wholeText, int caret, const QString &ownPackage)
    : text(wholeText), package(ownPackage), position(caret), statements(pythonStatements(wholeText))
{
    const auto isBefore = [](int place, const PythonStatement &one) { return place < one.start; };
    const auto next = std::upper_bound(statements.begin(), statements.end(), position, isBefore);
    current = int(next - statements.begin()) - 1;
    if (current >= 0 && position <= statements[current].end)
        return;
    PythonStatement added;
    added.start = added.end = added.codeEnd = position;
    added.indent = position - lineStart(text, position);
    added.depth = caretDepth(++current, added.indent);
    statements.insert(next, added);
}

int PythonContext::caretDepth(int index, int indent) const
{
    if (index == 0)
        return 0;
    const PythonStatement &above = statements[index - 1];
    if (indent > above.indent)
        return above.depth + (above.opensBlock ? 1 : 0);
    for (int i = index - 1; i >= 0; --i) {
        if (statements[i].indent <= indent)
            return statements[i].depth;
    }
    return 0;
}

std::vector<int> PythonContext::headersAbove(int statement) const
{
    std::vector<int> headers;
    int depth = statements[statement].depth;
    for (int i = statement - 1; i >= 0 && depth > 0; --i) {
        if (statements[i].depth < depth) {
            depth = statements[i].depth;
            headers.push_back(i);
        }
    }
    return headers;
}

int PythonContext::enclosingClass() const
{
    for (int header : headersAbove(current)) {
        if (statements[header].keyword == PythonKeyword::Class)
            return header;
    }
    return -1;
}

PythonCaret pythonCaret(const PythonContext &context)
{
    return CaretReader(context).read();
}

QStringList argumentParts(const QString &text, const PythonStatement &definition)
{
    const QString code = pythonCode(text, definition.start, definition.codeEnd).text;
    const int opener = int(code.indexOf(QLatin1Char('(')));
    return opener < 0 ? QStringList() : codeParts(code.mid(opener + 1), QLatin1Char(','));
}

QStringList argumentNames(const QString &text, const PythonStatement &definition)
{
    return argumentNames(argumentParts(text, definition).join(QLatin1String(",")));
}

QStringList argumentNames(const QString &list)
{
    QStringList names;
    for (const QString &part : codeParts(list, QLatin1Char(','))) {
        int start = 0;
        while (start < part.size() &&
               (part.at(start).isSpace() || part.at(start) == QLatin1Char('*')))
            ++start;
        int end = start;
        while (end < part.size() && isPythonName(part.at(end)))
            ++end;
        if (end > start)
            names << part.mid(start, end - start);
    }
    return names;
}
