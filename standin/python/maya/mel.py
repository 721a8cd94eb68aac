# SPDX-License-Identifier: MIT
"""Runs MEL from Python."""
from _standin import eval
