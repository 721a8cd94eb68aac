// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

// The text widget of a code view: plain text with the keys that every document needs. Knows no
// language and no file; the view owns it.
class PlainCodeEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit PlainCodeEdit(QWidget *parent = nullptr);

    // The lines joined by "\n", with every other character as it stands: toPlainText() would turn
    // no-break spaces into spaces.
    QString text() const;

    // Both take what the preferences say now.
    void applyFontAndColors();
    void applyTextOption(); // tab stops, marks of white space, wrapping
    // Every tab of the document, each filled up to its tab stop; one step to undo.
    void convertTabsToSpaces();

signals:
    void overwriteModeChanged();
    // The first of what was dropped, if it is a file.
    void fileDropped(const QString &path);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool canInsertFromMimeData(const QMimeData *source) const override;

private:
    // Steps of keyPressEvent(): each says whether it took the key.
    bool leaveReturnToWindow(QKeyEvent *event);
    bool keypadEnterExecutes(QKeyEvent *event);
    bool tabInsertsSpaces(QKeyEvent *event);
    bool toggleOverwrite(QKeyEvent *event);
};
