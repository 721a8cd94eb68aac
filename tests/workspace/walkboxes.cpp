// SPDX-License-Identifier: MIT
#include "tests/workspace/walkboxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QStringList>
#include <QTimer>

namespace {

QString plainText(const QAbstractButton *button)
{
    return button->text().remove(QLatin1Char('&'));
}

} // namespace

WalkBoxes::WalkBoxes(unsigned seed) : m_random(seed)
{
    qApp->installEventFilter(this);
}

QList<WalkBox> WalkBoxes::take()
{
    const QList<WalkBox> boxes = m_boxes;
    m_boxes.clear();
    return boxes;
}

// At its show event a box does not wait for an answer yet.
bool WalkBoxes::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        const QDialog *dialog = qobject_cast<QDialog *>(object);
        if (dialog && dialog->isModal())
            QTimer::singleShot(0, this, SLOT(answer()));
    }
    return QObject::eventFilter(object, event);
}

void WalkBoxes::answer()
{
    QDialog *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialog)
        return;
    WalkBox box;
    box.title = dialog->windowTitle();
    if (const QMessageBox *message = qobject_cast<QMessageBox *>(dialog))
        box.text = message->text();
    if (QInputDialog *input = qobject_cast<QInputDialog *>(dialog))
        input->setTextValue(m_input);
    QList<QAbstractButton *> buttons;
    for (QAbstractButton *button : dialog->findChildren<QAbstractButton *>()) {
        if (!button->text().isEmpty() && button->isVisible())
            buttons << button;
    }
    const int chosen = int(m_random() % unsigned(buttons.size() + 1));
    QAbstractButton *button = chosen < buttons.size() ? buttons.at(chosen) : nullptr;
    box.answer = button ? plainText(button) : QString::fromLatin1("Escape");
    m_boxes << box;
    if (button) {
        button->click();
        return;
    }
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(dialog, &escape);
}
