// SPDX-License-Identifier: MIT
#include "mainwindow/dialogs.h"

#include "mainwindow/filenames.h"
#include "mainwindow/programnames.h"
#include "workspace/choicebox.h"
#include "workspace/edcodeview.h"
#include "editor/edcodeedit.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStringList>

namespace {

// In the window's context: the texts are its own, wherever they are asked.
QString translated(const char *text)
{
    return QCoreApplication::translate("Kestrowl", text);
}

// Where the dialog starts; empty leaves it to the dialog, which takes the working directory.
QString saveStartPath(const EdCodeView &view, const QString &projectDirectory)
{
    const QString path = view.fileInfo().absoluteFilePath();
    if (!view.isBuffer() && QFileInfo(path).exists()) // as of now: the view's own may be old news
        return path;
    const QDir project(projectDirectory);
    return !projectDirectory.isEmpty() && project.exists() ? project.absolutePath() : QString();
}

// The file dialog asked about the name as it was entered, without the suffix.
bool mayBeOverwritten(QWidget *parent, const QString &path)
{
    const QString question = translated("%1 already exists.\nDo you want to replace it?")
                                 .arg(QFileInfo(path).fileName());
    return !QFileInfo(path).exists() ||
           askYesNo(parent, translated("Save File"), question, QMessageBox::No, QMessageBox::No);
}

} // namespace

SourceType askSourceType(QWidget *parent)
{
    const QStringList answers = QStringList() << translated("MEL") << translated("Python")
                                              << translated("None") << translated("Cancel");
    return static_cast<SourceType>(askChoice(parent, translated("Source Type"),
                                             translated("Specify executor source language."),
                                             answers));
}

SaveStateAnswer askToSaveAll(QWidget *parent)
{
    const QStringList answers = QStringList()
                                << translated("Yes") << translated("No") << translated("Cancel");
    return static_cast<SaveStateAnswer>(askChoice(
        parent, translated("Save All"), translated("Save all files and buffers?"), answers));
}

QString askSaveName(QWidget *parent, const EdCodeView &view, const QString &projectDirectory)
{
    QString filter = saveFilterForLanguage(view.language()); // in: preselected, out: chosen
    const QString name =
        QFileDialog::getSaveFileName(parent, translated("Save File"),
                                     saveStartPath(view, projectDirectory), saveFilters(), &filter);
    if (name.isEmpty())
        return QString();
    const QString completed = nameWithFilterSuffix(name, filter);
    return completed == name || mayBeOverwritten(parent, completed) ? completed : QString();
}

int askLineNumber(QWidget *parent, const EdCodeView &view)
{
    const int lineCount = view.codeEdit()->blockCount();
    const int line = view.codeEdit()->textCursor().blockNumber() + 1;
    const QString label = translated("Line Number (1 - %1):").arg(lineCount);
    return askNumber(parent, translated("Go To Line"), label, line, 1, lineCount).value_or(0);
}

QString askShelfLabel(QWidget *parent)
{
    return askText(parent, translated("New Shelf Item"),
                   translated("Enter name of new shelf item:"))
        .value_or(QString());
}

void presentDialog(QDialog *dialog)
{
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
    dialog->raise();
    dialog->activateWindow();
}

void showLicense(QWidget *parent)
{
    const QString text = translated("%1 is free software under the MIT license.\n"
                                    "It needs no license file; everything in it can be used.");
    showInformation(parent, translated("Licensing"),
                    text.arg(QLatin1String(CORVANE_APPLICATION_NAME)));
}
