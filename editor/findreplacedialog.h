// SPDX-License-Identifier: MIT
#pragma once

#include "editor/findrequest.h"

#include <QDialog>

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QLabel;
class QLayout;
class QRadioButton;

// Asks for what is to be found and replaced, and sends it to whoever knows the current editor. It
// stays open meanwhile, and keeps texts and options when it is closed. Knows no editor itself.
class FindReplaceDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FindReplaceDialog(QWidget *parent = nullptr);

    // What is looked for: the options say what a match is.
    FindRequest search() const;
    // Shows the dialog, or brings it to the front, with the text to find selected; an empty text
    // leaves that of last time.
    void openFor(const QString &findText);

public slots:
    void find();
    // The options are those of FindRequest, to which the dialog adds what is chosen in it.
    void find(int options, bool ignoreDirection);
    void replace();
    void replaceAndFind();
    void replaceAll();
    // Whether each change of the text to find is searched for at once; a Qt::CheckState.
    void setIncremental(int state);

    void showMessage(const QString &message);
    // Of the matches in the text; a negative one: not known.
    void showCount(int count);

signals:
    void findReplaceSelected(const QString &findText, const QString &replaceText, int options);
    // A text for the place of the selection, whatever that is. No button sends it.
    void replaceSelected(const QString &text);
    // The text to find was edited and is searched for next.
    void typed(bool backward);
    // search() has changed, or whether the dialog is seen.
    void searchChanged();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private slots:
    void findWhileTyping();

private:
    QLayout *createTexts();
    QLayout *createChoices();
    QLayout *createButtons();
    QLayout *createStatus();
    void connectSearch();
    void beginText();
    QComboBox *newHistory(const char *objectName);
    int chosenOptions() const;
    void send(int options, bool ignoreDirection);

    QComboBox *m_find;
    QComboBox *m_replaceWith;
    QRadioButton *m_backward;
    QRadioButton *m_forward;
    QRadioButton *m_scopeAll;
    QRadioButton *m_scopeSelected;
    QCheckBox *m_caseSensitive;
    QCheckBox *m_wrapSearch;
    QCheckBox *m_wholeWord;
    QCheckBox *m_incremental;
    QLabel *m_status;
    QLabel *m_count;
};
