// SPDX-License-Identifier: MIT
// The window's commands on documents: files and buffers, editing, executing.
#include "mainwindow/kestrowl.h"

#include "editor/findrequest.h"
#include "licensing/license.h"
#include "mainwindow/dialogs.h"
#include "mainwindow/findsession.h"
#include "mainwindow/programnames.h"
#include "output/edoutputview.h"
#include "preferences/preferences.h"
#include "preferences/preferencesdialog.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/edexplorerview.h"
#include "workspace/licenselimits.h"

#include <QFileDialog>
#include <QFileInfo>

namespace {

// Where the dialogs start, in the windows to come too; null before the first.
QString lastOpenDirectory;
QString lastSourcePath; // a directory, later the last file

QString orElse(const QString &path, const QString &otherwise)
{
    return path.isNull() ? otherwise : path;
}

} // namespace

EdCodeView *Kestrowl::currentView() const
{
    return m_central->currentCodeView();
}

// The dialog offers plain text as well, which has no number.
void Kestrowl::newBuffer(int bufferType)
{
    if (!m_central->mayOpenAnother()) // before anything is asked
        return;
    SourceType type = bufferType == 0 ? SourceType::Mel : SourceType::Python;
    if (bufferType != 0 && bufferType != 1)
        type = askSourceType(this);
    if (type == SourceType::Mel)
        m_central->newMelBuffer();
    else if (type == SourceType::Python)
        m_central->newPythonBuffer();
    else if (type == SourceType::Text)
        m_central->newBuffer();
}

void Kestrowl::newMelBuffer()
{
    newBuffer(0);
}

void Kestrowl::newPythonBuffer()
{
    newBuffer(1);
}

void Kestrowl::open()
{
    open(QFileDialog::getOpenFileName(this, tr("Open File"),
                                      orElse(lastOpenDirectory, m_scriptDirectory)));
}

void Kestrowl::open(const QModelIndex &index)
{
    open(m_explorer->filePath(index));
}

void Kestrowl::open(const QString &path)
{
    if (path.isEmpty())
        return;
    m_central->openFile(path);
    // Also when that failed: the right file is likely to be beside it.
    lastOpenDirectory = QFileInfo(path).absolutePath();
}

void Kestrowl::closeTab()
{
    m_central->closeActive();
}

void Kestrowl::closeAllTabs()
{
    m_central->closeAll();
}

void Kestrowl::closeAllTabsButActive()
{
    m_central->closeAllButCurrent();
}

void Kestrowl::closeEditor()
{
    close();
}

void Kestrowl::save()
{
    m_central->save();
}

// What is asked for is about the document that was current before: a dialog lets events through,
// and a question about another document may come up beside it.

void Kestrowl::saveAs()
{
    const QPointer<EdCodeView> view = currentView();
    if (!view || !mayWriteFiles(this))
        return;
    const QString name = askSaveName(this, *view, preferences().projectDir);
    if (!name.isEmpty() && view && view == currentView())
        m_central->saveAs(name);
}

void Kestrowl::saveAll()
{
    m_central->saveAll();
}

void Kestrowl::saveSettings()
{
    SaveStateAnswer answer = SaveStateAnswer::SettingsOnly; // without changes nothing is asked
    if (m_central->hasUnsavedContent())
        answer = askToSaveAll(this);
    if (answer == SaveStateAnswer::Cancelled)
        return;
    if (answer == SaveStateAnswer::SaveAll)
        saveAll();
    warnOf(writeSettings());
}

// Deliberate: the label is asked for first, even when there turns out to be nothing to save.
void Kestrowl::saveScriptToShelf()
{
    const QPointer<EdCodeView> view = currentView();
    if (!view)
        return;
    const QString label = askShelfLabel(this);
    if (label.isEmpty() || !view)
        return;
    const QString script = view->selectedText().isEmpty() ? view->text() : view->selectedText();
    if (!script.isEmpty() && view->language() != EdCodeView::Text)
        emit scriptToShelfRequested(label, script, view->language() == EdCodeView::Mel);
}

