// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

// Where the places of a text are after edits. Records what stands in the place of what, so that
// typing on at one place costs nothing, and finds a place in the logarithm of the number of places
// that were edited. Positions are 0-based UTF-16 units, ends exclusive.
class PositionMap
{
public:
    // A stretch of the text; empty ones stand between two characters.
    struct Range
    {
        int start;
        int end;
    };

    // A change of the text as it is by now, as QTextDocument::contentsChange() tells it.
    void contentsChange(int position, int charsRemoved, int charsAdded);
    void clear() { m_edits.clear(); }

    // Where the character is that was at the position; one that is gone is where the text begins
    // that took its place.
    int now(int position) const;
    // Where the stretch, which is not empty, is. What was typed at its ends is not in it, what was
    // typed inside is. Of one that is gone, what was typed in its place or an empty stretch near.
    Range now(const Range &range) const;
    // Whether it went with more around it, so that now() can be anywhere in what came instead.
    bool isGuess(const Range &range) const;

private:
    // What was at `before` is replaced by what is at `after`. Sorted, and nothing touches.
    struct Edit
    {
        Range before;
        Range after;

        int size() const { return before.end - before.start; } // of what is gone
        int shift() const { return after.end - before.end; }   // of what is behind
    };
    typedef std::vector<Edit> Edits;

    Edit merged(Edits::const_iterator first, Edits::const_iterator end, const Range &changed) const;
    Range guess(const Range &range, Edits::const_iterator edit) const;
    int shiftBefore(Edits::const_iterator edit) const;
    // The first edit that ends behind the position in the text before.
    Edits::const_iterator firstBehind(int position) const;

    Edits m_edits;
};
