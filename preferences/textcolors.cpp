// SPDX-License-Identifier: MIT
#include "preferences/textcolors.h"

#include "preferences/textformats.h"

#include <QPalette>
#include <QPlainTextEdit>

void setTextColors(QPlainTextEdit *edit, const TextFormat &plain, const TextFormat &selected)
{
    QPalette palette = edit->palette();
    palette.setColor(QPalette::Text, plain.foreground);
    palette.setColor(QPalette::Base, plain.background);
    palette.setColor(QPalette::HighlightedText, selected.foreground);
    palette.setColor(QPalette::Highlight, selected.background);
    edit->setPalette(palette);
    // It paints the ground, and under an application's style sheet, which hosts like to have, a
    // widget's palette no longer reaches its children.
    edit->viewport()->setPalette(palette);
}
