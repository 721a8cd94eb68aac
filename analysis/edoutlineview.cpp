// SPDX-License-Identifier: MIT
#include "analysis/edoutlineview.h"

EdOutlineView::EdOutlineView(QWidget *parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    QTreeWidgetItem *hint = new QTreeWidgetItem(this);
    hint->setText(0, tr("Nothing is listed here yet."));
    hint->setDisabled(true);
}
