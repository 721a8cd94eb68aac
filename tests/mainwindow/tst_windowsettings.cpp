// SPDX-License-Identifier: MIT
#include "editor/edcodeedit.h"
#include "mainwindow/inifile.h"
#include "output/edoutputview.h"
#include "preferences/colorlist.h"
#include "preferences/preferences.h"
#include "preferences/textformats.h"
#include "tests/mainwindow/windowfixture.h"
#include "tests/support/datatable.h"
#include "tests/support/filesizelimit.h"
#include "tests/support/ordinaryuser.h"
#include "tests/support/testmain.h"
#include "workspace/recoverybar.h"

#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QPushButton>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>

#include <memory>

#include <sys/stat.h>

namespace {

// The keys of a group with their values after a first start; without "=" what the value is depends
// on the machine.
struct Group
{
    const char *name;
    const char *keys;
};

const Group groups[] = {
    {"mainwindow", "version=1 license= windowGeometry windowState outputGeometry buffersGeometry "
                   "documentsGeometry outlineGeometry projectGeometry quickHelpGeometry "
                   "splitterState "
                   "editorState=0 dockState=0 hiddenState= visible=false floatingDockState=0"},
    {"editor", "showTabsAndSpaces=false showEndOfLine=false wordWrapEnabled=false "
               "suppressStackWindow=true defaultStateInitialized=false"},
    {"outliner", "sort=false"},
    {"preferences",
     "toolbar=true statusBar=true saveOnExecute=true overrideScriptEditor=true "
     "confirmCloseTemporaryBuffer=true numpadEnterExecutes=true checkForModifiedFiles=true "
     "tabBar=true lockTabs=false closeAllButThis=true closeButtonOnTabs=true "
     "doubleClickToClose=false insertDocsOnLeft=false outputWindowBufferSize=5000 "
     "melSmartIndent=true melDisplayErrors=true melInsertClosingCurly=true "
     "melSelectFullVariableName=true melAutoCompleteToQuickHelp=true melCompleteOnUser=true "
     "melCompleteOnLetters=false melHideGlobalVarInOutline=false "
     "melHideGlobalProcsInOutline=false melHideProcsInOutline=false pythonSmartIndent=true "
     "pythonDisplayErrors=true pythonHideCompiledFiles=true pythonImportPyMelOnLoad=false "
     "pythonAutoCompleteToQuickHelp=true pythonCompleteOnUser=true pythonCompleteOnLetters=false "
     "pythonCompleteOnPeriod=true pythonIncludeKeywords=true pythonIncludeBuiltins=true "
     "pythonForcedImports= pythonHideImportInOutline=false pythonHideMainInOutline=false"},
    {"project", "projectDir"},
    {"tabsandspaces", "tabSize=4 insertSpaces=true autoIndent=true melUseDefaults=true "
                      "melTabSize=4 melInsertSpaces=true melAutoIndent=true pyUseDefaults=true "
                      "pyTabSize=4 pyInsertSpaces=true pyAutoIndent=true"},
    {"fonts", "textFont textFontSize=9 outputFont outputFontSize=9"},
    {"tabs", "openTabs= activeView=0 indexA=-1 indexB=-1"},
};

// The keys in the file's current group without those that only guard others.
QStringList ownKeys(const QSettings &settings)
{
    QStringList keys;
    for (const QString &key : settings.childKeys()) {
        if (!key.endsWith("Length") && !key.endsWith("Checksum"))
            keys << key;
    }
    keys.sort();
    return keys;
}

const char settingsName[] = "corvaneEditor.ini";
const char colorsName[] = "corvaneEditorColors.ini";

// The values of a file, as texts.
QString valueIn(const QString &path, const char *key)
{
    return QSettings(path, QSettings::IniFormat).value(QLatin1String(key)).toString();
}

void setValueIn(const QString &path, const char *key, const QVariant &value)
{
    QSettings(path, QSettings::IniFormat).setValue(QLatin1String(key), value);
}

// As if another version of Qt had written the state: what is left is in the other keys.
void forgetStates(const QString &path)
{
    QSettings settings(path, QSettings::IniFormat);
    settings.remove("mainwindow/windowStateChecksum");
    settings.remove("mainwindow/hiddenStateChecksum");
}

// The window of one run after the other, in the same directory.
class Runs
{
public:
    Runs() { restart(); }
    ~Runs() { preferences() = Preferences(); }

