// SPDX-License-Identifier: MIT
#include "bridge/melnametable.h"
#include "compat/layoutformats.h"
#include "editor/edcodeedit.h"
#include "editor/edhighlighter.h"
#include "editor/editorlanguage.h"
#include "editor/edtextblockdata.h"
#include "editor/melscanner.h"
#include "preferences/preferences.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QCoreApplication>
#include <QImage>
#include <QPlainTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

class EdHighlighterTest : public QObject
{
    Q_OBJECT

private slots:
    void blocksHoldWhatIsCode();
    void laterBlocksAreScannedOnlyWhenTheStateChanges();
    void linesBetweenTwoEditsAreNotScanned();
    void anyEditLeavesTheDataOfAFreshDocument();
    void noTurnOfTheEventLoopIsLong_data();
    void noTurnOfTheEventLoopIsLong();
    void theSeenPageDoesNotWait();
    void aPaintedPageIsColoured();
    void aLoadedTextHasThePageOnly();
    void editsBetweenSlicesLeaveWhatAFreshDocumentHas_data();
    void editsBetweenSlicesLeaveWhatAFreshDocumentHas();
    void attachingAnewForgetsTheOtherLanguage();
    void aDeletedHighlighterLeavesNothingToBeDone();
    void suspensionStopsEverything();
    void suspensionKeepsColoursOfWhatIsEdited();
    void hiddenWhiteSpaceIsDimmedWhileShown();
};

namespace {

// Longer than what is highlighted in one turn.
const int manyLines = 5000;

// As a text edit for code has it.
class CodeDocument : public QTextDocument
{
public:
    explicit CodeDocument(const QString &text = QString())
    {
        setDocumentLayout(new QPlainTextDocumentLayout(this));
        setPlainText(text);
    }
};

QString lines(int count, const char *line = "f(\"a\"); // b")
{
    return (QString::fromLatin1(line) + QLatin1Char('\n')).repeated(count);
}

// A sequence that is the same in every run.
class Numbers
{
public:
    int below(int range)
    {
        m_seed = m_seed * 1103515245u + 12345u;
        return int((m_seed >> 8) % uint(range));
    }

private:
    uint m_seed = 1;
};

int visits = 0; // of blocks, by the one that counts

class CountingScanner : public MelScanner
{
public:
    using MelScanner::MelScanner;

protected:
    void beginLine(int) override { ++visits; }
};

class CountingHighlighter : public EdHighlighter
{
public:
    explicit CountingHighlighter(QTextDocument *document)
        : EdHighlighter(std::make_unique<CountingScanner>(melNameTable()), document)
    {
        visits = 0;
    }
};

QString summary(const QTextDocument &document)
{
    QString text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const EdTextBlockData *data = EdTextBlockData::of(block);
        text += QString::number(block.userState()) + QLatin1Char(':');
        if (!data)
            continue;
        text += data->codeText(block) + QLatin1String(data->inComment() ? "*" : "");
        for (const Bracket &bracket : data->brackets())
            text += bracket.character + QString::number(bracket.column);
        text += QLatin1Char('|');
    }
    return text;
}

QString formatSummary(const QTextDocument &document)
{
    QString text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (const QTextLayout::FormatRange &range : compat::layoutFormats(block)) {
            text += QString::fromLatin1("%1+%2%3 ")
                        .arg(range.start)
                        .arg(range.length)
                        .arg(range.format.foreground().color().name());
        }
        text += QLatin1Char('|');
    }
    return text;
}

template <typename Highlighter>
QString freshSummary(const QString &plainText)
{
    CodeDocument fresh(plainText);
    Highlighter highlighter(&fresh);
    highlighter.rehighlight();
    return summary(fresh) + formatSummary(fresh);
}

