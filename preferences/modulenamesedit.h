// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class Complaint;
class QLineEdit;

// A line for a semicolon-separated list of Python modules. It takes any text while the user types;
// check() points out what cannot be imported, until the text changes.
class ModuleNamesEdit : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString names READ names WRITE setNames NOTIFY namesChanged USER true)

public:
    explicit ModuleNamesEdit(QWidget *parent = nullptr);

    QString names() const;
    void setNames(const QString &names);

    // Returns false, and marks the line, when a name is none.
    bool check();

signals:
    void namesChanged();

private:
    QLineEdit *m_line;
    Complaint *m_complaint;
};