void Kestrowl::sourceScript()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Source Script"),
                                                      orElse(lastSourcePath, m_scriptDirectory));
    if (path.isEmpty())
        return;
    lastSourcePath = path; // the dialog then offers the same file again
    m_central->flushJournals();
    emit sourceScriptSelected(path);
}

void Kestrowl::setTitleBufferName(const QString &bufferName)
{
    const QString program = QLatin1String(CORVANE_APPLICATION_NAME);
    setWindowTitle(bufferName.isEmpty() ? program : bufferName + QLatin1String(" - ") + program);
}

// Cut and paste go nowhere while the history has the focus: doing them to a document that the user
// does not look at would be a surprise.
void Kestrowl::cut()
{
    if (!m_output->hasFocus())
        m_central->cut();
}

void Kestrowl::copy()
{
    if (m_output->hasFocus())
        m_output->copy();
    else
        m_central->copy();
}

void Kestrowl::paste()
{
    if (!m_output->hasFocus())
        m_central->paste();
}

void Kestrowl::showGotoLineDialog()
{
    const QPointer<EdCodeView> view = currentView();
    const int line = view ? askLineNumber(this, *view) : 0;
    if (line > 0 && view)
        view->goToLine(line);
}

void Kestrowl::showFindReplaceDialog()
{
    m_find->openDialog();
}

void Kestrowl::findNext()
{
    m_find->repeat(0);
}

void Kestrowl::findPrevious()
{
    m_find->repeat(FindRequest::Backward);
}

void Kestrowl::showPreferencesDialog()
{
    PreferencesDialog *dialog = findChild<PreferencesDialog *>();
    if (!dialog) {
        dialog = new PreferencesDialog(this);
        connect(dialog, SIGNAL(applied()), SLOT(updatePreferencesAndWrite()));
    }
    presentDialog(dialog);
}

void Kestrowl::findReplace(const QString &findText, const QString &replaceText, int options)
{
    m_central->findReplace(findText, replaceText, options);
}

void Kestrowl::replace(const QString &text)
{
    m_central->replace(text);
}

void Kestrowl::clearOutput()
{
    m_output->clearText();
}

void Kestrowl::clearEditor()
{
    m_central->clearText();
}

void Kestrowl::execute()
{
    if (!currentView())
        return;
    QString selection = currentView()->selectedText();
    if (selection.isEmpty())
        executeAll();
    else
        execute(selection.replace(QChar::ParagraphSeparator, QLatin1Char('\n')));
}

void Kestrowl::executeLine()
{
    saveAndExecute([](const EdCodeView &view) { return view.lineText().trimmed(); });
}

void Kestrowl::executeAll()
{
    saveAndExecute([](const EdCodeView &view) { return view.text(); });
}

// Deliberate: execute(QString) saves once more; scripts that watch their files rely on the order.
// But a file that cannot be written was told of, and is not tried again.
void Kestrowl::saveAndExecute(QString (*scriptOf)(const EdCodeView &view))
{
    const QPointer<EdCodeView> view = currentView();
    if (!view)
        return;
    const SaveResult saving = saveBeforeExecuting();
    if (saving == SaveResult::Cancelled || !view || view != currentView())
        return;
    if (saving == SaveResult::Done)
        execute(scriptOf(*view));
    else
        run(scriptOf(*view));
}

void Kestrowl::execute(const QString &script)
{
    const QPointer<EdCodeView> view = currentView();
    if (view && saveBeforeExecuting() != SaveResult::Cancelled && view)
        run(script);
}

SaveResult Kestrowl::saveBeforeExecuting()
{
    const bool saves = savingAllowed() && preferences().saveOnExecute;
    return saves ? m_central->saveAll() : SaveResult::Done;
}

// In the language of the current document.
void Kestrowl::run(const QString &script)
{
    const EdCodeView *view = currentView();
    if (script.isEmpty() || !view)
        return;
    m_central->flushJournals(); // a script may run for minutes, and crash the host
    if (view->language() == EdCodeView::Mel)
        emit melExecuted(script);
    else if (view->language() == EdCodeView::Python)
        emit pythonExecuted(script);
}
