// SPDX-License-Identifier: MIT
#include "tests/mainwindow/windowfixture.h"
#include "tests/support/testmain.h"

#include <QDockWidget>
#include <QIcon>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QToolBar>

namespace {

struct ExpectedAction
{
    const char *name;
    const char *text;
    const char *tip; // null: as the text
    QKeySequence keys;
    const char *icon; // null: none
    bool checkable;
};

// In the order of creation.
QList<ExpectedAction> expectedActions()
{
    typedef QKeySequence K;
    const QKeySequence none;
    const ExpectedAction rows[] = {
        {"New", "&New...", "New...", K(K::New), "new", false},
        {"NewMelBuffer", "New &MEL Buffer", "New MEL Buffer", K("Ctrl+Alt+N"), nullptr, false},
        {"NewPythonBuffer", "New &Python Buffer", "New Python Buffer", K("Ctrl+Shift+N"), nullptr,
         false},
        {"Open", "&Open File...", "Open File...", K(K::Open), "openScript", false},
        {"Close", "Close", nullptr, K("Ctrl+W"), nullptr, false},
        {"CloseAll", "Close All", nullptr, none, nullptr, false},
        {"CloseAllButActive", "Close All But Active", nullptr, none, nullptr, false},
        {"Save", "&Save", "Save", K(K::Save), "save", false},
        {"SaveAs", "Save &As...", "Save As...", K(K::SaveAs), nullptr, false},
        {"SaveAll", "Save A&ll", "Save All", none, nullptr, false},
        {"Rename", "Rename...", "Rename", none, nullptr, false},
        {"SaveScriptToShelf", "Save Script to Shelf...", nullptr, none, "saveToShelf", false},
        {"ReloadFromDisk", "Reload from Disk", nullptr, none, nullptr, false},
        {"SourceScript", "Source Script...", nullptr, none, "sourceScript", false},
        {"SaveState", "Save State", nullptr, none, nullptr, false},
        {"Undo", "&Undo", "Undo", K(K::Undo), nullptr, false},
        {"Redo", "&Redo", "Redo", K(K::Redo), nullptr, false},
        {"Cut", "Cu&t", "Cut", K(K::Cut), nullptr, false},
        {"Copy", "&Copy", "Copy", K(K::Copy), nullptr, false},
        {"Paste", "&Paste", "Paste", K(K::Paste), nullptr, false},
        {"SelectAll", "Select &All", "Select All", K(K::SelectAll), nullptr, false},
        {"FindReplace", "&Find/Replace...", "Find/Replace", K(K::Find), nullptr, false},
        {"GoToLine", "&Go To...", "Go To Line", K("Ctrl+G"), nullptr, false},
        {"ConvertTabsToSpaces", "Convert Tabs to Spaces", nullptr, none, nullptr, false},
        {"ClearHistory", "Clear History", nullptr, K("Ctrl+Shift+1"), "clearHistory", false},
        {"ClearEditor", "Clear Editor", nullptr, K("Ctrl+Shift+2"), "clearInput", false},
        {"ClearAll", "Clear All", nullptr, K("Ctrl+Shift+3"), "clearAll", false},
        {"Preferences", "Preferences...", nullptr, K("Ctrl+Shift+P"), nullptr, false},
        {"EchoAllCommands", "Echo All Commands", nullptr, none, nullptr, true},
        {"EchoAllCommandsButton", "Echo All Commands", nullptr, none, "echoCommandsOff", false},
        {"LineNumbersInErrors", "Line numbers in errors", nullptr, none, nullptr, true},
        {"ShowStackTrace", "Show Stack Trace", nullptr, none, nullptr, true},
        {"SuppressStackWindow", "Suppress Stack Window", nullptr, none, nullptr, true},
        {"Execute", "Execute", nullptr, K("Ctrl+E"), "execute", false},
        {"ExecuteLine", "Execute Line", nullptr, K("Ctrl+Alt+E"), "execute_line", false},
        {"ExecuteAll", "Execute All", nullptr, K("Ctrl+Shift+E"), "executeAll", false},
        {"ShowTabsAndSpaces", "Show Tabs and Spaces", nullptr, none, nullptr, true},
        {"ShowTabsAndSpacesButton", "Show Tabs and Spaces", nullptr, none, "showTabsAndSpacesOff",
         false},
        {"ShowEndOfLine", "Show End of Line", nullptr, none, nullptr, true},
        {"WordWrap", "Word Wrap", nullptr, none, nullptr, true},
        {"CodeEditor", "Code Editor", nullptr, K("Ctrl+Shift+C"), nullptr, true},
        {"ShowHistory", "Show History", nullptr, K("Ctrl+1"), "showHistory", false},
        {"ShowEditor", "Show Editor", nullptr, K("Ctrl+2"), "showInput", false},
        {"ShowBoth", "Show Both", nullptr, K("Ctrl+3"), "showBoth", false},
        {"MelCommandReference", "MEL Command Reference", nullptr, none, nullptr, false},
        {"PythonCommandReference", "Python Command Reference", nullptr, none, nullptr, false},
        {"NodeAndAttributeReference", "Node and Attribute Reference", nullptr, none, nullptr,
         false},
        {"Licensing", "Licensing...", nullptr, none, nullptr, false},
        {"About", "About Corvane Editor", "", none, nullptr, false},
    };
    QList<ExpectedAction> list;
    for (const ExpectedAction &row : rows)
        list << row;
    return list;
}

QImage imageOf(const QIcon &icon)
{
    return icon.pixmap(16, 16).toImage();
}

// The texts of the actions, "|" for a separator.
QStringList textsOf(const QWidget *widget)
{
    QStringList texts;
    for (const QAction *action : widget->actions())
        texts << (action->isSeparator() ? QString("|") : action->text());
    return texts;
}

// The actions by the numbers of the table above, counted from 1; 0 is a separator.
QStringList textsOf(const QList<int> &numbers)
{
    QStringList texts;
    for (int number : numbers)
        texts << (number ? QString(expectedActions().at(number - 1).text) : QString("|"));
    return texts;
}

} // namespace