    Kestrowl &window() { return *m_window; }
    QDockWidget &dock(Dock dock) { return *m_window->dock(dock); }
    QSplitter &splitter() { return *m_window->findChild<QSplitter *>("centralsplitter"); }
    QString settingsPath() const { return m_dir.file(settingsName); }
    const ScratchDir &dir() const { return m_dir; }

    void restart()
    {
        m_window.reset();
        preferences() = Preferences();
        useColorSet(ColorSet::Dark);
        m_window.reset(new Kestrowl(m_dir.path(), m_dir.path()));
    }

    // What the file holds is what the next window sees.
    void restartWith(const QByteArray &settings)
    {
        m_dir.write(settingsName, settings);
        restart();
    }

private:
    ScratchDir m_dir;
    std::unique_ptr<Kestrowl> m_window;
};

} // namespace

class WindowSettingsTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { useColorSet(ColorSet::Dark); }
    void aFirstWriteHasEveryKeyWithItsDefault();
    void aSeparatorBehindTheDirectoryChangesNothing();
    void keysOfOthersStay();
    void docksComeBack_data();
    void docksComeBack();
    void panesComeBack_data();
    void panesComeBack();
    void theFrontDockComesBack();
    void theSharesOfThePanesComeBack();
    void geometryComesBack();
    void aWindowOffEveryScreenComesBack();
    void togglesAndToolBarsComeBack();
    void colorsComeBack();
    void colorsOfALaterVersionAreKept();
    void documentsComeBackFromOddNumbers();
    void aFileThatIsGoneIsSaid();
    void dockStateIsWrittenForOnePaneOnly();
    void oddNumbersTakeTheirDefaults();
    void onlyWholeBytesAreApplied();
    void damagedFilesAreKeptAside_data();
    void damagedFilesAreKeptAside();
    void ofABrokenFileTheRestIsRead();
    void someDamagedFilesAreKept();
    void aByteOrderMarkIsNoDamage();
    void nothingElseIsReadForADamagedFile();
    void anUnchangedFileIsNotWritten();
    void aLinkIntoAMissingFolderIsFollowed();
    void aFileInAReadOnlyFolderIsWritten();
    void aFailedWriteIsSaid();
    void oneFailureLeavesTheOtherFile();
    void withoutDirectoriesTheHomeIsTaken();
    void aFullDiskLeavesTheOldFile();
    void documentsOfACrashedSessionComeBack();
    void aDamagedFileForgetsNoBuffer();
};

void WindowSettingsTest::aFirstWriteHasEveryKeyWithItsDefault()
{
    Runs runs;
    QVERIFY(!QFile::exists(runs.settingsPath()));
    runs.window().writeSettings();
    QSettings settings(runs.settingsPath(), QSettings::IniFormat);
    for (const Group &group : groups) {
        settings.beginGroup(group.name);
        QStringList keys;
        for (const QString &text : QString(group.keys).split(' ')) {
            keys << text.section('=', 0, 0);
            if (text.contains('='))
                QCOMPARE(keys.last() + '=' + settings.value(keys.last()).toString(), text);
        }
        keys.sort();
        QCOMPARE(ownKeys(settings), keys);
        settings.endGroup();
    }
    QCOMPARE(settings.value("project/projectDir").toString(), runs.dir().path());
    QSettings colors(runs.window().colorsPath(), QSettings::IniFormat);
    QCOMPARE(colors.value("colors/version").toInt(), textFormatListVersion);
    QCOMPARE(colors.value("colors/format").toStringList(), textFormatList());
}

