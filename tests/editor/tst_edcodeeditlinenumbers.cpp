// SPDX-License-Identifier: MIT
#include "analysis/baseparser.h"
#include "compat/icon.h"
#include "compat/text.h"
#include "editor/edcodeedit.h"
#include "editor/edcodeeditlinenumbers.h"
#include "editor/editorlanguage.h"
#include "preferences/preferences.h"
#include "preferences/textformats.h"
#include "tests/support/testmain.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>
#include <QToolTip>

namespace {

// A parser that finds what it is told to.
class FakeParser : public BaseParser
{
public:
    void parse(const QString &, const QString &) override {}
};

// Where a widget was painted.
class PaintWatch : public QObject
{
    Q_OBJECT

public:
    explicit PaintWatch(QWidget *widget) { widget->installEventFilter(this); }
    QRegion painted;

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
};

QString lines(int count)
{
    QStringList lines;
    for (int i = 1; i <= count; ++i)
        lines << QString("line %1").arg(i);
    return lines.join("\n");
}

QImage picture(QWidget *widget)
{
    QImage image(widget->size(), QImage::Format_RGB32);
    widget->render(&image);
    return image;
}

} // namespace

class TestLineNumbers : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void widthGrowsWithTheDigits_data();
    void widthGrowsWithTheDigits();
    void oneIconALineErrorsFirst();
    void numbersOfTheVisibleLinesArePainted();
    void typingPaintsOneLine_data();
    void typingPaintsOneLine();
    void aNewRowMovesWhatIsBelow();
    void gutterFollowsTheMarks();
    void markedTextTellsItsMessage();

private:
    std::unique_ptr<EdCodeEdit> shownEdit(const QString &text);
    static QWidget *gutterOf(const EdCodeEdit &edit)
    {
        return edit.findChild<EdCodeEditLineNumbers *>();
    }
    static int topOf(const EdCodeEdit &edit, int line);
};

void TestLineNumbers::init()
{
    preferences() = Preferences();
}

std::unique_ptr<EdCodeEdit> TestLineNumbers::shownEdit(const QString &text)
{
    std::unique_ptr<EdCodeEdit> edit(new EdCodeEdit);
    edit->resize(400, 300);
    edit->setText(text);
    edit->show();
    QCoreApplication::processEvents();
    return edit;
}

int TestLineNumbers::topOf(const EdCodeEdit &edit, int line)
{
    return edit.cursorRect(QTextCursor(edit.document()->findBlockByNumber(line))).top();
}

void TestLineNumbers::widthGrowsWithTheDigits_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("digits");

    QTest::newRow("one") << 1 << 2;
    QTest::newRow("last-of-two") << 99 << 2;
    QTest::newRow("first-of-three") << 100 << 3;
    QTest::newRow("last-of-three") << 999 << 3;
    QTest::newRow("five") << 10000 << 5;
}

void TestLineNumbers::widthGrowsWithTheDigits()
{
    QFETCH(int, count);
    QFETCH(int, digits);
    auto edit = shownEdit(lines(count));
    const int width = 21 + digits * compat::textWidth(QFontMetrics(edit->font()), "9");
    QCOMPARE(gutterOf(*edit)->sizeHint(), QSize(width, 0));
    QCOMPARE(gutterOf(*edit)->width(), width);
    QCOMPARE(gutterOf(*edit)->geometry().right() + 1, edit->viewport()->x());
    QCOMPARE(gutterOf(*edit)->height(), edit->viewport()->height());
    edit->clearText();
    QCOMPARE(gutterOf(*edit)->width() < width, digits > 2);
    QCOMPARE(gutterOf(*edit)->geometry().right() + 1, edit->viewport()->x());
}

void TestLineNumbers::oneIconALineErrorsFirst()
{
    auto edit = shownEdit(lines(5));
    FakeParser parser;
    parser.addTodo("note", 0, 4);
    parser.addTodo("note", 7, 11);
    parser.addWarning("warning", 8, 11);
    parser.addWarning("warning", 14, 18);
    parser.addError("error", 15, 16);
    edit->setDiagnostics(parser);

    // Line by line what the pictures are expected to be.
    const char *const icons[] = {"info", "warning", "error", nullptr};
    const QImage gutter = picture(gutterOf(*edit));
    for (int line = 0; line < 4; ++line) {
        const QRect place(0, topOf(*edit, line), 14, 14);
        QImage expected(place.size(), QImage::Format_RGB32);
        expected.fill(textFormat(EditorText::ErrorBar).background.rgb());
        if (icons[line])
            QPainter(&expected).drawImage(
                0, 0, compat::image(QString(":/icons/%1.png").arg(icons[line])));
        QVERIFY2(gutter.copy(place) == expected, qPrintable(QString::number(line)));
    }
}

