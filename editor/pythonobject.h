// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

// Python's expressions read backwards from a caret, in code as pythonCode() gives it: strings are
// empty and there are no comments. Ends are exclusive.

// Where the blanks or the name that end there begin; the end where there are none.
int skipBlanksBack(const QString &code, int end);
int pythonNameStart(const QString &code, int end);

// The bracket that is open at the end; -1 when there is none.
int openPythonBracket(const QString &code, int end);

// The object whose name ends there: "a.b" for itself and, since a class stands for what it makes,
// for "a().b"; "a.[]" for "a[0]". Empty where nothing can be known.
QString pythonObjectBefore(const QString &code, int end);

// Parts of code between separators outside brackets; what stands behind a bracket that was not
// opened is left out.
QStringList codeParts(const QString &code, QChar separator);
