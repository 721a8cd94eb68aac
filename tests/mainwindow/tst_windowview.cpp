// SPDX-License-Identifier: MIT
#include "bridge/hostversions.h"
#include "editor/findreplace.h"
#include "mainwindow/aboutdialog.h"
#include "output/edoutputview.h"
#include "preferences/preferencesdialog.h"
#include "tests/mainwindow/windowfixture.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"
#include "workspace/edexplorerview.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>

namespace {

QImage imageOf(const QIcon &icon)
{
    return icon.pixmap(16, 16).toImage();
}

bool hasIcon(const QAction *action, const char *name)
{
    return imageOf(action->icon()) == imageOf(QIcon(QString(":/icons/%1.png").arg(name)));
}

// As with the mouse, at the dock's edge.
void setWidth(QDockWidget *dock, int width)
{
    dock->setFixedWidth(width);
    QCoreApplication::processEvents();
    dock->setMinimumWidth(0);
    dock->setMaximumWidth(QWIDGETSIZE_MAX);
    QCoreApplication::processEvents();
}

QString labelText(const Kestrowl &window, const char *name)
{
    return window.findChild<QLabel *>(name)->text();
}

} // namespace

class TestWindowView : public QObject
{
    Q_OBJECT

private slots:
    void togglesTellMayaUnlessAskedNotTo_data();
    void togglesTellMayaUnlessAskedNotTo();
    void twinsFollowTheirToggle();
    void tabsAndSpacesAreDrawn();
    void wordWrapChangesTheEditor();
    void panesAreShownAndHidden();
    void docksAreAsBeforeWithTheEditorBack_data();
    void docksAreAsBeforeWithTheEditorBack();
    void neverNeitherHistoryNorEditor();
    void quickHelpShowsItsDockOnRequest();
    void clearAllClearsBoth();
    void theKeyboardReachesEveryPart();
    void copyTakesTheHistoryThatHasTheFocus();
    void editActionsFollowTheDocument();
    void statusLabelsFollowTheCaret();
    void theStatusBarTellsWhatWasFound();
    void helpActionsAskForTheirPages();
    void aboutTellsWhatItRunsWith();
    void preferencesReachTheWindow();
    void barsHiddenByHandStayHidden();
    void diagnosticsFollowThePreferences();
    void floatingQuickHelpWaitsForTheWindow();
    void thePreferencesDialogChangesWindowAndFile();
    void theProjectFolderFollowsThePreferences();
    void settingsAreReadAndWritten();
    void closingHides();
    void deletingAShownWindowIsQuiet();
};

void TestWindowView::togglesTellMayaUnlessAskedNotTo_data()
{
    columns<QString, int>("slot", "action");

    row("echo", "echoAllCommands", int(Action::EchoAllCommands));
    row("line-numbers", "lineNumbersInErrors", int(Action::LineNumbersInErrors));
    row("stack-trace", "showStackTrace", int(Action::ShowStackTrace));
    row("stack-window", "suppressStackWindow", int(Action::SuppressStackWindow));
}

void TestWindowView::togglesTellMayaUnlessAskedNotTo()
{
    QFETCH(QString, slot);
    QFETCH(int, action);

    WindowFixture fixture;
    QAction *toggle = fixture.action(static_cast<Action>(action));
    const QByteArray signal = "2" + slot.toLatin1() + "Enabled(bool)";
    QSignalSpy told(&fixture.window, signal.constData());
    const bool before = toggle->isChecked();

    QVERIFY(QMetaObject::invokeMethod(&fixture.window, slot.toLatin1().constData(),
                                      Q_ARG(bool, !before), Q_ARG(bool, true)));
    QCOMPARE(toggle->isChecked(), !before);
    QCOMPARE(int(told.size()), 0);

    toggle->trigger();
    QCOMPARE(toggle->isChecked(), before);
    QCOMPARE(int(told.size()), 1);
    QCOMPARE(told.first().first().toBool(), before);

    QVERIFY(QMetaObject::invokeMethod(&fixture.window, slot.toLatin1().constData(),
                                      Q_ARG(bool, before)));
    QCOMPARE(int(told.size()), 2);
}

