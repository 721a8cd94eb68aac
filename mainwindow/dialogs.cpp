// SPDX-License-Identifier: MIT
#include "mainwindow/dialogs.h"

#include "mainwindow/filenames.h"
#include "mainwindow/programnames.h"
#include "workspace/edcodeview.h"
#include "workspace/plaincodeedit.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("Kestrowl", text);
}

QString saveStartPath(const EdCodeView &view, const QString &projectDirectory)
{
    if (!view.isBuffer() && view.fileInfo().exists())
        return view.fileInfo().absoluteFilePath();
    const QDir project(projectDirectory);
    return !projectDirectory.isEmpty() && project.exists() ? project.absolutePath() : QString();
}

} // namespace

SourceType askSourceType(QWidget *parent)
{
    QMessageBox box(parent);
    box.setWindowTitle(translated("Source Type"));
    box.setText(translated("Specify executor source language."));
    box.setIcon(QMessageBox::Question);
    QPushButton *mel = box.addButton(translated("MEL"), QMessageBox::ActionRole);
    QPushButton *python = box.addButton(translated("Python"), QMessageBox::ActionRole);
    QPushButton *none = box.addButton(translated("None"), QMessageBox::ActionRole);
    box.addButton(translated("Cancel"), QMessageBox::RejectRole);
    box.exec();
    if (box.clickedButton() == mel)
        return SourceType::Mel;
    if (box.clickedButton() == python)
        return SourceType::Python;
    return box.clickedButton() == none ? SourceType::Text : SourceType::Cancelled;
}

SaveStateAnswer askToSaveAll(QWidget *parent)
{
    QMessageBox box(parent);
    box.setWindowTitle(translated("Save All"));
    box.setText(translated("Save all files and buffers?"));
    box.setIcon(QMessageBox::Question);
    QPushButton *yes = box.addButton(translated("Yes"), QMessageBox::ActionRole);
    QPushButton *no = box.addButton(translated("No"), QMessageBox::ActionRole);
    box.addButton(translated("Cancel"), QMessageBox::RejectRole);
    box.exec();
    if (box.clickedButton() == yes)
        return SaveStateAnswer::SaveAll;
    return box.clickedButton() == no ? SaveStateAnswer::SettingsOnly : SaveStateAnswer::Cancelled;
}

QString askSaveName(QWidget *parent, const EdCodeView &view, const QString &projectDirectory)
{
    QString filter = saveFilterForLanguage(view.language());
    const QString name =
        QFileDialog::getSaveFileName(parent, translated("Save File"),
                                     saveStartPath(view, projectDirectory), saveFilters(), &filter);
    return name.isEmpty() ? QString() : nameWithFilterSuffix(name, filter);
}

int askLineNumber(QWidget *parent, const EdCodeView &view)
{
    const int lineCount = view.codeEdit()->blockCount();
    const int line = view.codeEdit()->textCursor().blockNumber() + 1;
    const QString label = translated("Line Number (1 - %1):").arg(lineCount);
    bool accepted = false;
    const int chosen =
        QInputDialog::getInt(parent, translated("Go To Line"), label, line, 1, lineCount, 1,
                             &accepted, Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    return accepted ? chosen : 0;
}

QString askShelfLabel(QWidget *parent)
{
    bool accepted = false;
    const QString label = QInputDialog::getText(parent, translated("New Shelf Item"),
                                                translated("Enter name of new shelf item:"),
                                                QLineEdit::Normal, QString(), &accepted);
    return accepted ? label : QString();
}

void showAbout(QWidget *parent)
{
    const QString name = QLatin1String(CORVANE_APPLICATION_NAME);
    const QString text = translated("<h3>%1 %2</h3><p>A code editor for MEL and Python.</p>"
                                    "<p>Running with Qt %3.</p>");
    QMessageBox::about(parent, translated("About %1").arg(name),
                       text.arg(name, QLatin1String(CORVANE_VERSION), QLatin1String(qVersion())));
}

void showLicense(QWidget *parent)
{
    const QString text = translated("%1 is free software under the MIT license.\n"
                                    "Everything in it can be used without a licence key.");
    QMessageBox::information(parent, translated("Licensing"),
                             text.arg(QLatin1String(CORVANE_APPLICATION_NAME)));
}
