// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <random>

class QDialog;

// A modal box that came, and how it was answered: by the text of a button, or "Escape".
struct WalkBox
{
    QString title;
    QString text;
    QString answer;
};

// Answers every modal box of the program as soon as it is shown, at random, and keeps what it said.
class WalkBoxes : public QObject
{
    Q_OBJECT

public:
    explicit WalkBoxes(unsigned seed);

    // What is put into boxes that ask for a text.
    void enter(const QString &text) { m_input = text; }
    // Those that came since the last call, in the order of their answers.
    QList<WalkBox> take();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private slots:
    void answer();

private:
    std::mt19937 m_random;
    QString m_input;
    QList<WalkBox> m_boxes;
};
