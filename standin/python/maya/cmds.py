# SPDX-License-Identifier: MIT
"""One function per MEL command: objects are positional arguments, flags keyword arguments."""
import sys
import types

import _standin


class _Commands(types.ModuleType):
    """Looks the commands up each time, since plug-ins bring and take theirs."""

    # A function of the host's, so that no line of this file shows in the trace of a misspelt name.
    __getattr__ = _standin.commandAttribute

    def __dir__(self):
        return sorted(set(self.__dict__) | set(_standin.commandNames()))


_plain = sys.modules[__name__]  # Python 2 empties the module that nobody refers to
_module = _Commands(__name__, __doc__)
for _name in ('__loader__', '__spec__', '__package__'):
    if hasattr(_plain, _name):
        setattr(_module, _name, getattr(_plain, _name))
_module._plain = _plain
sys.modules[__name__] = _module
