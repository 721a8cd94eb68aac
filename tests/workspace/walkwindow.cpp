// SPDX-License-Identifier: MIT
#include "tests/workspace/walkwindow.h"

#include "tests/workspace/walkpicture.h"
#include "workspace/edbufferview.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/edopendocumentview.h"

#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QStackedWidget>

WalkWindow::WalkWindow()
    : m_central(new EdCentralWidget(this)), m_buffers(new EdBufferView(this)),
      m_documents(new EdOpenDocumentView(this))
{
    QHBoxLayout *layout = new QHBoxLayout(this);
    layout->addWidget(m_central);
    layout->addWidget(m_buffers);
    layout->addWidget(m_documents);
    connectLists();
    resize(400, 200);
    setUpdatesEnabled(false); // a walk takes most of its time for painting otherwise
}

// The children outlive this part of the object; what they still report must not reach it.
WalkWindow::~WalkWindow()
{
    m_central->disconnect(this);
}

void WalkWindow::connectLists()
{
    connect(m_central, SIGNAL(fileOpened(QString)), m_documents, SLOT(addDocument(QString)));
    connect(m_central, SIGNAL(fileClosed(QString)), m_documents, SLOT(removeDocument(QString)));
    connect(m_central, SIGNAL(fileRenamed(QString, QString)), m_documents,
            SLOT(renameDocument(QString, QString)));
    connect(m_documents, SIGNAL(documentSelected(QString)), m_central, SLOT(openFile(QString)));
    connect(m_central, SIGNAL(bufferCreated(int, QString, QFileInfo)), m_buffers,
            SLOT(addBuffer(int, QString, QFileInfo)));
    connect(m_central, SIGNAL(bufferDeleted(int)), m_buffers, SLOT(removeBuffer(int)));
    connect(m_central, SIGNAL(bufferRenamed(int, QString)), m_buffers,
            SLOT(renameBuffer(int, QString)));
    connect(m_buffers, SIGNAL(bufferSelected(int)), m_central, SLOT(focusBuffer(int)));
    connect(m_central, SIGNAL(activeBufferNameChanged(QString)),
            SLOT(showCurrentDocument(QString)));
}

void WalkWindow::showCurrentDocument(const QString &name)
{
    m_name = name;
    const EdCodeView *view = m_central->currentCodeView();
    m_documents->showCurrent(view ? view->fileInfo().absoluteFilePath() : QString());
    m_buffers->showCurrent(view ? view->bufferIndex() : -1);
}

QStringList WalkWindow::picture(const QStringList &folders) const
{
    QStringList lines;
    lines << walkpicture::activeLine(m_central->activePane(), m_name) << picture(0) << picture(1)
          << listLine(true) << listLine(false);
    QMap<QString, QByteArray> files;
    for (const QString &folder : folders) {
        const QDir::Filters filters = QDir::Files | QDir::Hidden | QDir::System;
        for (const QString &name : QDir(folder).entryList(filters)) {
            QFile file(folder + '/' + name);
            file.open(QIODevice::ReadOnly);
            files.insert(file.fileName(), file.readAll());
        }
    }
    return lines + walkpicture::fileLines(files);
}

QStringList WalkWindow::picture(int id) const
{
    const EdCodeTabWidget *pane = m_central->pane(id);
    QStringList lines(walkpicture::currentLine(id, pane->currentIndex()));
    for (int tab = 0; tab < pane->count(); ++tab) {
        const EdCodeView *view = pane->codeViewAt(tab);
        if (view->isBuffer() != (view->bufferIndex() >= 0))
            lines << "a buffer without an index, or a file with one";
        lines << walkpicture::line(id, tab,
                                   {pane->tabText(tab), view->fileInfo().absoluteFilePath(),
                                    view->bufferIndex(), view->isModified(), view->language(),
                                    view->text()});
    }
    return lines;
}

QString WalkWindow::listLine(bool isOfBuffers) const
{
    const QListWidget *list = m_documents;
    if (isOfBuffers)
        list = m_buffers;
    QStringList entries;
    for (int row = 0; row < list->count(); ++row)
        entries << list->item(row)->data(Qt::UserRole).toString() + '=' + list->item(row)->text();
    const QListWidgetItem *current = list->currentItem();
    return walkpicture::listLine(isOfBuffers ? "buffers" : "documents", entries,
                                 current ? current->data(Qt::UserRole).toString() : QString());
}

QString WalkWindow::strayViews() const
{
    int places = 0;
    for (int id = 0; id < EdCentralWidget::PaneCount; ++id) {
        const EdCodeTabWidget *pane = m_central->pane(id);
        const QStackedWidget *stack = pane->findChild<QStackedWidget *>();
        places += stack->count();
        if (pane->isVisibleTo(m_central) != (pane->count() > 0))
            return "a pane without tabs is shown, or one with tabs is hidden";
        if (pane->count() > 0 && stack->currentWidget() != pane->currentCodeView())
            return "the view in front is not the current tab's";
    }
    const int views = int(m_central->findChildren<EdCodeView *>().size());
    return views == places ? QString() : QString("%1 views for %2 places").arg(views).arg(places);
}
