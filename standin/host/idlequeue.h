// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/host.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

class QTimer;

namespace standin {

// Work that waits until the event loop has nothing else to do: first in, first out within one
// priority. Adding is allowed from any thread; the work runs on the thread that owns the queue, as
// does everything else here but waitingTexts() and isEmpty().
class IdleQueue : public QObject
{
    Q_OBJECT

public:
    // A disabled queue, as in batch sessions, forgets what it is given.
    explicit IdleQueue(bool enabled, QObject *parent = nullptr);

    // `melText` is what a listing of the waiting texts shows; empty for anything but MEL.
    // The work is kept until it has run or the queue dies. It may add work, run passes and open
    // event loops, but must not throw: the exception would pass through Qt's event loop.
    void add(std::function<void()> work, mel::IdlePriority priority = mel::IdlePriority::Normal,
             const std::string &melText = {});

    // The MEL texts still waiting, in the order in which they will run.
    std::vector<std::string> waitingTexts() const;
    bool isEmpty() const;

    // Runs what waits, and what that adds, without the event loop. Gives up after `maximumPasses`,
    // since work may queue itself for ever; returns whether the queue is empty.
    bool processUntilEmpty(int maximumPasses = 1000);

public slots:
    // Runs the work that was waiting when the pass began.
    void runPass();

private slots:
    void startTimer();

private:
    struct Entry
    {
        std::function<void()> work;
        std::string melText;
    };
    using Key = std::pair<mel::IdlePriority, std::uint64_t>; // the number counts additions

    // Not by time but by number: a pass ends with what was added before it began.
    bool takeBefore(std::uint64_t end, Entry &entry);

    const bool m_enabled;
    mutable std::mutex m_mutex; // guards the entries and the counter
    std::map<Key, Entry> m_entries;
    std::uint64_t m_added = 0;
    // Runs the next pass; idle while the queue is empty. Owned as a child.
    QTimer *m_timer;
};

} // namespace standin
