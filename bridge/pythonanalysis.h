// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

// Asks the analysis script, which runs inside Maya's Python and so sees what is loaded there. For
// the GUI thread. Nothing of it shows in Maya's output; what fails, in Python or on the way there,
// gives an empty value.

// Once, before all else. False, after an error in Maya, when the plug-in lacks the script.
bool loadPythonAnalysis();

enum class PythonNames {
    Any,    // with Python's keywords and built-ins, as far as the preferences want them
    Members // of the object only
};

// What may stand where `source` has the script's locator: sorted, each once. `object` is what
// stands before the last dot; without one, empty, it is any name that is in reach.
QStringList pythonCandidates(const QString &source, const QString &object, PythonNames names);

struct PythonSyntaxError
{
    QString message; // empty: there is no error
    int line = 0;    // 1-based; 0 when Python does not tell
};

PythonSyntaxError pythonSyntaxError(const QString &source);

// Runs it among the names of the user's own scripts; true when nothing was raised.
bool executePythonStatement(const QString &statement);
