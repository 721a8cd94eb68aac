// SPDX-License-Identifier: MIT
#include "workspace/edcodetabbar.h"

#include "resources/resources.h"

#include <QStringList>

#include <algorithm>

namespace {

const int widestTab = 16; // in heights of the font, which are known at once

} // namespace

// The style's own cross is black, which nobody sees on a dark palette.
EdCodeTabBar::EdCodeTabBar(QWidget *parent) : compat::TabBar(parent)
{
    initResources();
    setElideMode(Qt::ElideMiddle);
    setStyleSheet(QLatin1String("QTabBar::close-button { image: url(:/icons/close.png); }"
                                "QTabBar::close-button:hover {"
                                " background: rgba(255, 255, 255, 40); border-radius: 2px; }"));
}

void EdCodeTabBar::beginFilling()
{
    m_isFilling = true;
    m_wasClosable = tabsClosable();
    setTabsClosable(false);
}

// Each button has all tabs laid out, which takes long where they have texts.
void EdCodeTabBar::endFilling()
{
    QStringList texts;
    for (int tab = 0; tab < count(); ++tab) {
        texts << tabText(tab);
        setTabText(tab, QString());
    }
    setTabsClosable(m_wasClosable);
    m_isFilling = false;
    for (int tab = 0; tab < count(); ++tab)
        setTabText(tab, texts.at(tab));
}

QSize EdCodeTabBar::tabSizeHint(int tab) const
{
    if (m_isFilling)
        return QSize(1, 1);
    const QSize size = QTabBar::tabSizeHint(tab);
    const int widest = widestTab * fontMetrics().height();
    return QSize(std::min(size.width(), widest), size.height());
}

void EdCodeTabBar::showEvent(QShowEvent *event)
{
    QTabBar::showEvent(event);
    // A tab made current while the bar was hidden has the tabs laid out, but tells no layout, which
    // would go on to give the bar the height of an empty one.
    updateGeometry();
}

void EdCodeTabBar::mousePressEvent(QMouseEvent *event)
{
    QTabBar::mousePressEvent(event);
    emit tabBarSelected();
}
