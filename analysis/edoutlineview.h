// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeWidget>

// The outline of the active script: nothing is listed yet.
class EdOutlineView : public QTreeWidget
{
    Q_OBJECT

public:
    explicit EdOutlineView(QWidget *parent = nullptr);
};
