// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace standin {

class HostServices;
class PluginSearch;
class SharedLibrary;
struct PluginRecord;

// The plug-ins of a session: finds, loads, initialises and unloads them. Everything that goes wrong
// is reported as a message.
class PluginLoader
{
public:
    explicit PluginLoader(HostServices &host);
    ~PluginLoader();

    // By file, or by a name that is looked up on the search path. A plug-in that is loaded already
    // is left alone. Returns whether it is loaded now.
    bool load(const QString &nameOrFile);
    // By name or file. Refused while one of the plug-in's commands runs.
    bool unload(const QString &nameOrFile);
    // The last loaded first.
    void unloadAll();

    QStringList names() const; // in the order of loading
    // Null when no plug-in of that name or file is loaded.
    const PluginRecord *find(const QString &nameOrFile) const;

    // Commands are counted as they come and go and as they run, so that none outlives its plug-in.
    void commandAdded(const std::string &plugin, const std::string &command);
    void commandRemoved(const std::string &command);
    void commandStarted(const std::string &plugin);
    void commandFinished(const std::string &plugin);

private:
    struct Plugin;

    QString pathOf(const QString &nameOrFile) const;
    Plugin *loaded(const QString &nameOrFile) const;
    bool initialize(Plugin &plugin);
    bool uninitialize(Plugin &plugin);
    void removeLeftovers(Plugin &plugin);
    void close(Plugin &plugin);
    void error(const QString &text) const;

    HostServices &m_host;
    std::vector<std::unique_ptr<Plugin>> m_plugins;
};

} // namespace standin
