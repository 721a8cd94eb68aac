// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QTextCharFormat>

#include <array>

struct Preferences;

// What a stretch of text looks like, fonts apart. An invalid colour leaves that of the plain text.
struct TextFormat
{
    QColor foreground;
    QColor background;
    bool bold = false;
    bool italic = false;

    // Sets nothing but what is asked for, so that formats can lie over each other.
    QTextCharFormat charFormat() const;
};

bool operator==(const TextFormat &a, const TextFormat &b);

// What the editor tells apart. The index is a category's identity wherever colours are listed, so
// new ones go to the end.
enum class EditorText {
    Plain,
    Selected,
    MatchingSelection,
    CurrentLine,
    BraceMatching,
    HiddenWhitespace,
    LineNumbers,
    ErrorBar,
    MelKeywords,
    MelCommands,
    MelStrings,
    MelNumbers,
    MelComments,
    PythonKeywords,
    PythonStrings,
    PythonDocStrings,
    PythonNumbers,
    PythonComments,
    PythonDecorators,
    PythonMelCommands
};

// The same for the output.
enum class OutputText { Plain, Selected, MatchingSelection, Errors, Warnings, Results };

const int editorTextCount = int(EditorText::PythonMelCommands) + 1;
const int outputTextCount = int(OutputText::Results) + 1;

// All categories in one row: those of the editor, then those of the output.
const int textCount = editorTextCount + outputTextCount;
constexpr int textIndex(EditorText category)
{
    return int(category);
}
constexpr int textIndex(OutputText category)
{
    return editorTextCount + int(category);
}

// Whether the category cannot leave a colour open: palettes are made of the plain and of the
// selected text.
bool needsColors(int textIndex);

// A format for every category.
class TextFormats
{
public:
    TextFormat &operator[](int textIndex) { return m_formats[size_t(textIndex)]; }
    const TextFormat &operator[](int textIndex) const { return m_formats[size_t(textIndex)]; }
    TextFormat &operator[](EditorText category) { return (*this)[textIndex(category)]; }
    const TextFormat &operator[](EditorText category) const { return (*this)[textIndex(category)]; }
    TextFormat &operator[](OutputText category) { return (*this)[textIndex(category)]; }
    const TextFormat &operator[](OutputText category) const { return (*this)[textIndex(category)]; }

    bool operator==(const TextFormats &other) const { return m_formats == other.m_formats; }

private:
    std::array<TextFormat, size_t(textCount)> m_formats;
};

// The format that has the colours which the category leaves open: that of the plain text around it.
const TextFormat &plainFormat(const TextFormats &formats, int textIndex);

// The formats that are built in: for Maya's dark palette, and for those who read dark on light.
enum class ColorSet { Dark, Light };

// The current formats; process-wide and changeable, those of the dark set at first. Whoever has
// taken one is not told of a change.
TextFormats &textFormats();
TextFormat &textFormat(EditorText category);
TextFormat &textFormat(OutputText category);

// Makes a set's formats the current ones, all of them.
void useColorSet(ColorSet set);

// The fonts that the preferences ask for, sizes in points; where the family is not installed,
// another of fixed pitch. Without an argument: the current preferences.
QFont editorFont();
QFont editorFont(const Preferences &values);
QFont outputFont();
QFont outputFont(const Preferences &values);
