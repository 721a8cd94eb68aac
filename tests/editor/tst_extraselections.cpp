// SPDX-License-Identifier: MIT
#include "analysis/baseparser.h"
#include "compat/layoutformats.h"
#include "editor/edcodeedit.h"
#include "editor/editorlanguage.h"
#include "editor/edhighlighter.h"
#include "editor/edtextblockdata.h"
#include "preferences/preferences.h"
#include "preferences/textformats.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>

namespace {

class FakeParser : public BaseParser
{
public:
    void parse(const QString &, const QString &) override {}
};

QString lines(const QString &line, int count)
{
    QStringList lines;
    for (int i = 0; i < count; ++i)
        lines << line;
    return lines.join("\n");
}

} // namespace

// What an editor marks, by the formats of its extra selections.
class TestExtraSelections : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_edit.reset(); } // the application ends before this object

    void theCurrentLineIsMarkedAlone();
    void bracketsFindTheirPartner_data();
    void bracketsFindTheirPartner();
    void farPartnersAreNotLookedFor();
    void equalWordsAreMarked_data();
    void equalWordsAreMarked();
    void onlyVisibleWordsAreMarked();
    void matchesAreMarkedWhereTheViewIs();
    void diagnosticsAreUnderlinedNearTheView();
    void longLinesGoWithout();

private:
    // "start-end" of the selections in this background; those of the underlines for an invalid one.
    QStringList places(const QColor &background) const;
    void select(int position, int anchor) { m_edit->setCursorSelection(position, anchor); }

    std::unique_ptr<EdCodeEdit> m_edit;
};

void TestExtraSelections::init()
{
    preferences() = Preferences();
    m_edit.reset(new EdCodeEdit);
    m_edit->resize(500, 300);
    m_edit->setLanguage(MelLanguage);
    m_edit->show();
}

QStringList TestExtraSelections::places(const QColor &background) const
{
    QStringList places;
    const QList<QTextEdit::ExtraSelection> selections = m_edit->extraSelections();
    for (const QTextEdit::ExtraSelection &each : selections) {
        const bool isUnderline = each.format.underlineStyle() == QTextCharFormat::WaveUnderline;
        if (background.isValid() ? each.format.background().color() == background : isUnderline)
            places << QString("%1-%2")
                          .arg(each.cursor.selectionStart())
                          .arg(each.cursor.selectionEnd());
    }
    return places;
}

void TestExtraSelections::theCurrentLineIsMarkedAlone()
{
    const QColor ground = textFormat(EditorText::CurrentLine).background;
    m_edit->setText("one\ntwo\nthree");
    select(5, 5);
    QCOMPARE(places(ground), QStringList() << "5-5");
    select(9, 2);
    QCOMPARE(places(ground), QStringList() << "9-9");
    const QTextEdit::ExtraSelection line = m_edit->extraSelections().value(0);
    QVERIFY(line.format.boolProperty(QTextFormat::FullWidthSelection));
    m_edit->setReadOnly(true);
    m_edit->updateExtraSelections();
    QCOMPARE(places(ground), QStringList());
}

void TestExtraSelections::bracketsFindTheirPartner_data()
{
    columns<QString, int, QStringList>("text", "caret", "marked");

    const QStringList none;
    row("opener", "f(a[0])", 2, words("1-2 6-7"));
    row("closer", "f(a[0])", 6, words("5-6 3-4"));
    row("only-before-the-caret", "f(a)", 1, none);
    row("across-lines", "{\n{}\n}", 6, words("5-6 0-1"));
    row("other-kinds-do-not-count", "(])", 1, words("0-1 2-3"));
    row("string-and-comment", "(\")\" /*)*/ )", 1, words("0-1 11-12"));
    row("none-in-a-string", "\"()\"", 2, none);
    row("without-partner", "((a)", 1, none);
}

void TestExtraSelections::bracketsFindTheirPartner()
{
    QFETCH(QString, text);
    QFETCH(int, caret);
    QFETCH(QStringList, marked);
    const QColor ground = textFormat(EditorText::BraceMatching).background;
    m_edit->setText(text);
    select(caret, caret);
    QCOMPARE(places(ground), marked);
    select(caret, caret - 1);
    QCOMPARE(places(ground), QStringList());
}

