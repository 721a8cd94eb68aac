// SPDX-License-Identifier: MIT
#include "standin/sdk/convert.h"
#include "standin/sdk/hostaccess.h"
#include "standin/sdk/hostservices.h"
#include "standin/sdk/standinaccess.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MCommandMessage.h>

#include <algorithm>
#include <exception>
#include <memory>

namespace standin {

namespace {

struct Callback
{
    MCallbackId id = 0;
    MCommandMessage::MMessageFunction function = nullptr;
    void *clientData = nullptr;
    bool running = false;
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
        callback->running = true;
        running.push_back(callback);
    }
    ~RunningMark()
    {
        running.pop_back();
        m_callback->running = false;
    }
    RunningMark(const RunningMark &) = delete;
    RunningMark &operator=(const RunningMark &) = delete;

private:
    const std::shared_ptr<Callback> m_callback;
};

// The application would crash here; a developer is better served by being told.
void reportEscaped(const std::string &what)
{
    if (hostServices())
        hostServices()->output(mel::MessageKind::Error, "Exception in an output callback" + what);
}

// The callback is still marked as running while what escaped from it is reported, so a callback
// that always throws does not hear of it again.
void call(const std::shared_ptr<Callback> &callback, const MString &text,
          MCommandMessage::MessageType type)
{
    const RunningMark mark(callback);
    try {
        callback->function(text, type, callback->clientData);
    } catch (const std::exception &escaped) {
        reportEscaped(std::string(": ") + escaped.what());
    } catch (...) {
        reportEscaped(".");
    }
}

bool isLive(const std::shared_ptr<Callback> &callback)
{
    return std::find(callbacks.begin(), callbacks.end(), callback) != callbacks.end();
}

const void *addressOf(const Callback &callback)
{
    return reinterpret_cast<const void *>(callback.function);
}

} // namespace

void dispatchOutput(mel::MessageKind kind, const std::string &text)
{
    const MString message = apiString(text);
    // A copy, since callbacks add and remove callbacks; an added one starts with the next message.
    const CallbackList current = callbacks;
    for (const std::shared_ptr<Callback> &callback : current) {
        if (!callback->running && isLive(callback))
            call(callback, message, static_cast<MCommandMessage::MessageType>(kind));
    }
}

std::vector<LiveCallback> liveCallbacks()
{
    std::vector<LiveCallback> live;
    for (const std::shared_ptr<Callback> &callback : callbacks)
        live.push_back({callback->id, addressOf(*callback)});
    return live;
}

} // namespace standin

using namespace standin;

STANDIN_API_OPEN

MStatus MMessage::removeCallback(MCallbackId id)
{
    const auto hasId = [id](const std::shared_ptr<Callback> &callback) {
        return callback->id == id;
    };
    const auto found = std::find_if(callbacks.begin(), callbacks.end(), hasId);
    if (found == callbacks.end())
        return MS::kInvalidParameter;
    callbacks.erase(found);
    return MS::kSuccess;
}

MStatus MMessage::removeCallbacks(const MCallbackIdArray &ids)
{
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
    auto callback = std::make_shared<Callback>();
    callback->id = ++lastId;
    callback->function = func;
    callback->clientData = clientData;
    callbacks.push_back(callback);
    return callback->id;
}

STANDIN_API_CLOSE
