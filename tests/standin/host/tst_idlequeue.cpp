// SPDX-License-Identifier: MIT
#include "standin/host/idlequeue.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QStringList>

#include <thread>

using mel::IdlePriority;
using standin::IdleQueue;

namespace {

std::function<void()> noting(QStringList &list, const char *name)
{
    return [&list, name] { list << name; };
}

// Runs the event loop until the queue is empty, or five seconds have gone by.
bool emptiedByEventLoop(const IdleQueue &queue)
{
    QElapsedTimer timer;
    timer.start();
    while (!queue.isEmpty() && timer.elapsed() < 5000)
        QCoreApplication::processEvents();
    return queue.isEmpty();
}

} // namespace

class TestIdleQueue : public QObject
{
    Q_OBJECT

private slots:
    void workRunsInOrderWithinAPriority();
    void nothingRunsBeforeTheEventLoop();
    void aPassLeavesWhatItAdds();
    void workThatQueuesItselfIsBounded();
    void aNestedEventLoopRunsTheRest();
    void otherThreadsMayAdd();
    void aDisabledQueueForgets();
    void waitingTextsAreInRunningOrder();
};

void TestIdleQueue::workRunsInOrderWithinAPriority()
{
    IdleQueue queue(true);
    QStringList ran;
    queue.add(noting(ran, "lowest"), IdlePriority::Lowest);
    queue.add(noting(ran, "first"));
    queue.add(noting(ran, "low"), IdlePriority::Low);
    queue.add(noting(ran, "second"));
    QVERIFY(queue.processUntilEmpty());
    QCOMPARE(ran, words("first second low lowest"));
}

void TestIdleQueue::nothingRunsBeforeTheEventLoop()
{
    IdleQueue queue(true);
    QStringList ran;
    queue.add(noting(ran, "work"));
    QVERIFY(ran.isEmpty());
    QVERIFY(emptiedByEventLoop(queue));
    QCOMPARE(ran, QStringList() << "work");
}

void TestIdleQueue::aPassLeavesWhatItAdds()
{
    IdleQueue queue(true);
    QStringList ran;
    queue.add([&] {
        ran << "adds";
        queue.add(noting(ran, "added"));
    });
    queue.add(noting(ran, "after"), IdlePriority::Lowest);
    queue.runPass();
    QCOMPARE(ran, words("adds after"));
    QVERIFY(emptiedByEventLoop(queue));
    QCOMPARE(ran.last(), QString("added"));
}

void TestIdleQueue::workThatQueuesItselfIsBounded()
{
    IdleQueue queue(true);
    int runs = 0;
    std::function<void()> again = [&] {
        ++runs;
        queue.add(again);
    };
    queue.add(again);
    QVERIFY(!queue.processUntilEmpty(20));
    QCOMPARE(runs, 20);
}

void TestIdleQueue::aNestedEventLoopRunsTheRest()
{
    IdleQueue queue(true);
    QStringList ran;
    bool finished = false;
    queue.add([&] { // such as a dialog that a script opens
        QElapsedTimer timer;
        timer.start();
        while (!finished && timer.elapsed() < 5000)
            QCoreApplication::processEvents();
        ran << "outer";
    });
    queue.add([&] {
        ran << "inner";
        queue.add([&] { finished = true; });
    });
    QVERIFY(emptiedByEventLoop(queue));
    QCOMPARE(ran, words("inner outer"));
}

void TestIdleQueue::otherThreadsMayAdd()
{
    IdleQueue queue(true);
    const std::thread::id mainThread = std::this_thread::get_id();
    int ran = 0;
    int strayed = 0;
    const auto work = [&] {
        ++ran;
        strayed += std::this_thread::get_id() == mainThread ? 0 : 1;
    };
    const auto addMany = [&] {
        for (int i = 0; i < 500; ++i)
            queue.add(work);
    };
    std::thread one(addMany);
    std::thread two(addMany);
    one.join();
    two.join();
    QVERIFY(emptiedByEventLoop(queue));
    QCOMPARE(ran, 1000);
    QCOMPARE(strayed, 0);
}

void TestIdleQueue::aDisabledQueueForgets()
{
    IdleQueue queue(false);
    QStringList ran;
    queue.add(noting(ran, "never"));
    QVERIFY(queue.isEmpty());
    QCoreApplication::processEvents();
    QVERIFY(ran.isEmpty());
}

void TestIdleQueue::waitingTextsAreInRunningOrder()
{
    IdleQueue queue(true);
    queue.add([] {}, IdlePriority::Low, "later");
    queue.add([] {}, IdlePriority::Normal, "soon");
    queue.add([] {}); // no MEL
    QCOMPARE(queue.waitingTexts(), (std::vector<std::string>{"soon", "later"}));
}

CORVANE_TEST_MAIN(TestIdleQueue)
#include "tst_idlequeue.moc"
