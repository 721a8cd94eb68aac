// SPDX-License-Identifier: MIT
#pragma once

#include "editor/completion.h"

#include <QListView>

#include <memory>

class CompletionModel;
class QPlainTextEdit;

// The popup that offers completions, a child of its editor and a window of its own, for it may
// reach beyond the editor. Never has the focus: the editor asks it to begin, tells it what was
// typed meanwhile and, while it is visible, leaves it the keys that choose. The source is asked
// once for each word; letters that follow, or are deleted, only narrow its answer.
class EdCompleter : public QListView
{
    Q_OBJECT

public:
    // What made the editor ask.
    enum Trigger { OnDemand, OnPeriod, OnLetters };

    explicit EdCompleter(QPlainTextEdit *editor);
    ~EdCompleter() override;

    // Null, as at first: there is nothing to complete.
    void setSource(std::unique_ptr<CompletionSource> source);

    // Shows what may stand at the caret unless the preferences switch this trigger off for the
    // language, which is an EditorLanguage.
    void begin(Trigger trigger, int language);
    // While it is visible: the text before the caret is another one now.
    void updateCompletions();
    // At a change of the text, of which the caret need not tell.
    void hideOutsideWord();
    // Keys that it takes from the editor while it is visible.
    static bool isKey(int key);

signals:
    // The user has chosen a completion; `prefixLength` UTF-16 units before the caret are replaced.
    void activated(const QString &text, int prefixLength);
    // The same, after it, when it was a command of the host.
    void commandChosen(const QString &name);
    // Completions take too long: from now on they come only when asked for. Once.
    void lettersSwitchedOff();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    // Hides it when the view of the text changes.
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void followText();
    void chooseClicked(const QModelIndex &index);

private:
    Completions ask();
    bool isInWord() const;
    QString typedText() const;
    bool offersNothingNew(const QString &typed) const;
    void place();
    QSize sizeOfRows(int rows) const;
    void returnKey(QKeyEvent *event);
    bool isWholeWord(int row) const;
    void moveCurrent(int rows);
    // What a completion takes the place of: what was typed, or all of the word that it is in.
    enum class Replaced { Typed, Word };
    void choose(int row, Replaced replaced);
    void goToWordEnd();

    QPlainTextEdit *m_editor;
    CompletionModel *m_model;
    std::unique_ptr<CompletionSource> m_source;
    QString m_narrowedBy; // what was typed of the word when the rows were chosen
    int m_language = 0;
    int m_start = 0;           // where the word begins: a position in the document
    bool m_beganEmpty = false; // before anything of the word was typed
    bool m_isAbove = false;    // the line, because there was no room below
    bool m_isUnasked = false;  // came while typing, and none of its rows was looked for
    bool m_lettersOff = false; // the last answer took too long
    bool m_saidLettersOff = false;
};
