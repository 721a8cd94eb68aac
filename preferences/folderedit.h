// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class Complaint;
class QLineEdit;

// A line for the path of a folder, with a button to choose it. The path has "/" as its separators;
// the line shows those of the platform. It takes any text; check() points out what is no folder.
class FolderEdit : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString path READ path WRITE setPath NOTIFY pathChanged USER true)

public:
    explicit FolderEdit(QWidget *parent = nullptr);

    QString path() const;
    void setPath(const QString &path);

    // Returns false, and marks the line, when the user has typed something else than the whole path
    // of a folder.
    bool check();

    // What the line says while it is empty.
    void setPlaceholderText(const QString &text);

public slots:
    // Asks for a folder, beginning at the present one.
    void browse();

signals:
    void pathChanged();

private:
    QLineEdit *m_line;
    Complaint *m_complaint;
};
