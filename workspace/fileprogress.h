// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>

class QProgressDialog;
class QWidget;

// Lets the user see, and end, an operation on files that takes its time. For a moment there is only
// a wait cursor, and no event is handled; then a modal dialog.
class FileProgress
{
public:
    FileProgress(const QString &text, QWidget *parent);
    ~FileProgress();
    FileProgress(const FileProgress &) = delete;
    FileProgress &operator=(const FileProgress &) = delete;

    // To be asked again and again: before each file, and within long ones. False once the user ends
    // it.
    bool goesOn();
    // Until it is asked again nothing is shown: for the time of another question, or at the end.
    void stop();

private:
    void start();
    void showDialog();

    QString m_text;
    QPointer<QWidget> m_parent;
    QPointer<QProgressDialog> m_dialog; // goes with its parent
    QElapsedTimer m_clock;              // since it began, later since events were handled
    bool m_isUnderWay = false;
    bool m_isShown = false;
};
