// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/preferences.h"

#include <QList>
#include <QVariant>

#include <variant>

// The Preferences dialog as tables: which page has which sections, and which section which
// controls. Knows no widget.

// In the order of the dialog's list.
enum class PreferencePage { General, Tabs, Editing, Completion, Outline, Colors, Output };
const int preferencePageCount = int(PreferencePage::Output) + 1;

// As the user reads it.
const char *pageName(PreferencePage page);

// Sections take the whole width of their page, or one of them stands beside the next.
enum class SectionPlace { Whole, Left, Right };

struct PreferenceSection
{
    PreferencePage page;
    const char *title;
    SectionPlace place;
};

enum class ControlKind { Check, Number, Folder, FontFamily, Modules };

// One control, for one preference.
struct PreferenceRow
{
    const char *key; // of the list of preferences
    std::variant<bool Preferences::*, int Preferences::*, QString Preferences::*> member;
    const PreferenceSection *section;
    ControlKind kind;
    const char *label;                            // with "&" before the letter that leads to it
    bool (*isEnabled)(const Preferences &values); // null: always
};

// Both in the order in which the page shows them.
QList<const PreferenceSection *> sectionsOf(PreferencePage page);
QList<const PreferenceRow *> rowsOf(const PreferenceSection &section);
QList<const PreferenceRow *> rowsOf(PreferencePage page);

QVariant valueOf(const PreferenceRow &row, const Preferences &values);
void setValue(const PreferenceRow &row, Preferences &values, const QVariant &value);

// Gives `to` what `from` has for the rows of the page, and leaves its other members alone.
void copyPage(PreferencePage page, const Preferences &from, Preferences &to);
// Whether they differ in anything that the dialog shows.
bool differInRows(const Preferences &a, const Preferences &b);