void TestExtraSelections::farPartnersAreNotLookedFor()
{
    const QColor ground = textFormat(EditorText::BraceMatching).background;
    m_edit->setText("(\n" + lines("a", 5000) + "\n)");
    m_edit->highlighter()->finish();
    select(1, 1);
    QCOMPARE(int(places(ground).size()), 2);
    m_edit->setText("(\n" + lines("a", 20000) + "\n)");
    m_edit->highlighter()->finish();
    select(1, 1);
    QCOMPARE(int(places(ground).size()), 0);
}

void TestExtraSelections::equalWordsAreMarked_data()
{
    columns<QString, int, int, QStringList>("text", "anchor", "caret", "marked");

    const QStringList none;
    row("all", "ab $ab\nab_ xab -ab", 0, 2, words("0-2 4-6 16-18"));
    row("part-of-a-word", "abc ab", 0, 2, none);
    row("no-word", "a-b a-b", 0, 3, none);
    row("over-lines", "ab\nab", 0, 5, none);
    row("beyond-ascii", QString::fromUtf8("\xc3\xa4 \xc3\xa4z \xc3\xa4"), 0, 1, words("0-1 5-6"));
}

void TestExtraSelections::equalWordsAreMarked()
{
    QFETCH(QString, text);
    QFETCH(int, anchor);
    QFETCH(int, caret);
    QFETCH(QStringList, marked);
    m_edit->setText(text);
    select(caret, anchor);
    QCOMPARE(places(textFormat(EditorText::MatchingSelection).background), marked);
}

void TestExtraSelections::onlyVisibleWordsAreMarked()
{
    m_edit->setText(lines("word", 5000));
    select(0, 4);
    const int marked = int(places(textFormat(EditorText::MatchingSelection).background).size());
    QVERIFY(marked > 5 && marked < 100);
}

void TestExtraSelections::matchesAreMarkedWhereTheViewIs()
{
    const QColor background = textFormat(EditorText::MatchingSelection).background;
    m_edit->setText(lines("word", 5000));
    m_edit->markMatches({"OR", QString(), 0});
    const QStringList atTop = places(background);
    QVERIFY(atTop.contains("1-3") && atTop.size() < 100);
    m_edit->verticalScrollBar()->setValue(4000);
    QVERIFY(places(background).contains("20001-20003"));
    QVERIFY(!places(background).contains("1-3"));
    m_edit->markMatches(FindRequest());
    QVERIFY(places(background).isEmpty());
}

void TestExtraSelections::diagnosticsAreUnderlinedNearTheView()
{
    m_edit->setText(lines("word", 5000));
    FakeParser parser;
    for (int line = 0; line < 5000; line += 2)
        parser.addError("e", line * 5, line * 5 + 4);
    m_edit->setDiagnostics(parser);
    const QStringList atTop = places(QColor());
    QVERIFY(atTop.contains("0-4") && atTop.size() < 100);
    m_edit->goToLine(4000);
    QVERIFY(places(QColor()).contains("19990-19994"));
    QVERIFY(!places(QColor()).contains("0-4"));
}

void TestExtraSelections::longLinesGoWithout()
{
    QSignalSpy said(m_edit.get(), SIGNAL(longLineReached()));
    m_edit->setText("word 12 word (" + QString(30000, 'x') + ")\nword");
    select(0, 4);
    QVERIFY(places(textFormat(EditorText::MatchingSelection).background).isEmpty());
    select(14, 14);
    QVERIFY(places(textFormat(EditorText::BraceMatching).background).isEmpty());
    QCOMPARE(int(places(textFormat(EditorText::CurrentLine).background).size()), 1);
    QCOMPARE(int(said.size()), 1);
    // What is code is known all the same.
    const QTextBlock line = m_edit->document()->begin();
    QVERIFY(compat::layoutFormats(line).isEmpty());
    QCOMPARE(int(EdTextBlockData::of(line)->brackets().size()), 2);
}

CORVANE_TEST_MAIN(TestExtraSelections)
#include "tst_extraselections.moc"
