// SPDX-License-Identifier: MIT
#pragma once

class QLabel;
class QStatusBar;

// The permanent labels of the status bar: selection size, caret column, insert or overwrite mode.
// Shows numbers as they are given; create() comes before all else.
class StatusLabels
{
public:
    // The status bar owns the labels.
    void create(QStatusBar *statusBar);

    void showSelectionSize(int characters); // UTF-16 units
    void showColumn(int column);            // 0-based
    void showOverwriteMode(bool overwrite);

private:
    QLabel *m_selection = nullptr;
    QLabel *m_column = nullptr;
    QLabel *m_mode = nullptr;
};
