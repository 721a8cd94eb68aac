// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/pythonengine.h"
#include "standin/python/hostbinding.h"

namespace standin {

// Runs texts in __main__ of the process's Python. The GIL is free whenever no Python runs on the
// main thread, so threads that scripts start go on while the event loop waits.
class Engine : public PythonEngine
{
public:
    Engine(HostServices &host, mel::Interpreter &mel);
    ~Engine() override;

    // Starts Python or takes it over from an engine before; reports an error when that fails.
    bool begin();

    mel::Outcome execute(const std::string &text, bool display) override;
    void interrupt() override;

private:
    class Nesting;

    void setInterrupt(PyObject *exception);
    mel::Outcome executeNested(const std::string &text, bool display);
    mel::Outcome outcomeOf(PyObject *value, bool display);
    mel::Outcome failure(const std::string &error);
    mel::Outcome failureFromException();
    PyRef run(const std::string &text);
    PyRef compile(PyObject *source, const char *mode);
    bool prepareModules();
    bool callStartup(const char *function, const PyRef &argument);

    HostBinding m_binding;
    bool m_begun = false;
    int m_depth = 0;                // of executions within executions; used with the GIL held
    unsigned long m_mainThread = 0; // as Python numbers threads
};

} // namespace standin
