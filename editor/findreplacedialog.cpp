// SPDX-License-Identifier: MIT
#include "editor/findreplacedialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const int fieldCharacters = 36; // that a field shows at least

// The "&" marks a key, which works as usual and is told by the tool tip: the text shown is without.
void label(QAbstractButton *button, const char *objectName, const char *marked)
{
    const QString text = QString::fromLatin1(marked);
    button->setObjectName(QString::fromLatin1(objectName));
    button->setText(QString(text).remove(QLatin1Char('&')));
    button->setShortcut(QKeySequence::mnemonic(text)); // none where the platform has no such keys
    button->setToolTip(button->shortcut().toString(QKeySequence::NativeText));
}

QGroupBox *newGroup(const QString &title, const QList<QWidget *> &choices, int rows)
{
    QGroupBox *group = new QGroupBox(title);
    QGridLayout *layout = new QGridLayout(group);
    for (int i = 0; i < choices.size(); ++i)
        layout->addWidget(choices.at(i), i % rows, i / rows);
    return group;
}

QString firstLine(const QString &text)
{
    for (int i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (character == QChar(QChar::ParagraphSeparator) || character == QLatin1Char('\n') ||
            character == QLatin1Char('\r'))
            return text.left(i);
    }
    return text;
}

// Puts the field's text at the top of its list. The field keeps the lines that the list does not.
void remember(QComboBox *history)
{
    const QString text = history->currentText();
    const QString entry = firstLine(text);
    if (entry.isEmpty())
        return;
    const bool wereBlocked = history->blockSignals(true); // nobody has edited anything
    const int known = history->findText(entry, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (known >= 0)
        history->removeItem(known);
    history->insertItem(0, entry);
    history->setCurrentIndex(0);
    if (text != entry)
        history->setEditText(text);
    history->blockSignals(wereBlocked);
}

// That the field's text was chosen from the list, and not edited since.
bool isEntry(const QComboBox *history)
{
    const QLineEdit *field = history->lineEdit();
    return !field->isUndoAvailable() && !field->isRedoAvailable() &&
           history->currentText() == history->itemText(history->currentIndex());
}

} // namespace

FindReplaceDialog::FindReplaceDialog(QWidget *parent)
    : QDialog(parent), m_find(newHistory("findCmb")), m_replaceWith(newHistory("replaceWithCmb")),
      m_backward(new QRadioButton), m_forward(new QRadioButton), m_scopeAll(new QRadioButton),
      m_scopeSelected(new QRadioButton), m_caseSensitive(new QCheckBox),
      m_wrapSearch(new QCheckBox), m_wholeWord(new QCheckBox), m_incremental(new QCheckBox),
      m_status(new QLabel), m_count(new QLabel)
{
    setObjectName(QLatin1String("FindReplaceDialogCorvane"));
    setWindowTitle(tr("Find/Replace"));
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    QVBoxLayout *input = new QVBoxLayout;
    input->addLayout(createTexts());
    input->addLayout(createChoices());
    input->addStretch();
    QHBoxLayout *top = new QHBoxLayout;
    top->addLayout(input, 1);
    top->addLayout(createButtons());
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(createStatus());
    findChild<QPushButton *>(QLatin1String("findBtn"))
        ->setDefault(true); // Return in a field presses it
    connectSearch();
}

QComboBox *FindReplaceDialog::newHistory(const char *objectName)
{
    QComboBox *history = new QComboBox(this);
    history->setObjectName(QString::fromLatin1(objectName));
    history->setEditable(true);
    history->setInsertPolicy(QComboBox::NoInsert); // texts are remembered when they are used
    history->setCompleter(nullptr);                // a text is meant as it was typed
    history->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    history->setMinimumContentsLength(fieldCharacters);
    history->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // Leaving a field whose text is in the list would count as choosing it there, and so would
    // Return, which presses a button, with some versions of Qt.
    history->lineEdit()->disconnect(SIGNAL(editingFinished()), history);
    history->lineEdit()->disconnect(SIGNAL(returnPressed()), history);
    return history;
}

QLayout *FindReplaceDialog::createTexts()
{
    QFormLayout *layout = new QFormLayout;
    layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    layout->addRow(tr("Find:"), m_find);
    layout->addRow(tr("Replace with:"), m_replaceWith);
    return layout;
}

QLayout *FindReplaceDialog::createChoices()
{
    label(m_backward, "backwardRdo", "&Up");
    label(m_forward, "forwardRdo", "&Down");
    label(m_scopeAll, "scopeAllRdo", "A&ll");
    label(m_scopeSelected, "scopeSelectedRdo", "Selec&tion");
    label(m_caseSensitive, "caseSensitiveChk", "Case &sensitive");
    label(m_wrapSearch, "wrapSearchChk", "&Wrap search");
    label(m_wholeWord, "wholeWordChk", "Whole w&ord");
    label(m_incremental, "incrementalChk", "I&ncremental");
    m_forward->setChecked(true);
    m_scopeAll->setChecked(true);

    typedef QList<QWidget *> Choices;
    QHBoxLayout *layout = new QHBoxLayout;
    layout->addWidget(newGroup(tr("Direction:"), Choices() << m_backward << m_forward, 2));
    layout->addWidget(newGroup(tr("Scope:"), Choices() << m_scopeAll << m_scopeSelected, 2));
    layout->addWidget(
        newGroup(tr("Options:"),
                 Choices() << m_caseSensitive << m_wrapSearch << m_wholeWord << m_incremental, 2),
        1);
    return layout;
}

