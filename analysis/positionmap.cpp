// SPDX-License-Identifier: MIT
#include "analysis/positionmap.h"

#include <algorithm>

void PositionMap::contentsChange(int position, int charsRemoved, int charsAdded)
{
    const Range changed = {position, position + charsRemoved};
    const auto first = std::find_if(m_edits.begin(), m_edits.end(), [&](const Edit &edit) {
        return edit.after.end >= changed.start;
    });
    const auto end = std::find_if(first, m_edits.end(),
                                  [&](const Edit &edit) { return edit.after.start > changed.end; });

    const int growth = charsAdded - charsRemoved;
    Edit edit = merged(first, end, changed);
    edit.after.end += growth;
    std::for_each(end, m_edits.end(), [growth](Edit &later) {
        later.after.start += growth;
        later.after.end += growth;
    });
    m_edits.insert(m_edits.erase(first, end), edit);
}

// One edit in the place of those that the change touches, as wide as all of them and the change.
PositionMap::Edit PositionMap::merged(Edits::const_iterator first, Edits::const_iterator end,
                                      const Range &changed) const
{
    const int shift = shiftBefore(first);
    Edit result = {{changed.start - shift, changed.end - shift}, changed};
    if (first == end)
        return result;
    if (first->after.start < changed.start) {
        result.before.start = first->before.start;
        result.after.start = first->after.start;
    }
    const Edit &last = *(end - 1);
    result.before.end = changed.end - last.shift();
    if (last.after.end > changed.end) {
        result.before.end = last.before.end;
        result.after.end = last.after.end;
    }
    return result;
}

int PositionMap::shiftBefore(Edits::const_iterator edit) const
{
    return edit == m_edits.begin() ? 0 : (edit - 1)->shift();
}

PositionMap::Edits::const_iterator PositionMap::firstBehind(int position) const
{
    return std::upper_bound(m_edits.begin(), m_edits.end(), position,
                            [](int place, const Edit &edit) { return place < edit.before.end; });
}

int PositionMap::now(int position) const
{
    const auto edit = firstBehind(position);
    if (edit == m_edits.end() || position < edit->before.start)
        return position + shiftBefore(edit);
    return edit->after.start;
}

PositionMap::Range PositionMap::now(const Range &range) const
{
    const auto edit = firstBehind(range.start);
    const bool touched = edit != m_edits.end() && range.start >= edit->before.start;
    // Text that only got other formats is reported as replaced by as much.
    if (touched && edit->shift() == shiftBefore(edit) && range.end <= edit->before.end)
        return {range.start + edit->shift(), range.end + edit->shift()};
    const bool whole = touched && range.end <= edit->before.end &&
                       edit->before.end - edit->before.start > range.end - range.start;
    if (whole) {
        const int place = edit->after.start + range.start - edit->before.start;
        return {std::min(place, edit->after.end), std::min(place, edit->after.end)};
    }
    const int start = now(range.start);
    if (range.end <= range.start)
        return {start, start};
    // The end follows the last character; of one that is gone, the text that took its place.
    const auto lastEdit = firstBehind(range.end - 1);
    const bool lastGone = lastEdit != m_edits.end() && range.end > lastEdit->before.start;
    return {start, lastGone ? lastEdit->after.end : range.end + shiftBefore(lastEdit)};
}
