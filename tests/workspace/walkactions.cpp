// SPDX-License-Identifier: MIT
// The steps of a walk: each does the same to the program and to its model.
#include "tests/workspace/walk.h"

#include "editor/edcodeedit.h"
#include "preferences/preferences.h"
#include "tests/workspace/walkpicture.h"
#include "tests/workspace/walkwindow.h"
#include "workspace/edbufferview.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/edopendocumentview.h"

#include <QFile>
#include <QTest>

namespace {

const char *const names[] = {"a.mel", "b.py",  "c.txt",   "d.mel",
                             "e.py",  "f.txt", "g h.mel", "i,j.mel"};
const int nameCount = int(sizeof names / sizeof *names);
const int mostDocuments = 10;
const int mostLength = 200; // of a text that is typed on

} // namespace

const Walk::Action Walk::actions[] = {
    {8, "new buffer", &Walk::newBuffer},
    {14, "open", &Walk::openFile},
    {6, "choose from a list", &Walk::chooseFromList},
    {14, "type", &Walk::type},
    {10, "replace", &Walk::replace},
    {1, "clear", &Walk::clearText},
    {1, "convert tabs", &Walk::convertTabs},
    {6, "undo", &Walk::undo},
    {4, "redo", &Walk::redo},
    {10, "save", &Walk::save},
    {2, "save all", &Walk::saveAll},
    {2, "save buffers", &Walk::saveBuffers},
    {8, "save as", &Walk::saveAs},
    {4, "rename", &Walk::rename},
    {4, "rename from a list", &Walk::renameOther},
    {5, "close", &Walk::closeActive},
    {5, "close another", &Walk::closeOther},
    {1, "close all", &Walk::closeAll},
    {1, "close all but one", &Walk::closeAllBut},
    {8, "move", &Walk::move},
    {8, "select a tab", &Walk::selectTab},
    {4, "step through tabs", &Walk::stepTabs},
    {4, "reload", &Walk::reload},
    {10, "others change", &Walk::changeFile},
    {4, "others remove", &Walk::removeFile},
    {10, "come back", &Walk::comeBack},
    {3, "clean up", &Walk::cleanUp},
    {3, "set", &Walk::setPreference},
    {1, "restart", &Walk::restart},
};
const int Walk::actionCount = int(sizeof actions / sizeof *actions);

QString Walk::anyName()
{
    return QString::fromLatin1(names[below(nameCount)]);
}

QString Walk::anyText()
{
    const char *const texts[] = {"x", "proc a() {\n}\n", "\t", "two words", "\n", "\xc3\xa9;\n\tb"};
    return QString::fromUtf8(texts[below(6)]);
}

// -1 when neither has one.
int Walk::anyPaneWithTabs()
{
    const int pane = below(2);
    if (!m_model.pane(pane).documents.isEmpty())
        return pane;
    return m_model.pane(1 - pane).documents.isEmpty() ? -1 : 1 - pane;
}

void Walk::newBuffer()
{
    if (m_model.documentCount() >= mostDocuments)
        return closeActive();
    const int language = below(3);
    note(QString::number(language));
    if (language == 0)
        central()->newBuffer();
    else if (language == 1)
        central()->newPythonBuffer();
    else
        central()->newMelBuffer();
    const char *const labels[] = {"Text", "Python", "MEL"};
    const char *const suffixes[] = {"txt", "py", "mel"};
    m_model.addBuffer(labels[language], suffixes[language]);
}

void Walk::openFile()
{
    if (m_model.documentCount() >= mostDocuments)
        return closeOther();
    const QString path = anyPath();
    note(path);
    central()->openFile(path);
    listen();
    m_model.openFile(path);
}

// As a click does, which may be on the current entry.
void Walk::chooseFromList()
{
    QListWidget *list = m_window->documents();
    const bool isBuffer = oneOf(2);
    if (isBuffer)
        list = m_window->buffers();
    if (list->count() == 0)
        return;
    QListWidgetItem *item = list->item(below(list->count()));
    const QVariant identity = item->data(Qt::UserRole);
    note(identity.toString());
    if (item != list->currentItem())
        list->setCurrentItem(item);
    else if (isBuffer)
        m_window->buffers()->selectBuffer(item);
    else
        m_window->documents()->selectDocument(item);
    listen();
    if (isBuffer)
        m_model.selectBuffer(identity.toInt());
    else
        m_model.openFile(identity.toString());
}

