// SPDX-License-Identifier: MIT
#include "workspace/saveprompt.h"

#include "workspace/choicebox.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("SavePrompt", text);
}

} // namespace

SaveAnswer askToSave(QWidget *parent, const QString &documentName)
{
    const QString question = translated("'%1' has been modified. Save changes?").arg(documentName);
    const QStringList answers = QStringList()
                                << translated("Yes") << translated("No") << translated("Cancel");
    return static_cast<SaveAnswer>(askChoice(parent, translated("Save"), question, answers));
}
