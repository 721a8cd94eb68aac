// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

// What can be asked of the host's Python. Apart from the analysis because it needs no host.
enum class PythonQuestion {
    NamesInScope, // of the source, where the analysis script's locator stands
    Modules,      // below the package that is the object; without one those at the top
    // These three with what each name is before it, as "function join"; "name" where that is open.
    Members,       // of the object, there
    NamesInModule, // of the object, a module or package: what can be imported from it
    ExportedNames, // of the object, a module: what "import *" imports from it
    Keywords,
    BuiltIns,
    OtherBuiltIns // that every script has, such as exceptions, beside those
};

using PythonNameSource = QStringList (*)(PythonQuestion question, const QString &source,
                                         const QString &object);

// Process-wide, for the GUI thread; null, as at first, where there is no host. Whoever sets it
// takes it back before its code goes.
void setPythonNameSource(PythonNameSource source);
// Each once, keywords and built-ins in the order of the script, others sorted. Without a host there
// are none.
QStringList pythonNames(PythonQuestion question, const QString &source = QString(),
                        const QString &object = QString());
