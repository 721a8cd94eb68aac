// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace standin {

class HostServices;
class PluginCommands;
struct PluginRecord;

// The plug-ins of a session: finds, loads, initialises and unloads them. A library stays mapped
// from load() to unload(); nothing of it may be used afterwards, so what it leaves behind is
// removed and reported. Main thread only; a plug-in being loaded may load others.
class PluginLoader
{
public:
    // Where plug-ins given by name are looked up, after MAYA_PLUG_IN_PATH; asked each time.
    using Folders = std::function<QStringList()>;

    PluginLoader(HostServices &host, const PluginCommands &commands, Folders folders);
    ~PluginLoader();

    // By file, or by a name that is looked up on the search path. A plug-in that is loaded already
    // is left alone. What goes wrong is reported as a message; returns whether it is loaded now.
    bool load(const QString &nameOrFile);
    // By name or file. Refused while code of the plug-in is on the stack.
    bool unload(const QString &nameOrFile);
    // The last loaded first. One that fails to unload loses its callbacks and commands and stays
    // mapped, unused, to the end of the program.
    void unloadAll();
    // Forgets the plug-ins without a word to them; their code stays mapped.
    void leaveMapped();

    // The same for commands: what goes wrong is thrown as mel::RuntimeError.
    void loadOrThrow(const QString &nameOrFile);
    void unloadOrThrow(const QString &nameOrFile);

    QStringList names() const; // in the order of loading
    // Null when no plug-in of that name or file is loaded.
    const PluginRecord *find(const QString &nameOrFile) const;

private:
    struct Plugin;

    // Null when it is not.
    Plugin *loaded(const QString &nameOrFile) const;
    void open(Plugin &plugin) const;
    // Callbacks and commands that the plug-in's own clean-up has left.
    void removeLeftovers(const Plugin &plugin);
    // Takes the plug-in off the list and unmaps it, so the reference may be dead afterwards.
    void close(const Plugin &plugin);
    bool reporting(void (PluginLoader::*action)(const QString &), const QString &nameOrFile);

    // Both outlive the loader.
    HostServices &m_host;
    const PluginCommands &m_commands;
    const Folders m_folders;
    // In the order of loading. By pointer: entry points keep the address of their record.
    std::vector<std::unique_ptr<Plugin>> m_plugins;
};

} // namespace standin
