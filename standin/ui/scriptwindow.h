// SPDX-License-Identifier: MIT
#pragma once

#include <QCloseEvent>
#include <QMainWindow>

namespace standin {

// A window that a script has made; it says when the user closes it, and is gone then.
class ScriptWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit ScriptWindow(QWidget *parent) : QMainWindow(parent, Qt::Window)
    {
        // The element tree hears of the object's end and drops the name.
        setAttribute(Qt::WA_DeleteOnClose);
    }

signals:
    void closing();

protected:
    void closeEvent(QCloseEvent *event) override
    {
        // Before the window goes, so that the script can still ask for its elements.
        emit closing();
        QMainWindow::closeEvent(event);
    }
};

} // namespace standin
