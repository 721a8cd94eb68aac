# SPDX-License-Identifier: MIT
"""Deferred calls, calls from threads, and the text of uncaught exceptions."""
import collections
import io
import linecache
import os
import sys
import threading
import traceback

import _standin

_CONSOLE = '<maya console>'
_textType = type(u'')


# Idle time and threads

# Calls that wait, oldest first; deques may be filled and emptied by several threads.
_waitingCalls = collections.deque()


def executeDeferred(textOrCallable, *args, **kwargs):
    """Runs a text or calls something when the host is idle; returns at once, from any thread."""
    if callable(textOrCallable):
        _queue(textOrCallable, args, kwargs)
    else:
        _standin.executeOnIdle(textOrCallable)


def executeInMainThreadWithResult(textOrCallable, *args, **kwargs):
    """The value of a text or call that runs on the main thread, which is waited for."""
    if not callable(textOrCallable):
        textOrCallable, args, kwargs = _runText, (textOrCallable,), {}
    # Waiting for the thread that waits would never end.
    if _standin.isMainThread():
        return textOrCallable(*args, **kwargs)
    if _standin.isBatch():
        raise RuntimeError('A session without interface has no idle time to wait for.')
    return _WaitedCall(textOrCallable, args, kwargs).result()


def processIdleEvents():
    """Runs what waits for idle time now."""
    _standin.processIdle()


class _WaitedCall(object):
    def __init__(self, function, args, kwargs):
        # Set when the value or the error is there.
        self._done = threading.Event()
        self._value = None
        self._error = None
        _queue(self._run, (function, args, kwargs), {})

    def _run(self, function, args, kwargs):
        try:
            self._value = function(*args, **kwargs)
        # Whatever it is, it is the caller's: without it the caller would wait for ever.
        except BaseException as error:
            self._error = error
        finally:
            self._done.set()

    def result(self):
        self._done.wait()
        if self._error is not None:
            raise self._error
        return self._value


def _queue(*call):
    # One entry of the host's queue per call keeps the order among calls and texts.
    _waitingCalls.append(call)
    _standin.executeOnIdle("__import__('maya.utils').utils._runWaitingCall()")


def _runWaitingCall():
    _runReporting(*_waitingCalls.popleft())


def _runReporting(function, args, kwargs):
    try:
        function(*args, **kwargs)
    except BaseException:
        kind, error, trace = sys.exc_info()
        _standin.reportException(kind, error, _beyondHost(trace))


def _beyondHost(trace):
    """What follows the host's own calls in a trace, which mean nothing to a script's author."""
    # By file: all calls of this module that lead to the script are passed over.
    while trace and trace.tb_frame.f_code.co_filename == _runReporting.__code__.co_filename:
        trace = trace.tb_next
    return trace


def _forgetCalls():
    _waitingCalls.clear()


def _runText(text):
    variables = sys.modules['__main__'].__dict__
    try:
        # An expression first, since only that has a value.
        code = compile(text, _CONSOLE, 'eval', 0, True)
    except SyntaxError:
        code = compile(text, _CONSOLE, 'exec', 0, True)
    return eval(code, variables)


def _runUserSetup():
    """Runs every userSetup.py on the path; one that fails stops no other."""
    # A copy: the scripts may change the path.
    for folder in list(sys.path):
        path = os.path.join(folder, 'userSetup.py')
        if os.path.isfile(path):
            _runReporting(_runFile, (path,), {})


def _runFile(path):
    # As bytes, so that the compiler heeds the file's own declaration of its encoding.
    with io.open(path, 'rb') as source:
        code = compile(source.read(), path, 'exec', 0, True)
    eval(code, sys.modules['__main__'].__dict__)


# Scripts handed to commands

_callbacks = {}  # for ever: nothing says when an element of the interface has gone
_withoutArgument = ('scriptJob', 'runTimeCommand', 'evalDeferred')
_states = {'1': True, '0': False, '#1': False}


def _melScript(command, value):
    """The MEL text that runs a script given from Python, which is Python text or a callable."""
    if callable(value):
        number = len(_callbacks) + 1
        _callbacks[number] = value
        # Elements of the interface put their state in the place of the mark, if they have one.
        state = '' if command in _withoutArgument else ", '#1'"
        value = "__import__('maya.utils').utils._runCallback(%d%s)" % (number, state)
    # The backslash first: the other escapes bring backslashes of their own.
    for plain, escaped in (('\\', '\\\\'), ('"', '\\"'), ('\n', '\\n'), ('\r', '\\r'), ('\t', '\\t')):
        value = value.replace(plain, escaped)
    return 'python("%s")' % value


def _runCallback(number, *state):
    _runReporting(_callbacks[number], tuple(_states.get(text, text) for text in state), {})


# Uncaught exceptions

def formatGuiException(exceptionType, exceptionObject, traceBack, detail=2):
    """The text of an uncaught exception; scripts may put a function of their own in its place.

    detail: 0 the message alone, 1 with type, file and line, 2 with the trace.
    """
    message = _message(exceptionObject)
    if detail == 0:
        return message
    if detail == 1:
        name, line = _place(exceptionObject, traceBack)
        return u'%s: file %s line %s: %s' % (exceptionType.__name__, name, line, message)
    if isinstance(exceptionObject, SyntaxError):
        message = u'line %s: %s' % (exceptionObject.lineno or 0, message)
    return message + u'\n' + _trace(exceptionType, exceptionObject, traceBack)


# Kept, for the case that a script's own function fails.
_formatGuiException = formatGuiException


def _exceptionText(exceptionType, exceptionObject, traceBack, withTrace):
    detail = 2 if withTrace else 1
    try:
        return formatGuiException(exceptionType, exceptionObject, traceBack, detail)
    except Exception:
        return _formatGuiException(exceptionType, exceptionObject, traceBack, detail)


def _message(error):
    if isinstance(error, SyntaxError) and error.msg:
        return _text(error.msg)
    try:
        # Text of Python 2 may be bytes that are not ASCII: then by way of str().
        return _textType(error)
    except Exception:
        pass
    try:
        return _text(str(error))
    except Exception:
        return u'<unprintable %s object>' % type(error).__name__


def _text(value):
    return value.decode('utf-8', 'replace') if isinstance(value, bytes) else _textType(value)


def _place(error, trace):
    """File and line that an exception comes from, innermost call first."""
    if isinstance(error, SyntaxError) and error.filename:
        return error.filename, error.lineno or 0
    # As file and line; plain tuples in Python 2.
    frames = traceback.extract_tb(trace)
    return (frames[-1][0], frames[-1][1]) if frames else (_CONSOLE, 0)


def _trace(exceptionType, error, trace):
    # Files that the user has changed since are shown as they are now.
    linecache.checkcache()
    if trace is None:
        lines = traceback.format_exception_only(exceptionType, error)
    else:
        lines = traceback.format_exception(exceptionType, error, trace)
    text = u''.join(_text(line) for line in lines)
    return u'\n'.join(u'# ' + line for line in text.rstrip(u'\n').split(u'\n'))
