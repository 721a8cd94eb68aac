// SPDX-License-Identifier: MIT
#include "workspace/edcodeview.h"

#include "compat/filesystem.h"
#include "editor/edcodeedit.h"
#include "editor/editorlanguage.h"

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTextBlock>
#include <QVBoxLayout>

namespace {

QDir &sharedBufferDirectory()
{
    static QDir directory;
    return directory;
}

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

QString bufferFileName(int number, int language)
{
    const char *suffix = language == EdCodeView::Mel      ? "mel"
                         : language == EdCodeView::Python ? "py"
                                                          : "txt";
    return QString::fromLatin1("corvaneEditorBuffer-%1.%2")
        .arg(QString::number(number), QLatin1String(suffix));
}

// Not a path, which would lead into another folder.
bool isFileName(const QString &name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
           name == QFileInfo(name).fileName();
}

// Another program may take the name meanwhile. Where no file can be created the name is claimed
// all the same, and writing to it tells why.
bool isClaimed(const QString &path)
{
    QFile file;
    QString ignored;
    return compat::createFile(&file, path, compat::Access::Ordinary, &ignored) ||
           !QFileInfo(path).exists();
}

// Not while a message is shown.
bool writeWithWaitCursor(const QString &path, const TextFile &file, QString *errorMessage)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool written = writeTextFile(path, file, errorMessage);
    QApplication::restoreOverrideCursor();
    return written;
}

} // namespace

EdCodeView::EdCodeView(int bufferIndex, int language, QWidget *parent)
    : QWidget(parent), m_bufferIndex(bufferIndex), m_codeEdit(new EdCodeEdit(this))
{
    m_codeEdit->setLanguage(editorLanguage(language));
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_codeEdit);
    connectCodeEdit();
    if (bufferIndex == AwaitsFile)
        return;
    forceModified(); // should there be no file for it, the buffer is not saved
    createBufferFile();
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
}

QDir EdCodeView::bufferDirectory()
{
    return sharedBufferDirectory();
}

void EdCodeView::setBufferDirectory(const QDir &directory)
{
    sharedBufferDirectory() = directory;
}

bool EdCodeView::load(const QFileInfo &info, bool isBuffer, int bufferIndex)
{
    const QString reason = loadQuietly(info, isBuffer, bufferIndex);
    if (reason.isEmpty())
        return true;
    QMessageBox::warning(this, tr("File Read Error"),
                         tr("Cannot read file %1:\n%2.").arg(info.absoluteFilePath(), reason));
    return false;
}

QString EdCodeView::loadQuietly(const QFileInfo &info, bool isBuffer, int bufferIndex)
{
    m_isBuffer = isBuffer;
    m_bufferIndex = isBuffer ? bufferIndex : -1;
    TextFile file;
    QString reason;
    if (!readTextFile(info.absoluteFilePath(), &file, &reason))
        return reason;
    m_fileInfo = info;
    // That of a buffer's file is the program's own choice.
    m_encoding = isBuffer ? TextEncoding::Utf8 : file.encoding;
    m_codeEdit->setText(file.text);
    m_lineEnds.mark(m_codeEdit->document(), file.text);
    m_codeEdit->document()->setModified(false);
    m_codeEdit->moveCursor(QTextCursor::Start);
    updateLanguage();
    m_codeEdit->document()->setModified(false);
    return QString();
}

bool EdCodeView::write(const QString &path, bool keepAsBuffer)
{
    if (path.isEmpty())
        return false;
    // Set first, so that clearing it is always a change that titles and lists hear of.
    forceModified();
    TextFile file = keepAsBuffer && m_isBuffer ? bufferContents() : contents();
    if (!mayBeEncoded(&file))
        return false;
    QString reason;
    if (!writeWithWaitCursor(path, file, &reason)) {
        QMessageBox::warning(this, tr("Error"), tr("Cannot write file %1:\n%2.").arg(path, reason));
        return false;
    }
    if (!m_isBuffer || !keepAsBuffer)
        m_encoding = file.encoding;
    if (!keepAsBuffer) {
        // The user may have chosen the buffer's own file, which then has the text.
        if (!isBufferFile(path))
            removeBufferFile();
        m_isBuffer = false;
        m_fileInfo = QFileInfo(path);
        m_bufferIndex = -1;
    }
    finishWriting();
    return true;
}

void EdCodeView::finishWriting()
{
    m_fileInfo.refresh(); // it may have been asked before there was a file
    updateLanguage();
    m_codeEdit->document()->setModified(false);
}

QString EdCodeView::saveBufferQuietly()
{
    QString reason;
    if (m_isBuffer) // somebody may have tidied up
        QDir().mkpath(m_fileInfo.absolutePath());
    if (m_isBuffer && m_modified &&
        writeTextFile(m_fileInfo.absoluteFilePath(), bufferContents(), &reason))
        finishWriting();
    return reason;
}

TextFile EdCodeView::contents() const
{
    return {m_lineEnds.text(*m_codeEdit->document()), m_encoding};
}

// In whatever holds them: only this program reads that file.
TextFile EdCodeView::bufferContents() const
{
    TextFile file = contents();
    for (TextEncoding other : {TextEncoding::Utf8, TextEncoding::Utf16BigEndian}) {
        if (!missingCharacter(file))
            break;
        file.encoding = other;
    }
    return file;
}

