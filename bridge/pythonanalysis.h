// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/pythonnamesource.h"
#include "bridge/syntaxcheck.h"

#include <QString>
#include <QStringList>

// Asks the analysis script, which runs inside Maya's Python and so sees what is loaded there. For
// the GUI thread. Nothing of it shows in Maya's output; what fails, in Python or on the way there,
// gives an empty value.

// Once, before all else; defines the script's class in Maya's Python. False, after an error in
// Maya, when the plug-in lacks the script. Whether it ran is not checked: the calls below fail
// then.
bool loadPythonAnalysis();

enum class PythonNames {
    Any,    // with Python's keywords and built-ins, as far as the preferences want them
    Members // of the object only
};

// What may stand where `source` has the script's locator: sorted, each once. `object` is what
// stands before the last dot; without one, empty, it is any name that is in reach. None of the
// user's code runs for it. The forced imports count as part of the source.
QStringList pythonCandidates(const QString &source, const QString &object, PythonNames names);

// Answers each question by the script: a PythonNameSource.
QStringList pythonAnswer(PythonQuestion question, const QString &source, const QString &object);

// Compiles the source without running it. Not everything is known of any source: Python gives some
// up, such as those with null characters.
SyntaxAnswer pythonSyntaxError(const QString &source);
// The same in a thread, for long sources. It writes three lines into the file, which exists:
// "answer", the line number, 0 for a valid source, and the message; or "unknown" and two more.
// Where it cannot write it removes the file. False when it did not start.
bool startPythonSyntaxThread(const QString &source, const QString &answerFile);

// Runs it among the names of the user's own scripts; true when nothing was raised.
bool executePythonStatement(const QString &statement);
