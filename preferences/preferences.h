// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QSettings;

// A fixed-pitch family.
QString builtInFontFamily();

// The process-wide preferences, one member per row of the list. Whoever acts reads the current
// value; nobody is told of changes.
struct Preferences
{
#define PREFERENCE(group, key, type, byDefault) type key = byDefault;
#include "preferences/preferencelist.inc"
#undef PREFERENCE
};

Preferences &preferences();

// Keys that are missing, empty, of another type or out of range take their defaults.
void readPreferences(QSettings &settings);
void writePreferences(QSettings &settings);
