// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/command.h"
#include "standin/ui/elementtree.h"

#include <QString>

#include <string>
#include <vector>

namespace standin {

class UserInterface;

// One flag as it was given; `at` counts the flag's own arguments from 0. Lives for one call of a
// setter only.
struct Argument
{
    const mel::Call &call;
    const char *flag;
    UserInterface &ui;

    QString text(size_t at = 0) const;
    std::string utf8(size_t at = 0) const { return call.text(flag, {}, at); }
    bool isOn() const { return call.boolean(flag); }
    int number(size_t at = 0) const { return call.integer(flag, 0, at); }
};

// A flag of an interface command. Without `set` it is accepted and does nothing; without `get` it
// cannot be queried.
struct Attribute
{
    mel::Flag flag;
    void (*set)(Element &, const Argument &) = nullptr;
    mel::Value (*get)(const Element &, UserInterface &) = nullptr;
};
using Attributes = std::vector<Attribute>;

// A command that makes, changes and asks one kind of element. A row of a table: without -edit and
// -query the command makes an element, applies the flags and answers with its path.
struct ElementType
{
    std::string command;
    ElementKind kind;
    // Makes the object inside the parent; null for commands that only change and ask.
    QObject *(*create)(UserInterface &, Element *parent, const mel::Call &) = nullptr;
    // Connects the scripts of a new element.
    void (*connect)(UserInterface &, Element &) = nullptr;
    // In order: of several flags that are asked for, the first one answers.
    std::vector<const Attributes *> attributes = {};
    // Which elements it can change; those that it has made, when null.
    bool (*accepts)(const Element &) = nullptr;
};

// Adds the command, with -exists and -parent besides the flags of its table. The type must live as
// long as the interface: it is a row of a static table.
void addElementCommand(UserInterface &ui, const ElementType &type);

// Flags that every widget has: annotation, enable, visible, width, height.
const Attributes &widgetAttributes();

// A text or a script that is kept with the element and given back.
#define STANDIN_KEPT_TEXT(shortName, longName) STANDIN_KEPT(shortName, longName, String)
#define STANDIN_KEPT_SCRIPT(shortName, longName) STANDIN_KEPT(shortName, longName, Script)
#define STANDIN_KEPT(shortName, longName, kind)                                                    \
    Attribute                                                                                      \
    {                                                                                              \
        {shortName, longName, {mel::ArgumentKind::kind}},                                          \
            [](Element &element, const Argument &given) {                                          \
                element.texts[longName] = given.utf8();                                            \
            },                                                                                     \
            [](const Element &element, UserInterface &) -> mel::Value {                            \
                return element.text(longName);                                                     \
            }                                                                                      \
    }

} // namespace standin
