# SPDX-License-Identifier: MIT
# Completion candidates, syntax checks and single statements for the editor.
#
# The same text runs in Python 2.7 and 3. It is executed in __main__, among the names of the user's
# own scripts, and leaves nothing there but the names without an underscore; see _leave_main().
_corvane_before = dict(globals())  # without any of the imports below

import __future__ as _future
import ast as _ast
import functools as _functools
import io as _io
import operator as _operator
import os as _os
import re as _re
import sys as _sys
import sysconfig as _sysconfig
import threading as _threading
import time as _time
import types as _types
import warnings as _warnings
import zipfile as _zipfile

try:
    import builtins as _builtins
except ImportError:  # Python 2
    import __builtin__ as _builtins

# The editor puts this identifier where the caret is.
_LOCATOR = "__corvane_lctr_kvrt__"

# Names that complete an unfinished definition at the caret; they are never offered.
_PLACEHOLDERS = frozenset(["__kedefloc__", "__keclsloc__", _LOCATOR, ""])

KEYWORDS = [
    "and", "as", "assert", "break", "class", "continue", "def", "del", "elif", "else", "except",
    "exec", "finally", "for", "from", "global", "if", "import", "in", "is", "lambda", "not", "or",
    "pass", "print", "raise", "return", "try", "while", "with",
    "yeild",  # Deliberate: the list is shown as it stands, misspelling included.
    "None", "True", "False",
]

BUILTINS = [
    "abs", "all", "any", "basestring", "bin", "bool", "bytearray", "callable", "chr",
    "classmethod", "cmp", "compile", "complex", "delattr", "dict", "dir", "divmod", "enumerate",
    "eval", "execfile", "file", "filter", "float", "format", "frozenset", "getattr", "globals",
    "hasattr", "hash", "help", "hex", "id", "input", "int", "isinstance", "issubclass", "iter",
    "len", "list", "locals", "long", "map", "max", "memoryview", "min", "next", "object", "oct",
    "open", "ord", "pow", "print", "property", "range", "raw_input", "reduce", "reload", "repr",
    "reversed", "round", "set", "setattr", "slice", "sorted", "staticmethod", "str", "sum",
    "super", "tuple", "type", "unichr", "unicode", "vars", "xrange", "zip", "__import__", "apply",
    "buffer", "coerce", "intern",
]

# What every script has beside the lists above.
_EXCEPTIONS = (name for name, value in vars(_builtins).items()
               if isinstance(value, type) and issubclass(value, BaseException))
_OTHER_BUILTINS = sorted(_EXCEPTIONS) + ["__file__", "__name__"]

# Its modules are found by importing them only.
_HOST_PACKAGE = ["maya", "api"]

_HOST_MODULES = (
    "maya.cmds", "maya.mel", "maya.OpenMaya", "maya.OpenMayaAnim", "maya.OpenMayaCloth",
    "maya.OpenMayaFX", "maya.OpenMayaMPx", "maya.OpenMayaRender", "maya.OpenMayaUI",
)

_IDENTIFIER = _re.compile(r"[^\W\d]\w*$", _re.UNICODE)
# On one of the first two lines.
_COOKIE = _re.compile(
    br"(?:[^\r\n]*(?:\r\n?|\n))??[ \t\f]*#[^\r\n]*?coding[:=][ \t]*([-\w.]+)")

# Bounds that no sensible source reaches; beyond them there are no names rather than a long wait.
_LONGEST_PATH = 64  # parts of a dotted name
_LONGEST_QUOTED = 1000  # units of an annotation
_DEEPEST = 32  # variables that lead from one to the next through attributes and calls
_MOST_IMPORTS = 4  # of the same name
_MOST_CHOICES = 4
_LARGEST_FILE = 4 << 20
_LONG_FILE = 50000  # of which only an outline is parsed
_PATIENCE = 0.05  # seconds, after which a call reads no more files
_MOST_FILES = 64  # parsed files that are kept

# A call of the parser costs more than a short statement, of which few are bad.
_AT_ONCE = 32

# What stands for the value of a variable, by the class of the syntax node.
_LITERALS = {
    "List": [], "ListComp": [], "Tuple": (), "Dict": {}, "DictComp": {}, "Set": set(),
    "SetComp": set(), "JoinedStr": "",
}
_UNKNOWN = (None, None)
_PROMISE = "Annotation"  # of a class: no value that the variable gets changes it
# Annotations that promise what is in their brackets, and those that promise nothing by themselves.
_WRAPPERS = ("ClassVar", "Final", "Optional")
_VAGUE = _WRAPPERS + ("Any", "TypeAlias")
_TYPING = "typing."
_GENERICS = ("Dict", "FrozenSet", "List", "Set", "Tuple")  # like the types in lower case
_CHOICES = ("BoolOp", "IfExp")  # any of several values, which are looked at when they are needed

with open(_os.devnull) as _FILE:  # closed, but with the names of all files
    pass

# A value of each type whose methods are known to give another such value, by the type's name.
_BASIC = dict((type(one).__name__, one) for one in (u"", b"", [], (), {}, set(), 0, 0.0))

# Values like those that calls give: of methods ...
_METHOD_RESULTS = dict(
    dict.fromkeys(("capitalize", "center", "format", "join", "ljust", "lower", "lstrip", "read",
                   "readline", "replace", "rjust", "rstrip", "strip", "title", "upper", "zfill"),
                  ""),
    split=[""], rsplit=[""], splitlines=[""], readlines=[""], partition=("",), rpartition=("",),
    encode=b"", decode=u"", items=[()], keys=[], values=[])
# ... of functions ...
_FUNCTION_RESULTS = dict(
    dict.fromkeys(("os.path." + name for name in (
        "abspath", "basename", "dirname", "expanduser", "expandvars", "join", "normpath",
        "realpath", "relpath")), ""),
    **{"dir": [""], "globals": {}, "input": "", "locals": {}, "open": _FILE, "raw_input": "",
       "repr": "", "sorted": [], "vars": {}, "os.listdir": [""], "glob.glob": [""]})
# ... and of Maya's commands, as they mostly are called.
_COMMAND_RESULTS = dict(
    dict.fromkeys(("createNode", "group", "internalVar", "joint", "nodeType", "objectType",
                   "rename", "shadingNode", "window"), ""),
    **dict.fromkeys(("allNodeTypes", "duplicate", "filterExpand", "listAttr", "listConnections",
                     "listHistory", "listNodeTypes", "listRelatives", "ls", "spaceLocator"), [""]))
_COMMANDS = "maya.cmds."

# Python 2 and Python 3 before 3.8 have a class of node for each kind of constant. The classes are
# told by name, since asking `ast` for the old ones warns in new versions.
_CONSTANTS = {"Str": "s", "Bytes": "s", "Num": "n", "NameConstant": "value", "Constant": "value"}

_NESTED_FIELDS = ("body", "handlers", "orelse", "finalbody", "cases")
_OTHER_THAN_EXPRESSIONS = tuple(
    getattr(_ast, name)
    for name in ("stmt", "expr_context", "operator", "boolop", "unaryop", "cmpop", "excepthandler",
                 "match_case")
    if hasattr(_ast, name))


def _never_raises(make_empty):
    """Makes a function return make_empty() whatever goes wrong.

    SystemExit and the like are kept from the host too: it would quit for a user's statement.
    """
    def decorate(function):
        @_functools.wraps(function)
        def guarded(*args, **kwargs):
            try:
                return function(*args, **kwargs)
            except BaseException:
                return make_empty()
        return guarded
    return decorate


def _in_time(function):
    """Lets a call for which a user waits read no more files once it has taken long, and note the
    kinds of what it finds anew."""
    @_functools.wraps(function)
    def timed(*args, **kwargs):
        CorvaneParser._deadline = _time.time() + _PATIENCE
        CorvaneParser._kinds = {}
        try:
            return function(*args, **kwargs)
        finally:
            CorvaneParser._deadline = float("inf")
    return timed