void WindowSettingsTest::aSeparatorBehindTheDirectoryChangesNothing()
{
    ScratchDir dir;
    const Kestrowl without(dir.path(), dir.path());
    const Kestrowl with(dir.path() + "/", dir.path() + "/");
    QCOMPARE(with.settingsPath(), without.settingsPath());
    QCOMPARE(with.settingsPath(), dir.file(settingsName));
    QCOMPARE(with.colorsPath(), without.colorsPath());
    QCOMPARE(with.colorsPath(), dir.file(colorsName));
}

void WindowSettingsTest::keysOfOthersStay()
{
    Runs runs;
    runs.restartWith("[mainwindow]\nlicense=a key\nwidth=3\n[other]\nkey=\"x, y\"\n");
    runs.window().writeSettings();
    QCOMPARE(valueIn(runs.settingsPath(), "mainwindow/license"), QString("a key"));
    QCOMPARE(valueIn(runs.settingsPath(), "mainwindow/width"), QString("3"));
    QCOMPARE(valueIn(runs.settingsPath(), "other/key"), QString("x, y"));
}

void WindowSettingsTest::docksComeBack_data()
{
    columns<bool, bool>("shown", "stateUsable");

    row("written-while-shown", true, true);
    row("written-while-hidden", false, true);
    row("from-another-qt", true, false);
    row("hidden-and-from-another-qt", false, false);
}

void WindowSettingsTest::docksComeBack()
{
    QFETCH(bool, shown);
    QFETCH(bool, stateUsable);
    Runs runs;
    runs.window().show();
    runs.dock(Dock::Outline).hide();
    runs.dock(Dock::QuickHelp).show();
    runs.window().tabifyDockWidget(&runs.dock(Dock::Documents), &runs.dock(Dock::Buffers));
    runs.dock(Dock::Project).setFloating(true);
    runs.dock(Dock::Project).setGeometry(90, 120, 230, 310);
    runs.window().setEditorVisible(false); // with both panes the docks are not in numbers
    runs.window().setVisible(shown);
    runs.window().writeSettings();
    if (!stateUsable)
        forgetStates(runs.settingsPath());

    for (int i = 0; i < 2; ++i) {
        runs.restart();
        QVERIFY(!runs.dock(Dock::Project).isVisible()); // not before its window
        // A window that nobody looked at must not forget.
        runs.window().writeSettings();
        if (!stateUsable)
            forgetStates(runs.settingsPath());
    }
    runs.window().show();
    QVERIFY(!runs.dock(Dock::Outline).isVisible());
    QVERIFY(runs.dock(Dock::QuickHelp).isVisible());
    QVERIFY(runs.dock(Dock::Project).isVisible());
    QVERIFY(runs.dock(Dock::Project).isFloating());
    QCOMPARE(runs.dock(Dock::Project).geometry(), QRect(90, 120, 230, 310));
    QVERIFY(!runs.dock(Dock::Buffers).isFloating());
    QCOMPARE(runs.window().tabifiedDockWidgets(&runs.dock(Dock::Documents)).isEmpty(),
             !stateUsable);
}

void WindowSettingsTest::panesComeBack_data()
{
    columns<int, QString, bool, bool>("action", "stored", "editor", "history");

    row("both", int(Action::ShowBoth), "0", true, true);
    row("editor", int(Action::ShowEditor), "1", true, false);
    row("history", int(Action::ShowHistory), "2", false, true);
}

void WindowSettingsTest::panesComeBack()
{
    QFETCH(int, action);
    QFETCH(QString, stored);
    QFETCH(bool, editor);
    QFETCH(bool, history);
    Runs runs;
    runs.window().show();
    runs.window().action(static_cast<Action>(action))->trigger();
    runs.window().writeSettings();
    QCOMPARE(valueIn(runs.settingsPath(), "mainwindow/editorState"), stored);
    runs.restart();
    runs.window().show();
    QCOMPARE(runs.window().central()->isVisible(), editor);
    QCOMPARE(runs.dock(Dock::Output).isVisible(), history);
    QCOMPARE(runs.window().action(Action::CodeEditor)->isChecked(), editor);
}

