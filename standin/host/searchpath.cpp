// SPDX-License-Identifier: MIT
#include "standin/host/searchpath.h"

#include <maya/MTypes.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace standin {

namespace {

// The platform as module files spell it, which is not how "about -operatingSystem" does.
#if defined(_WIN32)
const char listSeparator = ';';
const char platform[] = "win64";
const char pluginSuffix[] = ".mll";
#elif defined(__APPLE__)
const char listSeparator = ':';
const char platform[] = "mac";
const char pluginSuffix[] = ".bundle";
#else
const char listSeparator = ':';
const char platform[] = "linux";
const char pluginSuffix[] = ".so";
#endif

// The second extension of 2016 has a half of its own.
QString release()
{
    return MAYA_API_VERSION == 201650 ? QString("2016.5")
                                      : QString::number(MAYA_API_VERSION).left(4);
}

bool conditionHolds(const QString &condition)
{
    const QString key = condition.section(':', 0, 0);
    const QString value = condition.section(':', 1);
    // The interface has one language, so no locale is refused.
    if (key == "MAYAVERSION")
        return value == release();
    return key == "PLATFORM" ? value == platform : key == "LOCALE";
}

// Known keys only: on Windows a path has a colon as well.
bool isCondition(const QString &word)
{
    const QString key = word.section(':', 0, 0);
    return word.contains(':') && (key == "MAYAVERSION" || key == "PLATFORM" || key == "LOCALE");
}

bool isVariableName(const QString &text)
{
    for (const QChar character : text) {
        if (!character.isLetterOrNumber() && character != '_')
            return false;
    }
    return !text.isEmpty();
}

// Reads one module file line by line. A heading begins a module; the lines after it may move its
// folders:
//   + PLATFORM:linux name 1.0 ../there
//   plug-ins: bin/linux
//   LIBRARY_FOLDER := lib
// Lines about icons and presets mean nothing here and are skipped.
class ModuleReader
{
public:
    explicit ModuleReader(const QString &folder) : m_folder(folder) {}

    void readLine(const QString &line);
    // Adds the module that was read last.
    void finish();

    ModuleFolders folders;

private:
    void readHeading(const QString &line);
    void readVariable(const QString &line);

    const QDir m_folder;
    // Whether the module being read is in force; false before the first heading.
    bool m_applies = false;
    QString m_plugins;
    QString m_scripts;
    QString m_root;
};

void ModuleReader::readLine(const QString &line)
{
    // The mark asks for subfolders too, which are not looked for.
    const QString text = line.startsWith("[r] ") ? line.mid(4) : line;
    if (text.startsWith('+'))
        readHeading(text.mid(1).simplified());
    else if (text.startsWith("plug-ins: "))
        m_plugins = text.mid(10).trimmed();
    else if (text.startsWith("scripts: "))
        m_scripts = text.mid(9).trimmed();
    else if (m_applies && text.contains('='))
        readVariable(text);
}

// NAME=value, or NAME:=path relative to the module; a plus before either adds to a list.
void ModuleReader::readVariable(const QString &line)
{
    ModuleVariable variable;
    QString name = line.section('=', 0, 0).trimmed();
    variable.value = line.section('=', 1).trimmed();
    if (name.endsWith(':')) {
        name.chop(1);
        variable.value = QDir::cleanPath(QDir(m_root).absoluteFilePath(variable.value));
    }
    variable.isAdded = name.endsWith('+');
    if (variable.isAdded)
        name.chop(1);
    variable.name = name.trimmed();
    if (isVariableName(variable.name))
        folders.variables.push_back(variable);
}

// [conditions] name version path
void ModuleReader::readHeading(const QString &line)
{
    finish();
    m_applies = true;
    QString rest = line;
    while (isCondition(rest.section(' ', 0, 0))) {
        m_applies = m_applies && conditionHolds(rest.section(' ', 0, 0));
        rest = rest.section(' ', 1);
    }
    const QString path = rest.section(' ', 2); // may hold blanks
    m_applies = m_applies && !path.isEmpty();
    m_root = m_folder.absoluteFilePath(path);
    m_plugins = "plug-ins";
    m_scripts = "scripts";
}

void ModuleReader::finish()
{
    // Only now, since lines after the heading may move the folders.
    if (m_applies) {
        const QDir root(QDir::cleanPath(m_root));
        folders.plugins << QDir::cleanPath(root.absoluteFilePath(m_plugins));
        folders.scripts << QDir::cleanPath(root.absoluteFilePath(m_scripts));
    }
    m_applies = false;
}

QString textOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The list with the parts of another one at its end that it does not have yet.
QString withParts(const QString &list, const QString &added)
{
    QStringList parts = list.split(listSeparator);
    parts << added.split(listSeparator);
    // Empty parts come from an empty list.
    parts.removeAll(QString());
    parts.removeDuplicates();
    return parts.join(QString(listSeparator));
}

} // namespace

QStringList foldersInEnvironment(const char *variable)
{
    QStringList folders;
    const QStringList parts = QFile::decodeName(qgetenv(variable)).split(listSeparator);
    for (const QString &part : parts) {
        if (!part.isEmpty())
            folders << QDir::cleanPath(part);
    }
    return folders;
}

ModuleFolders parseModules(const QString &text, const QString &folder)
{
    ModuleReader reader(folder);
    const QStringList lines = text.split('\n');
    for (const QString &line : lines)
        reader.readLine(line.trimmed());
    reader.finish();
    return reader.folders;
}

ModuleFolders readModules(const QString &userModules)
{
    ModuleFolders all;
    const QStringList folders = foldersInEnvironment("MAYA_MODULE_PATH") << userModules;
    for (const QString &folder : folders) {
        const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
        for (const QFileInfo &file : files) {
            const ModuleFolders found = parseModules(textOf(file.filePath()), folder);
            all.plugins << found.plugins;
            all.scripts << found.scripts;
            all.variables.insert(all.variables.end(), found.variables.begin(),
                                 found.variables.end());
        }
    }
    return all;
}

void applyVariables(const ModuleFolders &modules)
{
    for (const ModuleVariable &variable : modules.variables) {
        const QByteArray name = variable.name.toUtf8();
        const QString value =
            variable.isAdded
                ? withParts(QFile::decodeName(qgetenv(name.constData())), variable.value)
                : variable.value;
        qputenv(name.constData(), QFile::encodeName(value));
    }
}

QString pluginFile(const QString &nameOrFile, const QStringList &folders)
{
    const QFileInfo given(nameOrFile);
    if (given.isFile() && (given.isAbsolute() || nameOrFile.contains('/')))
        return QDir::cleanPath(given.absoluteFilePath());
    const QStringList all = foldersInEnvironment("MAYA_PLUG_IN_PATH") + folders;
    const QStringList names = QStringList() << nameOrFile << nameOrFile + pluginSuffix;
    for (const QString &folder : all) {
        for (const QString &name : names) {
            const QFileInfo file(QDir(folder), name);
            if (file.isFile())
                return QDir::cleanPath(file.absoluteFilePath());
        }
    }
    return QString();
}

} // namespace standin