# Source text

def _text(source):
    """Returns the source as the parser of this version takes it: text, in Python 2 UTF-8 bytes."""
    if isinstance(source, bytes):
        source = source.decode("utf-8", "replace")
    # Halves of surrogate pairs can come from a text field; the parser refuses them.
    data = source.lstrip(u"\ufeff").encode("utf-8", "replace")
    data = data.replace(b"\r\n", b"\n").replace(b"\r", b"\n")
    return _declared_as_utf8(data) if str is bytes else data.decode("utf-8")


def _declared_as_utf8(data):
    """Python 2 would decode the bytes as the source declares, but they are no longer in that."""
    cookie = _COOKIE.match(data)
    if not cookie:
        return data
    return data[:cookie.start(1)] + b"utf-8" + data[cookie.end(1):]


# Of the texts that are parsed; no file of the user's has it.
_PARSED_NAME = "<corvane>"


def _parse(source):
    """ast.parse without its warnings, which would end up in the user's history."""
    if len(source) < 20000 or _sys.version_info >= (3, 11):
        return _parse_here(source)
    return _parse_with_large_stack(source)


def _parse_here(source, flags=0):
    """Deliberate: the filter is for this name alone, and stays. Threads have the filters in common,
    so putting the old ones back could undo what another thread has changed meanwhile."""
    first = _warnings.filters[0][3] if _warnings.filters else None
    if getattr(first, "pattern", first) != _PARSED_NAME:
        _warnings.filterwarnings("ignore", module=_PARSED_NAME)
    return compile(source, _PARSED_NAME, "exec", _ast.PyCF_ONLY_AST | flags, True)


def _parse_with_large_stack(source):
    """Older versions descend into a chain such as a+a+a+... without any check, and take the host
    down with them. A thread may be given the stack that the deepest chain needs."""
    outcome = []

    def parse():
        try:
            outcome.append(_parse_here(source))
        except BaseException as error:
            outcome.append(error)

    _start_thread(parse, len(source)).join()
    if isinstance(outcome[0], BaseException):
        raise outcome[0]
    return outcome[0]


def _start_thread(target, length):
    """Starts a thread whose stack suffices for parsing so many characters."""
    thread = _threading.Thread(target=target)
    thread.daemon = True
    usual = _threading.stack_size(min(max(length * 256, 16 << 20), 512 << 20))
    try:
        thread.start()
    finally:
        _threading.stack_size(usual)
    return thread


def _whole(source):
    return source


def _reduced(source):
    """The lines that can stand alone: an unfinished `name.` and closing brackets are dropped."""
    return "\n".join(
        line for line in source.splitlines()
        if _re.match("[A-Za-z_]", line.strip()) and not line.rstrip().endswith("."))


def _imports(source):
    return "\n".join(
        line for line in source.splitlines() if line.startswith(("import", "from")))


def _well_formed(source):
    """The top-level statements that parse, if need be without their bad lines."""
    kept, statements = [], _top_level_statements(source)
    for start in range(0, len(statements), _AT_ONCE):
        group = statements[start:start + _AT_ONCE]
        whole = "\n".join(group)
        kept += [whole] if _parses(whole) else map(_mended, group)
    return "\n".join(kept)


def _mended(statement):
    return next((text for text in (statement, _reduced(statement)) if _parses(text)), "")


def _parses(text):
    try:
        _parse(text)
    except Exception:
        return False
    return True


def _top_level_statements(source):
    """Splits before every line at column 0 that begins a statement."""
    statements, decorated = [], False
    for line in source.splitlines():
        goes_on = _re.match(r"\s|[#)\]}]|$|(else|elif|except|finally)\b", line)
        if statements and (goes_on or decorated):
            statements[-1].append(line)
        else:
            statements.append([line])
        if not goes_on:
            decorated = line.startswith("@")
    return ["\n".join(lines) for lines in statements]


# Checking in steps

# Characters that are parsed in one step: a few milliseconds, for which nobody else gets at the
# interpreter.
_STEP = 10000
# How most statements begin, behind the indentation of their block.
_STATEMENT = r"(?!(?:else|elif|except|finally)\b)[A-Za-z_@]"
_AT_MARGIN = _re.compile("^" + _STATEMENT, _re.MULTILINE)
# Up to the first statement of its block; other ways to write it are left alone.
_CLASS = _re.compile(r"(?:@.*\n)*class \w+ *(?:\([^()\n]*\))?:[^\S\n]*(?:#.*)?\n"
                     r"(?:\s*(?:#.*)?\n)*([ \t]+)[^\s#]")


class _StepwiseCheck(object):
    """Finds the first syntax error of a text, a piece at a time.

    Where pieces that end before a statement parse one by one, so do all of them together. A piece
    that does not parse may have been cut out of a statement or a string: it grows, and what is
    wrong with it counts once nothing is left to grow by. A long class is cut between the statements
    of its block, each piece below a line that opens a class.
    """

    def __init__(self, source):
        self._source = source
        self._start = 0
        self._size = _STEP
        self._future = 0  # flags of the imports from __future__ so far
        self._whole_class = -1  # one whose members do not parse by themselves
        self._leave_class()

    def is_done(self):
        return self._start >= len(self._source)

    def step(self):
        """Returns the error as [message, line number as text], or an empty list."""
        if not self._class_line:
            self._enter_class()
        end = self._end()
        inside = self._class_line and self._start > self._class_start
        text = (self._class_line if inside else "") + self._source[self._start:end]
        try:
            self._future |= _future_flags(_parse_here(text, self._future))
        except SyntaxError as error:
            return self._failed(error, end)
        self._start, self._size = end, _STEP
        if end == self._limit:
            self._leave_class()
        return []

    def _failed(self, error, end):
        if end < self._limit:
            self._size += self._size // 2
        elif self._class_line:
            self._start = self._whole_class = self._class_start
            self._leave_class()
        else:
            return self._answer(error)
        return []

    def _answer(self, error):
        """Messages name other lines too, so each has to have its place."""
        try:
            _parse_here("\n" * self._source.count("\n", 0, self._start) +
                        self._source[self._start:], self._future)
        except SyntaxError as placed:
            error = placed
        return _error_answer(error)

    def _end(self):
        """Where the piece ends: before a statement, and before one that is much too long."""
        near = self._start + self._size
        end = next(self._starts(self._cuts, near, self._limit), self._limit)
        if end - self._start > 4 * self._size:
            for end in self._starts(self._cuts, self._start + 1, near):
                pass  # the last one
        return end

    def _starts(self, pattern, position, limit):
        """Where statements start: not below a decorator, nor where a line is joined to it."""
        # Without the limit as the end of the search: half a word would pass for another one.
        for found in pattern.finditer(self._source, position):
            if found.start() >= limit:
                return
            above = self._source[self._source.rfind("\n", 0, found.start() - 1) + 1:found.start()]
            if not above.lstrip().startswith("@") and not above.endswith("\\\n"):
                yield found.start()

    def _enter_class(self):
        start = self._start
        opening = _CLASS.match(self._source, start)
        if start == self._whole_class or not opening:
            return
        end = next(self._starts(_AT_MARGIN, start + 1, self._limit), self._limit)
        if end - start > 4 * _STEP:
            self._cuts = _re.compile("^" + opening.group(1) + _STATEMENT, _re.MULTILINE)
            self._class_line, self._class_start, self._limit = "class _:\n", start, end

    def _leave_class(self):
        self._cuts = _AT_MARGIN
        self._class_line, self._class_start, self._limit = "", -1, len(self._source)


def _future_flags(tree):
    """What the statements below an import from __future__ are compiled with."""
    names = [alias.name for node in tree.body if isinstance(node, _ast.ImportFrom)
             and node.module == "__future__" for alias in node.names]
    features = [getattr(_future, name, None) for name in names]
    return _functools.reduce(
        _operator.or_, [feature.compiler_flag for feature in features if feature], 0)


