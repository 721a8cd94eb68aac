# SPDX-License-Identifier: MIT
"""The API's rendering module; the stand-in has no scene for it to work on."""
