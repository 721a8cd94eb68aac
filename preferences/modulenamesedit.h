// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QWidget>

class QLabel;
class QLineEdit;

// A line for a semicolon-separated list of Python modules. It takes any text while the user types;
// checkNames() points out what cannot be imported, until the text changes.
class ModuleNamesEdit : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString names READ names WRITE setNames NOTIFY namesChanged USER true)

public:
    explicit ModuleNamesEdit(QWidget *parent = nullptr);

    QString names() const;
    void setNames(const QString &names);

    // Returns false, and marks the line, when a name is none.
    bool checkNames();

signals:
    void namesChanged();

private slots:
    void clearMark();

private:
    void mark(const QString &complaint);

    QLineEdit *m_line;
    QLabel *m_complaint; // below the line, hidden while there is none
};
