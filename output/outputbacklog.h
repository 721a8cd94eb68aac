// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <deque>

// Text on its way into a document that keeps a limited number of lines. What those limits would
// drop anyway is dropped here, so that the size stays bounded however much arrives. Adding costs
// time in proportion to the text added, nothing else.
class OutputBacklog
{
public:
    // Every kind of line break becomes "\n", also where "\r" and "\n" come in different texts.
    // `lineLimit` is the document's, 0 or less: unlimited.
    void add(const QString &text, int lineLimit);

    bool isEmpty() const { return m_parts.empty(); }

    // Removes and returns the oldest part, some thousands of characters at most unless one line is
    // longer.
    QString takePart();

    void clear();

    // Characters held.
    int size() const { return m_size; }

private:
    struct Part
    {
        QString text;
        int lineBreaks = 0;
    };

    void addPart(const QString &text, int lineBreaks);
    void drop(int lineLimit);

    std::deque<Part> m_parts; // oldest first
    int m_lineBreaks = 0;
    int m_size = 0;
};
