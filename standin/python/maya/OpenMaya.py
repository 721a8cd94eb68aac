# SPDX-License-Identifier: MIT
"""The part of the API's general module that needs no scene."""
import _standin

_INFO, _WARNING, _ERROR = 2, 3, 4


class MGlobal(object):
    """Messages to the user and commands."""

    kInteractive, kBatch, kLibraryApp, kBaseUIMode = range(4)

    @staticmethod
    def displayInfo(text):
        _standin.message(_INFO, text)

    @staticmethod
    def displayWarning(text):
        _standin.message(_WARNING, text)

    @staticmethod
    def displayError(text):
        _standin.message(_ERROR, text)

    @staticmethod
    def mayaState():
        return MGlobal.kBatch if _standin.isBatch() else MGlobal.kInteractive

    @staticmethod
    def executeCommand(command, displayEnabled=False, undoEnabled=False):
        _standin.executeMel(command, displayEnabled)

    @staticmethod
    def executeCommandStringResult(command, displayEnabled=False, undoEnabled=False):
        value = _standin.executeMel(command, displayEnabled)
        return '' if value is None else str(value)

    @staticmethod
    def executeCommandOnIdle(command, displayEnabled=False):
        _standin.executeOnIdle(command, False)

    @staticmethod
    def sourceFile(fileName):
        _standin.sourceFile(fileName)
