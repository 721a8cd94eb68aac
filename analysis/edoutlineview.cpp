// SPDX-License-Identifier: MIT
#include "analysis/edoutlineview.h"

#include "analysis/edtreewidget.h"
#include "analysis/melparser.h"
#include "analysis/pythonparser.h"
#include "compat/icon.h"
#include "preferences/preferences.h"

#include <QCursor>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QPersistentModelIndex>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const int iconPixels = 16;
const int buttonGap = 2; // pixels around and between the buttons

enum Receiver { Tree, View };

struct ButtonRow
{
    const char *icon;
    const char *toolTip;
    bool checkable;
    const char *signal;
    Receiver receiver;
    const char *slot;
};

// clang-format off
const ButtonRow buttonRows[] = {
    // icon                      tool tip        checkable  signal                 receiver, slot
    {":/icons/sort_alpha.png",   "Sort by name", true,      SIGNAL(clicked(bool)), View, SLOT(sortAlphabetically(bool))},
    {":/icons/expand_all.png",   "Expand all",   false,     SIGNAL(clicked()),     Tree, SLOT(expandAll())},
    {":/icons/collapse_all.png", "Collapse all", false,     SIGNAL(clicked()),     Tree, SLOT(collapseAll())},
    {":/icons/view_menu.png",    "View",         false,     SIGNAL(clicked()),     View, SLOT(showViewDialog())},
};

struct MenuRow
{
    const char *text; // null for a separator
    bool Preferences::*preference;
    const char *slot;
};

const MenuRow menuRows[] = {
    {"Hide Imports",                &Preferences::pythonHideImportInOutline,    SLOT(toggleImportVisibility())},
    {"Hide __main__",               &Preferences::pythonHideMainInOutline,      SLOT(toggleMainVisibility())},
    {nullptr,                       nullptr,                                    nullptr},
    {"Hide Global Variables (MEL)", &Preferences::melHideGlobalVarInOutline,    SLOT(toggleGlobalVariableVisibility())},
    {"Hide Global Procs (MEL)",     &Preferences::melHideGlobalProcsInOutline,  SLOT(toggleGlobalProcVisibility())},
    {"Hide Procs (MEL)",            &Preferences::melHideProcsInOutline,        SLOT(toggleProcVisibility())},
};
// clang-format on

int startOf(const QTreeWidgetItem &item)
{
    return item.data(1, Qt::UserRole).toInt();
}

int endOf(const QTreeWidgetItem &item)
{
    return item.data(2, Qt::UserRole).toInt();
}

} // namespace

EdOutlineView::EdOutlineView(QWidget *parent)
    : QWidget(parent), m_tree(new EdTreeWidget(this)), m_outline(m_tree),
      m_palettes(m_tree->palette())
{
    m_tree->setHeaderLabels(QStringList() << tr("Name") << tr("Start"));
    m_tree->setColumnHidden(1, true); // for nobody to read
    m_tree->header()->setSortIndicator(0, Qt::AscendingOrder);
    m_tree->setUniformRowHeights(true);
    m_tree->setIconSize(QSize(iconPixels, iconPixels));
    m_tree->setFrameShape(QFrame::NoFrame);
    updatePalette();
    setFocusProxy(m_tree);

    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(createButtons());
    layout->addWidget(m_tree);
    connectTree();
    sortAlphabetically(preferences().sort);
}

QBoxLayout *EdOutlineView::createButtons()
{
    QBoxLayout *layout = new QHBoxLayout;
    layout->setContentsMargins(buttonGap, buttonGap, buttonGap, buttonGap);
    layout->setSpacing(buttonGap);
    for (const ButtonRow &row : buttonRows) {
        QToolButton *button = new QToolButton(this);
        button->setIcon(compat::icon(QLatin1String(row.icon)));
        button->setIconSize(QSize(iconPixels, iconPixels));
        button->setToolTip(tr(row.toolTip));
        button->setAutoRaise(true);
        button->setCheckable(row.checkable);
        QWidget *receiver = m_tree;
        if (row.receiver == View)
            receiver = this;
        connect(button, row.signal, receiver, row.slot);
        if (row.receiver == Tree) // the caret's item may be seen now, or no longer
            connect(button, row.signal, SLOT(markCaret()));
        if (row.checkable)
            m_sortButton = button;
        layout->addWidget(button);
    }
    layout->addStretch();
    return layout;
}

