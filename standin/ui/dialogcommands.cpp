// SPDX-License-Identifier: MIT
#include "standin/ui/interfacecommands.h"

#include "standin/host/session.h"
#include "standin/host/utf8.h"
#include "standin/mel/command.h"
#include "standin/ui/userinterface.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <memory>

namespace standin {

namespace {

using mel::ArgumentKind;
using mel::Value;

// One question with buttons, and with an input field when it is a prompt. Closing it in any other
// way than by a button is dismissing it.
class ScriptDialog : public QDialog
{
    Q_OBJECT

public:
    ScriptDialog(const mel::Call &call, bool isPrompt, QWidget *parent);

    // The label of the button that closed the dialog.
    const QString &answer() const { return m_answer; }
    QString text() const { return m_field ? m_field->text() : QString(); }

private slots:
    void choose();

private:
    void addButton(QDialogButtonBox *box, const mel::Call &call, const QString &label);

    QLineEdit *m_field = nullptr; // none without a prompt
    QString m_answer;             // the dismissing text unless a button is pressed
};

QStringList buttonLabels(const mel::Call &call)
{
    QStringList labels;
    for (const mel::Call::FlagUse *use : call.findAll("button"))
        labels << toQt(mel::printText(use->arguments.at(0)));
    return labels.isEmpty() ? QStringList() << "Confirm" : labels;
}

ScriptDialog::ScriptDialog(const mel::Call &call, bool isPrompt, QWidget *parent)
    : QDialog(parent), m_answer(toQt(call.text("dismissString", "dismiss")))
{
    setWindowTitle(toQt(call.text("title", isPrompt ? "Prompt" : "Confirm")));
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(toQt(call.text("message"))));
    if (isPrompt) {
        m_field = new QLineEdit(toQt(call.text("text")));
        layout->addWidget(m_field);
    }
    QDialogButtonBox *box = new QDialogButtonBox;
    for (const QString &label : buttonLabels(call))
        addButton(box, call, label);
    layout->addWidget(box);
}

void ScriptDialog::addButton(QDialogButtonBox *box, const mel::Call &call, const QString &label)
{
    // One role for all, so that they stand in the order in which the script gives them.
    QPushButton *button = box->addButton(label, QDialogButtonBox::ActionRole);
    // The text may get an ampersand from the style; the name stays as the script wrote it.
    button->setObjectName(label);
    button->setDefault(label == toQt(call.text("defaultButton")));
    connect(button, SIGNAL(clicked()), SLOT(choose()));
}

void ScriptDialog::choose()
{
    m_answer = sender()->objectName();
    accept();
}

// Asks the user; the text of the last prompt stays for a later query.
Value ask(UserInterface &ui, const mel::Call &call, bool isPrompt, QString &promptText)
{
    ScriptDialog dialog(call, isPrompt, ui.mainWindow());
    // A dialog that nobody answers would hold up the program for ever.
    if (!ui.isUnattended())
        dialog.exec();
    if (isPrompt)
        promptText = dialog.text();
    return toUtf8(dialog.answer());
}

// What only changes the looks, the alignment and the icon, is accepted and does nothing, and so is
// the button for Esc: the dismissing text is the answer then.
const std::vector<mel::Flag> dialogFlags = {
    {"t", "title", {ArgumentKind::String}},         {"m", "message", {ArgumentKind::String}},
    {"b", "button", {ArgumentKind::String}, true},  {"db", "defaultButton", {ArgumentKind::String}},
    {"cb", "cancelButton", {ArgumentKind::String}}, {"ds", "dismissString", {ArgumentKind::String}},
    {"p", "parent", {ArgumentKind::String}},        {"ma", "messageAlign", {ArgumentKind::String}},
    {"icn", "icon", {ArgumentKind::String}},
};

void addConfirmDialog(UserInterface &ui)
{
    mel::Command command;
    command.name = "confirmDialog";
    command.flags = dialogFlags;
    command.run = [&ui](mel::Call &call) {
        QString unused;
        return ask(ui, call, false, unused);
    };
    ui.session().mel().addCommand(command);
}

void addPromptDialog(UserInterface &ui)
{
    mel::Command command;
    command.name = "promptDialog";
    command.flags = dialogFlags;
    command.flags.push_back({"tx", "text", {ArgumentKind::String}});
    command.queryable = true;
    // Kept by the command, which is the only one to ask for it.
    const auto lastText = std::make_shared<QString>();
    command.run = [&ui, lastText](mel::Call &call) -> Value {
        if (call.query)
            return toUtf8(*lastText);
        return ask(ui, call, true, *lastText);
    };
    ui.session().mel().addCommand(command);
}

} // namespace

void addDialogCommands(UserInterface &ui)
{
    addConfirmDialog(ui);
    addPromptDialog(ui);
}

} // namespace standin

#include "dialogcommands.moc"
