// SPDX-License-Identifier: MIT
#include "editor/textblocks.h"
#include "tests/editor/scriptedit.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

class TextBlocksTest : public QObject
{
    Q_OBJECT

private slots:
    void bracketsMatch_data();
    void bracketsMatch();
    void onlyStoredBracketsMatch();
    void blocksWithoutDataAreAllCode();
    void returnTrimsTheDataThatNobodyElseRenews();
};

namespace {

TextPlace placeOf(const QTextCursor &cursor)
{
    return {cursor.block(), cursor.positionInBlock()};
}

// With the caret moved there; empty for no place.
QString drawingAt(const TextPlace &place)
{
    if (!place.isValid())
        return QString();
    QTextCursor cursor(place.block);
    cursor.setPosition(place.block.position() + place.column);
    return drawing(cursor);
}

} // namespace

// The caret stands before the bracket, in the result before the one that matches.
void TextBlocksTest::bracketsMatch_data()
{
    columns<QString, QString>("given", "expected");
    row("forwards-over-lines", "a|{\n{}\n}", "a{\n{}\n|}");
    row("backwards-over-lines", "a{\n{}\n|}", "a|{\n{}\n}");
    row("other-kinds-do-not-count", "|(]{)", "(]{|)");
    row("by-column-behind-a-string", "(a) \"\" |(b) + (c)", "(a) \"\" (b|) + (c)");
    row("by-column-not-as-stored", "((a)(b)|)", "|((a)(b))");
    row("brackets-in-strings-do-not-count", "f|(\")\" /* ) */ )", "f(\")\" /* ) */ |)");
    row("no-match-forwards", "|(\n(", "");
    row("no-match-backwards", ")\n|)", "");
    row("bracket-in-a-string", "\"|(\" )", "");
    row("no-bracket", "|a()", "");
}

void TextBlocksTest::bracketsMatch()
{
    QFETCH(QString, given);
    QFETCH(QString, expected);
    const ScriptEdit script(MelLanguage, given);
    QCOMPARE(drawingAt(matchingBracket(placeOf(script.cursor))), expected);
}

void TextBlocksTest::onlyStoredBracketsMatch()
{
    const ScriptEdit script(TextLanguage, QString::fromLatin1("|()"));
    QVERIFY(!matchingBracket(placeOf(script.cursor)).isValid());
}

void TextBlocksTest::blocksWithoutDataAreAllCode()
{
    const ScriptEdit script(TextLanguage, QString::fromLatin1(" a // b |\n\n \n"));
    const QTextBlock first = script.document.begin();
    const QTextBlock last = script.document.lastBlock();
    QCOMPARE(codeOf(first), QString::fromLatin1("a // b"));
    QCOMPARE(nearestWithCode(last), first);
    QCOMPARE(nearestNonEmpty(last), last.previous());
    QVERIFY(!nearestNonEmpty(first.previous()).isValid());
}

// As while highlighting is suspended.
void TextBlocksTest::returnTrimsTheDataThatNobodyElseRenews()
{
    ScriptEdit script(MelLanguage, QString::fromLatin1("f(a)| (b)\n(c)"));
    script.highlighter.reset();
    breakLine(script.cursor, MelLanguage, IndentStyle());
    const QTextBlock first = script.document.begin();
    QCOMPARE(codeOf(first), QString::fromLatin1("f(a)"));
    QCOMPARE(lastBracket({first, 100}).column, 3);
    QCOMPARE(codeOf(first.next()), QString());
    QCOMPARE(lastBracket(endOf(first.next().next())).column, 2);
}

CORVANE_TEST_MAIN(TextBlocksTest)
#include "tst_textblocks.moc"
