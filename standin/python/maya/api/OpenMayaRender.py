# SPDX-License-Identifier: MIT
"""The rendering module; the stand-in has no scene for it to work on."""
