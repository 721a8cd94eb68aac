// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// How an editor indents. Columns are visual: a tab reaches to the next multiple of the tab size,
// any other UTF-16 unit takes one column.
struct IndentStyle
{
    int tabSize = 4;         // at least 1
    bool replaceTabs = true; // indents with spaces; otherwise with tabs and what is left in spaces
    bool autoIndent = true;  // a new line is indented at all
    bool smartIndent = true; // by what is code, not only by the line above
    bool insertClosingBrace = true; // MEL's "}" for the "{" before a line break

    // What one step inserts.
    QString unit() const;
    // The white space that fills the columns from 0 on.
    QString indentation(int width) const;
    // The same width in the style's characters.
    QString rewritten(const QString &indentation) const;

    // The column behind the text, which begins in column 0.
    int width(const QString &text) const;
    // Below a line that goes on: its indentation, filled with spaces up to behind the bracket.
    QString alignedBehind(const QString &line, int bracketColumn) const;
    int nextTabStop(int column) const { return column - column % tabSize + tabSize; }
};

// Spaces and tabs only, which is what counts as indentation.
QString leadingBlanks(const QString &line);
// The column of the first that is no white space of any kind; the line's length without one.
int firstNonSpace(const QString &line);
