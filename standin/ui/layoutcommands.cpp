// SPDX-License-Identifier: MIT
#include "standin/ui/interfacecommands.h"

#include "standin/ui/elementtype.h"

#include <QBoxLayout>
#include <QScrollArea>
#include <QTabWidget>
#include <QWidget>

namespace standin {

namespace {

using mel::ArgumentKind;
using mel::Value;

// Children stand in a row or column, gathered at one end rather than spread out.
QWidget *newBox(QBoxLayout::Direction direction, Qt::Alignment alignment)
{
    QWidget *box = new QWidget;
    QBoxLayout *layout = new QBoxLayout(direction, box);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    layout->setAlignment(alignment);
    return box;
}

QObject *makeColumn(UserInterface &, Element *, const mel::Call &)
{
    return newBox(QBoxLayout::TopToBottom, Qt::AlignTop);
}

QObject *makeRow(UserInterface &, Element *, const mel::Call &)
{
    return newBox(QBoxLayout::LeftToRight, Qt::AlignLeft);
}

// Attachments are accepted and not followed: the children stand below each other and fill the form.
QObject *makeForm(UserInterface &, Element *, const mel::Call &)
{
    return newBox(QBoxLayout::TopToBottom, Qt::Alignment());
}

QObject *makeScrollArea(UserInterface &, Element *, const mel::Call &)
{
    QScrollArea *area = new QScrollArea;
    area->setWidget(newBox(QBoxLayout::TopToBottom, Qt::AlignTop));
    // The contents are as wide as the area and scroll downwards.
    area->setWidgetResizable(true);
    return area;
}

QObject *makeTabs(UserInterface &, Element *, const mel::Call &)
{
    return new QTabWidget;
}

// Where the children of a box or a scroll area really stand; of other layouts null.
QBoxLayout *boxOf(const Element &element)
{
    QWidget *widget = element.widget();
    if (QScrollArea *area = qobject_cast<QScrollArea *>(widget))
        widget = area->widget();
    return qobject_cast<QBoxLayout *>(widget->layout());
}

const Attributes spacing = {
    {{"rs", "rowSpacing", {ArgumentKind::Int}},
     [](Element &e, const Argument &given) { boxOf(e)->setSpacing(given.number()); },
     [](const Element &e, UserInterface &) -> Value { return boxOf(e)->spacing(); }},
};

// What only a layout with real columns and attachments would follow.
const Attributes notFollowed = {
    {{"adj", "adjustableColumn", {ArgumentKind::Boolean}}},
    {{"nc", "numberOfColumns", {ArgumentKind::Int}}},
    {{"cw", "columnWidth", {ArgumentKind::Int, ArgumentKind::Int}, true}},
    {{"co", "columnOffset", {ArgumentKind::String, ArgumentKind::Int}, true}},
    {{"cat", "columnAttach", {ArgumentKind::String, ArgumentKind::Int}, true}},
};

// A form's own flags, all accepted and not followed.
const Attributes attachments = {
    {{"nd", "numberOfDivisions", {ArgumentKind::Int}}},
    {{"af", "attachForm", {ArgumentKind::String, ArgumentKind::String, ArgumentKind::Int}, true}},
    {{"ac",
      "attachControl",
      {ArgumentKind::String, ArgumentKind::String, ArgumentKind::Int, ArgumentKind::String},
      true}},
    {{"ap",
      "attachPosition",
      {ArgumentKind::String, ArgumentKind::String, ArgumentKind::Int, ArgumentKind::Int},
      true}},
    {{"an", "attachNone", {ArgumentKind::String, ArgumentKind::String}, true}},
};

// Names of the children, which any layout can be asked for.
const Attributes contents = {
    {{"ca", "childArray"},
     nullptr,
     [](const Element &e, UserInterface &) -> Value { return e.childNames(); }},
    {{"nch", "numberOfChildren"},
     nullptr,
     [](const Element &e, UserInterface &) -> Value { return int(e.children.size()); }},
};

const ElementKind layout = ElementKind::Layout;

const std::vector<ElementType> &layoutTypes()
{
    static const Attributes &all = widgetAttributes();
    static const std::vector<ElementType> types = {
        {"columnLayout", layout, makeColumn, nullptr, {&spacing, &notFollowed, &contents, &all}},
        {"rowLayout", layout, makeRow, nullptr, {&notFollowed, &contents, &all}},
        {"formLayout", layout, makeForm, nullptr, {&attachments, &contents, &all}},
        {"scrollLayout", layout, makeScrollArea, nullptr, {&contents, &all}},
        {"tabLayout", layout, makeTabs, nullptr, {&contents, &all}},
        // Any layout, whatever made it; makes none itself.
        {"layout",
         layout,
         nullptr,
         nullptr,
         {&contents, &all},
         [](const Element &e) { return e.kind == ElementKind::Layout; }},
    };
    return types;
}

} // namespace

void addLayoutCommands(UserInterface &ui)
{
    for (const ElementType &type : layoutTypes())
        addElementCommand(ui, type);
}

} // namespace standin
