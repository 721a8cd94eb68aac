// SPDX-License-Identifier: MIT
#pragma once

#include "editor/pythoncaret.h"

#include <QString>

// What the analysis script needs of a text: all statements, or those that matter at the caret where
// they take longer to parse than a long statement of `mostUnits`. The script's locator stands for
// the statement at the caret. What cannot be parsed is left out or mended, as far as a look without
// a grammar tells.
QString pythonExcerpt(const PythonContext &context, int mostUnits);
