// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/pythonengine.h"
#include "standin/python/hostbinding.h"

namespace standin {

// Runs texts in __main__ of the process's Python. The GIL is free whenever no Python runs on the
// main thread, so threads that scripts start go on while the event loop waits. Every function of
// this class takes the GIL itself, or is called with it held by one that does.
//
// At the end the engine goes while the host still stands; Python itself stays.
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

    // Null takes an interrupt back that has not arrived yet.
    void setInterrupt(PyObject *exception);
    // With the GIL held and the depth counted.
    mel::Outcome executeNested(const std::string &text, bool display);
    mel::Outcome outcomeOf(PyObject *value, bool display);
    // Both report the error before they return it.
    mel::Outcome failure(const std::string &error);
    mel::Outcome failureFromException();
    // Null with an exception set when compiling or running fails.
    PyRef run(const std::string &text);
    PyRef compile(PyObject *source, const char *mode);
    bool prepareModules();
    // False with an exception set; an empty argument ends the list of arguments.
    bool callStartup(const char *function, const PyRef &argument);

    // What Python's modules reach the host through; current from begin() on.
    HostBinding m_binding;
    bool m_begun = false;
    int m_depth = 0;                // of executions within executions; used with the GIL held
    unsigned long m_mainThread = 0; // as Python numbers threads
};

} // namespace standin
