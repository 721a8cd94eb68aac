// SPDX-License-Identifier: MIT
#include "standin/ui/mainwindow.h"

#include "standin/ui/commandline.h"
#include "standin/ui/viewport.h"

#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>

#include <QCloseEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace standin {

namespace {

// Room for the tabs and one row of buttons with a line of text each.
int shelfHeight(const QFontMetrics &metrics)
{
    return 2 * metrics.height() + 50;
}

} // namespace

MainWindow::MainWindow() : m_shelf(new QTabWidget), m_commandLine(new CommandLine)
{
    // Says what it is, so that a picture of it is not taken for the application.
    setWindowTitle("Maya Stand-in " + MQtUtil::toQString(MGlobal::mayaVersion()));
    resize(1120, 720);
    m_shelf->setFixedHeight(shelfHeight(fontMetrics()));
    m_shelf->setDocumentMode(true);
    QWidget *contents = new QWidget;
    QVBoxLayout *layout = new QVBoxLayout(contents);
    // No frame around the three strips: each brings its own.
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_shelf);
    layout->addWidget(new Viewport, 1);
    layout->addWidget(m_commandLine);
    setCentralWidget(contents);
    // The plug-in's own menus never go to a screen-wide bar, which would hide the window's.
    menuBar()->setNativeMenuBar(false);
    // The bar is the help line; the grip would only take a corner of it.
    statusBar()->setSizeGripEnabled(false);
    // Typing works at once, without a click.
    m_commandLine->input()->setFocus();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    // Deliberate: never closed from here. The session quits first, while the window still stands.
    event->ignore();
    emit closeRequested();
}

} // namespace standin
