// SPDX-License-Identifier: MIT
#include "workspace/licenselimits.h"

#include "licensing/license.h"
#include "workspace/choicebox.h"

#include <QCoreApplication>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("LicenseLimits", text);
}

void explain(QWidget *parent, const QString &limit)
{
    const QString reason = (licenseProblem() + QLatin1Char(' ') + limit).trimmed();
    showInformation(parent, translated("Demo"),
                    reason + QLatin1String("\n\n") +
                        translated("Help > Licensing... takes a license file, which lifts this."));
}

} // namespace

bool mayWriteFiles(QWidget *parent)
{
    if (!savingAllowed())
        explain(parent, translated("The demo does not save to files. Buffers are kept, and so is "
                                   "the unsaved text of files."));
    return savingAllowed();
}

bool mayOpenAnother(QWidget *parent, int openDocuments)
{
    const bool isAllowed = openDocuments < tabLimit();
    if (!isAllowed)
        explain(
            parent,
            translated("The demo opens at most %1 documents. Close one first.").arg(tabLimit()));
    return isAllowed;
}
