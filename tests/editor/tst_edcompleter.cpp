// SPDX-License-Identifier: MIT
#include "editor/edcompleter.h"

#include "bridge/melnametable.h"
#include "compat/screen.h"
#include "editor/edcodeedit.h"
#include "editor/editorlanguage.h"
#include "preferences/preferences.h"
#include "tests/editor/listsource.h"
#include "tests/support/caretnotation.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"
#include "tests/support/wheel.h"

#include <QApplication>
#include <QFocusEvent>
#include <QIcon>
#include <QInputMethodEvent>
#include <QScrollBar>
#include <QSignalSpy>

namespace {

// Takes longer than anybody waits.
class SlowSource : public ListSource
{
public:
    explicit SlowSource(int *asked) : ListSource(QStringList() << "abc", asked) {}
    Completions completionsAt(const QTextCursor &caret) override
    {
        QTest::qSleep(110);
        return ListSource::completionsAt(caret);
    }
};

} // namespace

class TestEdCompleter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_edit.reset(); }
    void listsWhatGoesWithTheTyped_data();
    void listsWhatGoesWithTheTyped();
    void narrowsWithoutAskingAgain();
    void followsWhatIsNotTyped_data();
    void followsWhatIsNotTyped();
    void choosingIsOneStep_data();
    void choosingIsOneStep();
    void unaskedListsLeaveShortWords_data();
    void unaskedListsLeaveShortWords();
    void commandsGoToQuickHelp();
    void hidesWhenTheViewChanges_data();
    void hidesWhenTheViewChanges();
    void standsBesideTheWord();
    void isPaintedWhereverItsEditorWasMade();
    void iconsOfSelectedRowsHaveTheColourOfText();
    void namesAreUpdatedOnDemandOnly();
    void slowSourcesAreAskedOnDemandOnly();

private:
    void show(const QString &text, const QString &names);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    QStringList rows() const;

    std::unique_ptr<EdCodeEdit> m_edit;
    EdCompleter *m_popup = nullptr;
    int m_asked = 0;
};

void TestEdCompleter::init()
{
    preferences() = Preferences();

    m_edit = std::make_unique<EdCodeEdit>();
    m_edit->setLanguage(MelLanguage);
    m_edit->resize(500, 300);
    m_edit->move(20, 20);
    m_edit->show();
    QApplication::processEvents();
    m_popup = m_edit->completer();
    m_asked = 0;
}

// As by Ctrl+Space; `text` has a caret.
void TestEdCompleter::show(const QString &text, const QString &names)
{
    m_edit->setTextCursor(setDrawing(m_edit->document(), text));
    m_popup->setSource(listSource(names, &m_asked));
    press(Qt::Key_Space, Qt::ControlModifier);
}

void TestEdCompleter::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_edit.get(), key, modifiers);
}

QStringList TestEdCompleter::rows() const
{
    QStringList texts;
    const QAbstractItemModel *model = m_popup->model();
    for (int row = 0; m_popup->isVisible() && row < model->rowCount(); ++row)
        texts << model->index(row, 0).data().toString();
    return texts;
}

void TestEdCompleter::listsWhatGoesWithTheTyped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("rows"); // empty: hidden
    row("nothing-typed", "(|", "Abs abs makeABox polyAbs xabs y_ab");
    row("one-letter", "a|", "abs Abs");
    row("exact-case-first", "Ab|", "Abs abs makeABox polyAbs y_ab");
    row("words-inside-last", "ABs|", "Abs abs polyAbs");
    row("not-inside-a-word", "bs|", "");
    row("only-what-is-there", "makeABox|", "");
    row("other-case-of-it", "makeabox|", "makeABox");
}

void TestEdCompleter::listsWhatGoesWithTheTyped()
{
    QFETCH(QString, text);
    QFETCH(QString, rows);
    show(text, "Abs abs makeABox polyAbs xabs y_ab");
    QCOMPARE(this->rows().join(" "), rows);
    if (m_popup->isVisible())
        QCOMPARE(m_popup->currentIndex().row(), 0);
}

void TestEdCompleter::narrowsWithoutAskingAgain()
{
    show("po|", "point pointer poly port");
    QTest::keyClicks(m_edit.get(), "int");
    QCOMPARE(rows().join(" "), QString("point pointer"));
    for (int i = 0; i < 4; ++i)
        press(Qt::Key_Backspace);
    QCOMPARE(rows().join(" "), QString("point pointer poly port"));
    QCOMPARE(m_asked, 1);
    press(Qt::Key_Backspace);
    QVERIFY(!m_popup->isVisible()); // the word is gone
    show("f(|", "point");
    QTest::keyClicks(m_edit.get(), "p");
    press(Qt::Key_Backspace);
    QVERIFY(m_popup->isVisible()); // it began with nothing
}

