// SPDX-License-Identifier: MIT
#pragma once

#include "mainwindow/programnames.h"

#include <QString>

#include <vector>

class QAction;
class QWidget;

// The window's actions; actiontable.inc has one row for each.
enum class Action {
#define ACTION(id, text, tip, keys, icon, kind, receiver, slot) id,
#define ALSO(id, receiver, slot)
#include "mainwindow/actiontable.inc"
#undef ALSO
#undef ACTION
    Count
};

constexpr int actionCount = static_cast<int>(Action::Count);

// Stands for a separator in a list of actions.
constexpr Action separator = Action::Count;

// The path of an icon in the resources, from its bare name: "save" is ":/icons/save.png".
QString iconPath(const char *name);

// The actions by their id. The window they were created for owns them; before that all are null.
class ActionSet
{
public:
    // Makes every action a child of the window, connected to the window or the central widget,
    // whose slots the table names. Once.
    void create(QWidget *window, QWidget *central);

    QAction *operator[](Action id) const { return m_actions[static_cast<int>(id)]; }

private:
    QAction *m_actions[actionCount] = {};
};

// Adds actions and separators, in their order, to a menu or a tool bar.
template <class Container>
void addActions(Container *container, const ActionSet &actions, const std::vector<Action> &contents)
{
    for (Action id : contents) {
        if (id == separator)
            container->addSeparator();
        else
            container->addAction(actions[id]);
    }
}
