// SPDX-License-Identifier: MIT
#include "workspace/comparedialog.h"

#include "preferences/textcolors.h"
#include "preferences/textformats.h"
#include "workspace/linediff.h"
#include "workspace/lineends.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QVBoxLayout>

namespace {

const int context = 3; // lines around a difference

struct Look
{
    const char *prefix;
    QTextCharFormat format;
};

// Told apart without colours too.
Look lookOf(DiffKind kind)
{
    switch (kind) {
    case DiffKind::Removed:
        return {"- ", textFormat(OutputText::Errors).charFormat()};
    case DiffKind::Added:
        return {"+ ", textFormat(OutputText::Results).charFormat()};
    case DiffKind::Skipped:
        return {"    ... ", textFormat(EditorText::LineNumbers).charFormat()};
    case DiffKind::Same:
        break;
    }
    return {"  ", QTextCharFormat()};
}

} // namespace

CompareDialog::CompareDialog(const QString &title, const QString &before, const QString &after,
                             QWidget *parent)
    : QDialog(parent), m_view(new QPlainTextEdit(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(title);
    setTextColors(m_view, textFormat(OutputText::Plain), textFormat(OutputText::Selected));
    m_view->setFont(editorFont());
    m_view->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_view->setReadOnly(true);
    m_view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_view->setAccessibleName(title);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, Qt::Horizontal, this);
    connect(buttons, SIGNAL(rejected()), SLOT(reject()));
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->addWidget(m_view);
    layout->addWidget(buttons);
    resize(720, 480);
    fill(before, after);
}

void CompareDialog::fill(const QString &before, const QString &after)
{
    QTextCursor cursor(m_view->document());
    cursor.beginEditBlock();
    for (const DiffLine &line : withContext(lineDiff(linesOf(before), linesOf(after)), context)) {
        const Look look = lookOf(line.kind);
        if (!cursor.atStart())
            cursor.insertBlock();
        cursor.insertText(QLatin1String(look.prefix) + line.text, look.format);
    }
    cursor.endEditBlock();
    m_view->moveCursor(QTextCursor::Start);
}