class TestWindowTables : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_fixture = new WindowFixture; }
    void cleanupTestCase() { delete m_fixture; }

    void everyActionHasItsTextTipKeysAndIcon();
    void onlyActionsWithoutAFunctionAreDisabled();
    void menusHoldTheirActionsInOrder();
    void toolBarsHoldTheirActionsInOrder();
    void docksHaveTheirNamesAndKeys();
    void extraShortcutsBelongToTheWindow();
    void noKeysAreGivenTwice();
    void slotsAndSignalsBearTheirNames();

private:
    Kestrowl &window() const { return m_fixture->window; }

    WindowFixture *m_fixture = nullptr;
};

void TestWindowTables::everyActionHasItsTextTipKeysAndIcon()
{
    QCOMPARE(expectedActions().size(), 49);
    QCOMPARE(actionCount, 49);
    for (int i = 0; i < actionCount; ++i) {
        const ExpectedAction row = expectedActions().at(i);
        const QAction *action = window().action(static_cast<Action>(i));
        QCOMPARE(action->objectName(), QString("action") + row.name);
        QCOMPARE(action->text(), QString(row.text));
        QCOMPARE(action->statusTip(), QString(row.tip ? row.tip : row.text));
        QCOMPARE(action->shortcut(), row.keys);
        QCOMPARE(action->isCheckable(), row.checkable);
        QCOMPARE(action->icon().isNull(), row.icon == nullptr);
        const QImage icon = imageOf(QIcon(QString(":/icons/%1.png").arg(row.icon)));
        if (row.icon)
            QVERIFY2(!icon.isNull() && imageOf(action->icon()) == icon, row.icon);
    }
}

void TestWindowTables::onlyActionsWithoutAFunctionAreDisabled()
{
    QStringList disabled;
    for (int i = 0; i < actionCount; ++i) {
        const QAction *action = window().action(static_cast<Action>(i));
        if (!action->isEnabled())
            disabled << action->text();
    }
    QCOMPARE(disabled, QStringList() << "&Find/Replace..."
                                     << "Preferences...");
}

