// SPDX-License-Identifier: MIT
#include "standin/ui/placement.h"

#include "standin/host/utf8.h"
#include "standin/mel/command.h"
#include "standin/ui/mainwindow.h"
#include "standin/ui/userinterface.h"

#include <QBoxLayout>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QTabWidget>

namespace standin {

namespace {

using mel::RuntimeError;

Element *namedParent(UserInterface &ui, const mel::Call &call)
{
    const std::string name = call.text("parent");
    Element *parent = ui.tree().find(name);
    if (!parent)
        throw RuntimeError("Object '" + name + "' not found.");
    return parent;
}

// Null when nothing can hold it.
Element *currentParent(UserInterface &ui, ElementKind kind)
{
    if (kind == ElementKind::MenuItem)
        return ui.tree().currentMenu();
    Element *parent = ui.tree().currentParent();
    if (kind != ElementKind::Menu)
        return parent;
    // A menu goes to the window around the current layout: menu bars belong to windows.
    while (parent && parent->parent)
        parent = parent->parent;
    return parent ? parent : ui.tree().find(ui.mainWindow());
}

// Windows hold one layout and any menus, layouts hold layouts and controls, menus hold items.
bool canHold(const Element &parent, ElementKind kind)
{
    switch (kind) {
    case ElementKind::MenuItem:
        return parent.menu() != nullptr;
    case ElementKind::Menu:
        return parent.kind == ElementKind::Window;
    case ElementKind::Layout:
        return parent.kind == ElementKind::Window || parent.kind == ElementKind::Layout;
    default:
        return parent.kind == ElementKind::Layout;
    }
}

// Per kind, since the way out differs: what has to be made first.
const char *missingParentText(ElementKind kind)
{
    switch (kind) {
    case ElementKind::MenuItem:
        return "Menu items must have a menu.  No menu found.";
    case ElementKind::Menu:
        return "Menus must have a window.  No window found.";
    case ElementKind::Layout:
        return "Layouts must have a window or a layout.  None found.";
    default:
        return "Controls must have a layout.  No layout found.";
    }
}

// By the class of the parent: each brings its children in by a call of its own.
void addWidget(QWidget *parent, QWidget *child, const QString &name)
{
    if (QMainWindow *window = qobject_cast<QMainWindow *>(parent))
        window->setCentralWidget(child);
    else if (QTabWidget *tabs = qobject_cast<QTabWidget *>(parent))
        tabs->addTab(child, name);
    else if (QScrollArea *area = qobject_cast<QScrollArea *>(parent))
        // Inside the area stands a box, which scrolls.
        area->widget()->layout()->addWidget(child);
    else if (parent->layout())
        parent->layout()->addWidget(child);
}

void placeMenu(Element &menu)
{
    QMainWindow *window = qobject_cast<QMainWindow *>(menu.parent->widget());
    // Made by Qt when it is first asked for.
    window->menuBar()->addMenu(menu.menu());
}

void placeWidget(const Element &element)
{
    addWidget(element.parent->widget(), element.widget(), toQt(element.name));
}

} // namespace

Element *parentFor(UserInterface &ui, ElementKind kind, const mel::Call &call)
{
    // Windows are roots.
    if (kind == ElementKind::Window)
        return nullptr;
    Element *parent = call.isSet("parent") ? namedParent(ui, call) : currentParent(ui, kind);
    if (!parent || !canHold(*parent, kind))
        throw RuntimeError(missingParentText(kind));
    // Deliberate: the main window's own contents are not for scripts to replace.
    if (kind == ElementKind::Layout && parent->object == ui.mainWindow())
        throw RuntimeError("The main window has its layout already.");
    return parent;
}

void place(UserInterface &ui, Element &element)
{
    switch (element.kind) {
    case ElementKind::Window:
        ui.tree().setCurrentParent(&element);
        break;
    case ElementKind::Layout:
        placeWidget(element);
        ui.tree().setCurrentParent(&element);
        break;
    case ElementKind::Control:
        placeWidget(element);
        break;
    case ElementKind::Menu:
        placeMenu(element);
        ui.tree().setCurrentMenu(&element);
        break;
    case ElementKind::MenuItem:
        // A submenu is added by its own action, which opens it.
        element.parent->menu()->addAction(element.action());
        if (element.menu())
            ui.tree().setCurrentMenu(&element);
        break;
    }
}

void setWidth(QWidget &widget, int width)
{
    if (widget.isWindow())
        widget.resize(width, widget.height());
    else
        widget.setMinimumWidth(width);
}

void setHeight(QWidget &widget, int height)
{
    if (widget.isWindow())
        widget.resize(widget.width(), height);
    else
        widget.setMinimumHeight(height);
}

} // namespace standin
