// SPDX-License-Identifier: MIT
#include "tests/support/modalanswer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

namespace {

const int interval = 5; // ms
const int maximumAttempts = 2000;

QString plainText(const QAbstractButton *button)
{
    return button->text().remove(QLatin1Char('&'));
}

} // namespace

ModalAnswer::ModalAnswer(const QString &button) : m_button(button)
{
    QTimer::singleShot(interval, this, SLOT(answer()));
}

void ModalAnswer::answer()
{
    if (wasAsked() && !m_dialog && !turnToNext())
        return;
    // Before the click, which may well open another dialog.
    QTimer::singleShot(interval, this, SLOT(answer()));
    QDialog *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialog)
        return;
    if (!m_dialog) {
        m_dialog = dialog;
        readDialog(dialog);
    }
    if (!m_input.isEmpty() && dialog == m_dialog)
        enterInput(dialog);
    // A file dialog enables its button only once it has read the folder; one that never does, or
    // complains in a box of its own, fails the test instead of holding it up.
    if (dialog != m_dialog || ++m_attempts > maximumAttempts)
        dialog->reject();
    else
        press(dialog);
    if (m_dialog && !m_dialog->isVisible())
        m_dialog = nullptr;
}

bool ModalAnswer::turnToNext()
{
    if (m_nextButton.isEmpty())
        return false;
    m_button = m_nextButton;
    m_nextButton.clear();
    m_input.clear();
    m_title = QString();
    return true;
}

void ModalAnswer::readDialog(QDialog *dialog)
{
    m_buttons.clear();
    m_defaultButton.clear();
    m_title = dialog->windowTitle().isNull() ? QString::fromLatin1("") : dialog->windowTitle();
    if (QMessageBox *box = qobject_cast<QMessageBox *>(dialog)) {
        m_text = box->text();
        m_textFormat = box->textFormat();
    } else if (QInputDialog *input = qobject_cast<QInputDialog *>(dialog)) {
        m_text = input->labelText();
        readField(input->findChild<QLineEdit *>());
    }
    for (QAbstractButton *button : dialog->findChildren<QAbstractButton *>()) {
        if (!plainText(button).isEmpty())
            m_buttons << plainText(button);
        const QPushButton *push = qobject_cast<QPushButton *>(button);
        if (push && push->isDefault())
            m_defaultButton = plainText(button);
    }
    m_buttons.sort();
}

void ModalAnswer::readField(const QLineEdit *field)
{
    m_selection = field->selectedText();
    const int width = field->fontMetrics().boundingRect(field->text()).width();
    m_showsWholeText = field->width() >= width;
}

void ModalAnswer::enterInput(QDialog *dialog)
{
    QInputDialog *input = qobject_cast<QInputDialog *>(dialog);
    if (QFileDialog *files = qobject_cast<QFileDialog *>(dialog)) {
        QLineEdit *name = files->findChild<QLineEdit *>(QString::fromLatin1("fileNameEdit"));
        // Anew each time: the dialog looks for the name only when it changes.
        if (name)
            name->clear();
        files->selectFile(m_input);
        // Which leaves the name alone while it has the focus.
        if (name && name->text().isEmpty())
            name->setText(QFileInfo(m_input).fileName());
    } else if (QColorDialog *colors = qobject_cast<QColorDialog *>(dialog))
        colors->setCurrentColor(QColor(m_input));
    else if (input && input->inputMode() == QInputDialog::IntInput) {
        QSpinBox *box = input->findChild<QSpinBox *>();
        box->selectAll();
        QTest::keyClicks(box, m_input);
    } else if (input)
        input->setTextValue(m_input);
}

void ModalAnswer::press(QDialog *dialog)
{
    for (QAbstractButton *button : dialog->findChildren<QAbstractButton *>()) {
        if (plainText(button) == m_button) {
            button->click();
            return;
        }
    }
    dialog->reject();
}
