// SPDX-License-Identifier: MIT
#include "standin/ui/interfacecommands.h"

#include "standin/host/session.h"
#include "standin/host/utf8.h"
#include "standin/ui/elementtype.h"
#include "standin/ui/executerfield.h"
#include "standin/ui/reporterfield.h"
#include "standin/ui/userinterface.h"

#include <QFile>
#include <QTextCursor>

namespace standin {

namespace {

using mel::ArgumentKind;
using mel::Value;
using Suppressed = OutputHistory::Suppressed;

// Both kinds of fields are text edits.
QPlainTextEdit *field(const Element &element)
{
    return qobject_cast<QPlainTextEdit *>(element.object);
}

QObject *makeReporter(UserInterface &ui, Element *, const mel::Call &)
{
    // Owned by its parent once it is placed, like every control.
    return new ReporterField(ui);
}

QObject *makeExecuter(UserInterface &ui, Element *, const mel::Call &)
{
    return new ExecuterField(ui.session());
}

// A switch of the whole session, whichever reporter sets it.
template <bool mel::Settings::*member>
Attribute sessionSwitch(const char *shortName, const char *longName)
{
    return {{shortName, longName, {ArgumentKind::Boolean}},
            [](Element &, const Argument &given) {
                // The element is not looked at: Maya's reporters share these switches.
                given.ui.session().mel().settings().*member = given.isOn();
            },
            [](const Element &, UserInterface &ui) -> Value {
                return int(ui.session().mel().settings().*member);
            }};
}

// The same for the history, which scriptEditorInfo changes as well.
template <bool Suppressed::*member>
Attribute suppression(const char *shortName, const char *longName)
{
    return {{shortName, longName, {ArgumentKind::Boolean}},
            [](Element &, const Argument &given) {
                given.ui.session().history().suppressed().*member = given.isOn();
            },
            [](const Element &, UserInterface &ui) -> Value {
                return int(ui.session().history().suppressed().*member);
            }};
}

// A flag without argument that does something at once.
Attribute action(const char *shortName, const char *longName,
                 void (*set)(Element &, const Argument &))
{
    return {{shortName, longName}, set};
}

void setFilter(Element &element, const Argument &given)
{
    element.texts[given.flag] = given.utf8();
    // None, that is both, for an empty text and any other.
    std::optional<Language> language;
    if (given.utf8() == "mel")
        language = Language::Mel;
    else if (given.utf8() == "python")
        language = Language::Python;
    qobject_cast<ReporterField *>(element.object)->setFilter(language);
}

// -select FIRST LENGTH, in characters.
void select(Element &element, const Argument &given)
{
    const int last = field(element)->toPlainText().size();
    QTextCursor cursor = field(element)->textCursor();
    const int first = qBound(0, given.number(0), last);
    // Positions beyond the text are moved to its end.
    cursor.setPosition(first);
    cursor.setPosition(qBound(first, first + given.number(1), last), QTextCursor::KeepAnchor);
    field(element)->setTextCursor(cursor);
}

// What reporters and executers have in common.
const Attributes &textAttributes()
{
    static const Attributes attributes = {
        {{"t", "text", {ArgumentKind::String}},
         [](Element &e, const Argument &given) { field(e)->setPlainText(given.text()); },
         [](const Element &e, UserInterface &) -> Value {
             return toUtf8(field(e)->toPlainText());
         }},
        {{"tl", "textLength"},
         nullptr,
         [](const Element &e, UserInterface &) -> Value {
             return int(field(e)->toPlainText().size());
         }},
        action("clr", "clear", [](Element &e, const Argument &) { field(e)->clear(); }),
        action("cp", "copySelection", [](Element &e, const Argument &) { field(e)->copy(); }),
        action("ct", "cutSelection", [](Element &e, const Argument &) { field(e)->cut(); }),
        action("pst", "pasteSelection", [](Element &e, const Argument &) { field(e)->paste(); }),
        action("sla", "selectAll", [](Element &e, const Argument &) { field(e)->selectAll(); }),
        {{"sl", "select", {ArgumentKind::Int, ArgumentKind::Int}}, select},
        {{"hf", "hasFocus"},
         nullptr,
         [](const Element &e, UserInterface &) -> Value { return int(field(e)->hasFocus()); }},
        STANDIN_KEPT_SCRIPT("rfc", "receiveFocusCommand"),
    };
    return attributes;
}

// With line breaks as files have them.
QString selectedText(const Element &element)
{
    QString text = field(element)->textCursor().selectedText();
    return text.replace(QChar::ParagraphSeparator, '\n');
}

void saveSelection(Element &element, const Argument &given)
{
    QFile file(given.text());
    const QByteArray text = selectedText(element).toUtf8();
    // A full disk counts too.
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        throw mel::RuntimeError("Cannot write file \"" + given.utf8() + "\".");
}

void saveSelectionToShelf(Element &element, const Argument &given)
{
    // A reporter has no language, and then it is MEL.
    const int isMel = element.text("sourceType") == "python" ? 0 : 1;
    given.ui.session().mel().call(
        "scriptToShelf", {std::string(isMel ? "MEL" : "Py"), toUtf8(selectedText(element)), isMel});
}

const Attributes &reporterAttributes()
{
    static const Attributes attributes = {
        {{"fst", "filterSourceType", {ArgumentKind::String}},
         setFilter,
         [](const Element &e, UserInterface &) -> Value { return e.text("filterSourceType"); }},
        sessionSwitch<&mel::Settings::echoCommands>("eac", "echoAllCommands"),
        sessionSwitch<&mel::Settings::lineNumbers>("ln", "lineNumbers"),
        sessionSwitch<&mel::Settings::stackTrace>("st", "stackTrace"),
        suppression<&Suppressed::errors>("se", "suppressErrors"),
        suppression<&Suppressed::info>("si", "suppressInfo"),
        suppression<&Suppressed::results>("sr", "suppressResults"),
        suppression<&Suppressed::warnings>("sw", "suppressWarnings"),
        suppression<&Suppressed::stackTrace>("sst", "suppressStackTrace"),
        {{"svs", "saveSelection", {ArgumentKind::String}}, saveSelection},
        action("sts", "saveSelectionToShelf", saveSelectionToShelf),
    };
    return attributes;
}

ExecuterField *executer(const Element &element)
{
    return qobject_cast<ExecuterField *>(element.object);
}

const Attributes &executerAttributes()
{
    static const Attributes attributes = {
        {{"stp", "sourceType", {ArgumentKind::String}},
         [](Element &e, const Argument &given) {
             e.texts["sourceType"] = given.utf8();
             executer(e)->setLanguage(given.utf8() == "python" ? Language::Python : Language::Mel);
         },
         [](const Element &e, UserInterface &) -> Value {
             return executer(e)->language() == Language::Python ? "python" : "mel";
         }},
        action("exc", "execute", [](Element &e, const Argument &) { executer(e)->execute(); }),
        action("exa", "executeAll",
               [](Element &e, const Argument &) { executer(e)->executeAll(); }),
        action("sts", "saveSelectionToShelf", saveSelectionToShelf),
        // At the cursor, in place of a selection.
        {{"it", "insertText", {ArgumentKind::String}},
         [](Element &e, const Argument &given) { executer(e)->insertPlainText(given.text()); }},
    };
    return attributes;
}

const std::vector<ElementType> &fieldTypes()
{
    static const ElementKind control = ElementKind::Control;
    static const Attributes &all = widgetAttributes();
    static const std::vector<ElementType> types = {
        {"cmdScrollFieldReporter",
         control,
         makeReporter,
         nullptr,
         {&reporterAttributes(), &textAttributes(), &all}},
        {"cmdScrollFieldExecuter",
         control,
         makeExecuter,
         nullptr,
         {&executerAttributes(), &textAttributes(), &all}},
    };
    return types;
}

} // namespace

void addScriptFieldCommands(UserInterface &ui)
{
    for (const ElementType &type : fieldTypes())
        addElementCommand(ui, type);
}

} // namespace standin
