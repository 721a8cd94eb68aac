// SPDX-License-Identifier: MIT
#pragma once

#include "editor/diagnosticmarks.h"
#include "editor/extraselections.h"
#include "editor/findrequest.h"
#include "editor/indentstyle.h"

#include <QImage>
#include <QPlainTextEdit>

#include <memory>
#include <vector>

class BaseParser;
class EdCodeEditLineNumbers;
class EdCompleter;
class EdHighlighter;

// The text widget of every document: plain text with the keys, indentation, marks and gutter that
// scripts want. Owned by its code view, which tells it the language and what the parsers found.
// Here is what needs the widget; the work on the text is done by the units beside it. Knows no
// file. Positions are 0-based UTF-16 units of the document, whose lines are one unit apart.
class EdCodeEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit EdCodeEdit(QWidget *parent = nullptr);
    ~EdCodeEdit() override;

    // An EditorLanguage; 0 before it is set. A change replaces the highlighter.
    int language() const { return m_language; }
    void setLanguage(int language);
    // Null for plain text.
    EdHighlighter *highlighter() const { return m_highlighter.get(); }
    EdCompleter *completer() const { return m_completer; }

    int tabSize() const { return m_tabSize; } // columns
    bool replacesTabsWithSpaces() const { return m_replaceTabs; }
    bool isAutoIndenting() const { return m_autoIndent; }

    // The lines joined by "\n", with every other character as it stands: toPlainText() would turn
    // no-break spaces into spaces.
    QString text() const;
    // Replaces the document; cannot be undone.
    void setText(const QString &text);
    // The same for a text that is shown later: of its colours only those of the page that begins
    // with the line, counted from 0, come at once.
    void loadText(const QString &text, int line);

    // Counted from 1.
    int currentLine() const;
    // Puts the caret at the start of a line, counted from 1; nothing beyond the last.
    void goToLine(int line);
    // Both bring the caret to the middle of the view; positions outside become the nearest inside.
    void setCursorSelection(int position, int anchor);
    void setCursorPosition(int position);
    void clearSelection();
    void scrollToTop();

    // Shows what a parser of the text, as it is now, has found.
    void setDiagnostics(const BaseParser &parser);
    // The same in parts, for errors that come from elsewhere or later.
    void setErrors(const DiagnosticList &errors);
    void setWarningsAndNotes(const BaseParser &parser);
    void clearDiagnostics();
    // Messages by 0-based line.
    const QMap<int, QString> &errorLines() const { return m_errors.lines(); }
    const QMap<int, QString> &warningLines() const { return m_warnings.lines(); }
    const QMap<int, QString> &infoLines() const { return m_infos.lines(); }
    const DiagnosticMarks &errors() const { return m_errors; }
    const DiagnosticMarks &warnings() const { return m_warnings; }
    const DiagnosticMarks &infos() const { return m_infos; }

    // Marks the matches of a search in what is in view, until the find text is empty.
    void markMatches(const FindRequest &request);
    // Of the whole text.
    int matchCount(const FindRequest &request);

    // One flag for all editors: each applies it when it is told, with setOverwriteMode().
    static bool isOverwriting();

    // For the gutter: its width in pixels, and what it shows.
    int lineNumberWidth() const;
    void paintLineNumbers(QWidget *gutter, const QPaintEvent &event);

signals:
    void gainedFocus(bool multiBlockOnly = false);
    // The flag for all editors has changed.
    void overwriteModeChanged();
    void findReplaceMessageChanged(const QString &message);
    void moveToOtherViewSelected();
    void executeSelected();
    void quickHelpSelected(const QString &text, bool ignoreWhenHidden);
    // Once for each local file that was dropped; the path is absolute.
    void fileDropped(const QString &path);
    void previousTabSelected();
    void nextTabSelected();
    // For whoever can open Maya's documentation, the page of a command.
    void commandDocumentationSelected(const QString &command, bool python);
    // Completions come only when asked for, because they take long; once.
    void completionSlow();
    // The caret has come to a line that is too long for colours and marks; once for each text.
    void longLineReached();

