// SPDX-License-Identifier: MIT
// The window and its files of settings: what is read when it is made, and written on demand.
#include "mainwindow/kestrowl.h"

#include "analysis/edoutlineview.h"
#include "mainwindow/filenames.h"
#include "workspace/flagscope.h"
#include "mainwindow/inifile.h"
#include "mainwindow/programnames.h"
#include "mainwindow/visibility.h"
#include "output/edoutputview.h"
#include "preferences/preferences.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/edexplorerview.h"
#include "workspace/journalfolder.h"
#include "workspace/workspacestate.h"

#include <QDateTime>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QStatusBar>
#include <QToolBar>

QString Kestrowl::settingsPath() const
{
    return joinedPath(m_preferencesDirectory, QLatin1String(CORVANE_BASE_NAME ".ini"));
}

QString Kestrowl::colorsPath() const
{
    return joinedPath(m_preferencesDirectory, QLatin1String(CORVANE_BASE_NAME "Colors.ini"));
}

QString Kestrowl::makeBufferDirectory()
{
    const QString path =
        joinedPath(m_preferencesDirectory, QLatin1String(CORVANE_BASE_NAME "Temp"));
    QDir().mkpath(path);
    EdCodeView::setBufferDirectory(QDir(path));
    return path;
}

// Documents come last: they are shown in the colours, and as the preferences say.
void Kestrowl::readSettings()
{
    WorkspaceState documents;
    warnOf(readIniFile(settingsPath(), [this, &documents](QSettings &settings) {
        applyWindowSettings(readWindowSettings(settings));
        readPreferences(settings);
        documents = readWorkspaceState(settings);
    }));
    bool isKnownVersion = true;
    warnOf(readIniFile(colorsPath(), [&isKnownVersion](QSettings &settings) {
        isKnownVersion = readColors(settings);
    }));
    if (!isKnownVersion)
        warnOf(keepLaterVersion(colorsPath()));
    readLicense();
    applyToggles();
    updatePreferences();
    restoreDocuments(documents);
}

void Kestrowl::restoreDocuments(const WorkspaceState &stored)
{
    const QFileInfo settings(settingsPath());
    const QDateTime storedAt = settings.exists() ? settings.lastModified() : QDateTime();
    QStringList problems = m_central->restore(m_journals->tabsToRestore(stored, storedAt));
    problems += m_central->recover(*m_journals);
    for (const QString &problem : problems)
        warnOf(problem);
    if (!m_journals->isValid())
        warnOf(tr("Unsaved text is not safe from a crash: no folder can be made for it."));
    rememberTabs();
}

void Kestrowl::rememberTabs()
{
    m_settingsHaveTabs = false;
    if (m_journals->storeTabs(m_central->state()))
        m_journals->forgetDeadSessions(); // what their lists told is in this one
    else if (m_journals->isValid())
        setStatusText(tr("The list of open documents cannot be kept."));
}

void Kestrowl::warnOfJournal(const QString &reason)
{
    setStatusText(tr("Unsaved text is not safe from a crash: %1.").arg(reason));
}

QString Kestrowl::writeSettings()
{
    makeBufferDirectory();      // somebody may have tidied up
    m_central->flushJournals(); // the host may end without another word
    QStringList problems = m_central->saveBuffersQuietly();
    const QString failure = storeSettings(m_central->state());
    rememberTabs(); // or the older list would bring back what was closed since
    m_settingsHaveTabs = failure.isEmpty();
    problems << failure;
    return problems.join(QLatin1String(" ")).trimmed();
}

QString Kestrowl::storeSettings(const WorkspaceState &documents)
{
    QStringList failures;
    failures << writeIniFile(settingsPath(), [this, &documents](QSettings &settings) {
        writeWindowSettings(settings, windowSettings());
        writePreferences(settings);
        writeWorkspaceState(settings, documents);
    });
    failures << writeIniFile(colorsPath(), writeColors);
    failures.removeAll(QString());
    failures.removeDuplicates();
    const QString reasons = failures.join(QLatin1String("; "));
    return reasons.isEmpty() ? reasons : tr("The settings are not saved: %1").arg(reasons);
}

// No dialog: Maya is starting, perhaps with nobody in front of it.
void Kestrowl::warnOf(const QString &problem)
{
    if (problem.isEmpty())
        return;
    setStatusText(problem);
    appendOutputText(QString::fromLatin1("// Warning: %1 //\n").arg(problem));
}

