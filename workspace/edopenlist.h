// SPDX-License-Identifier: MIT
#pragma once

#include <QFileIconProvider>
#include <QFileInfo>
#include <QListWidget>

// What the lists of buffers and of documents share: entries known by an identity rather than by
// their text, sorted by their text, a context menu on an entry, and a selection that looks subdued
// without the focus.
class EdOpenList : public QListWidget
{
    Q_OBJECT

public:
    explicit EdOpenList(QWidget *parent = nullptr);

    // Highlights the entry of the document that is shown elsewhere, and none when there is no such
    // entry. Selects nothing: the user did not ask for it here.
    void showCurrent(const QVariant &identity);

protected:
    // The identity is kept in Qt::UserRole; two entries with the same one are the caller's mistake.
    void addEntry(const QString &text, const QVariant &identity, const QFileInfo &info);
    // Nothing when there is no such entry.
    void removeEntry(const QVariant &identity);
    // Null when there is no such entry.
    QListWidgetItem *findEntry(const QVariant &identity) const;
    QIcon iconOf(const QFileInfo &info) const { return m_iconProvider.icon(info); }
    // The entry under the last context-menu click, or null; null also once it was removed.
    QListWidgetItem *contextItem() const { return m_contextItem; }

    // Shows the menu of the entry at a position of the viewport; nothing where there is none. The
    // slots are those of the list.
    void showContextMenu(const QPoint &position, const char *closeSlot, const char *renameSlot);

    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void updatePalette(bool isFocused);

    QListWidgetItem *m_contextItem = nullptr; // owned by the list
    QFileIconProvider m_iconProvider;         // asks the desktop, so kept for all entries
    bool m_setsPalette = false;               // which is told like a change from elsewhere
};
