// SPDX-License-Identifier: MIT
#include "analysis/melparser.h"
#include "editor/edcodeedit.h"
#include "editor/edtextblockdata.h"
#include "editor/findreplace.h"
#include "editor/textmatcher.h"
#include "editor/textsearch.h"
#include "tests/editor/scriptedit.h"
#include "tests/support/lineartime.h"
#include "tests/support/testmain.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>

class FindReplaceTest : public QObject
{
    Q_OBJECT

private slots:
    void requestsAreCarriedOut_data();
    void requestsAreCarriedOut();
    void crowdsOfMatchesAreReplacedLikeFew();
    void replacingAllTakesTimeByTheText_data();
    void replacingAllTakesTimeByTheText();
    void searchingTakesTimeByTheText();
    void matchesAreThoseOfAPlainSearch();
    void findsWhatADocumentFinds_data();
    void findsWhatADocumentFinds();
    void textsThatWouldFillTheMemoryAreLeftAlone();
    void replacingAllKeepsMarksAndDataOfOtherText();
    void undoingThatLeadsBackToTheCaret();
    void editorTellsAndShowsWhatWasFound();
    void readOnlyEditorIsSearchedOnly();
};

namespace {

const int B = FindRequest::Backward;
const int C = FindRequest::CaseSensitive;
const int W = FindRequest::WholeWords;
const int S = FindRequest::InSelection;
const int Wrap = FindRequest::Wrap;
const int Replace = FindRequest::Replace;
const int Next = FindRequest::ReplaceAndFind;
const int All = FindRequest::ReplaceAll;

const char missed[] = "String Not Found";
const char wrapped[] = "Wrapped search";

// The messages are joined by commas.
void row(const char *tag, int options, const char *find, const char *replace, const char *given,
         const char *expected, const char *messages = "")
{
    QTest::newRow(tag) << options << QString::fromUtf8(find) << QString::fromUtf8(replace)
                       << QString::fromUtf8(given) << QString::fromUtf8(expected)
                       << QString::fromLatin1(messages);
}

void findRows()
{
    row("find-from-the-caret", 0, "ab", "", "ab |ab", "ab [ab]");
    row("find-behind-another-selection", 0, "ab", "", "[ab ]ab", "ab [ab]");
    row("find-not-the-selected-match-again", 0, "ab", "", "[ab] ab", "ab [ab]");
    row("find-selected-match-overlapped", 0, "aa", "", "[aa]a", "a[aa]");
    row("find-selected-match-in-other-case", 0, "aa", "", "[AA]A", "A[AA]");
    row("find-nothing-behind-the-caret", 0, "ab", "", "ab|", "ab|", missed);
    row("find-empty-text", Wrap, "", "", "a[b]", "a[b]", missed);
    row("find-case-is-ignored", 0, "ÄB", "", "|xäb", "x[äb]");
    row("find-in-a-long-line-letters-of-one-case", 0, "ks", "",
        "|........................................\u212a\u017f.",
        "........................................[\u212a\u017f].");
    row("find-case-sensitive", C, "ab", "", "|AB ab", "AB [ab]");
    row("find-no-break-space-as-blank", 0, "a b", "", "|a\u00a0b", "[a\u00a0b]");
    row("find-blank-as-no-break-space", 0, "a\u00a0b", "", "|a b", "[a b]");
    row("find-special-characters", 0, "$a[.*", "", "|$ab\n$a[.*|x", "$ab\n[$a[.*]|x");
    row("find-over-breaks", 0, "b\r\na", "", "|a\nb\na", "a\n[b\na]");
    row("find-wraps-to-the-start", Wrap, "ab", "", "ab ab|", "[ab] ab", wrapped);
    row("find-wraps-to-the-only-match", Wrap, "ab", "", "x\n[ab]", "x\n[ab]", wrapped);
    row("find-wraps-in-vain", Wrap, "ab", "", "x[x]", "x[x]", "Wrapped search,String Not Found");
}

void backwardRows()
{
    row("back-before-the-caret", B, "ab", "", "ab ab|ab", "ab [ab]ab");
    row("back-before-another-selection", B, "ab", "", "ab[ ab]", "[ab] ab");
    row("back-not-the-selected-match-again", B, "ab", "", "ab [ab]", "[ab] ab");
    row("back-through-lines", B, "ab", "", "ab\n\nx\n|ab", "[ab]\n\nx\nab");
    row("back-over-breaks", B | W, "a\nb", "", "a\nb|\nc", "[a\nb]\nc");
    row("back-nothing-before-the-caret", B, "ab", "", "|ab", "|ab", missed);
    row("back-wraps-to-the-end", B | Wrap, "b", "", "|ab\nb", "ab\n[b]", wrapped);
}

void wordRows()
{
    row("word-passes-parts", W, "ab", "", "|abc cab ab", "abc cab [ab]");
    row("word-backward", B | W, "ab", "", "ab abc|", "[ab] abc");
    row("word-with-blank", W | Wrap, "ab ", "", "|ab c", "|ab c", missed);
    row("word-with-blank-is-not-replaced", W | All, "ab ", "x", "|ab c", "|ab c", missed);
    row("word-all", W | All, "ab", "x", "|ab abc _ab ab2 ab", "|x abc _ab ab2 x",
        "2 matches replaced");
    row("word-all-over-umlauts", W | All, "ab", "x", "|äab ab", "|äab x", "1 match replaced");
    row("word-all-anchors-want-a-word-beside-signs", W | All, "$a", "x", "|$a b$a", "|$a bx",
        "1 match replaced");
    row("word-all-passes-a-part-that-hides-a-match", W | All, "a-a", "x", "|ba-a-a", "|ba-x",
        "1 match replaced");
}

void replaceRows()
{
    row("replace-selects-the-new-text", Replace, "ab", "xyz", "[ab] ab", "[xyz] ab");
    row("replace-in-other-case", Replace, "ab", "x", "[AB]", "[x]");
    row("replace-not-in-other-case", Replace | C, "ab", "x", "[AB]", "[AB]");
    row("replace-selects-breaks", Replace, "ab", "x\r\ny", "[ab] ab", "[x\ny] ab");
    row("replace-lines", Replace, "a\nb", "x", "[a\nb]", "[x]");
    row("replace-not-another-selection", Replace, "ab", "x", "[a]b", "[a]b");
    row("replace-by-nothing", Replace, "ab", "", "[ab]", "[ab]");
    row("replace-empty-text", Replace, "", "x", "a|b", "a|b");

    row("next-first-selects", Next, "ab", "x", "|ab ab", "[ab] ab");
    row("next-first-finds-none", Next, "ab", "x", "|a", "|a", missed);
    row("next-replaces-and-finds", Next, "ab", "x", "[ab] ab", "x [ab]");
    row("next-finds-none-after-the-last", Next, "ab", "xab", "ab [ab]", "ab [xab]", missed);
    row("next-wraps", Next | Wrap, "ab", "x", "ab [ab]", "[ab] x", wrapped);
    row("next-backward", Next | B, "ab", "aab", "ab [ab]", "[ab] aab");
    row("next-by-nothing", Next, "ab", "", "|ab", "|ab");
    row("next-empty-text", Next, "", "x", "|ab", "|ab");
}

void allRows()
{
    row("all-matches", All, "ab", "x", "AB|\nab b", "x|\nx b", "2 matches replaced");
    row("all-case-sensitive", All | C, "ab", "x", "AB| ab", "AB| x", "1 match replaced");
    row("all-do-not-overlap", All, "aa", "a", "|aaaaa", "|aaa", "2 matches replaced");
    row("all-not-what-was-put-in", All, "a", "aa", "|aa", "|aaaa", "2 matches replaced");
    row("all-by-nothing", All, "ab", "", "ab|c", "|c", "1 match replaced");
    row("all-takes-no-pattern", All, "a.", "\\0&\\1", "|ab a.", "|ab \\0&\\1", "1 match replaced");
    row("all-no-match", All, "bb", "x", "a]b[c a", "a]b[c a", missed);
    row("all-empty-text", All, "", "x", "|ab", "|ab", missed);
    row("all-over-breaks", All, "a\nb", "x", "|a\nb a\nb", "|x x", "2 matches replaced");
    row("all-breaks", All, "\r\n", ", ", "a\nb|\nc", "a, b|, c", "2 matches replaced");
    row("all-with-breaks", All, "ab", "x\ny", "ab|ab c", "x\ny|x\ny c", "2 matches replaced");
    row("all-keep-no-break-spaces", All, "a", "b", "|a\u00a0a", "|b\u00a0b", "2 matches replaced");
    row("all-caret-inside-a-match", All, "abc", "xy", "abc a|bc c", "xy xy| c",
        "2 matches replaced");
    row("all-caret-before-a-match", All, "abc", "xy", "abc |abc", "xy |xy", "2 matches replaced");
    row("all-selection-stays", All, "ab", "xyz", "ab ]ab[ ab", "xyz ]xyz[ xyz",
        "3 matches replaced");

    row("selected-matches", All | S, "ab", "x", "ab]ab ab [ab", "ab[x x ]ab", "2 matches replaced");
    row("selected-matches-end-inside", All | S, "ab", "x", "[ab a]b", "[x a]b", "1 match replaced");
    row("selected-text-without-match", All | S, "ab", "x", "ab [b]", "ab [b]", missed);
    row("selected-nothing", All | S, "ab", "x", "a|b", "a|b", missed);
    row("selected-part-is-a-word", All | S | W, "ab", "x", "[ab]ab", "[x]ab", "1 match replaced");
    row("selected-lines-become-longer", All | S, "b", "\n\n", "a[b\nb]b", "a[\n\n\n\n\n]b",
        "2 matches replaced");
}

QString replacedAll(const QString &text, const QString &find, const QString &replace)
{
    QTextDocument document;
    document.setPlainText(text);
    QTextCursor cursor(&document);
    findReplace(cursor, {find, replace, All});
    return document.toPlainText();
}

QString textOf(const EdCodeEdit &edit, const EdDiagnosticMark &mark)
{
    return edit.text().mid(mark.start, mark.end - mark.start);
}

QStringList shownMessages(QSignalSpy &messages)
{
    QStringList shown;
    for (int i = 0; i < messages.count(); ++i)
        shown << messages.at(i).at(0).toString();
    messages.clear();
    return shown;
}

} // namespace

