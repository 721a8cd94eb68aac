// SPDX-License-Identifier: MIT
#include "preferences/preferencerows.h"

namespace {

const char *const pageNames[] = {
    "General",          "Tabs",   "Editing and Indentation", "Completion", "Outline",
    "Fonts and Colors", "Output",
};

static_assert(sizeof pageNames / sizeof *pageNames == preferencePageCount, "one name per page");

typedef PreferencePage Page;
typedef SectionPlace Place;

// clang-format off
const PreferenceSection windowSection        {Page::General,    "Window",               Place::Whole};
const PreferenceSection mayaSection          {Page::General,    "Maya",                 Place::Whole};
const PreferenceSection executionSection     {Page::General,    "Execution",            Place::Whole};
const PreferenceSection filesSection         {Page::General,    "Files and Buffers",    Place::Whole};
const PreferenceSection projectSection       {Page::General,    "Project",              Place::Whole};
const PreferenceSection tabBarSection        {Page::Tabs,       "Tab Bars",             Place::Whole};
const PreferenceSection newTabSection        {Page::Tabs,       "New Buffers",          Place::Whole};
const PreferenceSection indentSection        {Page::Editing,    "General",              Place::Whole};
const PreferenceSection melEditSection       {Page::Editing,    "MEL",                  Place::Left};
const PreferenceSection pythonEditSection    {Page::Editing,    "Python",               Place::Right};
const PreferenceSection melCompleteSection   {Page::Completion, "MEL Auto-Complete",    Place::Left};
const PreferenceSection pythonCompleteSection{Page::Completion, "Python Auto-Complete", Place::Right};
const PreferenceSection pythonNamesSection   {Page::Completion, "Python Names",         Place::Whole};
const PreferenceSection melOutlineSection    {Page::Outline,    "MEL",                  Place::Whole};
const PreferenceSection pythonOutlineSection {Page::Outline,    "Python",               Place::Whole};
const PreferenceSection textFontSection      {Page::Colors,     "Editor Font",          Place::Whole};
const PreferenceSection outputFontSection    {Page::Output,     "Font",                 Place::Whole};
const PreferenceSection historySection       {Page::Output,     "History",              Place::Whole};
// clang-format on

// When a control can be used: the last column of the rows.
bool (*const always)(const Preferences &) = nullptr;

bool tabBarShown(const Preferences &values)
{
    return values.tabBar;
}

bool melOwnIndent(const Preferences &values)
{
    return !values.melUseDefaults;
}

bool melAutoIndents(const Preferences &values)
{
    return values.melUseDefaults ? values.autoIndent : values.melAutoIndent;
}

bool pythonOwnIndent(const Preferences &values)
{
    return !values.pyUseDefaults;
}

bool pythonAutoIndents(const Preferences &values)
{
    return values.pyUseDefaults ? values.autoIndent : values.pyAutoIndent;
}

const PreferenceRow preferenceRows[] = {
#define CONTROL(section, key, kind, label, isEnabled)                                              \
    {#key, &Preferences::key, &section##Section, ControlKind::kind, label, isEnabled},
#include "preferences/preferencecontrols.inc"
#undef CONTROL
};

} // namespace

const char *pageName(PreferencePage page)
{
    return pageNames[int(page)];
}

QList<const PreferenceRow *> rowsOf(PreferencePage page)
{
    QList<const PreferenceRow *> rows;
    for (const PreferenceRow &row : preferenceRows) {
        if (row.section->page == page)
            rows << &row;
    }
    return rows;
}

QList<const PreferenceRow *> rowsOf(const PreferenceSection &section)
{
    QList<const PreferenceRow *> rows;
    for (const PreferenceRow &row : preferenceRows) {
        if (row.section == &section)
            rows << &row;
    }
    return rows;
}

// Sections have no order but that of their rows.
QList<const PreferenceSection *> sectionsOf(PreferencePage page)
{
    QList<const PreferenceSection *> sections;
    for (const PreferenceRow *row : rowsOf(page)) {
        if (!sections.contains(row->section))
            sections << row->section;
    }
    return sections;
}

QVariant valueOf(const PreferenceRow &row, const Preferences &values)
{
    return std::visit([&values](auto member) { return QVariant(values.*member); }, row.member);
}

void setValue(const PreferenceRow &row, Preferences &values, const QVariant &value)
{
    std::visit(
        [&](auto member) {
            auto &target = values.*member;
            target = value.value<std::decay_t<decltype(target)>>();
        },
        row.member);
}

void copyPage(PreferencePage page, const Preferences &from, Preferences &to)
{
    for (const PreferenceRow *row : rowsOf(page))
        setValue(*row, to, valueOf(*row, from));
}

bool differInRows(const Preferences &a, const Preferences &b)
{
    for (const PreferenceRow &row : preferenceRows) {
        if (valueOf(row, a) != valueOf(row, b))
            return true;
    }
    return false;
}
