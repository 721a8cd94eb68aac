// SPDX-License-Identifier: MIT
#include "standin/ui/interfacecommands.h"

#include "standin/host/session.h"
#include "standin/host/utf8.h"
#include "standin/ui/elementtype.h"
#include "standin/ui/scriptwindow.h"
#include "standin/ui/userinterface.h"

namespace standin {

namespace {

using mel::ArgumentKind;
using mel::Value;

// A child of the main window, so that it stays in front of it and goes with it.
QObject *makeWindow(UserInterface &ui, Element *, const mel::Call &)
{
    return new ScriptWindow(ui.mainWindow());
}

void connectWindow(UserInterface &ui, Element &element)
{
    // A name serves as the title until there is one.
    if (element.widget()->windowTitle().isEmpty())
        element.widget()->setWindowTitle(toQt(element.name));
    QObject::connect(element.object, SIGNAL(closing()), &ui, SLOT(runCloseCommand()));
}

const Attributes windowAttributes = {
    {{"t", "title", {ArgumentKind::String}},
     [](Element &e, const Argument &given) { e.widget()->setWindowTitle(given.text()); },
     [](const Element &e, UserInterface &) -> Value { return toUtf8(e.widget()->windowTitle()); }},
    {{"wh", "widthHeight", {ArgumentKind::Int, ArgumentKind::Int}},
     [](Element &e, const Argument &given) {
         e.widget()->resize(given.number(0), given.number(1));
     },
     [](const Element &e, UserInterface &) -> Value {
         return mel::IntArray{e.widget()->width(), e.widget()->height()};
     }},
    // The other way round than Qt has it: top, then left.
    {{"tlc", "topLeftCorner", {ArgumentKind::Int, ArgumentKind::Int}},
     [](Element &e, const Argument &given) { e.widget()->move(given.number(1), given.number(0)); },
     [](const Element &e, UserInterface &) -> Value {
         return mel::IntArray{e.widget()->y(), e.widget()->x()};
     }},
    {{"i", "iconify", {ArgumentKind::Boolean}},
     [](Element &e, const Argument &given) {
         given.isOn() ? e.widget()->showMinimized() : e.widget()->showNormal();
     },
     [](const Element &e, UserInterface &) -> Value { return int(e.widget()->isMinimized()); }},
    // Accepted: the window manager decides, and every window has a menu bar.
    {{"s", "sizeable", {ArgumentKind::Boolean}}},
    {{"mb", "menuBar", {ArgumentKind::Boolean}}},
    STANDIN_KEPT_TEXT("in", "iconName"),
    STANDIN_KEPT_SCRIPT("cc", "closeCommand"),
};

const std::vector<ElementType> &windowTypes()
{
    static const std::vector<ElementType> types = {
        {"window",
         ElementKind::Window,
         makeWindow,
         connectWindow,
         {&windowAttributes, &widgetAttributes()}},
    };
    return types;
}

Element &windowNamed(UserInterface &ui, const mel::Call &call)
{
    // Without a name, the window around what was made last.
    Element *element =
        call.objects.empty() ? ui.tree().currentParent() : ui.tree().find(call.objectText(0));
    while (element && element->parent && call.objects.empty())
        element = element->parent;
    if (!element || element->kind != ElementKind::Window)
        throw mel::RuntimeError("Object '" + (call.objects.empty() ? "" : call.objectText(0)) +
                                "' not found.");
    return *element;
}

void addShowWindow(UserInterface &ui)
{
    mel::Command command;
    command.name = "showWindow";
    command.objectSynopsis = "[String]";
    command.run = [&ui](mel::Call &call) -> Value {
        QWidget *window = windowNamed(ui, call).widget();
        // Windows stay hidden until a script shows them, as in the application.
        window->show();
        window->raise();
        return {};
    };
    ui.session().mel().addCommand(command);
}

} // namespace

void addWindowCommands(UserInterface &ui)
{
    for (const ElementType &type : windowTypes())
        addElementCommand(ui, type);
    addShowWindow(ui);
}

} // namespace standin
