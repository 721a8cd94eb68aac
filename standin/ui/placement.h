// SPDX-License-Identifier: MIT
#pragma once

#include "standin/ui/elementtree.h"

class QWidget;

namespace mel {
class Call;
}

namespace standin {

class UserInterface;

// The place of new elements: which parent they get and how the widgets come together. Scripts name
// a parent or rely on the element made last, as the tree remembers it.

// The parent that the call names, or the current one. Throws mel::RuntimeError when that cannot
// hold an element of this kind.
Element *parentFor(UserInterface &ui, ElementKind kind, const mel::Call &call);

// Puts a new element's widget or action into its parent, and makes it the place for the next ones
// where it can hold some.
void place(UserInterface &ui, Element &element);

// In pixels; a window changes its size, a widget in a layout gets a least size.
void setWidth(QWidget &widget, int width);
void setHeight(QWidget &widget, int height);

} // namespace standin
