// SPDX-License-Identifier: MIT
#include "mainwindow/filenames.h"

#include <QStringList>

namespace {

const char anyFilter[] = "All types (*.*)";
const char melFilter[] = "MEL file (*.mel)";
const char pythonFilter[] = "Python file (*.py)";
const char textFilter[] = "Normal text file (*.txt)";

} // namespace

QString joinedPath(const QString &directory, const QString &fileName)
{
    if (directory.endsWith(QLatin1Char('/')))
        return directory + fileName;
    return directory + QLatin1Char('/') + fileName;
}

QString saveFilters()
{
    QStringList filters;
    for (const char *filter : {anyFilter, melFilter, pythonFilter, textFilter})
        filters << QString::fromLatin1(filter);
    return filters.join(QString::fromLatin1(";;"));
}

QString saveFilterForLanguage(int language)
{
    switch (language) {
    case 1:
        return QString::fromLatin1(pythonFilter);
    case 2:
        return QString::fromLatin1(melFilter);
    default:
        return QString::fromLatin1(anyFilter);
    }
}

QString nameWithFilterSuffix(const QString &name, const QString &filter)
{
    const QString mel = QString::fromLatin1(".mel");
    const QString python = QString::fromLatin1(".py");
    // Only the words are looked for: a dialog may leave the patterns out.
    if (filter.contains(QLatin1String("MEL")) && !name.endsWith(mel))
        return name + mel;
    if (filter.contains(QLatin1String("Python")) && !name.endsWith(python) &&
        !name.endsWith(QLatin1String(".pyw")))
        return name + python;
    return name;
}
