// SPDX-License-Identifier: MIT
// Parts of a window that is perhaps not on the screen yet: they will be seen with it unless they
// were put away.
#pragma once

class QWidget;

// Unlike isHidden(), false for a part that nobody has shown or hidden yet.
bool isPutAway(const QWidget *part);

// Does nothing when `part` is as wanted: each change lays the whole window out.
void setShown(QWidget *part, bool shown);
