// SPDX-License-Identifier: MIT
#include "workspace/scriptdetails.h"

#include "bridge/syntaxcheck.h"
#include "editor/edcodeedit.h"
#include "preferences/preferences.h"
#include "workspace/edcodeview.h"

#include <QTextBlock>
#include <QTextDocument>

namespace {

bool showsDiagnostics(int language)
{
    return language == EdCodeView::Python ? preferences().pythonDisplayErrors
                                          : preferences().melDisplayErrors;
}

// The line's code without the white space around it. Where Python says that something is missing
// the line may be empty, or behind the last one: the code is then that of the line above.
void addAtLine(DiagnosticList &list, const QString &message, int line, const QTextDocument &text)
{
    QTextBlock block = text.findBlockByNumber(line - 1);
    if (!block.isValid())
        block = text.lastBlock();
    while (block.text().trimmed().isEmpty() && block.previous().isValid())
        block = block.previous();
    const QString code = block.text().trimmed();
    const int start = block.position() + int(block.text().indexOf(code));
    list.add(message, start, start + int(code.size()));
}

void append(DiagnosticList &list, const DiagnosticList &further)
{
    list.messages += further.messages;
    list.starts += further.starts;
    list.ends += further.ends;
}

} // namespace

ScriptDetails::ScriptDetails(EdCodeView *view) : QObject(view), m_view(view) {}

const ScriptDetails &ScriptDetails::of(EdCodeView *view)
{
    ScriptDetails *details = view->findChild<ScriptDetails *>();
    if (!details)
        details = new ScriptDetails(view);
    if (!details->isCurrent())
        details->update();
    return *details;
}

const ScriptDetails *ScriptDetails::known(const EdCodeView *view)
{
    return view->findChild<ScriptDetails *>();
}

bool ScriptDetails::areLongInComing(const EdCodeView *view)
{
    const ScriptDetails *details = known(view);
    return view->codeEdit()->document()->characterCount() > longText &&
           !(details && details->isCurrent());
}

ScriptDetails::Origin ScriptDetails::origin() const
{
    Origin origin;
    origin.language = m_view->language();
    origin.revision = m_view->codeEdit()->document()->revision();
    origin.path = m_view->fileInfo().absoluteFilePath();
    origin.showsDiagnostics = showsDiagnostics(origin.language);
    return origin;
}

bool ScriptDetails::isCurrent() const
{
    const Origin now = origin();
    return m_origin.language == now.language && m_origin.revision == now.revision &&
           m_origin.path == now.path && m_origin.showsDiagnostics == now.showsDiagnostics;
}

const MelParser *ScriptDetails::mel() const
{
    return m_origin.language == EdCodeView::Mel ? &m_mel : nullptr;
}

const PythonParser *ScriptDetails::python() const
{
    return m_origin.language == EdCodeView::Python ? &m_python : nullptr;
}

void ScriptDetails::update()
{
    dropCheck();
    const Origin now = origin();
    if (now.language != EdCodeView::Python || !now.showsDiagnostics)
        m_wasInvalid = false;
    m_origin = now;
    if (now.language == EdCodeView::Mel)
        parseMel(m_view->text());
    else if (now.language == EdCodeView::Python)
        parsePython(m_view->text());
    else
        m_view->codeEdit()->clearDiagnostics();
}

void ScriptDetails::parseMel(const QString &text)
{
    m_mel.parse(text, m_origin.path);
    ++m_parseCount;
    m_view->codeEdit()->setDiagnostics(m_mel);
}

void ScriptDetails::parsePython(const QString &text)
{
    m_python.parse(text, m_origin.path);
    ++m_parseCount;
    if (needsCheck())
        checkPython(text);
    else
        m_view->codeEdit()->setDiagnostics(m_python);
}

// What the interpreter objected to need not be an error to the scan.
bool ScriptDetails::needsCheck() const
{
    return m_python.errors().count() > 0 || m_wasInvalid;
}

// Until there is an answer, the errors that are shown stay.
void ScriptDetails::checkPython(const QString &text)
{
    m_check = startPythonSyntaxCheck(text, this);
    if (!m_check) {
        m_view->codeEdit()->setDiagnostics(m_python);
        return;
    }
    m_view->codeEdit()->setWarningsAndNotes(m_python);
    connect(m_check, SIGNAL(answered()), SLOT(showAnswer()));
    if (m_check->isAnswered())
        showAnswer();
}

void ScriptDetails::dropCheck()
{
    if (!m_check)
        return;
    m_check->disconnect(this);
    m_check->deleteLater(); // it may be the one that calls
    m_check = nullptr;
}

// An answer that has come too late is dropped: the next parse asks again.
void ScriptDetails::showAnswer()
{
    if (isCurrent()) {
        m_wasInvalid = m_check->answer().line > 0;
        m_view->codeEdit()->setErrors(errorsAfter(*m_check));
    }
    dropCheck();
}

DiagnosticList ScriptDetails::errorsAfter(const SyntaxCheck &check) const
{
    DiagnosticList errors;
    const SyntaxAnswer &answer = check.answer();
    if (answer.isKnown && answer.line == 0)
        return errors;
    if (answer.isKnown)
        addAtLine(errors, answer.message, answer.line, *m_view->codeEdit()->document());
    append(errors, m_python.errors());
    return errors;
}