// False when the user would rather not have it written. Halves of characters are left to the
// writing, which tells what is wrong.
bool EdCodeView::mayBeEncoded(TextFile *file)
{
    if (isUnicode(file->encoding))
        return true;
    const std::optional<MissingCharacter> missing = missingCharacter(*file);
    if (!missing)
        return true;
    const QString question =
        tr("The encoding of this file, %1, cannot hold %2 (line %3). Save as UTF-8 instead?")
            .arg(encodingName(file->encoding), missing->description,
                 QString::number(missing->line));
    if (QMessageBox::question(this, tr("Save"), question, QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::Yes) != QMessageBox::Yes)
        return false;
    file->encoding = TextEncoding::Utf8;
    return true;
}

bool EdCodeView::isBufferFile(const QString &path) const
{
    return QFileInfo(path).canonicalFilePath() ==
           QFileInfo(m_fileInfo.absoluteFilePath()).canonicalFilePath();
}

void EdCodeView::createBufferFile()
{
    const int mostBuffers = 100;
    bool isFree = false;
    for (int number = 0; number < mostBuffers && !isFree; ++number) {
        m_fileInfo = QFileInfo(sharedBufferDirectory(), bufferFileName(number, language()));
        isFree = !m_fileInfo.exists() && isClaimed(m_fileInfo.absoluteFilePath());
    }
    // Deliberate: when no name is free the buffer shares the last one, which its next saving takes.
    if (isFree)
        write(m_fileInfo.absoluteFilePath(), true);
    m_codeEdit->updateTabsAndSpaces();
}

void EdCodeView::removeBufferFile()
{
    if (m_isBuffer)
        QFile::remove(m_fileInfo.absoluteFilePath());
}

void EdCodeView::updateLanguage()
{
    m_codeEdit->setLanguage(editorLanguageOfFile(m_fileInfo));
    m_codeEdit->updateTabsAndSpaces(); // each language has its own
}

int EdCodeView::language() const
{
    switch (m_codeEdit->language()) {
    case PythonLanguage:
        return Python;
    case MelLanguage:
        return Mel;
    default:
        return Text;
    }
}

QString EdCodeView::text() const
{
    return m_codeEdit->text();
}

QString EdCodeView::selectedText() const
{
    return m_codeEdit->textCursor().selectedText();
}

QString EdCodeView::lineText() const
{
    return m_codeEdit->textCursor().block().text();
}

void EdCodeView::setModified(bool modified)
{
    m_modified = modified;
    emit modificationChanged(modified);
}

void EdCodeView::forceModified()
{
    m_codeEdit->document()->setModified(true);
}

void EdCodeView::clearText()
{
    m_codeEdit->clearText();
}

void EdCodeView::inFocus()
{
    emit gainedFocus();
}

void EdCodeView::setCodeEditFocus()
{
    m_codeEdit->setFocus(Qt::OtherFocusReason);
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

void EdCodeView::rename(const QString &newName)
{
    if (m_isBuffer || newName == m_fileInfo.fileName())
        return;
    if (!isFileName(newName)) {
        QMessageBox::warning(this, tr("Error"),
                             tr("\"%1\" cannot be the name of a file.").arg(newName));
        return;
    }
    const QString oldPath = m_fileInfo.absoluteFilePath();
    const QFileInfo target(QString::fromLatin1("%1/%2").arg(m_fileInfo.absolutePath(), newName));
    const QString newPath = target.absoluteFilePath();
    // Renaming would refuse as well, but not say why.
    if (target.exists()) {
        QMessageBox::warning(this, tr("Error"), tr("File already exists:\n%1").arg(newPath));
        return;
    }
    if (!compat::renameFile(oldPath, newPath))
        return;
    m_fileInfo = QFileInfo(newPath);
    updateLanguage();
    emit fileRenamed(oldPath, newPath);
}

void EdCodeView::undo()
{
    m_codeEdit->undo();
}

void EdCodeView::redo()
{
    m_codeEdit->redo();
}

void EdCodeView::cut()
{
    m_codeEdit->cut();
}

void EdCodeView::copy()
{
    m_codeEdit->copy();
}

void EdCodeView::paste()
{
    m_codeEdit->paste();
}

void EdCodeView::selectAll()
{
    m_codeEdit->selectAll();
}

void EdCodeView::updateFontAndColors()
{
    m_codeEdit->updateFontAndColors();
}

void EdCodeView::updateHiddenCharacters()
{
    m_codeEdit->updateHiddenCharacters();
}

void EdCodeView::convertTabsToSpaces()
{
    m_codeEdit->convertTabsToSpaces();
}

void EdCodeView::updateOverwriteMode()
{
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
    emit textChanged();
}

void EdCodeView::setCursorPosition(int position)
{
    m_codeEdit->setCursorPosition(position);
}

void EdCodeView::setCursorSelection(int position, int anchor)
{
    m_codeEdit->setCursorSelection(position, anchor);
}

void EdCodeView::replace(const QString &text)
{
    m_codeEdit->insertPlainText(text);
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
    m_codeEdit->goToLine(line);
    m_codeEdit->centerCursor();
}
