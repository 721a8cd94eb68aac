// SPDX-License-Identifier: MIT
#pragma once

#include "editor/indentstyle.h"

class QTextBlock;

// The indentation of a line of Python that a line break has just begun, by the block data of the
// line above.
QString pythonIndentation(const QTextBlock &line, const IndentStyle &style);
