// SPDX-License-Identifier: MIT
#include "analysis/edquickhelpview.h"

#include "analysis/commandword.h"
#include "analysis/flaglist.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShowEvent>
#include <QToolButton>

namespace {

const int margin = 4; // pixels
const int longestHistory = 100;

} // namespace

EdQuickHelpView::EdQuickHelpView(QWidget *parent)
    : QWidget(parent), m_entry(new QLineEdit(this)), m_back(new QToolButton(this)),
      m_message(new QLabel(this)), m_documentation(new QToolButton(this)),
      m_filter(new QLineEdit(this)), m_flags(new FlagList(this))
{
    QBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addLayout(createCommandRow());
    layout->addLayout(createMessageRow());
    layout->addWidget(m_filter);
    layout->addWidget(m_flags);
    setFocusProxy(m_entry);
    m_filter->setObjectName(QLatin1String("filter"));
    m_filter->setPlaceholderText(tr("Filter flags"));
    connect(m_filter, SIGNAL(textChanged(QString)), SLOT(filterFlags(QString)));
    connect(m_filter, SIGNAL(returnPressed()), SLOT(chooseFlag()));
    connect(m_flags, SIGNAL(itemDoubleClicked(QTreeWidgetItem *, int)), SLOT(chooseFlag()));
    for (QWidget *part : {static_cast<QWidget *>(m_entry), static_cast<QWidget *>(m_filter),
                          static_cast<QWidget *>(m_flags)})
        part->installEventFilter(this);
    lookUp();
}

QBoxLayout *EdQuickHelpView::createCommandRow()
{
    m_entry->setObjectName(QLatin1String("command"));
    m_entry->setPlaceholderText(tr("Command"));
    connect(m_entry, SIGNAL(returnPressed()), SLOT(enterCommand()));
    m_back->setObjectName(QLatin1String("back"));
    m_back->setArrowType(Qt::LeftArrow);
    m_back->setAutoRaise(true);
    m_back->setToolTip(tr("Back to the command before"));
    connect(m_back, SIGNAL(clicked()), SLOT(back()));
    QBoxLayout *row = new QHBoxLayout;
    row->addWidget(m_back);
    row->addWidget(m_entry);
    return row;
}

QBoxLayout *EdQuickHelpView::createMessageRow()
{
    m_message->setObjectName(QLatin1String("message"));
    m_message->setTextFormat(Qt::PlainText); // it repeats what was entered
    m_message->setWordWrap(true);
    m_documentation->setObjectName(QLatin1String("documentation"));
    m_documentation->setText(tr("Documentation"));
    m_documentation->setToolTip(tr("Open Maya's page of the command"));
    m_documentation->setFocusPolicy(Qt::StrongFocus); // keys reach it too
    connect(m_documentation, SIGNAL(clicked()), SLOT(openDocumentation()));
    QBoxLayout *row = new QHBoxLayout;
    row->addWidget(m_message, 1);
    row->addWidget(m_documentation);
    return row;
}

void EdQuickHelpView::showCommand(const QString &command)
{
    if (command == m_command && m_isLookedUp && m_known.contains(command))
        return; // as it is, filter and all
    if (command != m_command && m_known.contains(m_command))
        m_history << m_command;
    if (m_history.size() > longestHistory)
        m_history.removeFirst();
    m_command = command;
    m_isLookedUp = false;
    if (isVisible())
        lookUp();
}

void EdQuickHelpView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_isLookedUp)
        lookUp();
}

void EdQuickHelpView::lookUp()
{
    m_isLookedUp = true;
    const CommandHelp help = m_command.isEmpty() ? CommandHelp() : helpOn(m_command);
    m_entry->setText(m_command);
    m_back->setEnabled(!m_history.isEmpty());
    m_message->setText(message(help));
    m_documentation->setVisible(help.hasPage);
    m_filter->clear();
    m_filter->setEnabled(!help.flags.isEmpty());
    m_flags->setFlags(help.flags);
}

// A name that is unknown now may be that of a procedure before long.
CommandHelp EdQuickHelpView::helpOn(const QString &command)
{
    if (m_known.contains(command))
        return m_known.value(command);
    const CommandHelp help = commandHelp(command);
    if (help.kind != CommandKind::Unknown)
        m_known.insert(command, help);
    return help;
}

QString EdQuickHelpView::message(const CommandHelp &help) const
{
    if (m_command.isEmpty())
        return tr("Put the caret on a command and press F4.");
    switch (help.kind) {
    case CommandKind::Command:
        return help.flags.isEmpty() ? tr("Command without flags")
                                    : tr("Command, %1 flags").arg(help.flags.size());
    case CommandKind::RuntimeCommand:
        return tr("Runtime command; such have no flags.");
    case CommandKind::Procedure:
        return tr("MEL procedure; such have no flags.");
    case CommandKind::Unknown:
        break;
    }
    return tr("Maya knows no command \"%1\".").arg(m_command);
}

void EdQuickHelpView::back()
{
    if (m_history.isEmpty())
        return;
    m_command = m_history.takeLast();
    lookUp();
}

void EdQuickHelpView::focusFilter()
{
    activateWindow(); // the dock may float
    QLineEdit *part = m_filter->isEnabled() ? m_filter : m_entry;
    part->setFocus();
    part->selectAll(); // what is typed next is another text
}

void EdQuickHelpView::filterFlags(const QString &text)
{
    m_flags->filter(text);
}

void EdQuickHelpView::chooseFlag()
{
    const QString flag = m_flags->currentFlag();
    if (!flag.isEmpty())
        emit flagSelected(flag);
}

CommandFlag EdQuickHelpView::flag(const QString &name) const
{
    CommandFlag wanted;
    wanted.longName = name.startsWith(QLatin1Char('-')) ? name.mid(1) : name;
    for (const CommandFlag &known : m_known.value(m_command).flags) {
        if (known.longName == wanted.longName ||
            (known.longName.isEmpty() && known.shortName == wanted.longName))
            return known;
    }
    return wanted;
}

void EdQuickHelpView::enterCommand()
{
    const QString command = commandWord(m_entry->text());
    if (!command.isEmpty())
        emit quickHelpSelected(command, false);
}

void EdQuickHelpView::openDocumentation()
{
    emit documentationSelected(m_command);
}

bool EdQuickHelpView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress &&
        handleKey(watched, static_cast<QKeyEvent *>(event)->key()))
        return true;
    return QWidget::eventFilter(watched, event);
}

// Down leads on from part to part, Escape out.
bool EdQuickHelpView::handleKey(QObject *watched, int key)
{
    if (key == Qt::Key_Down && watched == m_entry)
        focusFilter();
    else if (key == Qt::Key_Down && watched == m_filter)
        m_flags->setFocus();
    else if (key == Qt::Key_Escape && watched == m_filter && !m_filter->text().isEmpty())
        m_filter->clear();
    else if (key == Qt::Key_Escape)
        emit editorWanted();
    else
        return false;
    return true;
}
