// SPDX-License-Identifier: MIT
#include "editor/edcodeedit.h"

#include "analysis/baseparser.h"
#include "compat/icon.h"
#include "compat/text.h"
#include "editor/documentlayout.h"
#include "editor/edcodeeditlinenumbers.h"
#include "editor/edcompleter.h"
#include "editor/edhighlighter.h"
#include "editor/editorlanguage.h"
#include "editor/findreplace.h"
#include "editor/lineedits.h"
#include "editor/melcompletion.h"
#include "editor/pythoncompletion.h"
#include "preferences/preferences.h"
#include "preferences/textcolors.h"
#include "preferences/textformats.h"
#include "resources/resources.h"

#include <QFocusEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextOption>

#include <algorithm>

namespace {

bool overwriteFlag = false; // for all editors

std::unique_ptr<EdHighlighter> highlighterFor(int language, QTextDocument *document)
{
    if (language == PythonLanguage)
        return std::make_unique<EdHighlighterPython>(document);
    if (language == MelLanguage)
        return std::make_unique<EdHighlighterMel>(document);
    return nullptr;
}

// Null where there is nothing to complete.
std::unique_ptr<CompletionSource> completionSourceFor(int language)
{
    if (language == PythonLanguage)
        return std::make_unique<PythonCompletion>();
    if (language == MelLanguage)
        return std::make_unique<MelCompletion>();
    return nullptr;
}

// Read once for all editors.
struct DiagnosticImages
{
    QImage error = compat::image(QLatin1String(":/icons/error.png"));
    QImage warning = compat::image(QLatin1String(":/icons/warning.png"));
    QImage info = compat::image(QLatin1String(":/icons/info.png"));
};

const DiagnosticImages &diagnosticImages()
{
    static const DiagnosticImages images;
    return images;
}

// Owned by the editor.
QTextDocument *newDocument(QPlainTextEdit *editor)
{
    auto *document = new QTextDocument(editor);
    document->setDocumentLayout(new DocumentLayout(document));
    document->setDefaultFont(editor->font());
    return document;
}

// Inside the document, and not between the halves of a character, which typing would part.
int nearestPosition(const QTextDocument &document, int position)
{
    const int inside = std::clamp(position, 0, document.characterCount() - 1);
    const bool parts = inside > 0 && document.characterAt(inside).isLowSurrogate() &&
                       document.characterAt(inside - 1).isHighSurrogate();
    return parts ? inside - 1 : inside;
}

// In the end shows the lines that were in view before, for placing the caret scrolls to it, and
// edits above may change their number.
class SameView
{
public:
    explicit SameView(QPlainTextEdit *edit)
        : m_vertical(edit->verticalScrollBar()), m_horizontal(edit->horizontalScrollBar()),
          m_top(edit->cursorForPosition(QPoint(0, 0))),
          m_offset(m_vertical->value() - m_top.block().firstLineNumber()),
          m_left(m_horizontal->value())
    {
        m_top.setKeepPositionOnInsert(true);
    }
    ~SameView()
    {
        m_vertical->setValue(m_top.block().firstLineNumber() + m_offset);
        m_horizontal->setValue(m_left);
    }

    SameView(const SameView &) = delete;
    SameView &operator=(const SameView &) = delete;

private:
    QScrollBar *m_vertical;
    QScrollBar *m_horizontal;
    QTextCursor m_top;
    int m_offset; // of the view in that line, when it is wrapped
    int m_left;
};

} // namespace

EdCodeEdit::EdCodeEdit(QWidget *parent)
    : QPlainTextEdit(parent), m_lineNumbers(new EdCodeEditLineNumbers(this)),
      m_completer(new EdCompleter(this))
{
    initResources();
    setDocument(newDocument(this));
    m_errorImage = diagnosticImages().error;
    m_warningImage = diagnosticImages().warning;
    m_infoImage = diagnosticImages().info;
    setFocusPolicy(Qt::WheelFocus);
    setOverwriteMode(overwriteFlag);
    updateFontAndColors();

    connect(document(), SIGNAL(blockCountChanged(int)), SLOT(updateLineNumberWidth()));
    connect(this, SIGNAL(updateRequest(QRect, int)), SLOT(updateLineNumbers(QRect, int)));
    connect(this, SIGNAL(cursorPositionChanged()), SLOT(updateExtraSelections()));
    connect(this, SIGNAL(selectionChanged()), SLOT(updateExtraSelections()));
    connect(verticalScrollBar(), SIGNAL(valueChanged(int)), SLOT(updateExtraSelections()));
    connect(m_completer, SIGNAL(activated(QString, int)), SLOT(completeCode(QString, int)));
    connect(m_completer, SIGNAL(commandChosen(QString)), SLOT(helpOnCommand(QString)));
    connect(m_completer, SIGNAL(lettersSwitchedOff()), SIGNAL(completionSlow()));
    connect(document(), SIGNAL(contentsChange(int, int, int)),
            SLOT(onContentsChange(int, int, int)));
    updateLineNumberWidth();
    updateExtraSelections();
}

