// SPDX-License-Identifier: MIT
#include "workspace/edcodetabwidget.h"

#include "editor/edcodeedit.h"
#include "preferences/preferences.h"
#include "tests/support/datatable.h"
#include "tests/support/modalanswer.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "tests/support/wheel.h"
#include "workspace/edcodetabbar.h"
#include "workspace/edcodeview.h"
#include "workspace/tabentry.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTimer>

#include <memory>

namespace {

// Commands that open a box, on a buffer with text whose file cannot be written, and behind it a
// Latin-1 file with a character that it cannot hold.
struct BoxCommand
{
    const char *name;
    void (*run)(EdCodeTabWidget *pane);
};
const BoxCommand boxCommands[] = {
    {"read", [](EdCodeTabWidget *pane) { pane->openFile(QFileInfo("/missing"), -1, -1); }},
    {"read-buffer", [](EdCodeTabWidget *pane) { pane->restoreTab("0,/missing,0,0,1,x", 0); }},
    {"write-all", [](EdCodeTabWidget *pane) { pane->saveAll(); }},
    {"write-buffers", [](EdCodeTabWidget *pane) { pane->saveBuffers(); }},
    {"save-as", [](EdCodeTabWidget *pane) { pane->saveAs("/missing/name"); }},
    {"encode", [](EdCodeTabWidget *pane) { pane->save(1); }},
    {"delete", [](EdCodeTabWidget *pane) { pane->closeTab(0); }},
    {"close", [](EdCodeTabWidget *pane) { pane->closeTab(1); }},
    {"close-all", [](EdCodeTabWidget *pane) { pane->promptAllUnsaved(true); }},
    {"rename", [](EdCodeTabWidget *pane) { pane->rename(1); }},
    {"rename-badly", [](EdCodeTabWidget *pane) { pane->codeViewAt(1)->rename("a/b"); }},
};

// What a pane reports while a tab is closed, in order. A receiver may well open another document.
class CloseLog : public QObject
{
    Q_OBJECT

public:
    explicit CloseLog(EdCodeTabWidget *pane) : m_pane(pane)
    {
        connect(pane, SIGNAL(codeViewRetired(EdCodeView *)), SLOT(retired()));
        connect(pane, SIGNAL(bufferDeleted(int)), SLOT(deleted(int)));
        connect(pane, SIGNAL(fileClosed(QString)), SLOT(closed(QString)));
        connect(pane, SIGNAL(tabChanged()), SLOT(changed()));
        connect(pane, SIGNAL(otherViewRequested(int, int)), SLOT(requested(int, int)));
    }

