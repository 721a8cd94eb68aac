// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/host.h"

#include <maya/MMessage.h>
#include <maya/MObject.h>

#include <string>
#include <vector>

namespace standin {

class HostServices;
struct PluginRecord;

// The running host; null before there is one, and then the API's calls fail. Not owned: the host
// sets itself when it is made and null when it goes. The pointer is not guarded, so threads that
// use the API have ended by then.
STANDIN_API void setHostServices(HostServices *services);
STANDIN_API HostServices *hostServices();

// The object that a plug-in's entry points get. The record has to live as long as the plug-in.
STANDIN_API MObject pluginObject(PluginRecord &record);

// Passes a message to every output callback. One that prints is called for that as well, to a
// bounded depth. What escapes from a callback is reported as an error.
STANDIN_API void dispatchOutput(mel::MessageKind kind, const std::string &text);
// The same with every filter callback; returns whether one of them hides the message.
STANDIN_API bool isHiddenByFilter(mel::MessageKind kind, const std::string &text);

struct LiveCallback
{
    MCallbackId id;
    const void *function; // its address tells which library it belongs to
};
// Every callback of every plug-in, in the order of adding.
STANDIN_API std::vector<LiveCallback> liveCallbacks();

} // namespace standin
