// SPDX-License-Identifier: MIT
#include "workspace/safesave.h"

#include "compat/filesystem.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QStringList>

namespace {

// Replaceable files are written or have failed; the others are to be written in place.
enum class Replacement { Done, Failed, Impossible };

// Buffers of Qt's own would only put errors off.
const QIODevice::OpenMode readAndWrite = QIODevice::ReadWrite | QIODevice::Unbuffered;

QString translated(const char *text)
{
    return QCoreApplication::translate("SafeSave", text);
}

// Creates a file with a name that begins so and has this process's number. Returns its path, or
// nothing when that cannot be done.
QString createNumbered(const QString &start, compat::Access access, QFile *file,
                       QString *errorMessage)
{
    // Not by arg(): a folder may have "%1" in its name.
    const QString numbered = start + QLatin1Char('-') +
                             QString::number(QCoreApplication::applicationPid()) + QLatin1Char('-');
    const int mostLeftovers = 100; // of programs that were killed and had the same number
    for (int i = 0; i < mostLeftovers; ++i) {
        const QString candidate = numbered + QString::number(i) + QLatin1String(".tmp");
        if (compat::createFile(file, candidate, access, errorMessage))
            return candidate;
        if (!QFile::exists(candidate))
            break;
    }
    return QString();
}

// Of programs that were killed while they saved. A folder may be shared with other computers, whose
// processes are not known here; hence the hour.
void removeLeftovers(const QDir &folder)
{
    const int hour = 3600; // s
    const QStringList pattern(QLatin1String(".corvaneEditor-*-*.tmp"));
    const QDir::Filters filters = QDir::Files | QDir::Hidden | QDir::NoSymLinks;
    const QDateTime now = QDateTime::currentDateTime();
    for (const QFileInfo &leftover : folder.entryInfoList(pattern, filters)) {
        const qint64 process = leftover.fileName().section(QLatin1Char('-'), 1, 1).toLongLong();
        if (leftover.lastModified().secsTo(now) > hour && !compat::isRunning(process))
            QFile::remove(leftover.absoluteFilePath());
    }
}

QString createBeside(const QString &path, QFile *file, QString *errorMessage)
{
    const QString folder = QFileInfo(path).path();
    removeLeftovers(QDir(folder));
    return createNumbered(folder + QLatin1String("/.corvaneEditor"), compat::Access::Ordinary, file,
                          errorMessage);
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

// The file that will take the old one's place, if there is one.
Replacement fill(QFile *fresh, const QFile &old, const QByteArray &bytes, QString *errorMessage)
{
    // Before the writing, so that nobody else can read the text; and after it, since it takes
    // permissions off that programs run with.
    if (old.isOpen() && !compat::takeAfter(*fresh, old))
        return Replacement::Impossible;
    if (!writeAll(fresh, bytes, 0, errorMessage))
        return Replacement::Failed;
    if (old.isOpen() && !compat::takeAfter(*fresh, old))
        return Replacement::Impossible;
    return finish(fresh, bytes.size(), errorMessage) ? Replacement::Done : Replacement::Failed;
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
    QFile fresh;
    const QString name = createBeside(path, &fresh, errorMessage);
    if (name.isEmpty())
        return Replacement::Impossible;

    Replacement result = fill(&fresh, old, bytes, errorMessage);
    old.close(); // some systems do not replace a file that is open
    if (result == Replacement::Done && compat::replaceFile(path, name, errorMessage))
        return result;
    if (result == Replacement::Done)
        result = Replacement::Impossible;
    fresh.close();
    QFile::remove(name);
    return result;
}

// A copy of what is about to be written in place, in case that is cut short. Returns its path;
// empty when there can be none.
QString createRescue(const QByteArray &bytes)
{
    QString ignored; // the file may be written all the same
    QFile file;
    const QString path = createNumbered(QDir::tempPath() + QLatin1String("/corvaneEditorRescue"),
                                        compat::Access::UserOnly, &file, &ignored);
    if (path.isEmpty() ||
        (writeAll(&file, bytes, 0, &ignored) && finish(&file, bytes.size(), &ignored)))
        return path;
    file.close();
    QFile::remove(path);
    return QString();
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
    const QString rescue = createRescue(bytes);
    // What lies beyond the old end comes first: a full disk refuses it before anything is lost.
    const bool written = writeAll(&file, bytes.mid(old.size()), oldSize, errorMessage) &&
                         writeAll(&file, bytes.left(old.size()), 0, errorMessage) &&
                         finish(&file, bytes.size(), errorMessage);
    QString ignored; // the first failure is the one to report
    const bool intact =
        written || ((file.isOpen() || file.open(readAndWrite)) &&
                    writeAll(&file, old, 0, &ignored) && finish(&file, oldSize, &ignored));
    if (!intact)
        *errorMessage += translated("; its old contents could not be put back");
    if (!intact && !rescue.isEmpty())
        *errorMessage += translated("; the new ones are in %1").arg(rescue);
    else if (!rescue.isEmpty())
        QFile::remove(rescue);
    return written;
}

} // namespace

bool writeFileSafely(const QString &path, const QByteArray &bytes, QString *errorMessage)
{
    const QString target = compat::linkEnd(path);
    const QFileInfo info(path);
    if (target.isEmpty() || (info.exists() && !info.isFile())) {
        *errorMessage = target.isEmpty() ? translated("Symbolic links lead in a circle")
                                         : translated("This is not a regular file");
        return false;
    }
    // A name that the locale's encoding does not have reads as another one: only the system can
    // follow such a link.
    const bool isKnown = target == path || compat::isSameFile(target, path);
    const Replacement result =
        isKnown ? replace(target, bytes, errorMessage) : Replacement::Impossible;
    const bool written = result == Replacement::Done ||
                         (result == Replacement::Impossible && (info.exists() || !isKnown) &&
                          writeInPlace(path, bytes, errorMessage));
    if (written)
        errorMessage->clear(); // of what was tried first
    return written;
}
