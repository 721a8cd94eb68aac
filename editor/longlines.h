// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBlock>

// Lines of more UTF-16 units than this go without colours and without marks inside them: laying
// such a line out at every key is slow enough without.
const int longLine = 20000;

inline bool isLong(const QTextBlock &block)
{
    return block.length() - 1 > longLine; // the length counts the line's end too
}
