// SPDX-License-Identifier: MIT
#include "standin/ui/elementtype.h"

#include "standin/host/session.h"
#include "standin/host/utf8.h"
#include "standin/ui/placement.h"
#include "standin/ui/userinterface.h"

#include <QWidget>

namespace standin {

namespace {

using mel::ArgumentKind;
using mel::RuntimeError;
using mel::Value;

// The element of that name if it is one that the command can change; else null.
Element *findFor(UserInterface &ui, const ElementType &type, const std::string &name)
{
    Element *element = ui.tree().find(name);
    const bool isAccepted =
        element && (type.accepts ? type.accepts(*element) : element->type == type.command);
    return isAccepted ? element : nullptr;
}

Element &target(UserInterface &ui, const ElementType &type, const mel::Call &call)
{
    const std::string name = call.objectText(0);
    Element *element = findFor(ui, type, name);
    if (!element)
        // The same text for an element of another type, which this command cannot see.
        throw RuntimeError("Object '" + name + "' not found.");
    return *element;
}

// In the order of the table, not of the call: a flag may rely on one above it.
void apply(UserInterface &ui, const ElementType &type, Element &element, const mel::Call &call)
{
    for (const Attributes *attributes : type.attributes) {
        for (const Attribute &attribute : *attributes) {
            const char *flag = attribute.flag.longName.c_str();
            if (attribute.set && call.isSet(flag))
                attribute.set(element, Argument{call, flag, ui});
        }
    }
}

Value ask(UserInterface &ui, const ElementType &type, const Element &element, const mel::Call &call)
{
    for (const Attributes *attributes : type.attributes) {
        for (const Attribute &attribute : *attributes) {
            if (attribute.get && call.isSet(attribute.flag.longName.c_str()))
                return attribute.get(element, ui);
        }
    }
    // Every element has one, so the tables do not list it.
    if (call.isSet("parent"))
        return element.parent ? ElementTree::path(*element.parent) : std::string();
    throw RuntimeError("No flag to query on call to " + call.command + ".");
}

Value create(UserInterface &ui, const ElementType &type, const mel::Call &call)
{
    if (!type.create)
        throw RuntimeError("Command " + call.command + " needs -exists, -edit or -query.");
    Element *parent = parentFor(ui, type.kind, call);
    const std::string name = call.objects.empty() ? std::string() : call.objectText(0);
    QObject *object = type.create(ui, parent, call);
    // The object has no parent yet, so it is deleted here if it gets no name.
    Element *element = nullptr;
    try {
        element = &ui.tree().add(type.kind, type.command, name, parent, object);
    } catch (...) {
        delete object;
        throw;
    }
    // Connected afterwards, so that setting a value runs no script, and placed when it is complete.
    apply(ui, type, *element, call);
    if (type.connect)
        type.connect(ui, *element);
    place(ui, *element);
    return ElementTree::path(*element);
}

Value run(UserInterface &ui, const ElementType &type, const mel::Call &call)
{
    // Asked before all else: the element need not be there.
    if (call.isSet("exists")) {
        const std::string object = call.objects.empty() ? "" : call.objectText(0);
        return findFor(ui, type, call.text("exists", object)) ? 1 : 0;
    }
    if (call.query)
        return ask(ui, type, target(ui, type, call), call);
    if (!call.edit)
        return create(ui, type, call);
    Element &element = target(ui, type, call);
    apply(ui, type, element, call);
    return ElementTree::path(element);
}

} // namespace

QString Argument::text(size_t at) const
{
    return toQt(utf8(at));
}

void addElementCommand(UserInterface &ui, const ElementType &type)
{
    mel::Command command;
    command.name = type.command;
    command.queryable = true;
    command.editable = true;
    command.objectSynopsis = "[String]";
    command.flags = {{"ex", "exists"}, {"p", "parent", {ArgumentKind::String}}};
    for (const Attributes *attributes : type.attributes) {
        for (const Attribute &attribute : *attributes)
            command.flags.push_back(attribute.flag);
    }
    command.run = [&ui, &type](mel::Call &call) { return run(ui, type, call); };
    ui.session().mel().addCommand(command);
}

// A function, since tables of other files take its address while they are made: a constant might
// not exist by then.
const Attributes &widgetAttributes()
{
    static const Attributes attributes = {
        {{"ann", "annotation", {ArgumentKind::String}},
         [](Element &e, const Argument &given) {
             e.widget()->setToolTip(given.text());
             e.widget()->setStatusTip(given.text());
         },
         [](const Element &e, UserInterface &) -> Value { return toUtf8(e.widget()->toolTip()); }},
        {{"en", "enable", {ArgumentKind::Boolean}},
         [](Element &e, const Argument &given) { e.widget()->setEnabled(given.isOn()); },
         [](const Element &e, UserInterface &) -> Value { return int(e.widget()->isEnabled()); }},
        {{"vis", "visible", {ArgumentKind::Boolean}},
         [](Element &e, const Argument &given) { e.widget()->setVisible(given.isOn()); },
         [](const Element &e, UserInterface &) -> Value { return int(!e.widget()->isHidden()); }},
        {{"w", "width", {ArgumentKind::Int}},
         [](Element &e, const Argument &given) { setWidth(*e.widget(), given.number()); },
         [](const Element &e, UserInterface &) -> Value { return e.widget()->width(); }},
        {{"h", "height", {ArgumentKind::Int}},
         [](Element &e, const Argument &given) { setHeight(*e.widget(), given.number()); },
         [](const Element &e, UserInterface &) -> Value { return e.widget()->height(); }},
    };
    return attributes;
}

} // namespace standin
