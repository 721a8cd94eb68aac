// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QString>

class QLayout;

// What the program is, what it runs with, and under which terms. Everything in it can be copied at
// once, for a report of a fault.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget *parent = nullptr);

    // All that is shown, a line for each fact.
    QString text() const { return m_text; }

public slots:
    void copyText();

private:
    QLayout *createHead();
    QLayout *createFacts();
    QLayout *createButtons();

    QString m_text;
};
