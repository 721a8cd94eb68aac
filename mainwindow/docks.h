// SPDX-License-Identifier: MIT
#pragma once

#include <array>

class QDockWidget;
class QMainWindow;
class QMenu;
class QWidget;

// The docks, in the order in which they are made and listed in the View menu. Each shows one
// widget, and knows nothing of it.
enum class Dock { Project, Documents, Buffers, Output, Outline, QuickHelp, Count };

constexpr int dockCount = static_cast<int>(Dock::Count);

// One value for each dock, in their order; null pointers and empty values at first.
template <class Value>
class DockArray
{
public:
    Value &operator[](Dock dock) { return m_values[static_cast<int>(dock)]; }
    const Value &operator[](Dock dock) const { return m_values[static_cast<int>(dock)]; }

    Value *begin() { return m_values.data(); }
    Value *end() { return begin() + dockCount; }
    const Value *begin() const { return m_values.data(); }
    const Value *end() const { return begin() + dockCount; }

private:
    std::array<Value, dockCount> m_values = {};
};

// Puts each content into a dock of the window, which owns both, appends the docks' toggle actions
// to the View menu, and connects the docks to the window's slots dockToggle(bool),
// dockLocationChange() and updateVisibleDocks().
DockArray<QDockWidget *> createDocks(QMainWindow *window, QMenu *viewMenu,
                                     const DockArray<QWidget *> &contents);

// The bit of a dock in the numbers that settings files have for sets of them.
int dockFlag(Dock dock);
// That of a dock which is gone; settings files may still hold it, and it is kept as it is.
const int formerDockFlag = 2;

// The bits of the docks that are not hidden, and of those that float, hidden or not.
int visibleDockFlags(const DockArray<QDockWidget *> &docks);
int floatingDockFlags(const DockArray<QDockWidget *> &docks);

// Shows or hides the docks whose bits are set.
void setDocksVisible(const DockArray<QDockWidget *> &docks, int flags, bool visible);
