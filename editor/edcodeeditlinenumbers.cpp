// SPDX-License-Identifier: MIT
#include "editor/edcodeeditlinenumbers.h"

#include "editor/edcodeedit.h"

EdCodeEditLineNumbers::EdCodeEditLineNumbers(EdCodeEdit *editor) : QWidget(editor), m_editor(editor)
{
    // Every pixel is painted, so what lies behind need not be.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize EdCodeEditLineNumbers::sizeHint() const
{
    return QSize(m_editor->lineNumberWidth(), 0);
}

// Only the editor knows where its lines are.
void EdCodeEditLineNumbers::paintEvent(QPaintEvent *event)
{
    m_editor->paintLineNumbers(this, *event);
}
