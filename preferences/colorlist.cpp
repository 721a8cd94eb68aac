// SPDX-License-Identifier: MIT
#include "preferences/colorlist.h"

#include "preferences/colorsets.h"
#include "preferences/textformats.h"

namespace {

static_assert(editorTextCount == 20 && textFormatListVersion == 1,
              "with more categories, older lists have fewer editor entries before the output's");

QString colorText(const QColor &color)
{
    return color.isValid() ? color.name() : QString(QLatin1Char('-'));
}

QString entryText(const TextFormat &format)
{
    QString text = colorText(format.foreground) + QLatin1Char(' ') + colorText(format.background);
    if (format.bold)
        text += QLatin1String(" bold");
    if (format.italic)
        text += QLatin1String(" italic");
    return text;
}

// #rrggbb alone: QColor also takes names, which differ between its versions.
bool readColor(const QString &text, QColor *color)
{
    *color = QColor();
    if (text == QLatin1String("-"))
        return true;
    if (text.size() != 7 || !text.startsWith(QLatin1Char('#')))
        return false;
    *color = QColor(text);
    return color->isValid();
}

bool readStyle(const QStringList &words, TextFormat *format)
{
    for (const QString &word : words) {
        bool &style = word == QLatin1String("bold") ? format->bold : format->italic;
        if (style || (word != QLatin1String("bold") && word != QLatin1String("italic")))
            return false;
        style = true;
    }
    return true;
}

// False for an entry that is not one; `format` is unchanged then.
bool readEntry(const QString &text, bool needsColors, TextFormat *format)
{
    const QStringList words = text.split(QLatin1Char(' '));
    TextFormat read;
    if (words.size() < 2 || !readColor(words[0], &read.foreground) ||
        !readColor(words[1], &read.background) || !readStyle(words.mid(2), &read))
        return false;
    if (needsColors && !(read.foreground.isValid() && read.background.isValid()))
        return false;
    *format = read;
    return true;
}

ColorSet suitingSet(const QStringList &list)
{
    TextFormat plain = builtInFormat(EditorText::Plain, ColorSet::Dark);
    readEntry(list.value(0), true, &plain);
    const bool isLight = plain.background.lightness() > plain.foreground.lightness();
    return isLight ? ColorSet::Light : ColorSet::Dark;
}

// Where a list has the category. One of a later version has more of the editor's, in front of those
// of the output.
int placeInList(int index, const QStringList &list, int version)
{
    const int added = version > textFormatListVersion ? qMax(int(list.size()) - textCount, 0) : 0;
    return index < editorTextCount ? index : index + added;
}

} // namespace

QStringList textFormatList()
{
    QStringList list;
    for (int i = 0; i < textCount; ++i)
        list << entryText(textFormats()[i]);
    return list;
}

void readTextFormatList(const QStringList &list, int version)
{
    useColorSet(suitingSet(list));
    for (int i = 0; i < textCount; ++i)
        readEntry(list.value(placeInList(i, list, version)), needsColors(i), &textFormats()[i]);
}
