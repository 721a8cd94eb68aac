// SPDX-License-Identifier: MIT
#include "editor/completionmodel.h"

#include "compat/icon.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSize>

#include <algorithm>
#include <array>

namespace {

const int iconSize = 16;        // pixels
const int fewestInnerUnits = 2; // typed before words inside a name are looked at

// In the order of CompletionKind.
const char *const iconNames[] = {
    "keyword",  "builtin", "command", "execute",      "mel_proc", "python_variable",
    "argument", "flag",    "module",  "python_class", "function", "python_class_variable",
};
const int kindCount = int(sizeof iconNames / sizeof *iconNames);

QPixmap recoloured(QPixmap pixmap, const QColor &color)
{
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color);
    painter.end(); // before the pixmap moves
    return pixmap;
}

// On a selected row it has the colour of the text, as its own may be that of the row.
QIcon loadIcon(const char *name, const QColor &selected)
{
    QIcon icon = compat::icon(QString::fromLatin1(":/icons/%1.png").arg(QLatin1String(name)));
    icon.addPixmap(recoloured(icon.pixmap(iconSize), selected), QIcon::Selected);
    return icon;
}

const QIcon &kindIcon(CompletionKind kind)
{
    static std::array<QIcon, kindCount> icons;
    static QColor colour; // none at first
    const QColor selected = QApplication::palette().color(QPalette::HighlightedText);
    if (colour != selected) {
        for (int i = 0; i < kindCount; ++i)
            icons[i] = loadIcon(iconNames[i], selected);
    }
    colour = selected;
    return icons[int(kind)];
}

// Most are ASCII, and there are many of them at every key.
ushort folded(QChar character)
{
    const ushort unit = character.unicode();
    if (unit < 0x80)
        return unit >= 'A' && unit <= 'Z' ? ushort(unit + ('a' - 'A')) : unit;
    return character.toCaseFolded().unicode();
}

bool holdsAt(const QString &text, int index, const QString &typed)
{
    if (text.size() - index < typed.size())
        return false;
    const QChar *units = text.constData() + index;
    return std::equal(typed.begin(), typed.end(), units,
                      [](QChar a, QChar b) { return folded(a) == folded(b); });
}

// polySphere2   sphere_shape
// |   |         |      |
bool wordStartsAt(const QString &text, int index)
{
    const QChar before = text.at(index - 1);
    const QChar first = text.at(index);
    return first.isLetterOrNumber() &&
           (!before.isLetterOrNumber() || (first.isUpper() && !before.isUpper()));
}

} // namespace

CompletionMatch completionMatch(const QString &text, const QString &typed)
{
    if (holdsAt(text, 0, typed))
        return text.startsWith(typed) ? CompletionMatch::Prefix : CompletionMatch::OtherCase;
    if (typed.size() < fewestInnerUnits)
        return CompletionMatch::None;
    for (int i = 1; i + typed.size() <= text.size(); ++i) {
        if (holdsAt(text, i, typed) && wordStartsAt(text, i))
            return CompletionMatch::InnerWord;
    }
    return CompletionMatch::None;
}

CompletionModel::CompletionModel(QObject *parent) : QAbstractListModel(parent) {}

void CompletionModel::setCompletions(std::vector<Completion> completions)
{
    beginResetModel();
    m_rows.clear();
    m_completions = std::move(completions);
    m_longest = 0;
    for (const Completion &completion : m_completions)
        m_longest = std::max(m_longest, int(completion.text.size()));
    endResetModel();
}

void CompletionModel::narrow(const QString &typed)
{
    std::array<std::vector<int>, int(CompletionMatch::None)> matches;
    for (int i = 0; i < int(m_completions.size()); ++i) {
        const CompletionMatch match = completionMatch(m_completions[i].text, typed);
        if (match != CompletionMatch::None)
            matches[int(match)].push_back(i);
    }
    beginResetModel();
    m_rows.clear();
    for (const std::vector<int> &indices : matches)
        m_rows.insert(m_rows.end(), indices.begin(), indices.end());
    endResetModel();
}

int CompletionModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant CompletionModel::data(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return completion(index.row()).text;
    case Qt::DecorationRole:
        return kindIcon(completion(index.row()).kind);
    case Qt::SizeHintRole:
        return QSize(1, m_rowHeight); // the view makes rows as wide as itself
    default:
        return QVariant();
    }
}
