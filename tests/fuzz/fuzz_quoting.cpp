// SPDX-License-Identifier: MIT
#include "bridge/meltext.h"
#include "bridge/pythontext.h"
#include "tests/fuzz/fuzzinput.h"

namespace {

// What a language reads between the quotes, as far as the quoting makes use of it.
class Literal
{
public:
    explicit Literal(const QString &source) : m_source(source) {}

    QString value()
    {
        const int end = int(m_source.size()) - 1;
        require(end > 0 && m_source.at(0) == m_quote && m_source.at(end) == m_quote,
                "a literal stands in quotes");
        QString text;
        for (m_position = 1; m_position < end;) {
            const QChar unit = next();
            require(unit != m_quote, "no quote ends the literal early");
            text += unit == QLatin1Char('\\') ? escaped() : unit;
        }
        require(m_position == end, "the closing quote is not escaped");
        return text;
    }

private:
    QChar next() { return m_source.at(m_position++); }

    QChar escaped()
    {
        const QChar letter = next();
        if (letter == QLatin1Char('x'))
            return number(2);
        if (letter == QLatin1Char('u'))
            return number(4);
        if (letter == QLatin1Char('n'))
            return QLatin1Char('\n');
        require(letter == m_quote || letter == QLatin1Char('\\'), "every escape is a known one");
        return letter;
    }

    QChar number(int digits)
    {
        bool isNumber = false;
        const ushort unit = m_source.mid(m_position, digits).toUShort(&isNumber, 16);
        require(isNumber && m_position + digits < m_source.size(), "a number has all its digits");
        m_position += digits;
        return QChar(unit);
    }

    const QString m_source;
    const QChar m_quote = QLatin1Char('"');
    int m_position = 0;
};

// Only of pairs is UTF-8 made, and only lines without control characters are safe everywhere.
void requirePlainLine(const QString &literal)
{
    for (const QChar unit : literal)
        require(unit.unicode() >= 0x20 && unit.unicode() != 0x7f, "no control character is left");
    require(QString::fromUtf8(literal.toUtf8()) == literal, "UTF-8 carries the literal");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const TightText tight(fuzzText(data, size));
    const QString text = tight.text();
    const QString python = quotedForPython(text);
    requirePlainLine(python);
    require(Literal(python).value() == text, "a Python literal's value is the text");

    QString blocks = text;
    blocks.replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
    require(Literal(quotedForMel(text)).value() == blocks, "a MEL literal's value is the text");
    return 0;
}
