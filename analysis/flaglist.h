// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/edtreewidget.h"
#include "bridge/commandhelp.h"

#include <QList>
#include <QSize>
#include <QString>

// The flags of a command, one a row: long name, short name, argument. All fit into the width, if
// need be with names that are cut off. Of those that a filter leaves, one is always the current.
class FlagList : public EdTreeWidget
{
    Q_OBJECT

public:
    explicit FlagList(QWidget *parent = nullptr);

    void setFlags(const QList<CommandFlag> &flags);
    // Leaves the flags with the text in a name, whatever its case, and takes for current the one
    // that is meant most likely.
    void filter(const QString &text);

    // The long name, or the only one; empty for no row.
    QString currentFlag() const;

    // Enough rows to choose from, even where little room is left.
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    int withTitle(int column) const;
    void fitColumns();
    int heightOfRows(int rows) const;

    int m_wanted[3] = {}; // widths that show all of each column
};
