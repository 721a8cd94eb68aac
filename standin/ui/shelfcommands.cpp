// SPDX-License-Identifier: MIT
#include "standin/ui/interfacecommands.h"

#include "standin/host/session.h"
#include "standin/host/utf8.h"
#include "standin/ui/elementtype.h"
#include "standin/ui/flowlayout.h"
#include "standin/ui/icons.h"
#include "standin/ui/shelffile.h"
#include "standin/ui/userinterface.h"

#include <QTabWidget>
#include <QToolButton>

namespace standin {

namespace {

using mel::ArgumentKind;
using mel::Value;

QTabWidget *tabs(const Element &element)
{
    return qobject_cast<QTabWidget *>(element.object);
}

QToolButton *button(const Element &element)
{
    return qobject_cast<QToolButton *>(element.object);
}

QObject *makeTabs(UserInterface &, Element *, const mel::Call &)
{
    return new QTabWidget;
}

QObject *makeShelf(UserInterface &, Element *, const mel::Call &)
{
    QWidget *shelf = new QWidget;
    FlowLayout *layout = new FlowLayout(shelf);
    layout->setContentsMargins(3, 3, 3, 3);
    return shelf;
}

QObject *makeShelfButton(UserInterface &, Element *, const mel::Call &)
{
    QToolButton *made = new QToolButton;
    made->setAutoRaise(true);
    made->setIconSize(QSize(24, 24));
    // Room for the icon and a short label.
    made->setMinimumSize(40, 40);
    made->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    return made;
}

const Attributes tabAttributes = {
    {{"st", "selectTab", {ArgumentKind::String}},
     [](Element &e, const Argument &given) {
         for (const auto &child : e.children) {
             if (child->name == given.utf8())
                 tabs(e)->setCurrentWidget(child->widget());
         }
     },
     [](const Element &e, UserInterface &ui) -> Value {
         const Element *current = ui.tree().find(tabs(e)->currentWidget());
         return current ? current->name : std::string();
     }},
    // Tabs are counted from 1 here, from 0 in Qt.
    {{"sti", "selectTabIndex", {ArgumentKind::Int}},
     [](Element &e, const Argument &given) { tabs(e)->setCurrentIndex(given.number() - 1); },
     [](const Element &e, UserInterface &) -> Value { return tabs(e)->currentIndex() + 1; }},
    {{"tl", "tabLabelIndex", {ArgumentKind::Int, ArgumentKind::String}},
     [](Element &e, const Argument &given) {
         tabs(e)->setTabText(given.number(0) - 1, given.text(1));
     }},
};

const Attributes contents = {
    {{"ca", "childArray"},
     nullptr,
     [](const Element &e, UserInterface &) -> Value { return e.childNames(); }},
};

// The label stands below the icon; an overlay label, which is short, is shown in its place.
void showLabel(const Element &element)
{
    const std::string overlay = element.text("imageOverlayLabel");
    // Eight characters at most: a shelf is narrow.
    button(element)->setText(toQt(overlay.empty() ? element.text("label") : overlay).left(8));
}

void keepLabel(Element &element, const Argument &given)
{
    // The key is the flag's long name.
    element.texts[given.flag] = given.utf8();
    showLabel(element);
    // An annotation of its own is better, and may come later.
    if (button(element)->toolTip().isEmpty())
        button(element)->setToolTip(given.text());
}

const Attributes buttonAttributes = {
    {{"l", "label", {ArgumentKind::String}},
     keepLabel,
     [](const Element &e, UserInterface &) -> Value { return e.text("label"); }},
    {{"iol", "imageOverlayLabel", {ArgumentKind::String}},
     keepLabel,
     [](const Element &e, UserInterface &) -> Value { return e.text("imageOverlayLabel"); }},
    {{"i1", "image1", {ArgumentKind::String}},
     [](Element &e, const Argument &given) {
         e.texts["image1"] = given.utf8();
         button(e)->setIcon(iconNamed(given.text()));
     },
     [](const Element &e, UserInterface &) -> Value { return e.text("image1"); }},
    // Accepted: icon and label are always shown.
    {{"st", "style", {ArgumentKind::String}}},
    STANDIN_KEPT_SCRIPT("c", "command"),
    STANDIN_KEPT_TEXT("stp", "sourceType"),
};

void connectButton(UserInterface &ui, Element &element)
{
    QObject::connect(element.object, SIGNAL(clicked()), &ui, SLOT(runCommand()));
}

const std::vector<ElementType> &shelfTypes()
{
    static const Attributes &all = widgetAttributes();
    static const std::vector<ElementType> types = {
        {"shelfTabLayout",
         ElementKind::Layout,
         makeTabs,
         nullptr,
         {&tabAttributes, &contents, &all}},
        {"shelfLayout", ElementKind::Layout, makeShelf, nullptr, {&contents, &all}},
        {"shelfButton",
         ElementKind::Control,
         makeShelfButton,
         connectButton,
         {&buttonAttributes, &all}},
    };
    return types;
}

// saveShelf SHELF FILE: the suffix is added to the file's name.
Value saveShelf(UserInterface &ui, const mel::Call &call)
{
    const Element *shelf = ui.tree().find(call.objectText(0));
    if (!shelf || shelf->type != "shelfLayout")
        throw mel::RuntimeError("Object '" + call.objectText(0) + "' not found.");
    const QString file = toQt(call.objectText(1)) + ".mel";
    if (!writeShelf(*shelf, file))
        throw mel::RuntimeError("Cannot write file \"" + toUtf8(file) + "\".");
    // As a success, for scripts that look.
    return 1;
}

} // namespace

void addShelfCommands(UserInterface &ui)
{
    for (const ElementType &type : shelfTypes())
        addElementCommand(ui, type);
    mel::Command command;
    command.name = "saveShelf";
    command.objectSynopsis = "String String";
    command.run = [&ui](mel::Call &call) { return saveShelf(ui, call); };
    ui.session().mel().addCommand(command);
}

} // namespace standin
