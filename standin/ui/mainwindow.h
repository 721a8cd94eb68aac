// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

class QTabWidget;

namespace standin {

class CommandLine;

// The host's main window: menu bar, shelf, an empty view, command line and help line. What is in
// the menus and on the shelf comes from scripts.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();

    // Both are children of the window.
    QTabWidget *shelf() const { return m_shelf; }
    CommandLine *commandLine() const { return m_commandLine; }

signals:
    // The user wants to leave; the window stays until the session has quit.
    void closeRequested();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QTabWidget *m_shelf;
    CommandLine *m_commandLine;
};

} // namespace standin