void TestEdCompleter::followsWhatIsNotTyped_data()
{
    columns<QString, QString, QString>("change", "rows", "after");
    row("commit", "commit", "window", "f(window|");
    row("commit-other", "commit-other", "", "f(x|");
    row("paste", "paste", "window", "f(window|");
    row("clear", "clear", "", "|");
}

void TestEdCompleter::followsWhatIsNotTyped()
{
    QFETCH(QString, change);
    QFETCH(QString, rows);
    QFETCH(QString, after);
    show("f(|", "about window wi");
    QInputMethodEvent commit;
    commit.setCommitString(change == "commit" ? "win" : "x");
    if (change == "clear")
        m_edit->document()->clear();
    else if (change == "paste")
        m_edit->insertPlainText("win");
    else
        QApplication::sendEvent(m_edit.get(), &commit);
    QCOMPARE(this->rows().join(" "), rows);
    if (m_popup->isVisible())
        press(Qt::Key_Return);
    QCOMPARE(drawing(m_edit->textCursor()), after);
}

void TestEdCompleter::choosingIsOneStep_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("keys"); // Up, Down, page up (<) and down (>), Return, Tab, a Click
    QTest::addColumn<QString>("after");
    row("return", "x a| y", "R", "x abc0| y");
    row("return-inside", "a|bx", "R", "abc0|bx");
    row("return-unchanged", "x abc2|", "R", "x abc2\n    |");
    row("tab-inside", "a|bx.c", "T", "abc0|.c");
    row("tab-other-case", "AB|", "T", "abc0|");
    row("down", "a|", "DDR", "abc2|");
    row("round-the-end", "a|", "UR", "abc29|");
    row("pages", "a|", ">><R", "abc11|");
    row("last-page", "a|", ">>>>R", "abc29|");
    row("click", "a|", "DC", "abc1|");
}

void TestEdCompleter::choosingIsOneStep()
{
    QFETCH(QString, before);
    QFETCH(QString, keys);
    QFETCH(QString, after);
    QStringList names;
    for (int i = 0; i < 30; ++i)
        names << QString("abc%1").arg(i);
    show(before, names.join(" "));
    for (QChar key : keys) {
        switch (key.toLatin1()) {
        case 'C':
            QTest::mouseClick(m_popup->viewport(), Qt::LeftButton, Qt::NoModifier,
                              m_popup->visualRect(m_popup->currentIndex()).center());
            break;
        default:
            press(key == 'U'   ? Qt::Key_Up
                  : key == 'D' ? Qt::Key_Down
                  : key == '<' ? Qt::Key_PageUp
                  : key == '>' ? Qt::Key_PageDown
                  : key == 'T' ? Qt::Key_Tab
                               : Qt::Key_Return);
        }
    }
    QVERIFY(!m_popup->isVisible());
    QCOMPARE(drawing(m_edit->textCursor()), after);
    m_edit->undo();
    QCOMPARE(m_edit->text(), QString(before).remove("|"));
}

void TestEdCompleter::unaskedListsLeaveShortWords_data()
{
    columns<QString, bool, QString>("typed", "moves", "after");
    row("letter", "s", false, "$abc; $b = s\n    |");
    row("variable", "$a", false, "$abc; $b = $a\n    |");
    row("letter-moved", "s", true, "$abc; $b = switch|");
    row("letters", "st", false, "$abc; $b = string|");
}

void TestEdCompleter::unaskedListsLeaveShortWords()
{
    QFETCH(QString, typed);
    QFETCH(bool, moves);
    QFETCH(QString, after);
    preferences().melCompleteOnLetters = true;
    m_edit->setTextCursor(setDrawing(m_edit->document(), "$abc; $b = |"));
    QTest::keyClicks(m_edit.get(), typed);
    QVERIFY(m_popup->isVisible());
    if (moves)
        press(Qt::Key_Down);
    press(Qt::Key_Return);
    QCOMPARE(drawing(m_edit->textCursor()), after);
}

void TestEdCompleter::commandsGoToQuickHelp()
{
    QSignalSpy help(m_edit.get(), SIGNAL(quickHelpSelected(QString, bool)));
    show("a|", "abc");
    press(Qt::Key_Return);
    QCOMPARE(help.size(), 1);
    QCOMPARE(help.first(), QVariantList() << "abc" << true);
    preferences().melAutoCompleteToQuickHelp = false;
    show("a|", "abc");
    press(Qt::Key_Return);
    QCOMPARE(help.size(), 1);
}

void TestEdCompleter::hidesWhenTheViewChanges_data()
{
    QTest::addColumn<QString>("change");
    for (const char *change : {"scroll", "wheel", "focus", "move", "resize", "hide", "click",
                               "caret", "select", "language", "execute", "text"})
        row(change, change);
}