void WindowSettingsTest::theFrontDockComesBack()
{
    Runs runs;
    runs.window().show();
    runs.window().tabifyDockWidget(&runs.dock(Dock::Project), &runs.dock(Dock::Documents));
    runs.window().tabifyDockWidget(&runs.dock(Dock::Documents), &runs.dock(Dock::Buffers));
    runs.dock(Dock::Documents).raise();
    runs.window().writeSettings();
    runs.restart();
    runs.window().show();
    QCoreApplication::processEvents();
    QVERIFY(!runs.dock(Dock::Documents).visibleRegion().isEmpty());
    QVERIFY(runs.dock(Dock::Buffers).visibleRegion().isEmpty());
    runs.window().hide();
    runs.window().show();
    QVERIFY(!runs.dock(Dock::Documents).visibleRegion().isEmpty());
}

void WindowSettingsTest::theSharesOfThePanesComeBack()
{
    Runs runs;
    runs.window().newBuffer(0);
    runs.window().newBuffer(1);
    runs.window().central()->moveToOtherView(0, 1);
    runs.window().show();
    runs.splitter().setSizes(QList<int>() << 200 << runs.splitter().width() - 200);
    QVERIFY(runs.splitter().sizes().at(0) < runs.splitter().sizes().at(1) - 50);
    runs.window().writeSettings();
    for (int i = 0; i < 2; ++i) {
        runs.restart();
        runs.window().writeSettings(); // a window that nobody looked at must not forget
    }
    runs.window().show();
    QVERIFY(runs.splitter().sizes().at(0) < runs.splitter().sizes().at(1) - 50);
}

void WindowSettingsTest::geometryComesBack()
{
    Runs runs;
    runs.window().setGeometry(40, 50, 640, 480);
    runs.window().writeSettings();
    runs.restart();
    QCOMPARE(runs.window().geometry(), QRect(40, 50, 640, 480));
}

void WindowSettingsTest::aWindowOffEveryScreenComesBack()
{
    Runs runs;
    runs.window().setGeometry(90000, 90000, 640, 480);
    runs.dock(Dock::Outline).setFloating(true);
    runs.dock(Dock::Outline).setGeometry(-90000, 90000, 200, 300);
    runs.window().writeSettings();
    runs.restart();
    // No screen is that large.
    const QRect anyScreen(0, 0, 20000, 20000);
    QVERIFY(runs.window().geometry().intersects(anyScreen));
    QVERIFY(runs.dock(Dock::Outline).isFloating());
    QVERIFY(runs.dock(Dock::Outline).geometry().intersects(anyScreen));
}

void WindowSettingsTest::togglesAndToolBarsComeBack()
{
    Runs runs;
    runs.window().action(Action::WordWrap)->trigger();
    runs.window().action(Action::ShowTabsAndSpaces)->trigger();
    runs.window().action(Action::SuppressStackWindow)->trigger();
    runs.window().action(Action::ShowEndOfLine)->trigger();
    runs.window().findChild<QToolBar *>("cleartoolbar")->hide();
    runs.window().writeSettings();
    runs.restart();
    QVERIFY(runs.window().action(Action::WordWrap)->isChecked());
    QVERIFY(runs.window().action(Action::ShowTabsAndSpaces)->isChecked());
    QVERIFY(!runs.window().action(Action::SuppressStackWindow)->isChecked());
    QVERIFY(!runs.window().action(Action::ShowEndOfLine)->isChecked());
    runs.window().show();
    QVERIFY(!runs.window().findChild<QToolBar *>("cleartoolbar")->isVisible());
    QVERIFY(runs.window().findChild<QToolBar *>("filetoolbar")->isVisible());
}

