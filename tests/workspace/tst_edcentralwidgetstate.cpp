// SPDX-License-Identifier: MIT
// What survives a restart of the program.
#include "preferences/preferences.h"
#include "tests/support/datatable.h"
#include "tests/support/modalanswer.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "analysis/melparser.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodetabbar.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#include "editor/edcodeedit.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>

#include <memory>

class TestEdCentralWidgetState : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_buffers.reset(); }

    void restoringOpensWhatWasCurrent_data();
    void restoringOpensWhatWasCurrent();
    void stateAndRestoringAgree();
    void panesAreRestored();
    void onlyDocumentsInFrontGetEditors();
    void nobodyWaitsForAParse();
    void entriesWaitForTheirFolder();
    void filesOfTheUserAreNoBuffers();
    void restoringShowsNoBox();
    void buffersKeepTheirNames();
    void tidiedBuffersAreWrittenAgain();

private:
    std::unique_ptr<ScratchDir> m_buffers;
};

void TestEdCentralWidgetState::init()
{
    preferences() = Preferences();
    m_buffers = std::make_unique<ScratchDir>();
    EdCodeView::setBufferDirectory(QDir(m_buffers->path()));
}

void TestEdCentralWidgetState::restoringOpensWhatWasCurrent_data()
{
    QTest::addColumn<QStringList>("entries"); // "%" is the directory
    columns<int, int, int, QString, int>("activeView", "indexA", "indexB", "opened", "cursor");

    const QString a = "0,%/a.mel,2,0,0";
    const QString b = "0,%/b.py,9999,9999,0";
    const QString c = "1,%/c.txt,-7,-7,1,A label";
    const QStringList all = QStringList() << a << b << c;
    row("first", all, 0, 0, 0, "a", 2);
    row("second", all, 0, 1, 0, "b", 3);
    row("other-pane", all, 1, 0, 0, "c", 0);
    row("single-pane-list", all, 1, -1, 1, "b", 3);
    row("index-too-large", all, 0, 99, 0, "b", 3);
    row("index-too-small", all, 0, -9, 0, "a", 2);
    row("pane-too-large", all, 7, 0, 0, "a", 2);
    row("pane-too-small", all, -7, 0, 0, "a", 2);
    const QStringList damaged =
        strings({"", "0", ",,,,", "x,%/b.py,0,0,0", "0,%/b.py,0,0", "0,%/b.py,x,0,0",
                 "0,%/b.py,0,,0", "0,%/b.py,0,0,1", "0,%/b.py,0,0,0x1", "0,,0,0,0"});
    row("damaged", (damaged + QStringList(a)), 0, 0, 0, "a", 2);
    row("file-is-gone", QStringList("0,%/gone.mel,0,0,0"), 0, 0, 0, "", 0);
    row("comma-in-path", QStringList("0,%/d,1,2.mel,2,0,0"), 0, 0, 0, "d,1,2", 2);
    row("comma-in-label", QStringList("1,%/c.txt,1,0,1,A label, 2,0,1"), 1, 0, 0, "c", 1);
    row("number-as-label", QStringList("1,%/c.txt,1,3,1,0"), 1, 0, 0, "c", 1);
    row("nothing", damaged, 0, 0, 0, "", 0);
}

void TestEdCentralWidgetState::restoringOpensWhatWasCurrent()
{
    QFETCH(QStringList, entries);
    QFETCH(int, activeView);
    QFETCH(int, indexA);
    QFETCH(int, indexB);
    QFETCH(QString, opened);
    QFETCH(int, cursor);
    ScratchDir dir;
    dir.write("a.mel", "abc");
    dir.write("b.py", "abc");
    dir.write("c.txt", "abc");
    dir.write("d,1,2.mel", "abc");
    EdCodeView::setBufferDirectory(QDir(dir.path()));
    EdCentralWidget central;
    const WorkspaceState state = {entries.replaceInStrings("%", dir.path()), activeView, indexA,
                                  indexB};
    central.restore(state);
    const EdCodeView *view = central.currentCodeView();
    QCOMPARE(view ? view->fileInfo().baseName() : QString(), opened);
    QCOMPARE(view ? view->codeEdit()->textCursor().position() : 0, cursor);
    QCOMPARE(view && view->isBuffer(), opened == "c");
}