void TestWindowView::twinsFollowTheirToggle()
{
    WindowFixture fixture;
    const struct
    {
        Action toggle;
        Action twin;
        const char *icon;
    } rows[] = {
        {Action::EchoAllCommands, Action::EchoAllCommandsButton, "echoCommands"},
        {Action::ShowTabsAndSpaces, Action::ShowTabsAndSpacesButton, "showTabsAndSpaces"},
    };
    for (const auto &row : rows) {
        fixture.action(row.twin)->trigger();
        QVERIFY(fixture.action(row.toggle)->isChecked());
        QVERIFY2(hasIcon(fixture.action(row.twin), row.icon), row.icon);
        fixture.action(row.toggle)->trigger();
        QVERIFY(!fixture.action(row.toggle)->isChecked());
        QVERIFY2(hasIcon(fixture.action(row.twin), (QByteArray(row.icon) + "Off").constData()),
                 row.icon);
    }
}

void TestWindowView::tabsAndSpacesAreDrawn()
{
    WindowFixture fixture;
    fixture.newBuffer(0, "a b");
    fixture.action(Action::ShowTabsAndSpaces)->trigger();
    QVERIFY(preferences().showTabsAndSpaces);
    QCOMPARE(fixture.edit()->document()->defaultTextOption().flags(),
             QTextOption::Flags(QTextOption::ShowTabsAndSpaces));
    fixture.action(Action::ShowEndOfLine)->trigger();
    QVERIFY(fixture.edit()->document()->defaultTextOption().flags() &
            QTextOption::ShowLineAndParagraphSeparators);
}

void TestWindowView::wordWrapChangesTheEditor()
{
    WindowFixture fixture;
    fixture.newBuffer(0, "a b");
    QCOMPARE(fixture.edit()->lineWrapMode(), QPlainTextEdit::NoWrap);
    fixture.action(Action::WordWrap)->trigger();
    QCOMPARE(fixture.edit()->lineWrapMode(), QPlainTextEdit::WidgetWidth);
    QVERIFY(preferences().wordWrapEnabled);
}

void TestWindowView::panesAreShownAndHidden()
{
    WindowFixture fixture;
    const QWidget *editor = fixture.window.central();
    const QWidget *history = fixture.window.dock(Dock::Output);
    fixture.window.show();

    fixture.action(Action::ShowHistory)->trigger();
    QVERIFY(editor->isHidden() && history->isVisible());
    QVERIFY(!fixture.action(Action::CodeEditor)->isChecked());
    fixture.action(Action::ShowEditor)->trigger();
    QVERIFY(editor->isVisible() && history->isHidden());
    QVERIFY(fixture.action(Action::CodeEditor)->isChecked());
    fixture.action(Action::ShowBoth)->trigger();
    QVERIFY(editor->isVisible() && history->isVisible());
    fixture.window.showAll();
    QVERIFY(fixture.window.dock(Dock::QuickHelp)->isVisible());
}

void TestWindowView::docksAreAsBeforeWithTheEditorBack_data()
{
    columns<int>("outputArea");

    row("above", int(Qt::TopDockWidgetArea));
    row("below", int(Qt::BottomDockWidgetArea));
    row("at-a-side", int(Qt::LeftDockWidgetArea));
}

void TestWindowView::docksAreAsBeforeWithTheEditorBack()
{
    QFETCH(int, outputArea);
    WindowFixture fixture;
    Kestrowl &window = fixture.window;
    QDockWidget *output = window.dock(Dock::Output);
    window.addDockWidget(static_cast<Qt::DockWidgetArea>(outputArea), output);
    window.resize(1200, 800);
    window.show();
    window.restoreState(window.saveState()); // or Qt will not hear of other sizes
    QDockWidget *project = window.dock(Dock::Project);
    setWidth(project, 310);
    const QRect before = window.central()->geometry();
    const int width = project->width();
    const int area = output->width() * output->height();

    window.action(Action::ShowHistory)->trigger();
    QCoreApplication::processEvents();
    QVERIFY(output->width() * output->height() > area);
    if (outputArea != Qt::LeftDockWidgetArea)
        QCOMPARE(project->width(), width);

    window.action(Action::ShowBoth)->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(window.central()->geometry(), before);
}

