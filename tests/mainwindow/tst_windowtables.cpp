// SPDX-License-Identifier: MIT
#include "tests/mainwindow/windowfixture.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QDockWidget>
#include <QIcon>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QToolBar>

namespace {

typedef QKeySequence K;

struct Keys
{
    Keys(const char *keys) : text(keys) {}
    Keys(QKeySequence::StandardKey key) : standard(key) {}

    QKeySequence sequence() const
    {
        return text ? QKeySequence(QString(text)) : QKeySequence(standard);
    }

    const char *text = nullptr;
    QKeySequence::StandardKey standard = QKeySequence::UnknownKey;
};

struct ExpectedAction
{
    const char *name;
    const char *text;
    const char *tip; // null: as the text
    Keys keys;
    const char *icon; // null: none
    bool checkable;
};

// In the order of creation.
const ExpectedAction expectedActions[] = {
    {"New", "&New...", "New...", K::New, "new", false},
    {"NewMelBuffer", "New &MEL Buffer", "New MEL Buffer", "Ctrl+Alt+N", nullptr, false},
    {"NewPythonBuffer", "New &Python Buffer", "New Python Buffer", "Ctrl+Shift+N", nullptr, false},
    {"Open", "&Open File...", "Open File...", K::Open, "openScript", false},
    {"Close", "Close", nullptr, "Ctrl+W", nullptr, false},
    {"CloseAll", "Close All", nullptr, nullptr, nullptr, false},
    {"CloseAllButActive", "Close All But Active", nullptr, nullptr, nullptr, false},
    {"Save", "&Save", "Save", K::Save, "save", false},
    {"SaveAs", "Save &As...", "Save As...", K::SaveAs, nullptr, false},
    {"SaveAll", "Save A&ll", "Save All", nullptr, nullptr, false},
    {"Rename", "Rename...", "Rename", nullptr, nullptr, false},
    {"SaveScriptToShelf", "Save Script to Shelf...", nullptr, nullptr, "saveToShelf", false},
    {"ReloadFromDisk", "Reload from Disk", nullptr, nullptr, nullptr, false},
    {"SourceScript", "Source Script...", nullptr, nullptr, "sourceScript", false},
    {"SaveState", "Save State", nullptr, nullptr, nullptr, false},
    {"Undo", "&Undo", "Undo", K::Undo, nullptr, false},
    {"Redo", "&Redo", "Redo", K::Redo, nullptr, false},
    {"Cut", "Cu&t", "Cut", K::Cut, nullptr, false},
    {"Copy", "&Copy", "Copy", K::Copy, nullptr, false},
    {"Paste", "&Paste", "Paste", K::Paste, nullptr, false},
    {"SelectAll", "Select &All", "Select All", K::SelectAll, nullptr, false},
    {"FindReplace", "&Find/Replace...", "Find/Replace", K::Find, nullptr, false},
    {"GoToLine", "&Go To...", "Go To Line", "Ctrl+G", nullptr, false},
    {"ConvertTabsToSpaces", "Convert Tabs to Spaces", nullptr, nullptr, nullptr, false},
    {"ClearHistory", "Clear History", nullptr, "Ctrl+Shift+1", "clearHistory", false},
    {"ClearEditor", "Clear Editor", nullptr, "Ctrl+Shift+2", "clearInput", false},
    {"ClearAll", "Clear All", nullptr, "Ctrl+Shift+3", "clearAll", false},
    {"Preferences", "Preferences...", nullptr, "Ctrl+Shift+P", nullptr, false},
    {"EchoAllCommands", "Echo All Commands", nullptr, nullptr, nullptr, true},
    {"EchoAllCommandsButton", "Echo All Commands", nullptr, nullptr, "echoCommandsOff", false},
    {"LineNumbersInErrors", "Line numbers in errors", nullptr, nullptr, nullptr, true},
    {"ShowStackTrace", "Show Stack Trace", nullptr, nullptr, nullptr, true},
    {"SuppressStackWindow", "Suppress Stack Window", nullptr, nullptr, nullptr, true},
    {"Execute", "Execute", nullptr, "Ctrl+E", "execute", false},
    {"ExecuteLine", "Execute Line", nullptr, "Ctrl+Alt+E", "execute_line", false},
    {"ExecuteAll", "Execute All", nullptr, "Ctrl+Shift+E", "executeAll", false},
    {"ShowTabsAndSpaces", "Show Tabs and Spaces", nullptr, nullptr, nullptr, true},
    {"ShowTabsAndSpacesButton", "Show Tabs and Spaces", nullptr, nullptr, "showTabsAndSpacesOff",
     false},
    {"ShowEndOfLine", "Show End of Line", nullptr, nullptr, nullptr, true},
    {"WordWrap", "Word Wrap", nullptr, nullptr, nullptr, true},
    {"CodeEditor", "Code Editor", nullptr, "Ctrl+Shift+C", nullptr, true},
    {"ShowHistory", "Show History", nullptr, "Ctrl+1", "showHistory", false},
    {"ShowEditor", "Show Editor", nullptr, "Ctrl+2", "showInput", false},
    {"ShowBoth", "Show Both", nullptr, "Ctrl+3", "showBoth", false},
    {"MelCommandReference", "MEL Command Reference", nullptr, nullptr, nullptr, false},
    {"PythonCommandReference", "Python Command Reference", nullptr, nullptr, nullptr, false},
    {"NodeAndAttributeReference", "Node and Attribute Reference", nullptr, nullptr, nullptr, false},
    {"Licensing", "Licensing...", nullptr, nullptr, nullptr, false},
    {"About", "About Corvane Editor", "", nullptr, nullptr, false},
};

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
    "findReplace(QString,QString,int)",
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
        texts << (number ? QString(expectedActions[number - 1].text) : QString("|"));
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
    QCOMPARE(int(sizeof expectedActions / sizeof *expectedActions), 49);
    QCOMPARE(actionCount, 49);
    for (int i = 0; i < actionCount; ++i) {
        const ExpectedAction row = expectedActions[i];
        const QAction *action = window().action(static_cast<Action>(i));
        QCOMPARE(action->objectName(), QString("action") + row.name);
        QCOMPARE(action->text(), QString(row.text));
        QCOMPARE(action->statusTip(), QString(row.tip ? row.tip : row.text));
        QCOMPARE(action->shortcut(), row.keys.sequence());
        QCOMPARE(action->isCheckable(), row.checkable);
        QCOMPARE(action->icon().isNull(), row.icon == nullptr);
        const QImage icon = imageOf(QIcon(QString(":/icons/%1.png").arg(row.icon)));
        if (row.icon)
            QVERIFY2(!icon.isNull() && imageOf(action->icon()) == icon, row.icon);
    }
}

void TestWindowTables::menusHoldTheirActionsInOrder()
{
    QCOMPARE(textsOf(window().menuBar()), words("&File &Edit &History &Command &View | &Help"));
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
    const QStringList docks =
        strings({"Project View", "Documents", "Buffers", "Output Window", "Outline", "Quick Help"});
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
    QCOMPARE(window().action(Action::Execute)->toolTip(), QString("Execute (Ctrl+E)"));
    QCOMPARE(window().action(Action::SourceScript)->toolTip(), QString("Source Script"));
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
    QCOMPARE(keys, words("Ctrl+T Ctrl+Shift+W Ctrl+Return Ctrl+Enter Ctrl+Alt+Return "
                         "Ctrl+Alt+Enter Ctrl+Shift+Return Ctrl+Shift+Enter F3 Shift+F3 F6 "
                         "Shift+F6"));
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
    for (const char *name : slotNames)
        QVERIFY2(window().metaObject()->indexOfSlot(name) >= 0, name);
    for (const char *name : signalNames)
        QVERIFY2(window().metaObject()->indexOfSignal(name) >= 0, name);
}

CORVANE_TEST_MAIN(TestWindowTables)
#include "tst_windowtables.moc"
