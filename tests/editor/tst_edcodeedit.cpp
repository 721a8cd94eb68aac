// SPDX-License-Identifier: MIT
#include "editor/edcodeedit.h"
#include "editor/edcompleter.h"
#include "editor/editorlanguage.h"
#include "preferences/preferences.h"
#include "tests/editor/listsource.h"
#include "tests/support/datatable.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"

#include <QClipboard>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QUrl>
#include <QVBoxLayout>

namespace {

// A window that keeps the keys which its editor leaves to it.
class KeyWindow : public QWidget
{
    Q_OBJECT

public:
    KeyWindow() : edit(new EdCodeEdit)
    {
        QVBoxLayout *layout = new QVBoxLayout(this);
        layout->addWidget(edit);
        resize(600, 400);
    }

    EdCodeEdit *edit;
    QList<int> keys;
    QList<Qt::KeyboardModifiers> modifiers;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Control || event->key() == Qt::Key_Shift ||
            event->key() == Qt::Key_Alt || event->key() == Qt::Key_Meta)
            return;
        keys << event->key();
        modifiers << event->modifiers();
    }
};

void put(EdCodeEdit &edit, const QString &text, int position, int anchor = -1)
{
    edit.setText(text);
    edit.setCursorSelection(position, anchor < 0 ? position : anchor);
}

bool isAccepted(QEvent &event, QWidget *receiver)
{
    event.ignore();
    QCoreApplication::sendEvent(receiver, &event);
    return event.isAccepted();
}

} // namespace

class TestEdCodeEdit : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void keysThatAreLeftToTheWindow_data();
    void keysThatAreLeftToTheWindow();
    void keypadEnterExecutesUnlessSwitchedOff();
    void shiftReturnNeverInsertsALineSeparator();
    void keysThatAskForSomething();
    void insertSwitchesAllEditors();
    void readOnlyTextStaysAsItIs();
    void keysWhilePopupIsVisible_data();
    void keysWhilePopupIsVisible();
    void completionIsAskedFor_data();
    void completionIsAskedFor();
    void completionReplacesThePrefix();

    void indentationSettingsFollowTheLanguage();
    void textIsTakenAsItStands();
    void scrolledTextIsReplaced();
    void placesOutsideBecomeTheNearest();

    void doubleClickTakesVariables_data();
    void doubleClickTakesVariables();
    void homeGoesByRowsOfAWrappedLine();
    void droppedFilesAreReportedOnce();
    void clipboardHasLineFeeds();
};

void TestEdCodeEdit::init()
{
    preferences() = Preferences();
}

void TestEdCodeEdit::keysThatAreLeftToTheWindow_data()
{
    columns<int, int>("key", "modifiers");

    row("ctrl-return", int(Qt::Key_Return), int(Qt::ControlModifier));
    row("ctrl-enter", int(Qt::Key_Enter), int(Qt::ControlModifier));
    row("ctrl-shift-return", int(Qt::Key_Return), int(Qt::ControlModifier | Qt::ShiftModifier));
    row("alt-return", int(Qt::Key_Return), int(Qt::AltModifier));
    row("meta-enter", int(Qt::Key_Enter), int(Qt::MetaModifier));
    row("f2", int(Qt::Key_F2), int(Qt::NoModifier));
    row("shift-f3", int(Qt::Key_F3), int(Qt::ShiftModifier));
}

void TestEdCodeEdit::keysThatAreLeftToTheWindow()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    KeyWindow window;
    put(*window.edit, "abc", 1);
    QTest::keyClick(window.edit, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(window.keys, QList<int>() << key);
    QCOMPARE(window.edit->text(), QString("abc"));
}

