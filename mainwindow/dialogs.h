// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class EdCodeView;
class QWidget;

// The questions that the window's commands ask. Each returns the answer, or nothing (an empty
// text, 0, ...) when the user cancelled.

// The enumerators stand in the order of the buttons.
enum class SourceType { Mel, Python, Text, Cancelled };
SourceType askSourceType(QWidget *parent);

enum class SaveStateAnswer { SaveAll, SettingsOnly, Cancelled };
SaveStateAnswer askToSaveAll(QWidget *parent);

// A name with the suffix of the chosen filter; the dialog starts at the view's file or else in
// the project directory.
QString askSaveName(QWidget *parent, const EdCodeView &view, const QString &projectDirectory);

// A line number, counted from 1.
int askLineNumber(QWidget *parent, const EdCodeView &view);

QString askShelfLabel(QWidget *parent);

void showAbout(QWidget *parent);
void showLicense(QWidget *parent);
