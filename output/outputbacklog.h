// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <deque>

// Text on its way into a document that keeps a limited number of lines. What those limits would
// drop anyway is dropped here, so that the size stays bounded however much arrives. Adding costs
// time in proportion to the text added, nothing else. A value that knows neither view nor document.
class OutputBacklog
{
public:
    // Every kind of line break becomes "\n"; "\r" and "\n" in different texts become two, as they
    // would in the document. `lineLimit` is the document's, 0 or less: unlimited. An empty text
    // adds nothing.
    void add(const QString &text, int lineLimit);

    bool isEmpty() const { return m_parts.empty(); }

    // Removes and returns the oldest part, some thousands of characters at most unless one line is
    // longer. There has to be one.
    QString takePart();

    void clear();

    // Characters held.
    int size() const { return m_size; }

private:
    // Cut so that inserting one takes a fraction of a frame, and dropping one is cheap.
    struct Part
    {
        QString text;
        int lineBreaks = 0;
    };

    void addPart(const QString &text, int lineBreaks);
    void drop(int lineLimit);

    std::deque<Part> m_parts; // oldest first
    int m_lineBreaks = 0;     // of all parts
    int m_size = 0;
};
