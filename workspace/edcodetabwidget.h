// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/saveprompt.h"

#include <QFileInfo>
#include <QList>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

class EdCodeTabBar;
class EdCodeView;
class QMenu;
class QMouseEvent;
class QStackedWidget;
struct TabEntry;

// One pane of the central area: a bar of tabs above a stack of code views, one view for each tab.
// Views keep their place in the stack however tabs are moved; the place of one that went is held by
// an empty view until another one takes it. A pane without tabs is hidden.
class EdCodeTabWidget : public QWidget
{
    Q_OBJECT

public:
    explicit EdCodeTabWidget(int id, QWidget *parent = nullptr);

    int id() const { return m_id; }
    EdCodeTabBar *tabBar() const { return m_tabBar; }

    int count() const;
    // -1 without tabs.
    int currentIndex() const;
    // A file's ends in "*" while it has changes; empty for no tab.
    QString tabText(int tabIndex) const;
    // Null for no tab.
    EdCodeView *currentCodeView() const;
    EdCodeView *codeViewAt(int tabIndex) const;
    // In the order of their tabs.
    QList<EdCodeView *> codeViews() const;
    static QList<QPointer<EdCodeView>> guarded(const QList<EdCodeView *> &views);
    // The tab of a view or of a place in the stack, or -1.
    int indexOf(const EdCodeView *view) const;
    int indexOfStack(int stackIndex) const;
    // The place in the stack of the view that shows the file, by whatever name, or of the buffer;
    // -1 when there is none.
    int findFile(const QFileInfo &info) const;
    int findBuffer(int bufferIndex) const;
    bool isModified(int tabIndex) const;

    // These make the tab current, position -1 being behind all others, and return its index. The
    // pane owns the view.
    int insertCodeView(int position, EdCodeView *view, const QString &label);
    int newBuffer(int bufferIndex, int language, const QString &label);
    int newBuffer(int bufferIndex);
    int newMelBuffer(int bufferIndex);
    int newPythonBuffer(int bufferIndex);
    // Both report a file that cannot be read to the user and return -1.
    int openBuffer(const QFileInfo &info, int bufferIndex, const QString &label, int position);
    // A place in the stack other than -1 is where the file is open already: its tab becomes
    // current, or, when it has none, the file is opened. The result is then -1 too.
    int openFile(const QFileInfo &info, int existingStackIndex, int position);

    // Loads a file again, without asking; buffers are left alone.
    void reload(int tabIndex);
    // Gives the tab's view the focus; nothing for an index outside.
    void setCurrentTab(int tabIndex);
    // The tabs of the other pane are dimmed.
    void setActive(bool active);
    // Every view takes the preferred indentation.
    void updateTabSettings();

    // Appends an entry for each tab, which the pane of that id is to restore.
    void writeState(QStringList &out, int viewId) const;
    // Opens what the entry says, plainly read, whichever pane it names. Damaged entries are
    // dropped; a file that cannot be read is reported to the user.
    void restoreTab(const QString &entry, int bufferIndex);
    // Without a box; returns the reason of a failure, or an empty text. Between the other
    // two, which are for many tabs; the last one shows the pane, if it has any, with the tab in
    // front that is nearest to the index.
    void beginRestoring();
    QString restoreTabQuietly(const TabEntry &entry, int bufferIndex);
    void endRestoring(int tabIndex);

    // Views of closed tabs go by themselves once the event loop is back, since closing may have
    // begun in one of them. This deletes them at once.
    void deleteRetiredViews();

