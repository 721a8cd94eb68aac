// SPDX-License-Identifier: MIT
#include "workspace/edcentralwidget.h"

#include "analysis/melparser.h"
#include "analysis/pythonparser.h"
#include "compat/filesystem.h"
#include "editor/edcodeedit.h"
#include "preferences/preferences.h"
#include "workspace/choicebox.h"
#include "workspace/edcodeview.h"
#include "workspace/saveprompt.h"

#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTextCursor>
#include <QVBoxLayout>

namespace {

const int parseDelay = 2000; // ms after the last change of the text

} // namespace

EdCentralWidget::EdCentralWidget(QWidget *parent) : QWidget(parent), m_hint(new QLabel(this))
{
    setObjectName(QLatin1String("centralwidget"));
    m_hint->setText(tr("Open a file, or double-click here for a new buffer."));
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setEnabled(false); // grey
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_hint);
    m_parseTimer.setSingleShot(true);
    connect(&m_parseTimer, SIGNAL(timeout()), SLOT(activeViewChange()));
    connect(&m_parseTimer, SIGNAL(timeout()), SLOT(autosave()));
}

bool EdCentralWidget::hasUnsavedContent() const
{
    return m_view && m_view->isModified();
}

void EdCentralWidget::newBuffer()
{
    addBuffer(EdCodeView::Text, tr("Text"));
}

void EdCentralWidget::newMelBuffer()
{
    addBuffer(EdCodeView::Mel, tr("MEL"));
}

void EdCentralWidget::newPythonBuffer()
{
    addBuffer(EdCodeView::Python, tr("Python"));
}

void EdCentralWidget::addBuffer(int language, const QString &label)
{
    if (!mayBeReplaced())
        return;
    const int index = m_nextBufferIndex++;
    m_bufferLabel = label; // before the view is shown, which reports the name
    showView(new EdCodeView(index, language, this));
    emit bufferCreated(index, label, m_view->fileInfo());
}

void EdCentralWidget::openFile(const QString &path)
{
    const QFileInfo info(path);
    // Even a buffer's: replacing it would delete the file.
    if (isShown(info)) {
        m_view->setCodeEditFocus();
        return;
    }
    // Loaded before the open document is asked about: a file that cannot be read takes nothing
    // away. And once more after that, which may have written the file.
    EdCodeView *view = new EdCodeView(EdCodeView::AwaitsFile, EdCodeView::Text, this);
    const bool asks = losesText();
    if (!view->load(info, false, -1) || !mayBeReplaced() ||
        (asks && !view->load(info, false, -1))) {
        delete view;
        return;
    }
    showView(view);
    emit fileOpened(info.absoluteFilePath());
}

// By whatever name: over links too.
bool EdCentralWidget::isShown(const QFileInfo &info) const
{
    if (!m_view)
        return false;
    const QString path = m_view->fileInfo().absoluteFilePath();
    return path == info.absoluteFilePath() || compat::isSameFile(path, info.absoluteFilePath());
}

// Whether replacing the document would. There is one at a time, and a buffer that another one
// replaces is gone, even if its own file has all of it.
bool EdCentralWidget::losesText() const
{
    return m_view && (m_view->isBuffer() ? !m_view->text().isEmpty() : m_view->isModified());
}

// True when nothing of the document is lost, or the user has given it up.
bool EdCentralWidget::mayBeReplaced()
{
    if (!losesText())
        return true;
    const SaveAnswer answer = askToSave(this, documentName());
    if (answer == SaveAnswer::Save && m_view->isBuffer())
        emit tabSaveAsSelected();
    else if (answer == SaveAnswer::Save)
        m_view->save();
    // Saving may have failed, or the dialog for a name was cancelled.
    return answer == SaveAnswer::Discard ||
           (answer == SaveAnswer::Save && !m_view->isBuffer() && !m_view->isModified());
}

// Closing a buffer is meant to delete it.
bool EdCentralWidget::mayBeClosed()
{
    if (!m_view->isBuffer())
        return mayBeReplaced();
    return !preferences().confirmCloseTemporaryBuffer || confirmDelete();
}

bool EdCentralWidget::confirmDelete()
{
    if (m_view->text().isEmpty())
        return true;
    const QString question =
        tr("Delete buffer '%1'?\n\nUnsaved contents will be lost.").arg(m_bufferLabel);
    return askChoice(this, tr("Delete"), question, QStringList() << tr("Yes") << tr("No")) == 0;
}

