// SPDX-License-Identifier: MIT
#include "preferences/modulenamesedit.h"

#include "preferences/modulenames.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {

// Seen on light and dark grounds, and the text stays readable on it.
QColor tinted(const QColor &ground)
{
    const QColor tint(Qt::red);
    return QColor((3 * ground.red() + tint.red()) / 4, (3 * ground.green() + tint.green()) / 4,
                  (3 * ground.blue() + tint.blue()) / 4);
}

} // namespace

ModuleNamesEdit::ModuleNamesEdit(QWidget *parent)
    : QWidget(parent), m_line(new QLineEdit(this)), m_complaint(new QLabel(this))
{
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_line);
    layout->addWidget(m_complaint);
    m_line->setPlaceholderText(tr("os; maya.cmds"));
    m_complaint->setWordWrap(true);
    m_complaint->hide();
    setFocusProxy(m_line);
    setFocusPolicy(m_line->focusPolicy()); // a label leads to nothing that takes no focus
    connect(m_line, SIGNAL(textChanged(QString)), SLOT(clearMark()));
    connect(m_line, SIGNAL(textChanged(QString)), SIGNAL(namesChanged()));
}

QString ModuleNamesEdit::names() const
{
    return m_line->text();
}

void ModuleNamesEdit::setNames(const QString &names)
{
    m_line->setText(names);
}

bool ModuleNamesEdit::checkNames()
{
    QStringList faulty;
    for (const QString &name : moduleNames(names())) {
        if (!isModuleName(name))
            faulty << name;
    }
    if (!faulty.isEmpty())
        mark(tr("Not a module name: %1").arg(faulty.join(QLatin1String("; "))));
    return faulty.isEmpty();
}

void ModuleNamesEdit::mark(const QString &complaint)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Base, tinted(colors.color(QPalette::Base)));
    m_line->setPalette(colors);
    m_complaint->setText(complaint);
    m_complaint->show();
}

void ModuleNamesEdit::clearMark()
{
    m_line->setPalette(QPalette()); // the inherited one
    m_complaint->hide();
}
