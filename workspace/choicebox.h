// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

// Asks a question with one button for each answer and returns the index of the answer. The last one
// cancels: Escape and closing the box are the same.
int askChoice(QWidget *parent, const QString &title, const QString &question,
              const QStringList &answers);
