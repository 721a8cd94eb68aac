// SPDX-License-Identifier: MIT
#include "analysis/edquickhelpview.h"

EdQuickHelpView::EdQuickHelpView(QWidget *parent) : QLabel(parent)
{
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setEnabled(false); // grey: a remark, no help
    setText(tr("Quick help is not available yet."));
}