void FindReplaceTest::requestsAreCarriedOut_data()
{
    QTest::addColumn<int>("options");
    QTest::addColumn<QString>("find");
    QTest::addColumn<QString>("replace");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("messages");
    findRows();
    backwardRows();
    wordRows();
    replaceRows();
    allRows();
}

void FindReplaceTest::requestsAreCarriedOut()
{
    QFETCH(int, options);
    QFETCH(QString, find);
    QFETCH(QString, replace);
    QFETCH(QString, given);
    QFETCH(QString, expected);
    QFETCH(QString, messages);
    ScriptEdit script(TextLanguage, given);
    const FindRequest request = {find, replace, options};
    const int count = replaceableMatches(request, script.document.toPlainText());
    FindOutcome outcome;
    const QString result =
        script.after([&](QTextCursor &cursor) { outcome = findReplace(cursor, request); });
    QCOMPARE(result, expected);
    QCOMPARE(outcome.messages.join(QLatin1String(",")), messages);
    if ((options & All) && !(options & S))
        QCOMPARE(count,
                 messages == QString::fromLatin1(missed) ? 0 : messages.section(' ', 0, 0).toInt());
}

void FindReplaceTest::crowdsOfMatchesAreReplacedLikeFew()
{
    const QString line = QString::fromLatin1("a-ab").repeated(1000);
    const QString lines = QString::fromLatin1("xa a\na").repeated(10000);
    const QString text = QString::fromLatin1("a\nx%1\na%2\n%1b").arg(line, lines);
    QString expected = text;
    expected.replace(QLatin1Char('a'), QLatin1String("cc"));
    QCOMPARE(replacedAll(text, QString::fromLatin1("a"), QString::fromLatin1("cc")), expected);
}

