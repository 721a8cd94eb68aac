// SPDX-License-Identifier: MIT
#include "bridge/pythonanalysis.h"

#include "bridge/forcedimports.h"
#include "bridge/outputsuppression.h"
#include "bridge/pythontext.h"
#include "preferences/preferences.h"
#include "resources/resources.h"

#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <QFile>

namespace {

// `result` is nothing or one variable, which takes what the command returns. Not displayed, not
// undoable. False when it raised, or there is no Python.
template <typename... Result>
bool run(const QString &command, Result &...result)
{
    const OutputSuppression silence;
    const MStatus status =
        MGlobal::executePythonCommand(MQtUtil::toMString(command), result..., false, false);
    // Leaves none of the commands above behind as the last one that Maya remembers.
    MGlobal::executePythonCommand("pass", false, false);
    return status == MStatus::kSuccess;
}

QStringList listed(const MStringArray &array)
{
    QStringList list;
    for (unsigned int i = 0; i < array.length(); ++i)
        list << MQtUtil::toQString(array[i]);
    return list;
}

// Empty when the command fails or returns no list of strings.
QStringList listOf(const QString &command)
{
    MStringArray found;
    run(command, found);
    return listed(found);
}

QString candidateArguments(const QString &source, const QString &object, PythonNames wanted)
{
    const bool any = wanted == PythonNames::Any;
    const QString target = object.isEmpty() ? QString::fromLatin1("None") : quotedForPython(object);
    const QStringList arguments = QStringList()
                                  << quotedForPython(forcedImportLines() + source) << target
                                  << QString::number(any && preferences().pythonIncludeKeywords)
                                  << QString::number(any && preferences().pythonIncludeBuiltins);
    return arguments.join(QLatin1String(", "));
}

QStringList listWithKinds(const char *method, const QString &arguments)
{
    return listOf(QLatin1String("CorvaneParser().with_kinds('") + QLatin1String(method) +
                  QLatin1String("', ") + arguments + QLatin1Char(')'));
}

} // namespace

bool loadPythonAnalysis()
{
    initResources();
    QFile script(QLatin1String(":/python/corvane_parser.py"));
    if (!script.open(QIODevice::ReadOnly)) {
        MGlobal::displayError("Failed to open python parser file");
        return false;
    }
    run(QString::fromUtf8(script.readAll()));
    run(QLatin1String("CorvaneParser.initialize()"));
    return true;
}

QStringList pythonCandidates(const QString &source, const QString &object, PythonNames wanted)
{
    return listOf(QLatin1String("CorvaneParser().parse_source(") +
                  candidateArguments(source, object, wanted) + QLatin1Char(')'));
}

QStringList pythonAnswer(PythonQuestion question, const QString &source, const QString &object)
{
    const QString argument = quotedForPython(object);
    switch (question) {
    case PythonQuestion::NamesInScope:
        return pythonCandidates(source, QString(), PythonNames::Any);
    case PythonQuestion::Members:
        return listWithKinds("parse_source",
                             candidateArguments(source, object, PythonNames::Members));
    case PythonQuestion::Modules:
        return listOf(QLatin1String("CorvaneParser().module_names(") + argument + QLatin1Char(')'));
    case PythonQuestion::NamesInModule:
        return listWithKinds("importable_names", argument);
    case PythonQuestion::ExportedNames:
        return listWithKinds("exported_names", argument);
    case PythonQuestion::Keywords:
        return listOf(QLatin1String("CorvaneParser.KEYWORDS"));
    case PythonQuestion::BuiltIns:
        return listOf(QLatin1String("CorvaneParser.BUILTINS"));
    case PythonQuestion::OtherBuiltIns:
        return listOf(QLatin1String("CorvaneParser.OTHER_BUILTINS"));
    }
    return QStringList();
}

SyntaxAnswer pythonSyntaxError(const QString &source)
{
    MStringArray found; // message and line; empty where Python cannot tell
    run(QLatin1String("CorvaneParser.syntax_answer(") + quotedForPython(source) +
            QLatin1String(")"),
        found);
    const QStringList error = listed(found);
    SyntaxAnswer answer;
    answer.isKnown = error.size() == 2;
    answer.message = error.value(0);
    answer.line = error.value(1).toInt();
    return answer;
}

bool startPythonSyntaxThread(const QString &source, const QString &answerFile)
{
    int started = 0;
    run(QLatin1String("CorvaneParser.start_syntax_check(") + quotedForPython(source) +
            QLatin1String(", ") + quotedForPython(answerFile) + QLatin1String(")"),
        started);
    return started == 1;
}

bool executePythonStatement(const QString &statement)
{
    int ran = 0;
    run(QLatin1String("CorvaneParser.exec_statement(") + quotedForPython(statement) +
            QLatin1String(")"),
        ran);
    return ran == 1;
}