    // In those of buffers `id` is the buffer's index, elsewhere the pane's.
signals:
    void createNewBufferTriggered();
    void bufferCreated(int id, const QString &name, const QFileInfo &info);
    void bufferDeleted(int id);
    void bufferRenamed(int id, const QString &name);
    void fileOpened(const QString &path);
    // Of buffers too.
    void fileClosed(const QString &path);
    void fileRenamed(const QString &oldPath, const QString &newPath);
    void closeAllButCurrent(int id);
    void saveSelected();
    void saveAsSelected();
    void gainedFocus(int id);
    // The tab shall move to the other pane; with -1 this pane has lost its last one.
    void otherViewRequested(int id, int tabIndex);
    void overwriteModeChanged();
    void cursorStatusChanged();
    void findReplaceMessageChanged(const QString &message);
    void quickHelpSelected(const QString &message, bool ignoreWhenHidden);
    void textChanged();
    void tabChanged();
    // The current tab is dragged outside the pane, or, without `updateCursorOnly`, dropped there.
    void tabMovedOutsideCurrent(int id, const QPoint &globalPos, bool updateCursorOnly);
    void fileDropped(const QString &path, int id);
    void commandDocumentationSelected(const QString &command, bool python);
    void longLineReached();
    void completionSlow();
    // By a drag, which is over.
    void tabsReordered();
    // Has a tab and, unless it was restored, is current; it may come from the other pane.
    void codeViewInserted(EdCodeView *view);
    // Changes of a document are written because it, or another one, is being closed. Whoever hears
    // it may reload or close the document, or forbid to save it: it is then neither written nor
    // closed.
    void aboutToSave(EdCodeView *view, bool *maySave);
    // Its tab is being closed; a buffer's file is deleted already.
    void codeViewRetired(EdCodeView *view);

public slots:
    void save();
    void save(int tabIndex);
    // Deliberate: the old document is reported closed and the new one opened even when nothing
    // could be written.
    void saveAs(const QString &path);
    void saveAll();
    void saveBuffers();
    // Asks for the new name of the tab whose menu was opened, else of the current one. Buffers
    // change their label, files their name on disk.
    void rename();
    void rename(int tabIndex);
    void undo();
    void redo();
    void cut();
    void copy();
    void paste();
    void selectAll();
    void clearText();
    // Asks about the changes of every file; deliberately of the current one only with
    // `ignoreCurrent`. False when the user cancels or a file cannot be saved.
    bool promptAllUnsaved(bool ignoreCurrent = false);
    // Asks before a buffer with text is deleted.
    bool confirmCloseBuffer(int tabIndex);
    // Asks nothing. A buffer's file is deleted.
    void forceCloseTab(int tabIndex);
    // Asks about changes; the tab stays when the user cancels or saving fails.
    void closeTab(int tabIndex);
    void closeAllButThis();
    void contextCloseTab();
    void focusBuffer(int bufferIndex);
    void setCurrentCodeView(int tabIndex);
    void setCodeEditFocus();
    void contextMenuSave();
    void contextMenuSaveAs();
    void setTabBarVisible(bool visible);
    void setTabsMovable(bool movable);
    void setTabsClosable(bool closable);
    void setTabsDoubleClickToClose(bool doubleClickToClose);
    // Lets go of a tab and of its view, which goes to another pane.
    void tabMoved(int tabIndex);
    // Follows the view's state in its tab; null is the sender.
    void setModified(bool modified, EdCodeView *codeView = nullptr);
    void moveToOtherView();
    void inFocus();
    void onFileRenamed(const QString &oldPath, const QString &newPath);
    // The position is one in the tab bar.
    void contextMenu(const QPoint &position);
    void tabMoveContextMenu(const QPoint &globalPos);
    void updateFontAndColors();
    void updateHiddenCharacters();
    void updateOverwriteMode();
    void convertTabsToSpaces();
    void onOverwriteModeChange();
    void onCursorStatusChange();
    void onTextChange();
    void onFindReplaceMessageChange(const QString &message);
    void quickHelp(const QString &message, bool ignoreWhenHidden);
    void setCursorSelection(int position, int anchor);
    // The options are those of FindRequest.
    void findReplace(const QString &findText, const QString &replaceText, int options);
    void replace(const QString &text);
    void onFileDrop(const QString &path);
    // Both go round.
    void previousTab();
    void nextTab();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

private slots:
    void forgetContextTab();

private:
    // Where the mouse has a tab; the bar's empty part is nowhere.
    enum class DragPlace { Nowhere, Tabs, Pane, Outside };

    void connectView(EdCodeView *view);
    EdCodeView *newView();
    int stackIndexAt(int tabIndex) const;
    QList<EdCodeView *> stackedViews() const;
    int freeStackIndex() const;
    int addToStack(EdCodeView *view);
    int addTab(int position, EdCodeView *view, const QString &label, bool inFront);
    void bringToFront(EdCodeView *view);
    void replaceInStack(int stackIndex, EdCodeView *view);
    EdCodeView *takeView(int tabIndex);
    void removeTab(int tabIndex);
    void forgetTabs();
    void setTabText(int tabIndex, const QString &text);
    QString documentName(int tabIndex) const;

    SaveAnswer promptSave(int tabIndex);
    bool askToLose(const QString &name);
    bool mayCloseFile(EdCodeView *view);
    bool saveBeforeClosing(const QPointer<EdCodeView> &view);
    bool saveForClosing(const QPointer<EdCodeView> &view);
    int takeContextTab();
    QMenu *newMenu();

    bool barEvent(QEvent *event);
    bool stepInBar(QEvent *event);
    bool doubleClick(const QMouseEvent &event);
    void press(const QMouseEvent &event);
    void drag(const QMouseEvent &event);
    void dragOver(int target, int x, int movement);
    void dragBeside(const QPoint &position);
    bool release(const QMouseEvent &event);
    void closePressedTab(const QPoint &position);
    void drop(const QPoint &globalPos);
    void startDrag(int x);
    void endDrag();
    bool isDragging() const { return m_dragSource >= 0; }

    int m_id;
    EdCodeTabBar *m_tabBar;
    QStackedWidget *m_stack;
    int m_contextTab = -1; // under the last click that opened a menu
    bool m_doubleClickToClose = false;
    bool m_movable = true;
    DragPlace m_dragPlace = DragPlace::Nowhere;
    int m_dragSource = -1; // the tab that is dragged
    int m_dragX = 0;       // of the mouse's last event, like the next two in the bar
    int m_leftTurn = -1;   // only to the left of it may a tab swapped to the right swap back
    int m_rightTurn = -1;
    bool m_moving = false;                      // a drag is changing the order of tabs
    bool m_reordered = false;                   // the drag has changed it
    QPointer<EdCodeView> m_middleView;          // on whose tab the middle button went down
    QList<QPointer<EdCodeView>> m_retiredViews; // some may be deleted
};
