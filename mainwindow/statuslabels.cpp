// SPDX-License-Identifier: MIT
#include "mainwindow/statuslabels.h"

#include "compat/text.h"

#include <QLabel>
#include <QStatusBar>

namespace {

// More digits make a label wider.
QString widestText()
{
    return QString::fromLatin1("        Col:99999");
}

QLabel *addLabel(QStatusBar *statusBar, const char *objectName)
{
    QLabel *label = new QLabel(statusBar);
    label->setObjectName(QString::fromLatin1(objectName));
    // Room for the usual numbers, so that the labels stand still while the caret moves.
    label->setMinimumWidth(compat::textWidth(label->fontMetrics(), widestText()));
    statusBar->addPermanentWidget(label);
    return label;
}

} // namespace

void StatusLabels::create(QStatusBar *statusBar)
{
    m_selection = addLabel(statusBar, "selectionLabel");
    m_column = addLabel(statusBar, "columnLabel");
    m_mode = addLabel(statusBar, "modeLabel");
    showSelectionSize(0);
    showColumn(0);
    showOverwriteMode(false);
}

// The leading blanks keep the labels apart whatever the style draws between them.

void StatusLabels::showSelectionSize(int characters)
{
    m_selection->setText(QString::fromLatin1("        Sel:%1").arg(characters));
}

void StatusLabels::showColumn(int column)
{
    m_column->setText(QString::fromLatin1("        Col:%1").arg(column));
}

void StatusLabels::showOverwriteMode(bool overwrite)
{
    m_mode->setText(QString::fromLatin1(overwrite ? "        OVR" : "        INS"));
}
