// SPDX-License-Identifier: MIT
#include "standin/ui/mainwindow.h"
#include "tests/standin/ui/uisession.h"
#include "tests/support/testmain.h"

#include <QTabWidget>
#include <QTest>
#include <QToolButton>

namespace {

const char awkwardScript[] = "print \\\"a\\\\\\\\b \\\\\\\"q\\\\\\\"\\\\n\\\";\\nprint 2;";

QToolButton *lastButton(UiSession &session)
{
    const QStringList names = session.answer("lsUI -long -type shelfButton").split(' ');
    return session.object<QToolButton>(names.last().toUtf8().constData());
}

} // namespace

class TestShelves : public QObject
{
    Q_OBJECT

private slots:
    void aScriptOnTheShelfRuns();
    void buttonsSurviveARestart();
    void newTabsSurviveARestart();
    void shelvesAreSavedAtTheEnd();
    void deletedTabsDoNot();
    void theShelfInFrontGetsTheButton();
};

void TestShelves::aScriptOnTheShelfRuns()
{
    UiSession session;
    session.session().run("scriptToShelf(\"hello\", \"print 5;\", 1);");
    lastButton(session)->click();
    QCOMPARE(session.session().takeMessages(), QStringList() << "display: 5");
    QCOMPARE(lastButton(session)->toolTip(), QString("hello"));
}

void TestShelves::buttonsSurviveARestart()
{
    UiSession session;
    const QString call = QString("scriptToShelf(\"awkward\", \"%1\", 1);").arg(awkwardScript);
    QVERIFY(
        session.session().run("shelfTabLayout -e -selectTab Polygons $gShelfTopLevel; " + call));
    lastButton(session);
    const QString query = "string $b[] = `shelfLayout -q -ca Polygons`; "
                          "shelfButton -q -command $b[size($b) - 1];";
    const QString script = session.answer(query);
    QCOMPARE(script, QString("print \"a\\\\b \\\"q\\\"\\n\";\nprint 2;"));

    session.restart();
    QCOMPARE(session.answer(query), script);
    const QStringList names = session.answer("shelfLayout -q -ca Polygons").split(' ');
    session.object<QToolButton>(names.last().toUtf8().constData())->click();
    QCOMPARE(session.session().takeMessages(), QStringList() << "display: a\\b \"q\"\n"
                                                             << "display: 2");
    session.restart();
    QCOMPARE(session.answer(query), script);
    QCOMPARE(session.answer("shelfLayout -q -ca Polygons").split(' ').size(), names.size());
}

void TestShelves::newTabsSurviveARestart()
{
    UiSession session;
    session.session().run("addNewShelfTab Mine; saveAllShelves $gShelfTopLevel;");
    session.restart();
    QCOMPARE(session.answer("shelfTabLayout -q -childArray $gShelfTopLevel"),
             QString("Polygons Custom Mine"));
    QCOMPARE(session.session().takeMessages(), QStringList());
}

void TestShelves::shelvesAreSavedAtTheEnd()
{
    UiSession session;
    session.session().run("addNewShelfTab Mine;");
    session.session()->quit();
    session.restart();
    QCOMPARE(session.answer("shelfTabLayout -q -childArray $gShelfTopLevel"),
             QString("Polygons Custom Mine"));
}

void TestShelves::deletedTabsDoNot()
{
    UiSession session;
    session.session().run("addNewShelfTab Mine; saveAllShelves $gShelfTopLevel; "
                          "shelfTabLayout -e -selectTab Mine $gShelfTopLevel; deleteCurrentShelf;");
    session.restart();
    QCOMPARE(session.answer("shelfTabLayout -q -childArray $gShelfTopLevel"),
             QString("Polygons Custom"));
}

void TestShelves::theShelfInFrontGetsTheButton()
{
    UiSession session;
    session.ui().window().shelf()->setCurrentIndex(1);
    QVERIFY(session.session().run("scriptToShelf(\"p\", \"print(3)\", 0);"));
    QCOMPARE(session.answer("shelfTabLayout -q -selectTab ShelfLayout"), QString("Custom"));
    QCOMPARE(session.answer("string $b[] = `shelfLayout -q -ca Custom`; "
                            "shelfButton -q -sourceType $b[0];"),
             QString("python"));
}

CORVANE_TEST_MAIN(TestShelves)
#include "tst_shelves.moc"
