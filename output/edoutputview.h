// SPDX-License-Identifier: MIT
#pragma once

#include "output/outputbacklog.h"
#include "output/outputmarks.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTimer>

#include <vector>

// The history of what Maya printed, with errors, warnings and results in colour; read-only, in a
// dock of the window. Text may arrive at any rate: a lone message is shown at once, a burst is
// gathered and shown once per frame, and what arrives while the view is hidden is shown with it.
// After the event loop has run, text, marks and scroll position are what showing each message at
// once would have left. Does not know what Maya's messages look like beyond the markers it colours.
class EdOutputView : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit EdOutputView(QWidget *parent = nullptr);

    // Adds text at the end, as it is: whoever calls sees to line breaks.
    void appendText(const QString &text);

    // Whether text waits for the next frame or, while the view is hidden, for being shown.
    bool isGathering() const { return !m_backlog.isEmpty(); }

    // Empties the view, gathered text included.
    void clearText();

    // The number of lines kept, the oldest are dropped; 0 keeps all. Text that waits for the next
    // frame is shown first, under the old limit.
    void setLineLimit(int lines);

    // The distance of tab stops, in widths of a blank.
    void setTabWidth(int columns);

    // Takes font and colours from the preferences.
    void applyColors();

public slots:
    // Shows gathered text now; what is hidden stays gathered.
    void flush();

    // Marks the visible messages and the occurrences of a selected word. Looks no farther up than
    // some screens of text, however long the history is.
    void updateExtraSelections();

protected:
    bool viewportEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private slots:
    void showGathered();

private:
    void insertParts(int milliseconds);
    void scrollToNewest();
    std::vector<OutputMark> visibleMarks() const;
    bool isSelectionDragged() const;
    void applyTextOption();

    OutputBacklog m_backlog;
    QTimer m_frame;               // running while text is gathered in a visible view
    QElapsedTimer m_sinceMessage; // not valid before the first message
    QElapsedTimer m_sinceRepaint;
    bool m_inserting = false; // marks wait until the text is complete
    int m_tabWidth = 4;       // in widths of a blank
};
