// SPDX-License-Identifier: MIT
#include "editor/blockformats.h"

#include <QBrush>

#include <algorithm>

namespace {

using Range = QTextLayout::FormatRange;
using compat::FormatRanges;

bool isBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\t');
}

int endOfRange(const Range &range)
{
    return range.start + range.length;
}

// Of the blanks, or other characters, that begin there; at most the limit.
int endOfRun(const QString &text, int start, int limit)
{
    int end = start + 1;
    while (end < limit && isBlank(text[end]) == isBlank(text[start]))
        ++end;
    return end;
}

bool areEqual(const Range &a, const Range &b)
{
    return a.start == b.start && a.length == b.length && a.format == b.format;
}

// The text that an input method composes stands in the line but not in the block.
FormatRanges aroundComposedText(const QTextBlock &block, const FormatRanges &formats)
{
    const int start = block.layout()->preeditAreaPosition();
    const int length = int(block.layout()->preeditAreaText().size());
    FormatRanges ranges;
    for (const Range &range : compat::layoutFormats(block)) {
        if (range.start >= start && endOfRange(range) <= start + length)
            ranges << range;
    }
    for (Range range : formats) {
        if (range.start >= start)
            range.start += length;
        else if (endOfRange(range) > start)
            range.length += length;
        ranges << range;
    }
    return ranges;
}

} // namespace

Range formatRange(int start, int length, const QTextCharFormat &format)
{
    Range range;
    range.start = start;
    range.length = length;
    range.format = format;
    return range;
}

FormatRanges withDimmedBlanks(const FormatRanges &ranges, const QString &text, const QBrush &brush)
{
    FormatRanges result;
    auto range = ranges.begin();
    for (int start = 0, end = 0; start < text.size(); start = end) {
        if (range != ranges.end() && endOfRange(*range) <= start)
            ++range;
        const bool isInside = range != ranges.end() && range->start <= start;
        const int textEnd = range != ranges.end() ? range->start : int(text.size());
        end = endOfRun(text, start, isInside ? endOfRange(*range) : textEnd);
        QTextCharFormat format = isInside ? range->format : QTextCharFormat();
        if (isBlank(text[start]))
            format.setForeground(brush);
        if (isInside || isBlank(text[start]))
            result << formatRange(start, end - start, format);
    }
    return result;
}

bool setBlockFormats(const QTextBlock &block, const FormatRanges &formats)
{
    const bool isComposing = !block.layout()->preeditAreaText().isEmpty();
    const FormatRanges ranges = isComposing ? aroundComposedText(block, formats) : formats;
    const FormatRanges old = compat::layoutFormats(block);
    if (std::equal(old.begin(), old.end(), ranges.begin(), ranges.end(), areEqual))
        return false;
    compat::setLayoutFormats(block, ranges);
    return true;
}