void TestLineNumbers::numbersOfTheVisibleLinesArePainted()
{
    auto edit = shownEdit(lines(200));
    const QImage atTop = picture(gutterOf(*edit));
    const QRgb ground = textFormat(EditorText::LineNumbers).background.rgb();
    // Right of the error bar, every visible line has ink.
    const int height = QFontMetrics(edit->font()).height();
    for (int line = 0; topOf(*edit, line) + height < gutterOf(*edit)->height(); ++line) {
        const QImage number = atTop.copy(14, topOf(*edit, line), atTop.width() - 14, height);
        bool inked = false;
        for (int x = 0; x < number.width(); ++x)
            for (int y = 0; y < number.height(); ++y)
                inked = inked || number.pixel(x, y) != ground;
        QVERIFY2(inked, qPrintable(QString::number(line)));
    }
    edit->goToLine(150);
    QCoreApplication::processEvents();
    QVERIFY(picture(gutterOf(*edit)) != atTop);
}

void TestLineNumbers::typingPaintsOneLine_data()
{
    QTest::addColumn<int>("language");
    QTest::newRow("plain-text") << int(TextLanguage);
    QTest::newRow("highlighted") << int(MelLanguage);
}

void TestLineNumbers::typingPaintsOneLine()
{
    QFETCH(int, language);
    auto edit = shownEdit(lines(50));
    edit->setLanguage(language);
    edit->goToLine(4);
    QCoreApplication::processEvents();
    PaintWatch gutter(gutterOf(*edit));
    PaintWatch text(edit->viewport());
    QTest::keyClicks(edit.get(), "1 \"x"); // with and without other colours
    QCoreApplication::processEvents();
    const int height = QFontMetrics(edit->font()).height();
    QVERIFY(gutter.painted.isEmpty());
    QVERIFY(text.painted.boundingRect().height() <= 2 * height);
}

void TestLineNumbers::aNewRowMovesWhatIsBelow()
{
    preferences().wordWrapEnabled = true;
    auto edit = shownEdit("print \"a\";\n" + lines(20));
    edit->setLanguage(MelLanguage);
    edit->setCursorPosition(8);
    QCoreApplication::processEvents();
    PaintWatch gutter(gutterOf(*edit));
    PaintWatch text(edit->viewport());
    const int below = topOf(*edit, 1);
    while (topOf(*edit, 1) == below) {
        text.painted = gutter.painted = QRegion();
        QTest::keyClicks(edit.get(), "word ");
        QCoreApplication::processEvents();
    }
    QVERIFY(text.painted.boundingRect().height() > edit->viewport()->height() / 2);
    QVERIFY(gutter.painted.boundingRect().height() > edit->viewport()->height() / 2);
}

void TestLineNumbers::gutterFollowsTheMarks()
{
    auto edit = shownEdit(lines(9));
    FakeParser parser;
    parser.addError("error", 8, 9);
    edit->setDiagnostics(parser);
    edit->setCursorPosition(8);
    QCoreApplication::processEvents();
    PaintWatch gutter(gutterOf(*edit));
    QTest::keyClick(edit.get(), Qt::Key_Delete); // takes the mark away
    QCoreApplication::processEvents();
    QVERIFY(!gutter.painted.isEmpty());
    gutter.painted = QRegion();
    edit->moveCursor(QTextCursor::End);
    QTest::keyClick(edit.get(), Qt::Key_Return);
    QCoreApplication::processEvents();
    QVERIFY(!gutter.painted.isEmpty());
}

void TestLineNumbers::markedTextTellsItsMessage()
{
    auto edit = shownEdit("one two");
    FakeParser parser;
    parser.addTodo("the note", 0, 7);
    parser.addError("the error", 4, 7);
    edit->setDiagnostics(parser);
    const auto toolTipAt = [&edit](int position) {
        QTextCursor cursor(edit->document());
        cursor.setPosition(position);
        const QPoint place = edit->viewport()->mapTo(edit.get(), edit->cursorRect(cursor).center());
        QHelpEvent help(QEvent::ToolTip, place, edit->mapToGlobal(place));
        QCoreApplication::sendEvent(edit.get(), &help);
        const QString text = QToolTip::isVisible() ? QToolTip::text() : QString();
        QToolTip::hideText();
        return text;
    };
    QCOMPARE(toolTipAt(1), QString("the note"));
    QCOMPARE(toolTipAt(5), QString("the error"));
    // Over an icon it is the line's own message that counts.
    parser.addWarning("of the line", 12, 13);
    edit->setText("one two\n    x");
    edit->setDiagnostics(parser);
    const QPoint icon(5, topOf(*edit, 1) + 5);
    QHelpEvent help(QEvent::ToolTip, icon, edit->mapToGlobal(icon));
    QCoreApplication::sendEvent(edit.get(), &help);
    QCOMPARE(QToolTip::text(), QString("of the line"));
    edit->clearDiagnostics();
    QToolTip::hideText();
    QCOMPARE(edit->errors().at(5), static_cast<const EdDiagnosticMark *>(nullptr));
}

CORVANE_TEST_MAIN(TestLineNumbers)
#include "tst_edcodeeditlinenumbers.moc"
