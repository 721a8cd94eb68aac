// SPDX-License-Identifier: MIT
#include "standin/program/editorsteps.h"

#include "compat/picture.h"
#include "standin/host/idlequeue.h"
#include "standin/host/session.h"
#include "standin/ui/mainwindow.h"
#include "standin/ui/userinterface.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPixmap>
#include <QPlainTextEdit>

#include <cstdio>

namespace standin {

namespace {

// By class name, for the classes belong to the plug-in.
const char editorClass[] = "Kestrowl";
const char historyClass[] = "EdOutputView";
// Several frames, of which the editor needs one.
const int settlingMilliseconds = 150;

QWidget *editorWindow()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->inherits(editorClass))
            return widget;
    }
    return nullptr;
}

// Null as long as the editor has not been made.
QPlainTextEdit *editorHistory()
{
    if (!editorWindow())
        return nullptr;
    for (QPlainTextEdit *view : editorWindow()->findChildren<QPlainTextEdit *>()) {
        if (view->inherits(historyClass))
            return view;
    }
    return nullptr;
}

// Some of the editor's work is gathered and done once per frame.
void processEvents(Session &session)
{
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < settlingMilliseconds) {
        QCoreApplication::processEvents();
        session.idleQueue().processUntilEmpty();
    }
}

QString openFile(UserInterface &ui, const QString &file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    if (!QFileInfo(path).isFile())
        return "Cannot open file \"" + file + "\".";
    // Fails when the plug-in is not loaded; its error has been reported.
    if (!ui.session().executeMel("corvaneEditor", false).ok || !editorWindow())
        return "The editor cannot be shown.";
    // Complete, whatever the history's usual limit is.
    if (QPlainTextEdit *history = editorHistory())
        history->setMaximumBlockCount(0);
    // The slot returns nothing; false only when there is no such slot.
    const bool isOpen = QMetaObject::invokeMethod(editorWindow(), "open", Q_ARG(QString, path));
    processEvents(ui.session());
    return isOpen ? QString() : "The editor cannot open \"" + file + "\".";
}

QString executeDocument(UserInterface &ui)
{
    // The slot that Execute All calls.
    if (!editorWindow() || !QMetaObject::invokeMethod(editorWindow(), "executeAll"))
        return "There is no editor to execute in.";
    ui.session().idleQueue().processUntilEmpty();
    return QString();
}

QString printHistory(UserInterface &ui)
{
    const QPlainTextEdit *history = editorHistory();
    if (!history)
        return "There is no editor with an output history.";
    processEvents(ui.session());
    const QByteArray text = history->toPlainText().toUtf8();
    // Bytes as they are: the text may hold anything, and the terminal is taken to speak UTF-8.
    std::fwrite(text.constData(), 1, static_cast<size_t>(text.size()), stdout);
    if (!text.isEmpty() && !text.endsWith('\n'))
        std::fputc('\n', stdout);
    std::fflush(stdout);
    return QString();
}

QString savePicture(UserInterface &ui, QWidget *window, const QString &file)
{
    processEvents(ui.session());
    if (!compat::pictureOf(window).save(file))
        return "Cannot write file \"" + file + "\".";
    return QString();
}

} // namespace

QString runEditorStep(UserInterface &ui, const Step &step)
{
    QWidget *editor = editorWindow();
    switch (step.kind) {
    case StepKind::Open:
        return openFile(ui, step.argument);
    case StepKind::Execute:
        return executeDocument(ui);
    case StepKind::PrintOutput:
        return printHistory(ui);
    case StepKind::Screenshot:
        return savePicture(ui, editor && editor->isVisible() ? editor : ui.mainWindow(),
                           step.argument);
    default:
        return savePicture(ui, ui.mainWindow(), step.argument);
    }
}

} // namespace standin
