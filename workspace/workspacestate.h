// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

// Which documents are open, as the settings keep it from one run to the next.
struct WorkspaceState
{
    // An entry for each document: pane, absolute path, caret position, vertical scroll value, then
    // 1 and the label for a buffer or 0 for a file, separated by commas.
    QStringList openTabs;
    int activeView = 0; // the pane that has the focus
    int indexA = -1;    // the current documents of panes 0 and 1, from 0
    int indexB = -1;
    // What tells the documents apart, in the order of openTabs; fewer where it is not known, as the
    // settings do not have it. No part of comparisons.
    QStringList documentIds = QStringList();

    bool operator==(const WorkspaceState &other) const
    {
        return openTabs == other.openTabs && activeView == other.activeView &&
               indexA == other.indexA && indexB == other.indexB;
    }
};
