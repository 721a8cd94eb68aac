// SPDX-License-Identifier: MIT
// The commands that concern elements of every kind: deleteUI, lsUI, setParent, setFocus.
#include "standin/ui/interfacecommands.h"

#include "standin/host/session.h"
#include "standin/mel/interpreter.h"
#include "standin/ui/elementtree.h"
#include "standin/ui/userinterface.h"

#include <QWidget>

#include <algorithm>

namespace standin {

namespace {

using mel::ArgumentKind;
using mel::RuntimeError;
using mel::Value;

// Flags that choose elements by their kind, in deleteUI and lsUI.
struct KindFlag
{
    ElementKind kind;
    const char *shortName;
    const char *longName;
};

// The two commands spell the same kinds differently.
const KindFlag deletionFlags[] = {
    {ElementKind::Window, "wnd", "window"},    {ElementKind::Layout, "lay", "layout"},
    {ElementKind::Control, "ctl", "control"},  {ElementKind::Menu, "m", "menu"},
    {ElementKind::MenuItem, "mi", "menuItem"},
};

const KindFlag listingFlags[] = {
    {ElementKind::Window, "wnd", "windows"},    {ElementKind::Layout, "cl", "controlLayouts"},
    {ElementKind::Control, "ctl", "controls"},  {ElementKind::Menu, "m", "menus"},
    {ElementKind::MenuItem, "mi", "menuItems"},
};

template <size_t count>
void addFlags(mel::Command &command, const KindFlag (&table)[count])
{
    for (const KindFlag &row : table)
        command.flags.push_back({row.shortName, row.longName});
}

// Without any of the flags every kind is chosen.
template <size_t count>
bool isChosen(const mel::Call &call, const KindFlag (&table)[count], ElementKind kind)
{
    const auto isSet = [&call](const KindFlag &row) { return call.isSet(row.longName); };
    return std::none_of(std::begin(table), std::end(table), isSet) ||
           std::any_of(std::begin(table), std::end(table),
                       [&](const KindFlag &row) { return row.kind == kind && isSet(row); });
}

// Throws the error that scripts know.
Element &existing(UserInterface &ui, const std::string &name)
{
    Element *element = ui.tree().find(name);
    if (!element)
        throw RuntimeError("Object '" + name + "' not found.");
    return *element;
}

Value deleteElements(UserInterface &ui, const mel::Call &call)
{
    call.objectText(0); // there has to be one
    for (const std::string &name : call.objectTexts()) {
        Element &element = existing(ui, name);
        // Of another kind than the flag says: to this call it does not exist.
        if (!isChosen(call, deletionFlags, element.kind))
            throw RuntimeError("Object '" + name + "' not found.");
        if (element.object == ui.mainWindow())
            throw RuntimeError("The main window cannot be deleted.");
        // Gone at once: a later name that lay below it is not found any more.
        ui.tree().remove(element);
    }
    return {};
}

Value listElements(UserInterface &ui, const mel::Call &call)
{
    const std::string type = call.text("type");
    std::vector<std::string> names;
    for (const Element *element : ui.tree().all()) {
        // A type is narrower than a kind, so it goes first.
        const bool isWanted = call.isSet("type") ? element->type == type
                                                 : isChosen(call, listingFlags, element->kind);
        if (isWanted)
            names.push_back(call.isSet("long") ? ElementTree::path(*element) : element->name);
    }
    return names;
}

// Of menus when the menu flag is set, of layouts otherwise.
Value setParent(UserInterface &ui, const mel::Call &call)
{
    const bool ofMenus = call.isSet("menu");
    Element *current = ofMenus ? ui.tree().currentMenu() : ui.tree().currentParent();
    if (!call.query) {
        // Without a name the top: nothing is the current parent.
        const std::string name = call.objects.empty() ? "|" : call.objectText(0);
        if (name == "..")
            current = current ? current->parent : nullptr;
        else
            current = name == "|" || name == "/" ? nullptr : &existing(ui, name);
        if (current && ofMenus && !current->menu())
            throw RuntimeError("Object '" + name + "' not found.");
        ofMenus ? ui.tree().setCurrentMenu(current) : ui.tree().setCurrentParent(current);
    }
    // The word that scripts compare with.
    return current ? ElementTree::path(*current) : std::string("NONE");
}

Value setFocus(UserInterface &ui, const mel::Call &call)
{
    const std::string name = call.objectText(0);
    QWidget *widget = existing(ui, name).widget();
    if (!widget)
        throw RuntimeError("Object '" + name + "' not found.");
    widget->setFocus();
    return {};
}

void add(UserInterface &ui, mel::Command command, Value (*run)(UserInterface &, const mel::Call &))
{
    command.run = [&ui, run](mel::Call &call) { return run(ui, call); };
    ui.session().mel().addCommand(std::move(command));
}

mel::Command named(const char *name, const char *synopsis)
{
    mel::Command command;
    command.name = name;
    command.objectSynopsis = synopsis;
    return command;
}

} // namespace

void addElementCommands(UserInterface &ui)
{
    mel::Command deletion = named("deleteUI", "String...");
    addFlags(deletion, deletionFlags);
    add(ui, deletion, deleteElements);

    mel::Command listing = named("lsUI", "");
    addFlags(listing, listingFlags);
    listing.flags.push_back({"typ", "type", {ArgumentKind::String}});
    listing.flags.push_back({"l", "long"});
    add(ui, listing, listElements);

    mel::Command parent = named("setParent", "[String]");
    parent.flags = {{"m", "menu"}, {"top", "topLevel"}, {"u", "upLevel"}};
    parent.queryable = true;
    add(ui, parent, setParent);

    add(ui, named("setFocus", "String"), setFocus);
}

} // namespace standin
