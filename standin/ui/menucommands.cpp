// SPDX-License-Identifier: MIT
#include "standin/ui/interfacecommands.h"

#include "standin/host/utf8.h"
#include "standin/ui/elementtype.h"
#include "standin/ui/icons.h"
#include "standin/ui/userinterface.h"

#include <QAction>
#include <QMenu>

namespace standin {

namespace {

using mel::ArgumentKind;
using mel::Value;

QObject *makeMenu(UserInterface &ui, Element *, const mel::Call &)
{
    // Owned by the main window; the menu's place is found later.
    return new QMenu(ui.mainWindow());
}

QObject *makeMenuItem(UserInterface &ui, Element *, const mel::Call &call)
{
    // What an item is has to be known when it is made, so these two flags are read here.
    if (call.boolean("subMenu"))
        return new QMenu(ui.mainWindow());
    QAction *action = new QAction(ui.mainWindow());
    action->setSeparator(call.boolean("divider"));
    return action;
}

void setLabel(Element &element, const Argument &given)
{
    element.texts["label"] = given.utf8();
    // Shown as it is: an ampersand would underline what follows it.
    element.action()->setText(given.text().replace("&", "&&"));
}

// Deliberate: an item without a label answers with an empty text; scripts ask every item of a menu.
Value label(const Element &element, UserInterface &)
{
    return element.text("label");
}

void setTearOff(Element &element, const Argument &given)
{
    if (QMenu *menu = element.menu())
        menu->setTearOffEnabled(given.isOn());
}

// Of menus and items alike.
const Attributes labels = {
    {{"l", "label", {ArgumentKind::String}}, setLabel, label},
    {{"en", "enable", {ArgumentKind::Boolean}},
     [](Element &e, const Argument &given) { e.action()->setEnabled(given.isOn()); },
     [](const Element &e, UserInterface &) -> Value { return int(e.action()->isEnabled()); }},
    {{"vis", "visible", {ArgumentKind::Boolean}},
     [](Element &e, const Argument &given) { e.action()->setVisible(given.isOn()); },
     [](const Element &e, UserInterface &) -> Value { return int(e.action()->isVisible()); }},
    {{"to", "tearOff", {ArgumentKind::Boolean}}, setTearOff},
    {{"aob", "allowOptionBoxes", {ArgumentKind::Boolean}}},
    STANDIN_KEPT_SCRIPT("pmc", "postMenuCommand"),
};

const Attributes contents = {
    {{"ia", "itemArray"},
     nullptr,
     [](const Element &e, UserInterface &) -> Value { return e.childNames(); }},
    {{"ni", "numberOfItems"},
     nullptr,
     [](const Element &e, UserInterface &) -> Value { return int(e.children.size()); }},
    {{"dai", "deleteAllItems"},
     [](Element &e, const Argument &given) {
         // From the end: removing shortens the list.
         while (!e.children.empty())
             given.ui.tree().remove(*e.children.back());
     }},
};

const Attributes itemAttributes = {
    STANDIN_KEPT_SCRIPT("c", "command"),
    STANDIN_KEPT_TEXT("stp", "sourceType"),
    {{"d", "divider", {ArgumentKind::Boolean}},
     nullptr,
     [](const Element &e, UserInterface &) -> Value { return int(e.action()->isSeparator()); }},
    {{"sm", "subMenu", {ArgumentKind::Boolean}},
     nullptr,
     [](const Element &e, UserInterface &) -> Value { return int(e.menu() != nullptr); }},
    {{"ann", "annotation", {ArgumentKind::String}},
     [](Element &e, const Argument &given) { e.action()->setStatusTip(given.text()); },
     [](const Element &e, UserInterface &) -> Value { return toUtf8(e.action()->statusTip()); }},
    {{"cb", "checkBox", {ArgumentKind::Boolean}},
     [](Element &e, const Argument &given) {
         // Giving a state makes it an item with a box.
         e.action()->setCheckable(true);
         e.action()->setChecked(given.isOn());
     },
     [](const Element &e, UserInterface &) -> Value { return int(e.action()->isChecked()); }},
    {{"i", "image", {ArgumentKind::String}},
     [](Element &e, const Argument &given) { e.action()->setIcon(iconNamed(given.text())); }},
};

void connectMenu(UserInterface &ui, Element &element)
{
    if (element.menu())
        // Menus are filled when they are first opened; items run their script with their state.
        QObject::connect(element.object, SIGNAL(aboutToShow()), &ui, SLOT(runPostMenuCommand()));
    else
        QObject::connect(element.object, SIGNAL(triggered(bool)), &ui,
                         SLOT(runCommandWithState(bool)));
}

// Submenus too, but no plain item.
bool isMenu(const Element &element)
{
    return (element.kind == ElementKind::Menu || element.kind == ElementKind::MenuItem) &&
           element.menu();
}

bool isItem(const Element &element)
{
    return element.kind == ElementKind::MenuItem;
}

// "menu" works on submenus too, "menuItem" on every item.
const ElementType types[] = {
    {"menu", ElementKind::Menu, makeMenu, connectMenu, {&labels, &contents}, isMenu},
    {"menuItem",
     ElementKind::MenuItem,
     makeMenuItem,
     connectMenu,
     {&labels, &itemAttributes},
     isItem},
};

} // namespace

void addMenuCommands(UserInterface &ui)
{
    for (const ElementType &type : types)
        addElementCommand(ui, type);
}

} // namespace standin