void TestWindowView::neverNeitherHistoryNorEditor()
{
    WindowFixture fixture;
    fixture.window.show();
    fixture.window.showOutput();
    fixture.window.dock(Dock::Output)->close();
    QVERIFY(fixture.window.central()->isVisible());
    fixture.action(Action::CodeEditor)->trigger();
    QVERIFY(fixture.window.dock(Dock::Output)->isVisible());
}

void TestWindowView::quickHelpShowsItsDockOnRequest()
{
    WindowFixture fixture;
    const QDockWidget *dock = fixture.window.dock(Dock::QuickHelp);
    QVERIFY(dock->isHidden());
    fixture.window.updateAndShowQuickHelp("polySphere", true);
    QVERIFY(dock->isHidden());
    fixture.window.updateAndShowQuickHelp("polySphere", false);
    QVERIFY(!dock->isHidden());
}

void TestWindowView::clearAllClearsBoth()
{
    WindowFixture fixture;
    fixture.window.show();
    fixture.newBuffer(0, "print 1;");
    fixture.window.appendOutputText("// Result: 1 //\n");
    QCOMPARE(fixture.window.outputView()->toPlainText(), QString("// Result: 1 //\n"));
    fixture.action(Action::ClearAll)->trigger();
    QCOMPARE(fixture.window.outputView()->toPlainText(), QString());
    QCOMPARE(fixture.edit()->toPlainText(), QString());
    fixture.action(Action::Undo)->trigger();
    QCOMPARE(fixture.edit()->toPlainText(), QString("print 1;"));
}

void TestWindowView::copyTakesTheHistoryThatHasTheFocus()
{
    WindowFixture fixture;
    fixture.showActive();
    fixture.newBuffer(0, "print 1;");
    fixture.edit()->selectAll();
    fixture.window.appendOutputText("history");
    fixture.window.outputView()->selectAll();
    fixture.window.outputView()->setFocus();
    QTest::qWait(1);
    QVERIFY(fixture.window.outputView()->hasFocus());
    fixture.action(Action::Copy)->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QString("history"));
    fixture.action(Action::Cut)->trigger();
    fixture.action(Action::Paste)->trigger();
    QCOMPARE(fixture.edit()->toPlainText(), QString("print 1;"));
    fixture.edit()->setFocus();
    fixture.action(Action::Copy)->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QString("print 1;"));
}

void TestWindowView::editActionsFollowTheDocument()
{
    WindowFixture fixture;
    fixture.window.show(); // or the history waits
    const auto enabled = [&fixture] {
        QStringList names;
        for (Action id : {Action::Undo, Action::Redo, Action::Cut, Action::Copy}) {
            if (fixture.action(id)->isEnabled())
                names << fixture.action(id)->text().remove('&');
        }
        return names.join(" ");
    };
    QCOMPARE(enabled(), QString());
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Z, Qt::ControlModifier);
    QApplication::sendEvent(&fixture.window, &key);
    QVERIFY(key.isAccepted());
    fixture.window.newBuffer(0);
    QTest::keyClicks(fixture.edit(), "print");
    QCOMPARE(enabled(), QString("Undo"));
    fixture.edit()->undo();
    QCOMPARE(enabled(), QString("Redo"));
    fixture.window.newBuffer(1);
    QCOMPARE(enabled(), QString());
    fixture.window.replace("pass");
    fixture.edit()->selectAll();
    QCOMPARE(enabled(), QString("Undo Cut Copy"));
    fixture.window.central()->focusBuffer(0);
    QCOMPARE(enabled(), QString("Redo"));
    fixture.window.appendOutputText("history");
    fixture.window.outputView()->selectAll();
    QCOMPARE(enabled(), QString("Redo Copy"));
}

void TestWindowView::statusLabelsFollowTheCaret()
{
    WindowFixture fixture;
    fixture.newBuffer(0, "ab\ncdef");
    fixture.edit()->moveCursor(QTextCursor::End);
    QCOMPARE(labelText(fixture.window, "columnLabel"), QString("        Col:4"));
    fixture.action(Action::SelectAll)->trigger();
    QCOMPARE(labelText(fixture.window, "selectionLabel"), QString("        Sel:7"));
    const QString insert = labelText(fixture.window, "modeLabel");
    QTest::keyClick(fixture.edit(), Qt::Key_Insert);
    QVERIFY(labelText(fixture.window, "modeLabel") != insert);
}

