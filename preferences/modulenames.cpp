// SPDX-License-Identifier: MIT
#include "preferences/modulenames.h"

#include "compat/text.h"

namespace {

bool isIdentifier(const QString &word)
{
    if (word.isEmpty() || word.at(0).isDigit())
        return false;
    for (const QChar character : word) {
        if (!character.isLetterOrNumber() && character != QLatin1Char('_'))
            return false;
    }
    return true;
}

} // namespace

QStringList moduleNames(const QString &list)
{
    QStringList names;
    for (const QString &part : compat::nonEmptyParts(list, QLatin1Char(';'))) {
        if (!part.trimmed().isEmpty())
            names << part.trimmed();
    }
    return names;
}

bool isModuleName(const QString &name)
{
    for (const QString &word : name.split(QLatin1Char('.'))) {
        if (!isIdentifier(word))
            return false;
    }
    return true;
}
