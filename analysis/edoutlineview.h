// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/outlinetree.h"
#include "preferences/focuspalettes.h"

#include <QHash>
#include <QString>
#include <QWidget>

class BaseParser;
class EdTreeWidget;
class MelParser;
class PythonParser;
class QBoxLayout;
class QTextCursor;
class QToolButton;
class QTreeWidgetItem;

// The outline of the active document, in a dock of the window: what its parser found, as a tree
// that leads to the places in the text and marks the one that the caret is in. It knows documents
// by their paths only. Positions are those of the document.
class EdOutlineView : public QWidget
{
    Q_OBJECT

public:
    explicit EdOutlineView(QWidget *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    // The range of a name, and whether the document shall have the focus.
    void outlineItemClicked(int startPos, int endPos, bool focus);
    void outlineItemDoubleClicked(int startPos, int endPos, bool focus);
    // A preference about kinds of items was changed here.
    void outlineViewChanged();
    // A place was asked for that edits have left unknown: whoever parses the document at once, and
    // hands over the parser, has it found.
    void freshParseWanted();

public slots:
    // The parser's file is the document. Another one than before is shown as it was left; else
    // only what has changed is touched.
    void parseMelCode(const MelParser &parser);
    void parsePythonCode(const PythonParser &parser);
    // An edit of the document since it was parsed, as QTextDocument tells it.
    void contentsChange(int position, int charsRemoved, int charsAdded);
    // Mark the item that the caret is in, without taking the focus and without a signal. Where the
    // line is known, the item is the one of the line, else the last one that begins before.
    void followCaret(int position);
    void followCaret(const QTextCursor &caret);

    // Empties the tree and forgets how the documents were left.
    void clear();
    // Forgets how one was left, or knows it by another path.
    void clearStoredDetails(const QString &path);
    void renameStoredDetails(const QString &oldPath, const QString &newPath);

    void onItemClicked(QTreeWidgetItem *item, int column);
    void onItemDoubleClicked(QTreeWidgetItem *item, int column);
    // Shows the place of the current item, as a click does.
    void onSelectionChanged();

    // Takes over how the preferences sort, and what they hide.
    void updatePreferences();
    void sortAlphabetically(bool on);
    void showViewDialog();
    void toggleImportVisibility();
    void toggleMainVisibility();
    void toggleGlobalVariableVisibility();
    void toggleGlobalProcVisibility();
    void toggleProcVisibility();

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void markCaret();

private:
    // How a document's outline was left.
    struct Details
    {
        OutlineExpansion expansion;
        int scrollPosition = 0;
    };

    QBoxLayout *createButtons();
    void connectTree();
    void showItemsOf(const BaseParser &parser);
    void openDocument(const QString &path, const QList<OutlineItem> &items);
    void storeDetails();
    // False when that has taken the item away.
    bool hasKnownPlace(QTreeWidgetItem *item);
    void updatePalette();
    void toggle(bool Preferences::*preference);

    EdTreeWidget *m_tree;
    OutlineTree m_outline;
    QToolButton *m_sortButton = nullptr;
    FocusPalettes m_palettes;
    QString m_path; // of the document; empty for none
    QHash<QString, Details> m_details;
    OutlineCaret m_caret = {-1, 0, 0};  // at -1 until the document's is known
    bool m_keepsScrollPosition = false; // at the next mark
};
