// SPDX-License-Identifier: MIT
#include "workspace/tabentry.h"

#include "workspace/edcodeview.h"

#include <QStringList>

namespace {

const QLatin1Char comma(',');

bool isInBufferDirectory(const QString &path)
{
    const QString folder = QFileInfo(QFileInfo(path).absolutePath()).canonicalFilePath();
    return !folder.isEmpty() && folder == EdCodeView::bufferDirectory().canonicalPath();
}

QString joined(const QStringList &fields, int first, int count)
{
    return QStringList(fields.mid(first, count)).join(QString(comma));
}

// With the field that tells a buffer from a file, the path being all before it that is left over.
// A label follows it.
std::optional<TabEntry> entryWith(const QStringList &fields, int bufferField)
{
    const int pathFields = bufferField - 3;
    if (pathFields < 1)
        return std::nullopt;
    TabEntry entry;
    bool valid[4] = {};
    entry.pane = fields.at(0).toInt(&valid[0]);
    entry.path = joined(fields, 1, pathFields);
    entry.cursorPosition = fields.at(bufferField - 2).toInt(&valid[1]);
    entry.scrollValue = fields.at(bufferField - 1).toInt(&valid[2]);
    entry.isBuffer = fields.at(bufferField).toInt(&valid[3]) != 0;
    entry.label = joined(fields, bufferField + 1, -1);
    const bool isWhole = bufferField == fields.size() - 1 ? !entry.isBuffer : entry.isBuffer;
    if (!isWhole || entry.path.isEmpty() || !(valid[0] && valid[1] && valid[2] && valid[3]))
        return std::nullopt;
    return entry;
}

} // namespace

TabEntry TabEntry::of(const EdCodeView &view, int pane, const QString &label)
{
    TabEntry entry;
    entry.pane = pane;
    entry.path = view.fileInfo().absoluteFilePath();
    entry.cursorPosition = view.cursorPosition();
    entry.scrollValue = view.scrollValue();
    entry.isBuffer = view.isBuffer();
    entry.label = label;
    return entry;
}

std::optional<TabEntry> TabEntry::parsePlainly(const QString &text)
{
    const QStringList fields = text.split(comma);
    if (fields.size() < 5)
        return std::nullopt;
    TabEntry entry;
    bool valid[3] = {};
    entry.path = fields.at(1);
    entry.cursorPosition = fields.at(2).toInt(&valid[0]);
    entry.scrollValue = fields.at(3).toInt(&valid[1]);
    entry.isBuffer = fields.at(4).toInt(&valid[2]) != 0;
    entry.label = fields.value(5);
    if (!(valid[0] && valid[1] && valid[2]) || (entry.isBuffer && fields.size() < 6))
        return std::nullopt;
    return entry;
}

std::optional<TabEntry> TabEntry::parse(const QString &text)
{
    const QStringList fields = text.split(comma);
    const int last = int(fields.size()) - 1;
    // Names of buffer files have no commas, so the shortest path is the one; labels may have any.
    for (int field = 4; field < last; ++field) {
        const std::optional<TabEntry> buffer = entryWith(fields, field);
        if (buffer && isInBufferDirectory(buffer->path))
            return buffer;
    }
    std::optional<TabEntry> file = entryWith(fields, last);
    if (!file)
        file = entryWith(fields, last - 1); // a file of the user's, listed as a buffer
    if (file)
        file->isBuffer = false;
    return file;
}

QString TabEntry::text() const
{
    QStringList fields;
    fields << QString::number(pane) << path << QString::number(cursorPosition)
           << QString::number(scrollValue) << QString::number(isBuffer ? 1 : 0);
    if (isBuffer)
        fields << label;
    return fields.join(QString(comma));
}

void TabEntry::place(EdCodeView *view) const
{
    view->setPlace(cursorPosition, scrollValue);
}

bool TabEntry::hasFile() const
{
    const QFileInfo file(path);
    return file.isFile() && file.isReadable();
}
