// SPDX-License-Identifier: MIT
#include "analysis/edtreewidget.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

namespace {

const int margin = 8; // pixels around the hint

bool isPlainReturn(const QKeyEvent &event)
{
    return (event.key() == Qt::Key_Return && event.modifiers() == Qt::NoModifier) ||
           (event.key() == Qt::Key_Enter && event.modifiers() == Qt::KeypadModifier);
}

} // namespace

EdTreeWidget::EdTreeWidget(QWidget *parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setEditTriggers(NoEditTriggers);
    // A double click goes to what the item stands for, and needs no other effect.
    setExpandsOnDoubleClick(false);
}

void EdTreeWidget::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    const int left = horizontalScrollBar()->value();
    QTreeWidget::scrollTo(index, hint);
    horizontalScrollBar()->setValue(left);
}

void EdTreeWidget::keyPressEvent(QKeyEvent *event)
{
    QTreeWidgetItem *before = currentItem();
    if (before && isPlainReturn(*event)) {
        emit itemDoubleClicked(before, 0);
        return;
    }
    QTreeWidget::keyPressEvent(event);
    if (currentItem() != before)
        emit currentItemChangedByKey();
}

void EdTreeWidget::paintEvent(QPaintEvent *event)
{
    QTreeWidget::paintEvent(event);
    if (itemAt(0, 0))
        return;
    // A scroll area is painted on its viewport; in the disabled colour the text is no entry.
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, tr("Nothing to list."));
}

bool EdTreeWidget::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeWidget::viewportEvent(event);
    const QHelpEvent *help = static_cast<QHelpEvent *>(event);
    const QModelIndex index = indexAt(help->pos());
    // An empty text takes away the tip of another item.
    const QString tip = isCutOff(index) ? index.data().toString() : QString();
    QToolTip::showText(help->globalPos(), tip, this);
    return true;
}

bool EdTreeWidget::isCutOff(const QModelIndex &index) const
{
    return index.isValid() && visualRect(index).width() < sizeHintForIndex(index).width();
}
