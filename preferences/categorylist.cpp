// SPDX-License-Identifier: MIT
#include "preferences/categorylist.h"

#include "compat/itemoption.h"
#include "preferences/colorsets.h"

#include <QPainter>
#include <QStyledItemDelegate>

namespace {

const int indexRole = Qt::UserRole; // headings have none

// Frames the chosen row instead of painting it over, so that its own colours stay in sight.
class CategoryDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        compat::ItemOption plain(option);
        plain.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_MouseOver);
        QStyledItemDelegate::paint(painter, plain, index);
        if (!(option.state & QStyle::State_Selected))
            return;
        painter->setPen(QPen(option.palette.color(QPalette::Highlight), 2));
        painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    }
};

// Colours that the format leaves open are those of the plain text.
void showFormat(QListWidgetItem *item, const TextFormat &format, const TextFormat &plain)
{
    QFont font = item->font();
    font.setBold(format.bold);
    font.setItalic(format.italic);
    item->setFont(font);
    item->setForeground(format.foreground.isValid() ? format.foreground : plain.foreground);
    item->setBackground(format.background.isValid() ? format.background : plain.background);
}

} // namespace

CategoryList::CategoryList(QWidget *parent) : QListWidget(parent)
{
    setItemDelegate(new CategoryDelegate(this));
    addHeading(tr("Editor"));
    addCategories(0, editorTextCount);
    addHeading(tr("Output"));
    addCategories(editorTextCount, textCount);
    setCurrentRow(1); // below the heading
    connect(this, SIGNAL(currentRowChanged(int)), SIGNAL(categoryChanged()));
}

void CategoryList::addHeading(const QString &text)
{
    QListWidgetItem *item = new QListWidgetItem(text, this);
    item->setFlags(Qt::NoItemFlags); // the arrow keys pass it over
    QFont font = item->font();
    font.setBold(true);
    item->setFont(font);
    // Disabled texts can be almost invisible.
    item->setForeground(palette().color(QPalette::Active, QPalette::Text));
}

void CategoryList::addCategories(int begin, int end)
{
    for (int index = begin; index < end; ++index) {
        QListWidgetItem *item = new QListWidgetItem(QString::fromUtf8(textName(index)), this);
        item->setData(indexRole, index);
    }
}

void CategoryList::showFormats(const TextFormats &formats)
{
    for (int row = 0; row < count(); ++row) {
        const QVariant index = item(row)->data(indexRole);
        if (!index.isValid())
            continue;
        showFormat(item(row), formats[index.toInt()], plainFormat(formats, index.toInt()));
    }
}

int CategoryList::category() const
{
    return currentItem()->data(indexRole).toInt();
}
