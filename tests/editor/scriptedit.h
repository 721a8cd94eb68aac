// SPDX-License-Identifier: MIT
#pragma once

#include "editor/edhighlighter.h"
#include "editor/editorlanguage.h"
#include "editor/linebreak.h"
#include "tests/support/caretnotation.h"

#include <QStringList>
#include <QTextDocument>

#include <memory>

// A document with the highlighter of its language, and a cursor as drawn.
struct ScriptEdit
{
    ScriptEdit(int language, const QString &drawing)
    {
        document.documentLayout(); // without one a document reports no changes
        cursor = setDrawing(&document, drawing);
        if (language == MelLanguage)
            highlighter = std::make_unique<EdHighlighterMel>(&document);
        if (language == PythonLanguage)
            highlighter = std::make_unique<EdHighlighterPython>(&document);
        if (highlighter)
            highlighter->rehighlight();
    }

    // What the edit makes of the drawing, or that it is not one step to undo.
    template <typename Edit>
    QString after(Edit edit)
    {
        const QString before = document.toPlainText();
        edit(cursor);
        const QString result = drawing(cursor);
        const bool isChanged = document.toPlainText() != before;
        if (isChanged != document.isUndoAvailable())
            return result + QString::fromLatin1(" (steps to undo without a change)");
        document.undo();
        if (document.toPlainText() != before)
            return result + QString::fromLatin1(" (not undone in one step)");
        return result;
    }

    QTextDocument document;
    QTextCursor cursor;
    std::unique_ptr<EdHighlighter> highlighter; // goes before the document
};

// From words such as "tabs no-smart"; the tab size is 4.
inline IndentStyle styleOf(const QString &words)
{
    const QStringList list = words.split(QLatin1Char(' '));
    IndentStyle style;
    style.replaceTabs = !list.contains(QLatin1String("tabs"));
    style.autoIndent = !list.contains(QLatin1String("no-auto"));
    style.smartIndent = !list.contains(QLatin1String("no-smart"));
    style.insertClosingBrace = !list.contains(QLatin1String("no-closing"));
    return style;
}

// The drawing after Return.
inline QString afterReturn(int language, const QString &drawing, const QString &words)
{
    const IndentStyle style = styleOf(words);
    return ScriptEdit(language, drawing).after([&](QTextCursor &cursor) {
        breakLine(cursor, language, style);
    });
}
