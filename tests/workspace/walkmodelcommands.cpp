// SPDX-License-Identifier: MIT
// What commands do in a walk's model.
#include "tests/workspace/walkmodel.h"

#include "preferences/preferences.h"

#include <QFileInfo>

#include <algorithm>

namespace {

QByteArray encoded(const WalkDocument &document)
{
    const QLatin1String end(document.endsLinesWithReturn ? "\r\n" : "\n");
    return QString(document.text).replace(QLatin1Char('\n'), end).toUtf8();
}

int newTabPosition()
{
    return preferences().insertDocsOnLeft ? 0 : -1;
}

} // namespace

// A text that is the same already keeps the line ends that it would have more of.
bool WalkModel::load(WalkDocument *document)
{
    if (!m_files.contains(document->path))
        return false;
    document->seen = document->own = m_files.value(document->path);
    if (encoded(*document) != document->seen)
        document->endsLinesWithReturn = document->seen.contains("\r\n");
    document->text = QString::fromUtf8(document->seen).replace("\r\n", "\n");
    document->isModified = false;
    document->savedText = document->text;
    document->mustBeAskedAbout = false;
    document->isKeptWithoutFile = false;
    return true;
}

void WalkModel::write(WalkDocument *document)
{
    document->seen = document->own = encoded(*document);
    m_files.insert(document->path, document->seen);
    document->isModified = false;
    document->savedText = document->text;
    document->mustBeAskedAbout = false;
    document->isKeptWithoutFile = false;
}

void WalkModel::saveDocument(WalkDocument *document)
{
    if (document->isModified)
        write(document);
}

QString WalkModel::freeBufferPath(const char *suffix) const
{
    for (int number = 0;; ++number) {
        const QString path =
            QString("%1/corvaneEditorBuffer-%2.%3").arg(m_bufferFolder).arg(number).arg(suffix);
        if (!m_files.contains(path))
            return path;
    }
}

void WalkModel::addBuffer(const char *label, const char *suffix)
{
    WalkDocument document;
    document.bufferIndex = m_nextBufferIndex++;
    document.label = label;
    document.path = freeBufferPath(suffix);
    write(&document);
    insert(m_active, newTabPosition(), document);
}

void WalkModel::openFile(const QString &path)
{
    if (const Place place = placeOfFile(path))
        return show(place);
    WalkDocument document;
    document.path = path;
    if (load(&document))
        insert(m_active, newTabPosition(), document);
    else
        expect("File Read Error", path);
}

void WalkModel::show(const Place &place)
{
    const int key = keyAt(place);
    m_active = place.pane;
    mustCheck();
    if (const Place now = placeOf(key))
        selectTab(now.pane, now.tab);
}

void WalkModel::comeBack()
{
    mustCheck();
}

// Deliberate: of what is current when the command is given, whatever its questions show.
void WalkModel::save()
{
    saveAsked(currentKey());
}

// False when there is nothing to be written, or no more after the question.
bool WalkModel::saveAsked(int key)
{
    if (!m_documents.contains(key) || !m_documents[key].isModified)
        return false;
    if (!mayOverwrite(key) || !m_documents[key].isModified)
        return false;
    write(&m_documents[key]);
    return true;
}

// False when nothing is to be written.
bool WalkModel::mayOverwrite(int key)
{
    WalkDocument &document = m_documents[key];
    const bool isForeign = !document.isBuffer() && m_files.contains(document.path) &&
                           m_files.value(document.path) != document.own;
    if (!document.isModified || !isForeign || !preferences().checkForModifiedFiles)
        return true;
    const QString answer = expect("Save", document.path + "\n\nThis file has been modified");
    present(placeOf(key));
    document.mustBeAskedAbout = false;
    if (answer == "Reload")
        return load(&document);
    document.seen = m_files.value(document.path);
    return answer == "Overwrite";
}

// Deliberate: all questions come before the first is written.
void WalkModel::saveAll()
{
    mayCheck();
    QList<int> agreed;
    for (int key : m_panes[0].documents + m_panes[1].documents) {
        if (mayOverwrite(key))
            agreed << key;
    }
    for (int key : agreed)
        saveDocument(&m_documents[key]);
}

