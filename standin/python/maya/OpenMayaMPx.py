# SPDX-License-Identifier: MIT
"""The API's proxy module; the stand-in has no scene for it to work on."""
