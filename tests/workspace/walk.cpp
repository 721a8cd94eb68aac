// SPDX-License-Identifier: MIT
#include "tests/workspace/walk.h"

#include "editor/edcodeedit.h"
#include "preferences/preferences.h"
#include "tests/workspace/walkwindow.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"

#include <QApplication>
#include <QDir>
#include <QTextDocument>

namespace {

const int loggedSteps = 30;

// Lines that only one side has.
QStringList without(const QStringList &lines, const QStringList &others)
{
    QStringList left;
    for (const QString &line : lines) {
        if (!others.contains(line))
            left << line;
    }
    return left;
}

} // namespace

Walk::Walk(unsigned seed)
    : m_random(seed), m_seed(seed), m_boxes(seed), m_model(m_files.path(), m_buffers.path())
{
    preferences() = Preferences();
    EdCodeView::setBufferDirectory(QDir(m_buffers.path()));
    QDir(m_files.path()).mkdir("folder.mel");
    showWindow();
}

Walk::~Walk()
{
    m_window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Walk::showWindow()
{
    m_window = std::make_unique<WalkWindow>();
    m_window->show();
    QApplication::setActiveWindow(m_window.get());
}

EdCentralWidget *Walk::central() const
{
    return m_window->central();
}

EdCodeView *Walk::current() const
{
    return central()->currentCodeView();
}

const Walk::Action &Walk::anyAction()
{
    int sum = 0;
    for (int i = 0; i < actionCount; ++i)
        sum += actions[i].weight;
    int chosen = below(sum);
    int i = 0;
    while (chosen >= actions[i].weight)
        chosen -= actions[i++].weight;
    return actions[i];
}

QString Walk::step()
{
    const Action &action = anyAction();
    m_log << QString("%1: %2").arg(m_steps++).arg(action.name);
    if (m_log.size() > loggedSteps)
        m_log.removeFirst();
    (this->*action.act)();
    settle();
    return difference();
}

// Which boxes have come.
void Walk::listen()
{
    const QList<WalkBox> boxes = m_boxes.take();
    for (const WalkBox &box : boxes)
        note('[' + box.title + ": " + box.text.section('\n', 0, 0) + ": " + box.answer + ']');
    m_model.hear(boxes);
}

// What is waiting may call for more.
void Walk::settle()
{
    listen();
    for (int round = 0; round < 3; ++round) {
        if (!m_window->isActiveWindow()) // the window manager has taken the focus back from a box
            QApplication::setActiveWindow(m_window.get());
        QCoreApplication::processEvents();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    listen();
    m_model.settle(central()->activePane());
}

void Walk::noteUndoSteps()
{
    for (int id = 0; id < EdCentralWidget::PaneCount; ++id) {
        const EdCodeTabWidget *pane = central()->pane(id);
        for (int tab = 0; tab < pane->count(); ++tab)
            m_model.noteUndoSteps(
                id, tab, pane->codeViewAt(tab)->codeEdit()->document()->availableUndoSteps());
    }
}

QString Walk::difference()
{
    QStringList complaints = m_model.takeComplaints();
    const QStringList seen = m_window->picture(QStringList() << m_files.path() << m_buffers.path());
    const QStringList expected = m_model.picture();
    if (seen != expected) {
        complaints << "program:" << without(seen, expected);
        complaints << "model:" << without(expected, seen);
    }
    if (complaints.isEmpty()) {
        noteUndoSteps();
        complaints = m_model.takeComplaints();
        const QString stray = m_window->strayViews();
        if (!stray.isEmpty())
            complaints << stray;
    }
    return complaints.isEmpty() ? QString() : report(complaints);
}

QString Walk::report(const QStringList &complaints) const
{
    QStringList lines;
    lines << QString("seed %1, step %2").arg(m_seed).arg(m_steps - 1) << m_log << complaints
          << "all of the model:" << m_model.picture();
    return lines.join("\n").remove(m_files.path() + '/').replace(m_buffers.path(), "buffers");
}
