// SPDX-License-Identifier: MIT
#include "preferences/complaint.h"

#include <QLineEdit>
#include <QPalette>

namespace {

// Seen on light and dark grounds, and the text stays readable on it.
QColor tinted(const QColor &ground)
{
    const QColor tint(Qt::red);
    return QColor((3 * ground.red() + tint.red()) / 4, (3 * ground.green() + tint.green()) / 4,
                  (3 * ground.blue() + tint.blue()) / 4);
}

} // namespace

Complaint::Complaint(QLineEdit *line, QWidget *parent) : QLabel(parent), m_line(line)
{
    setWordWrap(true);
    hide();
    connect(line, SIGNAL(textChanged(QString)), SLOT(withdraw()));
}

void Complaint::make(const QString &text)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Base, tinted(colors.color(QPalette::Base)));
    m_line->setPalette(colors);
    setText(text);
    show();
}

void Complaint::withdraw()
{
    m_line->setPalette(QPalette()); // the inherited one
    hide();
}
