// SPDX-License-Identifier: MIT
#include "preferences/focuspalettes.h"

namespace {

void subdueSelection(QPalette *palette, QPalette::ColorGroup group)
{
    palette->setColor(group, QPalette::Highlight, palette->color(group, QPalette::AlternateBase));
    palette->setColor(group, QPalette::HighlightedText, palette->color(group, QPalette::Text));
}

} // namespace

// The inactive colours are for widgets of another window than the active one. For one without the
// focus in the active window there are none, hence a second palette.
FocusPalettes::FocusPalettes(const QPalette &ordinary) : focused(ordinary)
{
    subdueSelection(&focused, QPalette::Inactive);
    unfocused = focused;
    subdueSelection(&unfocused, QPalette::Active);
}
