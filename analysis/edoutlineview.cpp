// SPDX-License-Identifier: MIT
#include "analysis/edoutlineview.h"

#include <QPainter>

namespace {

const int margin = 8; // pixels around the hint

} // namespace

EdOutlineView::EdOutlineView(QWidget *parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
}

void EdOutlineView::paintEvent(QPaintEvent *event)
{
    QTreeWidget::paintEvent(event);
    if (topLevelItemCount() > 0)
        return;
    // A scroll area is painted on its viewport; in the disabled colour the text is no entry.
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     tr("Nothing is listed here yet."));
}
