// SPDX-License-Identifier: MIT
#include "workspace/safesave.h"

#include "compat/filesystem.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QString>

namespace {

// Replaceable files are written or have failed; the others are to be written in place.
enum class Replacement { Done, Failed, Impossible };

// Buffers of Qt's own would only put errors off.
const QIODevice::OpenMode readAndWrite = QIODevice::ReadWrite | QIODevice::Unbuffered;

QString translated(const char *text)
{
    return QCoreApplication::translate("SafeSave", text);
}

// The file that a path leads to over any number of links; empty when they lead in a circle.
QString linkEnd(const QString &path)
{
    const int mostLinks = 40; // as systems have it
    QString end = path;
    for (int i = 0; i < mostLinks; ++i) {
        const QString next = compat::linkTarget(end);
        if (next.isEmpty())
            return end;
        end = next;
    }
    return QString();
}

// Creates an empty file beside another. Empty when that cannot be done.
QString createBeside(const QString &path, QString *errorMessage)
{
    // Not by arg(): a folder may have "%1" in its name.
    const QString start = QFileInfo(path).path() + QLatin1String("/.corvaneEditor-") +
                          QString::number(QCoreApplication::applicationPid()) + QLatin1Char('-');
    const int mostLeftovers = 100; // of programs that were killed and had the same number
    for (int i = 0; i < mostLeftovers; ++i) {
        const QString candidate = start + QString::number(i) + QLatin1String(".tmp");
        if (compat::createFile(candidate, errorMessage))
            return candidate;
        if (!QFile::exists(candidate))
            break;
    }
    return QString();
}

// A short write sets no error; the next one does.
bool writeAll(QFile *file, const QByteArray &bytes, qint64 offset, QString *errorMessage)
{
    bool written = file->seek(offset);
    for (qint64 done = 0; written && done < bytes.size();) {
        const qint64 count = file->write(bytes.constData() + done, bytes.size() - done);
        written = count > 0;
        done += count;
    }
    if (!written)
        *errorMessage = file->errorString();
    return written;
}

// Whether all of the file, and nothing behind it, is on the disk.
bool finish(QFile *file, qint64 size, QString *errorMessage)
{
    if (file->size() > size && !file->resize(size)) {
        *errorMessage = file->errorString();
        return false;
    }
    if (!compat::flushToDisk(*file, errorMessage))
        return false;
    const bool complete = file->size() == size;
    file->close();
    if (complete && file->error() == QFile::NoError)
        return true;
    *errorMessage = complete ? file->errorString() : translated("The file was cut short");
    return false;
}

// Leaves a file that it did not replace as it was, and nothing beside it.
Replacement replace(const QString &path, const QByteArray &bytes, QString *errorMessage)
{
    QFile old(path);
    if (old.exists() && !old.open(readAndWrite)) {
        *errorMessage = old.errorString();
        return Replacement::Failed;
    }
    if (old.isOpen() && compat::hasOtherNames(old))
        return Replacement::Impossible;
    QFile fresh(createBeside(path, errorMessage));
    if (fresh.fileName().isEmpty())
        return Replacement::Impossible;

    Replacement result = Replacement::Impossible;
    if (!fresh.open(readAndWrite)) {
        *errorMessage = fresh.errorString();
    } else if (!old.isOpen() || compat::takeAfter(fresh, old)) {
        old.close(); // some systems do not replace a file that is open
        const bool written =
            writeAll(&fresh, bytes, 0, errorMessage) && finish(&fresh, bytes.size(), errorMessage);
        if (!written)
            result = Replacement::Failed;
        else if (compat::replaceFile(path, fresh.fileName(), errorMessage))
            return Replacement::Done;
    }
    fresh.remove();
    return result;
}

// Creates a file that is not there.
bool writeInPlace(const QString &path, const QByteArray &bytes, QString *errorMessage)
{
    QFile file(path);
    const QByteArray old = file.open(readAndWrite) ? file.readAll() : QByteArray();
    const qint64 oldSize = file.size();
    if (!file.isOpen() || file.error() != QFile::NoError || old.size() != oldSize) {
        *errorMessage = file.errorString();
        return false;
    }
    // What lies beyond the old end comes first: a full disk refuses it before anything is lost.
    const bool written = writeAll(&file, bytes.mid(old.size()), oldSize, errorMessage) &&
                         writeAll(&file, bytes.left(old.size()), 0, errorMessage) &&
                         finish(&file, bytes.size(), errorMessage);
    if (written)
        return true;
    QString ignored; // the first failure is the one to report
    const bool restored = (file.isOpen() || file.open(readAndWrite)) &&
                          writeAll(&file, old, 0, &ignored) && finish(&file, oldSize, &ignored);
    if (!restored)
        *errorMessage += translated("; its old contents could not be put back");
    return false;
}

} // namespace

bool writeFileSafely(const QString &path, const QByteArray &bytes, QString *errorMessage)
{
    const QString target = linkEnd(path);
    const QFileInfo info(path);
    if (target.isEmpty() || (info.exists() && !info.isFile())) {
        *errorMessage = target.isEmpty() ? translated("Symbolic links lead in a circle")
                                         : translated("This is not a regular file");
        return false;
    }
    // A name that the locale's encoding does not have reads as another one: only the system can
    // follow such a link.
    if (target != path && !compat::isSameFile(target, path))
        return writeInPlace(path, bytes, errorMessage);
    const Replacement result = replace(target, bytes, errorMessage);
    if (result != Replacement::Impossible)
        return result == Replacement::Done;
    return info.exists() && writeInPlace(target, bytes, errorMessage);
}