    bool opensAnother = false;
    QStringList lines;

private slots:
    void retired() { lines << "retired"; }
    void deleted(int index) { lines << QString("deleted %1").arg(index); }
    void closed(const QString &path)
    {
        lines << QString("closed %1").arg(QFileInfo(path).fileName());
        if (opensAnother)
            m_pane->newBuffer(9, EdCodeView::Text, "another");
        opensAnother = false;
    }
    void changed() { lines << QString("changed, %1 left").arg(m_pane->count()); }
    void requested(int id, int tab) { lines << QString("request %1 %2").arg(id).arg(tab); }

private:
    EdCodeTabWidget *m_pane;
};

void deleteWhatIsPosted()
{
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

// What tabs, documents and files become by each command, in any order, is for the random walk; here
// is what it does not see.
class TestEdCodeTabWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void placesInTheStackStayAndAreUsedAgain();
    void tabsNameWhatTheyShow();
    void openFilesAreFound();
    void closingAsks_data();
    void closingAsks();
    void failedSavingKeepsTheTab();
    void boxesMayGoWithTheirPane_data();
    void boxesMayGoWithTheirPane();
    void boxesShowNamesAsTheyAre();
    void closingIsReportedInOrder();
    void closingGivesTheNextViewTheFocus();
    void closedViewsOutliveTheCall();
    void handedOverViewsAreLetGo();
    void renamingChangesTabs();
    void aLongNameLeavesRoomForOtherTabs();
    void theFocusIsAlwaysWhereOneCanType_data();
    void theFocusIsAlwaysWhereOneCanType();
    void dismissedMenusLeaveNoTabBehind();
    void stepsAndChoicesAreReported();
    void theBarsOwnStepsAreReported();
    void scrollingComesBack();
    void plainEntriesAreTakenAsTheyStand_data();
    void plainEntriesAreTakenAsTheyStand();

private:
    EdCodeView *openFile(const char *name, const QByteArray &bytes);
    EdCodeView *newBuffer(int index, const char *text, const char *label = "buffer");
    QString labels() const;

    std::unique_ptr<ScratchDir> m_dir;
    std::unique_ptr<ScratchDir> m_buffers;
    std::unique_ptr<EdCodeTabWidget> m_pane;
};

void TestEdCodeTabWidget::init()
{
    preferences() = Preferences();
    m_dir = std::make_unique<ScratchDir>();
    m_buffers = std::make_unique<ScratchDir>();
    EdCodeView::setBufferDirectory(QDir(m_buffers->path()));
    m_pane = std::make_unique<EdCodeTabWidget>(1);
}

void TestEdCodeTabWidget::cleanup()
{
    m_pane.reset();
    m_buffers.reset();
    m_dir.reset();
}

EdCodeView *TestEdCodeTabWidget::openFile(const char *name, const QByteArray &bytes)
{
    return m_pane->codeViewAt(m_pane->openFile(QFileInfo(m_dir->write(name, bytes)), -1, -1));
}

EdCodeView *TestEdCodeTabWidget::newBuffer(int index, const char *text, const char *label)
{
    EdCodeView *view = m_pane->codeViewAt(m_pane->newBuffer(index, EdCodeView::Text, label));
    view->replace(text);
    return view;
}

// With the current one in brackets.
QString TestEdCodeTabWidget::labels() const
{
    QStringList labels;
    for (int tab = 0; tab < m_pane->count(); ++tab)
        labels << QString(tab == m_pane->currentIndex() ? "[%1]" : "%1").arg(m_pane->tabText(tab));
    return labels.join(" ");
}

void TestEdCodeTabWidget::placesInTheStackStayAndAreUsedAgain()
{
    QStackedWidget *stack = m_pane->findChild<QStackedWidget *>();
    for (int index = 0; index < 3; ++index)
        newBuffer(index, "");
    EdCodeView *last = m_pane->codeViewAt(2);
    m_pane->tabBar()->moveTab(2, 0);
    m_pane->closeTab(1);
    QCOMPARE(stack->count(), 3);
    QCOMPARE(stack->indexOf(last), 2);
    QCOMPARE(m_pane->indexOf(last), 0);
    QCOMPARE(m_pane->indexOfStack(2), 0);
    QCOMPARE(m_pane->indexOfStack(0), -1);
    for (int index = 3; index < 40; ++index) {
        newBuffer(index, "");
        QCOMPARE(stack->currentWidget(), static_cast<QWidget *>(m_pane->currentCodeView()));
        m_pane->closeTab(m_pane->currentIndex());
    }
    QCOMPARE(stack->count(), 3);
    QCOMPARE(stack->indexOf(last), 2);
    QCOMPARE(stack->currentWidget(), static_cast<QWidget *>(m_pane->currentCodeView()));
}

void TestEdCodeTabWidget::tabsNameWhatTheyShow()
{
    newBuffer(0, "changed");
    EdCodeView *file = openFile("a&b.mel", "");
    file->replace("changed");
    QCOMPARE(labels(), QString("buffer [a&b.mel*]"));
    QVERIFY(m_pane->isModified(1));
    QCOMPARE(m_pane->tabBar()->tabText(1), QString("a&&b.mel*"));
    QCOMPARE(m_pane->tabBar()->tabToolTip(1), m_dir->file("a&b.mel"));
    m_pane->saveAs(QString());
    m_pane->saveAs(m_dir->file("c.mel"));
    QCOMPARE(labels(), QString("buffer [c.mel]"));
    QCOMPARE(m_pane->tabBar()->tabToolTip(1), m_dir->file("c.mel"));
}

void TestEdCodeTabWidget::openFilesAreFound()
{
    newBuffer(7, "");
    openFile("a", "");
    openFile("b", "");
    const QFileInfo info(m_dir->file("a"));
    QVERIFY(QFile::link(m_dir->file("a"), m_dir->file("link")));
    QCOMPARE(m_pane->findFile(info), 1);
    QCOMPARE(m_pane->findFile(QFileInfo(m_dir->file("link"))), 1);
    QCOMPARE(m_pane->findFile(QFileInfo(m_dir->file("c"))), -1);
    QSignalSpy changed(m_pane.get(), SIGNAL(tabChanged()));
    QCOMPARE(m_pane->openFile(info, 1, -1), -1);
    QCOMPARE(m_pane->currentIndex(), 1);
    m_pane->focusBuffer(7);
    QCOMPARE(m_pane->currentIndex(), 0);
    m_pane->focusBuffer(8);
    QCOMPARE(int(changed.size()), 2);
    // Nobody shows it any more.
    m_pane->forceCloseTab(1);
    QCOMPARE(m_pane->findFile(info), -1);
    QCOMPARE(m_pane->openFile(info, 1, 0), -1);
    QCOMPARE(labels(), QString("[a] buffer b"));
}

void TestEdCodeTabWidget::closingAsks_data()
{
    columns<bool, QString>("isBuffer", "typed");
    QTest::addColumn<bool>("confirms"); // that buffers are closed
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("question"); // empty: not asked
    QTest::addColumn<bool>("closes");

    const QString lost = "Delete buffer 'buffer'?\n\nUnsaved contents will be lost.";
    const QString save = "'a.mel' has been modified. Save changes?";
    row("empty-buffer", true, "", true, "", "", true);
    row("buffer-yes", true, "x", true, "Yes", lost, true);
    row("buffer-no", true, "x", true, "No", lost, false);
    row("buffer-escape", true, "x", true, "(none)", lost, false);
    row("buffer-unasked", true, "x", false, "", "", true);
    row("file", false, "", true, "", "", true);
    row("file-yes", false, "x", false, "Yes", save, true);
    row("file-no", false, "x", true, "No", save, true);
    row("file-cancel", false, "x", true, "Cancel", save, false);
    row("file-escape", false, "x", true, "(none)", save, false);
}

void TestEdCodeTabWidget::closingAsks()
{
    QFETCH(bool, isBuffer);
    QFETCH(QString, typed);
    QFETCH(QString, answer);
    QFETCH(QString, question);
    QFETCH(bool, closes);
    QFETCH(bool, confirms);
    preferences().confirmCloseTemporaryBuffer = confirms;
    EdCodeView *view = isBuffer ? newBuffer(0, "") : openFile("a.mel", "");
    if (!typed.isEmpty())
        view->replace(typed);
    const QString path = view->fileInfo().absoluteFilePath();
    ModalAnswer box(answer);
    m_pane->closeTab(0);
    QCOMPARE(box.text(), question);
    if (isBuffer && box.wasAsked())
        QCOMPARE(box.defaultButton(), QString("No"));
    QCOMPARE(m_pane->count(), closes ? 0 : 1);
    QCOMPARE(QFile::exists(path), !closes || !isBuffer);
    if (!isBuffer)
        QCOMPARE(m_dir->read("a.mel"), QByteArray(answer == "Yes" ? "x" : ""));
}

void TestEdCodeTabWidget::failedSavingKeepsTheTab()
{
    EdCodeView *view = openFile("a", "");
    view->replace("x");
    openFile("b", "");
    QVERIFY(QFile::remove(m_dir->file("a")) && QDir().mkdir(m_dir->file("a")));
    ModalAnswer box("Yes");
    box.thenPress("OK");
    m_pane->closeTab(0);
    QVERIFY(box.text().startsWith("Cannot write file"));
    QCOMPARE(labels(), QString("[a*] b"));
    QCOMPARE(view->text(), QString("x"));
}

void TestEdCodeTabWidget::boxesMayGoWithTheirPane_data()
{
    QTest::addColumn<int>("command");

    for (const BoxCommand &command : boxCommands)
        row(command.name, int(&command - boxCommands));
}

// As when the host quits meanwhile.
void TestEdCodeTabWidget::boxesMayGoWithTheirPane()
{
    QFETCH(int, command);
    EdCodeView *buffer = newBuffer(0, "x");
    const QString path = buffer->fileInfo().absoluteFilePath();
    QVERIFY(QFile::remove(path) && QDir().mkdir(path));
    openFile("a", "\xe9")->replace(QString(QChar(0x2192)));
    const QPointer<EdCodeTabWidget> pane = m_pane.release();
    QTimer::singleShot(0, pane.data(), SLOT(deleteLater()));
    boxCommands[command].run(pane.data());
    QVERIFY(!pane);
}

void TestEdCodeTabWidget::boxesShowNamesAsTheyAre()
{
    openFile("a <b>", "")->replace("x");
    ModalAnswer box("Cancel");
    m_pane->closeTab(0);
    QVERIFY(box.text().contains("<b>"));
    QCOMPARE(box.textFormat(), Qt::PlainText);
}

void TestEdCodeTabWidget::closingIsReportedInOrder()
{
    newBuffer(4, "");
    openFile("a", "");
    CloseLog log(m_pane.get());
    log.opensAnother = true;
    preferences().insertDocsOnLeft = true;
    m_pane->closeTab(1);
    QCOMPARE(labels(), QString("[another] buffer"));
    m_pane->closeTab(1);
    m_pane->closeTab(0);
    QCOMPARE(log.lines.join("; "),
             QString("retired; closed a; changed, 2 left; "
                     "retired; deleted 4; closed corvaneEditorBuffer-0.txt; changed, 1 left; "
                     "retired; deleted 9; closed corvaneEditorBuffer-1.txt; request 1 -1"));
}

void TestEdCodeTabWidget::closingGivesTheNextViewTheFocus()
{
    newBuffer(0, "");
    newBuffer(1, "");
    QApplication::setActiveWindow(m_pane.get());
    m_pane->setCodeEditFocus();
    QSignalSpy focused(m_pane.get(), SIGNAL(gainedFocus(int)));
    m_pane->closeTab(1);
    QVERIFY(m_pane->currentCodeView()->codeEdit()->hasFocus());
    QCOMPARE(focused.last().first().toInt(), 1);
}

void TestEdCodeTabWidget::closedViewsOutliveTheCall()
{
    const QPointer<EdCodeView> view = newBuffer(0, "");
    const QPointer<EdCodeView> other = newBuffer(1, "");
    QSignalSpy textChanged(m_pane.get(), SIGNAL(textChanged()));
    m_pane->closeTab(0);
    QVERIFY(view);
    view->replace("unheard of");
    QCOMPARE(int(textChanged.size()), 0);
    deleteWhatIsPosted();
    QVERIFY(!view);
    m_pane->closeTab(0);
    QVERIFY(other);
    m_pane->deleteRetiredViews();
    QVERIFY(!other);
}

void TestEdCodeTabWidget::handedOverViewsAreLetGo()
{
    EdCodeView *view = openFile("a", "");
    view->replace("x");
    EdCodeTabWidget other(0);
    CloseLog log(m_pane.get());
    QSignalSpy textChanged(m_pane.get(), SIGNAL(textChanged()));
    m_pane->tabMoved(0);
    other.insertCodeView(-1, view, "a*");
    QVERIFY(!m_pane->isVisible() && other.isVisible());
    QCOMPARE(log.lines, QStringList());
    view->replace("y");
    QCOMPARE(int(textChanged.size()), 0);
    QCOMPARE(other.tabText(0), QString("a*"));
    other.save();
    QCOMPARE(other.tabText(0), QString("a"));
    m_pane.reset();
    QCOMPARE(other.currentCodeView()->text(), QString("xy"));
}

void TestEdCodeTabWidget::renamingChangesTabs()
{
    newBuffer(5, "", "old");
    openFile("a.txt*", "")->replace("x");
    QSignalSpy labelled(m_pane.get(), SIGNAL(bufferRenamed(int, QString)));
    QSignalSpy renamed(m_pane.get(), SIGNAL(fileRenamed(QString, QString)));
    ModalAnswer buffer("OK");
    buffer.enter("new");
    m_pane->rename(0);
    QCOMPARE(buffer.text(), QString("New Name:"));
    QCOMPARE(buffer.selection(), QString("old"));
    QCOMPARE(labelled.last().at(0).toInt(), 5);
    ModalAnswer same("OK");
    m_pane->rename(); // what is offered is the file's name
    QCOMPARE(same.selection(), QString("a"));
    QCOMPARE(int(renamed.size()), 0);
    const char *longName = "what_the_script_does_in_a_few_words.tar.gz";
    ModalAnswer file("OK");
    file.enter(longName);
    m_pane->rename();
    QCOMPARE(labels(), QString("new [%1*]").arg(longName));
    QCOMPARE(m_pane->tabBar()->tabToolTip(1), m_dir->file(longName));
    QCOMPARE(renamed.last().at(1).toString(), m_dir->file(longName));
    ModalAnswer again("OK");
    m_pane->rename();
    QCOMPARE(again.selection(), QString("what_the_script_does_in_a_few_words.tar"));
    QVERIFY(again.showsWholeText());
}

void TestEdCodeTabWidget::aLongNameLeavesRoomForOtherTabs()
{
    const QString longName = QString(200, 'a') + ".mel";
    m_pane->openFile(QFileInfo(m_dir->write(qPrintable(longName), "")), -1, -1);
    m_pane->newMelBuffer(0);
    QCOMPARE(m_pane->tabText(0), longName);
    QVERIFY(m_pane->tabBar()->tabRect(0).width() < 600);
    QVERIFY(m_pane->tabBar()->tabRect(1).width() < 100);
}

void TestEdCodeTabWidget::theFocusIsAlwaysWhereOneCanType_data()
{
    QTest::addColumn<int>("reason");

    row("beside-the-tabs", int(Qt::MouseFocusReason));
    row("tab-key", int(Qt::TabFocusReason));
    row("backtab-key", int(Qt::BacktabFocusReason));
}

void TestEdCodeTabWidget::theFocusIsAlwaysWhereOneCanType()
{
    QFETCH(int, reason);
    newBuffer(0, "");
    QApplication::setActiveWindow(m_pane.get());
    m_pane->tabBar()->setFocus();
    m_pane->setFocus(static_cast<Qt::FocusReason>(reason));
    QVERIFY(m_pane->currentCodeView()->codeEdit()->hasFocus());
}

void TestEdCodeTabWidget::dismissedMenusLeaveNoTabBehind()
{
    newBuffer(0, "", "first");
    newBuffer(1, "", "second");
    m_pane->contextMenu(m_pane->tabBar()->tabRect(0).center());
    QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    menu->close();
    deleteWhatIsPosted();
    m_pane->contextCloseTab();
    QCOMPARE(labels(), QString("[first] second"));
}

void TestEdCodeTabWidget::stepsAndChoicesAreReported()
{
    newBuffer(0, "", "a");
    QSignalSpy changed(m_pane.get(), SIGNAL(tabChanged()));
    m_pane->nextTab();
    m_pane->setCurrentTab(1);
    QCOMPARE(int(changed.size()), 0);
    EdCodeView *last = newBuffer(1, "", "b");
    last->nextTab();
    QCOMPARE(labels(), QString("[a] b"));
    m_pane->codeViewAt(0)->previousTab();
    QCOMPARE(labels(), QString("a [b]"));
    QCOMPARE(int(changed.size()), 2);
}

void TestEdCodeTabWidget::theBarsOwnStepsAreReported()
{
    newBuffer(0, "", "a");
    newBuffer(1, "", "b");
    QSignalSpy changed(m_pane.get(), SIGNAL(tabChanged()));
    QTest::keyClick(m_pane->tabBar(), Qt::Key_Left);
    QCOMPARE(labels(), QString("[a] b"));
    QCOMPARE(int(changed.size()), 1);
    turnWheel(m_pane->tabBar());
    QCOMPARE(labels(), QString("a [b]"));
    QCOMPARE(int(changed.size()), 2);
    turnWheel(m_pane->tabBar());
    QCOMPARE(int(changed.size()), 2);
}

void TestEdCodeTabWidget::scrollingComesBack()
{
    m_dir->write("long", QByteArray("x\n").repeated(1000));
    const QString entry = QString("0,%1,%2,%3,0").arg(m_dir->file("long"));
    for (bool isShownBefore : {true, false}) {
        QWidget window;
        EdCodeTabWidget pane(0, &window);
        pane.resize(400, 300);
        window.setVisible(isShownBefore);
        pane.beginRestoring();
        for (int line : {505, 5}) // the caret comes first
            pane.restoreTabQuietly(*TabEntry::parse(entry.arg(2 * line).arg(500)), 0);
        pane.endRestoring(0);
        window.show();
        for (int tab : {0, 1}) {
            pane.setCurrentTab(tab);
            const EdCodeEdit *edit = pane.currentCodeView()->codeEdit();
            QCOMPARE(edit->currentLine(), tab == 0 ? 506 : 6);
            QCOMPARE(edit->verticalScrollBar()->value(), tab == 0 ? 500 : 5);
        }
    }
}

void TestEdCodeTabWidget::plainEntriesAreTakenAsTheyStand_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("tabs"); // afterwards

