# SPDX-License-Identifier: MIT
"""The API's effects module; the stand-in has no scene for it to work on."""