// The highlighter takes its colours off the document, which nobody shall hear of any more. The
// popup must not look at what is left of the editor.
EdCodeEdit::~EdCodeEdit()
{
    m_completer->hide();
    document()->blockSignals(true);
}

void EdCodeEdit::setLanguage(int language)
{
    if (language == m_language)
        return;
    m_language = language;
    m_highlighter.reset(); // takes its colours off the document
    clearBlockData();
    m_highlighter = highlighterFor(language, document());
    m_completer->setSource(completionSourceFor(language));
}

// A selection keeps the characters that toPlainText() replaces, and has another one between lines,
// which no line can have in it.
QString EdCodeEdit::text() const
{
    QTextCursor whole(document());
    whole.setPosition(document()->characterCount() - 1, QTextCursor::KeepAnchor);
    return whole.selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

// Nobody would keep it up to date.
void EdCodeEdit::clearBlockData()
{
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        block.setUserData(nullptr);
        block.setUserState(-1);
    }
}

void EdCodeEdit::setText(const QString &text)
{
    clearDiagnostics(); // rather than moving and dropping them one by one
    m_longLineSaid = false;
    makeRoomForLines(int(text.count(QLatin1Char('\n'))) + 1);
    setPlainText(text);
}

void EdCodeEdit::loadText(const QString &text, int line)
{
    if (m_highlighter)
        m_highlighter->waitForTurn();
    setText(text);
    highlightPage(document()->findBlockByNumber(line));
}

int EdCodeEdit::currentLine() const
{
    return textCursor().blockNumber() + 1;
}

void EdCodeEdit::goToLine(int line)
{
    const QTextBlock block = document()->findBlockByNumber(std::max(line - 1, 0));
    if (block.isValid())
        setTextCursor(QTextCursor(block));
}

void EdCodeEdit::setCursorSelection(int position, int anchor)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(nearestPosition(*document(), anchor));
    cursor.setPosition(nearestPosition(*document(), position), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    centerCursor();
}

void EdCodeEdit::setCursorPosition(int position)
{
    setCursorSelection(position, position);
}

void EdCodeEdit::clearSelection()
{
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
}

void EdCodeEdit::scrollToTop()
{
    verticalScrollBar()->setValue(verticalScrollBar()->minimum());
}

void EdCodeEdit::setModified(bool modified)
{
    document()->setModified(modified);
}

void EdCodeEdit::clearText()
{
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
}

void EdCodeEdit::updateFontAndColors()
{
    setFont(editorFont());
    setTextColors(this, textFormat(EditorText::Plain), textFormat(EditorText::Selected));
    updateHiddenCharacters();
    updateLineNumberWidth();
    m_lineNumbers->update();
    updateExtraSelections();
}

// MEL and Python may have values of their own; everything else follows the general ones.
void EdCodeEdit::updateTabsAndSpaces()
{
    const Preferences &chosen = preferences();
    if (m_language == MelLanguage && !chosen.melUseDefaults) {
        m_tabSize = chosen.melTabSize;
        m_replaceTabs = chosen.melInsertSpaces;
        m_autoIndent = chosen.melAutoIndent;
    } else if (m_language == PythonLanguage && !chosen.pyUseDefaults) {
        m_tabSize = chosen.pyTabSize;
        m_replaceTabs = chosen.pyInsertSpaces;
        m_autoIndent = chosen.pyAutoIndent;
    } else {
        m_tabSize = chosen.tabSize;
        m_replaceTabs = chosen.insertSpaces;
        m_autoIndent = chosen.autoIndent;
    }
    applyTextOption();
}

// The marks' colours are the highlighter's work.
void EdCodeEdit::updateHiddenCharacters()
{
    applyTextOption();
    if (!m_highlighter)
        return;
    m_highlighter->readFormats();
    m_highlighter->highlightAgain();
}

// Deliberate: between words only, so that a name is never torn; a longer one is scrolled to.
void EdCodeEdit::applyTextOption()
{
    const bool wraps = preferences().wordWrapEnabled;
    setWordWrapMode(QTextOption::WordWrap);
    setLineWrapMode(wraps ? WidgetWidth : NoWrap);
    QTextOption option = document()->defaultTextOption();
    QTextOption::Flags flags;
    if (preferences().showTabsAndSpaces)
        flags |= QTextOption::ShowTabsAndSpaces;
    if (preferences().showEndOfLine)
        flags |= QTextOption::ShowLineAndParagraphSeparators;
    option.setFlags(flags);
    option.setWrapMode(wraps ? QTextOption::WordWrap : QTextOption::NoWrap);
    compat::setTabStop(option, m_tabSize * compat::blankWidth(font()));
    document()->setDefaultTextOption(option);
}

void EdCodeEdit::setTabSize(int tabSize)
{
    m_tabSize = std::max(tabSize, 1);
    applyTextOption();
}

