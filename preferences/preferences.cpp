// SPDX-License-Identifier: MIT
#include "preferences/preferences.h"

#include <QSettings>
#include <QVariant>

#include <limits>

namespace {

struct RangeRow
{
    const char *key;
    NumberRange range;
};

const RangeRow rangeRows[] = {
    {"outputWindowBufferSize", {1, 10 * 1000 * 1000}},
    {"tabSize", {1, 64}},
    {"melTabSize", {1, 64}},
    {"pyTabSize", {1, 64}},
    {"textFontSize", {1, 400}},
    {"outputFontSize", {1, 400}},
};

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
    const NumberRange range = numberRange(key);
    if (isNumber && number >= range.minimum && number <= range.maximum)
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

NumberRange numberRange(const QString &key)
{
    for (const RangeRow &row : rangeRows) {
        if (key == QLatin1String(row.key))
            return row.range;
    }
    return {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
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
