// SPDX-License-Identifier: MIT
#pragma once

#include "mainwindow/docks.h"

#include <QByteArray>
#include <QString>

class QSettings;
struct WorkspaceState;

// Which panes the window shows: history and editor, or one of them. The numbers are those of the
// settings file.
enum class Panes { Both, Editor, History };

const int initialDocks = 61; // all but Quick Help, by dockFlag()

// What the settings file keeps of the window, apart from preferences. The bytes are Qt's own.
struct WindowSettings
{
    QString license;        // the text of its file; empty for none
    QByteArray geometry;    // of QWidget::saveGeometry(), as for the docks
    QByteArray windowState; // of QMainWindow::saveState(): tool bars and docks
    DockArray<QByteArray> dockGeometry;
    QByteArray splitterState; // of QSplitter::saveState(): the panes' shares of the centre
    Panes panes = Panes::Both;
    int visibleDocks = initialDocks; // sets of docks by dockFlag(), as the next
    int floatingDocks = 0;
    QByteArray hiddenState; // windowState before floating docks were hidden with the window
    bool visible = false;   // whether the window was shown; if not, hiddenState is what counts
};

// Bytes are stored with their length and checksum in two keys beside theirs, and only read when
// both are right: Qt crashes on some that it has not written. Other values that are missing, of
// another type or out of range take their defaults.
WindowSettings readWindowSettings(QSettings &settings);
// While both panes are shown, no dock counts as visible in the file: then it is `windowState` that
// knows.
void writeWindowSettings(QSettings &settings, const WindowSettings &window);

// The open documents.
WorkspaceState readWorkspaceState(QSettings &settings);
void writeWorkspaceState(QSettings &settings, const WorkspaceState &state);

// The text formats, which have a file of their own. Reading returns false for one of a later
// version of the editor, of which writing would lose something.
bool readColors(QSettings &settings);
void writeColors(QSettings &settings);
