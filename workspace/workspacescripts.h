// SPDX-License-Identifier: MIT
#pragma once

#include "editor/openscripts.h"

class DocumentHost;

// What the documents of a workspace declare, made known to the editors for as long as it lives.
// Parses nothing: a document that was never shown is not known.
class WorkspaceScripts : public OpenScripts
{
public:
    // The host outlives it.
    explicit WorkspaceScripts(const DocumentHost *host);
    ~WorkspaceScripts() override;

    WorkspaceScripts(const WorkspaceScripts &) = delete;
    WorkspaceScripts &operator=(const WorkspaceScripts &) = delete;

    std::vector<Completion> melNamesFor(const QTextDocument *document) const override;

private:
    const DocumentHost *m_host;
};
