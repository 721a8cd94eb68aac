// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/lineends.h"
#include "workspace/textencoding.h"

#include <QFileInfo>
#include <QWidget>

class EdCodeEdit;

// One open document: its text widget, the file behind it, and its language. A buffer is a document
// that was never given a file. The central widget owns it; asking whether changes may be lost is
// the central widget's business, not this one's.
class EdCodeView : public QWidget
{
    Q_OBJECT

public:
    // What language() reports.
    enum Language { Text = 0, Python = 1, Mel = 2 };

    // A buffer index of -1 is for a view that will be given a file.
    EdCodeView(int bufferIndex, int language, QWidget *parent = nullptr);

    // Replaces the document by the file's. A file that cannot be read is reported to the user and
    // leaves the document as it was; the result is false.
    bool load(const QFileInfo &info);
    // Writes the text and makes the document that file's. A failure is reported to the user, gives
    // false, and leaves the document the old file's with changes. False for an empty path.
    bool write(const QString &path);
    // Renames the file on disk, inside its directory, and with it the language; changes stay
    // unsaved. A name that is taken is reported to the user; after other failures nothing is
    // changed. Buffers have no file and are left alone.
    void rename(const QString &newName);

    EdCodeEdit *codeEdit() const { return m_codeEdit; }
    QFileInfo fileInfo() const { return m_fileInfo; }
    // 0 or more, -1 for a file.
    int bufferIndex() const { return m_bufferIndex; }
    bool isBuffer() const { return m_bufferIndex >= 0; }
    bool isModified() const;
    int language() const { return m_language; }
    // The whole text, lines ending in "\n".
    QString text() const;
    // The selection as the text widget reports it: U+2029 between lines. Empty without one.
    QString selectedText() const;
    // The text of the caret's line.
    QString lineText() const;

public slots:
    // Removes all text as one step that can be undone.
    void clearText();
    void setCodeEditFocus();
    // Moves the caret to a line of the document, counted from 1, and that to the middle of the
    // view.
    void goToLine(int line);

signals:
    void fileRenamed(const QString &oldPath, const QString &newPath);
    void modificationChanged(bool changed);
    void cursorStatusChanged();
    void overwriteModeChanged();
    void fileDropped(const QString &path);
    void quickHelpSelected(const QString &text, bool ignoreWhenHidden);
    void commandDocumentationSelected(const QString &command, bool python);

private:
    void setLanguage(int language);

    EdCodeEdit *m_codeEdit;
    QFileInfo m_fileInfo;
    TextEncoding m_encoding = TextEncoding::Utf8; // as the file was read
    LineEnds m_lineEnds;
    int m_bufferIndex;
    int m_language = Text;
};
