// SPDX-License-Identifier: MIT
#include "workspace/workspacescripts.h"

#include "editor/edcodeedit.h"
#include "workspace/edcodeview.h"
#include "workspace/recovery.h"
#include "workspace/scriptdetails.h"
#include "workspace/textencoding.h"

#include <QElapsedTimer>
#include <QTextDocument>

namespace {

const int longestReading = 15; // ms

void addNames(const QList<OutlineItem> &items, bool isOwn, std::vector<Completion> *names)
{
    for (const OutlineItem &item : items) {
        if (item.kind == GlobalVariableItem)
            names->push_back({item.name, CompletionKind::Variable});
        else if (isOwn || item.kind == GlobalProcedureItem)
            names->push_back({item.name, CompletionKind::Procedure});
    }
}

bool shows(const EdCodeView &view, const QTextDocument *document)
{
    return view.knownCodeEdit() && view.knownCodeEdit()->document() == document;
}

// Null when nothing was parsed of it, or not as MEL.
const ScriptDetails *melDetails(const EdCodeView &view)
{
    const ScriptDetails *details = ScriptDetails::known(&view);
    return details && details->mel() ? details : nullptr;
}

int parsesOf(const EdCodeView &view)
{
    const ScriptDetails *details = melDetails(view);
    return details ? details->parseCount() : 0;
}

bool isLong(const EdCodeView &view)
{
    const EdCodeEdit *edit = view.knownCodeEdit();
    const int size = edit ? edit->document()->characterCount() : int(view.waitingBytes().size());
    return size > ScriptDetails::longText;
}

// Makes no editor.
QString textOf(const EdCodeView &view)
{
    if (view.knownCodeEdit())
        return view.knownCodeEdit()->text();
    QString text;
    decodeText(view.waitingBytes(), &text);
    return text;
}

} // namespace

WorkspaceScripts::WorkspaceScripts(const DocumentHost *host) : m_host(host)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, SIGNAL(timeout()), SLOT(readLater()));
    setOpenScripts(this);
}

WorkspaceScripts::~WorkspaceScripts()
{
    if (openScripts() == this) // not that of a later window
        setOpenScripts(nullptr);
}

std::vector<Completion> WorkspaceScripts::melNamesFor(const QTextDocument *document) const
{
    std::vector<Completion> names;
    for (const EdCodeView *view : m_host->codeViews())
        addNames(itemsOf(*view), shows(*view, document), &names);
    m_timer.start(0);
    return names;
}

QString WorkspaceScripts::folderOf(const QTextDocument *document) const
{
    for (const EdCodeView *view : m_host->codeViews()) {
        if (shows(*view, document))
            return view->fileInfo().absolutePath();
    }
    return QString();
}

void WorkspaceScripts::refresh(const QTextDocument *document) const
{
    QElapsedTimer clock;
    clock.start();
    for (const EdCodeView *view : m_host->codeViews()) {
        if (shows(*view, document) && isOutdated(*view))
            read(*view);
    }
    while (clock.elapsed() < longestReading && readNext()) {
    }
}

// One in a turn, so that keys get theirs.
void WorkspaceScripts::readLater() const
{
    if (readNext())
        m_timer.start(0);
    else
        forgetClosed();
}

// The later of what was parsed for the outline and what was read here.
WorkspaceScripts::Items WorkspaceScripts::itemsOf(const EdCodeView &view) const
{
    if (view.language() != EdCodeView::Mel)
        return Items();
    const Script script = m_scripts.value(view.documentId());
    if (script.parses == parsesOf(view))
        return script.items;
    const ScriptDetails *details = melDetails(view);
    return details ? details->mel()->outlineItems() : Items();
}

bool WorkspaceScripts::isOutdated(const EdCodeView &view) const
{
    const ScriptDetails *details = melDetails(view);
    if (view.language() != EdCodeView::Mel || isLong(view) || (details && details->isCurrent()))
        return false;
    const Script script = m_scripts.value(view.documentId());
    return script.parses != parsesOf(view) ||
           script.revision != view.knownCodeEdit()->document()->revision();
}

void WorkspaceScripts::read(const EdCodeView &view) const
{
    const EdCodeEdit *edit = view.knownCodeEdit();
    MelParser parser;
    if (!isLong(view))
        parser.parse(textOf(view), view.fileInfo().absoluteFilePath());
    Script script;
    script.parses = parsesOf(view);
    script.revision = edit ? edit->document()->revision() : -1;
    script.items = parser.outlineItems();
    m_scripts.insert(view.documentId(), script);
}

// Of the scripts of which nothing is known; false when there is none.
bool WorkspaceScripts::readNext() const
{
    for (const EdCodeView *view : m_host->codeViews()) {
        if (view->language() == EdCodeView::Mel && !melDetails(*view) &&
            !m_scripts.contains(view->documentId())) {
            read(*view);
            return true;
        }
    }
    return false;
}

void WorkspaceScripts::forgetClosed() const
{
    QHash<QString, Script> open;
    for (const EdCodeView *view : m_host->codeViews()) {
        if (m_scripts.contains(view->documentId()))
            open.insert(view->documentId(), m_scripts.value(view->documentId()));
    }
    m_scripts.swap(open);
}
