// SPDX-License-Identifier: MIT
#include "workspace/edcodeview.h"

#include "compat/filesystem.h"
#include "editor/edcodeedit.h"
#include "editor/editorlanguage.h"
#include "workspace/choicebox.h"
#include "workspace/textjournal.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTimer>
#include <QUuid>
#include <QVBoxLayout>

namespace {

int editorLanguage(int language)
{
    switch (language) {
    case EdCodeView::Python:
        return PythonLanguage;
    case EdCodeView::Mel:
        return MelLanguage;
    default:
        return TextLanguage;
    }
}

// Case-sensitive: "MEL" and "PY" are plain text.
int editorLanguageOfFile(const QFileInfo &info)
{
    const QString suffix = info.suffix();
    if (suffix == QLatin1String("py") || suffix == QLatin1String("pyw"))
        return PythonLanguage;
    return suffix == QLatin1String("mel") ? MelLanguage : TextLanguage;
}

// Not a path, which would lead into another folder.
bool isFileName(const QString &name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
           name == QFileInfo(name).fileName();
}

} // namespace

EdCodeView::EdCodeView(int bufferIndex, int language, QWidget *parent)
    : QWidget(parent), m_bufferIndex(bufferIndex), m_editorLanguage(editorLanguage(language)),
      m_documentId(QUuid::createUuid().toString())
{
    createCodeEdit();
    if (bufferIndex == AwaitsFile)
        return;
    forceModified(); // should there be no file for it, the buffer is not saved
    createBufferFile();
}

EdCodeView::EdCodeView(QWidget *parent)
    : QWidget(parent), m_bufferIndex(AwaitsFile), m_editorLanguage(TextLanguage),
      m_documentId(QUuid::createUuid().toString())
{
}

EdCodeView *EdCodeView::createUnseen(QWidget *parent)
{
    return new EdCodeView(parent);
}

EdCodeView::~EdCodeView() = default;

void EdCodeView::createCodeEdit()
{
    m_codeEdit = new EdCodeEdit(this);
    m_codeEdit->setLanguage(m_editorLanguage);
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_codeEdit);
    connectCodeEdit();
    // Caret and scroll position need its size.
    if (isVisible()) // as while it is being shown, its children having been shown before
        m_codeEdit->show();
    layout->activate();
}

void EdCodeView::connectCodeEdit()
{
    connect(m_codeEdit, SIGNAL(modificationChanged(bool)), SLOT(setModified(bool)));
    connect(m_codeEdit, SIGNAL(gainedFocus()), SLOT(inFocus()));
    connect(m_codeEdit, SIGNAL(overwriteModeChanged()), SLOT(onOverwriteModeChange()));
    connect(m_codeEdit, SIGNAL(cursorPositionChanged()), SLOT(onCursorStatusChange()));
    connect(m_codeEdit, SIGNAL(textChanged()), SLOT(onTextChange()));
    connect(m_codeEdit, SIGNAL(selectionChanged()), SLOT(onCursorStatusChange()));
    connect(m_codeEdit, SIGNAL(findReplaceMessageChanged(QString)),
            SLOT(onFindReplaceMessageChange(QString)));
    connect(m_codeEdit, SIGNAL(moveToOtherViewSelected()), SLOT(moveToOtherView()));
    connect(m_codeEdit, SIGNAL(quickHelpSelected(QString, bool)), SLOT(quickHelp(QString, bool)));
    connect(m_codeEdit, SIGNAL(fileDropped(QString)), SLOT(onFileDrop(QString)));
    connect(m_codeEdit, SIGNAL(previousTabSelected()), SLOT(previousTab()));
    connect(m_codeEdit, SIGNAL(nextTabSelected()), SLOT(nextTab()));
    connect(m_codeEdit, SIGNAL(commandDocumentationSelected(QString, bool)),
            SIGNAL(commandDocumentationSelected(QString, bool)));
    connect(m_codeEdit, SIGNAL(longLineReached()), SIGNAL(longLineReached()));
    connect(m_codeEdit, SIGNAL(completionSlow()), SIGNAL(completionSlow()));
}

