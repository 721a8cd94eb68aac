// SPDX-License-Identifier: MIT
#pragma once

#include "standin/program/options.h"

#include <QObject>

#include <memory>
#include <string>

namespace standin {

class Session;
class UserInterface;

// One run of the program: the session, its windows unless it is a batch session, and the steps of
// the command line, each in a turn of the event loop of its own. Made once, on the main thread,
// with the application object there; errors of the steps are messages like those of scripts.
class Program : public QObject
{
    Q_OBJECT

public:
    explicit Program(const ProgramOptions &options);
    ~Program() override;

    // What the script that quit has given; if that is 0, 1 when any error message has arrived.
    int exitStatus() const;

public slots:
    // Prepares the session and begins with the steps.
    void start();
    // Leaves as soon as no script runs; also from other threads when invoked by name.
    void leave(int status = 0);
    // Stops the script that runs, then leaves. From any thread.
    void interruptAndLeave();

private slots:
    void nextStep();
    void leaveAgain();
    void logMessage(int kind, const QString &text);

private:
    void makeInterface();
    void loadPlugins();
    void run(const Step &step);
    void runFile(const Step &step);
    // Until nothing waits, so that each step finds the work of the one before done.
    void settle();
    // Reports the text unless it is empty.
    void fail(const QString &text);

    const ProgramOptions m_options;
    // Deliberate order: the interface goes before the session it belongs to.
    std::unique_ptr<Session> m_session;
    std::unique_ptr<UserInterface> m_interface; // null in batch sessions and before start()
    size_t m_nextStep = 0;
    int m_status = 0;
    bool m_hasLeft = false;
};

} // namespace standin