void Walk::changeText()
{
    if (!current())
        return;
    m_model.edit(current()->text(), current()->isModified());
    noteUndoSteps();
}

void Walk::type()
{
    if (!current())
        return;
    EdCodeEdit *edit = current()->codeEdit();
    const int length = int(edit->text().size());
    central()->setCursorSelection(below(length + 1), below(length + 1));
    const Qt::Key keys[] = {Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Tab,
                            Qt::Key_A,      Qt::Key_BraceLeft, Qt::Key_Space};
    for (int count = 1 + below(3); count > 0; --count) {
        const Qt::Key key = keys[length > mostLength ? 1 : below(7)];
        note(QString::number(key, 16));
        QTest::keyClick(edit, key);
        changeText();
    }
}

void Walk::replace()
{
    const EdCodeView *view = current();
    if (!view)
        return;
    QString text = view->text();
    const int start = below(int(text.size()) + 1);
    const int end = start + below(int(text.size()) - start + 1);
    const QString by = text.size() > mostLength ? QString("less") : anyText();
    central()->setCursorSelection(end, start);
    central()->replace(by);
    text.replace(start, end - start, by);
    m_model.edit(text, view->isModified());
}

void Walk::clearText()
{
    central()->clearText();
    if (current())
        m_model.edit(QString(), current()->isModified());
}

void Walk::convertTabs()
{
    central()->convertTabsToSpaces();
    changeText();
}

void Walk::undo()
{
    central()->undo();
    stepBack(-1);
}

void Walk::redo()
{
    central()->redo();
    stepBack(1);
}

void Walk::stepBack(int step)
{
    if (const EdCodeView *view = current())
        m_model.undo(step, view->text(), view->isModified(),
                     view->codeEdit()->document()->availableUndoSteps());
}

void Walk::save()
{
    central()->save();
    listen();
    m_model.save();
}

void Walk::saveAll()
{
    central()->saveAll();
    listen();
    m_model.saveAll();
}

void Walk::saveBuffers()
{
    central()->saveBuffers();
    m_model.saveBuffers();
}

void Walk::saveAs()
{
    QString path = anyPath();
    if (oneOf(5))
        path = m_files.file(oneOf(2) ? "folder.mel" : "missing/a.mel");
    note(path);
    central()->saveAs(path);
    listen();
    m_model.saveAs(path);
}

void Walk::rename()
{
    const WalkDocument *document = m_model.current();
    if (!document)
        return;
    const int bufferIndex = document->bufferIndex;
    const QString path = document->path;
    const QString name = oneOf(8) ? QString("folder.mel") : anyName();
    note(name);
    m_boxes.enter(name);
    central()->rename();
    listen();
    m_model.rename(bufferIndex, path, name);
}

void Walk::renameOther()
{
    const int pane = anyPaneWithTabs();
    if (pane < 0)
        return;
    const int tab = below(int(m_model.pane(pane).documents.size()));
    const WalkDocument document = m_model.document(pane, tab);
    const QString name = oneOf(8) ? QString() : oneOf(8) ? QString("x/y") : anyName();
    note(document.path + " to " + name);
    m_boxes.enter(name);
    if (document.isBuffer())
        central()->renameBuffer(document.bufferIndex);
    else
        central()->renameFile(document.path);
    listen();
    m_model.rename(document.bufferIndex, document.path, name);
}

void Walk::closeActive()
{
    central()->closeActive();
    listen();
    m_model.closeActive();
}

// From a list, or by the button of a tab.
void Walk::closeOther()
{
    const int pane = anyPaneWithTabs();
    if (pane < 0)
        return;
    const int tab = below(int(m_model.pane(pane).documents.size()));
    const WalkDocument document = m_model.document(pane, tab);
    note(document.path);
    if (oneOf(2))
        central()->pane(pane)->closeTab(tab);
    else if (document.isBuffer())
        central()->closeBuffer(document.bufferIndex);
    else
        central()->closeFile(document.path);
    listen();
    m_model.closeTab(pane, tab);
}

