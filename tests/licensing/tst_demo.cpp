// SPDX-License-Identifier: MIT
// What a demo refuses in the window, and what it keeps all the same.
#include "compat/filetree.h"
#include "licensing/license.h"
#include "output/edoutputview.h"
#include "tests/licensing/issuer.h"
#include "tests/mainwindow/windowfixture.h"
#include "tests/support/modalanswer.h"
#include "tests/support/testmain.h"
#include "workspace/edcodetabwidget.h"

#include <QFile>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QToolButton>

#include <memory>

class TestDemo : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void filesAreNotSaved_data();
    void filesAreNotSaved();
    void buffersAreSaved();
    void executingSavesNothingAndRuns();
    void closedChangesComeBack();
    void closedChangesComeBackWithTheFile();
    void closingAsksWhereNothingIsKept();
    void discardedTextsStayAway();
    void onlySoManyDocumentsAreOpened();
    void licenseLiftsEverythingAndSurvives();
    void licensesExpireWhileTheEditorRuns();

private:
    Issuer m_issuer;
};

namespace {

// A window that can be started again over its settings.
struct Runs
{
    ScratchDir dir;
    std::unique_ptr<Kestrowl> window;

    Runs() { start(); }

    void start()
    {
        window.reset();
        window.reset(new Kestrowl(dir.path(), dir.path()));
        window->show();
    }

    EdCodeView *view() const { return window->central()->currentCodeView(); }
    int tabCount() const { return window->central()->pane(0)->count(); }

    void openChanged(const char *name)
    {
        window->open(dir.write(name, "old"));
        view()->codeEdit()->selectAll();
        view()->codeEdit()->insertPlainText("new");
    }
};

} // namespace

void TestDemo::initTestCase()
{
    setLicenseKey(m_issuer.publicKey());
}

void TestDemo::filesAreNotSaved_data()
{
    QTest::addColumn<QString>("slot");

    for (const char *slot : {"save", "saveAs", "saveAll"})
        QTest::newRow(slot) << slot;
}

void TestDemo::filesAreNotSaved()
{
    QFETCH(QString, slot);
    Runs runs;
    runs.openChanged("a.mel");
    runs.openChanged("b.mel");
    ModalAnswer told("OK"); // once, and no file name is asked for
    QMetaObject::invokeMethod(runs.window.get(), slot.toLatin1());
    QCOMPARE(told.title(), QString("Demo"));
    QVERIFY(told.text().contains("does not save to files"));
    QCOMPARE(runs.dir.read("a.mel") + runs.dir.read("b.mel"), QByteArray("oldold"));
    QVERIFY(runs.view()->isModified());
    QVERIFY(!runs.window->action(Action::SaveAs)->isEnabled());
}

void TestDemo::buffersAreSaved()
{
    Runs runs;
    runs.window->newBuffer(0);
    const QString path = runs.view()->fileInfo().absoluteFilePath();
    for (const char *text : {"one", "two", "three"}) {
        runs.view()->codeEdit()->setText(text);
        runs.view()->codeEdit()->document()->setModified(true);
        if (text[0] == 'o')
            runs.window->save();
        else if (text[1] == 'w')
            runs.window->saveAll();
        else
            QCOMPARE(runs.window->writeSettings(), QString());
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray(text));
    }
    runs.start();
    QCOMPARE(runs.view()->text(), QString("three"));
}

void TestDemo::executingSavesNothingAndRuns()
{
    Runs runs;
    QSignalSpy ran(runs.window.get(), SIGNAL(melExecuted(QString)));
    preferences().saveOnExecute = true;
    runs.openChanged("a.mel");
    runs.window->executeAll();
    QCOMPARE(ran.value(0).value(0).toString(), QString("new"));
    QCOMPARE(runs.dir.read("a.mel"), QByteArray("old"));
}

// Closing asks nothing, as there is no choice.
void TestDemo::closedChangesComeBack()
{
    Runs runs;
    runs.openChanged("a.mel");
    runs.window->closeTab();
    QCOMPARE(runs.tabCount(), 0);
    QVERIFY(runs.window->statusBar()->currentMessage().contains("a.mel come back"));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(runs.window->writeSettings(), QString());
    runs.start();
    QCOMPARE(runs.tabCount(), 1);
    QCOMPARE(runs.view()->text(), QString("new"));
    QVERIFY(runs.view()->isModified());
    QCOMPARE(runs.dir.read("a.mel"), QByteArray("old"));
}

// At the next start, too, there is one text for the file, and it is the last one.
void TestDemo::closedChangesComeBackWithTheFile()
{
    Runs runs;
    runs.openChanged("a.mel");
    runs.window->closeTab();
    runs.window->open(runs.dir.file("a.mel"));
    QCOMPARE(runs.view()->text(), QString("new"));
    runs.view()->codeEdit()->insertPlainText("er");
    runs.window->closeTab();
    runs.start();
    QCOMPARE(runs.tabCount(), 1);
    QCOMPARE(runs.view()->text(), QString("newer"));
    runs.view()->codeEdit()->undo();
    QCOMPARE(runs.view()->text(), QString("old"));
}

