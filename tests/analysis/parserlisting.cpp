// SPDX-License-Identifier: MIT
#include "tests/analysis/parserlisting.h"

#include <QStringList>

QString outlineListing(const BaseParser &parser)
{
    QStringList lines;
    for (const OutlineItem &item : parser.outlineItems())
        lines << QString::fromLatin1("%1 %2 %3 %4")
                     .arg(item.kind)
                     .arg(item.name)
                     .arg(item.position)
                     .arg(item.depth);
    return lines.join(QString::fromLatin1("; "));
}

QString listing(const DiagnosticList &diagnostics)
{
    QStringList lines;
    for (int i = 0; i < diagnostics.count(); ++i)
        lines << QString::fromLatin1("%1 %2 %3")
                     .arg(diagnostics.messages[i])
                     .arg(diagnostics.starts[i])
                     .arg(diagnostics.ends[i]);
    return lines.join(QString::fromLatin1("; "));
}
