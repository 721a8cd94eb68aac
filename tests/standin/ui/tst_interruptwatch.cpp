// SPDX-License-Identifier: MIT
#include "standin/ui/commandline.h"
#include "standin/ui/mainwindow.h"
#include "tests/standin/ui/uisession.h"
#include "tests/support/testmain.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>

namespace {

void postKey(QWidget *widget, int key, const QString &text = QString())
{
    QApplication::postEvent(widget, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text));
}

} // namespace

// What the user does while a script keeps the program busy.
class TestInterruptWatch : public QObject
{
    Q_OBJECT

private slots:
    void escapeStopsAnEndlessScript();
    void otherKeysWaitForTheEnd();
    void idleWorkWaitsForTheEnd();
};

void TestInterruptWatch::escapeStopsAnEndlessScript()
{
    UiSession session;
    postKey(session.ui().window().commandLine()->input(), Qt::Key_Escape);
    QVERIFY(!session.session().run("while (1) ;"));
    QCOMPARE(int(session.session().takeMessages().size()), 1);
    QVERIFY(session.session().run("print \"alive\""));
}

void TestInterruptWatch::otherKeysWaitForTheEnd()
{
    UiSession session;
    QLineEdit *input = session.ui().window().commandLine()->input();
    postKey(input, Qt::Key_A, "a");
    postKey(input, Qt::Key_B, "b");
    postKey(input, Qt::Key_Escape);
    QVERIFY(!session.session().run("while (1) ;"));
    QVERIFY(input->text().isEmpty());
    QTest::qWait(20);
    QCOMPARE(input->text(), QString("ab"));
}

void TestInterruptWatch::idleWorkWaitsForTheEnd()
{
    UiSession session;
    postKey(session.ui().mainWindow(), Qt::Key_Escape);
    QVERIFY(!session.session().run("evalDeferred \"print idle\"; while (1) ;"));
    QVERIFY(!session.session().takeMessages().contains("display: idle"));
    QTest::qWait(20);
    QCOMPARE(session.session().takeMessages(), QStringList() << "display: idle");
}

CORVANE_TEST_MAIN(TestInterruptWatch)
#include "tst_interruptwatch.moc"
