// SPDX-License-Identifier: MIT
#include "workspace/edopenlist.h"

#include "preferences/focuspalettes.h"
#include "workspace/flagscope.h"

#include <QEvent>
#include <QMenu>

namespace {

const int iconPixels = 16;

} // namespace

EdOpenList::EdOpenList(QWidget *parent) : QListWidget(parent)
{
    updatePalette(false);
    setIconSize(QSize(iconPixels, iconPixels));
    setSortingEnabled(true);
    setContextMenuPolicy(Qt::CustomContextMenu);
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
    // The next entry becomes current, which the user did not choose.
    const bool wereBlocked = blockSignals(true);
    delete takeItem(row(item)); // row() is -1 for null, takeItem() null for -1
    blockSignals(wereBlocked);
}

void EdOpenList::showCurrent(const QVariant &identity)
{
    const bool wereBlocked = blockSignals(true);
    setCurrentItem(findEntry(identity));
    if (!currentItem())
        clearSelection();
    blockSignals(wereBlocked);
}

QListWidgetItem *EdOpenList::findEntry(const QVariant &identity) const
{
    for (int i = 0; i < count(); ++i) {
        if (item(i)->data(Qt::UserRole) == identity)
            return item(i);
    }
    return nullptr;
}

// Not one that waits: the list may be deleted while it is open.
void EdOpenList::showContextMenu(const QPoint &position, const char *closeSlot,
                                 const char *renameSlot)
{
    m_contextItem = itemAt(position);
    if (!m_contextItem)
        return;
    QMenu *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Close"), this, closeSlot);
    menu->addAction(tr("Rename..."), this, renameSlot);
    menu->popup(viewport()->mapToGlobal(position));
}

void EdOpenList::focusInEvent(QFocusEvent *event)
{
    updatePalette(true);
    // Without a current entry the first one becomes it, which the user did not choose.
    const bool hadCurrent = currentItem();
    const bool wereBlocked = blockSignals(true);
    QListWidget::focusInEvent(event);
    if (!hadCurrent)
        setCurrentItem(nullptr);
    blockSignals(wereBlocked);
}

void EdOpenList::focusOutEvent(QFocusEvent *event)
{
    updatePalette(false);
    QListWidget::focusOutEvent(event);
}

void EdOpenList::changeEvent(QEvent *event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_setsPalette)
        updatePalette(hasFocus());
}

void EdOpenList::updatePalette(bool isFocused)
{
    const FlagScope setting(&m_setsPalette);
    setPalette(QPalette()); // without what was set here before
    const FocusPalettes palettes(palette());
    setPalette(isFocused ? palettes.focused : palettes.unfocused);
}