void WalkModel::saveBuffers()
{
    for (WalkDocument &document : m_documents) {
        if (document.isBuffer())
            saveDocument(&document);
    }
}

void WalkModel::saveAs(const QString &path)
{
    const int key = currentKey();
    if (key < 0)
        return;
    const Place other = placeOfFile(path);
    if (other && keyAt(other) != key) {
        const int overwritten = keyAt(other);
        const WalkDocument &document = m_documents[overwritten];
        if (document.isBuffer())
            closeTab(other.pane, other.tab);
        else if (!document.isModified || expect("Save File", "is open and has") == "Yes")
            removeDocument(other);
        if (m_documents.contains(overwritten))
            return;
    }
    WalkDocument &document = m_documents[key];
    if (QFileInfo(path).absolutePath() != m_folder || QFileInfo(path).isDir()) {
        expect("Error", path);
        document.isModified = true;
        document.savedText.reset();
        if (!m_files.contains(document.path)) // nothing is lost by not asking
            document.mustBeAskedAbout = false;
        return;
    }
    if (document.isBuffer())
        m_files.remove(document.path);
    document.bufferIndex = -1;
    document.path = path;
    write(&document);
}

void WalkModel::rename(int bufferIndex, const QString &path, const QString &name)
{
    const Place place = bufferIndex >= 0 ? placeOfBuffer(bufferIndex) : placeOfFile(path);
    const int key = keyAt(place);
    if (expect("Rename", QString()) != "OK" || name.isEmpty() || !m_documents.contains(key))
        return;
    WalkDocument &document = m_documents[key];
    const QString newPath = m_folder + '/' + name;
    if (document.isBuffer()) {
        document.label = name;
    } else if (name.contains('/')) {
        expect("Error", name);
    } else if (newPath == document.path) {
        return;
    } else if (QFileInfo(newPath).isDir() || m_files.contains(newPath) || placeOfFile(newPath)) {
        expect("Error", newPath);
    } else if (m_files.contains(document.path)) {
        m_files.insert(newPath, m_files.take(document.path));
        document.path = newPath;
    }
}

void WalkModel::closeActive()
{
    if (m_panes[m_active].current >= 0)
        closeTab(m_active, m_panes[m_active].current);
}

void WalkModel::closeTab(int pane, int tab)
{
    const int key = keyAt({pane, tab});
    if (mayClose(key)) {
        if (const Place place = placeOf(key))
            removeDocument(place);
    }
}

bool WalkModel::mayClose(int key)
{
    const WalkDocument &document = m_documents[key];
    if (!document.isBuffer())
        return mayCloseFile(key);
    if (!preferences().confirmCloseTemporaryBuffer || document.text.isEmpty())
        return true;
    return expect("Delete", '\'' + document.label + '\'') == "Yes";
}

// Deliberate: "Yes" saves the pane's current document too.
bool WalkModel::mayCloseFile(int key)
{
    if (!m_documents[key].isModified)
        return true;
    const QString name = QFileInfo(m_documents[key].path).fileName();
    const QString answer = expect("Save", '\'' + name + '\'');
    const Place place = placeOf(key);
    if (answer != "Yes" || !place)
        return answer == "No";
    const int current = keyAt({place.pane, m_panes[place.pane].current});
    const bool currentIsSaved = saveAsked(current);
    if (current == key || !m_documents.contains(key))
        return currentIsSaved;
    present(placeOf(key));
    if (!saveAsked(key))
        return false;
    if (m_documents.contains(current))
        present(placeOf(current));
    return true;
}

void WalkModel::removeDocument(const Place &place)
{
    const int key = keyAt(place);
    if (m_documents[key].isBuffer())
        m_files.remove(m_documents[key].path);
    removeTab(place);
    m_documents.remove(key);
    if (m_panes[place.pane].documents.isEmpty())
        losePane(place.pane);
}

void WalkModel::losePane(int pane)
{
    m_active = 1 - pane;
    mustCheck();
}