void editAnywhere(QTextDocument &document, Numbers &numbers, const QStringList &pieces)
{
    QTextCursor cursor(&document);
    const int last = document.characterCount() - 1;
    cursor.setPosition(numbers.below(last + 1));
    if (numbers.below(4) == 0)
        cursor.setPosition(numbers.below(last + 1), QTextCursor::KeepAnchor);
    cursor.insertText(pieces[numbers.below(pieces.size())]);
}

void editAtTheTop(QTextDocument &document, Numbers &numbers, const QStringList &pieces)
{
    QTextCursor(&document).insertText(pieces[numbers.below(pieces.size())]);
}

// Every line, in one edit block, as converting tabs does.
void indentEverything(QTextDocument &document)
{
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        cursor.setPosition(block.position());
        cursor.insertText(QLatin1String("\t"));
    }
    cursor.endEditBlock();
}

void edit(QTextDocument &document, Numbers &numbers, const QStringList &pieces)
{
    switch (numbers.below(8)) {
    case 0:
    case 1:
        return document.undo();
    case 2:
        return document.redo();
    case 3:
        return editAtTheTop(document, numbers, pieces);
    case 4:
        return indentEverything(document);
    default:
        return editAnywhere(document, numbers, pieces);
    }
}

template <typename Highlighter>
void compareAfterEdits(const QStringList &pieces)
{
    CodeDocument edited(lines(manyLines, pieces[0].toLatin1()));
    Highlighter highlighter(&edited);
    Numbers numbers;
    for (int round = 0; round < 12; ++round) {
        for (int i = numbers.below(4); i >= 0; --i) {
            if (numbers.below(3) == 0)
                highlighter.waitForTurn();
            edit(edited, numbers, pieces);
            for (int turns = numbers.below(3); turns > 0; --turns)
                QCoreApplication::processEvents();
            const QTextBlock seen = edited.findBlockByNumber(numbers.below(edited.blockCount()));
            highlighter.highlightVisible(seen, 50);
        }
        highlighter.finish();
        QVERIFY(summary(edited) + formatSummary(edited) ==
                freshSummary<Highlighter>(edited.toPlainText()));
    }
}

} // namespace

void EdHighlighterTest::blocksHoldWhatIsCode()
{
    QTextDocument document;
    document.setPlainText(QString::fromLatin1("f(1); /* a\nb */ g();"));
    EdHighlighterMel highlighter(&document);
    highlighter.rehighlight();
    QCOMPARE(summary(document), QString::fromLatin1("2:f(1); (1)3|0: g();*(6)7|"));
}

void EdHighlighterTest::laterBlocksAreScannedOnlyWhenTheStateChanges()
{
    QTextDocument document;
    document.documentLayout(); // without one a document reports no changes
    document.setPlainText(QString::fromLatin1("a;\n").repeated(1000));
    CountingHighlighter highlighter(&document);
    highlighter.rehighlight();
    visits = 0;
    QTextCursor cursor(document.findBlockByNumber(500));
    cursor.insertText(QString::fromLatin1("b"));
    QCOMPARE(visits, 1);
    visits = 0;
    cursor.insertText(QString::fromLatin1("/*"));
    QCOMPARE(visits, 501);
}

void EdHighlighterTest::linesBetweenTwoEditsAreNotScanned()
{
    CodeDocument document(lines(1000));
    CountingHighlighter highlighter(&document);
    highlighter.finish();
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.insertText(QString::fromLatin1("\"c\";"));
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QString::fromLatin1("/*"));
    visits = 0;
    cursor.endEditBlock();
    for (int step = 0; step < 2; ++step) {
        QCOMPARE(visits, 2);
        QVERIFY(summary(document) + formatSummary(document) ==
                freshSummary<EdHighlighterMel>(document.toPlainText()));
        visits = 0;
        document.undo();
    }
}

