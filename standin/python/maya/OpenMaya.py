# SPDX-License-Identifier: MIT
"""The part of the API's general module that needs no scene."""
import _standin


class MGlobal(object):
    """Messages to the user and commands."""

    kInteractive, kBatch, kLibraryApp, kBaseUIMode = range(4)

    # Functions of the host's, so that no line of this file shows in the trace of a failing script.
    displayInfo = staticmethod(_standin.displayInfo)
    displayWarning = staticmethod(_standin.displayWarning)
    displayError = staticmethod(_standin.displayError)
    executeCommand = staticmethod(_standin.executeCommand)
    executeCommandStringResult = staticmethod(_standin.executeCommandStringResult)
    executeCommandOnIdle = staticmethod(_standin.executeCommandOnIdle)
    sourceFile = staticmethod(_standin.sourceFile)

    @staticmethod
    def mayaState():
        return MGlobal.kBatch if _standin.isBatch() else MGlobal.kInteractive
