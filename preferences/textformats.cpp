// SPDX-License-Identifier: MIT
#include "preferences/textformats.h"

#include "preferences/preferences.h"

#include <array>

namespace {

// A category as it is built in.
struct FormatRow
{
    const char *name;       // as the user reads it
    const char *foreground; // empty: that of the plain text
    const char *background;
    bool bold;
    bool italic;
};

// clang-format off
// Chosen for Maya's dark palette; white space and line numbers deliberately stay dim.
const FormatRow editorRows[] = {
    // name                 foreground  background  bold   italic
    {"Plain Text",          "#c8c8c8",  "#2b2b2b",  false, false},
    {"Selected Text",       "#ffffff",  "#4b6e8f",  false, false},
    {"Matching Selection",  "",         "#3f4d3a",  false, false},
    {"Current Line",        "",         "#333333",  false, false},
    {"Brace Matching",      "#ffffff",  "#5a5a32",  true,  false},
    {"Hidden Whitespaces",  "#5f5f5f",  "",         false, false},
    {"Line Numbers",        "#8a8a8a",  "#3a3a3a",  false, false},
    {"Error Bar",           "#c8c8c8",  "#3a3a3a",  false, false},
    {"MEL Keywords",        "#7fb2e5",  "",         true,  false},
    {"MEL Commands",        "#5ec4c4",  "",         false, false},
    {"MEL Strings",         "#d6a56f",  "",         false, false},
    {"MEL Numbers",         "#b5cea8",  "",         false, false},
    {"MEL Comments",        "#8a9a80",  "",         false, true},
    {"Python Keywords",     "#7fb2e5",  "",         true,  false},
    {"Python Strings",      "#d6a56f",  "",         false, false},
    {"Python Doc Strings",  "#c9b37a",  "",         false, true},
    {"Python Numbers",      "#b5cea8",  "",         false, false},
    {"Python Comments",     "#8a9a80",  "",         false, true},
    {"Python Decorators",   "#c792d8",  "",         false, false},
    {"Python MEL Commands", "#5ec4c4",  "",         false, false},
};

// Grounds and selection as in the editor, so that both look like parts of one window.
const FormatRow outputRows[] = {
    {"Plain Text",          "#c8c8c8",  "#2b2b2b",  false, false},
    {"Selected Text",       "#ffffff",  "#4b6e8f",  false, false},
    {"Matching Selection",  "",         "#3f4d3a",  false, false},
    {"Errors",              "#ff8a80",  "",         false, false},
    {"Warnings",            "#e8c06a",  "",         false, false},
    {"Results",             "#8fce9a",  "",         false, false},
};
// clang-format on

static_assert(sizeof editorRows / sizeof *editorRows == editorTextCount, "one row per category");
static_assert(sizeof outputRows / sizeof *outputRows == outputTextCount, "one row per category");

// Invalid for an empty name.
QColor colour(const char *name)
{
    return *name ? QColor(QLatin1String(name)) : QColor();
}

template <size_t count>
std::array<TextFormat, count> formats(const FormatRow (&rows)[count])
{
    std::array<TextFormat, count> result;
    for (size_t i = 0; i < count; ++i)
        result[i] = {colour(rows[i].foreground), colour(rows[i].background), rows[i].bold,
                     rows[i].italic};
    return result;
}

QFont fixedFont(const QString &family, int pointSize)
{
    QFont font(family.isEmpty() ? builtInFontFamily() : family, pointSize);
    // For where the family is missing: columns only line up in a fixed pitch.
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    return font;
}

} // namespace

QTextCharFormat TextFormat::charFormat() const
{
    QTextCharFormat format;
    if (foreground.isValid())
        format.setForeground(foreground);
    if (background.isValid())
        format.setBackground(background);
    if (bold)
        format.setFontWeight(QFont::Bold);
    if (italic)
        format.setFontItalic(true);
    return format;
}

bool operator==(const TextFormat &a, const TextFormat &b)
{
    return a.foreground == b.foreground && a.background == b.background && a.bold == b.bold &&
           a.italic == b.italic;
}

QPalette withTextColors(QPalette palette, const TextFormat &plain, const TextFormat &selected)
{
    palette.setColor(QPalette::Text, plain.foreground);
    palette.setColor(QPalette::Base, plain.background);
    palette.setColor(QPalette::HighlightedText, selected.foreground);
    palette.setColor(QPalette::Highlight, selected.background);
    return palette;
}

TextFormat &textFormat(EditorText category)
{
    static std::array<TextFormat, editorTextCount> current = formats(editorRows);
    return current[size_t(category)];
}

TextFormat &textFormat(OutputText category)
{
    static std::array<TextFormat, outputTextCount> current = formats(outputRows);
    return current[size_t(category)];
}

const char *textName(EditorText category)
{
    return editorRows[size_t(category)].name;
}

const char *textName(OutputText category)
{
    return outputRows[size_t(category)].name;
}

QFont editorFont()
{
    return fixedFont(preferences().textFont, preferences().textFontSize);
}

QFont outputFont()
{
    return fixedFont(preferences().outputFont, preferences().outputFontSize);
}
