// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QString>

class QPlainTextEdit;

// Shows what differs between two texts, line by line, in the output's colours. Deletes itself when
// it is closed.
class CompareDialog : public QDialog
{
    Q_OBJECT

public:
    CompareDialog(const QString &title, const QString &before, const QString &after,
                  QWidget *parent = nullptr);

private:
    void fill(const QString &before, const QString &after);

    QPlainTextEdit *m_view;
};
