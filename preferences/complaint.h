// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

class QLineEdit;

// What is wrong with the text of a line, said below it. Hidden while nothing is, and again as soon
// as the text changes; the line has another ground meanwhile.
class Complaint : public QLabel
{
    Q_OBJECT

public:
    explicit Complaint(QLineEdit *line, QWidget *parent = nullptr);

    void make(const QString &text);

public slots:
    void withdraw();

private:
    QLineEdit *m_line;
};
