// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QSettings;

// An installed fixed-pitch family, for editor and output alike until the user chooses another.
// Needs the application.
QString builtInFontFamily();

// The process-wide preferences, one member per row of the list. Whoever acts reads the current
// value; nobody is told of changes. For the GUI thread. What they mean is said in the list.
struct Preferences
{
#define PREFERENCE(group, key, type, byDefault) type key = byDefault;
#include "preferences/preferencelist.inc"
#undef PREFERENCE
};

// One instance, changed by the menus too; it holds the defaults until settings are read.
Preferences &preferences();

// What a number may be, both ends included. Beyond it a settings file that was edited by hand, or
// a slip in the dialog, would break the editor: a tab of 0 columns, a history without end.
struct NumberRange
{
    int minimum;
    int maximum;
};

// A key that needs no bounds may be any number.
NumberRange numberRange(const QString &key);

// Keys that are missing, empty, of another type or out of range take their defaults, whatever the
// values were before.
void readPreferences(QSettings &settings);
// Writes every key, defaults too, and leaves other keys of the file alone.
void writePreferences(QSettings &settings);
