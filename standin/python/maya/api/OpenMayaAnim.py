# SPDX-License-Identifier: MIT
"""The animation module; the stand-in has no scene for it to work on."""
