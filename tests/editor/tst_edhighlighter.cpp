// SPDX-License-Identifier: MIT
#include "editor/edhighlighter.h"
#include "editor/edtextblockdata.h"
#include "preferences/preferences.h"
#include "tests/support/layoutformats.h"
#include "tests/support/testmain.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

class EdHighlighterTest : public QObject
{
    Q_OBJECT

private slots:
    void blocksHoldWhatIsCode();
    void laterBlocksAreScannedOnlyWhenTheStateChanges();
    void anyEditLeavesTheDataOfAFreshDocument();
    void suspensionStopsEverything();
    void hiddenWhiteSpaceIsDimmedWhileShown();
};

namespace {

// Counts the blocks it is asked for.
class CountingHighlighter : public EdHighlighterMel
{
public:
    using EdHighlighterMel::EdHighlighterMel;

    int visits = 0;

protected:
    void highlightBlock(const QString &text) override
    {
        ++visits;
        EdHighlighterMel::highlightBlock(text);
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
        text += data->codeText(block) + QLatin1String(data->inComment ? "*" : "");
        for (const Bracket &bracket : data->brackets)
            text += bracket.character + QString::number(bracket.column);
        text += QLatin1Char('|');
    }
    return text;
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
    highlighter.visits = 0;
    QTextCursor cursor(document.findBlockByNumber(500));
    cursor.insertText(QString::fromLatin1("b"));
    QCOMPARE(highlighter.visits, 1);
    highlighter.visits = 0;
    cursor.insertText(QString::fromLatin1("/*"));
    QCOMPARE(highlighter.visits, 501);
}

void EdHighlighterTest::anyEditLeavesTheDataOfAFreshDocument()
{
    QTextDocument edited;
    edited.documentLayout();
    EdHighlighterPython highlighter(&edited);
    edited.setPlainText(QString::fromLatin1("a = [1]\n'''\n(x)\n'''\n{y} # z\n"));
    const char *const pieces[] = {"'''", "\n", "\\\n", "(", "]", "\"", "#", "x y"};
    uint seed = 1;
    const auto next = [&seed](int range) {
        seed = seed * 1103515245u + 12345u;
        return int((seed >> 16) % uint(range));
    };
    for (int round = 0; round < 300; ++round) {
        QTextCursor cursor(&edited);
        const int last = edited.characterCount() - 1;
        cursor.setPosition(next(last + 1));
        cursor.setPosition(qMin(last, cursor.position() + next(4)), QTextCursor::KeepAnchor);
        cursor.insertText(QString::fromLatin1(pieces[next(8)]));
        QTextDocument fresh;
        fresh.setPlainText(edited.toPlainText());
        EdHighlighterPython again(&fresh);
        again.rehighlight();
        QCOMPARE(summary(edited), summary(fresh));
    }
}

void EdHighlighterTest::suspensionStopsEverything()
{
    QTextDocument document;
    document.setPlainText(QString::fromLatin1("f(1);"));
    CountingHighlighter highlighter(&document);
    EdHighlighter::setSuspended(true);
    highlighter.rehighlight();
    EdHighlighter::setSuspended(false);
    QVERIFY(highlighter.visits > 0);
    QVERIFY(!EdTextBlockData::of(document.begin()));
    highlighter.rehighlight();
    QVERIFY(EdTextBlockData::of(document.begin()));
}

void EdHighlighterTest::hiddenWhiteSpaceIsDimmedWhileShown()
{
    const QColor dim = textFormat(EditorText::HiddenWhitespace).foreground;
    const auto dimmed = [&dim](const QTextDocument &document) {
        int count = 0;
        for (const QTextLayout::FormatRange &range : layoutFormats(document.begin())) {
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
