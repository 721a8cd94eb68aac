// SPDX-License-Identifier: MIT
#pragma once

#include <QTabBar>

namespace compat {

// A bar that is scrolled when there are many tabs, without making all of them narrower first, which
// only Qt 4 cannot be kept from.
class TabBar : public QTabBar
{
public:
    explicit TabBar(QWidget *parent) : QTabBar(parent) {}

protected:
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    QSize minimumTabSizeHint(int tab) const override
    {
        return tabSizeHint(tab);
    }
#endif
};

} // namespace compat
