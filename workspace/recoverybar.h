// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/recovery.h"

#include <QFrame>

class QComboBox;
class QLabel;
class QPushButton;

// One line above the documents that lists those whose unsaved text was recovered, and what can be
// done with each. Hidden when there are none; nothing has to be answered. A document leaves the
// list when it is saved, closed, kept or discarded.
class RecoveryBar : public QFrame
{
    Q_OBJECT

public:
    explicit RecoveryBar(QWidget *parent = nullptr);

    void add(const QList<RecoveredDocument> &documents);
    int count() const { return int(m_documents.size()); }

public slots:
    // These are about the document that is chosen in the list.
    void compare();
    void keep();
    // Gives it the text of its file by an edit that can be undone.
    void discard();
    void keepAll();
    // Of the document of that view nothing is to be asked any more.
    void forget(EdCodeView *view);

signals:
    // The user wants to see the document.
    void documentChosen(EdCodeView *view);
    // A button was pressed, and what it stands for is done.
    void answered();
    // The text that was given up is all there was: the document shall be closed without asking.
    void closeWanted(EdCodeView *view);

private slots:
    void choose(int index);
    void forgetSaved(bool modified);
    void forgetClosed(QObject *view);

private:
    QPushButton *addButton(const QString &text, const QString &toolTip, const char *slot);
    EdCodeView *chosen() const;
    void remove(int index);
    void drop(int index);
    enum TextLength { ShortText, LongText };
    void say(const QString &text, TextLength length);
    void refresh();

    QList<RecoveredDocument> m_documents; // as in the list
    QLabel *m_message;
    QComboBox *m_list;
    QPushButton *m_keepAll = nullptr;
};
