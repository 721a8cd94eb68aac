// SPDX-License-Identifier: MIT
#include "bridge/meltext.h"

QString quotedForMel(const QString &text)
{
    QString escaped = text;
    escaped.replace(QChar::ParagraphSeparator, QLatin1String("\n"));
    // Backslashes first, so that those of the later escapes stay single.
    escaped.replace(QLatin1String("\\"), QLatin1String("\\\\"));
    escaped.replace(QLatin1String("\n"), QLatin1String("\\n"));
    escaped.replace(QLatin1String("\""), QLatin1String("\\\""));
    return QLatin1String("\"") + escaped + QLatin1String("\"");
}
