// SPDX-License-Identifier: MIT
#include "workspace/choicebox.h"

#include <QInputDialog>
#include <QPointer>
#include <QPushButton>

namespace {

QMessageBox *newBox(QMessageBox::Icon icon, QWidget *parent, const QString &title,
                    const QString &text)
{
    QMessageBox *box = new QMessageBox(icon, title, text, QMessageBox::NoButton, parent);
    box->setTextFormat(Qt::PlainText);
    return box;
}

// Deletes the box. Returns which of the buttons the user chose; -1 for none of them.
int chosenButton(QMessageBox *box, const QList<QAbstractButton *> &buttons)
{
    const QPointer<QMessageBox> guard = box;
    box->exec();
    if (!guard)
        return -1;
    const int chosen = int(buttons.indexOf(box->clickedButton()));
    delete box;
    return chosen;
}

void show(QMessageBox *box)
{
    box->addButton(QMessageBox::Ok);
    chosenButton(box, {});
}

QInputDialog *newInput(QWidget *parent, const QString &title, const QString &label)
{
    const Qt::WindowFlags withoutHelp = Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
    QInputDialog *dialog = new QInputDialog(parent, withoutHelp);
    dialog->setWindowTitle(title);
    dialog->setLabelText(label);
    return dialog;
}

} // namespace

int askChoice(QWidget *parent, const QString &title, const QString &question,
              const QStringList &answers, QMessageBox::ButtonRole lastRole, int preset)
{
    QMessageBox *box = newBox(QMessageBox::Question, parent, title, question);
    const int last = int(answers.size()) - 1;
    QList<QAbstractButton *> buttons;
    // Of one role, so that no platform puts them into another order.
    for (int i = 0; i <= last; ++i) {
        QPushButton *button =
            box->addButton(answers.at(i), i < last ? QMessageBox::ActionRole : lastRole);
        buttons << button;
        if (i == preset)
            box->setDefaultButton(button);
    }
    box->setEscapeButton(buttons.last());
    const int chosen = chosenButton(box, buttons);
    return chosen < 0 ? last : chosen;
}

bool askYesNo(QWidget *parent, const QString &title, const QString &question,
              QMessageBox::StandardButton preset, QMessageBox::StandardButton escape)
{
    QMessageBox *box = newBox(QMessageBox::Question, parent, title, question);
    box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(preset);
    box->setEscapeButton(escape);
    const QList<QAbstractButton *> buttons =
        QList<QAbstractButton *>() << box->button(QMessageBox::Yes) << box->button(QMessageBox::No);
    const int chosen = chosenButton(box, buttons);
    return chosen < 0 ? escape == QMessageBox::Yes : chosen == 0;
}

std::optional<QString> askText(QWidget *parent, const QString &title, const QString &label,
                               const QString &text)
{
    const QPointer<QInputDialog> dialog = newInput(parent, title, label);
    dialog->setTextValue(text);
    std::optional<QString> answer;
    if (dialog->exec() == QDialog::Accepted)
        answer = dialog->textValue();
    delete dialog.data();
    return answer;
}

std::optional<int> askNumber(QWidget *parent, const QString &title, const QString &label, int value,
                             int minimum, int maximum)
{
    const QPointer<QInputDialog> dialog = newInput(parent, title, label);
    dialog->setInputMode(QInputDialog::IntInput);
    dialog->setIntRange(minimum, maximum);
    dialog->setIntValue(value);
    std::optional<int> answer;
    if (dialog->exec() == QDialog::Accepted)
        answer = dialog->intValue();
    delete dialog.data();
    return answer;
}

void showWarning(QWidget *parent, const QString &title, const QString &text)
{
    show(newBox(QMessageBox::Warning, parent, title, text));
}

void showInformation(QWidget *parent, const QString &title, const QString &text)
{
    show(newBox(QMessageBox::Information, parent, title, text));
}