void Walk::closeAll()
{
    central()->closeAll();
    listen();
    m_model.closeAll();
}

void Walk::closeAllBut()
{
    const int pane = anyPaneWithTabs();
    if (pane < 0)
        return;
    note(QString::number(pane));
    if (pane == central()->activePane())
        central()->closeAllButCurrent();
    else
        central()->closeAllButCurrent(pane);
    listen();
    m_model.closeAllBut(pane);
}

void Walk::move()
{
    const int pane = anyPaneWithTabs();
    if (pane < 0)
        return;
    const int tab = below(int(m_model.pane(pane).documents.size()));
    note(QString("%1.%2").arg(pane).arg(tab));
    if (tab == m_model.pane(pane).current)
        central()->pane(pane)->moveToOtherView();
    else
        central()->moveToOtherView(pane, tab);
    m_model.moveToOtherView(pane, tab);
}

void Walk::selectTab()
{
    const int pane = anyPaneWithTabs();
    if (pane < 0)
        return;
    const int tab = below(int(m_model.pane(pane).documents.size()));
    note(QString("%1.%2").arg(pane).arg(tab));
    central()->pane(pane)->setCurrentTab(tab);
    m_model.selectTab(pane, tab);
}

void Walk::stepTabs()
{
    const bool isBack = oneOf(2);
    EdCodeTabWidget *pane = central()->pane(central()->activePane());
    if (isBack)
        pane->previousTab();
    else
        pane->nextTab();
    m_model.stepTabs(isBack ? -1 : 1);
}

void Walk::reload()
{
    central()->reloadFromDisk();
    listen();
    m_model.reloadFromDisk();
}

// With the same bytes at times, which is no change.
void Walk::changeFile()
{
    const QStringList open = m_model.openPaths();
    const QString path = open.isEmpty() || oneOf(3) ? anyPath() : open.at(below(int(open.size())));
    QByteArray bytes = m_model.files().value(path);
    if (!oneOf(4))
        bytes = anyText().toUtf8() + QByteArray::number(below(100));
    if (oneOf(4))
        bytes.replace("\r\n", "\n").replace("\n", "\r\n");
    note(path + " to " + walkpicture::visible(QString::fromUtf8(bytes)));
    changeFileOf(path, bytes);
}

void Walk::removeFile()
{
    const QString path = anyPath();
    note(path);
    changeFileOf(path, std::nullopt);
}

// In place, or by another file as safe programs do.
void Walk::changeFileOf(const QString &path, const std::optional<QByteArray> &bytes)
{
    const bool isReplaced = oneOf(2);
    const bool wasThere = QFile::exists(path);
    if (!bytes || isReplaced)
        QFile::remove(path);
    if (bytes) {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(*bytes);
    }
    if ((bytes || wasThere) && oneOf(2))
        central()->externalFileChange(path);
    m_model.changeOutside(path, bytes);
}

void Walk::comeBack()
{
    central()->setActiveTabWidgetIndex(central()->activePane());
    listen();
    m_model.comeBack();
}

void Walk::cleanUp()
{
    central()->tabCleanup();
}

void Walk::setPreference()
{
    bool Preferences::*const members[] = {&Preferences::confirmCloseTemporaryBuffer,
                                          &Preferences::checkForModifiedFiles,
                                          &Preferences::insertDocsOnLeft};
    bool &preference = preferences().*members[below(3)];
    preference = !preference;
    central()->setTabsMovable(oneOf(2));
    central()->setTabsClosable(oneOf(2));
    central()->setTabsDoubleClickToClose(oneOf(2));
    central()->updateTabsAndSpaces();
    central()->updateHiddenCharacters();
}

void Walk::restart()
{
    central()->saveBuffersQuietly();
    const WorkspaceState state = central()->state();
    showWindow();
    central()->restore(state);
    m_model.restart();
}