void WindowSettingsTest::colorsComeBack()
{
    Runs runs;
    useColorSet(ColorSet::Light);
    textFormat(OutputText::Errors).bold = true;
    const QStringList light = textFormatList();
    runs.window().updatePreferencesAndWrite();
    runs.restart();
    QCOMPARE(textFormatList(), light);
    QCOMPARE(runs.window().outputView()->palette().color(QPalette::Base),
             textFormat(OutputText::Plain).background);
}

void WindowSettingsTest::colorsOfALaterVersionAreKept()
{
    Runs runs;
    const QByteArray later = "[colors]\nversion=2\nformat=#aabbcc #000000\nother=1\n";
    runs.dir().write(colorsName, later);
    runs.restart();
    QCOMPARE(textFormatList().first(), QString("#aabbcc #000000"));
    QVERIFY(runs.window().statusBar()->currentMessage().contains("later-version"));
    runs.window().writeSettings();
    QCOMPARE(runs.dir().read("corvaneEditorColors.ini.later-version"), later);
    runs.restart();
    QCOMPARE(runs.window().statusBar()->currentMessage(), QString());
}

void WindowSettingsTest::documentsComeBackFromOddNumbers()
{
    Runs runs;
    const QString path = runs.dir().write("a b; \"c\".mel", "print 1;");
    runs.window().newBuffer(1);
    runs.window().replace("print(1)");
    runs.window().open(path);
    runs.window().writeSettings();
    QCOMPARE(runs.dir().read("corvaneEditorTemp/corvaneEditorBuffer-0.py"), QByteArray("print(1)"));
    setValueIn(runs.settingsPath(), "tabs/activeView", "-7");
    setValueIn(runs.settingsPath(), "tabs/indexA", "2147483647");
    setValueIn(runs.settingsPath(), "tabs/indexB", "none");
    runs.restart();
    QVERIFY(runs.window().central()->currentCodeView());
    QCOMPARE(runs.window().central()->currentCodeView()->fileInfo().absoluteFilePath(), path);
    QCOMPARE(runs.window().central()->codeViews().first()->text(), QString("print(1)"));
}

void WindowSettingsTest::aFileThatIsGoneIsSaid()
{
    Runs runs;
    const QString path = runs.dir().write("a.mel", "print 1;");
    runs.window().open(path);
    runs.window().writeSettings();
    QFile::remove(path);
    runs.restart();
    QVERIFY(!runs.window().central()->currentCodeView());
    QVERIFY(runs.window().statusBar()->currentMessage().contains(path));
}

void WindowSettingsTest::dockStateIsWrittenForOnePaneOnly()
{
    Runs runs;
    // 2 is no dock's any more, and is kept; 64 shows Quick Help.
    runs.restartWith("[mainwindow]\neditorState=2\ndockState=74\n");
    QVERIFY(!runs.dock(Dock::QuickHelp).isHidden());
    QVERIFY(runs.dock(Dock::Project).isHidden());
    runs.window().writeSettings();
    QCOMPARE(valueIn(runs.settingsPath(), "mainwindow/dockState"), QString("74"));
    runs.window().showBoth();
    runs.window().writeSettings();
    QCOMPARE(valueIn(runs.settingsPath(), "mainwindow/dockState"), QString("0"));
    // The 0 hides nothing.
    forgetStates(runs.settingsPath());
    runs.restart();
    runs.window().show();
    QVERIFY(runs.dock(Dock::Project).isVisible());
    QVERIFY(runs.dock(Dock::Output).isVisible());
}

