// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <thread>

namespace standin {

// Calls a function, on a thread of its own, when the user stops the program by SIGINT or SIGTERM:
// the main thread may be busy with a script. A second signal ends the program at once. Does nothing
// where there are no such signals. One at a time, since signals belong to the process; when it
// goes, the signals have their usual effect again.
class StopSignal
{
public:
    explicit StopSignal(std::function<void()> stop);
    ~StopSignal();
    StopSignal(const StopSignal &) = delete;
    StopSignal &operator=(const StopSignal &) = delete;

private:
    // Not joinable when the pipe could not be made.
    std::thread m_waiter;
};

} // namespace standin