void EdCodeView::updateLanguage()
{
    m_editorLanguage = editorLanguageOfFile(m_fileInfo);
    if (m_codeEdit)
        m_codeEdit->setLanguage(m_editorLanguage);
    updateTabsAndSpaces(); // each language has its own
}

int EdCodeView::language() const
{
    switch (m_editorLanguage) {
    case PythonLanguage:
        return Python;
    case MelLanguage:
        return Mel;
    default:
        return Text;
    }
}

void EdCodeView::showEvent(QShowEvent *event)
{
    codeEdit();
    QWidget::showEvent(event);
    showCaretSoon();
}

// Nobody can tell whether the editor had the text before.
EdCodeEdit *EdCodeView::codeEdit() const
{
    EdCodeView *view = const_cast<EdCodeView *>(this);
    view->giveText(); // which asks for the editor too
    if (!m_codeEdit) {
        view->createCodeEdit();
        m_codeEdit->updateTabsAndSpaces();
    }
    return m_codeEdit;
}

void EdCodeView::giveText()
{
    if (!m_waiting)
        return;
    const Waiting waiting = *m_waiting;
    m_waiting.reset();                           // first: what follows asks for the editor
    const bool wereBlocked = blockSignals(true); // it is no change
    const QString text = decoded(waiting.bytes);
    codeEdit()->loadText(text, waiting.scrollValue);
    noteNewText(text);
    setPlace(waiting.cursorPosition, waiting.scrollValue);
    blockSignals(wereBlocked);
}

int EdCodeView::cursorPosition() const
{
    return m_waiting ? m_waiting->cursorPosition : codeEdit()->textCursor().position();
}

int EdCodeView::scrollValue() const
{
    return m_waiting ? m_waiting->scrollValue : codeEdit()->verticalScrollBar()->value();
}

void EdCodeView::setPlace(int cursorPosition, int scrollValue)
{
    if (m_waiting) {
        m_waiting->cursorPosition = cursorPosition;
        m_waiting->scrollValue = scrollValue;
        return;
    }
    codeEdit()->setCursorPosition(cursorPosition);
    codeEdit()->verticalScrollBar()->setValue(scrollValue);
    if (isVisible()) // otherwise its size may become another one
        codeEdit()->ensureCursorVisible();
    m_mustShowCaret = true;
    showCaretSoon();
}

// While a window is being laid out, its views are narrow, and the editor scrolls sideways to carets
// that are in view as soon as there is room.
void EdCodeView::showCaretSoon()
{
    if (m_mustShowCaret && isVisible())
        QTimer::singleShot(0, this, SLOT(showCaret()));
}

void EdCodeView::showCaret()
{
    if (!m_mustShowCaret || !isVisible())
        return;
    m_mustShowCaret = false;
    codeEdit()->horizontalScrollBar()->setValue(codeEdit()->horizontalScrollBar()->minimum());
    codeEdit()->ensureCursorVisible();
}

QString EdCodeView::text() const
{
    return codeEdit()->text();
}

QString EdCodeView::selectedText() const
{
    return codeEdit()->textCursor().selectedText();
}

QString EdCodeView::lineText() const
{
    return codeEdit()->textCursor().block().text();
}

void EdCodeView::setModified(bool modified)
{
    giveText(); // which is unmodified
    m_modified = modified;
    followChanges();
    emit modificationChanged(modified);
}

// Set anew where it is set already, or undoing the changes would take it away.
void EdCodeView::forceModified()
{
    QTextDocument *document = codeEdit()->document();
    const bool wereBlocked = document->blockSignals(true);
    document->setModified(false);
    document->blockSignals(wereBlocked);
    document->setModified(true);
}

void EdCodeView::clearText()
{
    codeEdit()->clearText();
}

void EdCodeView::inFocus()
{
    emit gainedFocus();
}

void EdCodeView::setCodeEditFocus()
{
    codeEdit()->setFocus(Qt::OtherFocusReason);
}

void EdCodeView::save()
{
    if (m_modified)
        write(m_fileInfo.absoluteFilePath(), m_isBuffer);
}

void EdCodeView::saveAs(const QString &path)
{
    write(path, false);
}