void EdHighlighterTest::anyEditLeavesTheDataOfAFreshDocument()
{
    CodeDocument edited;
    EdHighlighterPython highlighter(&edited);
    edited.setPlainText(QString::fromLatin1("a = [1]\n'''\n(x)\n'''\n{y} # z\n"));
    const char *const pieces[] = {"'''", "\n", "\\\n", "(", "]", "\"", "#", "x y"};
    Numbers numbers;
    for (int round = 0; round < 300; ++round) {
        QTextCursor cursor(&edited);
        const int last = edited.characterCount() - 1;
        cursor.setPosition(numbers.below(last + 1));
        cursor.setPosition(qMin(last, cursor.position() + numbers.below(4)),
                           QTextCursor::KeepAnchor);
        cursor.insertText(QString::fromLatin1(pieces[numbers.below(8)]));
        QCOMPARE(summary(edited) + formatSummary(edited),
                 freshSummary<EdHighlighterPython>(edited.toPlainText()));
    }
}

void EdHighlighterTest::noTurnOfTheEventLoopIsLong_data()
{
    QTest::addColumn<QString>("change");
    row("open-a-comment", "/*");
    row("paste", lines(20000));
    row("load", QString());
}

void EdHighlighterTest::noTurnOfTheEventLoopIsLong()
{
    QFETCH(QString, change);
    const int lineCount = 100000;
    CodeDocument document(lines(lineCount));
    CountingHighlighter highlighter(&document);
    highlighter.finish();
    visits = 0;
    if (change.isEmpty())
        document.setPlainText(lines(lineCount));
    else
        QTextCursor(&document).insertText(change);
    int total = visits;
    int longest = total;
    QVERIFY(total > 100); // a page need not wait
    while (highlighter.isPending()) {
        visits = 0;
        QCoreApplication::processEvents();
        total += visits;
        longest = qMax(longest, visits);
    }
    QVERIFY2(longest < manyLines, qPrintable(QString::number(longest)));
    // A slice's last block is looked at again; no other is.
    QVERIFY2(total < document.blockCount() * 1.01, qPrintable(QString::number(total)));
}

void EdHighlighterTest::theSeenPageDoesNotWait()
{
    CodeDocument document(lines(20 * manyLines));
    CountingHighlighter highlighter(&document);
    QVERIFY(EdTextBlockData::of(document.begin()));
    const QTextBlock seen = document.findBlockByNumber(10 * manyLines);
    highlighter.highlightVisible(seen, 50);
    QVERIFY(EdTextBlockData::of(seen));
    QVERIFY(!compat::layoutFormats(document.findBlockByNumber(10 * manyLines + 49)).isEmpty());
    QVERIFY(highlighter.isPending());
    visits = 0;
    highlighter.highlightVisible(seen, 50);
    QCOMPARE(visits, 0);
}

void EdHighlighterTest::aPaintedPageIsColoured()
{
    EdCodeEdit edit;
    edit.resize(400, 300);
    edit.setLanguage(MelLanguage);
    edit.setText(lines(4 * manyLines));
    edit.verticalScrollBar()->setValue(3 * manyLines);
    QImage image(edit.size(), QImage::Format_RGB32);
    edit.render(&image);
    QVERIFY(edit.highlighter()->isPending());
    const QTextBlock seen = edit.document()->findBlockByNumber(3 * manyLines);
    QVERIFY(!compat::layoutFormats(seen).isEmpty());
    QVERIFY(compat::layoutFormats(edit.document()->findBlockByNumber(2 * manyLines)).isEmpty());
}

void EdHighlighterTest::aLoadedTextHasThePageOnly()
{
    EdCodeEdit edit;
    edit.resize(400, 300);
    edit.setLanguage(MelLanguage);
    edit.loadText("/*\n" + lines(manyLines), 100);
    const QTextBlock seen = edit.document()->findBlockByNumber(100);
    QCOMPARE(int(compat::layoutFormats(seen).size()), 1); // of a comment that begins above
    const QTextBlock far = edit.document()->findBlockByNumber(200);
    QVERIFY(!EdTextBlockData::of(far));
    edit.highlighter()->finish();
    QVERIFY(EdTextBlockData::of(far));
}