void TestEdCentralWidgetState::stateAndRestoringAgree()
{
    ScratchDir dir;
    WorkspaceState state;
    {
        EdCentralWidget central;
        QVERIFY(central.state() == WorkspaceState());
        central.openFile(dir.write("a.mel", "abc"));
        central.currentCodeView()->setCursorPosition(2);
        central.newPythonBuffer();
        central.replace("x\ny");
        QCOMPARE(central.saveBuffersQuietly(), QStringList());
        state = central.state();
    }
    QCOMPARE(state.openTabs,
             strings({"0," + dir.file("a.mel") + ",2,0,0",
                      "0," + m_buffers->path() + "/corvaneEditorBuffer-0.py,3,0,1,Python"}));
    EdCentralWidget central;
    central.resize(400, 300);
    central.show();
    QSignalSpy created(&central, SIGNAL(bufferCreated(int, QString, QFileInfo)));
    QSignalSpy opened(&central, SIGNAL(fileOpened(QString)));
    central.restore(state);
    QVERIFY(central.state() == state);
    QCOMPARE(central.currentCodeView()->text(), QString("x\ny"));
    QCOMPARE(created.first().at(1).toString(), QString("Python"));
    QCOMPARE(opened.first().first().toString(), dir.file("a.mel"));
}

void TestEdCentralWidgetState::panesAreRestored()
{
    ScratchDir dir;
    EdCentralWidget first;
    for (const char *name : {"a.mel", "b.mel", "c.mel", "d.mel"})
        first.openFile(dir.write(name, "abc"));
    first.moveToOtherView(0, 1);
    first.moveToOtherView(0, 1);
    first.openFile(dir.file("b.mel"));
    const WorkspaceState state = first.state();
    QCOMPARE(state.activeView, 1);
    QCOMPARE(state.indexA, 1);
    QCOMPARE(state.indexB, 0);
    EdCentralWidget second;
    second.pane(0)->sizeHint(); // which the layout keeps
    second.restore(state);
    QVERIFY(second.state() == state);
    QCOMPARE(second.currentCodeView()->fileInfo().fileName(), QString("b.mel"));
    second.show();
    QCoreApplication::processEvents();
    for (const EdCodeTabBar *bar : second.findChildren<EdCodeTabBar *>())
        QCOMPARE(bar->height(), bar->sizeHint().height());
    WorkspaceState same = state;
    const QString link = dir.file("link.mel");
    QVERIFY(QFile::link(dir.file("b.mel"), link));
    same.openTabs << "0," + link + ",0,0,0";
    second.restore(same); // opens nothing twice
    QCOMPARE(int(second.codeViews().size()), 4);
}

void TestEdCentralWidgetState::onlyDocumentsInFrontGetEditors()
{
    ScratchDir dir;
    EdCentralWidget opened;
    for (const char *name : {"a.mel", "b.py", "long name.txt"})
        opened.openFile(dir.write(name, "abc"));
    opened.moveToOtherView(0, 0);
    EdCentralWidget restored;
    restored.restore(opened.state());
    restored.updateFontAndColors();
    restored.updateTabsAndSpaces();
    for (EdCentralWidget *central : {&opened, &restored}) {
        central->resize(600, 300);
        central->show();
    }
    QCOMPARE(int(restored.findChildren<EdCodeEdit *>().size()), 2);
    const QTabBar *bar = restored.pane(0)->tabBar();
    for (int tab : {0, 1}) {
        QCOMPARE(bar->tabRect(tab).size(), opened.pane(0)->tabBar()->tabRect(tab).size());
        QVERIFY(bar->tabButton(tab, QTabBar::RightSide));
    }
}

void TestEdCentralWidgetState::nobodyWaitsForAParse()
{
    ScratchDir dir;
    WorkspaceState state;
    state.indexA = 0;
    for (const char *name : {"short.mel", "long.mel"}) {
        const int lines = *name == 's' ? 1 : 40000;
        const QString path = dir.write(name, QByteArray("proc p() {}\n").repeated(lines));
        state.openTabs << "0," + path + ",0,0,0";
    }
    EdCentralWidget central;
    qRegisterMetaType<MelParser>("MelParser");
    QSignalSpy parsed(&central, SIGNAL(melScriptUpdated(MelParser)));
    const auto isParsedLater = [&parsed](int count) {
        if (int(parsed.size()) != count - 1)
            return false;
        QElapsedTimer clock;
        clock.start();
        while (int(parsed.size()) < count && clock.elapsed() < 10000)
            QTest::qWait(1);
        return int(parsed.size()) == count;
    };
    central.restore(state);
    QVERIFY(isParsedLater(1));
    central.pane(0)->setCurrentTab(1);
    QVERIFY(isParsedLater(2));
    central.pane(0)->setCurrentTab(0);
    central.pane(0)->setCurrentTab(1);
    QCOMPARE(int(parsed.size()), 4); // as of before
}

