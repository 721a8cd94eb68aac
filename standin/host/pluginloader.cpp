// SPDX-License-Identifier: MIT
#include "standin/host/pluginloader.h"

#include "standin/host/plugincommands.h"
#include "standin/host/searchpath.h"
#include "standin/host/sharedlibrary.h"
#include "standin/host/utf8.h"
#include "standin/mel/command.h"
#include "standin/sdk/hostaccess.h"
#include "standin/sdk/hostservices.h"
#include "standin/sdk/pluginrecord.h"

#include <maya/MMessage.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>

#include <algorithm>
#include <cstring>
#include <exception>
#include <utility>

namespace standin {

using EntryPoint = MStatus (*)(MObject);

struct PluginLoader::Plugin
{
    SharedLibrary library; // first, so that it is closed last
    PluginRecord record;
    EntryPoint initialize = nullptr;
    EntryPoint uninitialize = nullptr;
};

namespace {

// In two steps, for # takes its argument unexpanded.
#define STANDIN_QUOTED(word) #word
#define STANDIN_TEXT(macro) STANDIN_QUOTED(macro)
const char apiVersion[] = STANDIN_TEXT(MAYA_API_VERSION);

// How the compiler writes the entry points' parameter when they have C++ linkage.
#if MAYA_API_VERSION >= 20180000
const char mangledParameter[] =
    "N8Autodesk4Maya16OpenMaya" STANDIN_TEXT(MAYA_API_VERSION) "7MObjectE";
#else
const char mangledParameter[] = "7MObject";
#endif

[[noreturn]] void fail(const QString &text)
{
    throw mel::RuntimeError(toUtf8(text));
}

QString inParentheses(const PluginRecord &record)
{
    return QString(" (%1)").arg(toQt(record.name));
}

// The entry point by its plain name, as with C linkage, or else by its mangled one.
EntryPoint entryPoint(SharedLibrary &library, const char *name, const PluginRecord &record)
{
    // Itanium rules: the length of the name, the name, the types of the parameters.
    const std::string mangled = "_Z" + std::to_string(std::strlen(name)) + name + mangledParameter;
    void *address = library.symbol(name);
    if (!address)
        address = library.symbol(mangled.c_str());
    if (!address) {
        fail(QString("%1 function could not be found in plug-in").arg(name) +
             inParentheses(record));
    }
    return reinterpret_cast<EntryPoint>(address);
}

// Runs an entry point; throws when it fails or lets an exception escape.
void run(EntryPoint function, PluginRecord &record)
{
    // An entry point is foreign code; nothing it throws may pass through the interpreter.
    MStatus status;
    try {
        status = function(pluginObject(record));
    } catch (const std::exception &escaped) {
        fail(QString("Unhandled exception: %1").arg(escaped.what()) + inParentheses(record));
    } catch (...) {
        fail("Unhandled exception" + inParentheses(record));
    }
    if (status.error())
        fail(status.errorString().asUTF8() + inParentheses(record));
}

} // namespace

PluginLoader::PluginLoader(HostServices &host, const PluginCommands &commands, Folders folders)
    : m_host(host), m_commands(commands), m_folders(std::move(folders))
{
}

PluginLoader::~PluginLoader() = default;

bool PluginLoader::load(const QString &nameOrFile)
{
    return reporting(&PluginLoader::loadOrThrow, nameOrFile);
}

bool PluginLoader::unload(const QString &nameOrFile)
{
    return reporting(&PluginLoader::unloadOrThrow, nameOrFile);
}

bool PluginLoader::reporting(void (PluginLoader::*action)(const QString &),
                             const QString &nameOrFile)
{
    try {
        (this->*action)(nameOrFile);
        return true;
    } catch (const mel::RuntimeError &problem) {
        m_host.output(mel::MessageKind::Error, problem.what());
        return false;
    }
}

void PluginLoader::loadOrThrow(const QString &nameOrFile)
{
    // Deliberate: no error, since scripts load what they need without asking.
    if (loaded(nameOrFile))
        return;
    const QString path = pluginFile(nameOrFile, m_folders());
    if (path.isEmpty())
        fail(QString("Plug-in, \"%1\", was not found on MAYA_PLUG_IN_PATH.").arg(nameOrFile));
    // Names decide which commands and callbacks belong together, so they are unique.
    auto owner = std::make_unique<Plugin>();
    Plugin &plugin = *owner;
    plugin.record.path = toUtf8(path);
    plugin.record.name = toUtf8(QFileInfo(path).completeBaseName());
    if (loaded(toQt(plugin.record.name)))
        fail("A plug-in of the same name is loaded already" + inParentheses(plugin.record));
    try {
        open(plugin);
        // Before it runs: what it does at loading may ask for the list of plug-ins.
        m_plugins.push_back(std::move(owner));
        run(plugin.initialize, plugin.record);
    } catch (const mel::RuntimeError &) {
        close(plugin);
        m_host.output(mel::MessageKind::Warning,
                      toUtf8("Could not load " + path + " as a plug-in"));
        throw;
    }
}

// Maps the library and finds what it has to export.
void PluginLoader::open(Plugin &plugin) const
{
    QString problem;
    if (!plugin.library.open(toQt(plugin.record.path), problem))
        fail("Unable to dynamically load : " + toQt(plugin.record.path) + "\n" + problem);
    // Before the entry points, which may be mangled differently in another release.
    const char *version = static_cast<const char *>(plugin.library.symbol("MApiVersion"));
    if (version && std::strncmp(version, apiVersion, sizeof apiVersion) != 0) {
        const QString built = QString::fromLatin1(version, static_cast<int>(strnlen(version, 20)));
        fail(
            QString("The plug-in was built for API version %1; this is %2").arg(built, apiVersion) +
            inParentheses(plugin.record));
    }
    // Both are wanted, though only one is needed now: a plug-in that cannot be unloaded is none.
    plugin.initialize = entryPoint(plugin.library, "initializePlugin", plugin.record);
    plugin.uninitialize = entryPoint(plugin.library, "uninitializePlugin", plugin.record);
    // Last, so that a library that is no plug-in at all fails for its entry points.
    if (!version)
        fail("MApiVersion could not be found in plug-in" + inParentheses(plugin.record));
}

// A plug-in whose own clean-up fails stays loaded: nobody knows which of its objects are still in
// use.
void PluginLoader::unloadOrThrow(const QString &nameOrFile)
{
    Plugin *plugin = loaded(nameOrFile);
    if (!plugin)
        fail(QString("Plug-in, \"%1\", is not loaded.").arg(nameOrFile));
    // Unmapping would leave the stack pointing into nothing.
    if (plugin->library.isOnStack())
        fail(QString("Plug-in, \"%1\", cannot be unloaded because it is still in use.")
                 .arg(nameOrFile));
    // Throws when the plug-in refuses; it stays loaded then.
    run(plugin->uninitialize, plugin->record);
    close(*plugin);
}

void PluginLoader::unloadAll()
{
    // Backwards, since a later plug-in may use an earlier one. By name: unloading shortens the
    // list.
    const QStringList all = names();
    for (int i = all.size() - 1; i >= 0; --i)
        unload(all.at(i));
    for (const std::unique_ptr<Plugin> &plugin : m_plugins)
        removeLeftovers(*plugin);
    leaveMapped();
}

void PluginLoader::leaveMapped()
{
    for (const std::unique_ptr<Plugin> &plugin : m_plugins)
        // At the end of the program nothing is gained by unmapping, and something may still point
        // there.
        plugin->library.keepMapped();
    m_plugins.clear();
}

// Whatever still points into the library would crash the host later.
void PluginLoader::removeLeftovers(const Plugin &plugin)
{
    const auto report = [&](const QString &what) {
        const QString text = QString("Plug-in, \"%1\", left %2 behind; it has been removed.");
        m_host.output(mel::MessageKind::Error, toUtf8(text.arg(toQt(plugin.record.name), what)));
    };
    for (const LiveCallback &callback : liveCallbacks()) {
        // By address, for a callback does not say whose it is.
        if (!plugin.library.contains(callback.function))
            continue;
        MMessage::removeCallback(callback.id);
        report("a callback");
    }
    for (const std::string &command : m_commands.namesOf(plugin.record.path)) {
        m_host.deregisterCommand(command);
        report(QString("the command \"%1\"").arg(toQt(command)));
    }
}

void PluginLoader::close(const Plugin &plugin)
{
    removeLeftovers(plugin);
    // Objects that the plug-in has marked for deletion need its code to be destroyed.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto isPlugin = [&](const std::unique_ptr<Plugin> &entry) {
        return entry.get() == &plugin;
    };
    m_plugins.erase(std::remove_if(m_plugins.begin(), m_plugins.end(), isPlugin), m_plugins.end());
}

// A name may carry the suffix of its file; something with a slash in it is always a path. The path
// counts for names too, since a plug-in may have chosen another name than its file's.
PluginLoader::Plugin *PluginLoader::loaded(const QString &nameOrFile) const
{
    const QString name = QFileInfo(nameOrFile).completeBaseName();
    const std::string path = toUtf8(pluginFile(nameOrFile, m_folders()));
    const bool isFile = nameOrFile.contains('/');
    for (const std::unique_ptr<Plugin> &plugin : m_plugins) {
        const PluginRecord &record = plugin->record;
        const bool hasName = record.name == toUtf8(nameOrFile) || record.name == toUtf8(name);
        if (record.path == path || (hasName && !isFile))
            return plugin.get();
    }
    return nullptr;
}

QStringList PluginLoader::names() const
{
    QStringList all;
    for (const std::unique_ptr<Plugin> &plugin : m_plugins)
        all << toQt(plugin->record.name);
    return all;
}

const PluginRecord *PluginLoader::find(const QString &nameOrFile) const
{
    const Plugin *plugin = loaded(nameOrFile);
    return plugin ? &plugin->record : nullptr;
}

} // namespace standin