void Kestrowl::applyWindowSettings(const WindowSettings &stored)
{
    m_license = stored.license;
    m_dockGeometry = stored.dockGeometry;
    m_visibleDocks = stored.visibleDocks;
    if (!stored.geometry.isEmpty())
        restoreGeometry(stored.geometry);
    m_central->restoreSplitter(stored.splitterState);
    // What floats becomes a window, which would flash up before it is put away.
    for (QDockWidget *dock : m_docks)
        dock->setAttribute(Qt::WA_DontShowOnScreen);
    restoreDocks(stored);
    updateVisibleDocks();
    hideFloatingDocks();
    for (QDockWidget *dock : m_docks)
        dock->setAttribute(Qt::WA_DontShowOnScreen, false);
}

void Kestrowl::restoreDocks(const WindowSettings &stored)
{
    const FlagScope ignoring(&m_ignoresDocks);
    const bool wasHidden = !stored.visible && !stored.hiddenState.isEmpty();
    const QByteArray &state = wasHidden ? stored.hiddenState : stored.windowState;
    if (state.isEmpty() || !restoreState(state))
        arrangeDocks(stored);
    if (stored.panes == Panes::Editor)
        showEditor();
    else if (stored.panes == Panes::History)
        showOutput();
}

// For when there is no state that this version of Qt understands.
void Kestrowl::arrangeDocks(const WindowSettings &stored)
{
    const bool isKnown = stored.panes != Panes::Both || stored.visibleDocks != 0;
    const int visible = isKnown ? stored.visibleDocks : initialDocks;
    setDocksVisible(m_docks, visible, true);
    setDocksVisible(m_docks, ~visible, false);
    for (int i = 0; i < dockCount; ++i) {
        const Dock id = static_cast<Dock>(i);
        if ((stored.floatingDocks & dockFlag(id)) == 0)
            continue;
        m_docks[id]->setFloating(true);
        m_docks[id]->restoreGeometry(stored.dockGeometry[id]);
    }
}

WindowSettings Kestrowl::windowSettings()
{
    saveDockWidgetGeometry();
    WindowSettings window;
    window.license = m_license;
    window.geometry = saveGeometry();
    window.windowState = saveState();
    window.dockGeometry = m_dockGeometry;
    window.splitterState = m_central->splitterState();
    window.panes = shownPanes();
    window.visibleDocks = m_visibleDocks;
    window.floatingDocks = floatingDockFlags(m_docks);
    window.hiddenState = m_hiddenState;
    window.visible = isVisible();
    return window;
}

Panes Kestrowl::shownPanes() const
{
    if (isPutAway(m_central))
        return Panes::History;
    return m_visibleDocks & dockFlag(Dock::Output) ? Panes::Both : Panes::Editor;
}

// The switches as the settings file has them, without telling anyone. Maya's other switches keep
// their state in Maya.
void Kestrowl::applyToggles()
{
    suppressStackWindow(preferences().suppressStackWindow, true);
    showTabsAndSpaces(preferences().showTabsAndSpaces);
    showEndOfLine(preferences().showEndOfLine);
    wordWrap(preferences().wordWrapEnabled);
}

void Kestrowl::updatePreferences()
{
    updateBars();
    m_central->setTabBarVisible(preferences().tabBar);
    m_central->setTabsMovable(!preferences().lockTabs);
    m_central->setTabsClosable(preferences().closeButtonOnTabs);
    m_central->setTabsDoubleClickToClose(preferences().doubleClickToClose);
    m_output->setLineLimit(preferences().outputWindowBufferSize);
    m_output->setTabWidth(preferences().tabSize); // columns
    m_output->applyColors();
    m_central->updateTabsAndSpaces();
    m_central->updateFontAndColors(); // hidden characters too
    m_central->updateDiagnostics();
    // Only here: which directory it is depends on the user of Maya, not on the list of defaults.
    if (preferences().projectDir.isEmpty())
        preferences().projectDir = m_scriptDirectory;
    m_explorer->setProjectDirectory(preferences().projectDir);
    m_explorer->updateFilter();
    m_outline->updatePreferences();
    overrideScriptEditorButton(preferences().overrideScriptEditor);
}

// What was hidden by hand stays so while other preferences change.
void Kestrowl::updateBars()
{
    if (m_showsToolBars != preferences().toolbar)
        setToolbarVisible(preferences().toolbar);
    if (m_showsStatusBar != preferences().statusBar)
        setShown(statusBar(), preferences().statusBar);
    m_showsToolBars = preferences().toolbar;
    m_showsStatusBar = preferences().statusBar;
}

void Kestrowl::updatePreferencesAndWrite()
{
    updatePreferences();
    emit preferencesApplied();
    warnOf(writeSettings());
}