void WindowSettingsTest::oddNumbersTakeTheirDefaults()
{
    Runs runs;
    runs.restartWith("[mainwindow]\neditorState=3\ndockState=128\nfloatingDockState=-1\n"
                     "visible=1\nversion=x\n[tabs]\nopenTabs=\nactiveView=x\n");
    for (QDockWidget *dock : runs.window().findChildren<QDockWidget *>()) {
        QCOMPARE(dock->isHidden(), dock == &runs.dock(Dock::QuickHelp));
        QVERIFY(!dock->isFloating());
    }
    runs.window().writeSettings();
    QCOMPARE(valueIn(runs.settingsPath(), "mainwindow/editorState"), QString("0"));
    QCOMPARE(valueIn(runs.settingsPath(), "mainwindow/version"), QString("1"));
}

void WindowSettingsTest::onlyWholeBytesAreApplied()
{
    Runs runs;
    const QByteArray initial = runs.window().saveState();
    runs.dock(Dock::Outline).hide();
    runs.window().writeSettings();
    QByteArray bytes = runs.window().saveState();
    bytes[bytes.size() / 2] = char(bytes.at(bytes.size() / 2) ^ 1);
    setValueIn(runs.settingsPath(), "mainwindow/windowState", bytes);
    runs.restart();
    QVERIFY(!runs.dock(Dock::Outline).isHidden());
    QCOMPARE(runs.window().saveState(), initial);
}

void WindowSettingsTest::damagedFilesAreKeptAside_data()
{
    QTest::addColumn<QByteArray>("bytes");

    row("binary", QByteArray("\177ELF\0\1\2[mainwindow]\neditorState=2\n", 34));
    row("object", QByteArray("[mainwindow]\neditorState=2\nlicense=@Variant(\\0)\n"));
    row("too-large",
        QByteArray("[mainwindow]\neditorState=2\n") + QByteArray(17 * 1024 * 1024, ';'));
    row("directory", QByteArray());
}

void WindowSettingsTest::damagedFilesAreKeptAside()
{
    QFETCH(QByteArray, bytes);
    Runs runs;
    if (bytes.isEmpty()) {
        QDir().mkdir(runs.settingsPath());
        runs.restart();
    } else {
        runs.restartWith(bytes);
    }
    QVERIFY(!QFile::exists(runs.settingsPath()));
    if (!bytes.isEmpty())
        QVERIFY(runs.dir().read("corvaneEditor.ini.damaged-1") == bytes);
    QVERIFY(QFile::exists(runs.dir().file("corvaneEditor.ini.damaged-1")));
    const QString message = runs.window().statusBar()->currentMessage();
    QVERIFY2(message.contains("corvaneEditor.ini.damaged-1"), qPrintable(message));
    runs.window().show();
    QVERIFY(runs.window().outputView()->toPlainText().contains(message));
    QVERIFY(runs.window().central()->isVisible());

    runs.window().writeSettings();
    QCOMPARE(valueIn(runs.settingsPath(), "mainwindow/version"), QString("1"));
    runs.restart();
    QCOMPARE(runs.window().statusBar()->currentMessage(), QString());
}

void WindowSettingsTest::ofABrokenFileTheRestIsRead()
{
    Runs runs;
    runs.restartWith("[tabsandspaces]\ntabSize=2\nno sign of equality\nmelTabSize=3\n");
    QCOMPARE(preferences().tabSize, 2);
    QCOMPARE(preferences().melTabSize, 3);
    QVERIFY(runs.dir().read("corvaneEditor.ini.damaged-1").startsWith("[tabsandspaces]"));
    runs.dir().write(colorsName, "nothing of the kind");
    runs.restart();
    QVERIFY(QFile::exists(runs.dir().file("corvaneEditorColors.ini.damaged-1")));
}

void WindowSettingsTest::someDamagedFilesAreKept()
{
    Runs runs;
    for (int i = 1; i <= 7; ++i)
        runs.restartWith("broken " + QByteArray::number(i));
    QCOMPARE(runs.dir().read("corvaneEditor.ini.damaged-1"), QByteArray("broken 3"));
    QCOMPARE(runs.dir().read("corvaneEditor.ini.damaged-5"), QByteArray("broken 7"));
    QVERIFY(!QFile::exists(runs.dir().file("corvaneEditor.ini.damaged-6")));
    QVERIFY(runs.window().statusBar()->currentMessage().contains("damaged"));
    runs.window().writeSettings();
    QCOMPARE(valueIn(runs.settingsPath(), "mainwindow/version"), QString("1"));
}

