// SPDX-License-Identifier: MIT
#include "standin/host/idlequeue.h"

#include <QThread>
#include <QTimer>

#include <algorithm>

namespace standin {

IdleQueue::IdleQueue(bool enabled, QObject *parent)
    : QObject(parent), m_enabled(enabled), m_timer(new QTimer(this))
{
    // Single-shot, and started again before any work runs: a timer whose slot is still busy does
    // not fire in a nested event loop, a newly started one does.
    m_timer->setInterval(0);
    m_timer->setSingleShot(true);
    connect(m_timer, SIGNAL(timeout()), this, SLOT(runPass()));
}

void IdleQueue::add(std::function<void()> work, mel::IdlePriority priority,
                    const std::string &melText)
{
    if (!m_enabled)
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        // Numbers only grow, so within one priority the map's order is the order of adding.
        m_entries[Key(priority, m_added++)] = Entry{std::move(work), melText};
    }
    // A timer can only be started by the thread it lives in.
    if (QThread::currentThread() == thread())
        startTimer();
    else
        QMetaObject::invokeMethod(this, "startTimer", Qt::QueuedConnection);
}

std::vector<std::string> IdleQueue::waitingTexts() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> texts;
    for (const auto &[key, entry] : m_entries) {
        if (!entry.melText.empty())
            texts.push_back(entry.melText);
    }
    return texts;
}

bool IdleQueue::isEmpty() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_entries.empty();
}

bool IdleQueue::processUntilEmpty(int maximumPasses)
{
    for (int pass = 0; pass < maximumPasses && !isEmpty(); ++pass)
        runPass();
    return isEmpty();
}

// The bound at the start of the pass gives the event loop a turn between two rounds of work that
// queues itself. Entries are taken one by one, never as a list: work that runs may run a pass too.
void IdleQueue::runPass()
{
    std::uint64_t end = 0;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        end = m_added;
    }
    Entry entry;
    while (takeBefore(end, entry)) {
        // The work may open an event loop of its own, in which the rest has its turn.
        if (!isEmpty())
            startTimer();
        // Without the lock, and out of the map already: the work may add to the queue.
        entry.work();
    }
    if (!isEmpty())
        startTimer();
}

// Takes the first entry added before the end; false when there is none left.
bool IdleQueue::takeBefore(std::uint64_t end, Entry &entry)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    // The map begins with the highest priority; newer entries wait for the next pass whatever
    // theirs.
    const auto isOld = [end](const auto &item) { return item.first.second < end; };
    const auto first = std::find_if(m_entries.begin(), m_entries.end(), isOld);
    if (first == m_entries.end())
        return false;
    entry = std::move(first->second);
    m_entries.erase(first);
    return true;
}

void IdleQueue::startTimer()
{
    if (!m_timer->isActive())
        m_timer->start();
}

} // namespace standin
