// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>

#include <map>
#include <memory>
#include <string>
#include <vector>

class QAction;
class QMenu;
class QWidget;

namespace standin {

// What decides where an element may stand and which commands concern it.
enum class ElementKind { Window, Layout, Control, Menu, MenuItem };

// One named thing of the interface, as scripts see it. The tree owns the element, Qt's parents own
// the object; each takes the other with it when it goes.
struct Element
{
    ElementKind kind;
    std::string type; // the command that makes such things
    std::string name; // without its parents
    Element *parent;  // null for windows
    QObject *object;  // a widget, or the action of a menu item without a submenu
    std::vector<std::unique_ptr<Element>> children = {};
    // What scripts set and the object has no place for, by the long name of the flag.
    std::map<std::string, std::string> texts = {};

    // Empty for a text that was never set.
    std::string text(const std::string &key) const;
    // The object in the form that is asked for, null when it has none: menus are widgets and
    // actions, plain items are actions only.
    QWidget *widget() const;
    QMenu *menu() const; // of menus and of items with a submenu
    QAction *action() const;
    std::vector<std::string> childNames() const; // in the order of creation
};

// All named things, with windows as roots. An element goes when its object is destroyed, and the
// object when its element is removed. Pointers to elements are good until then, so nobody keeps one
// across a script. Names are unique among the children of one parent. Main thread only.
class ElementTree : public QObject
{
    Q_OBJECT

public:
    // `name` may be empty: then one is made of the type and a number. Throws mel::RuntimeError when
    // the parent has a child of that name.
    Element &add(ElementKind kind, const std::string &type, const std::string &name,
                 Element *parent, QObject *object);

    // By full path, by name, or by the last parts of a path; null when there is none.
    Element *find(const std::string &name) const;
    Element *find(const QObject *object) const { return m_byObject.value(object); }
    static std::string path(const Element &element);
    static bool isWithin(const Element *element, const Element &ancestor);
    // Every element, parents first, in the order of creation.
    std::vector<Element *> all() const;

    // Takes the element and its children out at once; objects die when control is back in the
    // event loop, for their own signal may be what is being handled.
    void remove(Element &element);

    // Where new layouts and controls, and new menu items go; null when there is no such place.
    Element *currentParent() const { return m_currentParent; }
    void setCurrentParent(Element *element) { m_currentParent = element; }
    Element *currentMenu() const { return m_currentMenu; }
    void setCurrentMenu(Element *element) { m_currentMenu = element; }

signals:
    // Not repeated for what goes together with its parent.
    void removed(const QString &path);

private slots:
    void forget(QObject *object);

private:
    using Children = std::vector<std::unique_ptr<Element>>;

    // The children of the parent; the windows when it is null.
    Children &siblings(Element *parent);
    bool isTaken(const std::string &name, const Element *parent);
    // Unlike every name in the tree, so that a script may use it alone.
    std::string freeName(const std::string &type);
    // Forgets the element and what is below it in the two indices and in Qt's signals.
    void unregister(const Element &element);
    // Destroys the element, but not its object.
    void takeOut(Element &element);

    Children m_windows;
    // Short names; several elements may share one below different parents.
    std::multimap<std::string, Element *> m_byName;
    // Keys may be objects in their destructors, so they are compared and never used.
    QHash<const QObject *, Element *> m_byObject;
    std::map<std::string, int> m_lastNumbers; // by type
    Element *m_currentParent = nullptr;
    Element *m_currentMenu = nullptr;
};

} // namespace standin
