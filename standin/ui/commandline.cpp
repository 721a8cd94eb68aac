// SPDX-License-Identifier: MIT
#include "standin/ui/commandline.h"

#include "standin/ui/theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>

namespace standin {

namespace {

QLineEdit *newResultField()
{
    QLineEdit *field = new QLineEdit;
    field->setReadOnly(true);
    // The Tab key passes it by.
    field->setFocusPolicy(Qt::NoFocus);
    return field;
}

void setFieldColors(QLineEdit *field, const QColor &background, const QColor &text)
{
    // Only these two roles are set; the rest comes from the program's palette.
    QPalette palette;
    palette.setColor(QPalette::Base, background);
    palette.setColor(QPalette::Text, text);
    field->setPalette(palette);
}

// The headings of results are those of the script editor, in the comment form of the language.
QString headed(mel::MessageKind kind, const QString &text, Language language)
{
    const QString sign = language == Language::Mel ? "// " : "# ";
    switch (kind) {
    case mel::MessageKind::Error:
        return sign + "Error: " + text;
    case mel::MessageKind::Warning:
        return sign + "Warning: " + text;
    case mel::MessageKind::Result:
        return sign + "Result: " + text;
    default:
        return text;
    }
}

} // namespace

CommandLine::CommandLine(QWidget *parent)
    : QWidget(parent), m_languageButton(new QToolButton), m_input(new QLineEdit),
      m_result(newResultField()), m_scriptEditorButton(new QToolButton)
{
    QHBoxLayout *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->setSpacing(4);
    m_languageButton->setText("MEL");
    m_languageButton->setAutoRaise(true);
    m_languageButton->setMinimumWidth(56);
    m_languageButton->setToolTip("Switch between MEL and Python");
    m_scriptEditorButton->setAutoRaise(true);
    layout->addWidget(m_languageButton);
    // Input and result share the width.
    layout->addWidget(m_input, 1);
    layout->addWidget(m_result, 1);
    layout->addWidget(m_scriptEditorButton);
    // For the arrow keys, which a line of input has no use for.
    m_input->installEventFilter(this);
    connect(m_languageButton, SIGNAL(clicked()), SLOT(switchLanguage()));
    connect(m_input, SIGNAL(returnPressed()), SLOT(enter()));
}

void CommandLine::switchLanguage()
{
    m_language = m_language == Language::Mel ? Language::Python : Language::Mel;
    m_languageButton->setText(m_language == Language::Mel ? "MEL" : "Python");
}

void CommandLine::showMessage(mel::MessageKind kind, const QString &text)
{
    // The end of a traceback or of a longer text says what happened.
    const QString line = text.trimmed().section('\n', -1);
    if (line.isEmpty() || kind == mel::MessageKind::History)
        return;
    if (kind == mel::MessageKind::Error)
        setFieldColors(m_result, errorColor(), Qt::white);
    else if (kind == mel::MessageKind::Warning)
        setFieldColors(m_result, warningColor(), Qt::black);
    else
        m_result->setPalette(QPalette());
    m_result->setText(headed(kind, line, m_language));
    // A long message shows its beginning.
    m_result->setCursorPosition(0);
}

void CommandLine::enter()
{
    const QString text = m_input->text();
    if (text.trimmed().isEmpty())
        return;
    if (m_entered.isEmpty() || m_entered.last() != text)
        m_entered << text;
    m_recalled = m_entered.size();
    // Before it runs: the script may take long, or change the input itself.
    m_input->clear();
    emit entered(text, static_cast<int>(m_language));
}

void CommandLine::recall(int step)
{
    const int index = m_recalled + step;
    if (index < 0 || index > m_entered.size())
        return;
    m_recalled = index;
    // Below the newest there is an empty line to write in.
    m_input->setText(index < m_entered.size() ? m_entered.at(index) : QString());
}

bool CommandLine::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            recall(key == Qt::Key_Up ? -1 : 1);
            return true;
        }
    }
    return QWidget::eventFilter(object, event);
}

} // namespace standin
