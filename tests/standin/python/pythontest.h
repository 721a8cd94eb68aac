// SPDX-License-Identifier: MIT
#pragma once

#include "standin/python/python.h"
#include "tests/standin/python/fakehost.h"

#include <QString>

#include <memory>

// A host with its Python, made anew for each test function.
class PythonTest
{
public:
    PythonTest() : m_engine(standin::createPythonEngine(host, host.interpreter))
    {
        host.python = m_engine.get();
    }

    FakeHost host;

    bool isStarted() const { return m_engine != nullptr; }
    standin::PythonEngine &engine() { return *m_engine; }
    void endEngine() { m_engine.reset(); }

    mel::Outcome run(const QString &text, bool display = false)
    {
        return m_engine->execute(text.toUtf8().constData(), display);
    }
    // str() of an expression's value, or the message of what went wrong.
    QString value(const QString &expression)
    {
        const mel::Outcome outcome = run("str((" + expression + "))");
        const std::string &text = outcome.ok ? std::get<std::string>(outcome.value) : outcome.error;
        return QString::fromUtf8(text.c_str());
    }

private:
    std::unique_ptr<standin::PythonEngine> m_engine;
};
