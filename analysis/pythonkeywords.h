// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Whether a word is a keyword in any Python that Maya has: no name there, not even a parameter's.
// What is coloured as one is a matter of its own.
bool isPythonKeyword(const QString &word);
