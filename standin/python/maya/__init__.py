# SPDX-License-Identifier: MIT
"""The host as scripts see it."""
import io

import _standin

# The number of the host's kind of message for output.
_DISPLAY = 1


class Output(object):
    """A text stream whose writes arrive in the host's output."""

    encoding = 'UTF-8'
    errors = 'backslashreplace'
    newlines = None
    closed = False
    mode = 'w'

    def __init__(self, name):
        self.name = name

    def write(self, text):
        # print() writes an empty end now and then; the host would show an empty message.
        if text == '':
            return 0
        # One message per write, as in the application: print() may arrive as two.
        _standin.message(_DISPLAY, text)
        return len(text)

    def writelines(self, lines):
        for line in lines:
            self.write(line)

    def flush(self):
        pass

    def close(self):
        pass

    def isatty(self):
        return False

    def readable(self):
        return False

    def writable(self):
        return True

    def seekable(self):
        return False

    # No descriptor: what writes past Python goes to the terminal.
    def fileno(self):
        raise io.UnsupportedOperation('fileno')


class Input(object):
    """A text stream that is always at its end: the host has no terminal to wait for."""

    encoding = 'UTF-8'
    errors = 'strict'
    closed = False
    name = '<stdin>'
    mode = 'r'

    def read(self, size=-1):
        return ''

    def readline(self, size=-1):
        return ''

    def readlines(self, hint=-1):
        return []

    def __iter__(self):
        return iter(())

    def close(self):
        pass

    def isatty(self):
        return False

    def readable(self):
        return True

    def writable(self):
        return False

    def seekable(self):
        return False

    def fileno(self):
        raise io.UnsupportedOperation('fileno')