void EdOutlineView::connectTree()
{
    m_tree->installEventFilter(this);
    connect(m_tree, SIGNAL(itemClicked(QTreeWidgetItem *, int)),
            SLOT(onItemClicked(QTreeWidgetItem *, int)));
    connect(m_tree, SIGNAL(itemDoubleClicked(QTreeWidgetItem *, int)),
            SLOT(onItemDoubleClicked(QTreeWidgetItem *, int)));
    connect(m_tree, SIGNAL(currentItemChangedByKey()), SLOT(onSelectionChanged()));
}

bool EdOutlineView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn)
        m_tree->setPalette(m_palettes.focused);
    if (event->type() == QEvent::FocusOut) {
        m_tree->setPalette(m_palettes.unfocused);
        markCaret();
    }
    return QWidget::eventFilter(watched, event);
}

// The window's or the program's colours are others.
void EdOutlineView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        updatePalette();
}

void EdOutlineView::updatePalette()
{
    m_tree->setPalette(QPalette()); // without what was set here before
    m_palettes = FocusPalettes(m_tree->palette());
    m_tree->setPalette(m_tree->hasFocus() ? m_palettes.focused : m_palettes.unfocused);
}

void EdOutlineView::parseMelCode(const MelParser &parser)
{
    showItemsOf(parser);
}

void EdOutlineView::parsePythonCode(const PythonParser &parser)
{
    showItemsOf(parser);
}

void EdOutlineView::showItemsOf(const BaseParser &parser)
{
    const QString path = parser.file().absoluteFilePath();
    // Saved under another name: the document that is closed has the outline of a new one.
    if (m_path.isEmpty() && !m_details.contains(path) && m_outline.shows(parser.outlineItems()))
        m_path = path;
    if (path == m_path)
        m_outline.update(parser.outlineItems());
    else
        openDocument(path, parser.outlineItems());
    updatePreferences(); // of which nobody may have told
}

void EdOutlineView::openDocument(const QString &path, const QList<OutlineItem> &items)
{
    storeDetails();
    m_path = path;
    m_caret.position = -1;
    m_keepsScrollPosition = m_details.contains(path);
    const Details details = m_details.value(path);
    m_outline.fill(items, details.expansion);
    if (details.scrollPosition > 0) {
        m_tree->doItemsLayout(); // without it there is nothing to scroll yet
        m_tree->verticalScrollBar()->setValue(details.scrollPosition);
    }
}

void EdOutlineView::storeDetails()
{
    if (m_path.isEmpty())
        return;
    Details details;
    details.expansion = m_outline.expansion();
    details.scrollPosition = m_tree->verticalScrollBar()->value();
    m_details.insert(m_path, details);
}

void EdOutlineView::clear()
{
    openDocument(QString(), QList<OutlineItem>());
    m_details.clear();
}

void EdOutlineView::clearStoredDetails(const QString &path)
{
    m_details.remove(QFileInfo(path).absoluteFilePath());
    if (m_path == QFileInfo(path).absoluteFilePath())
        m_path.clear(); // lest it be stored again when another document is shown
}

void EdOutlineView::renameStoredDetails(const QString &oldPath, const QString &newPath)
{
    const QString before = QFileInfo(oldPath).absoluteFilePath();
    const QString now = QFileInfo(newPath).absoluteFilePath();
    if (m_details.contains(before))
        m_details.insert(now, m_details.take(before));
    if (m_path == before)
        m_path = now;
}

