// SPDX-License-Identifier: MIT
#include "editor/findreplacedialog.h"
#include "preferences/textformats.h"
#include "tests/mainwindow/windowfixture.h"
#include "tests/support/testmain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>

#include <functional>

namespace {

// A window with a document, whose Find/Replace dialog was asked for.
struct FindFixture : WindowFixture
{
    explicit FindFixture(const char *text)
    {
        newBuffer(0, text);
        showActive();
    }

    FindReplaceDialog *dialog() const { return window.findChild<FindReplaceDialog *>(); }
    void open() { action(Action::FindReplace)->trigger(); }
    void enter(const char *text) { dialog()->findChild<QComboBox *>("findCmb")->setEditText(text); }
    QString label(const char *name) const { return dialog()->findChild<QLabel *>(name)->text(); }

    // Where the matches are marked: "0 4".
    QString marks() const
    {
        QStringList places;
        const QColor color = textFormat(EditorText::MatchingSelection).background;
        for (const QTextEdit::ExtraSelection &each : edit()->extraSelections()) {
            if (each.format.background().color() == color)
                places << QString::number(each.cursor.selectionStart());
        }
        return places.join(" ");
    }

    bool showsCount(const char *text) const
    {
        QElapsedTimer clock;
        clock.start();
        while (label("countLabel") != text && clock.elapsed() < 5000)
            QTest::qWait(5);
        return label("countLabel") == text;
    }
};

} // namespace

class TestWindowFind : public QObject
{
    Q_OBJECT

private slots:
    void openingTakesASelectionOfOneLine();
    void requestsReachTheEditorAndTheirMessagesComeBack();
    void messagesGoWithWhatTheyAreAbout();
    void searchKeysRepeatTheLastSearch();
    void typingStaysAtAPlaceThatFits();
    void matchesAreMarkedWhileTheDialogIsSeen();
    void marksFollowTextAndDocument();
    void matchesAreCounted();
};

void TestWindowFind::openingTakesASelectionOfOneLine()
{
    FindFixture fixture("ab\ncd");
    fixture.edit()->setCursorSelection(0, 2);
    fixture.open();
    QVERIFY(fixture.dialog()->isVisible());
    QCOMPARE(fixture.dialog()->search().findText, QString("ab"));
    fixture.edit()->selectAll();
    fixture.open();
    QCOMPARE(fixture.dialog()->search().findText, QString("ab"));
    QCOMPARE(int(fixture.window.findChildren<FindReplaceDialog *>().size()), 1);
    fixture.window.hide();
    QVERIFY(!fixture.dialog()->isVisible());
}

void TestWindowFind::requestsReachTheEditorAndTheirMessagesComeBack()
{
    FindFixture fixture("ab ab");
    fixture.open();
    fixture.enter("ab");
    fixture.dialog()->findChild<QCheckBox *>("wrapSearchChk")->setChecked(true);
    for (const char *message : {"", "", "Wrapped search"}) {
        fixture.dialog()->find();
        QCOMPARE(fixture.edit()->textCursor().selectedText(), QString("ab"));
        QCOMPARE(fixture.label("statusLabel"), QString(message));
        QCOMPARE(fixture.window.statusBar()->currentMessage(), QString(message));
    }
    fixture.dialog()->replaceAll();
    QCOMPARE(fixture.edit()->text(), QString(" "));
    QCOMPARE(fixture.label("statusLabel"), QString("2 matches replaced"));
}

void TestWindowFind::messagesGoWithWhatTheyAreAbout()
{
    FindFixture fixture("");
    fixture.open();
    fixture.enter("ab");
    const auto type = [&fixture] { QTest::keyClick(fixture.edit(), Qt::Key_X); };
    const auto undo = [&fixture] { fixture.edit()->undo(); };
    const auto closeTab = [&fixture] { fixture.window.central()->closeActive(); };
    const auto openTab = [&fixture] { fixture.window.newBuffer(1); };
    const std::function<void()> steps[] = {type, undo, openTab, closeTab, closeTab};
    for (const auto &step : steps) {
        fixture.dialog()->find();
        QApplication::processEvents(); // colours follow
        for (const char *message : {"String Not Found", ""}) {
            QCOMPARE(fixture.label("statusLabel"), QString(message));
            QCOMPARE(fixture.window.statusBar()->currentMessage(), QString(message));
            if (*message)
                step();
        }
    }
}

