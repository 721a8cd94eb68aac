// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace standin {

// An environment variable as a module file asks for it; a path in it is a full one already.
struct ModuleVariable
{
    QString name;
    QString value;
    bool isAdded = false; // to the end of the list that the variable holds
};

// What module files add, in their order. The folders are full paths.
struct ModuleFolders
{
    QStringList plugins;
    QStringList scripts;
    std::vector<ModuleVariable> variables;
};

// A list of folders in an environment variable, separated as the platform does. Clean paths, empty
// parts left out; whether the folders exist is not looked at.
QStringList foldersInEnvironment(const char *variable);

// Reads every file in the folders of MAYA_MODULE_PATH and then in the user's folder of modules,
// whatever its suffix, in the order of the folders and of their names. Modules whose conditions
// (release, platform) do not hold are left out, and lines that make no sense are skipped without a
// word.
ModuleFolders readModules(const QString &userModules);
// One module file's text; relative paths start at `folder`, where the file lies.
ModuleFolders parseModules(const QString &text, const QString &folder);

// Sets the environment variables that the modules ask for. Doing it again changes nothing.
void applyVariables(const ModuleFolders &modules);

// The file of a plug-in given by file or by name, empty when there is none. A name may lack the
// platform's suffix. It is looked up in MAYA_PLUG_IN_PATH and in `folders`; a file is given with a
// slash in it, so that a folder's contents cannot pass for one by chance.
QString pluginFile(const QString &nameOrFile, const QStringList &folders = QStringList());

} // namespace standin
