// SPDX-License-Identifier: MIT
#include "workspace/edcentralwidget.h"

#include "workspace/edcodeview.h"
#include "editor/edcodeedit.h"
#include "workspace/saveprompt.h"

#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTextCursor>
#include <QVBoxLayout>

EdCentralWidget::EdCentralWidget(QWidget *parent) : QWidget(parent), m_hint(new QLabel(this))
{
    setObjectName(QLatin1String("centralwidget"));
    m_hint->setText(tr("Open a file, or double-click here for a new buffer."));
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setEnabled(false); // grey
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_hint);
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
    if (!nothingIsLost())
        return;
    const int index = m_nextBufferIndex++;
    m_bufferLabel = label; // before the view is shown, which reports the name
    showView(new EdCodeView(index, language, this));
    emit bufferCreated(index, label, m_view->fileInfo());
}

void EdCentralWidget::openFile(const QString &path)
{
    const QFileInfo info(path);
    if (isCurrentFile(info.absoluteFilePath())) {
        m_view->setCodeEditFocus();
        return;
    }
    // Loaded before the open document is asked about: a file that cannot be read takes nothing
    // away.
    EdCodeView *view = new EdCodeView(-1, EdCodeView::Text, this);
    if (!view->load(info) || !nothingIsLost()) {
        delete view;
        return;
    }
    showView(view);
    emit fileOpened(info.absoluteFilePath());
}

// True when the document may be taken away: it has no changes, or the user saved or gave them up.
bool EdCentralWidget::nothingIsLost()
{
    if (!hasUnsavedContent())
        return true;
    const SaveAnswer answer = askToSave(this, documentName());
    if (answer == SaveAnswer::Save)
        save();
    // Saving may have failed, or the dialog for a name was cancelled.
    return answer == SaveAnswer::Discard || (answer == SaveAnswer::Save && !m_view->isModified());
}

// The old document is reported closed before the new one is reported open.
void EdCentralWidget::showView(EdCodeView *view)
{
    retireView();
    m_view = view;
    connectView();
    layout()->addWidget(view);
    m_hint->hide();
    view->show();
    view->setCodeEditFocus();
    reportName();
    reportCursor();
}

void EdCentralWidget::retireView()
{
    if (!m_view)
        return;
    EdCodeView *view = m_view;
    m_view = nullptr; // first: what follows may ask for the open document
    view->disconnect(this);
    view->hide();
    // The call may come from the view itself, which dropped a file.
    view->deleteLater();
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
    connect(m_view, SIGNAL(overwriteModeChanged()), SIGNAL(overwriteModeChanged()));
    connect(m_view, SIGNAL(fileDropped(QString)), SIGNAL(fileDropped(QString)));
    connect(m_view, SIGNAL(quickHelpSelected(QString, bool)),
            SIGNAL(quickHelpSelected(QString, bool)));
    connect(m_view, SIGNAL(commandDocumentationSelected(QString, bool)),
            SIGNAL(commandDocumentationSelected(QString, bool)));
}

void EdCentralWidget::save()
{
    if (!m_view)
        return;
    if (m_view->isBuffer())
        emit tabSaveAsSelected();
    else if (m_view->isModified())
        m_view->write(m_view->fileInfo().absoluteFilePath());
}

void EdCentralWidget::saveAs(const QString &path)
{
    if (!m_view || path.isEmpty())
        return;
    // What the document was; writing makes it the new file's.
    const int oldIndex = m_view->bufferIndex();
    const QString oldPath = m_view->fileInfo().absoluteFilePath();
    if (!m_view->write(path))
        return;
    if (oldIndex >= 0)
        emit bufferDeleted(oldIndex);
    else
        emit fileClosed(oldPath);
    emit fileOpened(m_view->fileInfo().absoluteFilePath());
    reportName();
}

// Buffers have no file to be saved to, and executing must not ask for one.
void EdCentralWidget::saveAll()
{
    if (m_view && !m_view->isBuffer())
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
    m_view->load(m_view->fileInfo());
}

void EdCentralWidget::undo()
{
    if (m_view)
        m_view->codeEdit()->undo();
}

void EdCentralWidget::redo()
{
    if (m_view)
        m_view->codeEdit()->redo();
}

void EdCentralWidget::cut()
{
    if (m_view)
        m_view->codeEdit()->cut();
}

void EdCentralWidget::copy()
{
    if (m_view)
        m_view->codeEdit()->copy();
}

void EdCentralWidget::paste()
{
    if (m_view)
        m_view->codeEdit()->paste();
}

void EdCentralWidget::selectAll()
{
    if (m_view)
        m_view->codeEdit()->selectAll();
}

// By the view, not by QPlainTextEdit::clear(), which cannot be undone.
void EdCentralWidget::clearText()
{
    if (m_view)
        m_view->clearText();
}

void EdCentralWidget::convertTabsToSpaces()
{
    if (m_view)
        m_view->codeEdit()->convertTabsToSpaces();
}

void EdCentralWidget::replace(const QString &text)
{
    if (m_view)
        m_view->codeEdit()->insertPlainText(text);
}

void EdCentralWidget::closeActive()
{
    if (!m_view || !nothingIsLost())
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
        m_view->codeEdit()->updateFontAndColors();
}

void EdCentralWidget::updateHiddenCharacters()
{
    if (m_view)
        m_view->codeEdit()->updateHiddenCharacters();
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
    emit activeBufferNameChanged(documentName() + QLatin1String(hasUnsavedContent() ? "*" : ""));
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
