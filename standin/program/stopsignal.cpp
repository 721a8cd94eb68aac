// SPDX-License-Identifier: MIT
#include "standin/program/stopsignal.h"

#include <utility>

#if defined(__unix__) || defined(__APPLE__)

#include <csignal>
#include <unistd.h>

namespace standin {

namespace {

int pipeEnds[2] = {-1, -1}; // a handler can reach nothing but globals
// What the waiter reads; the second one comes from the destructor.
const char stopByte = 's';
const char endByte = 'e';

extern "C" void tellWaiter(int)
{
    // The second signal ends a program that does not react to the first.
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    // Of the few calls that a handler may make.
    if (write(pipeEnds[1], &stopByte, 1) < 0)
        _exit(1);
}

} // namespace

StopSignal::StopSignal(std::function<void()> stop)
{
    if (pipe(pipeEnds) != 0)
        return;
    m_waiter = std::thread([stop = std::move(stop)] {
        char byte = 0;
        // Blocks until a byte comes; ends with the destructor's, or when the pipe breaks.
        while (read(pipeEnds[0], &byte, 1) == 1 && byte == stopByte)
            stop();
    });
    std::signal(SIGINT, tellWaiter);
    std::signal(SIGTERM, tellWaiter);
}

StopSignal::~StopSignal()
{
    if (!m_waiter.joinable())
        return;
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    // Joined, so that the function is not called after this object; a waiter that cannot be told
    // ends with the process.
    if (write(pipeEnds[1], &endByte, 1) == 1)
        m_waiter.join();
    else
        m_waiter.detach();
}

} // namespace standin

#else

namespace standin {

StopSignal::StopSignal(std::function<void()>) {}
StopSignal::~StopSignal() = default;

} // namespace standin

#endif
