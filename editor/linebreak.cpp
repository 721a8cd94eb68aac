// SPDX-License-Identifier: MIT
#include "editor/linebreak.h"

#include "editor/editblock.h"
#include "editor/editorlanguage.h"
#include "editor/edtextblockdata.h"
#include "editor/melindent.h"
#include "editor/pythonindent.h"
#include "editor/textblocks.h"

namespace {

// A highlighter finds out the same when it sees the break; without one, nobody else would.
void trimData(const QTextBlock &block, int column)
{
    EdTextBlockData *data = EdTextBlockData::of(block);
    if (!data)
        return;
    const QString code = data->codeText(block);
    const QString before = block.text().left(column).trimmed();
    data->trimTo(column, before.isEmpty() || code.trimmed().startsWith(before) ? before : code);
}

void insertBreak(QTextCursor &cursor)
{
    EditBlock edit(cursor);
    cursor.removeSelectedText();
    trimData(cursor.block(), cursor.positionInBlock());
    cursor.insertText(QString(QLatin1Char('\n')));
    cursor.block().setUserData(new EdTextBlockData); // which the block owns from now on
}

MelNewLine newLine(const QTextBlock &line, int language, const IndentStyle &style)
{
    if (language == MelLanguage)
        return melNewLine(line, style);
    if (language == PythonLanguage)
        return {pythonIndentation(line, style), QString()};
    const QString copied = style.autoIndent ? indentationOf(line.previous()) : QString();
    return {style.rewritten(copied), QString()};
}

} // namespace

void breakLine(QTextCursor &cursor, int language, const IndentStyle &style)
{
    insertBreak(cursor);
    // Both lines have been scanned by now.
    const MelNewLine found = newLine(cursor.block(), language, style);
    EditBlock edit(cursor, EditBlock::JoinLastStep);
    const int position = cursor.position();
    cursor.insertText(found.closing);
    cursor.setPosition(position);
    cursor.insertText(found.indentation);
}
