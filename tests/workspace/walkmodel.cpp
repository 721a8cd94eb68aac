// SPDX-License-Identifier: MIT
// The state of a walk's model, and what it takes from the program.
#include "tests/workspace/walkmodel.h"

#include "preferences/preferences.h"
#include "tests/workspace/walkpicture.h"

#include <QFileInfo>

namespace {

QString fileName(const QString &path)
{
    return QFileInfo(path).fileName();
}

// 0 text, 1 Python, 2 MEL.
int languageOf(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix();
    return suffix == QLatin1String("mel") ? 2 : suffix == QLatin1String("py") ? 1 : 0;
}

} // namespace

QString WalkDocument::tabText() const
{
    return isBuffer() ? label : fileName(path) + QLatin1String(isModified ? "*" : "");
}

WalkModel::WalkModel(const QString &folder, const QString &bufferFolder)
    : m_folder(folder), m_bufferFolder(bufferFolder)
{
}

QStringList WalkModel::takeComplaints()
{
    for (const WalkBox &box : m_boxes)
        complain("nothing explains the box " + box.title + ": " + box.text);
    m_boxes.clear();
    const QStringList complaints = m_complaints;
    m_complaints.clear();
    return complaints;
}

QStringList WalkModel::picture() const
{
    QStringList buffers;
    QStringList files;
    for (const WalkDocument &document : m_documents) {
        if (document.isBuffer())
            buffers << QString::number(document.bufferIndex) + '=' + document.label;
        else
            files << document.path + '=' + fileName(document.path);
    }
    const WalkDocument *shown = current();
    const bool isBuffer = shown && shown->isBuffer();
    const QString path = shown && !isBuffer ? shown->path : QString();
    const QString name = isBuffer ? shown->label : path;
    QStringList lines;
    lines << walkpicture::activeLine(m_active, name) << picture(0) << picture(1);
    lines << walkpicture::listLine("buffers", buffers,
                                   isBuffer ? QString::number(shown->bufferIndex) : QString());
    lines << walkpicture::listLine("documents", files, path);
    return lines + walkpicture::fileLines(m_files);
}

QStringList WalkModel::picture(int id) const
{
    QStringList lines(walkpicture::currentLine(id, m_panes[id].current));
    for (int tab = 0; tab < m_panes[id].documents.size(); ++tab) {
        const WalkDocument &shown = document(id, tab);
        lines << walkpicture::line(id, tab,
                                   {shown.tabText(), shown.path, shown.bufferIndex,
                                    shown.isModified, languageOf(shown.path), shown.text});
    }
    return lines;
}

int WalkModel::currentKey() const
{
    const Pane &pane = m_panes[m_active];
    return pane.current < 0 ? -1 : pane.documents.at(pane.current);
}

const WalkDocument *WalkModel::current() const
{
    const auto found = m_documents.constFind(currentKey());
    return found == m_documents.constEnd() ? nullptr : &*found;
}

const WalkDocument &WalkModel::document(int pane, int tab) const
{
    return *m_documents.constFind(m_panes[pane].documents.at(tab));
}

QStringList WalkModel::openPaths() const
{
    QStringList paths;
    for (const WalkDocument &document : m_documents) {
        if (!document.isBuffer())
            paths << document.path;
    }
    return paths;
}

WalkDocument &WalkModel::at(const Place &place)
{
    return m_documents[keyAt(place)];
}

WalkModel::Place WalkModel::placeOf(int key) const
{
    for (int pane = 0; pane < 2; ++pane) {
        const int tab = int(m_panes[pane].documents.indexOf(key));
        if (tab >= 0)
            return {pane, tab};
    }
    return {};
}

WalkModel::Place WalkModel::placeOfFile(const QString &path) const
{
    for (auto it = m_documents.constBegin(); it != m_documents.constEnd(); ++it) {
        if (it->path == path)
            return placeOf(it.key());
    }
    return {};
}

WalkModel::Place WalkModel::placeOfBuffer(int bufferIndex) const
{
    for (auto it = m_documents.constBegin(); it != m_documents.constEnd(); ++it) {
        if (it->isBuffer() && it->bufferIndex == bufferIndex)
            return placeOf(it.key());
    }
    return {};
}

void WalkModel::insert(int pane, int position, const WalkDocument &document)
{
    const int key = m_nextKey++;
    m_documents.insert(key, document);
    QList<int> &keys = m_panes[pane].documents;
    m_panes[pane].current = position < 0 ? int(keys.size()) : position;
    keys.insert(m_panes[pane].current, key);
}

// The next tab on the right becomes current, or the last one.
void WalkModel::removeTab(const Place &place)
{
    Pane &pane = m_panes[place.pane];
    pane.documents.removeAt(place.tab);
    if (place.tab < pane.current || pane.current == pane.documents.size())
        --pane.current;
}

QString WalkModel::expect(const QString &title, const QString &text)
{
    mayCheck();
    if (m_boxes.isEmpty() || m_boxes.first().title != title ||
        !m_boxes.first().text.contains(text)) {
        complain("there should be a box " + title + ": " + text);
        return QString();
    }
    return m_boxes.takeFirst().answer;
}

