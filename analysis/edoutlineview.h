// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeWidget>

// The outline of the active script. Nothing is listed yet, which an empty view says.
class EdOutlineView : public QTreeWidget
{
    Q_OBJECT

public:
    explicit EdOutlineView(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
