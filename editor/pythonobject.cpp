// SPDX-License-Identifier: MIT
#include "editor/pythonobject.h"

#include "analysis/pythonkeywords.h"
#include "editor/pythonstatements.h"

namespace {

const int longestObject = 64; // names with dots between them

bool isOpener(QChar unit)
{
    return unit == QLatin1Char('(') || unit == QLatin1Char('[') || unit == QLatin1Char('{');
}

bool isCloser(QChar unit)
{
    return unit == QLatin1Char(')') || unit == QLatin1Char(']') || unit == QLatin1Char('}');
}

// What a string that ends there is: bytes of "b" and "rb".
QString stringClass(const QString &code, int end)
{
    const int quote = end - 2; // strings are empty here
    const int start = pythonNameStart(code, qMax(0, quote));
    const QString prefix = code.mid(start, quote - start);
    const bool isBytes =
        prefix.size() <= 2 && prefix.contains(QLatin1Char('b'), Qt::CaseInsensitive);
    return QLatin1String(isBytes ? "bytes" : "str");
}

// Whether a bracket there calls or indexes what stands before it.
bool followsValue(const QString &code, int bracket)
{
    const int end = skipBlanksBack(code, bracket);
    const int start = pythonNameStart(code, end);
    if (start < end)
        return !isPythonKeyword(code.mid(start, end - start));
    return end > 0 && (isCloser(code.at(end - 1)) || code.at(end - 1) == QLatin1Char('"'));
}

// What brackets without anything before them make; empty for most expressions in parentheses.
QString literalClass(QChar opener, const QString &inside)
{
    if (opener == QLatin1Char('['))
        return QLatin1String("list");
    if (opener == QLatin1Char('(')) { // ("%s" % a)
        const bool isText = inside.trimmed().startsWith(QLatin1Char('"')) &&
                            codeParts(inside, QLatin1Char(',')).size() == 1;
        return QLatin1String(isText ? "str" : "");
    }
    const bool isSet =
        codeParts(inside, QLatin1Char(':')).size() == 1 && !inside.trimmed().isEmpty();
    return QLatin1String(isSet ? "set" : "dict");
}

// Reads the name of an object backwards.
class ObjectReader
{
public:
    ObjectReader(const QString &code, int end) : m_code(code), m_end(end) {}

    QString read()
    {
        while (m_parts.size() < longestObject && readPart()) {
        }
        return m_isKnown ? m_parts.join(QLatin1String(".")) : QString();
    }

private:
    // False at the beginning, or when nothing can be known.
    bool readPart()
    {
        m_end = skipBlanksBack(m_code, m_end);
        const QChar last = m_end > 0 ? m_code.at(m_end - 1) : QChar();
        if (isCloser(last))
            return readBrackets();
        if (last == QLatin1Char('"'))
            return begin(stringClass(m_code, m_end));
        const int start = pythonNameStart(m_code, m_end);
        if (start == m_end || m_code.at(start).isDigit())
            return false;
        const int before = skipBlanksBack(m_code, start);
        const QString name = m_code.mid(start, m_end - start);
        if (before == 0 || m_code.at(before - 1) != QLatin1Char('.'))
            return begin(name);
        m_parts.prepend(name);
        m_end = before - 1;
        return true;
    }

    bool readBrackets()
    {
        const int opener = openPythonBracket(m_code, m_end - 1);
        if (opener < 0)
            return false;
        const QString inside = m_code.mid(opener + 1, m_end - opener - 2);
        if (!followsValue(m_code, opener)) {
            const QString name = literalClass(m_code.at(opener), inside);
            return !name.isEmpty() && begin(name);
        }
        // A part of a list is a list.
        const bool isItem = m_code.at(opener) == QLatin1Char('[') &&
                            codeParts(inside, QLatin1Char(':')).size() == 1;
        if (isItem)
            m_parts.prepend(QLatin1String("[]"));
        m_end = opener;
        return true;
    }

    bool begin(const QString &name)
    {
        m_parts.prepend(name);
        m_isKnown = true;
        return false;
    }

    const QString &m_code;
    int m_end;
    QStringList m_parts;
    bool m_isKnown = false;
};

} // namespace

int skipBlanksBack(const QString &code, int end)
{
    while (end > 0 && code.at(end - 1).isSpace())
        --end;
    return end;
}

int pythonNameStart(const QString &code, int end)
{
    while (end > 0 && isPythonName(code.at(end - 1)))
        --end;
    return end;
}

int openPythonBracket(const QString &code, int end)
{
    int closed = 0;
    for (int i = end - 1; i >= 0; --i) {
        if (isCloser(code.at(i)))
            ++closed;
        else if (isOpener(code.at(i)) && --closed < 0)
            return i;
    }
    return -1;
}

QString pythonObjectBefore(const QString &code, int end)
{
    return ObjectReader(code, end).read();
}

QStringList codeParts(const QString &code, QChar separator)
{
    QStringList parts;
    int depth = 0;
    int start = 0;
    int i = 0;
    for (; i < code.size() && depth >= 0; ++i) {
        depth += isOpener(code.at(i)) ? 1 : isCloser(code.at(i)) ? -1 : 0;
        if (depth == 0 && code.at(i) == separator) {
            parts << code.mid(start, i - start);
            start = i + 1;
        }
    }
    parts << code.mid(start, i - start - (depth < 0 ? 1 : 0));
    return parts;
}