void TestWindowTables::menusHoldTheirActionsInOrder()
{
    QCOMPARE(textsOf(window().menuBar()), QStringList() << "&File"
                                                        << "&Edit"
                                                        << "&History"
                                                        << "&Command"
                                                        << "&View"
                                                        << "|"
                                                        << "&Help");
    QList<QStringList> contents;
    for (const QAction *action : window().menuBar()->actions()) {
        if (!action->menu())
            continue;
        QVERIFY2(action->menu()->isTearOffEnabled(), qPrintable(action->text()));
        contents << textsOf(action->menu());
    }
    const QList<int> file = QList<int>() << 1 << 2 << 3 << 4 << 0 << 5 << 6 << 7 << 0 << 8 << 9
                                         << 10 << 11 << 13 << 0 << 15 << 0 << 12 << 0 << 14;
    const QList<int> edit = QList<int>() << 16 << 17 << 0 << 18 << 19 << 20 << 21 << 0 << 22 << 23
                                         << 0 << 24 << 0 << 25 << 26 << 27 << 0 << 28;
    const QStringList docks = QStringList() << "Project View"
                                            << "Documents"
                                            << "Buffers"
                                            << "Output Window"
                                            << "Outline"
                                            << "Quick Help";
    QCOMPARE(contents.size(), 6);
    QCOMPARE(contents.at(0), textsOf(file));
    QCOMPARE(contents.at(1), textsOf(edit));
    QCOMPARE(contents.at(2), textsOf(QList<int>() << 29 << 31 << 32 << 0 << 33));
    QCOMPARE(contents.at(3), textsOf(QList<int>() << 34 << 36 << 35));
    QCOMPARE(contents.at(4), textsOf(QList<int>() << 37 << 40 << 0 << 41) + docks);
    QCOMPARE(contents.at(5), textsOf(QList<int>() << 45 << 46 << 47 << 0 << 48 << 0 << 49));
}

void TestWindowTables::toolBarsHoldTheirActionsInOrder()
{
    const struct
    {
        const char *title;
        const char *objectName;
        QList<int> contents;
    } rows[] = {
        {"File", "filetoolbar", QList<int>() << 1 << 4 << 14 << 8 << 12},
        {"Clear", "cleartoolbar", QList<int>() << 25 << 26 << 27},
        {"View", "viewtoolbar", QList<int>() << 42 << 43 << 44 << 0 << 30 << 38},
        {"Execute", "executetoolbar", QList<int>() << 36 << 34 << 35},
    };
    QCOMPARE(int(window().findChildren<QToolBar *>().size()), 4);
    for (const auto &row : rows) {
        const QToolBar *toolBar = window().findChild<QToolBar *>(row.objectName);
        QVERIFY2(toolBar, row.objectName);
        QCOMPARE(toolBar->windowTitle(), QString(row.title));
        QCOMPARE(textsOf(toolBar), textsOf(row.contents));
    }
}

void TestWindowTables::docksHaveTheirNamesAndKeys()
{
    const struct
    {
        const char *title;
        const char *objectName;
        const char *keys;
        const char *content;
    } rows[] = {
        {"Project View", "projectdock", "Ctrl+Alt+P", "EdExplorerView"},
        {"Documents", "opendocumentdock", "Ctrl+Alt+D", "EdOpenDocumentView"},
        {"Buffers", "bufferdock", "Ctrl+Alt+B", "EdBufferView"},
        {"Output Window", "outputdock", "Ctrl+Shift+O", "EdOutputView"},
        {"Outline", "outlinedock", "Ctrl+Alt+O", "EdOutlineView"},
        {"Quick Help", "quickhelpdock", "Ctrl+Alt+J", "EdQuickHelpView"},
    };
    QCOMPARE(int(window().findChildren<QDockWidget *>().size()), 6);
    for (const auto &row : rows) {
        const QDockWidget *dock = window().findChild<QDockWidget *>(row.objectName);
        QVERIFY2(dock, row.objectName);
        QCOMPARE(dock->windowTitle(), QString(row.title));
        QCOMPARE(dock->toggleViewAction()->shortcut(), QKeySequence(row.keys));
        QCOMPARE(dock->widget()->metaObject()->className(), row.content);
    }
    QCOMPARE(window().centralWidget()->objectName(), QString("centralwidget"));
}

