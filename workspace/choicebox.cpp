// SPDX-License-Identifier: MIT
#include "workspace/choicebox.h"

#include <QAbstractButton>
#include <QList>
#include <QMessageBox>
#include <QPushButton>

int askChoice(QWidget *parent, const QString &title, const QString &question,
              const QStringList &answers)
{
    QMessageBox box(parent);
    box.setWindowTitle(title);
    box.setText(question);
    box.setIcon(QMessageBox::Question);
    QList<QAbstractButton *> buttons;
    // Of one role, so that no platform puts them into another order.
    for (int i = 0; i + 1 < answers.size(); ++i)
        buttons << box.addButton(answers.at(i), QMessageBox::ActionRole);
    box.addButton(answers.last(), QMessageBox::RejectRole);
    box.exec();
    const int chosen = int(buttons.indexOf(box.clickedButton()));
    return chosen < 0 ? int(answers.size()) - 1 : chosen;
}
