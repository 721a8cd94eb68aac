// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

// Help on the command at the caret, in a dock of the window: nothing is shown yet but a line that
// says so.
class EdQuickHelpView : public QLabel
{
    Q_OBJECT

public:
    explicit EdQuickHelpView(QWidget *parent = nullptr);
};