_VALID = ("", "0")


def _error_answer(error):
    return [str(error).partition(" (")[0], str(error.lineno or 1)]


def _syntax_answer(source):
    """Raises anything but SyntaxError where the parser cannot tell: null bytes, deep nesting."""
    try:
        _parse(_text(source))
    except SyntaxError as error:
        return _error_answer(error)
    return list(_VALID)


def _stepwise_syntax_check(source, is_wanted):
    check, answer = _StepwiseCheck(_text(source)), []
    while not answer and not check.is_done() and is_wanted():
        answer = check.step()
        _time.sleep(0.001)  # only now do other threads get their turn
    return answer


def _write_syntax_answer(source, path):
    """Writes "answer", the line number, 0 when there is no error, and the message, each with a
    line feed, into a file; where the parser cannot tell, "unknown" is the first word. When the file
    is gone, nobody waits for it any more."""
    word = "answer"
    try:
        message, line = _stepwise_syntax_check(source, lambda: _os.path.exists(path)) or _VALID
    except BaseException:
        word, (message, line) = "unknown", _VALID
    lines = [word, line, " ".join(message.splitlines()), ""]
    with _io.open(path, "r+b") as answer_file:
        text = "\n".join(lines)
        answer_file.write(text if isinstance(text, bytes) else text.encode("utf-8", "replace"))


def _read_source(path):
    """Reads a file in the encoding that it declares; bytes that are no text are replaced."""
    if _os.path.getsize(path) > _LARGEST_FILE:
        raise ValueError(path)
    with _io.open(path, "rb") as source_file:
        data = source_file.read()
    try:
        text = data.decode(_encoding(data), "replace")
    except Exception:  # unknown, or a codec that makes no text
        text = data.decode("utf-8", "replace")
    return _text(text)


_DECLARATION = _re.compile(
    r"([ \t]*)(?:(?:async[ \t]+)?def[ \t]+(\w+)|(class[ \t]+\w+)[ \t]*(\([\w., \t]*\))?"
    r"|(\w+)[ \t]*=[^=]|((?:import|from)[ \t][^\\(]*$))", _re.UNICODE)


def _outline(source):
    """The declarations at the margin and in classes there, a line each."""
    lines, block = [], ""  # the indentation in the class at hand; "" outside, None until it is known
    for found in filter(None, map(_DECLARATION.match, source.splitlines())):
        indent, function, opening, bases, variable, imported = found.groups()
        if indent and block is None:
            block = indent
        if indent and indent != block:
            continue
        line = (imported or opening and opening + (bases or "") + ":\n pass" or
                function and "def %s(self): pass" % function or variable + " = None")
        lines.append(" " * bool(indent) + line)
        block = block if indent else None if opening else ""
    return "\n".join(lines)


def _encoding(data):
    if data.startswith(b"\xef\xbb\xbf"):
        return "utf-8-sig"
    cookie = _COOKIE.match(data)
    return cookie.group(1).decode("ascii") if cookie else "utf-8"


# Live objects

# A module or an object can run code of its own when it is asked for an attribute or its names:
# lazily loading modules, properties, __getattr__, __dir__. Looking names up must not run the user's
# code, so the dictionaries are read directly, through the slots of the built-in types.
_module_dict = _types.ModuleType.__dict__["__dict__"].__get__
_class_dict = type.__dict__["__dict__"].__get__
_class_mro = type.__dict__["__mro__"].__get__
# Python 2's classes without a base; both have plain dictionaries.
_OLD_CLASS = getattr(_types, "ClassType", None)
_OLD_INSTANCE = getattr(_types, "InstanceType", None)


def _is_module(value):
    return issubclass(type(value), _types.ModuleType)


def _namespaces(value):
    """The dictionaries in which the attributes of a value are found, nearest first."""
    kind = type(value)  # isinstance() would ask the value for its __class__
    if _is_module(value):
        return [_module_dict(value) or {}]
    if issubclass(kind, type):
        return [_class_dict(one) for one in _class_mro(value)]
    if kind is _OLD_CLASS:
        return _old_namespaces(value)
    if kind is _OLD_INSTANCE:
        return [value.__dict__] + _old_namespaces(value.__class__)
    return _own_namespace(value) + [_class_dict(one) for one in _class_mro(kind)]


def _old_namespaces(old_class):
    found = [old_class.__dict__]
    for base in old_class.__bases__:
        found += _namespaces(base)
    return found


def _own_namespace(value):
    for one in _class_mro(type(value)):
        slot = _class_dict(one).get("__dict__")
        if slot is not None:
            # Anything but the interpreter's own slot is a property of the class's.
            is_own = type(slot) is _types.GetSetDescriptorType
            return [dict.copy(slot.__get__(value))] if is_own else []
    return []


def _names(value):
    """dir() that runs none of the value's code."""
    names = {}  # in Python 3 in the order of definition, which is often sorted already
    for namespace in _namespaces(value):
        names.update(namespace)
    return sorted([name for name in names if type(name) is str])


def _kind(member):
    kind = type(member)
    if issubclass(kind, _types.ModuleType):
        return "module"
    if issubclass(kind, type) or kind is _OLD_CLASS:
        return "class"
    mro = _class_mro(kind)  # Python 2 has none for types that it has not used yet: of methods
    is_called = mro is None or any("__call__" in _class_dict(one) for one in mro)
    return "function" if is_called or kind in (classmethod, staticmethod) else "variable"


def _note_kinds(value):
    for namespace in _namespaces(value):
        for name, member in namespace.items():
            if name not in CorvaneParser._kinds:
                CorvaneParser._kinds[name] = _kind(member)


def _note_kind(kind, names):
    for name in names:
        CorvaneParser._kinds.setdefault(name, kind)
    return names


def _basic_members(value, rest):
    """The names in a value of a basic type, or in what methods and items lead to from there."""
    for step in filter(None, rest.split(".")):
        if step == "[]":
            is_text = isinstance(value, (type(u""), str))
            value = (value if is_text else
                     value[0] if isinstance(value, (list, tuple)) and value else None)
        else:
            value = _METHOD_RESULTS.get(step) if step in dir(value) else None
        if value is None:
            return []
    if value is None:
        return []
    _note_kinds(value)
    return dir(value)


def _member(value, name):
    for namespace in _namespaces(value):
        if name in namespace:
            return _unbound(namespace[name])
    raise AttributeError(name)


def _unbound(member):
    if type(member) in (staticmethod, classmethod):
        return member.__func__
    if any("__set__" in _class_dict(one) for one in _class_mro(type(member))):
        raise AttributeError("only code that must not run knows the value of a property")
    return member


# Modules that are not loaded

_PATH_TYPES = (str, type(u""))  # Python 2 takes either


def _library_folders():
    """Where the interpreter keeps its own library; site-packages lies below, but is not in it."""
    folders = [_os.path.dirname(_os.__file__)]
    folders += [_sysconfig.get_path("stdlib"), _sysconfig.get_path("platstdlib")]
    folders += [_os.path.join(folder, "lib-dynload") for folder in folders if folder]
    folders += [_os.path.join(prefix, "DLLs") for prefix in _prefixes()]
    return set(_normal(folder) for folder in folders if folder)


def _prefixes():
    prefixes = [_sys.prefix, _sys.exec_prefix, getattr(_sys, "base_prefix", _sys.prefix)]
    if _sys.executable:
        prefixes.append(_os.path.dirname(_sys.executable))
    return prefixes


def _normal(path):
    return _os.path.normcase(_os.path.realpath(path))


def _compiled_suffixes():
    """The ends of the names of compiled modules, such as ".so" and ".pyd"."""
    try:
        from importlib.machinery import EXTENSION_SUFFIXES
        return list(EXTENSION_SUFFIXES)
    except ImportError:  # Python 2
        import imp
        return [suffix for suffix, _, kind in imp.get_suffixes() if kind == imp.C_EXTENSION]


