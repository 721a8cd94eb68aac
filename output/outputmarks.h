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

// What is known of the closing marks of a document. To be kept between regions of the same
// document, so that a message that is never closed is not searched to the document's end at every
// scroll step.
class OutputEnds
{
public:
    // The first line at or after `from` that closes messages of the sign; an invalid block for
    // none.
    QTextBlock find(const QTextDocument &document, const QTextBlock &from, QChar sign);

private:
    struct Found
    {
        int from = 0; // lines from here to the last are known to close nothing, but for the last
        int last = -1;
    };

    int m_revision = -1; // of the document
    Found m_slashes;
    Found m_hashes;
};

// The part of a document that is searched for marks: whole lines around the positions from `start`
// to `end`. Only the search for the end of a message goes on behind them.
class OutputRegion
{
public:
    OutputRegion(const QTextDocument &document, int start, int end, OutputEnds &ends);

    // Errors, warnings and results that begin in the region, each from its marker at the start of
    // a line to its closing mark, wherever that stands; to the end of the region without one.
    std::vector<OutputMark> messages();

    // Whole-word occurrences that begin in the region or at its end. Empty unless the word is made
    // of letters, digits, underscores and hyphens of ASCII.
    std::vector<OutputMark> occurrences(const QString &word) const;

private:
    void addMessages(const char *marker, OutputText category, std::vector<OutputMark> &marks);
    int messageEnd(QChar sign, int from);
    bool extend();
    int positionOf(int index) const { return m_offset + index; }

    const QTextDocument &m_document;
    OutputEnds &m_ends;
    QString m_text; // lines joined by "\n"; index 0 is document position m_offset
    int m_offset;
    int m_start; // indices into m_text
    int m_end;
    QTextBlock m_next; // the first line not taken yet
};
