// SPDX-License-Identifier: MIT
#include "mainwindow/inifile.h"

#include "compat/filesystem.h"
#include "mainwindow/initext.h"
#include "mainwindow/programnames.h"
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

struct IniFile
{
    Content content = Content::Missing;
    QByteArray bytes;      // without a byte order mark
    bool isMarked = false; // by one
    QString errorMessage;  // for one that the user may not read
};

QString translated(const char *text)
{
    return QCoreApplication::translate("IniFile", text);
}

IniFile readFile(const QString &path)
{
    IniFile ini;
    const QFileInfo info(path);
    if (!info.exists())
        return ini;
    ini.content = Content::Damaged;
    // Asked first: opening a pipe waits for whoever writes into it.
    if (!info.isFile() || info.size() > sizeLimit)
        return ini;
    QFile file(path);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (file.error() != QFile::NoError) {
        ini.content = Content::Unreadable;
        ini.errorMessage = file.errorString();
    } else if (isIniText(bytes)) {
        ini.content = Content::Ini;
        ini.bytes = withoutByteOrderMark(bytes);
        ini.isMarked = ini.bytes.size() != bytes.size();
    }
    return ini;
}

QString damagedName(const QString &path, int number)
{
    return path + QString::fromLatin1(".damaged-%1").arg(number);
}

// A number that is free; when there is none, the oldest file goes and the others move up.
int freeNumber(const QString &path)
{
    for (int i = 1; i <= keptFiles; ++i) {
        if (!QFileInfo(damagedName(path, i)).exists())
            return i;
    }
    QFile::remove(damagedName(path, 1));
    for (int i = 1; i < keptFiles; ++i)
        QDir().rename(damagedName(path, i + 1), damagedName(path, i));
    return keptFiles;
}

// The name that the file has then; empty when it could not be renamed.
QString keptAside(const QString &path)
{
    const QString name = damagedName(path, freeNumber(path));
    return QDir().rename(path, name) ? name : QString();
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

bool write(QFile &file, const QByteArray &bytes)
{
    return file.write(bytes) == bytes.size() && file.flush();
}

// QSettings only works on files. Not beside the real one, whose folder may be read-only. Its name,
// which some versions give it only now; empty on failure.
QString fill(QTemporaryFile &copy, const QByteArray &bytes)
{
    const bool isFilled = copy.open() && write(copy, bytes);
    const QString name = isFilled ? copy.fileName() : QString();
    copy.close();
    return name;
}

QString copyTemplate()
{
    return QDir::tempPath() + QLatin1String("/" CORVANE_BASE_NAME ".XXXXXX");
}

// The bytes of an INI file after `set`; empty on failure. QSettings is not trusted with the real
// file: on some versions it writes it in place.
QByteArray changedBytes(const QByteArray &old, const std::function<void(QSettings &)> &set)
{
    QTemporaryFile copy(copyTemplate());
    const QString name = fill(copy, old);
    if (name.isEmpty())
        return QByteArray();
    QSettings settings(name, QSettings::IniFormat);
    set(settings);
    settings.sync();
    if (settings.status() == QSettings::AccessError)
        return QByteArray();
    QFile changed(name); // QSettings may have put another file there
    return changed.open(QIODevice::ReadOnly) ? changed.readAll() : QByteArray();
}

// What QSettings shall read: not the file itself when it would misunderstand it. Nothing is in
// resources under this name, and reading writes nothing there.
QString readableName(const QString &path, const IniFile &ini, QTemporaryFile &copy)
{
    const QString nothing = QLatin1String(":/no settings");
    if (ini.content != Content::Ini)
        return nothing;
    if (!ini.isMarked)
        return path;
    const QString name = fill(copy, ini.bytes);
    return name.isEmpty() ? nothing : name;
}

// A link may lead to a folder that is not there yet.
void makeFolderOf(const QString &path)
{
    const QString end = compat::linkEnd(path);
    if (!end.isEmpty())
        QDir().mkpath(QFileInfo(end).absolutePath());
}

} // namespace

QString readIniFile(const QString &path, const std::function<void(QSettings &)> &use)
{
    const IniFile ini = readFile(path);
    QTemporaryFile copy(copyTemplate());
    QSettings settings(readableName(path, ini, copy), QSettings::IniFormat);
    use(settings);
    switch (ini.content) {
    case Content::Missing:
        return QString();
    case Content::Unreadable:
        return translated("%1 cannot be read: %2")
            .arg(QFileInfo(path).fileName(), ini.errorMessage);
    case Content::Damaged:
        return damageMessage(path);
    case Content::Ini:
        break;
    }
    settings.allKeys(); // which looks at what was not asked for, too
    return settings.status() == QSettings::FormatError ? damageMessage(path) : QString();
}

QString writeIniFile(const QString &path, const std::function<void(QSettings &)> &set)
{
    const IniFile ini = readFile(path);
    if (ini.content == Content::Unreadable)
        return ini.errorMessage;
    if (ini.content == Content::Damaged)
        keptAside(path);
    makeFolderOf(path);
    const QByteArray changed = changedBytes(ini.bytes, set);
    if (changed.isEmpty())
        return translated("there is no room for a copy in %1").arg(QDir::tempPath());
    // Maya quits and unloads the plug-in: the second time there is nothing new.
    if (changed == ini.bytes && !ini.isMarked)
        return QString();
    QString reason;
    return writeFileSafely(path, changed, &reason) ? QString() : reason;
}

QString keepLaterVersion(const QString &path)
{
    const QString name = path + QLatin1String(".later-version");
    const QString file = QFileInfo(path).fileName();
    if (!QFileInfo(name).exists() && !QFile::copy(path, name))
        return translated("%1 is of a later version; what is not known of it will be lost.")
            .arg(file);
    return translated("%1 is of a later version; what is not known of it is kept in %2.")
        .arg(file, QFileInfo(name).fileName());
}
