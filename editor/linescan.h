// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/textformats.h"

#include <QString>

#include <vector>

// What scanning a line yields: plain values, of which some are kept with the line's block.

// One of ( ) { } [ ] outside strings and comments.
struct Bracket
{
    QChar character;
    int column = 0; // 0-based, in UTF-16 units
};

bool operator==(const Bracket &a, const Bracket &b);

// A stretch of the line and what its text is.
struct FormatSpan
{
    int start = 0; // 0-based, in UTF-16 units
    int length = 0;
    EditorText category = EditorText::Plain;
};

bool operator==(const FormatSpan &a, const FormatSpan &b);

// What a scanner finds out about one line.
struct LineScan
{
    int state = 0;          // in which the line ends: one of the scanner's states, 0 for code
    bool inComment = false; // begins inside a comment of several lines
    bool isAllCode = true;  // holds no string and no comment
    QString mixedCode;      // what lies outside them; empty when it is all code
    // By stretches of code from left to right, in each first all "(", then all ")", "{", "}", "[",
    // "]". Deliberate, so whoever matches brackets goes by their columns:
    // f(a[0]) "text" (b)    ( ) [ ] ( )
    std::vector<Bracket> brackets;
    std::vector<FormatSpan> spans; // from left to right, none touching one of its own category

    // What of the line, which is the one that was scanned, lies outside strings and comments.
    QString code(const QString &line) const { return isAllCode ? line : mixedCode; }

    // Back to the values of a fresh one, but keeps the room that the lists have taken.
    void clear();
};
