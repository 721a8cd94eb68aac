// SPDX-License-Identifier: MIT
#include "tests/support/menuchoice.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>

namespace {

const int interval = 5; // ms

} // namespace

MenuChoice::MenuChoice(const QString &text) : m_text(text)
{
    connect(&m_timer, SIGNAL(timeout()), SLOT(choose()));
    m_timer.start(interval);
}

void MenuChoice::choose()
{
    QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu)
        return;
    m_timer.stop();
    QAction *chosen = nullptr;
    for (QAction *action : menu->actions()) {
        m_entries << action->text();
        if (action->isEnabled() && !action->isSeparator())
            m_enabledEntries << action->text();
        if (action->text() == m_text)
            chosen = action;
    }
    // By key, as exec() returns only what the user chose in the menu itself.
    menu->setActiveAction(chosen);
    if (chosen)
        QTest::keyClick(menu, Qt::Key_Return);
    menu->close();
}