_MODULE_SUFFIXES = _compiled_suffixes() + [".py", ".pyc"]  # as the interpreter tries them
_LIBRARY_ARCHIVES = ("python26.zip", "python27.zip", "python%d%d.zip" % _sys.version_info[:2])


def _in_archive(path, name):
    if not _zipfile.is_zipfile(path):
        return False
    with _zipfile.ZipFile(path) as archive:
        entries = archive.namelist()
    starts = (name + ".py", name + "/__init__.py")
    # Importing these two prints a poem or opens a browser.
    return name not in ("this", "antigravity") and any(e.startswith(starts) for e in entries)


def _is_installed(path):
    """Whether a file belongs to the interpreter's library or to a package installed into it."""
    prefixes = tuple(_os.path.join(_normal(prefix), "") for prefix in _prefixes())
    packages = [_normal(folder) for folder in _search_path()
                if _os.path.basename(folder) in ("site-packages", "dist-packages")]
    roots = _library_folders().union(one for one in packages if one.startswith(prefixes))
    return _normal(path).startswith(tuple(_os.path.join(root, "") for root in roots))


def _may_import(path, packages):
    """Whether a module without a source may be imported, which alone tells what is in it.

    Its packages are imported too. Those are sources: none but installed ones may be run. And
    compiled Python is as much the user's code as its source was.
    """
    needed = packages + [path] * path.endswith(".pyc")
    return all(_is_installed(one) for one in needed if one)


def _import_prefixes(parts):
    """Imports as much of the dotted name as is a module."""
    with _warnings.catch_warnings():
        _warnings.simplefilter("ignore")
        for length in range(1, len(parts) + 1):
            try:
                __import__(".".join(parts[:length]))
            except ImportError:
                break


def _find(folders, name):
    """Returns (file or None, folders of its submodules) of a module, or None.

    The folders are searched here: neither is the parent imported, nor are import hooks called.
    """
    portions = []
    for folder in folders:
        if folder.endswith(_LIBRARY_ARCHIVES) and _in_archive(folder, name):
            return folder, []
        path = _os.path.join(folder, name)
        package = _os.path.join(path, "__init__.py")
        if _os.path.isfile(package):
            return package, [path]
        for suffix in _MODULE_SUFFIXES:
            if _os.path.isfile(path + suffix):
                return path + suffix, []
        if str is not bytes and _os.path.isdir(path):
            portions.append(path)  # of a namespace package
    return (None, portions) if portions else None


def _modules_in(folder):
    """The names of the modules in a folder or an archive, read again when that has changed."""
    try:
        stamp = _os.stat(folder).st_mtime
        if folder not in _listed or _listed[folder][0] != stamp:
            _listed[folder] = (stamp, _read_modules_in(folder))
        return _listed[folder][1]
    except (EnvironmentError, ValueError, _zipfile.BadZipfile):
        return []


_listed = {}  # path -> (modification time, names)


def _read_modules_in(folder):
    if _os.path.isdir(folder):
        entries = [name for name in _os.listdir(folder)
                   if name.endswith(tuple(_MODULE_SUFFIXES)) or _is_package(folder, name)]
    elif folder.endswith(_LIBRARY_ARCHIVES):
        with _zipfile.ZipFile(folder) as archive:
            entries = [name.partition("/")[0] for name in archive.namelist()]
    else:
        return []
    names = set(entry.partition(".")[0] for entry in entries)
    return [name for name in names if _IDENTIFIER.match(name) and name != "__init__"]


def _is_package(folder, name):
    return "." not in name and _os.path.isfile(_os.path.join(folder, name, "__init__.py"))


def _loaded_folders(module):
    """The folders of the submodules of a loaded package."""
    folders = _module_dict(module).get("__path__", ()) if _is_module(module) else ()
    # A namespace package would ask the import hooks anew.
    if type(folders) not in (list, tuple):
        folders = dict.get((_own_namespace(folders) or [{}])[0], "_path", ())
    return [folder for folder in folders if type(folder) in _PATH_TYPES]


def _package_folders(parts):
    """The folders of the submodules of a package, loaded or not."""
    folders = _search_path()
    for length, part in enumerate(parts, 1):
        loaded = _sys.modules.get(".".join(parts[:length]))
        found = None if loaded is not None else _find(folders, part)
        folders = _loaded_folders(loaded) if loaded is not None else found[1] if found else []
    return folders


def _search_path():
    return [entry or "." for entry in _sys.path if type(entry) in _PATH_TYPES]


# Syntax nodes

def _dotted(node):
    """Returns "a.b.c" for a name or attributes of a name, else None."""
    names = []
    while isinstance(node, _ast.Attribute):
        names.append(node.attr)
        node = node.value
    if not isinstance(node, _ast.Name):
        return None
    return ".".join([node.id] + names[::-1])


def _path(node):
    """Like _dotted(), but through calls and items: "a.b" for a().b, as a class stands for what it
    makes, and "a.[].b" for a[0].b; literals are called by their types."""
    names = []
    while type(node).__name__ in ("Attribute", "Call", "Subscript"):
        if not isinstance(node, _ast.Call):
            names.append(getattr(node, "attr", "[]"))
        node = getattr(node, "func", None) or node.value
    first = getattr(node, "id", None) or _literal_type(node)
    return first and ".".join([first] + names[::-1])


def _literal_type(node):
    kind = type(node).__name__
    value = (_LITERALS.get(kind) if kind not in _CONSTANTS else
             _constant(node, kind)[0] if _constant(node, kind)[1] != "Name" else None)
    return None if value is None else type(value).__name__


def _literal(node, kind):
    """A value like that of the literal; of its items a list or tuple holds the first, if known."""
    value, first = _LITERALS[kind], (getattr(node, "elts", None) or [None])[0]
    is_known = kind in ("List", "Tuple") and _literal_type(first)
    return type(value)(_value(first)[:1]) if is_known else value


def _holds_text(node):
    """Whether text is among the operands of a chain such as a + "b" % c."""
    pending = [node]
    while pending:
        node = pending.pop()
        if isinstance(node, _ast.BinOp):
            pending += [node.left, node.right]
        elif _literal_type(node) in ("str", "unicode"):
            return True
    return False


def _constant(node, kind):
    value = getattr(node, _CONSTANTS[kind])
    if value is None or value is Ellipsis or isinstance(value, bool):
        return [str(value), "Name"]  # as Python 2 has them
    if isinstance(value, (type(u""), bytes)):
        return [value, "Str"]
    return [value, "Num"]


def _value(node):
    """Returns the [value, node type] that a variable is recorded with."""
    kind = type(node).__name__
    if node is None:
        return list(_UNKNOWN)
    if kind in _CONSTANTS:
        return _constant(node, kind)
    if kind in _LITERALS:
        return [_literal(node, kind), kind]
    if kind == "NamedExpr":
        return _value(node.value)
    if kind == "BinOp":
        return ["" if _holds_text(node) else None, kind]
    if kind in _CHOICES:
        return [node, kind]
    return [_path(node), kind]


def _bind(variables, name, value):
    known = variables.get(name)
    if known is not None and known[1] == _PROMISE:
        return
    if known is not None and value[1] not in (known[1], _PROMISE):
        value = _UNKNOWN
    variables[name] = list(value)


def _lines_that_matter(source):
    """The first and the last line whose expressions can hold the locator or bind a variable."""
    if ":=" in source:
        return 1, float("inf")
    before, found, _ = source.partition(_LOCATOR)
    if not found:
        return float("inf"), 0
    return before.count("\n") + 1, source.rpartition(_LOCATOR)[0].count("\n") + 1


def _nested_statements(node):
    if isinstance(node, (_ast.ClassDef, _ast.FunctionDef, getattr(_ast, "AsyncFunctionDef", ()))):
        return []
    nested = []
    for field in _NESTED_FIELDS:
        value = getattr(node, field, None)
        nested += value if isinstance(value, list) else []  # no list in Python 2's `exec body`
    return nested