void TestWindowFind::searchKeysRepeatTheLastSearch()
{
    FindFixture fixture("ab AB ab");
    const auto startAfter = [&fixture](Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(fixture.edit(), Qt::Key_F3, modifiers);
        return fixture.edit()->textCursor().selectionStart();
    };
    QCOMPARE(startAfter(Qt::NoModifier), 0);
    QVERIFY(fixture.dialog() && fixture.dialog()->isVisible()); // there was nothing to repeat
    fixture.enter("ab");
    fixture.dialog()->findChild<QCheckBox *>("caseSensitiveChk")->setChecked(true);
    fixture.dialog()->findChild<QAbstractButton *>("backwardRdo")->setChecked(true);
    fixture.dialog()->close();
    fixture.edit()->setFocus();
    QCOMPARE(startAfter(Qt::NoModifier), 0);
    QCOMPARE(startAfter(Qt::NoModifier), 6);
    QCOMPARE(startAfter(Qt::ShiftModifier), 0);
    QVERIFY(!fixture.dialog()->isVisible());
}

void TestWindowFind::typingStaysAtAPlaceThatFits()
{
    FindFixture fixture("xa ab abc abc");
    fixture.open();
    fixture.dialog()->findChild<QCheckBox *>("incrementalChk")->setChecked(true);
    QLineEdit *field = fixture.dialog()->findChild<QComboBox *>("findCmb")->lineEdit();
    const auto startAfter = [&](int key) {
        QTest::keyClick(field, Qt::Key(key));
        return fixture.edit()->textCursor().selectionStart();
    };
    QCOMPARE(startAfter(Qt::Key_A), 1);
    QCOMPARE(startAfter(Qt::Key_B), 3);
    QCOMPARE(startAfter(Qt::Key_C), 6);
    fixture.dialog()->findChild<QAbstractButton *>("backwardRdo")->setChecked(true);
    QCOMPARE(startAfter(Qt::Key_Backspace), 6);
}

void TestWindowFind::matchesAreMarkedWhileTheDialogIsSeen()
{
    FindFixture fixture("ab Abc");
    fixture.open();
    QCOMPARE(fixture.marks(), QString());
    fixture.enter("ab");
    QCOMPARE(fixture.marks(), QString("0 3"));
    fixture.dialog()->findChild<QCheckBox *>("wholeWordChk")->setChecked(true);
    QCOMPARE(fixture.marks(), QString("0"));
    fixture.dialog()->close();
    QCOMPARE(fixture.marks(), QString());
    fixture.open();
    QCOMPARE(fixture.marks(), QString("0"));
}

void TestWindowFind::marksFollowTextAndDocument()
{
    FindFixture fixture("ab xab");
    fixture.open();
    fixture.enter("ab");
    QTextCursor elsewhere(fixture.edit()->document());
    elsewhere.movePosition(QTextCursor::End);
    elsewhere.insertText(" ab"); // the caret stays
    QApplication::processEvents();
    QCOMPARE(fixture.marks(), QString("0 4 7"));

    const QPointer<EdCodeEdit> former = fixture.edit();
    fixture.window.newBuffer(1);
    QVERIFY(former && former != fixture.edit());
    fixture.edit()->setText("cab");
    QCOMPARE(fixture.marks(), QString("1"));
    for (const QTextEdit::ExtraSelection &each : former->extraSelections())
        QVERIFY(!each.cursor.hasSelection());
}

void TestWindowFind::matchesAreCounted()
{
    FindFixture fixture("ab ab");
    fixture.open();
    fixture.enter("ab");
    QVERIFY(fixture.showsCount("2 matches"));
    QTest::keyClick(fixture.edit(), Qt::Key_A);
    QVERIFY(fixture.showsCount("2 matches"));
    fixture.edit()->selectAll();
    fixture.edit()->insertPlainText("x ab");
    QVERIFY(fixture.showsCount("1 match"));
    fixture.enter("");
    QVERIFY(fixture.showsCount(""));
}

CORVANE_TEST_MAIN(TestWindowFind)
#include "tst_windowfind.moc"
