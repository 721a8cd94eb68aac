// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

// The colours of a list or a tree while it has the focus and while it has not. Without it the
// selected entry keeps its text colour on a ground that is hardly another, so that nothing in a
// dock competes with the text that is edited.
struct FocusPalettes
{
    explicit FocusPalettes(const QPalette &ordinary);

    QPalette focused;
    QPalette unfocused;
};
