// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

// What the interpreter says of a text.
struct SyntaxAnswer
{
    bool isKnown = false; // false when it could not be asked
    QString message;      // empty: there is no error
    int line = 0;         // 1-based; 0 without an error
};

// The question whether a text is valid, as it is put to an interpreter. Deleting it gives the
// question up.
class SyntaxCheck : public QObject
{
    Q_OBJECT

public:
    // Short texts are answered when the check is made, and not announced by the signal.
    bool isAnswered() const { return m_isAnswered; }
    const SyntaxAnswer &answer() const { return m_answer; }

signals:
    void answered();

protected:
    explicit SyntaxCheck(QObject *parent) : QObject(parent) {}
    void setAnswer(const SyntaxAnswer &answer);

private:
    SyntaxAnswer m_answer;
    bool m_isAnswered = false;
};

// Makes a check of the text, owned by the parent; null when there is no interpreter.
using SyntaxCheckStarter = SyntaxCheck *(*)(const QString &source, QObject *parent);

// Process-wide, for the GUI thread; null, as at first, where the host has no Python. Whoever sets
// it takes it back before its code goes.
void setPythonSyntaxCheck(SyntaxCheckStarter starter);
SyntaxCheck *startPythonSyntaxCheck(const QString &source, QObject *parent);