void TestWindowView::theStatusBarTellsWhatWasFound()
{
    WindowFixture fixture;
    fixture.newBuffer(0, "ab\ncdef");
    const auto messageAfter = [&fixture](const char *findText) {
        fixture.window.findReplace(findText, "x", FindRequest::ReplaceAll);
        return fixture.window.statusBar()->currentMessage();
    };
    QCOMPARE(messageAfter("cd"), QString("1 match replaced"));
    QCOMPARE(fixture.edit()->text(), QString("ab\nxef"));
    QCOMPARE(messageAfter("cd"), QString("String Not Found"));
    fixture.window.findReplace("ab", QString(), 0);
    QCOMPARE(fixture.window.statusBar()->currentMessage(), QString());
}

void TestWindowView::helpActionsAskForTheirPages()
{
    WindowFixture fixture;
    QSignalSpy commandHelp(&fixture.window, SIGNAL(commandHelpRequested(QString, bool)));
    QSignalSpy showHelp(&fixture.window, SIGNAL(showHelpRequested(QString)));
    fixture.action(Action::MelCommandReference)->trigger();
    fixture.action(Action::PythonCommandReference)->trigger();
    fixture.action(Action::NodeAndAttributeReference)->trigger();
    QCOMPARE(int(commandHelp.size()), 2);
    QCOMPARE(commandHelp.at(0).at(1).toBool(), false);
    QCOMPARE(commandHelp.at(1).at(1).toBool(), true);
    QCOMPARE(int(showHelp.size()), 1);
}

static HostVersions hostOfTests()
{
    HostVersions versions;
    versions.maya = "<b>2026";
    versions.python = "3.11.4";
    return versions;
}

void TestWindowView::aboutTellsWhatItRunsWith()
{
    WindowFixture fixture;
    setHostVersionsSource(hostOfTests);
    fixture.action(Action::About)->trigger();
    fixture.action(Action::About)->trigger(); // still one dialog
    setHostVersionsSource(nullptr);
    const QList<AboutDialog *> dialogs = fixture.window.findChildren<AboutDialog *>();
    QCOMPARE(int(dialogs.size()), 1);
    QCOMPARE(qobject_cast<QPushButton *>(dialogs.first()->focusWidget())->text(), QString("Close"));
    QVERIFY(dialogs.first()->findChild<QLabel *>("icon")->sizeHint().height() >= 64);
    dialogs.first()->copyText();
    const QString copied = QApplication::clipboard()->text();
    const QString qt = QString("Qt: %1, built with " QT_VERSION_STR "\n").arg(qVersion());
    const QStringList lines =
        strings({"Corvane Editor 1.", "Maya: <b>2026\n", "Python: 3.11.4\n", qt, "License: MIT"});
    for (const QString &line : lines)
        QVERIFY2(copied.contains(line), qPrintable(copied));
    QPointer<AboutDialog> dialog = dialogs.first();
    QTest::keyClick(dialog, Qt::Key_Escape);
    QVERIFY(!dialog || !dialog->isVisible());
    const QFont font = QApplication::font();
    QFont inPixels = font;
    inPixels.setPixelSize(20);
    QApplication::setFont(inPixels); // such a font has no size in points
    AboutDialog unknown;
    QApplication::setFont(font);
    QVERIFY(unknown.text().contains("Maya: unknown\nPython: unknown\n"));
    QList<int> sizes;
    for (const QLabel *label : unknown.findChildren<QLabel *>())
        sizes << label->font().pixelSize();
    QCOMPARE(int(sizes.count(25)), 1); // the title's
}

