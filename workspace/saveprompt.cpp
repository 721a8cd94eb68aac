// SPDX-License-Identifier: MIT
#include "workspace/saveprompt.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("SavePrompt", text);
}

} // namespace

SaveAnswer askToSave(QWidget *parent, const QString &documentName)
{
    QMessageBox box(parent);
    box.setWindowTitle(translated("Save"));
    box.setText(translated("'%1' has been modified. Save changes?").arg(documentName));
    box.setIcon(QMessageBox::Question);
    QPushButton *yes = box.addButton(translated("Yes"), QMessageBox::ActionRole);
    QPushButton *no = box.addButton(translated("No"), QMessageBox::ActionRole);
    box.addButton(translated("Cancel"), QMessageBox::RejectRole);
    box.exec();
    if (box.clickedButton() == yes)
        return SaveAnswer::Save;
    // Escape and closing the box must not lose anything either.
    return box.clickedButton() == no ? SaveAnswer::Discard : SaveAnswer::Cancel;
}
