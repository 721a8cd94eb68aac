// SPDX-License-Identifier: MIT
#include "standin/host/scriptjobs.h"

#include "standin/host/idlequeue.h"
#include "standin/host/session.h"

#include <QTimer>

namespace standin {

namespace {

// The pause between two rounds of idle jobs; without one they would keep the processor busy.
const int idleRoundMilliseconds = 50;

// The events that scripts may name, sorted. Most of them never happen without scenes, but a script
// that waits for them is in order.
const char *const eventTable[] = {
    "ActiveViewChanged",
    "ChannelBoxLabelSelected",
    "ColorIndexChanged",
    "CurrentContainerChanged",
    "DagObjectCreated",
    "DisplayColorChanged",
    "DisplayLayerChange",
    "DisplayPreferenceChanged",
    "EditModeChanged",
    "MenuModeChanged",
    "NameChanged",
    "NewSceneOpened",
    "PostSceneRead",
    "PostToolChanged",
    "PreFileNewOrOpened",
    "PreSelectionChangedTriggered",
    "RecentCommandChanged",
    "Redo",
    "RenderSetupSelectionChanged",
    "SceneImported",
    "SceneOpened",
    "SceneSaved",
    "SelectModeChanged",
    "SelectPreferenceChanged",
    "SelectPriorityChanged",
    "SelectTypeChanged",
    "SelectionChanged",
    "SequencerActiveShotChanged",
    "SetEditorChanged",
    "SetModified",
    "SoundNodeAdded",
    "SoundNodeRemoved",
    "ToolChanged",
    "ToolDirtyChanged",
    "ToolSettingsChanged",
    "Undo",
    "UndoSupressed",
    "angularTolChanged",
    "angularUnitChanged",
    "axisAtOriginChanged",
    "axisInViewChanged",
    "cameraChange",
    "cameraDisplayAttributesChange",
    "causalityChange",
    "constructionHistoryChanged",
    "currentSoundNodeChanged",
    "dbTraceChanged",
    "deleteAll",
    "dragAttachmentDone",
    "gradientColorChanged",
    "gridDisplayChanged",
    "idle",
    "idleHigh",
    "idleVeryLow",
    "linearTolChanged",
    "linearUnitChanged",
    "modelEditorChanged",
    "nurbsToPolygonsPrefsChanged",
    "nurbsToSubdivPrefsChanged",
    "passContributionMapChange",
    "perspLightChanged",
    "playbackModeChanged",
    "playbackRangeAboutToChange",
    "playbackRangeChanged",
    "playbackRangeSliderChanged",
    "polyTopoSymmetryValidChanged",
    "quitApplication",
    "renderLayerChange",
    "renderLayerManagerChange",
    "renderPassChange",
    "selectionConstraintsChanged",
    "snapModeChanged",
    "softSelectOptionsChanged",
    "symmetricModellingOptionsChanged",
    "threadCountChanged",
    "timeChanged",
    "timeUnitChanged",
    "transformLockChange",
    "workspaceChanged",
    "xformConstraintOptionsChanged",
};

std::string quoted(const std::string &text)
{
    return " \"" + text + "\"";
}

// As a list shows it: first the flags about the job's life, then what it waits for.
std::string description(int number, const ScriptJobs::Job &job)
{
    std::string text = std::to_string(number) + ":";
    if (job.permanent)
        text += quoted("-permanent");
    if (job.protectedFromKill)
        text += quoted("-protected");
    if (job.runOnce)
        text += quoted("-runOnce");
    if (!job.parent.empty())
        text += quoted("-parent") + quoted(job.parent);
    // In the order of Trigger.
    static const char *const triggerFlags[] = {"-event", "-conditionTrue", "-attributeChange",
                                               "-idleEvent"};
    text += quoted(triggerFlags[static_cast<int>(job.trigger)]);
    if (job.trigger != ScriptJobs::Trigger::Idle)
        text += quoted(job.subject);
    return text + quoted(job.script);
}

} // namespace

ScriptJobs::ScriptJobs(Session &session) : m_session(session), m_idleTimer(new QTimer(this))
{
    m_idleTimer->setInterval(idleRoundMilliseconds);
    connect(m_idleTimer, SIGNAL(timeout()), this, SLOT(runIdleJobs()));
}

std::vector<std::string> ScriptJobs::eventNames()
{
    return std::vector<std::string>(std::begin(eventTable), std::end(eventTable));
}

int ScriptJobs::add(const Job &job)
{
    // Numbers go up only, so one that a script remembers never means another job.
    m_jobs[++m_lastNumber] = job;
    if (job.trigger == Trigger::Idle)
        m_idleTimer->start();
    return m_lastNumber;
}

bool ScriptJobs::kill(int number, bool force)
{
    const auto found = m_jobs.find(number);
    if (found == m_jobs.end() || found->second.permanent)
        return false;
    if (found->second.protectedFromKill && !force)
        return false;
    m_jobs.erase(found);
    return true;
}

// Over a copy, here and below: killing changes the list.
void ScriptJobs::killAll(bool force)
{
    const std::map<int, Job> all = m_jobs;
    for (const auto &[number, job] : all)
        kill(number, force);
}

void ScriptJobs::killChildrenOf(const std::string &parent)
{
    const std::map<int, Job> all = m_jobs;
    for (const auto &[number, job] : all) {
        if (!parent.empty() && job.parent == parent)
            // Even permanent ones: their place in the interface is gone.
            m_jobs.erase(number);
    }
}

std::vector<std::string> ScriptJobs::descriptions() const
{
    std::vector<std::string> lines;
    for (const auto &[number, job] : m_jobs)
        lines.push_back(description(number, job));
    return lines;
}

void ScriptJobs::fire(const std::string &event)
{
    // Marked, so that an event that comes ten times before the next idle moment counts once.
    for (const int number : numbersFor(Trigger::Event, event)) {
        Job &job = m_jobs[number];
        if (!job.waiting)
            m_session.idleQueue().add([this, number] { run(number); });
        job.waiting = true;
    }
}

void ScriptJobs::runNow(const std::string &event)
{
    for (const int number : numbersFor(Trigger::Event, event))
        run(number);
}

void ScriptJobs::runIdleJobs()
{
    const std::vector<int> numbers = numbersFor(Trigger::Idle);
    // Stopped here and not by kill(), which need not know what kind of job goes.
    if (numbers.empty())
        m_idleTimer->stop();
    for (const int number : numbers)
        run(number);
}

std::vector<int> ScriptJobs::numbersFor(Trigger trigger, const std::string &subject) const
{
    std::vector<int> numbers;
    for (const auto &[number, job] : m_jobs) {
        if (job.trigger == trigger && job.subject == subject)
            numbers.push_back(number);
    }
    return numbers;
}

// The job may have been killed since it was chosen, and may kill itself.
void ScriptJobs::run(int number)
{
    const auto found = m_jobs.find(number);
    if (found == m_jobs.end())
        return;
    found->second.waiting = false;
    const Job job = found->second; // its script may remove it from the list
    // Before its script, which may ask whether the job exists.
    if (job.runOnce)
        m_jobs.erase(found);
    // Not echoed, and a failing job is reported like any script; it stays in the list.
    m_session.executeMel(job.script, false);
}

} // namespace standin
