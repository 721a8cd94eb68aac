// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class EdCodeEdit;

// The gutter at an editor's left edge: line numbers, and an icon for a line with a diagnostic. A
// child of its editor, which places it and paints it.
class EdCodeEditLineNumbers : public QWidget
{
    Q_OBJECT

public:
    explicit EdCodeEditLineNumbers(EdCodeEdit *editor);

    // The gutter's width; the height is the editor's to give.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    EdCodeEdit *m_editor;
};