void EdCodeEdit::setReplaceTabsWithSpaces(bool replaceTabs)
{
    m_replaceTabs = replaceTabs;
}

void EdCodeEdit::setAutoIndent(bool autoIndent)
{
    m_autoIndent = autoIndent;
}

IndentStyle EdCodeEdit::indentStyle() const
{
    const Preferences &chosen = preferences();
    IndentStyle style;
    style.tabSize = std::max(m_tabSize, 1);
    style.replaceTabs = m_replaceTabs;
    style.autoIndent = m_autoIndent;
    style.smartIndent =
        m_language == MelLanguage ? chosen.melSmartIndent : chosen.pythonSmartIndent;
    style.insertClosingBrace = chosen.melInsertClosingCurly;
    return style;
}

void EdCodeEdit::home(bool shiftKey, bool ctrlKey)
{
    QTextCursor cursor = textCursor();
    // Of a wrapped line first to the start of the caret's row.
    QTextCursor row = cursor;
    row.movePosition(QTextCursor::StartOfLine);
    int target = homePosition(cursor);
    if (ctrlKey)
        target = 0;
    else if (!row.atBlockStart() && row.position() != cursor.position())
        target = row.position();
    cursor.setPosition(target, shiftKey ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
    setTextCursor(cursor);
}

template <typename Edit>
void EdCodeEdit::editAtCaret(Edit edit)
{
    if (isReadOnly())
        return;
    QTextCursor cursor = textCursor();
    edit(cursor);
    setTextCursor(cursor);
}

void EdCodeEdit::duplicateText()
{
    editAtCaret([](QTextCursor &cursor) { ::duplicateText(cursor); });
}

void EdCodeEdit::deleteLines()
{
    editAtCaret([](QTextCursor &cursor) { ::deleteLines(cursor); });
}

void EdCodeEdit::increaseIndent()
{
    editAtCaret([this](QTextCursor &cursor) { ::increaseIndent(cursor, indentStyle()); });
}

void EdCodeEdit::decreaseIndent()
{
    editAtCaret([this](QTextCursor &cursor) { ::decreaseIndent(cursor, indentStyle()); });
}

void EdCodeEdit::convertTabsToSpaces()
{
    const SameView view(this);
    editAtCaret([this](QTextCursor &cursor) { ::convertTabsToSpaces(cursor, indentStyle()); });
}

void EdCodeEdit::findReplace(const QString &findText, const QString &replaceText, int options)
{
    emit findReplaceMessageChanged(QString());
    const FindRequest request = {findText, replaceText, options};
    if (isReadOnly() && request.edits())
        return;
    FindOutcome outcome;
    QTextCursor cursor = textCursor();
    {
        const SameView view(this);
        outcome = ::findReplace(cursor, request, searchedText());
        setTextCursor(cursor);
    }
    if (outcome.selectsMatch)
        showCaret();
    for (const QString &message : outcome.messages)
        emit findReplaceMessageChanged(message);
}

// A caret out of sight comes with the lines around it; in sight it stays where it is.
void EdCodeEdit::showCaret()
{
    const QRect caret = cursorRect();
    if (caret.top() < 0 || caret.bottom() > viewport()->height())
        centerCursor();
    ensureCursorVisible();
}

bool EdCodeEdit::isOverwriting()
{
    return overwriteFlag;
}

void EdCodeEdit::toggleOverwriteMode()
{
    overwriteFlag = !overwriteFlag;
    setOverwriteMode(overwriteFlag);
    emit overwriteModeChanged();
}

void EdCodeEdit::updateCompleter()
{
    m_completer->updateCompletions();
}

void EdCodeEdit::completeCode(const QString &text, int prefixLength)
{
    editAtCaret([&text, prefixLength](QTextCursor &cursor) {
        cursor.clearSelection();
        cursor.setPosition(std::max(cursor.position() - prefixLength, 0), QTextCursor::KeepAnchor);
        cursor.insertText(text);
    });
}

void EdCodeEdit::helpOnCommand(const QString &name)
{
    const bool isWanted = m_language == PythonLanguage ? preferences().pythonAutoCompleteToQuickHelp
                                                       : preferences().melAutoCompleteToQuickHelp;
    if (isWanted)
        emit quickHelpSelected(name, true);
}

void EdCodeEdit::moveToOtherView()
{
    emit moveToOtherViewSelected();
}

void EdCodeEdit::quickHelp()
{
    QString text = textCursor().selectedText();
    emit quickHelpSelected(text.replace(QChar::ParagraphSeparator, QLatin1Char('\n')), false);
}

void EdCodeEdit::commandDocumentation()
{
    emit commandDocumentationSelected(textCursor().selectedText().trimmed(),
                                      m_language == PythonLanguage);
}

void EdCodeEdit::focusInEvent(QFocusEvent *event)
{
    QPlainTextEdit::focusInEvent(event);
    emit gainedFocus();
}
