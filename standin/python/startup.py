# SPDX-License-Identifier: MIT
"""Prepares the interpreter for the host: importing of the `maya` package, streams, hooks.

Runs in a namespace of its own; `sources` maps module names to (is a package, source text).
"""
import atexit
import gc
import sys
import types

PACKAGE_PATH = '<maya package>'


def folder_of(package):
    """What stands for the folder of a package, as no other package has it."""
    return '/'.join([PACKAGE_PATH] + package.split('.')[1:])


class Importer(object):
    """Imports the modules that are part of the program, and lists those of a package for pkgutil."""

    def __init__(self, package='maya'):
        self.package = package

    # Python 3

    # Also for names looked up relative to a package: they arrive with all their dots.
    def find_spec(self, name, path=None, target=None):
        if name not in sources:
            return None
        from importlib.machinery import ModuleSpec
        spec = ModuleSpec(name, self, origin=self._origin(name), is_package=self.is_package(name))
        if self.is_package(name):
            # A path no other finder knows; the path hook below does.
            spec.submodule_search_locations = [folder_of(name)]
        return spec

    # None: the import machinery makes the module.
    def create_module(self, spec):
        return None

    def exec_module(self, module):
        # eval() runs code in both versions, where exec is a statement in Python 2.
        eval(self.get_code(module.__name__), module.__dict__)

    # Python 2

    def find_module(self, name, path=None):
        return self if name in sources else None

    def load_module(self, name):
        if name not in sys.modules:
            # In the table before it runs, for modules that import each other.
            module = sys.modules[name] = types.ModuleType(name)
            module.__loader__ = self
            if self.is_package(name):
                module.__path__ = [folder_of(name)]
            eval(self.get_code(name), module.__dict__)
        return sys.modules[name]

    # both

    def is_package(self, name):
        return sources[name][0]

    def get_source(self, name):
        return sources[name][1]

    def get_code(self, name):
        # True: without the __future__ of this file.
        return compile(self.get_source(name), self._origin(name), 'exec', 0, True)

    def _origin(self, name):
        return folder_of(name) + ('/__init__.py' if self.is_package(name) else '.py')

    def __call__(self, path):
        """As a path hook."""
        for name in sources:
            if self.is_package(name) and folder_of(name) == path:
                return Importer(name)
        raise ImportError(path)

    def iter_modules(self, prefix=''):
        for name in sorted(sources):
            parent, _, child = name.rpartition('.')
            if parent == self.package:
                yield prefix + child, self.is_package(name)


def install_importer():
    importer = Importer()
    # In front, so that no folder of that name on the path hides the host's package.
    sys.meta_path.insert(0, importer)
    sys.path_hooks.insert(0, importer)


class ExitHandlers(object):
    """What scripts register with atexit, to be run when the host closes.

    Handlers written in C are left out: they end an extension module for good (those of Qt's
    bindings do), whereas this interpreter lives on until the process ends.
    """

    def __init__(self):
        self.handlers = []

    def install(self):
        # Put in place for good: the interpreter is prepared once and serves every session.
        atexit.register = self.register
        atexit.unregister = self.unregister

    def register(self, function, *args, **kwargs):
        if not isinstance(function, types.BuiltinFunctionType):
            self.handlers.append((function, args, kwargs))
        return function

    def unregister(self, function):
        self.handlers = [handler for handler in self.handlers if handler[0] != function]

    def run(self):
        while self.handlers:
            # The last one first, as atexit has it. A handler may register another one.
            function, args, kwargs = self.handlers.pop()
            try:
                function(*args, **kwargs)
            except BaseException:
                report_exception(*sys.exc_info())


def empty_main():
    """Drops the variables of scripts, keeping what every __main__ has."""
    variables = sys.modules['__main__'].__dict__
    # A list of its own: what a variable drops may change the variables.
    for name in [name for name in variables if not name.startswith('__')]:
        variables.pop(name, None)


def report_exception(*exception):
    import _standin
    _standin.reportException(*exception)


def begin(folders):
    import maya
    import maya.utils
    # What the session before this one has left.
    empty_main()
    # At the end: the standard library cannot be hidden by a script of the same name.
    sys.path.extend(folder for folder in folders if folder not in sys.path)
    sys.stdout = maya.Output('<stdout>')
    sys.stderr = maya.Output('<stderr>')
    sys.stdin = maya.Input()
    # Not only for threads and callbacks: bindings of Qt abort the program when an exception
    # escapes from a slot while the default hook is in place.
    sys.excepthook = report_exception
    # Calls queued in an earlier session, whose queue is gone.
    maya.utils._forgetCalls()


def end():
    # Threads that still run are not waited for: one that waits for the main thread never ends.
    exit_handlers.run()
    empty_main()
    # Cycles hold widgets too, and those have to go now.
    gc.collect()


install_importer()
exit_handlers = ExitHandlers()
exit_handlers.install()
