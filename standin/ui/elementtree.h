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

enum class ElementKind { Window, Layout, Control, Menu, MenuItem };

// One named thing of the interface, as scripts see it.
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

    std::string text(const std::string &key) const;
    QWidget *widget() const;
    QMenu *menu() const; // of menus and of items with a submenu
    QAction *action() const;
    std::vector<std::string> childNames() const; // in the order of creation
};

// All named things, with windows as roots. An element goes when its object is destroyed, and the
// object when its element is removed.
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
    void removed(const QString &path);

private slots:
    void forget(QObject *object);

private:
    using Children = std::vector<std::unique_ptr<Element>>;

    Children &siblings(Element *parent);
    bool isTaken(const std::string &name, const Element *parent);
    std::string freeName(const std::string &type);
    void unregister(const Element &element);
    void takeOut(Element &element);

    Children m_windows;
    std::multimap<std::string, Element *> m_byName;
    QHash<const QObject *, Element *> m_byObject;
    std::map<std::string, int> m_lastNumbers; // by type
    Element *m_currentParent = nullptr;
    Element *m_currentMenu = nullptr;
};

} // namespace standin