void TestEdCompleter::hidesWhenTheViewChanges()
{
    QFETCH(QString, change);
    show(QString("a|\n").append(QString("\n").repeated(100)), "abc abd");
    QVERIFY(m_popup->isVisible() && m_popup->focusPolicy() == Qt::NoFocus);
    if (change == "scroll") {
        m_edit->verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
    } else if (change == "wheel") {
        turnWheel(m_edit->viewport());
    } else if (change == "focus") {
        QFocusEvent out(QEvent::FocusOut);
        QApplication::sendEvent(m_edit.get(), &out);
    } else if (change == "move") {
        m_edit->move(40, 40);
    } else if (change == "resize") {
        m_edit->resize(400, 200);
    } else if (change == "hide") {
        m_edit->hide();
    } else if (change == "click") {
        QTest::mousePress(m_edit->viewport(), Qt::LeftButton);
    } else if (change == "caret") {
        m_edit->goToLine(3);
    } else if (change == "select") {
        m_edit->selectAll();
    } else if (change == "language") {
        m_edit->setLanguage(PythonLanguage);
    } else if (change == "execute") {
        press(Qt::Key_Return, Qt::ControlModifier);
    } else {
        m_edit->setText("xyz");
    }
    QVERIFY(!m_popup->isVisible());
}

void TestEdCompleter::standsBesideTheWord()
{
    const auto letter = [this] {
        QTextCursor start = m_edit->textCursor();
        start.movePosition(QTextCursor::StartOfWord);
        const QRect rect = m_edit->cursorRect(start);
        return QRect(m_edit->viewport()->mapToGlobal(rect.topLeft()), rect.size());
    };
    show("    abc|", "abcd abcde");
    QCOMPARE(m_popup->geometry().topLeft(), letter().bottomLeft() + QPoint(0, 1));
    press(Qt::Key_Escape);

    const QRect screen = compat::availableGeometry(m_edit.get());
    m_edit->move(screen.right() - 100, screen.bottom() - 150);
    show("    abc|", "abcd abcde");
    QCOMPARE(m_popup->geometry().bottom(), letter().top() - 1);
    QVERIFY(screen.contains(m_popup->geometry()));
    press(Qt::Key_D);
    QCOMPARE(rows(), words("abcd abcde"));
    press(Qt::Key_E);
    QCOMPARE(m_popup->geometry().bottom(), letter().top() - 1); // with a row less
}

// Panes are not updated while they get a new tab, and tell no window of it afterwards.
void TestEdCompleter::isPaintedWhereverItsEditorWasMade()
{
    QWidget pane;
    pane.setUpdatesEnabled(false);
    const EdCodeEdit *edit = new EdCodeEdit(&pane);
    pane.setUpdatesEnabled(true);
    QVERIFY(edit->completer()->updatesEnabled());
}

void TestEdCompleter::iconsOfSelectedRowsHaveTheColourOfText()
{
    const QPalette before = QApplication::palette();
    show("a|", "abs abc");
    m_popup->hide();
    QPalette other = before;
    other.setColor(QPalette::HighlightedText, Qt::cyan);
    QApplication::setPalette(other); // while it is running
    show("a|", "abs abc");
    QCOMPARE(m_popup->palette().color(QPalette::HighlightedText), QColor(Qt::cyan));
    const QIcon icon = m_popup->currentIndex().data(Qt::DecorationRole).value<QIcon>();
    const QImage image = icon.pixmap(16, QIcon::Selected).toImage();
    const QRgb expected = m_popup->palette().color(QPalette::HighlightedText).rgb();
    int opaque = 0;
    for (int i = 0; i < image.width() * image.height(); ++i) {
        const QRgb pixel = image.pixel(i % image.width(), i / image.width());
        if (qAlpha(pixel) == 255) {
            ++opaque;
            QCOMPARE(pixel, expected);
        }
    }
    QVERIFY(opaque > 0);
    QApplication::setPalette(before);
}

void TestEdCompleter::namesAreUpdatedOnDemandOnly()
{
    static int updates;
    updates = 0;
    setMelNamesUpdate([] { ++updates; });
    preferences().melCompleteOnLetters = true;
    press(Qt::Key_S);
    QVERIFY(m_popup->isVisible());
    QCOMPARE(updates, 0);
    press(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(updates, 1);
    setMelNamesUpdate(nullptr);
}

void TestEdCompleter::slowSourcesAreAskedOnDemandOnly()
{
    preferences().melCompleteOnLetters = true;
    QSignalSpy said(m_edit.get(), SIGNAL(completionSlow()));
    m_popup->setSource(std::make_unique<SlowSource>(&m_asked));
    QTest::keyClicks(m_edit.get(), "a b ");
    QCOMPARE(m_asked, 1);
    press(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(m_asked, 2);
    QTest::keyClicks(m_edit.get(), "a");
    QCOMPARE(m_asked, 2); // it was slow again
    QCOMPARE(said.size(), 1);
}

CORVANE_TEST_MAIN(TestEdCompleter)

#include "tst_edcompleter.moc"
