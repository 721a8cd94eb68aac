// SPDX-License-Identifier: MIT
#include "mainwindow/windowsettings.h"

#include "preferences/colorlist.h"
#include "workspace/workspacestate.h"

#include <QCryptographicHash>
#include <QSettings>
#include <QStringList>
#include <QVariant>

#include <limits>

namespace {

const int fileVersion = 1;
const int allDocks = 127;
const int anyNumber = std::numeric_limits<int>::max();

struct DockKey
{
    const char *name;
    Dock dock;
};

const DockKey dockKeys[] = {
    {"outputGeometry", Dock::Output},       {"buffersGeometry", Dock::Buffers},
    {"documentsGeometry", Dock::Documents}, {"outlineGeometry", Dock::Outline},
    {"projectGeometry", Dock::Project},     {"quickHelpGeometry", Dock::QuickHelp},
};

QString checksum(const QByteArray &bytes)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex().constData());
}

// Of the two keys beside that of the bytes.
QString lengthKey(const char *key)
{
    return QLatin1String(key) + QLatin1String("Length");
}

QString checksumKey(const char *key)
{
    return QLatin1String(key) + QLatin1String("Checksum");
}

QByteArray bytesOf(const QSettings &settings, const char *key)
{
    const QByteArray bytes = settings.value(QLatin1String(key)).toByteArray();
    const bool isWhole =
        settings.value(lengthKey(key)).toString() == QString::number(bytes.size()) &&
        settings.value(checksumKey(key)).toString() == checksum(bytes);
    return isWhole ? bytes : QByteArray();
}

void setBytes(QSettings &settings, const char *key, const QByteArray &bytes)
{
    settings.setValue(QLatin1String(key), bytes);
    settings.setValue(lengthKey(key), int(bytes.size()));
    settings.setValue(checksumKey(key), checksum(bytes));
}

// A number that is not below `smallest` or above `largest`.
int numberOf(const QSettings &settings, const char *key, int byDefault, int smallest, int largest)
{
    bool isNumber = false;
    const int number = settings.value(QLatin1String(key)).toString().toInt(&isNumber);
    return isNumber && number >= smallest && number <= largest ? number : byDefault;
}

} // namespace

WindowSettings readWindowSettings(QSettings &settings)
{
    WindowSettings window;
    settings.beginGroup(QLatin1String("mainwindow"));
    window.license = settings.value(QLatin1String("license")).toString();
    window.geometry = bytesOf(settings, "windowGeometry");
    window.windowState = bytesOf(settings, "windowState");
    for (const DockKey &key : dockKeys)
        window.dockGeometry[key.dock] = bytesOf(settings, key.name);
    window.splitterState = bytesOf(settings, "splitterState");
    window.panes = Panes(numberOf(settings, "editorState", 0, 0, int(Panes::History)));
    window.visibleDocks = numberOf(settings, "dockState", initialDocks, 0, allDocks);
    window.hiddenState = bytesOf(settings, "hiddenState");
    window.visible = settings.value(QLatin1String("visible")).toString() == QLatin1String("true");
    window.floatingDocks = numberOf(settings, "floatingDockState", 0, 0, allDocks);
    settings.endGroup();
    return window;
}

void writeWindowSettings(QSettings &settings, const WindowSettings &window)
{
    settings.beginGroup(QLatin1String("mainwindow"));
    settings.setValue(QLatin1String("version"), fileVersion);
    // A session that has none keeps what another one may have been given meanwhile.
    if (!window.license.isEmpty() || !settings.contains(QLatin1String("license")))
        settings.setValue(QLatin1String("license"), window.license);
    setBytes(settings, "windowGeometry", window.geometry);
    setBytes(settings, "windowState", window.windowState);
    for (const DockKey &key : dockKeys)
        setBytes(settings, key.name, window.dockGeometry[key.dock]);
    setBytes(settings, "splitterState", window.splitterState);
    settings.setValue(QLatin1String("editorState"), int(window.panes));
    // Deliberate, see the header.
    const int visibleDocks = window.panes == Panes::Both ? 0 : window.visibleDocks;
    settings.setValue(QLatin1String("dockState"), visibleDocks);
    setBytes(settings, "hiddenState", window.hiddenState);
    settings.setValue(QLatin1String("visible"), window.visible);
    settings.setValue(QLatin1String("floatingDockState"), window.floatingDocks);
    settings.endGroup();
}

WorkspaceState readWorkspaceState(QSettings &settings)
{
    WorkspaceState state;
    settings.beginGroup(QLatin1String("tabs"));
    state.openTabs = settings.value(QLatin1String("openTabs")).toStringList();
    state.activeView = numberOf(settings, "activeView", 0, 0, anyNumber);
    state.indexA = numberOf(settings, "indexA", -1, 0, anyNumber);
    state.indexB = numberOf(settings, "indexB", -1, 0, anyNumber);
    settings.endGroup();
    return state;
}

void writeWorkspaceState(QSettings &settings, const WorkspaceState &state)
{
    settings.beginGroup(QLatin1String("tabs"));
    settings.setValue(QLatin1String("openTabs"), state.openTabs);
    settings.setValue(QLatin1String("activeView"), state.activeView);
    settings.setValue(QLatin1String("indexA"), state.indexA);
    settings.setValue(QLatin1String("indexB"), state.indexB);
    settings.endGroup();
}

bool readColors(QSettings &settings)
{
    settings.beginGroup(QLatin1String("colors"));
    const int version = numberOf(settings, "version", textFormatListVersion, 0, anyNumber);
    readTextFormatList(settings.value(QLatin1String("format")).toStringList(), version);
    settings.endGroup();
    return version <= textFormatListVersion;
}

void writeColors(QSettings &settings)
{
    settings.beginGroup(QLatin1String("colors"));
    settings.setValue(QLatin1String("version"), textFormatListVersion);
    settings.setValue(QLatin1String("format"), textFormatList());
    settings.endGroup();
}
