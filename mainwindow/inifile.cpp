// SPDX-License-Identifier: MIT
#include "mainwindow/inifile.h"

#include "mainwindow/initext.h"
#include "workspace/safesave.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryFile>

namespace {

const qint64 sizeLimit = 16 * 1024 * 1024; // bytes; a file of the editor's has some thousands
const int keptFiles = 5;

enum class Content { Missing, Ini, Unreadable, Damaged };

QString translated(const char *text)
{
    return QCoreApplication::translate("IniFile", text);
}

// Puts the bytes of an INI file into `bytes`, and the reason into `errorMessage` for one that the
// user may not read.
Content readContent(const QString &path, QByteArray *bytes, QString *errorMessage)
{
    const QFileInfo info(path);
    if (!info.exists())
        return Content::Missing;
    // Asked first: opening a pipe waits for whoever writes into it.
    if (!info.isFile() || info.size() > sizeLimit)
        return Content::Damaged;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        *bytes = file.readAll();
    if (file.error() != QFile::NoError) {
        *errorMessage = file.errorString();
        return Content::Unreadable;
    }
    return isIniText(*bytes) ? Content::Ini : Content::Damaged;
}

// The name that the file has then; empty when it could not be renamed, or has been often enough.
QString keptAside(const QString &path)
{
    for (int i = 1; i <= keptFiles; ++i) {
        const QString name = path + QString::fromLatin1(".damaged-%1").arg(i);
        if (!QFileInfo(name).exists())
            return QDir().rename(path, name) ? name : QString();
    }
    return QString();
}

QString damageMessage(const QString &path)
{
    const QString file = QFileInfo(path).fileName();
    const QString kept = QFileInfo(keptAside(path)).fileName();
    if (kept.isEmpty())
        return translated("%1 is damaged; what could not be read of it has its default.").arg(file);
    return translated("%1 is damaged and is kept as %2; what could not be read of it has its "
                      "default.")
        .arg(file, kept);
}

// Without a file of its own there is nothing in the settings, and reading writes none.
void useNothing(const QString &path, const std::function<void(QSettings &)> &use)
{
    QSettings nothing(path + QLatin1String(".none"), QSettings::IniFormat);
    use(nothing);
}

bool write(QFile &file, const QByteArray &bytes)
{
    return file.write(bytes) == bytes.size() && file.flush();
}

// The bytes of an INI file after `set`; empty on failure. QSettings only works on files, and is
// not trusted with the real one: on some versions it writes it in place.
QByteArray changedBytes(const QString &path, const QByteArray &old,
                        const std::function<void(QSettings &)> &set)
{
    QTemporaryFile copy(path + QLatin1String(".XXXXXX"));
    if (!copy.open() || !write(copy, old))
        return QByteArray();
    // Asked before it is closed: some versions give it a name only then. From here on QSettings may
    // put another file there.
    const QString name = copy.fileName();
    copy.close();
    QSettings settings(name, QSettings::IniFormat);
    set(settings);
    settings.sync();
    if (settings.status() == QSettings::AccessError)
        return QByteArray();
    QFile changed(name);
    return changed.open(QIODevice::ReadOnly) ? changed.readAll() : QByteArray();
}

} // namespace

QString readIniFile(const QString &path, const std::function<void(QSettings &)> &use)
{
    QByteArray bytes;
    QString reason;
    const Content content = readContent(path, &bytes, &reason);
    if (content != Content::Ini)
        useNothing(path, use);
    if (content == Content::Unreadable)
        return translated("%1 cannot be read: %2").arg(QFileInfo(path).fileName(), reason);
    if (content == Content::Damaged)
        return damageMessage(path);
    if (content == Content::Missing)
        return QString();
    QSettings settings(path, QSettings::IniFormat);
    use(settings);
    settings.allKeys(); // which looks at what was not asked for, too
    return settings.status() == QSettings::FormatError ? damageMessage(path) : QString();
}

QString writeIniFile(const QString &path, const std::function<void(QSettings &)> &set)
{
    QByteArray old;
    QString reason;
    const Content content = readContent(path, &old, &reason);
    if (content == Content::Unreadable)
        return reason;
    if (content == Content::Damaged) {
        keptAside(path);
        old.clear();
    }
    QDir().mkpath(QFileInfo(path).absolutePath());
    const QByteArray changed = changedBytes(path, old, set);
    if (changed.isEmpty())
        return translated("there is no room for it, or its folder is read-only");
    return writeFileSafely(path, changed, &reason) ? QString() : reason;
}
