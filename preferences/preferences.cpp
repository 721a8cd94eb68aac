// SPDX-License-Identifier: MIT
#include "preferences/preferences.h"

#include <QSettings>
#include <QVariant>

namespace {

// What a number may be, both ends included. Beyond it a file that was edited by hand would break
// the editor: a tab of 0 columns, a history without end.
struct Range
{
    const char *key;
    int minimum;
    int maximum;
};

const Range ranges[] = {
    {"outputWindowBufferSize", 1, 10 * 1000 * 1000},
    {"tabSize", 1, 64},
    {"melTabSize", 1, 64},
    {"pyTabSize", 1, 64},
    {"textFontSize", 1, 400},
    {"outputFontSize", 1, 400},
};

// A key without a row takes any number.
bool isInRange(const QString &key, int value)
{
    for (const Range &range : ranges) {
        if (key == QLatin1String(range.key))
            return value >= range.minimum && value <= range.maximum;
    }
    return true;
}

// The file has texts; toBool() would take any that is not "false" or "0" for true.
void take(const QString &, const QVariant &stored, bool &value)
{
    const QString text = stored.toString();
    if (text == QLatin1String("true") || text == QLatin1String("false"))
        value = text == QLatin1String("true");
}

void take(const QString &key, const QVariant &stored, int &value)
{
    bool isNumber = false;
    const int number = stored.toInt(&isNumber);
    if (isNumber && isInRange(key, number))
        value = number;
}

// An empty text counts as missing: it keeps the built-in font and the directory of scripts.
void take(const QString &, const QVariant &stored, QString &value)
{
    const QString text = stored.toString();
    if (!text.isEmpty())
        value = text;
}

QString settingsKey(const char *group, const char *key)
{
    return QLatin1String(group) + QLatin1Char('/') + QLatin1String(key);
}

template <typename Type>
void read(QSettings &settings, const char *group, const char *key, Type &value)
{
    const QVariant stored = settings.value(settingsKey(group, key));
    if (stored.isValid())
        take(QLatin1String(key), stored, value);
}

} // namespace

QString builtInFontFamily()
{
    return QLatin1String("DejaVu Sans Mono");
}

Preferences &preferences()
{
    static Preferences instance;
    return instance;
}

void readPreferences(QSettings &settings)
{
    Preferences values; // the defaults, so that nothing of an earlier reading is left
#define PREFERENCE(group, key, type, byDefault) read(settings, #group, #key, values.key);
#include "preferences/preferencelist.inc"
#undef PREFERENCE
    // Deliberate: marks at line ends are for a look at one text, not for every session.
    values.showEndOfLine = false;
    preferences() = values;
}

void writePreferences(QSettings &settings)
{
    const Preferences &values = preferences();
#define PREFERENCE(group, key, type, byDefault)                                                    \
    settings.setValue(settingsKey(#group, #key), values.key);
#include "preferences/preferencelist.inc"
#undef PREFERENCE
}
