// SPDX-License-Identifier: MIT
#include "standin/host/hostcommands.h"
#include "standin/host/scriptjobs.h"
#include "standin/host/session.h"

#include <algorithm>

namespace standin {

namespace {

using mel::ArgumentKind;

// A misspelt event would otherwise only show by never happening.
void requireKnownEvent(const std::string &event)
{
    const std::vector<std::string> known = ScriptJobs::eventNames();
    if (std::find(known.begin(), known.end(), event) == known.end())
        throw mel::RuntimeError("Unknown event: " + event);
}

ScriptJobs::Job jobFrom(const mel::Call &call)
{
    ScriptJobs::Job job;
    job.event = call.text("event");
    job.script = call.text("event", {}, 1);
    if (call.isSet("event"))
        requireKnownEvent(job.event);
    else if (call.isSet("idleEvent"))
        job.script = call.text("idleEvent");
    else
        throw mel::RuntimeError("No event was given for the script job.");
    job.parent = call.text("parent");
    job.protectedFromKill = call.isSet("protected");
    job.permanent = call.isSet("permanent");
    job.runOnce = call.boolean("runOnce");
    return job;
}

void kill(const mel::Call &call, ScriptJobs &jobs)
{
    const int number = call.integer("kill");
    if (!jobs.exists(number))
        throw mel::RuntimeError("There is no script job " + std::to_string(number) + ".");
    if (!jobs.kill(number, call.isSet("force")))
        throw mel::RuntimeError("Script job " + std::to_string(number) + " is protected.");
}

mel::Value run(const mel::Call &call, Session &session)
{
    // Without an event loop no job would ever run.
    if (session.isBatch())
        return 0;
    ScriptJobs &jobs = session.scriptJobs();
    if (call.isSet("exists"))
        return jobs.exists(call.integer("exists")) ? 1 : 0;
    if (call.isSet("listJobs"))
        return jobs.descriptions();
    if (call.isSet("listEvents"))
        return ScriptJobs::eventNames();
    if (call.isSet("killAll")) {
        jobs.killAll(call.isSet("force"));
        return {};
    }
    if (call.isSet("kill")) {
        kill(call, jobs);
        return {};
    }
    return jobs.add(jobFrom(call));
}

} // namespace

void addScriptJobCommand(Session &session)
{
    mel::Command command;
    command.name = "scriptJob";
    command.flags = {
        {"e", "event", {ArgumentKind::String, ArgumentKind::Script}},
        {"ex", "exists", {ArgumentKind::Int}},
        {"f", "force"},
        {"ie", "idleEvent", {ArgumentKind::Script}},
        {"k", "kill", {ArgumentKind::Int}},
        {"ka", "killAll"},
        {"le", "listEvents"},
        {"lj", "listJobs"},
        {"p", "parent", {ArgumentKind::String}},
        {"per", "permanent"},
        {"pro", "protected"},
        {"ro", "runOnce", {ArgumentKind::Boolean}},
    };
    command.run = [&session](mel::Call &call) { return run(call, session); };
    session.mel().addCommand(command);
}

} // namespace standin