QLayout *FindReplaceDialog::createButtons()
{
    const struct
    {
        const char *objectName;
        const char *text;
        const char *slot;
    } rows[] = {
        {"findBtn", "&Find", SLOT(find())},
        {"replaceFindBtn", "Replace/F&ind", SLOT(replaceAndFind())},
        {"replaceBtn", "&Replace", SLOT(replace())},
        {"replaceAllBtn", "Replace &All", SLOT(replaceAll())},
        {"closeBtn", "&Close", SLOT(close())},
    };
    QVBoxLayout *layout = new QVBoxLayout;
    for (const auto &row : rows) {
        QPushButton *button = new QPushButton;
        label(button, row.objectName, row.text);
        button->setAutoDefault(false); // else the one last clicked could stay the default
        connect(button, SIGNAL(clicked()), row.slot);
        layout->addWidget(button);
    }
    layout->addStretch();
    return layout;
}

QLayout *FindReplaceDialog::createStatus()
{
    m_status->setObjectName(QLatin1String("statusLabel"));
    m_count->setObjectName(QLatin1String("countLabel"));
    QHBoxLayout *layout = new QHBoxLayout;
    layout->addWidget(m_status, 1);
    layout->addWidget(m_count);
    return layout;
}

void FindReplaceDialog::connectSearch()
{
    connect(m_find, SIGNAL(activated(int)), SLOT(find()));
    connect(m_find, SIGNAL(editTextChanged(QString)), SIGNAL(searchChanged()));
    connect(m_caseSensitive, SIGNAL(toggled(bool)), SIGNAL(searchChanged()));
    connect(m_wholeWord, SIGNAL(toggled(bool)), SIGNAL(searchChanged()));
    connect(m_incremental, SIGNAL(stateChanged(int)), SLOT(setIncremental(int)));
}

void FindReplaceDialog::openFor(const QString &findText)
{
    // A field takes no longer text whole.
    if (!findText.isEmpty() && findText.size() <= m_find->lineEdit()->maxLength()) {
        const bool wereBlocked = m_find->blockSignals(true); // it is not to be searched for yet
        m_find->setEditText(findText);
        m_find->blockSignals(wereBlocked);
        emit searchChanged();
    }
    showMessage(QString()); // of a search that is over
    show();
    raise();
    activateWindow();
    beginText();
}

void FindReplaceDialog::beginText()
{
    m_find->setFocus();
    m_find->lineEdit()->selectAll();
}

FindRequest FindReplaceDialog::search() const
{
    return {m_find->currentText(), QString(),
            chosenOptions() & (FindRequest::CaseSensitive | FindRequest::WholeWords)};
}

int FindReplaceDialog::chosenOptions() const
{
    const struct
    {
        const QAbstractButton *button;
        FindRequest::Option option;
    } rows[] = {
        {m_caseSensitive, FindRequest::CaseSensitive},
        {m_wholeWord, FindRequest::WholeWords},
        {m_scopeSelected, FindRequest::InSelection},
        {m_wrapSearch, FindRequest::Wrap},
    };
    int options = 0;
    for (const auto &row : rows)
        options |= row.button->isChecked() ? row.option : 0;
    return options;
}

void FindReplaceDialog::send(int options, bool ignoreDirection)
{
    if (m_backward->isChecked() && !ignoreDirection)
        options |= FindRequest::Backward;
    emit findReplaceSelected(m_find->currentText(), m_replaceWith->currentText(),
                             options | chosenOptions());
}

void FindReplaceDialog::find()
{
    // Put on top of the list, an entry chosen with the arrow keys would lead back to the last one.
    if (sender() == m_find)
        send(0, false);
    else
        find(0, false);
}

void FindReplaceDialog::find(int options, bool ignoreDirection)
{
    remember(m_find);
    remember(m_replaceWith);
    send(options, ignoreDirection);
}

void FindReplaceDialog::replace()
{
    find(FindRequest::Replace, false);
}

void FindReplaceDialog::replaceAndFind()
{
    find(FindRequest::ReplaceAndFind, false);
}

void FindReplaceDialog::replaceAll()
{
    find(FindRequest::ReplaceAll, false);
}

void FindReplaceDialog::setIncremental(int state)
{
    disconnect(m_find, SIGNAL(editTextChanged(QString)), this, SLOT(findWhileTyping()));
    if (state != Qt::Unchecked)
        connect(m_find, SIGNAL(editTextChanged(QString)), SLOT(findWhileTyping()));
}

// Remembers nothing: the list would fill with the beginnings of one text.
void FindReplaceDialog::findWhileTyping()
{
    if (isEntry(m_find))
        return; // find() is called next
    emit typed(m_backward->isChecked());
    send(0, false);
}

void FindReplaceDialog::showMessage(const QString &message)
{
    m_status->setText(message);
}

void FindReplaceDialog::showCount(int count)
{
    const QString text = count == 1 ? tr("%1 match") : tr("%1 matches");
    m_count->setText(count < 0 ? QString() : text.arg(count));
}

void FindReplaceDialog::keyPressEvent(QKeyEvent *event)
{
    const bool isOther = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QPushButton *focused = qobject_cast<QPushButton *>(focusWidget());
    if (focused && isReturn && !isOther)
        return focused->click();
    if (event->matches(QKeySequence::Find))
        return beginText();
    if (isOther || (event->key() != Qt::Key_F3 && event->key() != Qt::Key_Escape)) {
        QDialog::keyPressEvent(event);
        return;
    }
    if (event->key() == Qt::Key_Escape)
        close();
    else
        find(event->modifiers() & Qt::ShiftModifier ? FindRequest::Backward : 0, true);
    event->accept();
}

void FindReplaceDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    emit searchChanged();
}

void FindReplaceDialog::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    emit searchChanged();
}
