// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <thread>

namespace standin {

// Calls a function, on a thread of its own, when the user stops the program by SIGINT or SIGTERM:
// the main thread may be busy with a script. Does nothing where there are no such signals.
class StopSignal
{
public:
    explicit StopSignal(std::function<void()> stop);
    ~StopSignal();
    StopSignal(const StopSignal &) = delete;
    StopSignal &operator=(const StopSignal &) = delete;

private:
    std::thread m_waiter;
};

} // namespace standin
