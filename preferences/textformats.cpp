// SPDX-License-Identifier: MIT
#include "preferences/textformats.h"

#include "preferences/colorsets.h"
#include "preferences/preferences.h"

#include <array>

namespace {

template <class Category, int count>
std::array<TextFormat, count> builtInFormats(ColorSet set)
{
    std::array<TextFormat, count> formats;
    for (int i = 0; i < count; ++i)
        formats[size_t(i)] = builtInFormat(Category(i), set);
    return formats;
}

// Each is filled at its first use.
std::array<TextFormat, editorTextCount> &editorFormats()
{
    static auto formats = builtInFormats<EditorText, editorTextCount>(ColorSet::Dark);
    return formats;
}

std::array<TextFormat, outputTextCount> &outputFormats()
{
    static auto formats = builtInFormats<OutputText, outputTextCount>(ColorSet::Dark);
    return formats;
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
    return editorFormats()[size_t(category)];
}

TextFormat &textFormat(OutputText category)
{
    return outputFormats()[size_t(category)];
}

void useColorSet(ColorSet set)
{
    editorFormats() = builtInFormats<EditorText, editorTextCount>(set);
    outputFormats() = builtInFormats<OutputText, outputTextCount>(set);
}

QFont editorFont()
{
    return fixedFont(preferences().textFont, preferences().textFontSize);
}

QFont outputFont()
{
    return fixedFont(preferences().outputFont, preferences().outputFontSize);
}
