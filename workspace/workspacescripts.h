// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/outlineitem.h"
#include "editor/openscripts.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QTimer>

class DocumentHost;
class EdCodeView;

// What the documents of a workspace declare, made known to the editors for as long as it lives.
// Goes by what was parsed for the outline; a document that was never shown is read here, once there
// is an interest in names: at once as far as the user may wait, the others when nothing else is to
// be done.
class WorkspaceScripts : public QObject, public OpenScripts
{
    Q_OBJECT

public:
    // The host outlives it.
    explicit WorkspaceScripts(const DocumentHost *host);
    ~WorkspaceScripts() override;

    std::vector<Completion> melNamesFor(const QTextDocument *document) const override;
    QString folderOf(const QTextDocument *document) const override;
    void refresh(const QTextDocument *document) const override;

private slots:
    void readLater() const;

private:
    typedef QList<OutlineItem> Items;
    struct Script
    {
        int parses = -1;   // for the outline, before it was read here
        int revision = -1; // of the document; -1: that of a view without an editor
        Items items;
    };

    Items itemsOf(const EdCodeView &view) const;
    bool isOutdated(const EdCodeView &view) const;
    void read(const EdCodeView &view) const;
    bool readNext() const;
    void forgetClosed() const;

    const DocumentHost *m_host;
    mutable QHash<QString, Script> m_scripts; // that were read here, by the document's id
    mutable QTimer m_timer;
};