// In its window. A document keeps its name while its file is gone.
bool EdCodeView::isOpen(const QString &path) const
{
    for (const EdCodeView *view : window()->findChildren<EdCodeView *>()) {
        if (view != this && !view->m_isRetired && view->fileInfo().absoluteFilePath() == path)
            return true;
    }
    return false;
}

void EdCodeView::rename(const QString &newName)
{
    if (m_isBuffer || newName == m_fileInfo.fileName())
        return;
    if (!isFileName(newName)) {
        showWarning(this, tr("Error"), tr("\"%1\" cannot be the name of a file.").arg(newName));
        return;
    }
    const QString oldPath = m_fileInfo.absoluteFilePath();
    const QFileInfo target(QString::fromLatin1("%1/%2").arg(m_fileInfo.absolutePath(), newName));
    const QString newPath = target.absoluteFilePath();
    // Renaming would refuse as well, but not say why.
    if (target.exists() || isOpen(newPath)) {
        showWarning(this, tr("Error"), tr("File already exists:\n%1").arg(newPath));
        return;
    }
    if (compat::renameFile(oldPath, newPath))
        followFile(newPath);
}

void EdCodeView::followFile(const QString &newPath)
{
    const QString oldPath = m_fileInfo.absoluteFilePath();
    m_fileInfo = QFileInfo(newPath);
    if (m_journal)
        m_journal->setHeader(journalHeader());
    updateLanguage();
    emit fileRenamed(oldPath, newPath);
}

void EdCodeView::undo()
{
    codeEdit()->undo();
}

void EdCodeView::redo()
{
    codeEdit()->redo();
}

void EdCodeView::cut()
{
    codeEdit()->cut();
}

void EdCodeView::copy()
{
    codeEdit()->copy();
}

void EdCodeView::paste()
{
    codeEdit()->paste();
}

void EdCodeView::selectAll()
{
    codeEdit()->selectAll();
}

void EdCodeView::updateTabsAndSpaces()
{
    if (m_codeEdit)
        m_codeEdit->updateTabsAndSpaces();
}

void EdCodeView::updateFontAndColors()
{
    if (m_codeEdit)
        m_codeEdit->updateFontAndColors();
}

void EdCodeView::updateHiddenCharacters()
{
    if (m_codeEdit)
        m_codeEdit->updateHiddenCharacters();
}

void EdCodeView::convertTabsToSpaces()
{
    codeEdit()->convertTabsToSpaces();
}

void EdCodeView::updateOverwriteMode()
{
    if (m_codeEdit)
        m_codeEdit->setOverwriteMode(EdCodeEdit::isOverwriting());
}

void EdCodeView::onOverwriteModeChange()
{
    emit overwriteModeChanged();
}

void EdCodeView::onCursorStatusChange()
{
    emit cursorStatusChanged();
}

void EdCodeView::onTextChange()
{
    tryJournalAgain();
    emit textChanged();
}

void EdCodeView::setCursorPosition(int position)
{
    codeEdit()->setCursorPosition(position);
}

void EdCodeView::setCursorSelection(int position, int anchor)
{
    codeEdit()->setCursorSelection(position, anchor);
}

void EdCodeView::replace(const QString &text)
{
    codeEdit()->insertPlainText(text);
}

void EdCodeView::findReplace(const QString &findText, const QString &replaceText, int options)
{
    codeEdit()->findReplace(findText, replaceText, options);
}

void EdCodeView::onFindReplaceMessageChange(const QString &message)
{
    emit findReplaceMessageChanged(message);
}

void EdCodeView::moveToOtherView()
{
    emit moveToOtherViewSelected();
}

void EdCodeView::quickHelp(const QString &text, bool ignoreWhenHidden)
{
    emit quickHelpSelected(text, ignoreWhenHidden);
}

void EdCodeView::onFileDrop(const QString &path)
{
    emit fileDropped(path);
}

void EdCodeView::previousTab()
{
    emit previousTabSelected();
}

void EdCodeView::nextTab()
{
    emit nextTabSelected();
}

void EdCodeView::goToLine(int line)
{
    codeEdit()->goToLine(line);
    codeEdit()->centerCursor();
}