def _expressions(node):
    """Yields the expressions directly below a node."""
    for field in node._fields:
        value = getattr(node, field, None)
        for child in value if isinstance(value, list) else (value,):
            if isinstance(child, _ast.AST) and not isinstance(child, _OTHER_THAN_EXPRESSIONS):
                yield child


def _argument_names(arguments):
    """The names of a function's arguments, in the order in which they are written."""
    nodes = getattr(arguments, "posonlyargs", []) + arguments.args + [arguments.vararg]
    nodes += getattr(arguments, "kwonlyargs", []) + [arguments.kwarg]
    names = []
    while nodes:
        node = nodes.pop(0)
        if isinstance(node, _ast.Tuple):  # Python 2: def f(a, (b, c))
            nodes[:0] = node.elts
        elif node is not None:
            names.append(getattr(node, "arg", None) or getattr(node, "id", None) or node)
    return names


def _annotated(annotation, depth=0):
    """Returns the path of the class that an annotation promises, or None."""
    kind, inner = type(annotation).__name__, None
    if kind == "Subscript":
        inner = annotation.value
        if (_dotted(inner) or "").rpartition(".")[2] in _WRAPPERS:
            inner = annotation.slice
            inner = inner.value if type(inner).__name__ == "Index" else inner
    elif kind == "BinOp":  # A | None
        inner = annotation.left
    elif _literal_type(annotation) == "str":
        inner = _quoted(_value(annotation)[0])
    if inner is not None:
        return _annotated(inner, depth + 1) if depth < _DEEPEST else None
    path = _dotted(annotation)
    return path if path and path.rpartition(".")[2] not in _VAGUE else None


def _quoted(text):
    """Returns the expression of an annotation in quotes, or None."""
    try:
        return _parse(text.strip()).body[0].value if len(text) < _LONGEST_QUOTED else None
    except Exception:
        return None


def _argument_values(arguments):
    """Returns argument name -> [value, node type], as annotations and defaults promise it."""
    nodes = getattr(arguments, "posonlyargs", []) + arguments.args
    defaults = list(zip(nodes[::-1], arguments.defaults[::-1]))
    defaults += zip(getattr(arguments, "kwonlyargs", []), getattr(arguments, "kw_defaults", []))
    values = dict.fromkeys(_argument_names(arguments), _UNKNOWN)
    for node, default in defaults:
        value = _value(default)
        if value[1] not in ("Name", "Attribute"):  # such as None, which promises nothing
            values[getattr(node, "arg", getattr(node, "id", None))] = value
    for node in nodes + getattr(arguments, "kwonlyargs", []):
        if getattr(node, "annotation", None) is not None:
            values[node.arg] = [_annotated(node.annotation), "Call"]
    for kind, one in (("Tuple", arguments.vararg), ("Dict", arguments.kwarg)):
        if one is not None:
            values[getattr(one, "arg", one)] = [_LITERALS[kind], kind]
    values.pop(None, None)  # Python 2: a tuple of arguments
    return values


class ParsedFunction(object):
    """A function or method of the source."""

    def __init__(self, name, arguments, decorators):
        self.name = name
        self.arguments = arguments
        self.decorators = decorators
        self.variables = {}
        self.argument_values = {}


class ParsedClass(object):
    """A class of the source; each of its bases is a ParsedClass or the path of a class."""

    def __init__(self, name, bases=()):
        self.name = name
        self.functions = []
        self.classes = []
        self.variables = {}
        self.self_variables = {}
        self.cls_variables = {}
        self.bases = list(bases)

    @property
    def parent_members(self):
        """The names inherited from the bases.

        They are gathered when asked for: most classes of a source never are, and a base may be in
        a file that has to be read first.
        """
        names = []
        for base in self._bases_of_lineage():
            if isinstance(base, ParsedClass):
                names += base.own_members()
            else:
                names += CorvaneParser().parse_module(base)
        return names

    def _bases_of_lineage(self):
        """All bases, directly or not, each once and without recursion: chains may be long."""
        found, seen, pending = [], set([self]), self.bases[::-1]
        while pending:
            base = pending.pop()
            if base not in seen:
                seen.add(base)
                found.append(base)
                pending += getattr(base, "bases", [])[::-1]
        return found

    def own_members(self, of_instance=True):
        names = _note_kind("function", [function.name for function in self.functions])
        names += _note_kind("class", [nested.name for nested in self.classes])
        names += _note_kind("variable", list(self.variables) + list(self.cls_variables))
        instance = _note_kind("variable", list(self.self_variables)) if of_instance else []
        return names + instance

    def members(self, of_instance=True):
        return self.own_members(of_instance) + self.parent_members

    def find_variable(self, name):
        """Returns the variable of the class, or of a base in the same source, or None."""
        for parsed in [self] + self._bases_of_lineage():
            for kind in ("self_variables", "variables", "cls_variables"):
                if name in getattr(parsed, kind, ()):
                    return getattr(parsed, kind)[name]
        return None


