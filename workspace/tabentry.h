// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

class EdCodeView;

// How one open document is kept in the list of open tabs, as a text of fields parted by commas.
struct TabEntry
{
    int pane = 0;
    QString path; // absolute
    int cursorPosition = 0;
    int scrollValue = 0;
    bool isBuffer = false; // closing one deletes its file
    QString label;         // of a buffer

    // Of the document as it is now.
    static TabEntry of(const EdCodeView &view, int pane, const QString &label);
    // Nothing for a text that is damaged. A path may have commas; what does not lie in the buffer
    // directory is no buffer, whatever the text says.
    static std::optional<TabEntry> parse(const QString &text);
    // Whatever the fields say, by their places: a path or label ends at its first comma, a buffer
    // lies anywhere, further fields and the pane are not looked at.
    static std::optional<TabEntry> parsePlainly(const QString &text);

    // Deliberate: commas in path and label are not escaped.
    QString text() const;
    // Takes a loaded document to where its caret and its scroll bar were.
    void place(EdCodeView *view) const;
    // Whether there is a file that may be read.
    bool hasFile() const;
};
