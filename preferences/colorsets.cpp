// SPDX-License-Identifier: MIT
#include "preferences/colorsets.h"

namespace {

// Names of colours; an empty one leaves that of the plain text.
struct Colors
{
    const char *foreground;
    const char *background;
};

struct FormatRow
{
    const char *name; // as the user reads it
    Colors dark;
    Colors light;
    bool bold;
    bool italic;
};

// clang-format off
// White space and line numbers deliberately stay dim.
const FormatRow editorRows[] = {
    // name                 dark                    light                   bold   italic
    {"Plain Text",          {"#c8c8c8", "#2b2b2b"}, {"#262626", "#fafafa"}, false, false},
    {"Selected Text",       {"#ffffff", "#4b6e8f"}, {"#000000", "#b7d3f2"}, false, false},
    {"Matching Selection",  {"",        "#3f4d3a"}, {"",        "#d9ead0"}, false, false},
    {"Current Line",        {"",        "#333333"}, {"",        "#eeeeee"}, false, false},
    {"Brace Matching",      {"#ffffff", "#5a5a32"}, {"#000000", "#e6e29a"}, true,  false},
    {"Hidden Whitespaces",  {"#7a7a7a", ""},        {"#8c8c8c", ""},        false, false},
    {"Line Numbers",        {"#8a8a8a", "#3a3a3a"}, {"#6e6e6e", "#e8e8e8"}, false, false},
    {"Error Bar",           {"#c8c8c8", "#3a3a3a"}, {"#262626", "#e8e8e8"}, false, false},
    {"MEL Keywords",        {"#7fb2e5", ""},        {"#1f5fa8", ""},        true,  false},
    {"MEL Commands",        {"#5ec4c4", ""},        {"#0f6e6e", ""},        false, false},
    {"MEL Strings",         {"#d6a56f", ""},        {"#9a4f00", ""},        false, false},
    {"MEL Numbers",         {"#b5cea8", ""},        {"#3c6e1e", ""},        false, false},
    {"MEL Comments",        {"#93a389", ""},        {"#5f6f52", ""},        false, true},
    {"Python Keywords",     {"#7fb2e5", ""},        {"#1f5fa8", ""},        true,  false},
    {"Python Strings",      {"#d6a56f", ""},        {"#9a4f00", ""},        false, false},
    {"Python Doc Strings",  {"#c9b37a", ""},        {"#7a6000", ""},        false, true},
    {"Python Numbers",      {"#b5cea8", ""},        {"#3c6e1e", ""},        false, false},
    {"Python Comments",     {"#93a389", ""},        {"#5f6f52", ""},        false, true},
    {"Python Decorators",   {"#c792d8", ""},        {"#8a3fa0", ""},        false, false},
    {"Python MEL Commands", {"#5ec4c4", ""},        {"#0f6e6e", ""},        false, false},
};

// Grounds and selection as in the editor, so that both look like parts of one window.
const FormatRow outputRows[] = {
    {"Plain Text",          {"#c8c8c8", "#2b2b2b"}, {"#262626", "#fafafa"}, false, false},
    {"Selected Text",       {"#ffffff", "#4b6e8f"}, {"#000000", "#b7d3f2"}, false, false},
    {"Matching Selection",  {"",        "#3f4d3a"}, {"",        "#d9ead0"}, false, false},
    {"Errors",              {"#ff8a80", ""},        {"#b3261e", ""},        false, false},
    {"Warnings",            {"#e8c06a", ""},        {"#8a5a00", ""},        false, false},
    {"Results",             {"#8fce9a", ""},        {"#1e6e2e", ""},        false, false},
};
// clang-format on

static_assert(sizeof editorRows / sizeof *editorRows == editorTextCount, "one row per category");
static_assert(sizeof outputRows / sizeof *outputRows == outputTextCount, "one row per category");

// Invalid for an empty name.
QColor color(const char *name)
{
    return *name ? QColor(QLatin1String(name)) : QColor();
}

const FormatRow &rowOf(int index)
{
    return index < editorTextCount ? editorRows[index] : outputRows[index - editorTextCount];
}

} // namespace

TextFormat builtInFormat(int textIndex, ColorSet set)
{
    const FormatRow &row = rowOf(textIndex);
    const Colors &colors = set == ColorSet::Dark ? row.dark : row.light;
    return {color(colors.foreground), color(colors.background), row.bold, row.italic};
}

TextFormats builtInFormats(ColorSet set)
{
    TextFormats formats;
    for (int i = 0; i < textCount; ++i)
        formats[i] = builtInFormat(i, set);
    return formats;
}

const char *textName(int textIndex)
{
    return rowOf(textIndex).name;
}