// The old document is reported closed before the new one is reported open.
void EdCentralWidget::showView(EdCodeView *view)
{
    retireView();
    m_view = view;
    m_saysAutosaveFails = true;
    forgetEntry();
    connectView();
    layout()->addWidget(view);
    m_hint->hide();
    view->show();
    view->setCodeEditFocus();
    reportName();
    reportCursor();
    activeViewChange();
}

void EdCentralWidget::retireView()
{
    if (!m_view)
        return;
    EdCodeView *view = m_view;
    m_view = nullptr; // first: what follows may ask for the open document
    m_parseTimer.stop();
    view->disconnect(this);
    view->hide();
    // The call may come from the view itself, which dropped a file.
    view->deleteLater();
    view->removeBufferFile();
    if (view->isBuffer())
        emit bufferDeleted(view->bufferIndex());
    else
        emit fileClosed(view->fileInfo().absoluteFilePath());
}

void EdCentralWidget::connectView()
{
    connect(m_view, SIGNAL(cursorStatusChanged()), SLOT(reportCursor()));
    connect(m_view, SIGNAL(modificationChanged(bool)), SLOT(reportName()));
    connect(m_view, SIGNAL(fileRenamed(QString, QString)), SLOT(reportName()));
    connect(m_view, SIGNAL(fileRenamed(QString, QString)), SIGNAL(fileRenamed(QString, QString)));
    connect(m_view, SIGNAL(fileRenamed(QString, QString)), SLOT(forgetEntry()));
    connect(m_view, SIGNAL(overwriteModeChanged()), SIGNAL(overwriteModeChanged()));
    connect(m_view, SIGNAL(fileDropped(QString)), SIGNAL(fileDropped(QString)));
    connect(m_view, SIGNAL(quickHelpSelected(QString, bool)),
            SIGNAL(quickHelpSelected(QString, bool)));
    connect(m_view, SIGNAL(commandDocumentationSelected(QString, bool)),
            SIGNAL(commandDocumentationSelected(QString, bool)));
    connect(m_view, SIGNAL(longLineReached()), SIGNAL(longLineReached()));
    connect(m_view, SIGNAL(textChanged()), SLOT(onTextChange()));
}

void EdCentralWidget::onTextChange()
{
    m_parseTimer.start(parseDelay);
}

void EdCentralWidget::activeViewChange()
{
    if (!m_view)
        return;
    if (m_view->language() == EdCodeView::Mel)
        showDiagnosticsOf(MelParser());
    else if (m_view->language() == EdCodeView::Python)
        showDiagnosticsOf(PythonParser());
    else
        m_view->codeEdit()->clearDiagnostics();
}

template <typename Parser>
void EdCentralWidget::showDiagnosticsOf(Parser parser)
{
    parser.parse(m_view->text(), m_view->fileInfo().absoluteFilePath());
    m_view->codeEdit()->setDiagnostics(parser);
}

void EdCentralWidget::save()
{
    if (m_view)
        m_view->save();
}

void EdCentralWidget::saveAs(const QString &path)
{
    if (!m_view || path.isEmpty())
        return;
    // What the document was; writing makes it the new file's.
    const int oldIndex = m_view->bufferIndex();
    const QString oldPath = m_view->fileInfo().absoluteFilePath();
    if (!m_view->write(path, false))
        return;
    forgetEntry();
    if (oldIndex >= 0)
        emit bufferDeleted(oldIndex);
    else
        emit fileClosed(oldPath);
    emit fileOpened(m_view->fileInfo().absoluteFilePath());
    reportName();
    activeViewChange(); // the language may be another one
}

void EdCentralWidget::saveAll()
{
    save();
}

void EdCentralWidget::rename()
{
    if (!m_view)
        return;
    const QString oldName = m_view->isBuffer() ? m_bufferLabel : m_view->fileInfo().fileName();
    bool accepted = false;
    const QString name = QInputDialog::getText(this, tr("Rename"), tr("New Name:"),
                                               QLineEdit::Normal, oldName, &accepted);
    if (!accepted || name.isEmpty())
        return;
    if (!m_view->isBuffer()) {
        m_view->rename(name);
        return;
    }
    m_bufferLabel = name;
    emit bufferRenamed(m_view->bufferIndex(), name);
    reportName();
}

