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
    const auto first = firstBehind(range.start);
    const auto last = firstBehind(range.end - 1);
    const bool startIsGone = first != m_edits.end() && first->before.start <= range.start;
    const bool endIsGone = last != m_edits.end() && last->before.start < range.end;
    if (startIsGone && first == last && first->size() != range.end - range.start)
        return guess(range, first);
    Range result = {now(range.start), range.end + shiftBefore(last)};
    // What took the place of more than a part of the stretch does not belong to it.
    if (startIsGone && first->before.start < range.start)
        result.start = first->after.end;
    if (endIsGone)
        result.end = last->before.end > range.end ? last->after.start : last->after.end;
    return result;
}

bool PositionMap::isGuess(const Range &range) const
{
    const auto edit = firstBehind(range.start);
    const bool isGone =
        edit != m_edits.end() && edit->before.start <= range.start && edit->before.end >= range.end;
    return isGone && edit->size() != range.end - range.start && edit->shift() != shiftBefore(edit);
}

// Of a stretch that went with more around it.
PositionMap::Range PositionMap::guess(const Range &range, Edits::const_iterator edit) const
{
    const int shift = shiftBefore(edit);
    // Text that only got other formats is told as replaced by as much.
    if (edit->shift() == shift)
        return {range.start + shift, range.end + shift};
    const int place = std::min(range.start + shift, edit->after.end);
    return {place, place};
}
