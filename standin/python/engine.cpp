// SPDX-License-Identifier: MIT
#include "standin/python/engine.h"

#include "standin/python/embeddedmodules.h"
#include "standin/python/exceptiontext.h"
#include "standin/python/gil.h"
#include "standin/python/hostmodule.h"
#include "standin/python/pycall.h"
#include "standin/python/pycompat.h"
#include "standin/python/python.h"
#include "standin/python/values.h"

#include <pythread.h>

#include <cstring>

namespace standin {
namespace {

// What scripts typed in the host are called in traces; users look for this name.
const char consoleName[] = "<maya console>";

// Python calling MEL calling Python takes stack of both, which Python's own limit does not see.
const int maximumDepth = 50;

// Echoed texts end in a line break, but do not get a second one.
std::string withLineBreak(const std::string &text)
{
    return !text.empty() && text.back() == '\n' ? text : text + '\n';
}

const char *embeddedSource(const char *name)
{
    for (std::size_t i = 0; i < embeddedModuleCount; ++i) {
        if (std::strcmp(embeddedModules[i].name, name) == 0)
            return embeddedModules[i].source;
    }
    return nullptr;
}

// {name: (isPackage, source)} of everything but the start-up module itself.
PyRef embeddedSources()
{
    PyRef sources(PyDict_New());
    for (std::size_t i = 0; sources && i < embeddedModuleCount; ++i) {
        const EmbeddedModule &module = embeddedModules[i];
        const PyRef entry(
            Py_BuildValue("(Os)", module.isPackage ? Py_True : Py_False, module.source));
        if (!entry || PyDict_SetItemString(sources.get(), module.name, entry.get()) != 0)
            return PyRef();
    }
    return sources;
}

// Starts Python once in the life of the process. Returns without the GIL.
bool ensurePython(std::string &error)
{
    if (Py_IsInitialized())
        return true;
    if (!startPython(error))
        return false;
    // Starting leaves the GIL with this thread, which would stop all others for good.
    PyEval_SaveThread();
    return true;
}

} // namespace

// Counts the executions within each other; an interrupt that comes too late dies with the last.
class Engine::Nesting
{
public:
    explicit Nesting(Engine &engine) : m_engine(engine) { ++m_engine.m_depth; }
    ~Nesting()
    {
        if (--m_engine.m_depth == 0)
            m_engine.setInterrupt(nullptr);
    }
    Nesting(const Nesting &) = delete;
    Nesting &operator=(const Nesting &) = delete;

private:
    Engine &m_engine;
};

Engine::Engine(HostServices &host, mel::Interpreter &mel) : m_binding{host, mel} {}

Engine::~Engine()
{
    if (!m_begun)
        return;
    const GilLock lock;
    // What scripts registered to run at exit, then their variables: widgets among them must go
    // while the host still stands.
    if (!callStartup("end", PyRef()))
        failureFromException();
    // Last: what ran above may have printed. Threads that go on find no host from now on.
    HostBinding::setCurrent(nullptr);
}

bool Engine::begin()
{
    std::string error;
    if (ensurePython(error)) {
        const GilLock lock;
        HostBinding::setCurrent(&m_binding);
        // Interrupts are addressed by this number, and begin() runs on the main thread.
        m_mainThread = PyThread_get_thread_ident();
        m_begun = true;
        if (prepareModules())
            return true;
        error = takeExceptionText(true);
    }
    m_binding.host.output(mel::MessageKind::Error, "Python could not be started: " + error);
    return false;
}

bool Engine::prepareModules()
{
    // Scripts of the user may be imported from where MEL finds them.
    const PyRef folders = toPython(mel::Value(m_binding.mel.host().scriptPath()));
    return folders && callStartup("begin", folders);
}

// Calls a function of the start-up module, which is made on first use.
bool Engine::callStartup(const char *function, const PyRef &argument)
{
    // Deliberate: one reference that is never given back, for it serves every engine of the
    // process.
    static PyObject *namespaceOfStartup = nullptr;
    if (!namespaceOfStartup) {
        const PyRef fresh(Py_BuildValue("{ss}", "__name__", "_standin_startup"));
        const PyRef sources = embeddedSources();
        if (!addHostModule() || !fresh || !sources ||
            PyDict_SetItemString(fresh.get(), "sources", sources.get()) != 0)
            return false;
        // Code run from C may have no builtin functions otherwise, that of import among them.
        PyDict_SetItemString(fresh.get(), "__builtins__", PyEval_GetBuiltins());
        const PyRef done(
            PyRun_String(embeddedSource("startup"), Py_file_input, fresh.get(), fresh.get()));
        if (!done)
            return false;
        // Only now, so that a failed start is tried again.
        namespaceOfStartup = PyRef::borrowed(fresh.get()).release();
    }
    PyObject *callable = PyDict_GetItemString(namespaceOfStartup, function);
    return static_cast<bool>(
        PyRef(PyObject_CallFunctionObjArgs(callable, argument.get(), nullptr)));
}

mel::Outcome Engine::execute(const std::string &text, bool display)
{
    const GilLock lock;
    if (display)
        // Before the check below, so that the history shows what is refused.
        sendMessage(mel::MessageKind::History, withLineBreak(text));
    if (m_depth >= maximumDepth)
        return failure("Too many executions within each other.");
    const Nesting nesting(*this);
    try {
        return executeNested(text, display);
    } catch (const std::exception &exception) {
        // One of C++, lack of memory above all; Python's exceptions do not come this way.
        PyErr_Clear();
        return failure(exception.what());
    }
}

mel::Outcome Engine::executeNested(const std::string &text, bool display)
{
    const PyRef value = run(text);
    return value ? outcomeOf(value.get(), display) : failureFromException();
}

// Compiles as an expression first, because only that has a value.
PyRef Engine::run(const std::string &text)
{
    const PyRef source = sourceObject(text);
    if (!source)
        return PyRef();
    PyRef code = compile(source.get(), "eval");
    // Any other failure would only come again.
    if (!code && PyErr_ExceptionMatches(PyExc_SyntaxError)) {
        PyErr_Clear();
        code = compile(source.get(), "exec");
    }
    // Borrowed: sys.modules keeps it, and scripts share its variables with everything run here.
    PyObject *main = PyImport_AddModule("__main__");
    if (!code || !main)
        return PyRef();
    PyObject *globals = PyModule_GetDict(main);
    // Through eval(), the one way to run code that is the same in every version.
    return callBuiltin("eval", {code.get(), globals});
}

PyRef Engine::compile(PyObject *source, const char *mode)
{
    const PyRef name = textObject(consoleName);
    const PyRef modeName = textObject(mode);
    const PyRef flags = integerObject(0);
    if (!name || !modeName || !flags)
        return PyRef();
    PyObject *inheritNothing = Py_True; // of the Python code that may be running below
    return callBuiltin("compile",
                       {source, name.get(), modeName.get(), flags.get(), inheritNothing});
}

mel::Outcome Engine::outcomeOf(PyObject *value, bool display)
{
    // repr() is code of the script's and may fail.
    if (display && value != Py_None) {
        const PyRef text(PyObject_Repr(value));
        if (!text)
            return failureFromException();
        sendMessage(mel::MessageKind::Result, toUtf8(text.get()));
    }
    std::optional<mel::Value> result = toMel(value);
    if (!result)
        return failureFromException();
    return {true, std::move(*result), {}};
}

mel::Outcome Engine::failure(const std::string &error)
{
    sendMessage(mel::MessageKind::Error, error);
    return {false, {}, error};
}

mel::Outcome Engine::failureFromException()
{
    // An interrupt that has stopped MEL below must not stop the formatting of that error.
    setInterrupt(nullptr);
    return failure(takeExceptionText(m_binding.mel.settings().stackTrace));
}

void Engine::interrupt()
{
    const GilLock lock;
    // Nothing runs, nothing to stop: the exception would hit whatever runs next.
    if (m_depth > 0)
        setInterrupt(PyExc_KeyboardInterrupt);
}

// Not by a pending call or a signal: the former wakes no loop when another thread adds it, the
// latter needs the signal handler, which belongs to the host.
void Engine::setInterrupt(PyObject *exception)
{
    PyThreadState_SetAsyncExc(m_mainThread, exception);
}

std::unique_ptr<PythonEngine> createPythonEngine(HostServices &host, mel::Interpreter &mel)
{
    auto engine = std::make_unique<Engine>(host, mel);
    if (!engine->begin())
        return nullptr;
    return engine;
}

} // namespace standin
