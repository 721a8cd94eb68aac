// SPDX-License-Identifier: MIT
#include "bridge/pythonanalysis.h"

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
// undoable.
template <typename... Result>
void run(const QString &command, Result &...result)
{
    const OutputSuppression silence;
    MGlobal::executePythonCommand(MQtUtil::toMString(command), result..., false, false);
    // Leaves none of the commands above behind as the last one that Maya remembers.
    MGlobal::executePythonCommand("pass", false, false);
}

// Empty when the command fails or returns no list of strings.
QStringList names(const QString &command)
{
    MStringArray found;
    run(command, found);
    QStringList result;
    for (unsigned int i = 0; i < found.length(); ++i)
        result << MQtUtil::toQString(found[i]);
    return result;
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
    const bool any = wanted == PythonNames::Any;
    const QString target = object.isEmpty() ? QString::fromLatin1("None") : quotedForPython(object);
    const QStringList arguments = QStringList()
                                  << quotedForPython(source) << target
                                  << QString::number(any && preferences().pythonIncludeKeywords)
                                  << QString::number(any && preferences().pythonIncludeBuiltins);
    return names(QLatin1String("CorvaneParser().parse_source(") +
                 arguments.join(QLatin1String(", ")) + QLatin1String(")"));
}

PythonSyntaxError pythonSyntaxError(const QString &source)
{
    // Message and line; an empty list when there is no error.
    const QStringList answer = names(QLatin1String("CorvaneParser.syntax_check(") +
                                     quotedForPython(source) + QLatin1String(")"));
    PythonSyntaxError error;
    error.message = answer.value(0);
    error.line = answer.value(1).toInt();
    return error;
}

bool executePythonStatement(const QString &statement)
{
    int ran = 0;
    run(QLatin1String("CorvaneParser.exec_statement(") + quotedForPython(statement) +
            QLatin1String(")"),
        ran);
    return ran == 1;
}