void EdOutlineView::contentsChange(int position, int charsRemoved, int charsAdded)
{
    m_outline.contentsChange(position, charsRemoved, charsAdded);
}

// Nothing is known about the line.
void EdOutlineView::followCaret(int position)
{
    m_caret = {position, 0, position};
    markCaret();
}

void EdOutlineView::followCaret(const QTextCursor &caret)
{
    const QTextBlock line = caret.block();
    m_caret = {caret.position(), line.position(), line.position() + line.length() - 1};
    markCaret();
}

void EdOutlineView::markCaret()
{
    // Whoever moves through the tree is not taken elsewhere.
    if (m_caret.position < 0 || (m_tree->hasFocus() && m_tree->currentItem()))
        return;
    if (m_outline.isGuess(m_caret)) // until the next parse
        return;
    QTreeWidgetItem *item = m_outline.visibleNodeAt(m_caret);
    if (!item)
        return m_tree->clearSelection();
    if (item == m_tree->currentItem() && item->isSelected())
        return;
    // Nothing moves away below the mouse, which may be about to click, nor from where it was left.
    m_tree->setAutoScroll(!m_keepsScrollPosition && !m_tree->underMouse());
    m_keepsScrollPosition = false;
    m_tree->setCurrentItem(item);
    m_tree->setAutoScroll(true);
}

bool EdOutlineView::hasKnownPlace(QTreeWidgetItem *item)
{
    if (!m_outline.isGuess(*item))
        return true;
    const QPersistentModelIndex place = m_tree->indexFromItem(item);
    emit freshParseWanted();
    return place.isValid();
}

void EdOutlineView::onItemClicked(QTreeWidgetItem *item, int)
{
    if (hasKnownPlace(item))
        emit outlineItemClicked(startOf(*item), endOf(*item), false);
}

void EdOutlineView::onItemDoubleClicked(QTreeWidgetItem *item, int)
{
    if (hasKnownPlace(item))
        emit outlineItemDoubleClicked(startOf(*item), endOf(*item), true);
}

void EdOutlineView::onSelectionChanged()
{
    if (QTreeWidgetItem *item = m_tree->currentItem())
        onItemClicked(item, 0);
}

void EdOutlineView::updatePreferences()
{
    m_outline.updateHidden();
    if (m_sortButton->isChecked() != preferences().sort)
        sortAlphabetically(preferences().sort);
    markCaret();
}

void EdOutlineView::sortAlphabetically(bool on)
{
    preferences().sort = on;
    m_sortButton->setChecked(on);
    m_outline.setSorted(on);
}

void EdOutlineView::showViewDialog()
{
    QMenu *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const MenuRow &row : menuRows) {
        QAction *action = row.text ? menu->addAction(tr(row.text)) : menu->addSeparator();
        if (!row.text)
            continue;
        action->setCheckable(true);
        action->setChecked(preferences().*row.preference);
        connect(action, SIGNAL(triggered()), row.slot);
    }
    menu->popup(QCursor::pos());
}

void EdOutlineView::toggleImportVisibility()
{
    toggle(&Preferences::pythonHideImportInOutline);
}

void EdOutlineView::toggleMainVisibility()
{
    toggle(&Preferences::pythonHideMainInOutline);
}

void EdOutlineView::toggleGlobalVariableVisibility()
{
    toggle(&Preferences::melHideGlobalVarInOutline);
}

void EdOutlineView::toggleGlobalProcVisibility()
{
    toggle(&Preferences::melHideGlobalProcsInOutline);
}

void EdOutlineView::toggleProcVisibility()
{
    toggle(&Preferences::melHideProcsInOutline);
}

void EdOutlineView::toggle(bool Preferences::*preference)
{
    preferences().*preference = !(preferences().*preference);
    updatePreferences();
    emit outlineViewChanged();
}
