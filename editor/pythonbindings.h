// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

// The names that a statement binds within itself, of code as pythonCode() gives it: those of loops,
// also in brackets, of lambdas, behind "as" and before ":=". Each once.
QStringList pythonBindings(const QString &code);
