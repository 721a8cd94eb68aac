// SPDX-License-Identifier: MIT
#include "standin/ui/mainwindow.h"
#include "standin/ui/commandline.h"
#include "tests/standin/ui/uisession.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <maya/MTypes.h>

#include <QLineEdit>
#include <QMenuBar>
#include <QSignalSpy>
#include <QStatusBar>
class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void menusStandInTheUsualOrder();
    void theTitleTellsTheRelease();
    void theCommandLineRunsWhatIsEntered();
    void theCommandLineRemembers();
    void theCommandLineSwitchesItsLanguage();
    void messagesAreShownInTheirColours_data();
    void messagesAreShownInTheirColours();
    void helpIsNamedAndNotOpened();
    void closingAsksTheSession();
};

void TestMainWindow::menusStandInTheUsualOrder()
{
    UiSession session;
    QStringList titles;
    for (const QAction *action : session.ui().window().menuBar()->actions())
        titles << action->text();
    QCOMPARE(titles.join(" "), QString("File Edit Create Select Modify Display Windows Help"));
}

void TestMainWindow::theTitleTellsTheRelease()
{
    UiSession session;
    const QString release = QString::number(MAYA_API_VERSION).left(4);
    QCOMPARE(session.ui().window().windowTitle(), "Maya Stand-in " + release);
    session.session().run("showHelp");
    QVERIFY(session.ui().lastDocumentation().contains("/" + release + "/"));
}

void TestMainWindow::theCommandLineRunsWhatIsEntered()
{
    UiSession session;
    QLineEdit *input = session.ui().window().commandLine()->input();
    QTest::keyClicks(input, "2*3");
    QTest::keyClick(input, Qt::Key_Return);
    QCOMPARE(session.session().takeMessages(), QStringList() << "history: 2*3\n"
                                                             << "result: 6");
    QVERIFY(input->text().isEmpty());
}

void TestMainWindow::theCommandLineRemembers()
{
    UiSession session;
    QLineEdit *input = session.ui().window().commandLine()->input();
    for (const char *text : {"print 1", "print 2", "print 2"}) {
        QTest::keyClicks(input, text);
        QTest::keyClick(input, Qt::Key_Return);
    }
    QStringList shown;
    for (Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_Down}) {
        QTest::keyClick(input, key);
        shown << input->text();
    }
    QCOMPARE(shown.join(","), QString("print 2,print 1,print 1,print 2,"));
}

void TestMainWindow::theCommandLineSwitchesItsLanguage()
{
    UiSession session;
    standin::CommandLine *line = session.ui().window().commandLine();
    line->switchLanguage();
    QTest::keyClicks(line->input(), "x = 1");
    QTest::keyClick(line->input(), Qt::Key_Return);
    // There is no Python in this session, which shows where the text went.
    QCOMPARE(session.session().takeMessages(),
             QStringList() << "error: Python is not available in this session.");
}

void TestMainWindow::messagesAreShownInTheirColours_data()
{
    columns<QString, QString, bool>("script", "shown", "coloured");
    row("error", "error \"bad\"", "// Error: line 1: bad", true);
    row("warning", "warning \"odd\"", "// Warning: line 1: odd", true);
    row("print", "print \"one\\ntwo\\n\"", "two", false);
}

void TestMainWindow::messagesAreShownInTheirColours()
{
    QFETCH(QString, script);
    QFETCH(QString, shown);
    QFETCH(bool, coloured);
    UiSession session;
    const QLineEdit *result = nullptr;
    for (const QLineEdit *field :
         session.ui().window().commandLine()->findChildren<QLineEdit *>()) {
        if (field->isReadOnly())
            result = field;
    }
    QVERIFY(result);
    const QColor plain = result->palette().color(QPalette::Base);
    session.session().run(script);
    QCOMPARE(result->text(), shown);
    QCOMPARE(result->palette().color(QPalette::Base) != plain, coloured);
    // The next ordinary message takes the colour away.
    session.session().run("print \"fine\"");
    QCOMPARE(result->palette().color(QPalette::Base), plain);
}

void TestMainWindow::helpIsNamedAndNotOpened()
{
    UiSession session;
    QVERIFY(session.session().run("showHelp -docs \"Commands/polySphere.html\""));
    const QString page = session.ui().lastDocumentation();
    QVERIFY2(page.endsWith("/Commands/polySphere.html"), qPrintable(page));
    QVERIFY(session.ui().window().statusBar()->currentMessage().endsWith(page));
    session.session().run("showHelp -absolute \"http://localhost/x\"");
    QCOMPARE(session.ui().lastDocumentation(), QString("http://localhost/x"));
}

void TestMainWindow::closingAsksTheSession()
{
    UiSession session;
    standin::MainWindow &window = session.ui().window();
    window.show();
    QSignalSpy closing(&window, SIGNAL(closeRequested()));
    window.close();
    QCOMPARE(int(closing.count()), 1);
    QVERIFY(window.isVisible());
}

CORVANE_TEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
