// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/textformats.h"

#include <QString>
#include <QTextBlock>

#include <vector>

class QTextDocument;

// A stretch of the output's text: document positions, the end exclusive.
struct OutputMark
{
    int start;
    int end;
    OutputText category;
};

bool operator==(const OutputMark &a, const OutputMark &b);

// The part of a document that is searched for marks: whole lines around the positions from `start`
// to `end`, more of them when a search goes on behind the end. Costs no more than what it spans.
// Knows no view; the document must outlive it and not change meanwhile.
class OutputRegion
{
public:
    // Both positions lie inside the document.
    OutputRegion(const QTextDocument &document, int start, int end);

    // Errors, warnings and results that begin in the region, each from its marker at the start of
    // a line to its closing mark, wherever that stands; to the end of the region without one. By
    // kind, not by place.
    std::vector<OutputMark> messages();

    // Whole-word occurrences that begin in the region or at its end. Empty unless the word is made
    // of letters, digits, underscores and hyphens of ASCII.
    std::vector<OutputMark> occurrences(const QString &word) const;

private:
    void addMessages(const char *marker, OutputText category, std::vector<OutputMark> &marks);
    int messageEnd(QChar sign, int from);
    bool extend();
    int positionOf(int index) const { return m_offset + index; }

    QString m_text; // lines joined by "\n"; index 0 is document position m_offset
    int m_offset;   // of a line's beginning
    int m_start;    // indices into m_text
    int m_end;
    QTextBlock m_next; // the first line not taken yet
};