void TestEdCodeEdit::keypadEnterExecutesUnlessSwitchedOff()
{
    KeyWindow window;
    QTest::keyClick(window.edit, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(window.keys, QList<int>() << Qt::Key_Enter);
    QCOMPARE(window.modifiers.first(), Qt::KeyboardModifiers(Qt::ControlModifier));
    QCOMPARE(window.edit->text(), QString());

    // With Shift it is a line break like any other.
    QTest::keyClick(window.edit, Qt::Key_Enter, Qt::KeypadModifier | Qt::ShiftModifier);
    QCOMPARE(window.edit->text(), QString("\n"));
    preferences().numpadEnterExecutes = false;
    QTest::keyClick(window.edit, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(window.edit->text(), QString("\n\n"));
    QCOMPARE(int(window.keys.size()), 1);
}

void TestEdCodeEdit::shiftReturnNeverInsertsALineSeparator()
{
    for (int language : {int(TextLanguage), int(PythonLanguage), int(MelLanguage)}) {
        EdCodeEdit edit;
        edit.setLanguage(language);
        put(edit, "    a", 5);
        QTest::keyClick(&edit, Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(edit.blockCount(), 2);
        QVERIFY(!edit.text().contains(QChar(QChar::LineSeparator)));
        QVERIFY(edit.text().startsWith("    a\n    "));
    }
}

void TestEdCodeEdit::keysThatAskForSomething()
{
    KeyWindow window;
    EdCodeEdit &edit = *window.edit;
    edit.setLanguage(PythonLanguage);
    put(edit, "sphere\ncube", 2, 9);
    QSignalSpy help(&edit, SIGNAL(quickHelpSelected(QString, bool)));
    QSignalSpy documentation(&edit, SIGNAL(commandDocumentationSelected(QString, bool)));
    QSignalSpy next(&edit, SIGNAL(nextTabSelected()));
    QSignalSpy previous(&edit, SIGNAL(previousTabSelected()));
    QTest::keyClick(&edit, Qt::Key_F4);
    QCOMPARE(help.value(0), QList<QVariant>() << "here\ncu" << false);
    put(edit, "sphere", 0, 6);
    QTest::keyClick(&edit, Qt::Key_F5);
    QCOMPARE(documentation.value(0), QList<QVariant>() << "sphere" << true);
    QTest::keyClick(&edit, Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(int(next.size()), 1);
    QCOMPARE(int(previous.size()), 1);
    QCOMPARE(edit.text(), QString("sphere"));
    QCOMPARE(window.keys, QList<int>());
}

void TestEdCodeEdit::insertSwitchesAllEditors()
{
    EdCodeEdit first;
    EdCodeEdit second;
    put(first, "abc", 0);
    QSignalSpy changed(&first, SIGNAL(overwriteModeChanged()));
    QTest::keyClick(&first, Qt::Key_Insert);
    QCOMPARE(int(changed.size()), 1);
    QVERIFY(EdCodeEdit::isOverwriting() && first.overwriteMode());
    QVERIFY(EdCodeEdit().overwriteMode());
    QVERIFY(!second.overwriteMode()); // until it is told
    QTest::keyClicks(&first, "x");
    QCOMPARE(first.text(), QString("xbc"));
    QTest::keyClick(&second, Qt::Key_Insert);
    QVERIFY(!EdCodeEdit::isOverwriting());
    // Not those of the clipboard.
    QTest::keyClick(&second, Qt::Key_Insert, Qt::ControlModifier);
    QVERIFY(!EdCodeEdit::isOverwriting());
}

void TestEdCodeEdit::readOnlyTextStaysAsItIs()
{
    EdCodeEdit edit;
    edit.setLanguage(MelLanguage);
    put(edit, "    a\n\tb", 0, 7);
    edit.setReadOnly(true);
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_BraceRight})
        QTest::keyClick(&edit, key);
    QTest::keyClick(&edit, Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_L, Qt::ControlModifier);
    edit.convertTabsToSpaces();
    edit.selectAll();
    edit.copy();
    edit.paste();
    QCOMPARE(edit.text(), QString("    a\n\tb"));
    // What edits nothing works.
    edit.setCursorPosition(5);
    QTest::keyClick(&edit, Qt::Key_Home);
    QCOMPARE(edit.textCursor().position(), 4);
    QSignalSpy help(&edit, SIGNAL(quickHelpSelected(QString, bool)));
    QTest::keyClick(&edit, Qt::Key_F4);
    QCOMPARE(int(help.size()), 1);
}

void TestEdCodeEdit::keysWhilePopupIsVisible_data()
{
    columns<QString, int, QString>("text", "key", "after");
    QTest::addColumn<QString>("shown"); // the current row; empty when the popup is hidden

    row("tab", "ab", int(Qt::Key_Tab), "abc1", "");
    row("return", "ab", int(Qt::Key_Return), "abc1", "");
    row("down", "ab", int(Qt::Key_Down), "ab", "abc2");
    row("shift-tab", "ab", int(Qt::Key_Backtab), "ab", "abc2");
    row("escape", "ab", int(Qt::Key_Escape), "ab", "");
    row("letter", "ab", int(Qt::Key_C), "abc", "abc1");
    row("other-letter", "ab", int(Qt::Key_X), "abx", "");
    row("backspace-in-word", "ab", int(Qt::Key_Backspace), "a", "abc1");
    row("backspace-on-dot", "a.", int(Qt::Key_Backspace), "a", "");
    row("backspace-on-line", "a\n", int(Qt::Key_Backspace), "a", "");
    row("left", "ab", int(Qt::Key_Left), "ab", "");
    row("home", "ab", int(Qt::Key_Home), "ab", "");
    row("end", "ab", int(Qt::Key_End), "ab", "abc1");
}

void TestEdCodeEdit::keysWhilePopupIsVisible()
{
    QFETCH(QString, text);
    QFETCH(int, key);
    QFETCH(QString, after);
    QFETCH(QString, shown);
    KeyWindow window;
    window.edit->setLanguage(MelLanguage);
    put(*window.edit, text, int(text.size()));
    window.show();
    EdCompleter *popup = window.edit->completer();
    popup->setSource(listSource("abc1 abc2"));
    popup->begin(EdCompleter::OnDemand, MelLanguage);
    QVERIFY(popup->isVisible());
    const Qt::KeyboardModifiers shift = key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier;
    QKeyEvent claim(QEvent::ShortcutOverride, key, shift);
    QVERIFY(!EdCompleter::isKey(key) || isAccepted(claim, window.edit));
    QTest::keyClick(window.edit, Qt::Key(key), shift);
    QCOMPARE(window.edit->text(), after);
    QCOMPARE(popup->isVisible() ? popup->currentIndex().data().toString() : QString(), shown);
    QCOMPARE(window.keys, QList<int>());
}

void TestEdCodeEdit::completionIsAskedFor_data()
{
    columns<int, QString>("language", "text");
    QTest::addColumn<QString>("typed"); // a blank: Ctrl+Space
    QTest::addColumn<bool>("isAsked");

    const int mel = MelLanguage;
    const int python = PythonLanguage;
    row("on-demand", mel, "a", " ", true);
    row("not-in-plain-text", int(TextLanguage), "a", " ", false);
    row("dot", python, "a", ".", true);
    row("dot-in-mel", mel, "a", ".", false);
    row("letter", python, "a ", "b", true);
    row("first-letter", mel, "", "b", true);
    row("underscore", mel, "(", "_", true);
    row("inside-a-word", mel, "a", "b", false);
    row("digit", mel, "", "1", false);
}

void TestEdCodeEdit::completionIsAskedFor()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    QFETCH(QString, typed);
    QFETCH(bool, isAsked);
    preferences().melCompleteOnLetters = preferences().pythonCompleteOnLetters = true;
    EdCodeEdit edit;
    edit.setLanguage(language);
    const auto type = [&edit, text, typed] {
        put(edit, text, int(text.size()));
        if (typed == " ")
            QTest::keyClick(&edit, Qt::Key_Space, Qt::ControlModifier);
        else
            QTest::keyClicks(&edit, typed);
    };
    int asked = 0;
    edit.completer()->setSource(listSource(QString(), &asked));
    type();
    QCOMPARE(asked, isAsked ? 1 : 0);

    put(edit, text, int(text.size()));
    QInputMethodEvent commit;
    commit.setCommitString(typed);
    QApplication::sendEvent(&edit, &commit);
    QCOMPARE(asked, !isAsked ? 0 : typed == " " ? 1 : 2);

    asked = 0;
    preferences().melCompleteOnLetters = preferences().pythonCompleteOnLetters = false;
    preferences().melCompleteOnUser = preferences().pythonCompleteOnPeriod = false;
    type();
    QCOMPARE(asked, 0);
}

void TestEdCodeEdit::completionReplacesThePrefix()
{
    EdCodeEdit edit;
    put(edit, "x pol y", 5);
    edit.completeCode("polySphere", 3);
    QCOMPARE(edit.text(), QString("x polySphere y"));
    QCOMPARE(edit.textCursor().position(), 12);
    edit.undo();
    QCOMPARE(edit.text(), QString("x pol y"));
}

void TestEdCodeEdit::indentationSettingsFollowTheLanguage()
{
    preferences().melUseDefaults = false;
    preferences().melTabSize = 2;
    preferences().melInsertSpaces = false;
    preferences().pyTabSize = 8; // not used: Python follows the defaults
    preferences().tabSize = 3;
    EdCodeEdit edit;
    edit.setLanguage(MelLanguage);
    edit.updateTabsAndSpaces();
    QCOMPARE(edit.tabSize(), 2);
    QVERIFY(!edit.replacesTabsWithSpaces() && edit.isAutoIndenting());
    edit.setLanguage(PythonLanguage);
    edit.updateTabsAndSpaces();
    QCOMPARE(edit.tabSize(), 3);
    QVERIFY(edit.replacesTabsWithSpaces());
    preferences().pyUseDefaults = false;
    preferences().pyAutoIndent = false;
    edit.updateTabsAndSpaces();
    QCOMPARE(edit.tabSize(), 8);
    QVERIFY(!edit.isAutoIndenting());
}

void TestEdCodeEdit::textIsTakenAsItStands()
{
    const QString text = QString("a%1b%2c\n\n\td ").arg(QChar(0xa0)).arg(QChar(0x2028));
    EdCodeEdit edit;
    edit.setText(text);
    QCOMPARE(edit.text(), text);
    edit.clearText();
    QCOMPARE(edit.text(), QString());
    edit.undo();
    QCOMPARE(edit.text(), text);
}

// Qt's own way of doing it as well. What used to go wrong showed at the next edit.
void TestEdCodeEdit::scrolledTextIsReplaced()
{
    EdCodeEdit edit;
    edit.setLanguage(MelLanguage);
    edit.show();
    for (int round = 0; round < 3; ++round) {
        put(edit, QString("proc f(){}\n").repeated(1500), 9);
        edit.moveCursor(QTextCursor::End);
        edit.moveCursor(QTextCursor::PreviousWord, QTextCursor::KeepAnchor);
        edit.setPlainText("short");
        QTest::keyClicks(&edit, "a");
        QCOMPARE(edit.text(), QString("ashort"));
        put(edit, QString("f(1);\n").repeated(1500), 9000);
        edit.clear();
        QTest::keyClicks(&edit, "b");
        QCOMPARE(edit.text(), QString("b"));
        QCoreApplication::processEvents();
        QCOMPARE(int(edit.extraSelections().size()), 1);
    }
}

void TestEdCodeEdit::placesOutsideBecomeTheNearest()
{
    EdCodeEdit edit;
    put(edit, "one\ntwo", 5);
    QCOMPARE(edit.currentLine(), 2);
    edit.goToLine(3);
    QCOMPARE(edit.currentLine(), 2);
    edit.goToLine(0);
    QCOMPARE(edit.textCursor().position(), 0);
    edit.setCursorSelection(99, -5);
    QCOMPARE(edit.textCursor().position(), 7);
    QCOMPARE(edit.textCursor().anchor(), 0);

    edit.setText(QString::fromUtf8("\xF0\x9F\x98\x80")); // two units
    edit.setCursorPosition(1);
    QCOMPARE(edit.textCursor().position(), 0);
}

void TestEdCodeEdit::doubleClickTakesVariables_data()
{
    columns<QString, int, QString>("text", "column", "selected");

    row("name", "int $abc = 1;", 6, "$abc");
    row("dollar", "$abc", 0, "$abc");
    row("word", "a word", 3, "word");
    row("behind-a-word", "x$abc", 3, "abc");
    // Deliberate: these letters do not keep the "$" out.
    row("behind-a-capital", "B$abc", 3, "$abc");
    row("behind-the-last-capital", "Z$abc", 3, "abc");
    row("beyond-ascii", QString::fromUtf8("$\xc3\xa4z"), 1, QString::fromUtf8("\xc3\xa4z"));
}

void TestEdCodeEdit::doubleClickTakesVariables()
{
    QFETCH(QString, text);
    QFETCH(int, column);
    QFETCH(QString, selected);
    EdCodeEdit edit;
    edit.resize(500, 200);
    edit.setLanguage(MelLanguage);
    edit.show();
    const auto doubleClick = [&edit, column](const QString &line) {
        put(edit, line, column);
        const QPoint place = edit.cursorRect().center() + QPoint(3, 0);
        QTest::mouseDClick(edit.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        return edit.textCursor().selectedText();
    };
    QCOMPARE(doubleClick(text), selected);
    preferences().melSelectFullVariableName = false;
    QVERIFY(!doubleClick(text).contains("$") || column == 0);
}

void TestEdCodeEdit::homeGoesByRowsOfAWrappedLine()
{
    preferences().wordWrapEnabled = true;
    EdCodeEdit edit;
    edit.resize(300, 200);
    put(edit, "  " + QString("word ").repeated(40), 150);
    edit.show();
    QTest::keyClick(&edit, Qt::Key_Home);
    const int row = edit.textCursor().position();
    QVERIFY(row > 2 && row < 150);
    QTest::keyClick(&edit, Qt::Key_Home);
    QCOMPARE(edit.textCursor().position(), 2);
    QTest::keyClick(&edit, Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(edit.textCursor().position(), 0);
    QCOMPARE(edit.textCursor().anchor(), 2);
}

void TestEdCodeEdit::droppedFilesAreReportedOnce()
{
    ScratchDir dir;
    EdCodeEdit edit;
    edit.show();
    QMimeData files;
    files.setUrls(QList<QUrl>() << QUrl::fromLocalFile(dir.write("a.mel", "x"))
                                << QUrl::fromLocalFile(dir.path())
                                << QUrl("http://example.com/b.mel")
                                << QUrl::fromLocalFile(dir.write("c d.py", "x")));
    QSignalSpy dropped(&edit, SIGNAL(fileDropped(QString)));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QVERIFY(isAccepted(enter, edit.viewport()));
    QDropEvent drop(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton,
                    Qt::ShiftModifier);
    drop.setDropAction(Qt::MoveAction);
    QVERIFY(isAccepted(drop, edit.viewport()));
    QCOMPARE(drop.dropAction(), Qt::CopyAction);
    QCOMPARE(int(dropped.size()), 2);
    QCOMPARE(dropped.at(0).first().toString(), dir.file("a.mel"));
    QCOMPARE(dropped.at(1).first().toString(), dir.file("c d.py"));
    QCOMPARE(edit.text(), QString());
}

void TestEdCodeEdit::clipboardHasLineFeeds()
{
    EdCodeEdit edit;
    put(edit, QString("a%1\nb").arg(QChar(0xa0)), 0, 4);
    edit.copy();
    QCOMPARE(QApplication::clipboard()->text(), QString("a%1\nb").arg(QChar(0xa0)));
    edit.paste();
    QCOMPARE(edit.text(), QString("a%1\nb").arg(QChar(0xa0)));
}

CORVANE_TEST_MAIN(TestEdCodeEdit)
#include "tst_edcodeedit.moc"
