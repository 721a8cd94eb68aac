// SPDX-License-Identifier: MIT
#include "workspace/choicebox.h"

#include "compat/text.h"
#include "workspace/filenameedit.h"

#include <QInputDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>
#include <QValidator>

#include <algorithm>

namespace {

const int fewestCharacters = 24; // that a field shows at least
const int mostCharacters = 64;
const int margin = 2; // characters, for the frame and the caret

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

// Turns a number that is too great into the greatest one. A spin box swallows the digit that makes
// it too great, and so takes the beginning of the number for the whole.
class UpToGreatest : public QValidator
{
public:
    // Owned by the box, as the validator that it has had.
    UpToGreatest(QSpinBox *box, const QValidator *validator)
        : QValidator(box), m_box(box), m_validator(validator)
    {
    }

    State validate(QString &input, int &position) const override
    {
        bool isNumber = false;
        const qlonglong number = m_box->locale().toLongLong(input, &isNumber);
        if (isNumber && number > m_box->maximum()) {
            input = QString::number(m_box->maximum());
            position = int(input.size());
        }
        return m_validator->validate(input, position);
    }

private:
    QSpinBox *m_box;
    const QValidator *m_validator;
};

// Asks for a text or a number; a field is wide enough for most texts.
class InputBox : public QInputDialog
{
public:
    InputBox(QWidget *parent, const QString &title, const QString &label)
        : QInputDialog(parent, Qt::WindowTitleHint | Qt::WindowCloseButtonHint) // no help
    {
        setWindowTitle(title);
        setLabelText(label);
    }

    void begin(const QString &text, int selected);

protected:
    void showEvent(QShowEvent *event) override;

private:
    QLineEdit *field() const { return findChild<QLineEdit *>(); } // null in a Qt without one

    int m_selected = 0; // of a text, from its start
};

void InputBox::begin(const QString &text, int selected)
{
    m_selected = selected;
    setTextValue(text);
    const int characters = std::clamp(int(text.size()), fewestCharacters, mostCharacters);
    const QString widest =
        text.left(characters).leftJustified(characters + margin, QLatin1Char('x'));
    if (QLineEdit *edit = field())
        edit->setMinimumWidth(compat::textWidth(edit->fontMetrics(), widest));
}

// Whatever was selected before, the dialog selects all of the text as it opens.
void InputBox::showEvent(QShowEvent *event)
{
    QInputDialog::showEvent(event);
    QLineEdit *edit = field();
    if (edit && m_selected > 0)
        edit->setSelection(0, m_selected);
}

std::optional<QString> answerTo(const QPointer<InputBox> &box)
{
    std::optional<QString> answer;
    if (box->exec() == QDialog::Accepted)
        answer = box->textValue();
    delete box.data();
    return answer;
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
    InputBox *box = new InputBox(parent, title, label);
    box->begin(text, int(text.size()));
    return answerTo(box);
}

std::optional<QString> askFileName(QWidget *parent, const QString &title, const QString &label,
                                   const QString &name)
{
    InputBox *box = new InputBox(parent, title, label);
    box->begin(name, baseNameLength(name));
    return answerTo(box);
}

std::optional<int> askNumber(QWidget *parent, const QString &title, const QString &label, int value,
                             int minimum, int maximum)
{
    const QPointer<QInputDialog> dialog = new InputBox(parent, title, label);
    dialog->setInputMode(QInputDialog::IntInput);
    dialog->setIntRange(minimum, maximum);
    dialog->setIntValue(value);
    // The dialog's own parts, which another Qt may not have; the range holds without this too.
    QSpinBox *box = dialog->findChild<QSpinBox *>();
    QLineEdit *field = box ? box->findChild<QLineEdit *>() : nullptr;
    if (field)
        field->setValidator(new UpToGreatest(box, field->validator()));
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
