// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

class EdBufferView;
class EdCentralWidget;
class EdOpenDocumentView;

// The part of the editor's window that a walk goes through: the panes and the two lists of what is
// open, connected to each other as there.
class WalkWindow : public QWidget
{
    Q_OBJECT

public:
    WalkWindow();
    ~WalkWindow() override;

    EdCentralWidget *central() const { return m_central; }
    EdBufferView *buffers() const { return m_buffers; }
    EdOpenDocumentView *documents() const { return m_documents; }

    // Everything that can be seen of it and of the files in the folders, a line each.
    QStringList picture(const QStringList &folders) const;
    // Empty when every view is some tab's, or an empty one that holds the place of a tab.
    QString strayViews() const;

private slots:
    void showCurrentDocument(const QString &name);

private:
    void connectLists();
    QStringList picture(int pane) const;
    QString listLine(bool isOfBuffers) const;

    EdCentralWidget *m_central;
    EdBufferView *m_buffers;
    EdOpenDocumentView *m_documents;
    QString m_name; // that the panes have reported last
};