    row("file", "0,%1,2,0,0", "buffer [a.mel]");
    row("pane-not-read", "x,%1,2,0,0", "buffer [a.mel]");
    row("further-fields", "0,%1,2,0,0,label,more", "buffer [a.mel]");
    row("buffer-anywhere", "0,%1,2,0,7,label,more", "buffer [label]");
    row("empty-label", "0,%1,2,0,1,", "buffer []");
    row("nothing", "", "[buffer]");
    row("too-short", "0,%1,2,0", "[buffer]");
    row("no-label", "0,%1,2,0,1", "[buffer]");
    row("no-caret", "0,%1,,0,0", "[buffer]");
    row("bad-scrolling", "0,%1,2,x,0", "[buffer]");
    row("bad-kind", "0,%1,2,0,x", "[buffer]");
}

void TestEdCodeTabWidget::plainEntriesAreTakenAsTheyStand()
{
    QFETCH(QString, entry);
    QFETCH(QString, tabs);
    newBuffer(0, "");
    m_pane->restoreTab(entry.replace("%1", m_dir->write("a.mel", "text")), 5);
    QCOMPARE(labels(), tabs);
    const EdCodeView *view = m_pane->currentCodeView();
    QCOMPARE(view->cursorPosition(), m_pane->count() == 2 ? 2 : 0);
    QCOMPARE(view->bufferIndex(), tabs.endsWith("[a.mel]") ? -1 : m_pane->count() == 2 ? 5 : 0);
}

CORVANE_TEST_MAIN(TestEdCodeTabWidget)
#include "tst_edcodetabwidget.moc"