void FindReplaceTest::replacingAllTakesTimeByTheText_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::newRow("lines") << QString::fromLatin1("ab cd\n");
    QTest::newRow("one-line") << QString::fromLatin1("ab ");
    QTest::newRow("nothing-between") << QString::fromLatin1("a");
}

void FindReplaceTest::replacingAllTakesTimeByTheText()
{
    QFETCH(QString, pattern);
    const QString complaint = slowness(longText(pattern), [](const QString &text) {
        replacedAll(text, QString::fromLatin1("a"), QString::fromLatin1("xy"));
    });
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
}

// Each place of the text fits but for its first character, or but for the word's edges.
void FindReplaceTest::searchingTakesTimeByTheText()
{
    const QString many(5000, QLatin1Char('a'));
    const QString almost = QLatin1Char('b') + many;
    const QString complaint =
        slowness(longText(QString::fromLatin1("a")), [&](const QString &text) {
            QTextDocument document;
            document.setPlainText(text);
            QTextCursor cursor(&document);
            for (int options : {0, B | Wrap, C, All, W | B | Wrap, W | All}) {
                const bool isWord = (options & W) != 0;
                const FindRequest request = {isWord ? many : almost, QString(), options};
                QVERIFY(!findReplace(cursor, request).selectsMatch);
            }
        });
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
}

