# SPDX-License-Identifier: MIT
"""The API's interface module: addresses of widgets for a binding of Qt to wrap."""
import _standin


class MQtUtil(object):
    """Elements of the interface by name; None where there is none."""

    @staticmethod
    def mainWindow():
        return _standin.interfaceAddress('mainWindow', '')

    @staticmethod
    def findControl(name):
        return _standin.interfaceAddress('control', name)

    @staticmethod
    def findLayout(name):
        return _standin.interfaceAddress('layout', name)

    @staticmethod
    def findWindow(name):
        return _standin.interfaceAddress('window', name)

    @staticmethod
    def findMenuItem(name):
        return _standin.interfaceAddress('menuItem', name)