void WindowSettingsTest::aByteOrderMarkIsNoDamage()
{
    Runs runs;
    runs.restartWith("\xef\xbb\xbf[tabsandspaces]\ntabSize=2\n[mainwindow]\nlicense=@Vari\\x74\n");
    QCOMPARE(preferences().tabSize, 2);
    QCOMPARE(runs.window().statusBar()->currentMessage(), QString());
    runs.window().writeSettings();
    QVERIFY(!runs.dir().read(settingsName).contains('\xef'));
    QCOMPARE(valueIn(runs.settingsPath(), "mainwindow/license"), QString("@Varit"));
    QVERIFY(!QFile::exists(runs.dir().file("corvaneEditor.ini.damaged-1")));
}

void WindowSettingsTest::nothingElseIsReadForADamagedFile()
{
    Runs runs;
    runs.dir().write("corvaneEditor.ini.none", "[tabsandspaces]\ntabSize=2\n");
    runs.restart();
    QCOMPARE(preferences().tabSize, 4);
}

// Another file in its place would not get what is written to this one.
void WindowSettingsTest::anUnchangedFileIsNotWritten()
{
    Runs runs;
    runs.window().writeSettings();
    QFile written(runs.settingsPath());
    QVERIFY(written.open(QIODevice::Append));
    runs.window().writeSettings();
    written.write("[kept]\nkey=1\n");
    written.close();
    QCOMPARE(valueIn(runs.settingsPath(), "kept/key"), QString("1"));
}

void WindowSettingsTest::aLinkIntoAMissingFolderIsFollowed()
{
    Runs runs;
    QVERIFY(QFile::link(runs.dir().file("a/b/settings"), runs.settingsPath()));
    runs.window().writeSettings();
    QCOMPARE(valueIn(runs.dir().file("a/b/settings"), "mainwindow/version"), QString("1"));
}

void WindowSettingsTest::aFileInAReadOnlyFolderIsWritten()
{
    ScratchDir dir;
    const QString path = dir.write("a.ini", "[tabsandspaces]\ntabSize=2\n");
    QCOMPARE(chmod(QFile::encodeName(path).constData(), 0666), 0);
    QCOMPARE(chmod(QFile::encodeName(dir.path()).constData(), 0555), 0);
    QString failure;
    {
        const OrdinaryUser user;
        failure = writeIniFile(path, writePreferences);
    }
    QCOMPARE(chmod(QFile::encodeName(dir.path()).constData(), 0755), 0);
    QCOMPARE(failure, QString());
    QVERIFY(!valueIn(path, "tabsandspaces/melTabSize").isEmpty());
}

void WindowSettingsTest::aFailedWriteIsSaid()
{
    ScratchDir dir;
    dir.write("file", "no directory");
    Kestrowl window(dir.path(), dir.file("file"));
    QVERIFY(window.statusBar()->currentMessage().contains("not safe from a crash"));
    window.updatePreferencesAndWrite();
    const QString message = window.statusBar()->currentMessage();
    QVERIFY2(message.contains("not saved"), qPrintable(message));
    window.show();
    QVERIFY(window.outputView()->toPlainText().contains(message));
    QCOMPARE(dir.read("file"), QByteArray("no directory"));
}

void WindowSettingsTest::oneFailureLeavesTheOtherFile()
{
    Runs runs;
    QVERIFY(QFile::link(runs.settingsPath(), runs.settingsPath())); // leads in a circle
    QVERIFY(!runs.window().writeSettings().isEmpty());
    QVERIFY(QFile::exists(runs.dir().file(colorsName)));
}