void EdCentralWidget::renameBuffer(int bufferIndex)
{
    if (isCurrentBuffer(bufferIndex))
        rename();
}

void EdCentralWidget::renameFile(const QString &path)
{
    if (isCurrentFile(path))
        rename();
}

void EdCentralWidget::reloadFromDisk()
{
    if (!m_view || m_view->isBuffer())
        return;
    const QString question = tr("Reloading this file will result in unsaved changes being lost.\n\n"
                                "Continue reloading?");
    // Escape counts as No.
    if (m_view->isModified() &&
        QMessageBox::question(window(), tr("Reload"), question,
                              QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;
    m_view->load(m_view->fileInfo(), false, -1);
    activeViewChange();
}

void EdCentralWidget::undo()
{
    if (m_view)
        m_view->undo();
}

void EdCentralWidget::redo()
{
    if (m_view)
        m_view->redo();
}

void EdCentralWidget::cut()
{
    if (m_view)
        m_view->cut();
}

void EdCentralWidget::copy()
{
    if (m_view)
        m_view->copy();
}

void EdCentralWidget::paste()
{
    if (m_view)
        m_view->paste();
}

void EdCentralWidget::selectAll()
{
    if (m_view)
        m_view->selectAll();
}

void EdCentralWidget::clearText()
{
    if (m_view)
        m_view->clearText();
}

void EdCentralWidget::convertTabsToSpaces()
{
    if (m_view)
        m_view->convertTabsToSpaces();
}

void EdCentralWidget::replace(const QString &text)
{
    if (m_view)
        m_view->replace(text);
}

void EdCentralWidget::closeActive()
{
    if (!m_view || !mayBeClosed())
        return;
    retireView();
    m_hint->show();
    reportName();
    reportCursor();
}

void EdCentralWidget::closeAll()
{
    closeActive();
}

// There is one document at a time, so no other is ever open.
void EdCentralWidget::closeAllButCurrent() {}

void EdCentralWidget::closeBuffer(int bufferIndex)
{
    if (isCurrentBuffer(bufferIndex))
        closeActive();
}

void EdCentralWidget::closeFile(const QString &path)
{
    if (isCurrentFile(path))
        closeActive();
}

void EdCentralWidget::focusBuffer(int bufferIndex)
{
    if (isCurrentBuffer(bufferIndex))
        m_view->setCodeEditFocus();
}

void EdCentralWidget::updateTabsAndSpaces()
{
    if (m_view)
        m_view->codeEdit()->updateTabsAndSpaces();
}

void EdCentralWidget::updateFontAndColors()
{
    if (m_view)
        m_view->updateFontAndColors();
}

void EdCentralWidget::updateHiddenCharacters()
{
    if (m_view)
        m_view->updateHiddenCharacters();
}

// The disabled hint lets mouse events through.
void EdCentralWidget::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (!m_view && event->button() == Qt::LeftButton)
        emit createNewBufferTriggered();
}

void EdCentralWidget::reportCursor()
{
    if (!m_view) {
        emit cursorStatusChanged(0, 0, 0);
        return;
    }
    const QTextCursor cursor = m_view->codeEdit()->textCursor();
    emit cursorStatusChanged(cursor.blockNumber(), cursor.positionInBlock(),
                             cursor.selectionEnd() - cursor.selectionStart());
}

void EdCentralWidget::reportName()
{
    // A buffer is never in a file that the user knows, so the mark would say nothing.
    const bool isMarked = hasUnsavedContent() && !m_view->isBuffer();
    emit activeBufferNameChanged(documentName() + QLatin1String(isMarked ? "*" : ""));
}

bool EdCentralWidget::isCurrentFile(const QString &path) const
{
    return m_view && !m_view->isBuffer() && m_view->fileInfo().absoluteFilePath() == path;
}

bool EdCentralWidget::isCurrentBuffer(int bufferIndex) const
{
    return m_view && m_view->isBuffer() && m_view->bufferIndex() == bufferIndex;
}

QString EdCentralWidget::documentName() const
{
    if (!m_view)
        return QString();
    return m_view->isBuffer() ? m_bufferLabel : m_view->fileInfo().absoluteFilePath();
}
