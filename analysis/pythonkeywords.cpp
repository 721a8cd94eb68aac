// SPDX-License-Identifier: MIT
#include "analysis/pythonkeywords.h"

#include <algorithm>
#include <iterator>

bool isPythonKeyword(const QString &word)
{
    static const char *const keywords[] = {
        "False",  "None",    "True",     "and",  "as",     "assert", "async",  "await",
        "break",  "class",   "continue", "def",  "del",    "elif",   "else",   "except",
        "exec",   "finally", "for",      "from", "global", "if",     "import", "in",
        "is",     "lambda",  "nonlocal", "not",  "or",     "pass",   "print",  "raise",
        "return", "try",     "while",    "with", "yield"};
    return std::any_of(std::begin(keywords), std::end(keywords),
                       [&](const char *keyword) { return word == QLatin1String(keyword); });
}
