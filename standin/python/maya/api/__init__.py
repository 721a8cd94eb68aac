# SPDX-License-Identifier: MIT
"""The second form of the API."""
