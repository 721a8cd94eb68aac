// SPDX-License-Identifier: MIT
#include "preferences/folderedit.h"

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

FolderEdit::FolderEdit(QWidget *parent) : QWidget(parent), m_line(new QLineEdit(this))
{
    QPushButton *button = new QPushButton(tr("B&rowse..."), this);
    button->setAutoDefault(false); // Enter accepts the dialog
    QHBoxLayout *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_line);
    layout->addWidget(button);
    setFocusProxy(m_line);
    setFocusPolicy(m_line->focusPolicy()); // a label leads to nothing that takes no focus
    connect(m_line, SIGNAL(textChanged(QString)), SIGNAL(pathChanged()));
    connect(button, SIGNAL(clicked()), SLOT(browse()));
}

QString FolderEdit::path() const
{
    return QDir::fromNativeSeparators(m_line->text().trimmed());
}

void FolderEdit::setPath(const QString &path)
{
    m_line->setText(QDir::toNativeSeparators(path));
}

void FolderEdit::setPlaceholderText(const QString &text)
{
    m_line->setPlaceholderText(text);
}

void FolderEdit::browse()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, tr("Choose Folder"), path());
    if (!chosen.isEmpty())
        setPath(chosen);
}
