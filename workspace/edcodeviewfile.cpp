// SPDX-License-Identifier: MIT
// The view's part that reads and writes its file.
#include "workspace/edcodeview.h"

#include "compat/filesystem.h"
#include "editor/edcodeedit.h"
#include "editor/editblock.h"
#include "licensing/license.h"
#include "workspace/choicebox.h"
#include "workspace/licenselimits.h"
#include "workspace/linechange.h"
#include "workspace/textjournal.h"
#include "workspace/viewplace.h"

#include <QApplication>
#include <QFile>

namespace {

const int mostBuffers = 100; // of one language

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
bool writeWithWaitCursor(const QString &path, const TextFile &file, QString *errorMessage,
                         Fingerprint *fingerprint)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool written = writeTextFile(path, file, errorMessage, fingerprint);
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

bool EdCodeView::isBufferPath(const QString &path)
{
    const QFileInfo file(path);
    for (int language : {Text, Python, Mel}) {
        for (int number = 0; number < mostBuffers; ++number) {
            if (file.fileName() == bufferFileName(number, language))
                return QDir::cleanPath(path) == path && !compat::isLink(path) &&
                       QDir(file.path()).canonicalPath() == bufferDirectory().canonicalPath();
        }
    }
    return false;
}

bool EdCodeView::load(const QFileInfo &info, bool isBuffer, int bufferIndex)
{
    return isRead(info, loadQuietly(info, isBuffer, bufferIndex));
}

// Tells the user the reason if it is not.
bool EdCodeView::isRead(const QFileInfo &info, const QString &reason)
{
    if (reason.isEmpty())
        return true;
    showWarning(this, tr("File Read Error"),
                tr("Cannot read file %1:\n%2.").arg(info.absoluteFilePath(), reason));
    return false;
}

QString EdCodeView::loadQuietly(const QFileInfo &info, bool isBuffer, int bufferIndex)
{
    const QString path = info.absoluteFilePath();
    const bool isAgain = m_seen && m_isBuffer == isBuffer && m_fileInfo.absoluteFilePath() == path;
    const bool mayWait = !m_seen && !m_codeEdit;
    m_isBuffer = isBuffer;
    m_bufferIndex = isBuffer ? bufferIndex : -1;
    QByteArray bytes;
    const QString reason = read(path, &bytes);
    if (!reason.isEmpty())
        return reason;
    m_fileInfo = info;
    if (isAgain)
        giveText(); // before the encoding may be another one
    if (mayWait)
        m_waiting = Waiting{bytes};
    else if (isAgain)
        changeText(decoded(bytes));
    else
        replaceText(decoded(bytes));
    updateLanguage();
    if (!m_waiting) {
        codeEdit()->moveCursor(QTextCursor::Start);
        codeEdit()->document()->setModified(false);
    }
    followChanges();
    return QString();
}

void EdCodeView::replaceText(const QString &text)
{
    m_waiting.reset();
    codeEdit()->setText(text);
    noteNewText(text);
}

// Which the editor has been given.
void EdCodeView::noteNewText(const QString &text)
{
    QTextDocument *document = codeEdit()->document();
    m_lineEnds.mark(document, text);
    document->setModified(false);
    if (m_modified) // a document that gets an empty text does not tell that it is unmodified
        setModified(false);
}

bool EdCodeView::reload()
{
    return isRead(m_fileInfo, reloadQuietly());
}

QString EdCodeView::reloadQuietly()
{
    QByteArray bytes;
    const QString reason = read(m_fileInfo.absoluteFilePath(), &bytes);
    if (!reason.isEmpty())
        return reason;
    const ViewPlace place(*codeEdit()); // first: it may still take the encoding that was
    place.restore(codeEdit(), changeText(decoded(bytes)));
    m_fileInfo.refresh();
    codeEdit()->document()->setModified(false);
    return QString();
}

// Returns the reason of a failure, which changes nothing, or an empty text.
QString EdCodeView::read(const QString &path, QByteArray *bytes)
{
    Fingerprint fingerprint;
    QString reason;
    if (readTextBytes(path, bytes, &reason, &fingerprint))
        noteOwnFile(fingerprint);
    return reason;
}

void EdCodeView::noteOwnFile(const Fingerprint &fingerprint)
{
    m_seen = fingerprint;
    m_ignored.reset();
}

// Their encoding is the document's from now on. That of a buffer's file is the program's own
// choice.
QString EdCodeView::decoded(const QByteArray &bytes)
{
    QString text;
    const TextEncoding encoding = decodeText(bytes, &text);
    m_encoding = m_isBuffer ? TextEncoding::Utf8 : encoding;
    return text;
}

// By one edit, with the line ends of the text.
LineChange EdCodeView::changeText(const QString &text)
{
    QTextDocument *document = codeEdit()->document();
    if (m_lineEnds.text(*document) == text)
        return LineChange(); // an edit of nothing would be reported too
    QTextCursor edit(document);
    const EditBlock block(edit);
    const LineChange change = changeLines(document, text);
    m_lineEnds.markByEdit(document, text);
    return change;
}

bool EdCodeView::isFileChanged() const
{
    return m_seen && hasOtherBytes(m_fileInfo.absoluteFilePath(), m_ignored.value_or(*m_seen));
}

bool EdCodeView::hasForeignFile() const
{
    return m_seen && hasOtherBytes(m_fileInfo.absoluteFilePath(), *m_seen);
}

bool EdCodeView::isFileMissing() const
{
    return m_seen && !QFile::exists(m_fileInfo.absoluteFilePath());
}

void EdCodeView::ignoreFileChange()
{
    const std::optional<Fingerprint> now = fingerprintOfFile(m_fileInfo.absoluteFilePath());
    if (now)
        m_ignored = now;
}

bool EdCodeView::write(const QString &path, bool keepAsBuffer)
{
    if (path.isEmpty() || (!keepAsBuffer && !mayWriteFiles(this)))
        return false;
    // Set first, so that clearing it is always a change that titles and lists hear of.
    forceModified();
    TextFile file = keepAsBuffer && m_isBuffer ? bufferContents() : contents();
    if (!mayBeEncoded(&file))
        return false;
    QString reason;
    Fingerprint fingerprint;
    if (!writeWithWaitCursor(path, file, &reason, &fingerprint)) {
        showWarning(this, tr("Error"), tr("Cannot write file %1:\n%2.").arg(path, reason));
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
    finishWriting(fingerprint);
    return true;
}

void EdCodeView::finishWriting(const Fingerprint &fingerprint)
{
    noteOwnFile(fingerprint);
    m_fileInfo.refresh(); // it may have been asked before there was a file
    updateLanguage();
    codeEdit()->document()->setModified(false);
}

QString EdCodeView::saveBufferQuietly()
{
    QString reason;
    Fingerprint fingerprint;
    if (m_isBuffer) // somebody may have tidied up
        QDir().mkpath(m_fileInfo.absolutePath());
    if (m_isBuffer && m_modified &&
        writeTextFile(m_fileInfo.absoluteFilePath(), bufferContents(), &reason, &fingerprint))
        finishWriting(fingerprint);
    return reason;
}

TextFile EdCodeView::contents() const
{
    return {m_lineEnds.text(*codeEdit()->document()), m_encoding};
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
    if (!askYesNo(this, tr("Save"), question, QMessageBox::Yes, QMessageBox::No))
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
    bool isFree = false;
    for (int number = 0; number < mostBuffers && !isFree; ++number) {
        m_fileInfo = QFileInfo(sharedBufferDirectory(), bufferFileName(number, language()));
        const QString path = m_fileInfo.absoluteFilePath();
        isFree = !m_fileInfo.exists() && !isOpen(path) && isClaimed(path);
    }
    // Deliberate: when no name is free the buffer shares the last one, which its next saving takes.
    if (isFree)
        write(m_fileInfo.absoluteFilePath(), true);
    followChanges();
    updateTabsAndSpaces();
}

bool EdCodeView::mayShareFile() const
{
    return m_isBuffer && m_fileInfo.fileName() == bufferFileName(mostBuffers - 1, language());
}

void EdCodeView::removeBufferFile()
{
    if (!m_isBuffer)
        return;
    QFile::remove(m_fileInfo.absoluteFilePath());
    discardJournal();
}

void EdCodeView::retire()
{
    removeBufferFile();
    // Nobody was asked, as it could not be saved: it comes back.
    if (savingAllowed() || m_isBuffer || !m_modified)
        discardJournal();
    else if (flushJournal())
        m_keptJournal = m_journal->path();
    m_journal.reset();
    m_isRetired = true;
}