void FindReplaceTest::matchesAreThoseOfAPlainSearch()
{
    for (int number = 0; number < 4096; ++number) {
        const QString digits = QString::number(number, 2);
        const QString wanted = digits.left(1 + number % 5);
        std::vector<int> expected;
        for (int at = -1; (at = int(digits.indexOf(wanted, at + 1))) >= 0;)
            expected.push_back(at);
        QVERIFY2(TextMatcher(wanted, Qt::CaseSensitive).matchesIn(digits) == expected,
                 qPrintable(digits + QLatin1Char(' ') + wanted));
    }
}

void FindReplaceTest::findsWhatADocumentFinds_data()
{
    QTest::addColumn<int>("options");
    QTest::addColumn<QString>("alphabet");
    const QString letters = QString::fromUtf8("aAbBsSkK\u00e4\u00c4");
    QTest::newRow("any-case") << 0 << letters + QString::fromUtf8("\u00a0\n _");
    QTest::newRow("case") << C << letters + QString::fromUtf8("\u00a0\n _");
    QTest::newRow("word") << W << letters + QString::fromUtf8("\n   ");
    QTest::newRow("word-case") << (W | C) << letters + QString::fromUtf8("\n   ");
}

// From every place of a text, in both directions. Words are letters alone: behind a part of a word
// that was passed over, a document misses a word that overlaps it.
void FindReplaceTest::findsWhatADocumentFinds()
{
    QFETCH(int, options);
    QFETCH(QString, alphabet);
    unsigned seed = 1;
    const auto randomText = [&](const QString &characters, int size) {
        QString text;
        for (int i = 0; i < size; ++i) {
            seed = seed * 1103515245 + 12345;
            text += characters.at(int((seed >> 16) % unsigned(characters.size())));
        }
        return text;
    };
    const QString letters = alphabet.left(10);
    for (int round = 0; round < 100; ++round) {
        QTextDocument document;
        document.setPlainText(QString(3, QLatin1Char('.')) + randomText(alphabet, 150));
        const QString text = document.toPlainText();
        const QString wanted = randomText(letters, 1 + round % 3);
        const TextSearch search({wanted, QString(), options});
        const QTextDocument::FindFlags flags = QFlag(options);
        for (int from = 4; from <= text.size(); ++from) {
            const QTextCursor next = document.find(wanted, from, flags);
            QCOMPARE(search.next(text, from), next.isNull() ? -1 : next.selectionStart());
            const QTextCursor previous =
                document.find(wanted, from, flags | QTextDocument::FindBackward);
            QCOMPARE(search.previous(text, from),
                     previous.isNull() ? -1 : previous.selectionStart());
        }
    }
}

void FindReplaceTest::textsThatWouldFillTheMemoryAreLeftAlone()
{
    ScriptEdit script(TextLanguage, QString(20000, QLatin1Char('a')) + QLatin1Char('|'));
    const FindRequest request = {QString::fromLatin1("a"), QString(20000, QLatin1Char('b')), All};
    const FindOutcome outcome = findReplace(script.cursor, request);
    QCOMPARE(outcome.messages, QStringList(QString::fromLatin1("Text Would Be Too Long")));
    QVERIFY(!script.document.isUndoAvailable());
}

