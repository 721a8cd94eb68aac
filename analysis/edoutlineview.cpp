// SPDX-License-Identifier: MIT
#include "analysis/edoutlineview.h"

EdOutlineView::EdOutlineView(QWidget *parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setToolTip(tr("The outline of the script is not available yet."));
}
