// SPDX-License-Identifier: MIT
#include "editor/pythonpackage.h"

#include <QDir>
#include <QStringList>

namespace {

const int deepestPackage = 32;

} // namespace

bool hasRelativeImport(const QString &text)
{
    const QLatin1String from("from");
    for (int at = int(text.indexOf(from)); at >= 0; at = int(text.indexOf(from, at + 1))) {
        int next = at + 4;
        while (next < text.size() && text.at(next).isSpace())
            ++next;
        if (next < text.size() && text.at(next) == QLatin1Char('.'))
            return true;
    }
    return false;
}

QString packageOfFolder(const QString &folder)
{
    QStringList names;
    QDir place(folder);
    while (!folder.isEmpty() && names.size() < deepestPackage &&
           place.exists(QLatin1String("__init__.py"))) {
        names.prepend(place.dirName());
        if (!place.cdUp())
            break;
    }
    return names.join(QLatin1String("."));
}

QString absoluteModule(const QString &module, const QString &package)
{
    int dots = 0;
    while (dots < module.size() && module.at(dots) == QLatin1Char('.'))
        ++dots;
    if (dots == 0)
        return module;
    const QStringList above = package.split(QLatin1Char('.'));
    if (package.isEmpty() || dots > above.size())
        return QString();
    QStringList parts = above.mid(0, above.size() - dots + 1);
    if (dots < module.size())
        parts << module.mid(dots);
    return parts.join(QLatin1String("."));
}

QString absoluteImport(const QString &statement, const QString &package)
{
    const QLatin1String from("from ");
    const int word = int(statement.indexOf(QLatin1String(" import")));
    const QString module = statement.mid(5, word - 5).trimmed();
    if (word < 5 || !statement.startsWith(from) || !module.startsWith(QLatin1Char('.')))
        return statement;
    const QString absolute = absoluteModule(module, package);
    return absolute.isEmpty() ? statement : from + absolute + statement.mid(word);
}
