// SPDX-License-Identifier: MIT
#include "workspace/workspacescripts.h"

#include "editor/edcodeedit.h"
#include "workspace/edcodeview.h"
#include "workspace/recovery.h"
#include "workspace/scriptdetails.h"

namespace {

void addNames(const MelParser &parser, bool isOwn, std::vector<Completion> *names)
{
    for (const OutlineItem &item : parser.outlineItems()) {
        if (item.kind == GlobalVariableItem)
            names->push_back({item.name, CompletionKind::Variable, QString()});
        else if (isOwn || item.kind == GlobalProcedureItem)
            names->push_back({item.name, CompletionKind::Procedure, QString()});
    }
}

} // namespace

WorkspaceScripts::WorkspaceScripts(const DocumentHost *host) : m_host(host)
{
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
    for (const EdCodeView *view : m_host->codeViews()) {
        const ScriptDetails *details = ScriptDetails::known(view);
        const MelParser *parser = details ? details->mel() : nullptr;
        if (parser) // which only a view with an editor has
            addNames(*parser, view->codeEdit()->document() == document, &names);
    }
    return names;
}
