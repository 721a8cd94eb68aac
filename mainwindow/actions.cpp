// SPDX-License-Identifier: MIT
#include "mainwindow/actions.h"

#include "compat/icon.h"

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QWidget>

namespace {

// Checked: checkable, and on at first.
enum class Kind { Plain, Checkable, Checked };

// The keys of the platform for a well-known action, or those of a text; neither: none.
struct Keys
{
    QKeySequence::StandardKey standard = QKeySequence::UnknownKey;
    const char *text = nullptr;
};

// What of a row makes the action; receiver and slot are read where actions are connected.
struct ActionRow
{
    const char *objectName;
    const char *text; // as the menu shows it, with "&"
    const char *tip;  // in the status bar
    Keys keys;
    const char *icon; // its bare name; null: none
    Kind kind;
};

// The words that the rows of the table use.
#define standardKey(key)                                                                           \
    {                                                                                              \
        QKeySequence::key, nullptr                                                                 \
    }
#define keys(text)                                                                                 \
    {                                                                                              \
        QKeySequence::UnknownKey, text                                                             \
    }
#define noKeys                                                                                     \
    {                                                                                              \
    }
#define noIcon nullptr
#define plain Kind::Plain
#define checkable Kind::Checkable
#define checked Kind::Checked

const ActionRow actionRows[] = {
#define ACTION(id, text, tip, keyColumn, icon, kind, receiver, slot)                               \
    {"action" #id, text, tip, keyColumn, icon, kind},
#define ALSO(id, receiver, slot)
#include "mainwindow/actiontable.inc"
#undef ALSO
#undef ACTION
};

#undef standardKey
#undef keys
#undef noKeys
#undef noIcon
#undef plain
#undef checkable
#undef checked

// What a button without a text tells: its action's name, and the keys that do the same.
QString toolTip(const QAction &action)
{
    const QString keys = action.shortcut().toString(QKeySequence::NativeText);
    return keys.isEmpty() ? action.toolTip()
                          : QString::fromLatin1("%1 (%2)").arg(action.toolTip(), keys);
}

QAction *createAction(const ActionRow &row, QWidget *window)
{
    QAction *action = new QAction(QString::fromUtf8(row.text), window);
    action->setObjectName(QString::fromLatin1(row.objectName));
    // Every action stays in the menu that the table gives it, on the Mac too, where some would move
    // to the menu of the application, which is Maya's.
    action->setMenuRole(QAction::NoRole);
    action->setStatusTip(QString::fromUtf8(row.tip));
    action->setCheckable(row.kind == Kind::Checkable || row.kind == Kind::Checked);
    action->setChecked(row.kind == Kind::Checked);
    if (row.keys.text)
        action->setShortcut(QKeySequence(QString::fromLatin1(row.keys.text)));
    else if (row.keys.standard != QKeySequence::UnknownKey)
        action->setShortcuts(row.keys.standard); // a platform may have several
    action->setToolTip(toolTip(*action));
    if (row.icon)
        action->setIcon(compat::icon(iconPath(row.icon)));
    // Also the actions in no menu answer to their keys.
    window->addAction(action);
    return action;
}

// Slots of checkable actions take the new state.
void connectAction(QAction *action, QObject *receiver, const char *slot)
{
    if (action->isCheckable())
        QObject::connect(action, SIGNAL(triggered(bool)), receiver, slot);
    else
        QObject::connect(action, SIGNAL(triggered()), receiver, slot);
}

} // namespace

QString iconPath(const char *name)
{
    return QString::fromLatin1(":/icons/%1.png").arg(QString::fromLatin1(name));
}

// The words "window" and "central" of the table are the arguments here. Slots of one action are
// called in the order of their connection, which is that of the rows.
void ActionSet::create(QWidget *window, QWidget *central)
{
    for (int i = 0; i < actionCount; ++i)
        m_actions[i] = createAction(actionRows[i], window);

#define ACTION(id, text, tip, keys, icon, kind, receiver, slot)                                    \
    connectAction(m_actions[static_cast<int>(Action::id)], receiver, SLOT(slot));
#define ALSO(id, receiver, slot)                                                                   \
    connectAction(m_actions[static_cast<int>(Action::id)], receiver, SLOT(slot));
#include "mainwindow/actiontable.inc"
#undef ALSO
#undef ACTION
}
