// SPDX-License-Identifier: MIT
#pragma once

struct LineChange;
class QPlainTextEdit;

// Where caret, selection and scroll bars of a text widget stand, by line and column.
class ViewPlace
{
public:
    explicit ViewPlace(const QPlainTextEdit &edit);

    // Goes there again after a change of the text. What has become too short is gone as far as it
    // goes.
    void restore(QPlainTextEdit *edit, const LineChange &change) const;

private:
    struct Spot
    {
        int line;
        int column; // within the line's block or, of the scroll bar, among its rows
    };
    static Spot spotAt(const QPlainTextEdit &edit, int position);
    static int positionOf(const Spot &spot, const QPlainTextEdit &edit, const LineChange &change);

    Spot m_caret;
    Spot m_anchor;
    Spot m_top;
    int m_horizontal;
};