void EdHighlighterTest::editsBetweenSlicesLeaveWhatAFreshDocumentHas_data()
{
    QTest::addColumn<bool>("isMel");
    QTest::addColumn<QStringList>("pieces"); // the first is what the document consists of
    const QString many = lines(manyLines, "{ \"b\"; ] // c");
    row("mel", true,
        strings({"f(\"a\") /* b */ c;", "/*", "*/", "\"", "x", "\\\n", QString(), many}));
    row("python", false,
        strings({"f('a', \"\"\"b\"\"\") # c", "'''", "\"\"\"", "#", "\n", QString(), many}));
}

void EdHighlighterTest::editsBetweenSlicesLeaveWhatAFreshDocumentHas()
{
    QFETCH(bool, isMel);
    QFETCH(QStringList, pieces);
    if (isMel)
        compareAfterEdits<EdHighlighterMel>(pieces);
    else
        compareAfterEdits<EdHighlighterPython>(pieces);
}

void EdHighlighterTest::attachingAnewForgetsTheOtherLanguage()
{
    CodeDocument document(lines(manyLines, "# /* '''"));
    {
        EdHighlighterMel mel(&document);
        mel.finish();
    }
    EdHighlighterPython python(&document);
    python.finish();
    QVERIFY(summary(document) + formatSummary(document) ==
            freshSummary<EdHighlighterPython>(document.toPlainText()));
}

void EdHighlighterTest::aDeletedHighlighterLeavesNothingToBeDone()
{
    CodeDocument document(lines(manyLines));
    delete new EdHighlighterMel(&document);
    QCoreApplication::processEvents();
    QVERIFY(formatSummary(document).count(QLatin1Char('+')) == 0);
}

void EdHighlighterTest::suspensionStopsEverything()
{
    QTextDocument document;
    document.setPlainText(QString::fromLatin1("f(1);"));
    EdHighlighter::setSuspended(true);
    CountingHighlighter highlighter(&document);
    highlighter.rehighlight();
    EdHighlighter::setSuspended(false);
    QCOMPARE(visits, 0);
    QVERIFY(!EdTextBlockData::of(document.begin()));
    highlighter.rehighlight();
    QVERIFY(EdTextBlockData::of(document.begin()));
}

void EdHighlighterTest::suspensionKeepsColoursOfWhatIsEdited()
{
    CodeDocument document(QString::fromLatin1("f(1);"));
    EdHighlighterMel highlighter(&document);
    highlighter.finish();
    const QString before = formatSummary(document);
    EdHighlighter::setSuspended(true);
    QTextCursor cursor(document.begin());
    cursor.movePosition(QTextCursor::EndOfBlock);
    cursor.insertText(QLatin1String("2"));
    highlighter.finish();
    highlighter.rehighlight();
    EdHighlighter::setSuspended(false);
    QCOMPARE(formatSummary(document), before);
    highlighter.finish();
    QCOMPARE(summary(document) + formatSummary(document),
             freshSummary<EdHighlighterMel>(document.toPlainText()));
}

void EdHighlighterTest::hiddenWhiteSpaceIsDimmedWhileShown()
{
    const QColor dim = textFormat(EditorText::HiddenWhitespace).foreground;
    const auto dimmed = [&dim](const QTextDocument &document) {
        int count = 0;
        for (const QTextLayout::FormatRange &range : compat::layoutFormats(document.begin())) {
            if (range.format.foreground().color() == dim)
                count += range.length;
        }
        return count;
    };
    QTextDocument document;
    document.setPlainText(QString::fromLatin1("a \tb"));
    EdHighlighterMel highlighter(&document);
    highlighter.rehighlight();
    QCOMPARE(dimmed(document), 0);
    preferences().showTabsAndSpaces = true;
    highlighter.rehighlight();
    preferences().showTabsAndSpaces = false;
    QCOMPARE(dimmed(document), 2);
}

CORVANE_TEST_MAIN(EdHighlighterTest)
#include "tst_edhighlighter.moc"
