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

// What a job waits for; all but idle moments have a name of their own before the script.
struct TriggerFlag
{
    const char *shortName;
    const char *longName;
    ScriptJobs::Trigger trigger;
};
const TriggerFlag namedTriggers[] = {
    {"e", "event", ScriptJobs::Trigger::Event},
    {"ct", "conditionTrue", ScriptJobs::Trigger::ConditionTrue},
    {"ac", "attributeChange", ScriptJobs::Trigger::AttributeChange},
};

void readTrigger(const mel::Call &call, ScriptJobs::Job &job)
{
    for (const TriggerFlag &flag : namedTriggers) {
        if (!call.isSet(flag.longName))
            continue;
        job.trigger = flag.trigger;
        job.subject = call.text(flag.longName);
        job.script = call.text(flag.longName, {}, 1);
        return;
    }
    if (!call.isSet("idleEvent"))
        throw mel::RuntimeError("No event was given for the script job.");
    job.trigger = ScriptJobs::Trigger::Idle;
    job.script = call.text("idleEvent");
}

// Throws when the call names no event, or one that does not exist.
ScriptJobs::Job jobFrom(const mel::Call &call)
{
    ScriptJobs::Job job;
    readTrigger(call, job);
    if (job.trigger == ScriptJobs::Trigger::Event)
        requireKnownEvent(job.subject);
    job.parent = call.text("parent");
    job.protectedFromKill = call.isSet("protected");
    job.permanent = call.isSet("permanent");
    // The only switch of these with a value, "-runOnce true".
    job.runOnce = call.boolean("runOnce");
    return job;
}

void kill(const mel::Call &call, ScriptJobs &jobs)
{
    // Two errors, so that a script's author knows whether -force would help.
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
    // Questions before changes; of several the first one answers.
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
    // The name, then the script: "-event idle foo".
    for (const TriggerFlag &flag : namedTriggers)
        command.flags.push_back(
            {flag.shortName, flag.longName, {ArgumentKind::String, ArgumentKind::Script}});
    command.run = [&session](mel::Call &call) { return run(call, session); };
    session.mel().addCommand(command);
}

} // namespace standin