public slots:
    void setModified(bool modified = true);
    // One step to undo.
    void clearText();
    // Like the other two with "update" and what the preferences have: takes what they say now.
    void updateFontAndColors();
    void setTabSize(int tabSize); // columns, at least 1
    void setReplaceTabsWithSpaces(bool replaceTabs = true);
    void setAutoIndent(bool autoIndent = true);
    // The preferences of the editor's language.
    void updateTabsAndSpaces();

    // To the first character of the line that is not blank, or, from there, to the line's start;
    // with Ctrl to the document's. Shift selects.
    void home(bool shiftKey, bool ctrlKey);
    void duplicateText();
    void deleteLines();
    void increaseIndent();
    void decreaseIndent();
    // Wrapping is one of their preferences.
    void updateHiddenCharacters();
    void convertTabsToSpaces();

    // Carries a FindRequest out with the caret and tells the outcome by
    // findReplaceMessageChanged().
    void findReplace(const QString &findText, const QString &replaceText, int options);

    void toggleOverwriteMode();
    // Tells the popup that the text before the caret has changed.
    void updateCompleter();
    void completeCode(const QString &text, int prefixLength);
    void onContentsChange(int position, int charsRemoved, int charsAdded);
    void moveToOtherView();
    void quickHelp();
    void commandDocumentation();

    void updateLineNumberWidth();
    void updateLineNumbers(const QRect &rect, int dy);
    void updateExtraSelections();
    // Each adds its kind to the extra selections; only updateExtraSelections() shows them.
    void highlightErrors();
    void highlightCurrentLine();
    void highlightMatchedSelection();
    void highlightMatches();
    void matchParenthesis();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData *source) override;

private slots:
    void helpOnCommand(const QString &name);
    void forgetMarkedText();
    void markChangedMatches();

private:
    // What a step did with a key: left it to the next step, took it, or took it in a way that
    // changes what can be completed.
    enum class Key { Left, Taken, Typed };
    typedef Key (EdCodeEdit::*KeyStep)(QKeyEvent *event);
    static const KeyStep keySteps[];

    Key hideToolTip(QKeyEvent *event);
    Key keypadEnterExecutes(QKeyEvent *event);
    Key plainReturnForShiftReturn(QKeyEvent *event);
    Key leaveKeyToPopup(QKeyEvent *event);
    Key returnKey(QKeyEvent *event);
    Key leaveSearchKeys(QKeyEvent *event);
    Key helpKeys(QKeyEvent *event);
    Key tabKeys(QKeyEvent *event);
    Key insertKey(QKeyEvent *event);
    Key homeKey(QKeyEvent *event);
    Key electricBrace(QKeyEvent *event);
    Key openingBracket(QKeyEvent *event);
    Key commandKeys(QKeyEvent *event);
    Key otherKey(QKeyEvent *event);

    void pressInstead(int key, Qt::KeyboardModifiers modifiers);
    void hidePopupFor(const QKeyEvent &event);
    bool startsWord() const;
    Key beginCompletion(const QString &typed, bool startedWord);
    QChar characterBefore(int position) const;

    // As set for this editor and, for what has no field here, as preferred.
    IndentStyle indentStyle() const;
    // Lets the function edit with the caret's cursor, which then becomes the caret; not in a
    // read-only text.
    template <typename Edit>
    void editAtCaret(Edit edit);
    void showCaret();
    void clearBlockData();
    int widthForLines(int count) const;
    void leaveWidthForLines(int count);
    void makeRoomForLines(int count);
    void highlightPage(const QTextBlock &first);
    void applyTextOption();
    void applyDiagnostics();
    QString messageAt(const QPoint &place) const;
    void widenToVariable();
    void dragSelection();
    QTextBlock lastVisibleBlock() const;
    int mostVisibleLines() const;
    const QString &searchedText();
    struct LineTop
    {
        int line; // 0-based
        int top;  // pixels, in the gutter
    };
    void paintLines(QPainter &painter, const std::vector<LineTop> &lines, int width) const;
    typedef QMap<int, const QImage *> Icons; // by 0-based line
    Icons iconsBetween(int first, int last) const;

    EdCodeEditLineNumbers *m_lineNumbers;
    EdCompleter *m_completer;
    int m_language = 0;
    int m_tabSize = 4;
    bool m_replaceTabs = true;
    bool m_autoIndent = true;
    bool m_extraSelectionsEnabled = true;
    ExtraSelections m_extraSelections;
    QImage m_errorImage;
    QImage m_warningImage;
    QImage m_infoImage;
    DiagnosticMarks m_errors;
    DiagnosticMarks m_warnings;
    DiagnosticMarks m_infos;
    FindRequest m_markedSearch;
    QString m_searchedText;       // the plain text, kept from one search to the next change
    bool m_matchesAreOld = false; // those in view, after a change
    int m_blockCount = 1;         // as of the last change of the text
    QPoint m_middlePress;         // where the middle button went down
    bool m_marksText = false;     // the extra selections are those of a text that is not empty
    bool m_longLineSaid = false;
    int m_revision = -1;   // of the document, at the last change of the text
    int m_marginWidth = 0; // pixels that the view leaves to the gutter
    std::unique_ptr<EdHighlighter> m_highlighter;
};
