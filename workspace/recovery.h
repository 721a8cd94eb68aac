// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>

class EdCodeView;
class JournalFolder;
class QWidget;

// Whoever shows the documents.
class DocumentHost
{
public:
    virtual ~DocumentHost() = default;

    // In the order of their tabs, as they were restored.
    virtual QList<EdCodeView *> codeViews() const = 0;
    virtual int newBufferIndex() = 0;
    // Of new views, so that these know each other; null where there is no window.
    virtual QWidget *documentParent() { return nullptr; }
    // A buffer's label, or a file's name.
    virtual QString nameOf(const EdCodeView &view) const = 0;
    // Shows a view that has its document already, without a box, and owns it.
    virtual void addCodeView(EdCodeView *view, const QString &label) = 0;
};

// A document whose text was never saved.
struct RecoveredDocument
{
    QPointer<EdCodeView> view;
    QString name; // for users
    // Whether it has become a buffer of its own, as it could not go to its document.
    bool isApart = false;
    bool isOutdated = false; // its file is not what it was when the text was made of it
};

struct Recovery
{
    QList<RecoveredDocument> documents;
    QStringList problems; // for users
};

// Gives the documents back what dead sessions left, once the tabs are restored. Each text goes to
// the document of its file, which is opened where it is not; of several for one file the latest,
// while the others become buffers of their own. What the file has already is dropped, what cannot
// be read is kept aside.
Recovery recoverDocuments(const JournalFolder &folder, DocumentHost *host);
