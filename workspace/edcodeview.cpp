// SPDX-License-Identifier: MIT
#include "workspace/edcodeview.h"

#include "editor/edcodeedit.h"
#include "editor/editorlanguage.h"
#include "workspace/textfile.h"

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTextBlock>
#include <QVBoxLayout>

namespace {

// Case-sensitive: "MEL" and "PY" are plain text.
int languageOfFile(const QFileInfo &info)
{
    const QString suffix = info.suffix();
    if (suffix == QLatin1String("py") || suffix == QLatin1String("pyw"))
        return EdCodeView::Python;
    return suffix == QLatin1String("mel") ? EdCodeView::Mel : EdCodeView::Text;
}

int editorLanguage(int language)
{
    switch (language) {
    case EdCodeView::Python:
        return PythonLanguage;
    case EdCodeView::Mel:
        return MelLanguage;
    default:
        return TextLanguage;
    }
}

} // namespace

EdCodeView::EdCodeView(int bufferIndex, int language, QWidget *parent)
    : QWidget(parent), m_codeEdit(new EdCodeEdit(this)), m_bufferIndex(bufferIndex)
{
    setLanguage(language);
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_codeEdit);

    // The widget's signals are those of the document.
    connect(m_codeEdit, SIGNAL(modificationChanged(bool)), SIGNAL(modificationChanged(bool)));
    connect(m_codeEdit, SIGNAL(cursorPositionChanged()), SIGNAL(cursorStatusChanged()));
    connect(m_codeEdit, SIGNAL(selectionChanged()), SIGNAL(cursorStatusChanged()));
    connect(m_codeEdit, SIGNAL(overwriteModeChanged()), SIGNAL(overwriteModeChanged()));
    connect(m_codeEdit, SIGNAL(fileDropped(QString)), SIGNAL(fileDropped(QString)));
    connect(m_codeEdit, SIGNAL(quickHelpSelected(QString, bool)),
            SIGNAL(quickHelpSelected(QString, bool)));
    connect(m_codeEdit, SIGNAL(commandDocumentationSelected(QString, bool)),
            SIGNAL(commandDocumentationSelected(QString, bool)));
}

void EdCodeView::setLanguage(int language)
{
    m_language = language;
    m_codeEdit->setLanguage(editorLanguage(language));
    m_codeEdit->updateTabsAndSpaces();
}

bool EdCodeView::load(const QFileInfo &info)
{
    const QString path = info.absoluteFilePath();
    QString reason;
    TextFile file;
    if (!readTextFile(path, &file, &reason)) {
        QMessageBox::warning(this, tr("File Read Error"),
                             tr("Cannot read file %1:\n%2.").arg(path, reason));
        return false;
    }
    m_bufferIndex = -1;
    m_fileInfo = info;
    // Before the text comes, so that it is scanned once.
    setLanguage(languageOfFile(info));
    m_encoding = file.encoding;
    m_codeEdit->setText(file.text);
    m_lineEnds.mark(m_codeEdit->document(), file.text);
    m_codeEdit->document()->setModified(false);
    return true;
}

bool EdCodeView::write(const QString &path)
{
    if (path.isEmpty())
        return false;
    // Set first, so that clearing it is always a change that titles and lists hear of.
    m_codeEdit->document()->setModified(true);
    const TextFile file = {m_lineEnds.text(*m_codeEdit->document()), m_encoding};
    QString reason;
    if (!writeTextFile(path, file, &reason)) {
        QMessageBox::warning(this, tr("Error"), tr("Cannot write file %1:\n%2.").arg(path, reason));
        return false;
    }
    m_bufferIndex = -1;
    m_fileInfo = QFileInfo(path); // afresh, with the new file's size and time
    setLanguage(languageOfFile(m_fileInfo));
    m_codeEdit->document()->setModified(false);
    return true;
}

void EdCodeView::rename(const QString &newName)
{
    if (isBuffer() || newName == m_fileInfo.fileName())
        return;
    const QString oldPath = m_fileInfo.absoluteFilePath();
    const QFileInfo target(QString::fromLatin1("%1/%2").arg(m_fileInfo.absolutePath(), newName));
    const QString newPath = target.absoluteFilePath();
    // QFile::rename() would refuse as well, but not say why.
    if (target.exists()) {
        QMessageBox::warning(this, tr("Error"), tr("File already exists:\n%1").arg(newPath));
        return;
    }
    if (!QFile::rename(oldPath, newPath))
        return;
    m_fileInfo = QFileInfo(newPath);
    setLanguage(languageOfFile(m_fileInfo));
    emit fileRenamed(oldPath, newPath);
}

bool EdCodeView::isModified() const
{
    return m_codeEdit->document()->isModified();
}

QString EdCodeView::text() const
{
    return m_codeEdit->text();
}

QString EdCodeView::selectedText() const
{
    return m_codeEdit->textCursor().selectedText();
}

QString EdCodeView::lineText() const
{
    return m_codeEdit->textCursor().block().text();
}

void EdCodeView::clearText()
{
    QTextCursor cursor(m_codeEdit->document());
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
}

void EdCodeView::setCodeEditFocus()
{
    m_codeEdit->setFocus(Qt::OtherFocusReason);
}

void EdCodeView::goToLine(int line)
{
    m_codeEdit->setTextCursor(QTextCursor(m_codeEdit->document()->findBlockByNumber(line - 1)));
    m_codeEdit->centerCursor();
}
