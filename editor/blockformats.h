// SPDX-License-Identifier: MIT
#pragma once

#include "compat/layoutformats.h"

class QBrush;

QTextLayout::FormatRange formatRange(int start, int length, const QTextCharFormat &format);

// The marks that the text widget draws for blanks take their colour from the brush, and the rest
// from what they lie in. The ranges go from left to right, here and in the result.
compat::FormatRanges withDimmedBlanks(const compat::FormatRanges &ranges, const QString &text,
                                      const QBrush &brush);

// Lays the formats, which go by the block's own text, over it; what an input method has put into
// the line keeps its own. Returns false, having done nothing, when they lie there already. After
// true the caller marks the block as dirty.
bool setBlockFormats(const QTextBlock &block, const compat::FormatRanges &formats);
