// SPDX-License-Identifier: MIT
#pragma once

#include <QMessageBox>
#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

// The boxes that wait for the user. Names in their texts are shown as they are, even where they
// look like markup. What runs while a box is open may delete its parent, and the box with it: that
// is an answer as closing the box is, and whoever asked may be gone as well.

// Asks a question with one button for each answer and returns the index of the answer. Escape and
// closing the box give the last one, Return gives `preset`.
int askChoice(QWidget *parent, const QString &title, const QString &question,
              const QStringList &answers,
              QMessageBox::ButtonRole lastRole = QMessageBox::RejectRole, int preset = 0);
// Asks with the platform's "Yes" and "No": Return gives `preset`, Escape and closing the box give
// `escape`.
bool askYesNo(QWidget *parent, const QString &title, const QString &question,
              QMessageBox::StandardButton preset, QMessageBox::StandardButton escape);
// Nothing when the user cancelled.
std::optional<QString> askText(QWidget *parent, const QString &title, const QString &label,
                               const QString &text = QString());
// The same, with all but the suffix of the name selected.
std::optional<QString> askFileName(QWidget *parent, const QString &title, const QString &label,
                                   const QString &name);
std::optional<int> askNumber(QWidget *parent, const QString &title, const QString &label, int value,
                             int minimum, int maximum);

void showWarning(QWidget *parent, const QString &title, const QString &text);
void showInformation(QWidget *parent, const QString &title, const QString &text);