class CorvaneParser(_ast.NodeVisitor):
    """Collects the names of a source and finds the candidates for completion in it."""

    VERSION = "1.41"
    KEYWORDS = KEYWORDS
    BUILTINS = BUILTINS
    OTHER_BUILTINS = _OTHER_BUILTINS

    initialized = False
    _statement_names = globals()  # among which statements run
    _files = {}  # path -> (modification time, size, parser of the file)
    _exports = {}  # path of a module that is not loaded -> its __all__ or None
    _kinds = {}  # name -> what it is, of what the call found and more
    _lookups = {}  # path -> names, during one call of parse_module from outside
    _deadline = float("inf")

    def __init__(self):
        if not CorvaneParser.initialized:
            CorvaneParser.initialize()
        self.package = ""  # of the file that is parsed, for its relative imports
        self.clear()

    def clear(self):
        self.results = []
        self.classes = []
        self.functions = []
        self.imports = []
        self.importfroms = []
        self.variables = {}
        self.modules = {}
        self.corvane_lctr = []
        self.class_index = -1
        self.function_index = -1
        self._classes_by_name = {}
        self._imported_paths = []
        self._paths = {}  # bound name -> all that it is imported as, the last one last
        self._local_variables = {}
        self._exported = None  # the list of names in __all__
        self._whole_modules = []  # those of "from module import *"
        self._lines_that_matter = (0, float("inf"))

    # Entry points

    @staticmethod
    @_never_raises(lambda: None)
    def initialize():
        """Imports Maya's modules, once in the life of the interpreter."""
        if CorvaneParser.initialized:
            return
        CorvaneParser.initialized = True
        for module in _HOST_MODULES:
            _never_raises(list)(__import__)(module)  # some versions lack some of them

    @_never_raises(list)
    @_in_time
    def parse_source(self, source, obj=None, keywords=False, builtins=False):
        """Returns the sorted candidates: names in scope, or the members of obj."""
        self._visit_source(_text(source))
        self.process_parsed_data(obj)
        if not obj:
            self.results += self.KEYWORDS if keywords else []
            self.results += self.BUILTINS if builtins else []
        return self.sorted_results()

    @staticmethod
    @_never_raises(list)
    def syntax_check(source):
        """Returns [message, line number as text], or an empty list for valid code."""
        answer = _syntax_answer(source)
        return [] if answer == list(_VALID) else answer

    @staticmethod
    @_never_raises(list)
    def syntax_answer(source):
        """The same, but ["", "0"] for valid code, and empty where the parser cannot tell."""
        return _syntax_answer(source)

    @staticmethod
    @_never_raises(int)
    def start_syntax_check(source, path):
        """Checks the source in a thread, which writes into a file that exists; returns 1.

        For long sources: the caller can go on at once, and look at the file without the
        interpreter.
        """
        if _os.name == "nt" and isinstance(path, bytes):  # elsewhere names are bytes to Python 2
            path = path.decode("utf-8")

        def check():
            _time.sleep(0.01)  # until the caller, who has more to do, has gone on
            try:
                _write_syntax_answer(source, path)
            except Exception:  # a full disk: nobody shall wait for the rest
                _never_raises(lambda: None)(_os.remove)(path)

        _start_thread(check, len(source))
        return 1

    @staticmethod
    @_never_raises(int)
    def exec_statement(source):
        """Runs the statement among the names of this script; returns 1, or 0 when it raised."""
        with _warnings.catch_warnings():
            _warnings.simplefilter("ignore")
            code = compile(source, "<string>", "exec", 0, True)
        exec(code, CorvaneParser._statement_names)
        return 1

    @_never_raises(list)
    def parse_module(self, module):
        """Returns the names of a module, or of the object that a path inside a module leads to."""
        lookups = CorvaneParser._lookups
        outermost = not lookups
        if module in lookups:
            return lookups[module]
        lookups[module] = []  # what modules that import each other get to see
        try:
            lookups[module] = self._look_up(module)
            return lookups[module]
        finally:
            if outermost:
                CorvaneParser._lookups = {}

    @_never_raises(list)
    @_in_time
    def module_names(self, package=""):
        """Returns the sorted names of the modules below a package, or of those at the top."""
        self.results = self._modules_below(package)
        return self.sorted_results()

    @_never_raises(list)
    @_in_time
    def importable_names(self, module):
        """Returns the sorted names that can be imported from a module or package."""
        self.results = list(self.parse_module(module)) + self._modules_below(module)
        return self.sorted_results()

    @_never_raises(list)
    @_in_time
    def exported_names(self, module):
        """Returns the sorted names that `from module import *` binds."""
        self.results = self._exported_names(module)
        return self.sorted_results()

    @_never_raises(list)
    def with_kinds(self, question, *arguments):
        """Returns what the method of that name does, with "kind " before each: "function join"."""
        names = getattr(self, question)(*arguments)
        return [CorvaneParser._kinds.get(name, "name") + " " + name for name in names]

    # Parsing

    def _visit_source(self, source):
        """Visits as much of the source as can be parsed."""
        for simplified in (_whole, _reduced, _well_formed, _imports):
            self.clear()
            try:
                text = simplified(source)
                self._lines_that_matter = _lines_that_matter(text)
                self.visit(_parse(text))
                return
            except Exception:
                continue

    def visit_Module(self, node):
        self._visit_statements(node.body)
        # Last, since a module's variable may be bound below the function that has one of its own.
        self.variables.update(self._local_variables)

    def _visit_statements(self, statements):
        # Not by recursion: a long chain of elif is deeply nested for the parser.
        pending = statements[::-1]
        while pending:
            node = pending.pop()
            self.visit(node)
            pending += _nested_statements(node)[::-1]

    def generic_visit(self, node):
        """Looks for the locator, and for variables bound inside expressions."""
        first, last = self._lines_that_matter
        is_there = getattr(node, "lineno", 0) <= last and getattr(node, "end_lineno", last) >= first
        pending = [node] if is_there else []
        while pending:
            node = pending.pop()
            pending += _expressions(node)
            kind = type(node).__name__
            if kind == "NamedExpr":
                self._bind_target(node.target, _value(node.value))
            elif _LOCATOR in (getattr(node, "id", ""), getattr(node, "attr", "")):
                self._locate()

    def visit_Import(self, node):
        for alias in node.names:
            if self._is_outside():
                bound = alias.asname or alias.name.partition(".")[0]
                self.imports.append(bound)
                self._bind_module(bound, alias.name if alias.asname else bound)
                self._imported_paths.append(alias.name)

    def visit_ImportFrom(self, node):
        module = self._absolute(node.module or "", node.level or 0)
        for alias in node.names:
            if alias.name == "*" and self._is_outside():
                self._whole_modules.append(module)
            elif self._is_outside():
                bound = alias.asname or alias.name
                self.importfroms.append((module, bound))
                self._bind_module(bound, module.rstrip(".") + "." + alias.name)

    def _bind_module(self, name, path):
        self.modules[name] = path
        paths = self._paths.setdefault(name, [])
        if path in paths:
            paths.remove(path)
        paths.append(path)

    def _absolute(self, module, level):
        if not level:
            return module
        parts = self.package.split(".")
        if not self.package or level > len(parts):
            return "." * level + module  # nothing tells where the source of an editor belongs
        return ".".join(parts[:len(parts) - level + 1] + [module] * bool(module))

    def visit_ClassDef(self, node):
        if self.function_index >= 0:
            return
        if self.class_index >= 0:
            self.classes[self.class_index].classes.append(ParsedClass(node.name))
            return
        names = [_dotted(getattr(base, "value", None) if type(base).__name__ == "Subscript"
                         else base) for base in node.bases]
        parsed = ParsedClass(node.name, filter(None, map(self._base, filter(None, names))))
        self.classes.append(parsed)
        self._classes_by_name[node.name] = parsed
        self.class_index = len(self.classes) - 1
        if _LOCATOR in names:
            self._locate_here()
            self.results.append("object")
        self._visit_statements(node.body)
        self.class_index = -1

    def _base(self, dotted):
        """Returns the ParsedClass or the path of a base class, or None."""
        value, kind, rest = self._follow(dotted)
        if kind not in ("Name", "Attribute") or value is None:
            return None
        dotted = value + rest
        return self._classes_by_name.get(dotted) or self._module_path(dotted)

    def visit_FunctionDef(self, node):
        if self.function_index >= 0:
            return
        in_class = self.class_index >= 0
        functions = self.classes[self.class_index].functions if in_class else self.functions
        arguments = _argument_names(node.args)
        decorators = [_dotted(getattr(one, "func", one)) for one in node.decorator_list]
        functions.append(ParsedFunction(
            node.name, [name for name in arguments if name != _LOCATOR], decorators))
        functions[-1].argument_values = _argument_values(node.args)
        self.function_index = len(functions) - 1
        if _LOCATOR in arguments:
            self._locate_argument()
        self._visit_statements(node.body)
        self.function_index = -1

    visit_AsyncFunctionDef = visit_FunctionDef

    def visit_Assign(self, node):
        self.generic_visit(node)
        value = _value(node.value)
        for target in node.targets:
            self._bind_target(target, value, node.value)
            if getattr(target, "id", "") == "__all__":
                # Of names, sums and the like nothing tells what they stand for.
                listed = getattr(node.value, "elts", [None])
                is_text = all(_literal_type(one) == "str" for one in listed)
                self._exported = [_value(one)[0] for one in listed] if is_text else None

    def visit_AugAssign(self, node):
        self.generic_visit(node)
        if getattr(node.target, "id", "") == "__all__":
            self._exported = None  # nothing tells what is added

    def visit_AnnAssign(self, node):
        self.generic_visit(node)
        # It promises an instance of the class, of which the value may tell nothing: None.
        promised = _annotated(node.annotation)
        self._bind_target(node.target, [promised, _PROMISE] if promised else _value(node.value))

    def visit_For(self, node):
        self.generic_visit(node)
        target, looped = node.target, node.iter
        if _path(looped) == "enumerate" and looped.args and len(getattr(target, "elts", ())) == 2:
            self._bind_unknown(target.elts[0])
            target, looped = target.elts[1], looped.args[0]
        if isinstance(target, _ast.Name):
            self._bind_target(target, [_value(looped), "Item"])
        else:
            self._bind_unknown(target)

    visit_AsyncFor = visit_For

    def visit_With(self, node):
        self.generic_visit(node)
        for item in getattr(node, "items", [node]):
            if isinstance(item.context_expr, _ast.Call) and item.optional_vars is not None:
                self._bind_target(item.optional_vars, _value(item.context_expr))
            else:
                self._bind_unknown(item.optional_vars)

    visit_AsyncWith = visit_With

    def visit_ExceptHandler(self, node):
        self.generic_visit(node)
        caught = [_dotted(node.type), "Call"]
        if isinstance(node.name, str) and node.name != _LOCATOR:
            self._scope()[node.name] = caught
        elif isinstance(node.name, _ast.AST):  # Python 2
            self._bind_target(node.name, caught)

    def visit_match_case(self, node):
        self.generic_visit(node)
        for part in _ast.walk(node.pattern):
            name = getattr(part, "name", None) or getattr(part, "rest", None)
            if name and name != _LOCATOR:
                self._scope()[name] = list(_UNKNOWN)

    def visit_TypeAlias(self, node):
        self.generic_visit(node)
        self._bind_unknown(node.name)

    # Where the visitor is

    def _is_outside(self):
        return self.class_index < 0 and self.function_index < 0

    def _class_and_function(self, class_index, function_index):
        """Returns the ParsedClass and the ParsedFunction at a position, or None for either."""
        parsed = self.classes[class_index] if class_index >= 0 else None
        functions = parsed.functions if parsed else self.functions
        return parsed, functions[function_index] if function_index >= 0 else None

    def _scope(self):
        """The variables that an assignment to a plain name goes to."""
        parsed, function = self._class_and_function(self.class_index, self.function_index)
        return (function or parsed or self).variables

    def _bind_unknown(self, target):
        for node in _ast.walk(target) if target is not None else ():
            if isinstance(node, _ast.Name) and isinstance(node.ctx, _ast.Store):
                if node.id != _LOCATOR:
                    self._scope()[node.id] = list(_UNKNOWN)

    def _bind_target(self, target, value, node=None):
        """Records a variable; of `a, b = c, d` each with its own value."""
        if isinstance(target, (_ast.Tuple, _ast.List)):
            nodes = getattr(node, "elts", [])
            starred = any(type(part).__name__ == "Starred" for part in target.elts + nodes)
            if starred or len(nodes) != len(target.elts):
                nodes = [None] * len(target.elts)
            for part, part_node in zip(target.elts, nodes):
                self._bind_target(part, _value(part_node), part_node)
        elif isinstance(target, _ast.Name) and target.id != _LOCATOR:
            _bind(self._scope(), target.id, value)
        elif isinstance(target, _ast.Attribute):
            self._bind_attribute(target, value)
        elif type(target).__name__ == "Starred":
            self._bind_unknown(target)

    def _bind_attribute(self, target, value):
        in_method = self.class_index >= 0 and self.function_index >= 0
        owner = getattr(target.value, "id", None)
        if in_method and owner in ("self", "cls") and target.attr != _LOCATOR:
            parsed, function = self._class_and_function(self.class_index, self.function_index)
            promised = function.argument_values.get(value[0]) if value[1] == "Name" else None
            value = promised if promised and promised[1] else value
            _bind(getattr(parsed, owner + "_variables"), target.attr, value)

    def _locate_here(self):
        self.corvane_lctr = [self.class_index, self.function_index]

    def _locate(self):
        self._locate_here()
        parsed, function = self._class_and_function(self.class_index, self.function_index)
        if function:
            self._local_variables.update(function.argument_values)
        elif parsed:
            self._local_variables.update((one.name, _UNKNOWN) for one in parsed.functions)
        if function or parsed:
            self._local_variables.update(self._scope())

    def _locate_argument(self):
        self._locate_here()
        if self.class_index >= 0:
            parsed = self.classes[self.class_index]
            self.results += parsed.parent_members
            self.results += [function.name for function in parsed.functions]
            self.results += ["self", "cls", "__init__"]

    # Candidates

    def process_parsed_data(self, obj=None):
        """Adds the names in scope to the results, or the members of obj."""
        if not obj:
            self._add_names_in_scope()
            return
        self.results += self._members(obj.strip())
        if "__call__" in self.results:
            del self.results[:]  # what is called has a result with members, but none of its own

    def _add_names_in_scope(self):
        self.results += _note_kind("class", [one.name for one in self.classes])
        self.results += _note_kind("function", [one.name for one in self.functions])
        self.results += _note_kind("module", self.imports)
        self.results += _note_kind("variable", list(self.variables))
        self.results += [name for _, name in self.importfroms]
        if self.corvane_lctr:
            function = self._class_and_function(*self.corvane_lctr)[1]
            self.results += function.arguments if function else []

    def sorted_results(self):
        """The results, each once: case does not count, names that start with "_" come last."""
        unique = dict.fromkeys(self.results)
        for placeholder in _PLACEHOLDERS:
            unique.pop(placeholder, None)
        names = sorted(unique)  # those that differ in case only have an order, too
        names.sort(key=_operator.methodcaller("lower"))
        private = [name for name in names if name[0] == "_"]
        start = names.index(private[0]) if private else 0
        return names[:start] + names[start + len(private):] + private

    def _members(self, dotted, depth=0):
        """Returns the names that can follow "dotted."."""
        first, _, rest = dotted.partition(".")
        if dotted == "super":
            return self._inherited_at_locator()
        if depth > _DEEPEST or dotted.count(".") >= _LONGEST_PATH:
            return []
        holder = self._class_of_argument(first)
        if holder is not None:
            rest = rest if rest != "__class__" else ""
            return (self._class_variable_members(holder, rest, depth) if rest
                    else holder.members(of_instance=first == "self"))
        if first in self.variables:
            found = self._followed_members(dotted, depth)
            # Where an import may fail, the name is often bound to None instead.
            if found or first not in self.modules:
                return found
        if any(function.name == first for function in self.functions):
            return []
        return self._named_members(dotted, depth)

    def _class_of_argument(self, name):
        """Returns the class that `self` or `cls` is of at the locator, or None."""
        if name not in ("self", "cls") or not self.corvane_lctr:
            return None
        parsed, function = self._class_and_function(*self.corvane_lctr)
        return parsed if function and name in function.arguments else None

    def _inherited_at_locator(self):
        parsed = self._class_and_function(*self.corvane_lctr)[0] if self.corvane_lctr else None
        return parsed.parent_members if parsed else []

    def _follow(self, dotted):
        """Follows name-to-name assignments; returns value, node type and ".rest" of the path."""
        first, dot, rest = dotted.partition(".")
        value, kind, seen = first, "Name", set()
        while kind == "Name" and value in self.variables and value not in seen:
            seen.add(value)
            value, kind = self.variables[value]
        return value, kind, dot + rest

    def _followed_members(self, dotted, depth):
        value, kind, rest = self._follow(dotted)
        if kind == "Name" and value in self.variables:
            return []  # a = b; b = a
        return self._value_members(value, kind, rest, depth)

    def _class_variable_members(self, parsed, path, depth):
        """The members of "variable" or "variable.rest" of a class."""
        name, dot, rest = path.partition(".")
        value, kind = parsed.find_variable(name) or _UNKNOWN
        return self._value_members(value, kind, dot + rest, depth)

    def _value_members(self, value, kind, rest, depth):
        """The members of a variable's value, or of what ".rest" leads to from there."""
        if value is None:
            # What a method of text is called of is text, mostly.
            return _basic_members("", rest) if rest and not rest.startswith(".[]") else []
        if kind in _LITERALS or kind in ("Str", "Num", "BinOp"):
            return _basic_members(value, rest)
        if kind == "Item":  # the variable of a loop over another value
            found = self._value_members(value[0], value[1], ".[]" + rest, depth)
            return found or self._value_members(None, None, rest, depth)
        if kind in _CHOICES:
            return self._chosen_members(value, rest, depth)
        value = self._without_typing(value)
        function = None if self._is_own(value) else value
        function = self._module_path(value) or function
        if kind == "Call" and function in _FUNCTION_RESULTS:
            return _basic_members(_FUNCTION_RESULTS[function], rest)
        return self._members(value + rest, depth + 1) or self._unmapped_members(value + rest)

    def _without_typing(self, path):
        """Returns "dict" for "Dict" and "typing.Dict", unless the source means others."""
        generic = path.rpartition(".")[2]
        full = self._module_path(path) or _TYPING
        is_own = path in self._classes_by_name or not full.startswith(_TYPING)
        return generic.lower() if generic in _GENERICS and not is_own else path

    def _chosen_members(self, node, rest, depth):
        """The members of the first value of "a or []" or "a if b else c" that has any."""
        choices = getattr(node, "values", None) or [node.body, node.orelse]
        # Each may lead to several again: few of them, and not deep, or that would be many in all.
        for choice in choices[:_MOST_CHOICES] if depth < _DEEPEST else ():
            value, kind = _value(choice)
            deeper = depth + _DEEPEST // 4
            found = self._value_members(value, kind, rest, deeper) if value != "None" else []
            if found:
                return found
        return []

    def _unmapped_members(self, dotted):
        """Members of a module that the source uses, but that was imported elsewhere."""
        return [] if self._is_own(dotted.partition(".")[0]) else self.parse_module(dotted)

    def _is_own(self, name):
        """Whether the source binds the name."""
        return (name in self.variables or name in self._classes_by_name or name in self.modules or
                any(function.name == name for function in self.functions))

    def _named_members(self, dotted, depth):
        first, _, rest = dotted.partition(".")
        parsed = self._classes_by_name.get(first)
        if parsed and parsed.find_variable(rest.partition(".")[0]):
            return self._class_variable_members(parsed, rest, depth)
        if first in self.modules:
            return self._imported_members(first, dotted[len(first):])
        if parsed:
            return [] if rest else parsed.members()
        if first in _BASIC and rest:
            return _basic_members(_BASIC[first], "." + rest)
        path = self._module_path(dotted)
        return self.parse_module(path) if path else []

    def _imported_members(self, name, rest):
        """Of the last import of the name that leads to something: others are for other hosts."""
        for module in self._paths[name][:-_MOST_IMPORTS - 1:-1]:
            path = module + rest
            if path.startswith(_COMMANDS):
                command, dot, steps = path[len(_COMMANDS):].partition(".")
                return _basic_members(_COMMAND_RESULTS.get(command), dot + steps)
            found = self.parse_module(path) + self._imported_below(path)
            if found:
                return found
        return []

    def _module_path(self, dotted):
        """Returns the full path of a name that is imported or a type of the interpreter's."""
        first, dot, rest = dotted.partition(".")
        if first in self.modules:
            return self.modules[first] + dot + rest
        if dotted == "object":
            return dotted
        is_type = type(getattr(_builtins, first, None)) is type
        return _builtins.__name__ + "." + dotted if is_type else None

    def _imported_below(self, path):
        """The next parts of dotted imports: `import a.b` makes b a member of a."""
        start = path + "."
        return [imported[len(start):].partition(".")[0] for imported in self._imported_paths
                if imported.startswith(start)]

    # Modules

    def _look_up(self, module):
        parts = module.split(".")
        if module == "object":
            return dir(object)
        if len(parts) > _LONGEST_PATH or not all(map(_IDENTIFIER.match, parts)):
            return []
        if parts[0] in _sys.builtin_module_names and parts[0] not in _sys.modules:
            __import__(parts[0])
        if parts[:2] == _HOST_PACKAGE and ".".join(parts[:3]) not in _sys.modules:
            _import_prefixes(parts[:3])
        try:
            return self._loaded_names(parts)
        except LookupError:
            return self._located_names(parts)

    def _loaded_names(self, parts):
        """Names of what is in memory; LookupError when the path leads to nothing there."""
        # Maya's modules are no code of the user's, and may make their names up on demand. What is
        # in them may well be.
        is_host = parts[0] == "maya"
        for length in range(len(parts), 0, -1):
            value = _sys.modules.get(".".join(parts[:length]))
            if value is None:
                continue
            try:
                for part in parts[length:]:
                    by_host = is_host and _is_module(value)
                    value = getattr(value, part) if by_host else _member(value, part)
            except AttributeError:
                break
            if parts != _COMMANDS.split(".")[:2]:  # so many, and what they are is known
                _note_kinds(value)
            return dir(value) if is_host and _is_module(value) else _names(value)
        raise LookupError(parts)

    def _modules_below(self, package):
        start = package + "." if package else ""
        names = [name[len(start):].partition(".")[0] for name in list(_sys.modules)
                 if type(name) is str and name.startswith(start)]
        folders = _package_folders(package.split(".")) if package else _search_path()
        names += [] if package else _sys.builtin_module_names
        return sum(map(_modules_in, folders), names)

    def _located_names(self, parts):
        """Names from the file of the longest prefix that is a module."""
        folders, files, length = _search_path(), [None], 0
        for length, part in enumerate(parts):
            loaded = _sys.modules.get(".".join(parts[:length + 1]))
            if loaded is not None:
                folders = _loaded_folders(loaded)
                continue
            found = _find(folders, part)
            if found is None:
                break
            files.append(found[0])
            folders = found[1]
            if files[-1] and not files[-1].endswith(".py"):
                return self._imported_names(parts, files)
        else:
            length = len(parts)
        return self._file_names(files[-1], parts, length) if files[-1] else []

    def _imported_names(self, parts, files):
        if not _may_import(files[-1], files[:-1]):
            return []
        _import_prefixes(parts)
        return self._loaded_names(parts)

    def _file_names(self, source, parts, length):
        is_package = _os.path.basename(source) == "__init__.py"
        package = ".".join(parts[:length if is_package else length - 1])
        parser = self._parsed_file(source, package)
        if length < len(parts):
            rest = ".".join(parts[length:])
            paths = [module + "." + rest for module in parser._whole_modules]
            found = [parser._members(rest)] + [self.parse_module(path) for path in paths]
            return next((names for names in found if names), [])
        del parser.results[:]
        parser.process_parsed_data()
        names = list(parser.results)
        for module in parser._whole_modules:
            names += self._exported_names(module)
        CorvaneParser._exports[".".join(parts)] = parser._exported
        return names

    def _exported_names(self, module):
        """Names that `from module import *` binds."""
        names, loaded = self.parse_module(module), _sys.modules.get(module)
        exported = (_module_dict(loaded).get("__all__") if _is_module(loaded) else
                    CorvaneParser._exports.get(module))
        if type(exported) in (list, tuple):
            return [name for name in exported if type(name) is str]
        return [name for name in names if not name.startswith("_")]

    @staticmethod
    def _parsed_file(path, package):
        """Returns the parser that has visited a file; a file that did not change is read once."""
        status = _os.stat(path)
        stamp = (status.st_mtime, status.st_size, package)
        files = CorvaneParser._files
        if path not in files or files[path][0] != stamp:
            if _time.time() > CorvaneParser._deadline:
                raise EnvironmentError(path)  # next time, when those before it are known
            if len(files) >= _MOST_FILES:
                files.clear()
            parser = CorvaneParser()
            parser.package = package
            source = _read_source(path)
            parser._visit_source(source if len(source) < _LONG_FILE else _outline(source))
            files[path] = (stamp, parser)
        return files[path][1]


def _leave_main():
    """Runs this script again among names of its own and puts back those of the user's.

    A script that the user executes may well have a function _find() of its own; were it to take
    the place of the one above, completion would end without a word.
    """
    main, own = globals(), {"__name__": "corvane_parser"}
    exec(_sys._getframe(1).f_code, own)
    own["CorvaneParser"]._statement_names = main
    before = main["_corvane_before"]
    # Only what this script has bound: other threads may be running among these names.
    for name, value in own.items():
        if not name.startswith("_"):
            main[name] = value
        elif name in before:
            main[name] = before[name]
        else:
            main.pop(name, None)


if __name__ == "__main__":
    _leave_main()
