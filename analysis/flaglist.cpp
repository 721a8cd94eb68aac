// SPDX-License-Identifier: MIT
#include "analysis/flaglist.h"

#include <QHeaderView>

namespace {

enum Column { LongName, ShortName, Argument };

const int columnGap = 4; // pixels
const int rowMargin = 4;
const int fewestRows = 6; // that are seen at once
const int usualRows = 12;

QTreeWidgetItem *createItem(const CommandFlag &flag)
{
    const QString name = flag.longName.isEmpty() ? flag.shortName : flag.longName;
    return new QTreeWidgetItem(QStringList() << name << flag.shortName << flag.argument);
}

// How well a flag answers to what was typed; 0 is not at all.
int matchQuality(const QTreeWidgetItem &item, const QString &text)
{
    int best = 0;
    for (const Column column : {LongName, ShortName}) {
        const QString name = item.text(column);
        if (name.compare(text, Qt::CaseInsensitive) == 0)
            best = qMax(best, 3);
        else if (name.startsWith(text, Qt::CaseInsensitive))
            best = qMax(best, 2);
        else if (name.contains(text, Qt::CaseInsensitive))
            best = qMax(best, 1);
    }
    return best;
}

} // namespace

FlagList::FlagList(QWidget *parent) : EdTreeWidget(parent)
{
    setHeaderHidden(false);
    setHeaderLabels(QStringList() << tr("Flag") << tr("Short") << tr("Argument"));
    setRootIsDecorated(false);
    setUniformRowHeights(true); // many flags are laid out at once
    setAllColumnsShowFocus(true);
    header()->setMinimumSectionSize(columnGap);
}

void FlagList::setFlags(const QList<CommandFlag> &flags)
{
    clear();
    QList<QTreeWidgetItem *> items;
    for (const CommandFlag &flag : flags)
        items << createItem(flag);
    insertTopLevelItems(0, items);
    sortItems(LongName, Qt::AscendingOrder);
    for (const Column column : {LongName, ShortName, Argument})
        m_wanted[column] = sizeHintForColumn(column) + columnGap;
    m_wanted[LongName] = qMax(m_wanted[LongName], withTitle(LongName));
    fitColumns();
    setCurrentItem(topLevelItem(0));
}

void FlagList::resizeEvent(QResizeEvent *event)
{
    EdTreeWidget::resizeEvent(event);
    fitColumns();
}

int FlagList::withTitle(int column) const
{
    return header()->sectionSizeHint(column) + columnGap;
}

// The long names get what the others leave, but half of the width at least; where there is little
// of it, the others lose their titles first.
void FlagList::fitColumns()
{
    const int room = viewport()->width();
    const int mostShort = qMax(m_wanted[ShortName], withTitle(ShortName));
    const int left = room - mostShort - m_wanted[Argument];
    const int longNames = qMin(m_wanted[LongName], qMax(left, room / 2));
    const int rest = room - longNames;
    const int shortNames = qBound(m_wanted[ShortName], rest - m_wanted[Argument], mostShort);
    setColumnWidth(LongName, longNames);
    setColumnWidth(ShortName, shortNames);
    setColumnWidth(Argument, rest - shortNames);
}

void FlagList::filter(const QString &text)
{
    QTreeWidgetItem *likeliest = nullptr;
    int best = 0;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = topLevelItem(i);
        const int quality = matchQuality(*item, text);
        item->setHidden(quality == 0);
        if (quality > best) {
            best = quality;
            likeliest = item;
        }
    }
    setCurrentItem(likeliest);
}

QString FlagList::currentFlag() const
{
    return currentItem() ? currentItem()->text(LongName) : QString();
}

QSize FlagList::minimumSizeHint() const
{
    return QSize(EdTreeWidget::minimumSizeHint().width(), heightOfRows(fewestRows));
}

QSize FlagList::sizeHint() const
{
    return QSize(EdTreeWidget::sizeHint().width(), heightOfRows(usualRows));
}

// Of any flags, so that the view does not change its size with the command.
int FlagList::heightOfRows(int rows) const
{
    const int rowHeight = fontMetrics().height() + rowMargin;
    return header()->sizeHint().height() + rows * rowHeight + 2 * frameWidth();
}
