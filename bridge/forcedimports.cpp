// SPDX-License-Identifier: MIT
#include "bridge/forcedimports.h"

#include "bridge/pythonanalysis.h"
#include "preferences/modulenames.h"
#include "preferences/preferences.h"

#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>
#include <maya/MString.h>

#include <QSet>

namespace {

QString importStatement(const QString &module)
{
    return QLatin1String("import ") + module;
}

void warn(const char *words, const QString &module)
{
    MGlobal::displayWarning(MQtUtil::toMString(QLatin1String(words) + module));
}

} // namespace

void importForcedModules()
{
    static QSet<QString> imported;
    QSet<QString> wanted;
    for (const QString &module : moduleNames(preferences().pythonForcedImports)) {
        if (!isModuleName(module))
            warn("[CorvaneEditor] Skipping invalid forced import: ", module);
        else if (imported.contains(module) || executePythonStatement(importStatement(module)))
            wanted.insert(module);
        else
            warn("[CorvaneEditor] Forced import failed: ", module);
    }
    imported = wanted; // one that was taken away is imported again when it comes back
}

QString forcedImportLines()
{
    QString lines;
    for (const QString &module : moduleNames(preferences().pythonForcedImports)) {
        if (isModuleName(module))
            lines += importStatement(module) + QLatin1Char('\n');
    }
    return lines;
}