void WindowSettingsTest::withoutDirectoriesTheHomeIsTaken()
{
    const ScratchDir home;
    const QByteArray before = qgetenv("HOME");
    qputenv("HOME", QFile::encodeName(home.path()));
    const Kestrowl window((QString()), QString());
    QCOMPARE(window.settingsPath(), home.file(settingsName));
    QCOMPARE(preferences().projectDir, home.path());
    qputenv("HOME", before);
    preferences() = Preferences();
}

void WindowSettingsTest::aFullDiskLeavesTheOldFile()
{
    Runs runs;
    runs.window().writeSettings();
    const QByteArray old = runs.dir().read(settingsName);
    const int files = int(QDir(runs.dir().path()).entryList(QDir::Files).size());
    preferences().tabSize = 7;
    for (int bytes = 0; bytes < old.size(); bytes += 500) {
        QString failure;
        {
            const FileSizeLimit full(static_cast<rlim_t>(bytes));
            failure = runs.window().writeSettings();
        }
        QVERIFY(failure.contains("not saved"));
        QCOMPARE(runs.dir().read(settingsName), old);
        QCOMPARE(int(QDir(runs.dir().path()).entryList(QDir::Files).size()), files);
    }
    runs.window().writeSettings();
    QCOMPARE(valueIn(runs.settingsPath(), "tabsandspaces/tabSize"), QString("7"));
}

// Without a last word of its own.
void WindowSettingsTest::documentsOfACrashedSessionComeBack()
{
    ScratchDir dir;
    const QString path = dir.write("a.mel", "old");
    {
        Kestrowl crashed(dir.path(), dir.path());
        crashed.newPythonBuffer();
        crashed.central()->replace("typed");
        crashed.open(path);
        crashed.central()->replace("new ");
        crashed.open(dir.write("b.mel", "unchanged"));
        QTest::qWait(50); // for the list
    }
    Kestrowl next(dir.path(), dir.path());
    const QList<EdCodeView *> views = next.central()->codeViews();
    QCOMPARE(int(views.size()), 3);
    QCOMPARE(views.at(0)->text(), QString("typed"));
    QVERIFY(views.at(0)->isBuffer() && views.at(0)->isModified());
    QCOMPARE(views.at(1)->text(), QString("new old"));
    QVERIFY(views.at(1)->isModified() && !views.at(2)->isModified());
    QCOMPARE(next.central()->currentCodeView(), views.at(2));
    QCOMPARE(dir.read("a.mel"), QByteArray("old"));
    const RecoveryBar *bar = next.findChild<RecoveryBar *>();
    QVERIFY(bar && bar->count() == 2);
    next.show();
    QPushButton *keepsAll = bar->findChildren<QPushButton *>().first();
    keepsAll->setFocus();
    keepsAll->click();
    QVERIFY(bar->isHidden());
    QCOMPARE(next.focusWidget(), static_cast<QWidget *>(views.at(2)->codeEdit()));
    // A session that is at work keeps its own.
    Kestrowl beside(dir.path(), dir.path());
    QVERIFY(!beside.findChild<RecoveryBar *>());
}

void WindowSettingsTest::aDamagedFileForgetsNoBuffer()
{
    ScratchDir dir;
    {
        Kestrowl first(dir.path(), dir.path());
        first.newMelBuffer();
        first.central()->currentCodeView()->codeEdit()->insertPlainText("typed");
        first.writeSettings();
    }
    QFile file(dir.file("corvaneEditor.ini"));
    QVERIFY(file.open(QIODevice::Append));
    file.write("this line is broken\n");
    file.close();
    {
        Kestrowl crashed(dir.path(), dir.path()); // writes no settings
        QVERIFY(crashed.central()->currentCodeView());
    }
    Kestrowl next(dir.path(), dir.path());
    QVERIFY(next.central()->currentCodeView());
    QCOMPARE(next.central()->currentCodeView()->text(), QString("typed"));
}

CORVANE_TEST_MAIN(WindowSettingsTest)
#include "tst_windowsettings.moc"
