// SPDX-License-Identifier: MIT
#include "bridge/flagtext.h"

#include "compat/text.h"

namespace {

const int fieldsPerFlag = 3;

// Synopsis: ls [flags] [String...]
// Flags:
//       |    what stands from there on; another "Flags:" makes it unclear which is meant
QString flagSection(const QString &helpText)
{
    QStringList parts = helpText.split(QLatin1String("Flags:"));
    parts.removeAll(QString());
    return parts.size() == 2 ? parts.at(1) : QString();
}

} // namespace

QStringList flagFields(const QString &helpText)
{
    QString section = flagSection(helpText);
    // Maya ends lines in "\n" or "\r\n" and parts words with blanks and tabs. One of each is left.
    section.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    section.replace(QLatin1Char('\t'), QLatin1Char(' '));
    QStringList fields;
    for (const QString &line : compat::nonEmptyParts(section, QLatin1Char('\n'))) {
        const QStringList words = compat::nonEmptyParts(line, QLatin1Char(' '));
        for (int i = 0; i < fieldsPerFlag; ++i)
            fields << words.value(i);
    }
    return fields;
}
