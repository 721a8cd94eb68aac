// SPDX-License-Identifier: MIT
#pragma once

#include "tests/workspace/walkboxes.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

// An open document, as plain values.
struct WalkDocument
{
    int bufferIndex = -1; // 0 or more makes it a buffer
    QString path;
    QString label; // of a buffer
    QString text;
    bool isModified = false;
    std::optional<QString> savedText; // the only one it may be unmodified with
    bool endsLinesWithReturn = false; // and a line feed, in its file
    QByteArray own;                   // what its file had when it was read or written
    QByteArray seen;                  // the same, or what the user wants to ignore
    bool mustBeAskedAbout = false;    // its file has changed since the last check
    bool isKeptWithoutFile = false;   // the user was asked already
    bool isBack = false;              // the file, after that, and perhaps nobody has noticed
    int undoSteps = 0;
    QMap<int, QString> texts; // by the number of steps that can be undone

    bool isBuffer() const { return bufferIndex >= 0; }
    QString tabText() const;
};

// What a walk's commands ought to do to documents, panes, files and lists. Boxes that really came
// are its input: it takes from them what was answered, and complains of those that should have come
// or should not.
class WalkModel
{
public:
    WalkModel(const QString &folder, const QString &bufferFolder);

    struct Pane
    {
        QList<int> documents; // by their keys, in the order of tabs
        int current = -1;
    };

    void hear(const QList<WalkBox> &boxes) { m_boxes += boxes; }
    // What is wrong, since the last call; boxes that nothing explains are.
    QStringList takeComplaints();
    // Everything that can be seen of it, a line each.
    QStringList picture() const;

    const Pane &pane(int id) const { return m_panes[id]; }
    int documentCount() const { return int(m_documents.size()); }
    const WalkDocument *current() const;
    const WalkDocument &document(int pane, int tab) const;
    QStringList openPaths() const;
    const QMap<QString, QByteArray> &files() const { return m_files; }

    // The commands.
    void addBuffer(const char *label, const char *suffix);
    void openFile(const QString &path);
    void save();
    void saveAll();
    void saveBuffers();
    void saveAs(const QString &path);
    void rename(int bufferIndex, const QString &path, const QString &name);
    void closeActive();
    void closeTab(int pane, int tab);
    void closeAll() { closeBut(-1); }
    void closeAllBut(int pane);
    void moveToOtherView(int pane, int tab);
    void selectTab(int pane, int tab);
    void stepTabs(int step);
    void selectBuffer(int bufferIndex);
    void reloadFromDisk();
    void restart();
    // From another program, to the pane that has the focus again.
    void comeBack();

    // The current document has got a text that only the program can tell. By undoing, it must be
    // one of before or, the other way, of after.
    void edit(const QString &text, bool isModified);
    void undo(int step, const QString &text, bool isModified, int undoSteps);
    void noteUndoSteps(int pane, int tab, int undoSteps);
    // Others write a file, or remove it.
    void changeOutside(const QString &path, const std::optional<QByteArray> &bytes);
    // All that a command has set off is done. `activePane` is the one that the focus went to where
    // boxes that came and went leave that to the system.
    void settle(int activePane);

private:
    struct Place
    {
        int pane = -1;
        int tab = -1;
        explicit operator bool() const { return pane >= 0; }
    };

    void complain(const QString &what) { m_complaints << what; }
    WalkDocument &at(const Place &place);
    int keyAt(const Place &place) const { return m_panes[place.pane].documents.at(place.tab); }
    Place placeOf(int key) const;
    Place placeOfFile(const QString &path) const;
    Place placeOfBuffer(int bufferIndex) const;
    int currentKey() const;

    // Takes the box that must come now; the answer is empty when it did not.
    QString expect(const QString &title, const QString &text);
    void insert(int pane, int position, const WalkDocument &document);
    void removeTab(const Place &place);
    void removeDocument(const Place &place);
    void losePane(int pane);
    void show(const Place &place);
    // Questions about outside changes that have come by now. When they must come, they need not
    // before the command is done.
    void mayCheck();
    void mustCheck();
    // For a question about it.
    void present(const Place &place);
    bool isCheckBox() const;
    bool isUnasked(const WalkDocument &document) const;
    void askedAboutChanged(const Place &place, const QString &answer);
    void askedAboutMissing(const Place &place, const QString &answer);

    bool load(WalkDocument *document);
    void write(WalkDocument *document);
    void saveDocument(WalkDocument *document);
    bool saveAsked(int key);
    bool mayOverwrite(int key);
    bool mayClose(int key);
    bool mayCloseFile(int key);
    bool promptAll(int pane, int skipped);
    void closeBut(int keptKey);
    QString freeBufferPath(const char *suffix) const;
    WalkDocument reopened(const WalkDocument &document) const;
    QStringList picture(int id) const;

    QString m_folder;
    QString m_bufferFolder;
    QMap<QString, QByteArray> m_files; // by path
    QMap<int, WalkDocument> m_documents;
    Pane m_panes[2];
    int m_active = 0;
    bool m_isActiveSure = true;
    int m_nextKey = 0;
    int m_nextBufferIndex = 0;
    bool m_isChecking = false;
    bool m_mustCheck = false;
    QList<WalkBox> m_boxes; // that came and are not explained yet
    QStringList m_complaints;
};
