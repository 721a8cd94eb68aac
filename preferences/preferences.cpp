// SPDX-License-Identifier: MIT
#include "preferences/preferences.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontInfo>
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

// Goes through the rows, which lie together by groups: one change of the group for each is much
// cheaper than keys with the group in them.
class GroupWalk
{
public:
    explicit GroupWalk(QSettings &settings) : m_settings(settings) {}
    ~GroupWalk() { leave(); }
    GroupWalk(const GroupWalk &) = delete;
    GroupWalk &operator=(const GroupWalk &) = delete;

    template <typename Type>
    void read(const char *group, const char *key, Type &value)
    {
        enter(group);
        const QString name = QLatin1String(key);
        const QVariant stored = m_settings.value(name);
        if (stored.isValid())
            take(name, stored, value);
    }

    template <typename Type>
    void write(const char *group, const char *key, const Type &value)
    {
        enter(group);
        m_settings.setValue(QLatin1String(key), value);
    }

private:
    void enter(const char *group)
    {
        if (qstrcmp(group, m_group) == 0)
            return;
        leave();
        m_settings.beginGroup(QLatin1String(group));
        m_group = group;
    }
    void leave()
    {
        if (m_group)
            m_settings.endGroup();
    }

    QSettings &m_settings;
    const char *m_group = nullptr; // the one that is entered
};

const char wantedFamily[] = "DejaVu Sans Mono";

// The wanted family where it is installed, else what the system has for listings.
QString fixedPitchFamily()
{
    QFont font((QLatin1String(wantedFamily)));
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    return QFontInfo(font).family();
}

} // namespace

QString builtInFontFamily()
{
    // Without an application fonts cannot be asked for; programs that only parse have none.
    if (!QCoreApplication::instance())
        return QLatin1String(wantedFamily);
    static const QString family = fixedPitchFamily();
    return family;
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
    GroupWalk walk(settings);
#define PREFERENCE(group, key, type, byDefault) walk.read(#group, #key, values.key);
#include "preferences/preferencelist.inc"
#undef PREFERENCE
    // Deliberate: marks at line ends are for a look at one text, not for every session.
    values.showEndOfLine = false;
    preferences() = values;
}

void writePreferences(QSettings &settings)
{
    const Preferences &values = preferences();
    GroupWalk walk(settings);
#define PREFERENCE(group, key, type, byDefault) walk.write(#group, #key, values.key);
#include "preferences/preferencelist.inc"
#undef PREFERENCE
}
