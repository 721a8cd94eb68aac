// SPDX-License-Identifier: MIT
#include "analysis/melparser.h"
#include "editor/edcodeedit.h"
#include "editor/edhighlighter.h"
#include "editor/editorlanguage.h"
#include "editor/edtextblockdata.h"
#include "preferences/preferences.h"
#include "tests/support/testmain.h"

#include <QTextBlock>

#include <random>

namespace {

// What a hand on the keyboard may do, most of it more often than once.
const struct
{
    int key;
    int modifiers;
    const char *text;
} strokes[] = {
    {Qt::Key_Return, Qt::NoModifier, ""},
    {Qt::Key_Return, Qt::NoModifier, ""},
    {Qt::Key_Return, Qt::ShiftModifier, ""},
    {Qt::Key_Tab, Qt::NoModifier, ""},
    {Qt::Key_Backtab, Qt::ShiftModifier, ""},
    {Qt::Key_Backspace, Qt::NoModifier, ""},
    {Qt::Key_Backspace, Qt::ControlModifier, ""},
    {Qt::Key_Delete, Qt::NoModifier, ""},
    {Qt::Key_Home, Qt::NoModifier, ""},
    {Qt::Key_Home, Qt::ShiftModifier, ""},
    {Qt::Key_End, Qt::NoModifier, ""},
    {Qt::Key_Up, Qt::NoModifier, ""},
    {Qt::Key_Down, Qt::ShiftModifier, ""},
    {Qt::Key_Left, Qt::ShiftModifier, ""},
    {Qt::Key_Left, Qt::NoModifier, ""},
    {Qt::Key_Right, Qt::ControlModifier, ""},
    {Qt::Key_D, Qt::ControlModifier, ""},
    {Qt::Key_L, Qt::ControlModifier, ""},
    {Qt::Key_A, Qt::ControlModifier, ""},
    {Qt::Key_Z, Qt::ControlModifier, ""},
    {Qt::Key_BraceLeft, Qt::ShiftModifier, "{"},
    {Qt::Key_BraceRight, Qt::ShiftModifier, "}"},
    {Qt::Key_ParenLeft, Qt::ShiftModifier, "("},
    {Qt::Key_ParenRight, Qt::ShiftModifier, ")"},
    {Qt::Key_BracketLeft, Qt::NoModifier, "["},
    {Qt::Key_QuoteDbl, Qt::ShiftModifier, "\""},
    {Qt::Key_Apostrophe, Qt::NoModifier, "'"},
    {Qt::Key_Slash, Qt::NoModifier, "/"},
    {Qt::Key_Asterisk, Qt::ShiftModifier, "*"},
    {Qt::Key_NumberSign, Qt::NoModifier, "#"},
    {Qt::Key_Colon, Qt::ShiftModifier, ":"},
    {Qt::Key_Semicolon, Qt::NoModifier, ";"},
    {Qt::Key_Backslash, Qt::NoModifier, "\\"},
    {Qt::Key_Space, Qt::NoModifier, " "},
    {Qt::Key_A, Qt::NoModifier, "if"},
    {Qt::Key_A, Qt::NoModifier, "$x"},
    {Qt::Key_A, Qt::NoModifier, "\xf0\x9f\x98\x80"},
};

const char melText[] = "proc f(int $a)\n{\n\tif ($a) {\n\t\tprint(\"a\\n\"); /* b\n c */\n\t}\n}\n";
const char pythonText[] =
    "def f(a,\n      b):\n    '''Doc\n    end'''\n    return [a, # b\n            b]\n";

void press(EdCodeEdit &edit, size_t stroke)
{
    QKeyEvent event(QEvent::KeyPress, strokes[stroke].key,
                    Qt::KeyboardModifiers(strokes[stroke].modifiers),
                    QString::fromUtf8(strokes[stroke].text));
    QCoreApplication::sendEvent(&edit, &event);
}

bool areInside(const DiagnosticMarks &marks, const EdCodeEdit &edit)
{
    const int last = edit.document()->characterCount() - 1;
    for (const EdDiagnosticMark &mark : marks.all()) {
        const QTextBlock block = edit.document()->findBlock(mark.start);
        if (mark.start < 0 || mark.end < mark.start || mark.end > last ||
            block.blockNumber() != mark.line)
            return false;
    }
    return true;
}

// The first page, with nothing marked on it.
QImage pictureOf(EdCodeEdit &edit)
{
    edit.setCursorSelection(0, 0);
    edit.scrollToTop();
    // Qt shows it for lines that have become shorter, too.
    edit.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QCoreApplication::processEvents();
    QImage image(edit.viewport()->size(), QImage::Format_RGB32);
    edit.viewport()->render(&image);
    // The current line's mark ends by the longest line there ever was.
    return image.copy(0, 0, image.width() - 8, image.height());
}

// Empty when both documents' blocks are known alike.
QString difference(const EdCodeEdit &a, const EdCodeEdit &b)
{
    QTextBlock left = a.document()->begin();
    QTextBlock right = b.document()->begin();
    for (; left.isValid() && right.isValid(); left = left.next(), right = right.next()) {
        const EdTextBlockData *one = EdTextBlockData::of(left);
        const EdTextBlockData *other = EdTextBlockData::of(right);
        if (left.userState() != right.userState() || !one || !other ||
            one->codeText(left) != other->codeText(right) || one->brackets() != other->brackets() ||
            one->inComment() != other->inComment())
            return QString("line %1: %2").arg(left.blockNumber()).arg(left.text());
    }
    return QString();
}

} // namespace

