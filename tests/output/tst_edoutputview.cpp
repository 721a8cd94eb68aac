// SPDX-License-Identifier: MIT
#include "output/edoutputview.h"
#include "preferences/preferences.h"
#include "tests/support/testmain.h"

#include <QApplication>
#include <QScrollBar>

#include <cstdlib>

namespace {

// What a user sees of a view, comparable.
struct Look
{
    QString text;
    QStringList marks;
    int vertical;
    int horizontal;
};

QStringList marksOf(const EdOutputView &view)
{
    QStringList marks;
    for (const QTextEdit::ExtraSelection &selection : view.extraSelections())
        marks << QString::fromLatin1("%1-%2 %3")
                     .arg(selection.cursor.anchor())
                     .arg(selection.cursor.position())
                     .arg(selection.format.foreground().color().name());
    return marks;
}

Look lookOf(const EdOutputView &view)
{
    return {view.toPlainText(), marksOf(view), view.verticalScrollBar()->value(),
            view.horizontalScrollBar()->value()};
}

void settle(const EdOutputView &view)
{
    while (view.isGathering())
        QTest::qWait(1);
}

QString randomMessage()
{
    static const char *const forms[] = {"%1\n",
                                        "%1",
                                        "// Error: %1 //\n",
                                        "// Result: %1 //\n",
                                        "x // Error: %1\n",
                                        "a\nb\n%1\n\n",
                                        "%1\r",
                                        "\n%1"};
    const QString form = QLatin1String(forms[std::rand() % 8]);
    return form.arg(QString(std::rand() % 200, QLatin1Char('x')));
}

} // namespace

class OutputViewTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { preferences() = Preferences(); }
    void aLoneMessageIsShownAtOnce();
    void burstsLookLikeMessageByMessage();
    void hiddenOutputIsShownInOrder();
    void clearingDropsGatheredText();
    void oldLinesAreDropped();
    void aBurstWithoutEventLoopIsSeen();
    void inputActsOnAllThatHasArrived();
    void theNewestLineStaysInView();
    void selectedWordsAreMarked();
    void coloursAndFontFollowThePreferences();
};

void OutputViewTest::aLoneMessageIsShownAtOnce()
{
    EdOutputView view;
    view.resize(300, 100);
    view.show();
    view.appendText(QLatin1String("// Error: a //\n"));
    QCOMPARE(view.toPlainText(), QString::fromLatin1("// Error: a //\n"));
    QCOMPARE(view.extraSelections().size(), 1);
    QVERIFY(view.isReadOnly());
}

void OutputViewTest::burstsLookLikeMessageByMessage()
{
    for (unsigned seed = 1; seed <= 12; ++seed) {
        std::srand(seed);
        const int limit = seed % 3 == 0 ? 0 : 1 + std::rand() % 60;
        EdOutputView burst;
        EdOutputView single;
        for (EdOutputView *view : {&burst, &single}) {
            view->resize(400, 200);
            view->setLineLimit(limit);
            view->show();
        }
        for (int i = 0; i < 150; ++i) {
            const QString message = randomMessage();
            burst.appendText(message);
            single.appendText(message);
            single.flush();
            if (std::rand() % 20 == 0)
                QApplication::processEvents();
            if (std::rand() % 30 == 0)
                burst.setVisible(!burst.isVisible());
        }
        burst.show();
        settle(burst);
        settle(single);
        const Look expected = lookOf(single);
        const Look got = lookOf(burst);
        QCOMPARE(got.text, expected.text);
        QCOMPARE(got.marks, expected.marks);
        QCOMPARE(got.vertical, expected.vertical);
        QCOMPARE(got.horizontal, expected.horizontal);
    }
}

