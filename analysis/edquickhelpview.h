// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

// Help on the command at the caret: nothing is shown yet.
class EdQuickHelpView : public QLabel
{
    Q_OBJECT

public:
    explicit EdQuickHelpView(QWidget *parent = nullptr);
};