// Whatever is typed: nothing crashes, marks stay in the text, what is known of the lines is what a
// fresh document knows, and undoing everything gives the first text back.
class TestRandomKeys : public QObject
{
    Q_OBJECT

private slots:
    void init() { preferences() = Preferences(); }
    void anythingTypedCanBeUndone_data();
    void anythingTypedCanBeUndone();
};

void TestRandomKeys::anythingTypedCanBeUndone_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("tabs");

    QTest::newRow("mel") << int(MelLanguage) << QString(melText) << false;
    QTest::newRow("mel-tabs") << int(MelLanguage) << QString(melText) << true;
    QTest::newRow("python") << int(PythonLanguage) << QString(pythonText) << false;
    QTest::newRow("python-tabs") << int(PythonLanguage) << QString(pythonText) << true;
    QTest::newRow("text") << int(TextLanguage) << QString(melText) << false;
    // Wrapped, in a narrow view.
    const QString longLines =
        QString(pythonText).replace(QLatin1Char('\n'), QLatin1String(" more "));
    QTest::newRow("wrapped") << int(PythonLanguage) << longLines << false;
}

void TestRandomKeys::anythingTypedCanBeUndone()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    QFETCH(bool, tabs);
    std::mt19937 dice(unsigned(language) * 2 + tabs);
    preferences().wordWrapEnabled = text.count(QLatin1Char('\n')) == 0;
    for (int round = 0; round < 12; ++round) {
        EdCodeEdit edit;
        edit.resize(400, 200);
        edit.show();
        edit.setLanguage(language);
        edit.setReplaceTabsWithSpaces(!tabs);
        edit.setText(text);
        MelParser parser;
        for (int i = 0; i < text.size(); i += 7)
            parser.addWarning("w", i, i + 5);
        edit.setDiagnostics(parser);
        for (int i = 0; i < 150; ++i) {
            press(edit, dice() % (sizeof strokes / sizeof *strokes));
            QVERIFY(areInside(edit.warnings(), edit));
            if (i % 8 == 0)
                QCoreApplication::processEvents(); // paints
        }
        edit.insertPlainText("."); // so that nothing undone is left to be done again
        const QString typed = edit.text();
        EdCodeEdit fresh;
        fresh.resize(edit.size());
        fresh.show();
        fresh.setLanguage(language);
        fresh.setText(typed);
        if (language != TextLanguage) {
            edit.highlighter()->finish();
            QCOMPARE(difference(edit, fresh), QString());
        }
        edit.clearDiagnostics();
        QCOMPARE(pictureOf(edit), pictureOf(fresh));
        while (edit.document()->isUndoAvailable())
            edit.undo();
        QCOMPARE(edit.text(), text);
        while (edit.document()->isRedoAvailable())
            edit.redo();
        QCOMPARE(edit.text(), typed);
    }
}

CORVANE_TEST_MAIN(TestRandomKeys)
#include "tst_randomkeys.moc"
