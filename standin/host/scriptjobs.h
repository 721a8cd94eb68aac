// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <map>
#include <string>
#include <vector>

class QTimer;

namespace standin {

class Session;

// Scripts that run when something happens: at an event, once at idle however often the event came
// meanwhile, or at every idle moment. Jobs that wait for a condition or an attribute are kept like
// the others, but without scenes there is nothing that would run them.
class ScriptJobs : public QObject
{
    Q_OBJECT

public:
    enum class Trigger { Event, ConditionTrue, AttributeChange, Idle };
    struct Job
    {
        Trigger trigger = Trigger::Event;
        std::string subject; // name of the event, condition or attribute; none for Idle
        std::string script;
        std::string parent;             // name of the interface element the job dies with
        bool protectedFromKill = false; // killed only by force
        bool permanent = false;         // never killed
        bool runOnce = false;
        bool waiting = false; // queued for the next idle moment
    };

    explicit ScriptJobs(Session &session);

    // Those that a script may wait for, whether or not they ever happen here.
    static std::vector<std::string> eventNames(); // sorted

    // The job's number, never 0 and never given again. Not checked: an unknown event never comes.
    int add(const Job &job);
    bool exists(int number) const { return m_jobs.count(number) > 0; }
    // False when the number is unknown, or the job is protected and not forced, or permanent.
    bool kill(int number, bool force);
    // Without force the protected ones stay; the permanent ones stay anyway.
    void killAll(bool force);
    // The jobs of an interface element that has been deleted.
    void killChildrenOf(const std::string &parent);
    // One line per job: its number and the command that made it.
    std::vector<std::string> descriptions() const;

    // Queues the jobs of an event for the next idle moment.
    void fire(const std::string &event);
    // Runs the jobs of an event at once: the quit event has no idle moment to come.
    void runNow(const std::string &event);

private slots:
    void runIdleJobs();

private:
    // In the order of adding; numbers and not jobs, which may be gone when their turn comes.
    std::vector<int> numbersFor(Trigger trigger, const std::string &subject = {}) const;
    void run(int number);

    Session &m_session;
    std::map<int, Job> m_jobs;
    int m_lastNumber = 0;
    // Runs only while there are idle jobs.
    QTimer *m_idleTimer;
};

} // namespace standin
