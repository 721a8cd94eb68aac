// SPDX-License-Identifier: MIT
// The view's part that reads and writes its file.
#include "workspace/edcodeview.h"

#include "compat/filesystem.h"
#include "editor/edcodeedit.h"

#include <QApplication>
#include <QFile>
#include <QMessageBox>

namespace {

QDir &sharedBufferDirectory()
{
    static QDir directory;
    return directory;
}

QString bufferFileName(int number, int language)
{
    const char *suffix = language == EdCodeView::Mel      ? "mel"
                         : language == EdCodeView::Python ? "py"
                                                          : "txt";
    return QString::fromLatin1("corvaneEditorBuffer-%1.%2")
        .arg(QString::number(number), QLatin1String(suffix));
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