void TestWindowView::preferencesReachTheWindow()
{
    WindowFixture fixture;
    QSignalSpy overridden(&fixture.window, SIGNAL(scriptEditorOverrideChanged(bool)));
    preferences().toolbar = false;
    preferences().statusBar = false;
    preferences().overrideScriptEditor = false;
    preferences().outputWindowBufferSize = 3;
    fixture.window.updatePreferencesAndWrite();
    for (const QToolBar *toolBar : fixture.window.findChildren<QToolBar *>())
        QVERIFY(toolBar->isHidden());
    QVERIFY(fixture.window.statusBar()->isHidden());
    QCOMPARE(overridden.last().first().toBool(), false);
    QCOMPARE(fixture.window.outputView()->maximumBlockCount(), 3);
    QVERIFY(QSettings(fixture.window.settingsPath(), QSettings::IniFormat).allKeys().size() > 40);
}

void TestWindowView::barsHiddenByHandStayHidden()
{
    WindowFixture fixture;
    fixture.window.show();
    const QList<QToolBar *> bars = fixture.window.findChildren<QToolBar *>();
    for (QToolBar *bar : bars)
        bar->hide();
    fixture.window.statusBar()->hide();
    fixture.window.updatePreferences();
    QVERIFY(bars.first()->isHidden());
    QVERIFY(fixture.window.statusBar()->isHidden());
    for (const bool shown : {false, true}) {
        preferences().toolbar = shown;
        preferences().statusBar = shown;
        fixture.window.updatePreferences();
    }
    QVERIFY(!bars.first()->isHidden());
    QVERIFY(!fixture.window.statusBar()->isHidden());
}

void TestWindowView::diagnosticsFollowThePreferences()
{
    WindowFixture fixture;
    preferences().pythonDisplayErrors = false;
    fixture.newBuffer(1, "f(1]\n");
    fixture.window.updatePreferences();
    QVERIFY(fixture.edit()->errors().all().empty());
    preferences().pythonDisplayErrors = true;
    fixture.window.updatePreferences();
    QVERIFY(!fixture.edit()->errors().all().empty());
}

void TestWindowView::floatingQuickHelpWaitsForTheWindow()
{
    WindowFixture fixture;
    fixture.window.show();
    QDockWidget *dock = fixture.window.dock(Dock::QuickHelp);
    dock->setFloating(true);
    dock->hide();
    fixture.window.close();
    fixture.window.updateAndShowQuickHelp("polySphere", false);
    QVERIFY(!dock->isVisible());
    fixture.window.show();
    QVERIFY(dock->isVisible());
}

void TestWindowView::thePreferencesDialogChangesWindowAndFile()
{
    WindowFixture fixture;
    fixture.showActive();
    fixture.newBuffer(0, "\t1");
    fixture.action(Action::Preferences)->trigger();
    fixture.action(Action::Preferences)->trigger(); // still one dialog
    const QList<PreferencesDialog *> dialogs = fixture.window.findChildren<PreferencesDialog *>();
    QCOMPARE(int(dialogs.size()), 1);
    PreferencesDialog *dialog = dialogs.first();
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->windowModality(), Qt::WindowModal);
    dialog->findChild<QSpinBox *>("textFontSize")->setValue(17);
    dialog->findChild<QCheckBox *>("statusBar")->setChecked(false);
    QVERIFY(fixture.edit()->font().pointSize() != 17);
    dialog->accept();
    QVERIFY(!dialog->isVisible());
    QCOMPARE(fixture.edit()->font().pointSize(), 17);
    QVERIFY(!fixture.window.statusBar()->isVisible());
    const QSettings settings(fixture.window.settingsPath(), QSettings::IniFormat);
    QCOMPARE(settings.value("fonts/textFontSize").toInt(), 17);
    preferences() = Preferences();
}

void TestWindowView::theProjectFolderFollowsThePreferences()
{
    WindowFixture fixture;
    QVERIFY(QDir(fixture.dir.path()).mkdir("project"));
    fixture.window.show();
    const EdExplorerView *view = fixture.window.findChild<EdExplorerView *>();
    for (int i = 0; i < 200 && !view->findChild<QTreeView *>(); ++i)
        QTest::qWait(5);
    const QTreeView *tree = view->findChild<QTreeView *>();
    QVERIFY(tree);
    const QString home = QDir(fixture.dir.path()).absolutePath();
    QCOMPARE(view->projectDirectory(), home);
    QCOMPARE(tree->rootIndex().data().toString(), QDir(home).dirName());

    preferences().projectDir = QDir(home).absoluteFilePath("project");
    fixture.window.updatePreferences();
    QCOMPARE(tree->rootIndex().data().toString(), QString("project"));
    // As the dialog leaves it to restore the default.
    preferences().projectDir.clear();
    fixture.window.updatePreferences();
    QCOMPARE(tree->rootIndex().data().toString(), QDir(home).dirName());
    QCOMPARE(preferences().projectDir, home);
}