bool WalkModel::promptAll(int pane, int skipped)
{
    for (int key : QList<int>(m_panes[pane].documents)) {
        if (key == skipped || !m_documents.contains(key) || m_documents[key].isBuffer() ||
            !m_documents[key].isModified)
            continue;
        const QString name = QFileInfo(m_documents[key].path).fileName();
        const QString answer = expect("Save", '\'' + name + '\'');
        if (answer != "No" && (answer != "Yes" || !saveAsked(key)))
            return false;
    }
    return true;
}

void WalkModel::closeBut(int keptKey)
{
    mayCheck();
    if (keptKey >= 0 && !m_documents.contains(keptKey))
        return;
    if (keptKey >= 0)
        show(placeOf(keptKey));
    for (int pane = 0; pane < 2; ++pane) {
        if (!promptAll(pane, keptKey))
            return;
    }
    for (int key : m_panes[0].documents + m_panes[1].documents) {
        if (key == keptKey || !m_documents.contains(key))
            continue;
        if (!m_documents[key].isBuffer() || mayClose(key)) {
            if (const Place place = placeOf(key))
                removeDocument(place);
        }
    }
}

void WalkModel::closeAllBut(int pane)
{
    closeBut(m_panes[pane].documents.at(m_panes[pane].current));
}

void WalkModel::moveToOtherView(int pane, int tab)
{
    const int key = keyAt({pane, tab});
    removeTab({pane, tab});
    m_active = 1 - pane;
    m_panes[m_active].current = int(m_panes[m_active].documents.size());
    m_panes[m_active].documents << key;
}

// The document takes the focus.
void WalkModel::selectTab(int pane, int tab)
{
    m_panes[pane].current = tab;
    m_active = pane;
    m_isActiveSure = true;
}

void WalkModel::stepTabs(int step)
{
    Pane &pane = m_panes[m_active];
    const int count = int(pane.documents.size());
    if (count > 1)
        pane.current = (pane.current + step + count) % count;
}

void WalkModel::selectBuffer(int bufferIndex)
{
    show(placeOfBuffer(bufferIndex));
}

void WalkModel::reloadFromDisk()
{
    const int key = currentKey();
    if (key < 0 || m_documents[key].isBuffer())
        return;
    if (m_documents[key].isModified && expect("Reload", "unsaved changes") != "Yes")
        return;
    if (m_documents.contains(key) && !load(&m_documents[key]))
        expect("File Read Error", m_documents[key].path);
}

// Of files only what is on the disk is left.
WalkDocument WalkModel::reopened(const WalkDocument &document) const
{
    WalkDocument fresh;
    fresh.path = document.path;
    fresh.label = document.label;
    return fresh;
}

void WalkModel::restart()
{
    for (WalkDocument &document : m_documents) {
        if (document.isBuffer() && (document.isModified || !m_files.contains(document.path)))
            write(&document);
    }
    const QMap<int, WalkDocument> before = m_documents;
    const Pane panes[2] = {m_panes[0], m_panes[1]};
    const bool hasPanes = panes[0].current >= 0;
    m_documents.clear();
    m_panes[0] = m_panes[1] = Pane();
    m_nextBufferIndex = 0;
    int wanted[2] = {-1, -1}; // tabs of the documents that were current
    const int currents[2] = {panes[hasPanes ? 0 : 1].current, panes[1].current};
    for (int pane = 0; pane < 2; ++pane) {
        for (int i = 0; i < panes[pane].documents.size(); ++i) {
            const int key = panes[pane].documents.at(i);
            const int index = m_nextBufferIndex++;
            WalkDocument document = reopened(before.value(key));
            document.bufferIndex = before.value(key).isBuffer() ? index : -1;
            const int newPane = hasPanes ? pane : 0;
            if (!load(&document))
                continue;
            insert(newPane, -1, document);
            if (i == currents[newPane])
                wanted[newPane] = int(m_panes[newPane].documents.size()) - 1;
        }
    }
    for (int pane = 0; pane < 2; ++pane) {
        const int last = int(m_panes[pane].documents.size()) - 1;
        m_panes[pane].current = wanted[pane] >= 0 ? wanted[pane] : std::min(currents[pane], last);
    }
    m_active = hasPanes ? m_active : 0;
    if (m_panes[m_active].current < 0)
        m_active = m_panes[1 - m_active].current >= 0 ? 1 - m_active : 0;
}
