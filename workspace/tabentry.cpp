// SPDX-License-Identifier: MIT
#include "workspace/tabentry.h"

#include "editor/edcodeedit.h"
#include "workspace/edcodeview.h"

#include <QScrollBar>
#include <QStringList>

namespace {

const int leastFields = 5; // one more for a buffer, its label

} // namespace

TabEntry TabEntry::of(const EdCodeView &view, int pane, const QString &label)
{
    TabEntry entry;
    entry.pane = pane;
    entry.path = view.fileInfo().absoluteFilePath();
    entry.cursorPosition = view.codeEdit()->textCursor().position();
    entry.scrollValue = view.codeEdit()->verticalScrollBar()->value();
    entry.isBuffer = view.isBuffer();
    entry.label = label;
    return entry;
}

std::optional<TabEntry> TabEntry::parse(const QString &text)
{
    const QStringList fields = text.split(QLatin1Char(','));
    if (fields.size() < leastFields || fields.at(1).isEmpty())
        return std::nullopt;
    TabEntry entry;
    bool valid[4] = {};
    entry.pane = fields.at(0).toInt(&valid[0]);
    entry.path = fields.at(1);
    entry.cursorPosition = fields.at(2).toInt(&valid[1]);
    entry.scrollValue = fields.at(3).toInt(&valid[2]);
    entry.isBuffer = fields.at(4).toInt(&valid[3]) != 0;
    if (!(valid[0] && valid[1] && valid[2] && valid[3]))
        return std::nullopt;
    if (entry.isBuffer && fields.size() == leastFields)
        return std::nullopt;
    if (entry.isBuffer)
        entry.label = fields.at(leastFields);
    return entry;
}

QString TabEntry::text() const
{
    QStringList fields;
    fields << QString::number(pane) << path << QString::number(cursorPosition)
           << QString::number(scrollValue) << QString::number(isBuffer ? 1 : 0);
    if (isBuffer)
        fields << label;
    return fields.join(QLatin1String(","));
}

bool TabEntry::open(EdCodeView *view, int bufferIndex) const
{
    if (!view->load(QFileInfo(path), isBuffer, isBuffer ? bufferIndex : -1))
        return false;
    view->setCursorPosition(cursorPosition);
    view->codeEdit()->verticalScrollBar()->setValue(scrollValue);
    view->codeEdit()->ensureCursorVisible();
    return true;
}

bool TabEntry::hasFile() const
{
    const QFileInfo file(path);
    return file.isFile() && file.isReadable();
}
