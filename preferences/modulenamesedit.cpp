// SPDX-License-Identifier: MIT
#include "preferences/modulenamesedit.h"

#include "preferences/complaint.h"
#include "preferences/modulenames.h"

#include <QLineEdit>
#include <QVBoxLayout>

ModuleNamesEdit::ModuleNamesEdit(QWidget *parent)
    : QWidget(parent), m_line(new QLineEdit(this)), m_complaint(new Complaint(m_line, this))
{
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_line);
    layout->addWidget(m_complaint);
    m_line->setPlaceholderText(tr("os; maya.cmds"));
    setFocusProxy(m_line);
    setFocusPolicy(m_line->focusPolicy()); // a label leads to nothing that takes no focus
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

bool ModuleNamesEdit::check()
{
    QStringList faulty;
    for (const QString &name : moduleNames(names())) {
        if (!isModuleName(name))
            faulty << name;
    }
    if (!faulty.isEmpty())
        m_complaint->make(tr("Not a module name: %1").arg(faulty.join(QLatin1String("; "))));
    return faulty.isEmpty();
}
