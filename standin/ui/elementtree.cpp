// SPDX-License-Identifier: MIT
#include "standin/ui/elementtree.h"

#include "standin/host/utf8.h"
#include "standin/mel/command.h"

#include <QAction>
#include <QMenu>
#include <QWidget>

#include <algorithm>

namespace standin {

namespace {

// Names are used as bare words of scripts.
std::string asWord(std::string name)
{
    for (char &c : name) {
        const bool isWordCharacter =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
        if (!isWordCharacter)
            c = '_';
    }
    if (!name.empty() && name[0] >= '0' && name[0] <= '9')
        name.insert(0, "_");
    return name;
}

// "b|c" is the end of "a|b|c" but not of "ab|c" or "xb|c".
bool endsWithPath(const std::string &path, const std::string &tail)
{
    if (tail.size() > path.size() ||
        path.compare(path.size() - tail.size(), tail.size(), tail) != 0)
        return false;
    return tail.size() == path.size() || path[path.size() - tail.size() - 1] == '|';
}

void appendAll(const std::vector<std::unique_ptr<Element>> &children,
               std::vector<Element *> &elements)
{
    for (const std::unique_ptr<Element> &child : children) {
        elements.push_back(child.get());
        appendAll(child->children, elements);
    }
}

} // namespace

std::string Element::text(const std::string &key) const
{
    const auto found = texts.find(key);
    return found == texts.end() ? std::string() : found->second;
}

QWidget *Element::widget() const
{
    return qobject_cast<QWidget *>(object);
}

QMenu *Element::menu() const
{
    return qobject_cast<QMenu *>(object);
}

QAction *Element::action() const
{
    // A menu's own action is what its parent shows of it.
    return menu() ? menu()->menuAction() : qobject_cast<QAction *>(object);
}

std::vector<std::string> Element::childNames() const
{
    std::vector<std::string> names;
    for (const std::unique_ptr<Element> &child : children)
        names.push_back(child->name);
    return names;
}

ElementTree::Children &ElementTree::siblings(Element *parent)
{
    return parent ? parent->children : m_windows;
}

bool ElementTree::isTaken(const std::string &name, const Element *parent)
{
    // Few elements share a name, many share a parent: so by name first.
    const auto range = m_byName.equal_range(name);
    return std::any_of(range.first, range.second,
                       [parent](const auto &entry) { return entry.second->parent == parent; });
}

std::string ElementTree::freeName(const std::string &type)
{
    std::string name;
    // Numbers per type, never used again: a script may still hold the name of what has gone.
    do {
        name = type + std::to_string(++m_lastNumbers[type]);
    } while (m_byName.count(name) > 0);
    return name;
}

Element &ElementTree::add(ElementKind kind, const std::string &type, const std::string &name,
                          Element *parent, QObject *object)
{
    const std::string word = name.empty() ? freeName(type) : asWord(name);
    if (isTaken(word, parent))
        throw mel::RuntimeError("Object's name '" + word + "' is not unique.");
    siblings(parent).push_back(
        std::make_unique<Element>(Element{kind, type, word, parent, object}));
    Element &element = *siblings(parent).back();
    m_byName.emplace(word, &element);
    m_byObject.insert(object, &element);
    // Style sheets and code that looks for children find the object by the same name.
    object->setObjectName(toQt(word));
    // Objects may die by themselves: closed windows, children of deleted ones.
    connect(object, SIGNAL(destroyed(QObject *)), SLOT(forget(QObject *)));
    return element;
}

Element *ElementTree::find(const std::string &name) const
{
    // Found by the last part alone; the parts before it are compared afterwards.
    const size_t bar = name.rfind('|');
    const auto range = m_byName.equal_range(bar == std::string::npos ? name : name.substr(bar + 1));
    // Of several that fit, the one that was added first.
    for (auto entry = range.first; entry != range.second; ++entry) {
        if (endsWithPath(path(*entry->second), name))
            return entry->second;
    }
    return nullptr;
}

std::string ElementTree::path(const Element &element)
{
    return element.parent ? path(*element.parent) + "|" + element.name : element.name;
}

bool ElementTree::isWithin(const Element *element, const Element &ancestor)
{
    // Also true for the ancestor itself.
    while (element && element != &ancestor)
        element = element->parent;
    return element != nullptr;
}

std::vector<Element *> ElementTree::all() const
{
    std::vector<Element *> elements;
    appendAll(m_windows, elements);
    return elements;
}

void ElementTree::unregister(const Element &element)
{
    // From below: nothing of the branch is found any more when the element goes.
    for (const std::unique_ptr<Element> &child : element.children)
        unregister(*child);
    const auto range = m_byName.equal_range(element.name);
    m_byName.erase(std::find_if(range.first, range.second,
                                [&](const auto &entry) { return entry.second == &element; }));
    m_byObject.remove(element.object);
    element.object->disconnect(this);
}

void ElementTree::takeOut(Element &element)
{
    // New elements go on beside what has gone; a menu has no such place.
    if (isWithin(m_currentParent, element))
        m_currentParent = element.parent;
    if (isWithin(m_currentMenu, element))
        m_currentMenu = nullptr;
    unregister(element);
    // Taken before the erasing, which destroys the element.
    const QString pathOfElement = toQt(path(element));
    Children &children = siblings(element.parent);
    children.erase(std::find_if(children.begin(), children.end(),
                                [&](const auto &child) { return child.get() == &element; }));
    emit removed(pathOfElement);
}

void ElementTree::remove(Element &element)
{
    // Read first: the element is gone after takeOut().
    QObject *object = element.object;
    QAction *action = element.action();
    if (QWidget *widget = element.widget())
        // At once for the user, though the object lives until the event loop is reached.
        widget->hide();
    takeOut(element);
    if (action)
        action->setVisible(false);
    object->deleteLater();
}

void ElementTree::forget(QObject *object)
{
    if (Element *element = m_byObject.value(object))
        takeOut(*element);
}

} // namespace standin
