// SPDX-License-Identifier: MIT
#include "compat/pattern.h"

#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)

namespace {

QRegularExpression compiled(const QString &pattern, Qt::CaseSensitivity sensitivity)
{
    QRegularExpression::PatternOptions options = QRegularExpression::UseUnicodePropertiesOption;
    if (sensitivity == Qt::CaseInsensitive)
        options |= QRegularExpression::CaseInsensitiveOption;
    return QRegularExpression(pattern, options);
}

} // namespace

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

int Pattern::matchedLength() const
{
    return m_length;
}

QString Pattern::captured(int group) const
{
    return m_captured.value(group);
}

#else

Pattern::Pattern(const QString &pattern, Qt::CaseSensitivity sensitivity)
    : m_expression(pattern, sensitivity)
{
}

int Pattern::indexIn(const QString &text, int from)
{
    return m_expression.indexIn(text, from);
}

bool Pattern::exactMatch(const QString &text)
{
    return m_expression.exactMatch(text);
}

int Pattern::matchedLength() const
{
    return m_expression.matchedLength();
}

QString Pattern::captured(int group) const
{
    return m_expression.capturedTexts().value(group);
}

#endif
