// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/textfile.h"

#include <QFileInfo>
#include <QWidget>

#include <memory>

class EdHighlighter;
class PlainCodeEdit;

// One open document: its text widget, the file behind it, and its language. A buffer is a document
// that was never given a file.
class EdCodeView : public QWidget
{
    Q_OBJECT

public:
    // What language() reports.
    enum Language { Text = 0, Python = 1, Mel = 2 };

    EdCodeView(int bufferIndex, int language, QWidget *parent = nullptr);
    ~EdCodeView() override;

    // Replaces the document by the file's. A file that cannot be read is reported to the user and
    // leaves the document as it was; the result is false.
    bool load(const QFileInfo &info);
    // Writes the text and makes the document that file's. A failure is reported to the user.
    bool write(const QString &path);
    // Renames the file on disk; buffers have none and are left alone.
    void rename(const QString &newName);

    PlainCodeEdit *codeEdit() const { return m_codeEdit; }
    QFileInfo fileInfo() const { return m_fileInfo; }
    int bufferIndex() const { return m_bufferIndex; }
    bool isBuffer() const { return m_bufferIndex >= 0; }
    bool isModified() const;
    int language() const { return m_language; }
    // Takes colours and the marks of white space from the preferences.
    void highlightAgain();
    // The whole text, lines ending in "\n".
    QString text() const;
    // The selection as the text widget reports it: U+2029 between lines.
    QString selectedText() const;
    // The text of the caret's line.
    QString lineText() const;

public slots:
    // Removes all text as one step that can be undone.
    void clearText();
    void setCodeEditFocus();
    // Moves the caret to a line, counted from 1.
    void goToLine(int line);

signals:
    void fileRenamed(const QString &oldPath, const QString &newPath);
    void modificationChanged(bool changed);
    void cursorStatusChanged();
    void overwriteModeChanged();
    void fileDropped(const QString &path);

private:
    void setLanguage(int language);

    PlainCodeEdit *m_codeEdit;
    std::unique_ptr<EdHighlighter> m_highlighter; // none for plain text
    QFileInfo m_fileInfo;
    TextFile m_fileFormat;
    int m_bufferIndex;
    int m_language = Text;
};
