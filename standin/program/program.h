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
// the command line, each in a turn of the event loop of its own.
class Program : public QObject
{
    Q_OBJECT

public:
    explicit Program(const ProgramOptions &options);
    ~Program() override;

    int exitStatus() const;

public slots:
    // Prepares the session and begins with the steps.
    void start();
    // Leaves as soon as no script runs; also from other threads when invoked by name.
    void leave(int status = 0);
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
    void settle();
    void fail(const QString &text);

    const ProgramOptions m_options;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<UserInterface> m_interface; // null in batch sessions and before start()
    size_t m_nextStep = 0;
    int m_status = 0;
    bool m_hasLeft = false;
};

} // namespace standin
