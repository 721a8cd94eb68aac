// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

// The current text formats as a list for a file: one entry per category, those of the editor first,
// then those of the output, each in the order of its enumeration. An entry is
//
//     foreground background [bold] [italic]        "#7fb2e5 - bold"
//
// with one blank between its words, colours as #rrggbb and "-" where the category has none. The
// plain and the selected text must have both.

// To be raised with every new category of the editor, which shifts the entries of the output.
const int textFormatListVersion = 1;

QStringList textFormatList();

// Sets all current formats. What the list does not have or has damaged takes its format from the
// built-in set that suits the list's plain text, so that an incomplete list is readable too; what
// it has beyond the last category is left out. Of a list of a later version the entries that can be
// read are; one from before there were versions is read as the first.
void readTextFormatList(const QStringList &list, int version);