void TestDemo::closingAsksWhereNothingIsKept()
{
    Runs runs;
    runs.openChanged("a.mel");
    QString ignored;
    QVERIFY(compat::removeTree(runs.dir.file("corvaneEditorTemp/journal"), &ignored));
    runs.dir.write("corvaneEditorTemp/journal", "no folder");
    for (const char *slot : {"closeTab", "closeAllTabs"}) {
        ModalAnswer kept("No");
        QMetaObject::invokeMethod(runs.window.get(), slot);
        QVERIFY2(kept.text().contains("'a.mel' cannot be kept"), slot);
        QCOMPARE(runs.tabCount(), 1);
    }
    ModalAnswer lost("Yes");
    runs.window->closeTab();
    QVERIFY(lost.wasAsked());
    QCOMPARE(runs.tabCount(), 0);
    QVERIFY(!runs.window->statusBar()->currentMessage().contains("come back"));
}

// The file is gone, so its document goes with the text.
void TestDemo::discardedTextsStayAway()
{
    Runs runs;
    runs.openChanged("a.mel");
    runs.start();
    QCOMPARE(runs.view()->text(), QString("new"));
    QVERIFY(QFile::remove(runs.dir.file("a.mel")));
    for (QPushButton *button : runs.window->findChildren<QPushButton *>()) {
        if (button->text() == "Discard")
            button->click();
    }
    QCOMPARE(runs.tabCount(), 0);
    runs.start();
    QCOMPARE(runs.tabCount(), 0);
}

void TestDemo::onlySoManyDocumentsAreOpened()
{
    Runs runs;
    restoreLicense(QString::fromUtf8(m_issuer.license("Ada")));
    for (const char *name : {"a.mel", "b.mel", "c.mel", "d.mel", "e.mel"})
        runs.window->open(runs.dir.write(name, "text"));
    QCOMPARE(runs.window->writeSettings(), QString());
    runs.start();
    QCOMPARE(runs.tabCount(), 5); // what was open is never dropped
    for (const char *slot : {"newBuffer", "newMelBuffer", "newPythonBuffer"}) {
        ModalAnswer told("OK");
        QMetaObject::invokeMethod(runs.window.get(), slot);
        QVERIFY(told.text().contains("at most 4 documents"));
    }
    ModalAnswer told("OK");
    runs.window->open(runs.dir.write("f.mel", "text"));
    QVERIFY(told.wasAsked());
    runs.window->open(runs.dir.file("a.mel")); // is open
    QCOMPARE(runs.view()->fileInfo().fileName(), QString("a.mel"));
    QCOMPARE(runs.tabCount(), 5);
    runs.window->closeTab();
    runs.window->closeTab();
    for (const bool isRefused : {false, true}) {
        ModalAnswer another("OK");
        runs.window->newBuffer(0);
        QCOMPARE(another.wasAsked(), isRefused);
        QCOMPARE(runs.tabCount(), 4);
    }
}

void TestDemo::licenseLiftsEverythingAndSurvives()
{
    Runs runs;
    const QToolButton *notice = runs.window->findChild<QToolButton *>("demoNotice");
    QVERIFY(notice->isVisible());
    const QString license = QString::fromUtf8(m_issuer.license("Ada L\xc3\xb6velace, \"x\""));
    QCOMPARE(takeLicense(license), QString());
    runs.window->storeLicense(license);
    QVERIFY(!notice->isVisible());
    QVERIFY(runs.window->action(Action::SaveAs)->isEnabled());
    restoreLicense(QString());
    runs.start();
    QVERIFY(!isDemo());
    QVERIFY(!runs.window->findChild<QToolButton *>("demoNotice"));
    runs.openChanged("a.mel");
    runs.window->save();
    QCOMPARE(runs.dir.read("a.mel"), QByteArray("new"));
}

// A session that knows of no license leaves that of another alone.
void TestDemo::licensesExpireWhileTheEditorRuns()
{
    Runs runs;
    const QDate last(2030, 6, 14);
    setLicenseDay(last);
    const QString license = QString::fromUtf8(m_issuer.license("Ada", last));
    takeLicense(license);
    runs.window->storeLicense(license);
    setLicenseDay(last.addDays(1));
    runs.openChanged("a.mel");
    ModalAnswer told("OK");
    runs.window->save();
    QVERIFY(told.text().startsWith("The license expired on 2030-06-14. The demo does not save"));
    runs.window->updateDemoNotice(); // as the window does when it is active again
    QVERIFY(runs.window->findChild<QToolButton *>("demoNotice")->isVisible());
    runs.window->outputView()->flush();
    QVERIFY(runs.window->outputView()->toPlainText().contains("Warning: The license expired"));
    runs.window->storeLicense(QString());
    runs.start();
    QCOMPARE(licenseProblem(), QString("The license expired on 2030-06-14."));
    setLicenseDay(QDate());
}

CORVANE_TEST_MAIN(TestDemo)
#include "tst_demo.moc"
