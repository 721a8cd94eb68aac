// SPDX-License-Identifier: MIT
#include "compat/pattern.h"

#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)

namespace {

// "$" would also match before a line break that ends the text; "\z" is the very end only.
QString withStrictEnd(const QString &pattern)
{
    QString strict;
    bool isInClass = false;
    for (int i = 0; i < pattern.size(); ++i) {
        const QChar character = pattern.at(i);
        if (character == QLatin1Char('\\')) {
            strict += pattern.mid(i, 2);
            ++i;
            continue;
        }
        isInClass = character != QLatin1Char(']') && (isInClass || character == QLatin1Char('['));
        if (character == QLatin1Char('$') && !isInClass)
            strict += QLatin1String("\\z");
        else
            strict += character;
    }
    return strict;
}

// "\w" and its like follow Unicode and "." takes line breaks as well, as they always did in
// QRegExp.
QRegularExpression compiled(const QString &pattern, Qt::CaseSensitivity sensitivity)
{
    QRegularExpression::PatternOptions options = QRegularExpression::UseUnicodePropertiesOption |
                                                 QRegularExpression::DotMatchesEverythingOption;
    if (sensitivity == Qt::CaseInsensitive)
        options |= QRegularExpression::CaseInsensitiveOption;
    return QRegularExpression(withStrictEnd(pattern), options);
}

} // namespace

// The group keeps alternatives together between the two anchors.
Pattern::Pattern(const QString &pattern, Qt::CaseSensitivity sensitivity)
    : m_expression(compiled(pattern, sensitivity)),
      m_wholeText(compiled(QLatin1String("\\A(?:") + pattern + QLatin1String(")\\z"), sensitivity))
{
}

int Pattern::indexIn(const QString &text, int from)
{
    return keep(m_expression.match(text, from));
}

bool Pattern::exactMatch(const QString &text)
{
    return keep(m_wholeText.match(text)) == 0;
}

int Pattern::keep(const QRegularExpressionMatch &match)
{
    m_length = match.hasMatch() ? int(match.capturedLength()) : -1;
    m_captured = match.capturedTexts();
    return match.hasMatch() ? int(match.capturedStart()) : -1;
}

#else

Pattern::Pattern(const QString &pattern, Qt::CaseSensitivity sensitivity)
    : m_expression(pattern, sensitivity)
{
}

int Pattern::indexIn(const QString &text, int from)
{
    return keep(m_expression.indexIn(text, from));
}

bool Pattern::exactMatch(const QString &text)
{
    return keep(m_expression.exactMatch(text) ? 0 : -1) == 0;
}

// A failed exactMatch() of QRegExp leaves the length of what did match.
int Pattern::keep(int index)
{
    m_length = index < 0 ? -1 : m_expression.matchedLength();
    m_captured = index < 0 ? QStringList() : m_expression.capturedTexts();
    return index;
}

#endif

int Pattern::matchedLength() const
{
    return m_length;
}

QString Pattern::captured(int group) const
{
    return m_captured.value(group);
}
