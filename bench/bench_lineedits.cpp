// SPDX-License-Identifier: MIT
// The edits of whole documents in the editor for MEL, against the same edits by a plain text edit
// in one step to undo.
#include "bench/measure.h"
#include "editor/edcodeedit.h"
#include "editor/editblock.h"
#include "editor/editorlanguage.h"
#include "editor/findreplace.h"
#include "editor/lineedits.h"

#include <QApplication>
#include <QTextBlock>

#include <functional>

namespace {

const int rounds = 5;
const double maximumRatio = 3.0;
const IndentStyle style;

typedef std::function<void(QTextCursor &)> Edit;

double editTime(QPlainTextEdit &edit, const QString &text, const Edit &perform)
{
    edit.show();
    double best = 1e9;
    for (int i = 0; i < rounds; ++i) {
        edit.setPlainText(text);
        QApplication::processEvents();
        QTextCursor cursor = edit.textCursor();
        cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
        best = std::min(best, bestTime(1, [&] { perform(cursor); }));
    }
    return best;
}

void fillTabs(QTextCursor &cursor)
{
    EditBlock step(cursor);
    QTextCursor edit(cursor.document());
    for (QTextBlock block = cursor.document()->begin(); block.isValid(); block = block.next()) {
        for (int tab; (tab = int(block.text().indexOf(QLatin1Char('\t')))) >= 0;) {
            edit.setPosition(block.position() + tab);
            edit.deleteChar();
            edit.insertText(QString(style.nextTabStop(tab) - tab, QLatin1Char(' ')));
        }
    }
}

void insertUnits(QTextCursor &cursor)
{
    EditBlock step(cursor);
    QTextCursor edit(cursor.document());
    for (QTextBlock block = cursor.document()->begin(); block.isValid(); block = block.next()) {
        edit.setPosition(block.position());
        edit.insertText(style.unit());
    }
}

void replaceText(QTextCursor &cursor)
{
    QString text = cursor.document()->toPlainText();
    text.replace(QString::fromLatin1("foo"), QString::fromLatin1("bar2"));
    cursor.select(QTextCursor::Document);
    cursor.insertText(text);
}

bool compare(const char *what, const QString &text, const Edit &ours, const Edit &plain)
{
    EdCodeEdit editor;
    editor.setLanguage(MelLanguage);
    QPlainTextEdit plainEdit;
    const double ratio = editTime(editor, text, ours) / editTime(plainEdit, text, plain);
    return isAtMost(what, ratio, maximumRatio);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const Edit convert = [](QTextCursor &cursor) { convertTabsToSpaces(cursor, style); };
    const Edit indent = [](QTextCursor &cursor) { increaseIndent(cursor, style); };
    const FindRequest request = {QString::fromLatin1("foo"), QString::fromLatin1("bar2"),
                                 FindRequest::ReplaceAll};
    const Edit replaceAll = [&request](QTextCursor &cursor) { findReplace(cursor, request); };
    const QString tabs = QString::fromLatin1("a\tfoo(b);\n").repeated(100000);
    const QString lines = QString::fromLatin1("  foo(b);\n").repeated(10000);
    bool ok = compare("100,000 tabs to spaces, times a plain edit", tabs, convert, fillTabs);
    ok = compare("indenting 10,000 lines, times a plain edit", lines, indent, insertUnits) && ok;
    const QString calls = QString::fromLatin1("  foo(b);\n").repeated(100000);
    ok = compare("100,000 matches replaced, times a text replaced at once", calls, replaceAll,
                 replaceText) &&
         ok;
    return ok ? 0 : 1;
}
