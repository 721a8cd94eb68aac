// SPDX-License-Identifier: MIT
#include "preferences/textformats.h"

#include "preferences/colorsets.h"
#include "preferences/preferences.h"

namespace {

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

bool needsColors(int index)
{
    return index == textIndex(EditorText::Plain) || index == textIndex(EditorText::Selected) ||
           index == textIndex(OutputText::Plain) || index == textIndex(OutputText::Selected);
}

const TextFormat &plainFormat(const TextFormats &formats, int index)
{
    const bool isEditor = index < editorTextCount;
    return isEditor ? formats[EditorText::Plain] : formats[OutputText::Plain];
}

TextFormats &textFormats()
{
    static TextFormats formats = builtInFormats(ColorSet::Dark);
    return formats;
}

TextFormat &textFormat(EditorText category)
{
    return textFormats()[category];
}

TextFormat &textFormat(OutputText category)
{
    return textFormats()[category];
}

void useColorSet(ColorSet set)
{
    textFormats() = builtInFormats(set);
}

QFont editorFont()
{
    return editorFont(preferences());
}

QFont editorFont(const Preferences &values)
{
    return fixedFont(values.textFont, values.textFontSize);
}

QFont outputFont()
{
    return outputFont(preferences());
}

QFont outputFont(const Preferences &values)
{
    return fixedFont(values.outputFont, values.outputFontSize);
}