void WalkModel::edit(const QString &text, bool isModified)
{
    WalkDocument &document = m_documents[currentKey()];
    if (!isModified && (document.isModified || text != document.text))
        complain("a change of the text does not show");
    document.text = text;
    document.isModified = isModified;
}

void WalkModel::undo(int step, const QString &text, bool isModified, int undoSteps)
{
    WalkDocument &document = m_documents[currentKey()];
    const int steps = undoSteps - document.undoSteps;
    if (steps == 0 ? text != document.text : steps * step < 0)
        complain(QString("undo goes the wrong way, by %1 steps").arg(steps));
    if (steps != 0 && document.texts.value(undoSteps) != text)
        complain("undo gives another text than there was: " +
                 walkpicture::visible(document.texts.value(undoSteps)));
    if (!isModified && (!document.savedText || *document.savedText != text))
        complain("a text that is in no file counts as saved");
    document.text = text;
    document.isModified = isModified;
    document.undoSteps = undoSteps;
}

// Nothing but undoing takes steps away. What can be redone goes with the first other change.
void WalkModel::noteUndoSteps(int pane, int tab, int undoSteps)
{
    WalkDocument &document = at({pane, tab});
    if (undoSteps < document.undoSteps)
        complain("what could be undone cannot be any more: " + document.path);
    if (!document.texts.contains(undoSteps) || document.texts.value(undoSteps) != document.text) {
        for (int steps : document.texts.keys()) {
            if (steps >= undoSteps || steps > document.undoSteps)
                document.texts.remove(steps);
        }
        document.texts.insert(undoSteps, document.text);
    }
    document.undoSteps = undoSteps;
}

void WalkModel::changeOutside(const QString &path, const std::optional<QByteArray> &bytes)
{
    if (!bytes && !m_files.contains(path))
        return;
    if (bytes)
        m_files.insert(path, *bytes);
    else
        m_files.remove(path);
    const Place place = placeOfFile(path);
    if (!place)
        return;
    WalkDocument &document = at(place);
    const bool wasBack = document.isBack;
    document.isBack = bytes && (document.isBack || document.isKeptWithoutFile);
    document.mustBeAskedAbout = bytes || !wasBack;
    if (bytes)
        document.isKeptWithoutFile = false;
}

bool WalkModel::isCheckBox() const
{
    if (m_boxes.isEmpty())
        return false;
    return m_boxes.first().title == "File Does Not Exist" ||
           m_boxes.first().text.contains("Do you want to reload it?");
}

void WalkModel::mayCheck()
{
    while (!m_isChecking && isCheckBox()) {
        m_isChecking = true;
        const WalkBox box = m_boxes.takeFirst();
        Place asked;
        for (const QString &path : openPaths()) {
            // One path may begin like another.
            if (box.text.contains(path + '\n') || box.text.contains(path + " doesn't"))
                asked = placeOfFile(path);
        }
        if (!asked)
            complain("a file that is not open is asked about: " + box.text);
        else if (box.title == "Reload")
            askedAboutChanged(asked, box.answer);
        else
            askedAboutMissing(asked, box.answer);
        m_isChecking = false;
    }
}

void WalkModel::present(const Place &place)
{
    selectTab(place.pane, place.tab);
    m_isActiveSure = false;
}

void WalkModel::askedAboutChanged(const Place &place, const QString &answer)
{
    WalkDocument &document = at(place);
    present(place);
    if (!m_files.contains(document.path) || m_files.value(document.path) == document.seen)
        complain("the file has not changed: " + document.path);
    if (answer == "Yes")
        load(&document);
    document.seen = m_files.value(document.path);
    document.mustBeAskedAbout = false;
}

void WalkModel::askedAboutMissing(const Place &place, const QString &answer)
{
    WalkDocument &document = at(place);
    present(place);
    if (m_files.contains(document.path) || document.isKeptWithoutFile)
        complain("the file is not missing, or was asked about already: " + document.path);
    document.mustBeAskedAbout = false;
    if (answer == "No") {
        closeTab(place.pane, place.tab);
        return;
    }
    document.isKeptWithoutFile = true;
    document.isModified = true;
    document.savedText.reset();
}

// It may wait for the event loop.
void WalkModel::mustCheck()
{
    mayCheck();
    m_mustCheck = m_mustCheck || !m_isChecking;
}

bool WalkModel::isUnasked(const WalkDocument &document) const
{
    const bool differs = m_files.contains(document.path)
                             ? m_files.value(document.path) != document.seen
                             : !document.isKeptWithoutFile;
    return differs && document.mustBeAskedAbout && !document.isBuffer() &&
           preferences().checkForModifiedFiles;
}

void WalkModel::settle(int activePane)
{
    mayCheck();
    if (!m_isActiveSure && m_panes[activePane].current >= 0)
        m_active = activePane;
    m_isActiveSure = true;
    for (WalkDocument &document : m_documents) {
        if (m_mustCheck && isUnasked(document))
            complain("the change of a file is not asked about: " + document.path);
        // Without a question it is forgotten.
        if (m_mustCheck || !preferences().checkForModifiedFiles)
            document.mustBeAskedAbout = false;
        if (m_mustCheck && preferences().checkForModifiedFiles)
            document.isBack = false;
    }
    m_mustCheck = false;
}