void TestWindowTables::extraShortcutsBelongToTheWindow()
{
    QStringList keys;
    for (const QShortcut *shortcut : window().findChildren<QShortcut *>()) {
        QCOMPARE(shortcut->context(), Qt::WindowShortcut);
        keys << shortcut->key().toString(QKeySequence::PortableText);
    }
    QCOMPARE(keys, QStringList() << "Ctrl+T"
                                 << "Ctrl+Shift+W"
                                 << "Ctrl+Return"
                                 << "Ctrl+Enter"
                                 << "Ctrl+Alt+Return"
                                 << "Ctrl+Alt+Enter"
                                 << "Ctrl+Shift+Return"
                                 << "Ctrl+Shift+Enter");
}

// Keys that two things answer to do neither.
void TestWindowTables::noKeysAreGivenTwice()
{
    QStringList seen;
    for (const QAction *action : window().findChildren<QAction *>()) {
        // Text widgets make actions of their own for their context menus.
        if (action->parent() != &window() && !qobject_cast<QDockWidget *>(action->parent()))
            continue;
        for (const QKeySequence &keys : action->shortcuts())
            seen << keys.toString(QKeySequence::PortableText);
    }
    for (const QShortcut *shortcut : window().findChildren<QShortcut *>())
        seen << shortcut->key().toString(QKeySequence::PortableText);
    for (const QString &keys : seen)
        QVERIFY2(seen.count(keys) == 1, qPrintable(keys));
}

void TestWindowTables::slotsAndSignalsBearTheirNames()
{
    const char *const slotNames[] = {
        "newBuffer()",
        "newBuffer(int)",
        "newMelBuffer()",
        "newPythonBuffer()",
        "open()",
        "open(QModelIndex)",
        "open(QString)",
        "closeTab()",
        "closeAllTabs()",
        "closeAllTabsButActive()",
        "closeEditor()",
        "save()",
        "saveAs()",
        "saveAll()",
        "saveSettings()",
        "saveScriptToShelf()",
        "sourceScript()",
        "cut()",
        "copy()",
        "paste()",
        "showGotoLineDialog()",
        "clearOutput()",
        "clearEditor()",
        "echoAllCommands(bool)",
        "echoAllCommands(bool,bool)",
        "echoAllCommandsToggle()",
        "lineNumbersInErrors(bool)",
        "lineNumbersInErrors(bool,bool)",
        "showStackTrace(bool)",
        "showStackTrace(bool,bool)",
        "suppressStackWindow(bool)",
        "suppressStackWindow(bool,bool)",
        "execute()",
        "execute(QString)",
        "executeLine()",
        "executeAll()",
        "showTabsAndSpaces(bool)",
        "showTabsAndSpacesToggle()",
        "showEndOfLine(bool)",
        "wordWrap(bool)",
        "editorVisibleChange(bool)",
        "showOutput()",
        "showEditor()",
        "showBoth()",
        "showAll()",
        "melCommandReference()",
        "pythonCommandReference()",
        "nodeAndAttributeReference()",
        "showLicenseDialog()",
        "about()",
        "setToolbarVisible()",
        "setToolbarVisible(bool)",
        "overrideScriptEditorButton(bool)",
        "show()",
        "appendOutputText(QString)",
        "setEditorVisible(bool)",
        "saveDockWidgetGeometry()",
        "updatePreferences()",
        "updatePreferencesAndWrite()",
        "updateAndShowQuickHelp(QString,bool)",
        "setTitleBufferName(QString)",
        "dockToggle(bool)",
        "dockLocationChange()",
        "updateVisibleDocks()",
        "outputViewVisibleChange(bool)",
        "setStatusText(QString)",
        "updateCursorStatus(int,int,int)",
        "updateInsertOverwriteStatus()",
        "replace(QString)",
        "insertQuickHelpFlag(QString)",
    };
    const char *const signalNames[] = {
        "melExecuted(QString)",
        "pythonExecuted(QString)",
        "sourceScriptSelected(QString)",
        "echoAllCommandsEnabled(bool)",
        "lineNumbersInErrorsEnabled(bool)",
        "showStackTraceEnabled(bool)",
        "suppressStackWindowEnabled(bool)",
    };
    for (const char *name : slotNames)
        QVERIFY2(window().metaObject()->indexOfSlot(name) >= 0, name);
    for (const char *name : signalNames)
        QVERIFY2(window().metaObject()->indexOfSignal(name) >= 0, name);
}

CORVANE_TEST_MAIN(TestWindowTables)
#include "tst_windowtables.moc"
