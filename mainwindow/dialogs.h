// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class EdCodeView;
class QDialog;
class QWidget;

// The questions that the window's commands ask. Each returns the answer, or nothing (an empty
// text, 0, ...) when the user cancelled. All are modal and do nothing but ask: acting on the
// answer is the command's part.

// The enumerators stand in the order of the buttons.
enum class SourceType { Mel, Python, Text, Cancelled };
SourceType askSourceType(QWidget *parent);

// Whether the settings are saved with all documents or alone.
enum class SaveStateAnswer { SaveAll, SettingsOnly, Cancelled };
SaveStateAnswer askToSaveAll(QWidget *parent);

// A name with the suffix of the chosen filter; the dialog starts at the view's file or else in
// the project directory.
QString askSaveName(QWidget *parent, const EdCodeView &view, const QString &projectDirectory);

// A line number of the view's document, counted from 1; offers the caret's. 0: cancelled.
int askLineNumber(QWidget *parent, const EdCodeView &view);

// The text of a new shelf button.
QString askShelfLabel(QWidget *parent);

// Shows a dialog that goes when it is closed, and returns at once: Maya may quit and take the
// window with it meanwhile.
void presentDialog(QDialog *dialog);

// Only tells, and returns when the user has closed it.
void showLicense(QWidget *parent);