void FindReplaceTest::replacingAllKeepsMarksAndDataOfOtherText()
{
    const QString text = QString::fromLatin1("// TODO ab\n/* ab\n*/\nab; // TODO c\n// TODO d");
    EdCodeEdit edit;
    edit.setLanguage(MelLanguage);
    edit.setText(text);
    edit.highlighter()->finish();
    MelParser parser;
    parser.parse(text, QString());
    edit.setDiagnostics(parser);
    const EdTextBlockData *data = EdTextBlockData::of(edit.document()->findBlockByNumber(2));
    QCOMPARE(edit.infoLines().keys(), QList<int>() << 0 << 3 << 4);
    const QString lastNote = textOf(edit, edit.infos().all().back());

    edit.findReplace(QString::fromLatin1("ab"), QString::fromLatin1("x\ny"), All);
    QCOMPARE(edit.infoLines().keys().mid(1), QList<int>() << 6 << 7);
    QCOMPARE(textOf(edit, edit.infos().all().back()), lastNote);
    QCOMPARE(EdTextBlockData::of(edit.document()->findBlockByNumber(4)), data);
}

void FindReplaceTest::undoingThatLeadsBackToTheCaret()
{
    EdCodeEdit edit;
    edit.resize(300, 200);
    edit.setText(QString::fromLatin1("ab\n").repeated(200));
    edit.show();
    for (int options : {All, All | S}) {
        edit.setCursorSelection(299, 1);
        const int top = edit.verticalScrollBar()->value();
        edit.findReplace(QString::fromLatin1("ab"), QString::fromLatin1("x"), options);
        edit.undo();
        QCOMPARE(edit.textCursor().position(), 299);
        QCOMPARE(edit.verticalScrollBar()->value(), top);
    }
}

void FindReplaceTest::editorTellsAndShowsWhatWasFound()
{
    EdCodeEdit edit;
    edit.resize(300, 200);
    const QString other = QString::fromLatin1("a\n").repeated(100);
    edit.setText(other + QString::fromLatin1("ab\n") + other);
    QSignalSpy messages(&edit, SIGNAL(findReplaceMessageChanged(QString)));
    edit.findReplace(QString::fromLatin1("ab"), QString(), Wrap);
    QCOMPARE(shownMessages(messages), QStringList(QString()));
    const int fromCentre = edit.cursorRect().center().y() - edit.viewport()->rect().center().y();
    QVERIFY(qAbs(fromCentre) <= edit.cursorRect().height());

    edit.scrollToTop();
    edit.findReplace(QString::fromLatin1("ab"), QString(), Wrap);
    QCOMPARE(shownMessages(messages), QStringList() << QString() << QString(wrapped));
    QVERIFY(edit.viewport()->rect().contains(edit.cursorRect()));

    const int top = edit.verticalScrollBar()->value();
    edit.findReplace(QString::fromLatin1("a"), QString(), 0);
    QCOMPARE(edit.verticalScrollBar()->value(), top);
    edit.findReplace(QString::fromLatin1("ab"), QString(), B);
    messages.clear();
    edit.scrollToTop();
    edit.findReplace(QString::fromLatin1("a"), QString::fromLatin1("b"), All);
    QCOMPARE(shownMessages(messages), QStringList() << QString() << "201 matches replaced");
    QCOMPARE(edit.verticalScrollBar()->value(), 0);
    QCOMPARE(edit.textCursor().selectedText(), QString::fromLatin1("bb"));

    edit.verticalScrollBar()->setValue(50);
    edit.findReplace(QString::fromLatin1("b"), QString::fromLatin1("\nb"), All);
    QCOMPARE(edit.verticalScrollBar()->value(), 100);
    edit.findReplace(QString::fromLatin1("\n"), QString(), All);
    QCOMPARE(edit.verticalScrollBar()->value(), 0);
}

void FindReplaceTest::readOnlyEditorIsSearchedOnly()
{
    const QString text = QString::fromLatin1("ab ab");
    EdCodeEdit edit;
    edit.setText(text);
    edit.setReadOnly(true);
    for (int operation : {0, Replace, Next, All})
        edit.findReplace(QString::fromLatin1("ab"), QString::fromLatin1("x"), operation);
    QCOMPARE(edit.text(), text);
    QCOMPARE(edit.textCursor().selectedText(), QString::fromLatin1("ab"));
}

CORVANE_TEST_MAIN(FindReplaceTest)
#include "tst_findreplace.moc"
