// SPDX-License-Identifier: MIT
#include "bridge/syntaxcheck.h"

namespace {

SyntaxCheckStarter pythonStarter = nullptr;

} // namespace

void SyntaxCheck::setAnswer(const SyntaxAnswer &answer)
{
    m_answer = answer;
    m_isAnswered = true;
}

void setPythonSyntaxCheck(SyntaxCheckStarter starter)
{
    pythonStarter = starter;
}

SyntaxCheck *startPythonSyntaxCheck(const QString &source, QObject *parent)
{
    return pythonStarter ? pythonStarter(source, parent) : nullptr;
}
