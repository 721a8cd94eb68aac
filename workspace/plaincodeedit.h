// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

// The text widget of a code view: plain text with the keys that every document needs.
class PlainCodeEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit PlainCodeEdit(QWidget *parent = nullptr);

    // The lines joined by "\n", with every other character as it stands: toPlainText() would turn
    // no-break spaces into spaces.
    QString text() const;

    void applyFontAndColors();
    void applyTextOption();
    void convertTabsToSpaces();

signals:
    void overwriteModeChanged();
    void fileDropped(const QString &path);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool canInsertFromMimeData(const QMimeData *source) const override;

private:
    bool leaveReturnToWindow(QKeyEvent *event);
    bool keypadEnterExecutes(QKeyEvent *event);
    bool tabInsertsSpaces(QKeyEvent *event);
    bool toggleOverwrite(QKeyEvent *event);
};
