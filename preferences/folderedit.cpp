// SPDX-License-Identifier: MIT
#include "preferences/folderedit.h"

#include "preferences/complaint.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

FolderEdit::FolderEdit(QWidget *parent)
    : QWidget(parent), m_line(new QLineEdit(this)), m_complaint(new Complaint(m_line, this))
{
    QPushButton *button = new QPushButton(tr("B&rowse..."), this);
    button->setAutoDefault(false); // Enter accepts the dialog
    QHBoxLayout *choice = new QHBoxLayout;
    choice->addWidget(m_line);
    choice->addWidget(button);
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(choice);
    layout->addWidget(m_complaint);
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

// A folder that was there when it was chosen may be missing for a while, as those on a network are:
// only what was typed is doubted.
bool FolderEdit::check()
{
    const QFileInfo folder(path());
    if (!m_line->isModified() || path().isEmpty() || (folder.isAbsolute() && folder.isDir()))
        return true;
    m_complaint->make(tr("No such folder: %1").arg(m_line->text()));
    return false;
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
