// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeWidget>

// A tree to find one's way by: Return does what a double click does, and moving about by keys is
// told apart from what the program selects. Texts that are cut off have tool tips, and a tree with
// nothing to see says so.
class EdTreeWidget : public QTreeWidget
{
    Q_OBJECT

public:
    explicit EdTreeWidget(QWidget *parent = nullptr);

    using QTreeWidget::indexFromItem; // not public in every version of Qt

    // Never sideways: names begin at the left, and the user has moved there for what they end with.
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;

signals:
    // The arrow keys and the like made another item the current one, or the start of its name did.
    void currentItemChangedByKey();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    bool isCutOff(const QModelIndex &index) const;
};