void TestEdCentralWidgetState::entriesWaitForTheirFolder()
{
    ScratchDir dir;
    const QString a = "0," + dir.write("a.mel", "abc") + ",1,0,0";
    const QString deleted = "0," + dir.file("deleted.mel") + ",2,0,0";
    const QString gone = "0," + dir.file("drive/gone.mel") + ",0,0,0";
    const QString lost = "0," + m_buffers->file("lost.mel") + ",2,0,1,Label";
    EdCentralWidget central;
    const QStringList problems =
        central.restore({QStringList() << lost << a << "damaged" << gone << deleted, 0, 1, 0});
    QCOMPARE(int(problems.size()), 3);
    QCOMPARE(central.state().openTabs, QStringList() << a << gone);
    QVERIFY(QDir(dir.path()).mkdir("drive"));
    central.openFile(dir.write("drive/gone.mel", "x"));
    QCOMPARE(central.state().openTabs, QStringList() << a << gone);
    central.closeActive(); // from here on the user decides
    QCOMPARE(central.state().openTabs, QStringList(a));
}

void TestEdCentralWidgetState::filesOfTheUserAreNoBuffers()
{
    preferences().confirmCloseTemporaryBuffer = false;
    QDir(m_buffers->path()).mkdir("deeper");
    ScratchDir dir;
    const QStringList paths =
        strings({dir.write("a.mel", "abc"), m_buffers->write("deeper/a.mel", "abc")});
    for (const QString &path : paths) {
        EdCentralWidget central;
        central.restore({QStringList("0," + path + ",2,0,1,Label"), 0, 0, 0});
        QVERIFY(!central.currentCodeView()->isBuffer());
        central.closeActive();
        QVERIFY(QFile::exists(path));
    }
}

void TestEdCentralWidgetState::restoringShowsNoBox()
{
    ScratchDir dir;
    QFile large(dir.write("large.mel", ""));
    QVERIFY(large.open(QIODevice::ReadWrite) && large.resize(256 * 1024 * 1024 + 1));
    const QString reason = " cannot be opened again: The file is larger than 256 MB.";
    const QString entry = "0," + large.fileName() + ",0,0,0";
    EdCentralWidget central;
    ModalAnswer answer("OK");
    QCOMPARE(central.restore({QStringList(entry), 0, 0, 0}),
             QStringList(large.fileName() + reason));
    QVERIFY(!answer.wasAsked() && !central.currentCodeView());
    QCOMPARE(central.state().openTabs, QStringList(entry));
}

// A name is free once its buffer is closed, not when its file is gone.
void TestEdCentralWidgetState::buffersKeepTheirNames()
{
    EdCentralWidget central;
    central.newMelBuffer();
    central.replace("first");
    central.saveBuffers();
    QVERIFY(QFile::remove(m_buffers->file("corvaneEditorBuffer-0.mel")));
    central.newMelBuffer();
    central.replace("second");
    QCOMPARE(central.saveBuffersQuietly(), QStringList());
    QCOMPARE(m_buffers->read("corvaneEditorBuffer-0.mel"), QByteArray("first"));
    QCOMPARE(m_buffers->read("corvaneEditorBuffer-1.mel"), QByteArray("second"));
    ModalAnswer answer("Yes");
    central.closeBuffer(0);
    central.newMelBuffer();
    QCOMPARE(central.currentCodeView()->fileInfo().fileName(),
             QString("corvaneEditorBuffer-0.mel"));
}

void TestEdCentralWidgetState::tidiedBuffersAreWrittenAgain()
{
    EdCentralWidget central;
    central.newMelBuffer();
    central.replace("x");
    central.saveBuffers();
    const QString path = m_buffers->file("corvaneEditorBuffer-0.mel");
    QVERIFY(QFile::remove(path));
    QCOMPARE(central.saveBuffersQuietly(), QStringList());
    QCOMPARE(m_buffers->read("corvaneEditorBuffer-0.mel"), QByteArray("x"));
    central.replace("y");
    QVERIFY(QFile::remove(path) && QDir().mkdir(path));
    ModalAnswer answer("OK");
    QCOMPARE(central.saveBuffersQuietly(),
             QStringList("The buffer MEL is not saved: This is not a regular file."));
    QVERIFY(!answer.wasAsked());
}

CORVANE_TEST_MAIN(TestEdCentralWidgetState)
#include "tst_edcentralwidgetstate.moc"