void TestWindowView::settingsAreReadAndWritten()
{
    ScratchDir dir;
    {
        Kestrowl first(dir.path(), dir.path() + "/");
        QVERIFY(first.action(Action::SuppressStackWindow)->isChecked());
        first.suppressStackWindow(false);
        first.wordWrap(true);
        preferences().toolbar = false;
        preferences().defaultStateInitialized = true;
        first.writeSettings();
    }
    QVERIFY(QFile::exists(dir.file("corvaneEditor.ini")));
    preferences() = Preferences();
    Kestrowl second(dir.path(), dir.path());
    QVERIFY(!second.action(Action::SuppressStackWindow)->isChecked());
    QVERIFY(second.action(Action::WordWrap)->isChecked());
    QVERIFY(second.findChild<QToolBar *>("filetoolbar")->isHidden());
    QVERIFY(preferences().defaultStateInitialized);
}

void TestWindowView::closingHides()
{
    WindowFixture fixture;
    fixture.newBuffer(0, "kept");
    fixture.window.show();
    QDockWidget *outline = fixture.window.findChild<QDockWidget *>("outlinedock");
    outline->setFloating(true);
    QVERIFY(outline->isVisible());
    // Who closes all windows must not be held up.
    QVERIFY(fixture.window.close());
    QVERIFY(fixture.window.isHidden());
    QVERIFY(!outline->isVisible());
    fixture.window.show();
    QVERIFY(outline->isVisible());
    fixture.window.closeEditor();
    QVERIFY(fixture.window.isHidden());
    fixture.window.show();
    QCOMPARE(fixture.edit()->toPlainText(), QString("kept"));
}

void TestWindowView::deletingAShownWindowIsQuiet()
{
    WindowFixture *fixture = new WindowFixture;
    fixture->window.show();
    fixture->newBuffer(0, "print 1;");
    fixture->edit()->insertPlainText("more ");
    QTest::qWait(1);
    QSignalSpy executed(&fixture->window, SIGNAL(melExecuted(QString)));
    delete fixture;
    QCOMPARE(int(executed.size()), 0);
}

void TestWindowView::theKeyboardReachesEveryPart()
{
    WindowFixture fixture;
    Kestrowl &window = fixture.window;
    window.open(fixture.dir.write("a.mel", ""));
    window.open(fixture.dir.write("b.mel", ""));
    window.central()->moveToOtherView(0, 1);
    window.tabifyDockWidget(window.dock(Dock::Documents), window.dock(Dock::Buffers));
    fixture.showActive();
    window.dock(Dock::Project)->hide();
    fixture.edit()->setFocus();

    QList<QWidget *> forth, back;
    const int parts = 2 + 4; // the panes, and the docks in sight
    for (int step = 0; step < parts; ++step) {
        forth << QApplication::focusWidget();
        window.focusNextPart();
    }
    for (int step = 0; step < parts; ++step) {
        window.focusPreviousPart();
        back.prepend(QApplication::focusWidget());
    }
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(fixture.edit()));
    QCOMPARE(forth, back);
    QCOMPARE(forth.at(1), window.dock(Dock::Documents)->widget());
    for (QWidget *part : forth)
        QCOMPARE(int(forth.count(part)), 1);
    window.dock(Dock::Documents)->raise();
    window.dock(Dock::Buffers)->raise();
    fixture.edit()->setFocus();
    window.focusNextPart();
    QCoreApplication::processEvents();
    QVERIFY(!window.dock(Dock::Documents)->visibleRegion().isEmpty());
}

CORVANE_TEST_MAIN(TestWindowView)
#include "tst_windowview.moc"
