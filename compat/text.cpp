// SPDX-License-Identifier: MIT
#include "compat/text.h"

#include <QFontMetrics>
#include <QTextOption>

namespace compat {

int textWidth(const QFontMetrics &metrics, const QString &text)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 11, 0)
    return metrics.horizontalAdvance(text);
#else
    return metrics.width(text);
#endif
}

qreal blankWidth(const QFont &font)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 11, 0)
    return QFontMetricsF(font).horizontalAdvance(QLatin1Char(' '));
#else
    return QFontMetricsF(font).width(QLatin1Char(' '));
#endif
}

void setTabStop(QTextOption &option, qreal pixels)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 10, 0)
    option.setTabStopDistance(pixels);
#else
    option.setTabStop(pixels);
#endif
}

QStringList nonEmptyParts(const QString &text, QChar separator)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 14, 0)
    return text.split(separator, Qt::SkipEmptyParts);
#else
    return text.split(separator, QString::SkipEmptyParts);
#endif
}

} // namespace compat
