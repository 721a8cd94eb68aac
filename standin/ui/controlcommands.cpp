// SPDX-License-Identifier: MIT
#include "standin/ui/interfacecommands.h"

#include "standin/host/utf8.h"
#include "standin/ui/elementtype.h"
#include "standin/ui/icons.h"
#include "standin/ui/userinterface.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace standin {

namespace {

using mel::ArgumentKind;
using mel::Value;

// For controls that need nothing but their class.
template <typename Widget>
QObject *make(UserInterface &, Element *, const mel::Call &)
{
    return new Widget;
}

// Flat until the mouse is over it, as on a tool bar.
QObject *makeIconButton(UserInterface &, Element *, const mel::Call &)
{
    QToolButton *button = new QToolButton;
    button->setAutoRaise(true);
    button->setIconSize(QSize(20, 20));
    return button;
}

QObject *makeSeparator(UserInterface &, Element *, const mel::Call &)
{
    QFrame *line = new QFrame;
    // As ints, since the two enumerations do not mix.
    line->setFrameStyle(int(QFrame::HLine) | int(QFrame::Sunken));
    return line;
}

// The element's object; the table has made it of this class.
template <typename Widget>
Widget *as(const Element &element)
{
    return qobject_cast<Widget *>(element.object);
}

const Attributes buttonLabel = {
    {{"l", "label", {ArgumentKind::String}},
     [](Element &e, const Argument &given) { as<QAbstractButton>(e)->setText(given.text()); },
     [](const Element &e, UserInterface &) -> Value {
         return toUtf8(as<QAbstractButton>(e)->text());
     }},
};

const Attributes command = {
    STANDIN_KEPT_SCRIPT("c", "command"),
    STANDIN_KEPT_TEXT("stp", "sourceType"),
};

const Attributes changeCommand = {
    STANDIN_KEPT_SCRIPT("cc", "changeCommand"),
    STANDIN_KEPT_SCRIPT("onc", "onCommand"),
    STANDIN_KEPT_SCRIPT("ofc", "offCommand"),
};

void setImage(Element &element, const Argument &given)
{
    // Kept besides, since an icon does not know its file.
    element.texts["image"] = given.utf8();
    as<QAbstractButton>(element)->setIcon(iconNamed(given.text()));
}

Value image(const Element &element, UserInterface &)
{
    return element.text("image");
}

const Attributes imageOnly = {
    {{"i", "image", {ArgumentKind::String}}, setImage, image},
};

// Icon buttons know several images; the first one is shown.
const Attributes images = {
    {{"i", "image", {ArgumentKind::String}}, setImage, image},
    {{"i1", "image1", {ArgumentKind::String}}, setImage, image},
    {{"st", "style", {ArgumentKind::String}},
     [](Element &e, const Argument &given) {
         // Every style but this one shows the label.
         const bool hasText = given.text() != "iconOnly";
         as<QToolButton>(e)->setToolButtonStyle(hasText ? Qt::ToolButtonTextUnderIcon
                                                        : Qt::ToolButtonIconOnly);
     }},
    STANDIN_KEPT_TEXT("iol", "imageOverlayLabel"),
};

const Attributes checkState = {
    {{"v", "value", {ArgumentKind::Boolean}},
     [](Element &e, const Argument &given) { as<QAbstractButton>(e)->setChecked(given.isOn()); },
     [](const Element &e, UserInterface &) -> Value {
         return int(as<QAbstractButton>(e)->isChecked());
     }},
};

const Attributes labelText = {
    {{"l", "label", {ArgumentKind::String}},
     [](Element &e, const Argument &given) { as<QLabel>(e)->setText(given.text()); },
     [](const Element &e, UserInterface &) -> Value { return toUtf8(as<QLabel>(e)->text()); }},
    {{"al", "align", {ArgumentKind::String}},
     [](Element &e, const Argument &given) {
         // Left for any other word, as labels start.
         const QString side = given.text();
         as<QLabel>(e)->setAlignment(Qt::AlignVCenter | (side == "right"    ? Qt::AlignRight
                                                         : side == "center" ? Qt::AlignHCenter
                                                                            : Qt::AlignLeft));
     }},
};

const Attributes fieldText = {
    {{"tx", "text", {ArgumentKind::String}},
     [](Element &e, const Argument &given) { as<QLineEdit>(e)->setText(given.text()); },
     [](const Element &e, UserInterface &) -> Value { return toUtf8(as<QLineEdit>(e)->text()); }},
    {{"ed", "editable", {ArgumentKind::Boolean}},
     [](Element &e, const Argument &given) { as<QLineEdit>(e)->setReadOnly(!given.isOn()); },
     [](const Element &e, UserInterface &) -> Value {
         return int(!as<QLineEdit>(e)->isReadOnly());
     }},
    STANDIN_KEPT_SCRIPT("cc", "changeCommand"),
    STANDIN_KEPT_SCRIPT("ec", "enterCommand"),
};

const Attributes separatorStyle = {
    {{"st", "style", {ArgumentKind::String}}},
    {{"hr", "horizontal", {ArgumentKind::Boolean}},
     [](Element &e, const Argument &given) {
         as<QFrame>(e)->setFrameShape(given.isOn() ? QFrame::HLine : QFrame::VLine);
     }},
};

void connectClick(UserInterface &ui, Element &element)
{
    QObject::connect(element.object, SIGNAL(clicked()), &ui, SLOT(runCommand()));
}

// By the signal that only the user causes: a script that sets a value must not start another.
void connectCheck(UserInterface &ui, Element &element)
{
    QObject::connect(element.object, SIGNAL(clicked(bool)), &ui,
                     SLOT(runChangeCommandWithState(bool)));
}

void connectField(UserInterface &ui, Element &element)
{
    QObject::connect(element.object, SIGNAL(editingFinished()), &ui, SLOT(runChangeCommand()));
    QObject::connect(element.object, SIGNAL(returnPressed()), &ui, SLOT(runEnterCommand()));
}

const ElementKind control = ElementKind::Control;

const std::vector<ElementType> &controlTypes()
{
    static const Attributes &all = widgetAttributes();
    static const std::vector<ElementType> types = {
        {"button", control, make<QPushButton>, connectClick, {&buttonLabel, &command, &all}},
        {"symbolButton", control, makeIconButton, connectClick, {&imageOnly, &command, &all}},
        {"iconTextButton",
         control,
         makeIconButton,
         connectClick,
         {&buttonLabel, &images, &command, &all}},
        {"checkBox",
         control,
         make<QCheckBox>,
         connectCheck,
         {&buttonLabel, &checkState, &changeCommand, &all}},
        {"text", control, make<QLabel>, nullptr, {&labelText, &all}},
        {"textField", control, make<QLineEdit>, connectField, {&fieldText, &all}},
        {"separator", control, makeSeparator, nullptr, {&separatorStyle, &all}},
        // Any control, whatever made it; layouts count as controls here.
        {"control",
         control,
         nullptr,
         nullptr,
         {&all},
         [](const Element &e) {
             return e.kind == ElementKind::Control || e.kind == ElementKind::Layout;
         }},
    };
    return types;
}

} // namespace

void addControlCommands(UserInterface &ui)
{
    for (const ElementType &type : controlTypes())
        addElementCommand(ui, type);
}

} // namespace standin
