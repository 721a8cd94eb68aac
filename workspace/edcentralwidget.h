// SPDX-License-Identifier: MIT
#pragma once

#include <QFileInfo>
#include <QString>
#include <QWidget>

class EdCodeView;
class QLabel;

// The centre of the window: the open document, or a hint when there is none. The window talks to
// documents only through this widget.
class EdCentralWidget : public QWidget
{
    Q_OBJECT

public:
    explicit EdCentralWidget(QWidget *parent = nullptr);

    // The open document; null when there is none.
    EdCodeView *currentCodeView() const { return m_view; }
    // Whether there is text that is in no file yet.
    bool hasUnsavedContent() const;

public slots:
    void newBuffer();
    void newMelBuffer();
    void newPythonBuffer();
    void openFile(const QString &path);

    void save();
    void saveAs(const QString &path);
    void saveAll();
    void rename();
    void renameBuffer(int bufferIndex);
    void renameFile(const QString &path);
    void reloadFromDisk();

    void undo();
    void redo();
    void cut();
    void copy();
    void paste();
    void selectAll();
    void clearText();
    void convertTabsToSpaces();
    void replace(const QString &text);

    void closeActive();
    void closeAll();
    void closeAllButCurrent();
    void closeBuffer(int bufferIndex);
    void closeFile(const QString &path);
    void focusBuffer(int bufferIndex);

    void updateFontAndColors();
    void updateHiddenCharacters();

signals:
    void fileDropped(const QString &path);
    void fileOpened(const QString &path);
    void fileClosed(const QString &path);
    void fileRenamed(const QString &oldPath, const QString &newPath);
    void createNewBufferTriggered();
    void bufferCreated(int id, const QString &name, const QFileInfo &info);
    void bufferDeleted(int id);
    void bufferRenamed(int id, const QString &newName);
    void tabSaveSelected();
    void tabSaveAsSelected();
    void overwriteModeChanged();
    void cursorStatusChanged(int line, int column, int sel);
    void activeBufferNameChanged(const QString &name);

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private slots:
    void reportCursor();
    void reportName();

private:
    void addBuffer(int language, const QString &label);
    void showView(EdCodeView *view);
    void retireView();
    void connectView();
    bool nothingIsLost();
    bool isCurrentFile(const QString &path) const;
    bool isCurrentBuffer(int bufferIndex) const;
    QString documentName() const;

    EdCodeView *m_view = nullptr;
    QLabel *m_hint;
    QString m_bufferLabel;
    int m_nextBufferIndex = 0;
};
