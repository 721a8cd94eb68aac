// SPDX-License-Identifier: MIT
#include "workspace/edopenlist.h"

#include <QMenu>

namespace {

const int iconPixels = 16;

// The selected entry keeps its text colour on a ground that is hardly another.
void subdueSelection(QPalette *palette, QPalette::ColorGroup group)
{
    palette->setColor(group, QPalette::Highlight, palette->color(group, QPalette::AlternateBase));
    palette->setColor(group, QPalette::HighlightedText, palette->color(group, QPalette::Text));
}

} // namespace

EdOpenList::EdOpenList(QWidget *parent) : QListWidget(parent), m_focusPalette(palette())
{
    // The inactive colours are for widgets of another window than the active one. For one without
    // the focus in the active window there are none, hence a second palette.
    subdueSelection(&m_focusPalette, QPalette::Inactive);
    m_unfocusedPalette = m_focusPalette;
    subdueSelection(&m_unfocusedPalette, QPalette::Active);
    setPalette(m_unfocusedPalette);

    setIconSize(QSize(iconPixels, iconPixels));
    setSortingEnabled(true);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, SIGNAL(customContextMenuRequested(QPoint)), SLOT(contextMenu(QPoint)));
}

void EdOpenList::addEntry(const QString &text, const QVariant &identity, const QFileInfo &info)
{
    QListWidgetItem *item = new QListWidgetItem(iconOf(info), text);
    item->setData(Qt::UserRole, identity);
    addItem(item);
}

void EdOpenList::removeEntry(const QVariant &identity)
{
    QListWidgetItem *item = findEntry(identity);
    if (item == m_contextItem)
        m_contextItem = nullptr; // the menu may still be open
    delete takeItem(row(item));  // row() is -1 for null, takeItem() null for -1
}

QListWidgetItem *EdOpenList::findEntry(const QVariant &identity) const
{
    for (int i = 0; i < count(); ++i) {
        if (item(i)->data(Qt::UserRole) == identity)
            return item(i);
    }
    return nullptr;
}

void EdOpenList::contextMenu(const QPoint &position)
{
    m_contextItem = itemAt(position);
    if (!m_contextItem)
        return;
    QMenu menu(this);
    fillContextMenu(&menu);
    menu.exec(viewport()->mapToGlobal(position));
}

void EdOpenList::focusInEvent(QFocusEvent *event)
{
    setPalette(m_focusPalette);
    QListWidget::focusInEvent(event);
}

void EdOpenList::focusOutEvent(QFocusEvent *event)
{
    setPalette(m_unfocusedPalette);
    QListWidget::focusOutEvent(event);
}