void OutputViewTest::hiddenOutputIsShownInOrder()
{
    EdOutputView view;
    view.appendText(QLatin1String("1\n"));
    view.appendText(QLatin1String("2\n"));
    QCOMPARE(view.toPlainText(), QString());
    view.show();
    QCOMPARE(view.toPlainText(), QString::fromLatin1("1\n2\n"));
    view.hide();
    view.appendText(QLatin1String("3"));
    view.show();
    QCOMPARE(view.toPlainText(), QString::fromLatin1("1\n2\n3"));
}

void OutputViewTest::clearingDropsGatheredText()
{
    EdOutputView view;
    view.show();
    view.appendText(QLatin1String("// Error: 1 //\n"));
    view.appendText(QLatin1String("2\n"));
    view.clearText();
    QTest::qWait(1);
    QCOMPARE(view.isGathering(), false);
    QCOMPARE(view.toPlainText(), QString());
    QCOMPARE(view.extraSelections().size(), 0);
}

void OutputViewTest::oldLinesAreDropped()
{
    EdOutputView view;
    view.setLineLimit(5000);
    view.show();
    for (int i = 0; i < 5000; ++i)
        view.appendText(QString::fromLatin1("line %1\n").arg(i));
    settle(view);
    QCOMPARE(view.blockCount(), 5000);
    QCOMPARE(view.document()->begin().text(), QString::fromLatin1("line 1"));
    view.setLineLimit(10);
    QCOMPARE(view.document()->begin().text(), QString::fromLatin1("line 4991"));
}

void OutputViewTest::aBurstWithoutEventLoopIsSeen()
{
    EdOutputView view;
    view.show();
    view.appendText(QLatin1String("first\n"));
    QElapsedTimer clock;
    for (clock.start(); clock.elapsed() < 600;)
        view.appendText(QLatin1String("more\n"));
    QVERIFY(view.toPlainText().contains(QLatin1String("more")));
}

void OutputViewTest::inputActsOnAllThatHasArrived()
{
    EdOutputView view;
    view.show();
    while (!view.isGathering())
        view.appendText(QLatin1String("more\n"));
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    QTest::qWait(40); // frames, in which nothing may happen to the selection
    QCOMPARE(view.isGathering(), false);
    QCOMPARE(int(view.textCursor().selectedText().size()), int(view.toPlainText().size()));
}

void OutputViewTest::theNewestLineStaysInView()
{
    EdOutputView view;
    view.resize(300, 100);
    view.show();
    view.appendText(QString::fromLatin1("line\n").repeated(20));
    for (int height : {1000, 100}) { // in which all lines fit, and in which few do
        view.resize(300, height);
        QCOMPARE(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
    }
    view.verticalScrollBar()->setValue(3);
    view.resize(300, 120);
    QCOMPARE(view.verticalScrollBar()->value(), 3);
}

void OutputViewTest::selectedWordsAreMarked()
{
    EdOutputView view;
    view.resize(300, 200);
    view.show();
    view.appendText(QLatin1String("ball cube\nball\nballs\n"));
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(0);
    cursor.setPosition(4, QTextCursor::KeepAnchor);
    view.setTextCursor(cursor);
    QCOMPARE(view.extraSelections().size(), 2);
    cursor.setPosition(9, QTextCursor::KeepAnchor);
    view.setTextCursor(cursor);
    QCOMPARE(view.extraSelections().size(), 0);
}

void OutputViewTest::coloursAndFontFollowThePreferences()
{
    const TextFormat kept = textFormat(OutputText::Plain);
    EdOutputView view;
    textFormat(OutputText::Plain) = {QColor(Qt::green), QColor(Qt::black), false, false};
    preferences().outputFontSize = 17;
    view.applyColors();
    QCOMPARE(view.palette().color(QPalette::Text), QColor(Qt::green));
    QCOMPARE(view.palette().color(QPalette::Base), QColor(Qt::black));
    QCOMPARE(view.font().pointSize(), 17);
    textFormat(OutputText::Plain) = kept;
}

CORVANE_TEST_MAIN(OutputViewTest)
#include "tst_edoutputview.moc"
