// SPDX-License-Identifier: MIT
#include "preferences/formatpreview.h"

#include "preferences/textcolors.h"

#include <QApplication>
#include <QFontMetrics>
#include <QTextCursor>

namespace {

typedef EditorText E;
typedef OutputText O;

struct EditorPiece
{
    E category;
    const char *text;
};

struct OutputPiece
{
    O category;
    const char *text;
};

// clang-format off
// The first line has the characters that a bad font does not tell apart. A piece of the current line
// has no text: it is the ground of the line that it stands in.
const EditorPiece editorSample[] = {
    {E::Plain, ">ij = I:oO(0xB81l);\n"},
    {E::MelComments, "// keys every step of the range\n"},
    {E::MelKeywords, "global proc int"}, {E::Plain, " bake"}, {E::BraceMatching, "("},
    {E::MelKeywords, "string"}, {E::Plain, " $node, "}, {E::MelKeywords, "int"}, {E::Plain, " "},
    {E::MatchingSelection, "$step"}, {E::BraceMatching, ")"}, {E::Plain, " {\n"},
    {E::CurrentLine, ""}, {E::HiddenWhitespace, "\xc2\xb7\xc2\xb7\xc2\xb7\xc2\xb7"},
    {E::MelCommands, "setKeyframe"}, {E::Plain, " -time ("}, {E::Selected, "$step"},
    {E::Plain, " * "}, {E::MelNumbers, "24.0"}, {E::Plain, ") "}, {E::MelStrings, "\"pCube1.tx\""},
    {E::Plain, ";\n"},
    {E::Plain, "}\n"},
    {E::PythonDecorators, "@undoable"}, {E::Plain, "  "}, {E::PythonComments, "# one step to undo\n"},
    {E::PythonKeywords, "def"}, {E::Plain, " bake(node, step="}, {E::PythonNumbers, "2"},
    {E::Plain, "):\n"},
    {E::Plain, "    "}, {E::PythonDocStrings, "\"\"\"Keys every step of the range.\"\"\"\n"},
    {E::Plain, "    cmds."}, {E::PythonMelCommands, "setKeyframe"}, {E::Plain, "(node, at="},
    {E::PythonStrings, "'tx'"}, {E::Plain, ")"},
};

const OutputPiece outputSample[] = {
    {O::Plain, "bake "}, {O::Selected, "\"pCube1\""}, {O::Plain, " 2;\n"},
    {O::Results, "// Result: 24 //\n"},
    {O::Warnings, "// Warning: Nothing is selected. //\n"},
    {O::Errors, "// Error: No object matches name: pCube2 //\n"},
    {O::Plain, "select "}, {O::MatchingSelection, "\"pCube1\""}, {O::Plain, ";\n"},
    {O::Plain, ">ij = I:oO(0xB81l);"},
};
// clang-format on

// What the editor has beside its text: the number of the line, and the bar for its errors.
void insertGutter(QTextCursor &cursor, const TextFormats &formats)
{
    const QString number = QString::fromLatin1("%1 ").arg(cursor.blockNumber() + 1, 3);
    cursor.insertText(number, formats[E::LineNumbers].charFormat());
    cursor.insertText(QLatin1String("  "), formats[E::ErrorBar].charFormat());
    cursor.insertText(QLatin1String(" "), QTextCharFormat());
}

void insertPiece(QTextCursor &cursor, const TextFormat &format, const char *text)
{
    cursor.insertText(QString::fromUtf8(text), format.charFormat());
    if (*text || !format.background.isValid())
        return;
    QTextBlockFormat line;
    line.setBackground(format.background);
    cursor.setBlockFormat(line);
}

} // namespace

FormatPreview::FormatPreview(QWidget *parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setLineWrapMode(NoWrap);
    setTextInteractionFlags(Qt::NoTextInteraction);
    setFocusPolicy(Qt::NoFocus); // nothing to do here for the keyboard
}

// Enough for the sample in a font of the usual size; a larger one is scrolled.
QSize FormatPreview::sizeHint() const
{
    const QFontMetrics metrics((QApplication::font()));
    return QSize(40 * metrics.averageCharWidth(), 10 * metrics.lineSpacing());
}

void FormatPreview::showEditor(const TextFormats &given, const QFont &font)
{
    const TextFormats formats = prepared(given, textIndex(E::Plain), font);
    QTextCursor cursor(document());
    for (const EditorPiece &piece : editorSample) {
        if (cursor.atBlockStart()) {
            cursor.setBlockFormat(QTextBlockFormat()); // that of the line above came along
            insertGutter(cursor, formats);
        }
        insertPiece(cursor, formats[piece.category], piece.text);
    }
    moveCursor(QTextCursor::Start); // which scrolls there
}

void FormatPreview::showOutput(const TextFormats &given, const QFont &font)
{
    const TextFormats formats = prepared(given, textIndex(O::Plain), font);
    QTextCursor cursor(document());
    for (const OutputPiece &piece : outputSample)
        insertPiece(cursor, formats[piece.category], piece.text);
    moveCursor(QTextCursor::Start);
}

// Empties the text, and returns the formats for pieces of it.
TextFormats FormatPreview::prepared(TextFormats formats, int plainText, const QFont &font)
{
    TextFormat &plain = formats[plainText];
    clear();
    setTextColors(this, plain, plain);
    setFont(font);
    // It is the widget's ground now; pieces of plain text would cover that of the current line.
    plain.background = QColor();
    return formats;
}
