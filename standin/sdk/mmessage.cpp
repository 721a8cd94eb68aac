// SPDX-License-Identifier: MIT
#include <maya/MCommandMessage.h>

#include "standin/sdk/convert.h"
#include "standin/sdk/hostaccess.h"
#include "standin/sdk/hostservices.h"
#include "standin/sdk/standinaccess.h"

#include <maya/MCallbackIdArray.h>

#include <algorithm>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace standin {

namespace {

using MessageType = MCommandMessage::MessageType;

// A callback whose messages call it again, and so on, is left out at this depth.
const int maximumDepth = 50;

// Output and filter callbacks in one form and one list, so that ids and order are common to both.
struct Callback
{
    MCallbackId id = 0;
    bool filters = false;
    std::function<void(const MString &, MessageType, bool &)> run;
    const void *function = nullptr; // as the plug-in gave it; tells whose it is
    int depth = 0;                  // of its calls within each other
    bool leftOut = false;           // until its outermost call returns
};
using CallbackList = std::vector<std::shared_ptr<Callback>>;

// Shared pointers, so that a callback that removes itself lives until it returns.
CallbackList callbacks; // in the order in which they were added
CallbackList running;   // the innermost last
MCallbackId lastId = 0;

// Marks a callback as running for as long as the mark lives.
class RunningMark
{
public:
    explicit RunningMark(const std::shared_ptr<Callback> &callback) : m_callback(callback)
    {
        ++callback->depth;
        running.push_back(callback);
    }
    ~RunningMark()
    {
        running.pop_back();
        if (--m_callback->depth == 0)
            m_callback->leftOut = false;
    }
    RunningMark(const RunningMark &) = delete;
    RunningMark &operator=(const RunningMark &) = delete;

private:
    const std::shared_ptr<Callback> m_callback;
};

// The application would crash here; a developer is better served by being told. The callback hears
// of nothing more until its outermost call returns, least of all of this.
void reportAndLeaveOut(Callback &callback, const std::string &problem)
{
    callback.leftOut = true;
    if (hostServices())
        hostServices()->output(mel::MessageKind::Error, problem);
}

void call(const std::shared_ptr<Callback> &callback, const MString &text, MessageType type,
          bool &hidden)
{
    if (callback->depth == maximumDepth) {
        reportAndLeaveOut(*callback, "An output callback calls itself without end.");
        return;
    }
    const RunningMark mark(callback);
    try {
        callback->run(text, type, hidden);
    } catch (const std::exception &escaped) {
        reportAndLeaveOut(*callback,
                          std::string("Exception in an output callback: ") + escaped.what());
    } catch (...) {
        reportAndLeaveOut(*callback, "Exception in an output callback.");
    }
}

bool isLive(const std::shared_ptr<Callback> &callback)
{
    return std::find(callbacks.begin(), callbacks.end(), callback) != callbacks.end();
}

// Passes the message to all callbacks of one sort. Returns whether one of them asked to hide it.
bool callAll(bool filters, mel::MessageKind kind, const std::string &text)
{
    const MString message = apiString(text);
    bool hidden = false;
    // A copy, since callbacks add and remove callbacks; an added one starts with the next message.
    const CallbackList current = callbacks;
    for (const std::shared_ptr<Callback> &callback : current) {
        if (callback->filters == filters && !callback->leftOut && isLive(callback))
            call(callback, message, static_cast<MessageType>(kind), hidden);
    }
    return hidden;
}

} // namespace

void dispatchOutput(mel::MessageKind kind, const std::string &text)
{
    callAll(false, kind, text);
}

bool isHiddenByFilter(mel::MessageKind kind, const std::string &text)
{
    return callAll(true, kind, text);
}

std::vector<LiveCallback> liveCallbacks()
{
    std::vector<LiveCallback> live;
    for (const std::shared_ptr<Callback> &callback : callbacks)
        live.push_back({callback->id, callback->function});
    return live;
}

} // namespace standin

using namespace standin;

namespace {

const void *addressOf(MCommandMessage::MMessageFunction function)
{
    return reinterpret_cast<const void *>(function);
}

const void *addressOf(MCommandMessage::MMessageFilterFunction function)
{
    return reinterpret_cast<const void *>(function);
}

// A new callback with the next id, at the end of the list.
template <class Function>
Callback &added(Function function)
{
    auto callback = std::make_shared<Callback>();
    callback->id = ++lastId;
    callback->function = addressOf(function);
    callbacks.push_back(callback);
    return *callback;
}

} // namespace

STANDIN_API_OPEN

MStatus MMessage::removeCallback(MCallbackId id)
{
    const auto hasId = [id](const std::shared_ptr<Callback> &callback) {
        return callback->id == id;
    };
    // Those that are just being called hold a pointer of their own.
    const auto found = std::find_if(callbacks.begin(), callbacks.end(), hasId);
    if (found == callbacks.end())
        return MS::kInvalidParameter;
    callbacks.erase(found);
    return MS::kSuccess;
}

MStatus MMessage::removeCallbacks(const MCallbackIdArray &ids)
{
    // One bad id does not keep the others.
    MStatus status;
    for (unsigned int i = 0; i < ids.length(); ++i) {
        const MStatus removed = removeCallback(ids[i]);
        if (removed.error())
            status = removed;
    }
    return status;
}

MCallbackId MMessage::currentCallbackId(MStatus *ReturnStatus)
{
    setStatus(ReturnStatus, running.empty() ? MS::kFailure : MS::kSuccess);
    return running.empty() ? 0 : running.back()->id;
}

MCallbackId MCommandMessage::addCommandOutputCallback(MMessageFunction func, void *clientData,
                                                      MStatus *ReturnStatus)
{
    setStatus(ReturnStatus, func ? MS::kSuccess : MS::kInvalidParameter);
    if (!func)
        return 0;
    Callback &callback = added(func);
    callback.run = [func, clientData](const MString &text, MessageType type, bool &) {
        func(text, type, clientData);
    };
    return callback.id;
}

MCallbackId MCommandMessage::addCommandOutputFilterCallback(MMessageFilterFunction func,
                                                            void *clientData, MStatus *ReturnStatus)
{
    setStatus(ReturnStatus, func ? MS::kSuccess : MS::kInvalidParameter);
    if (!func)
        return 0;
    Callback &callback = added(func);
    callback.filters = true;
    callback.run = [func, clientData](const MString &text, MessageType type, bool &hidden) {
        func(text, type, hidden, clientData);
    };
    return callback.id;
}

STANDIN_API_CLOSE
