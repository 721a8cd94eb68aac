// SPDX-License-Identifier: MIT
#pragma once

// While on, the output callback drops every message of Maya: what runs is the editor's own doing.
// One switch for the process, off at first, for the GUI thread. It does not nest: off is off.
void setOutputSuppressed(bool suppressed);
bool isOutputSuppressed();

// Holds the output back while it lives, if `suppress` says so, also when what runs meanwhile
// throws. Deliberate: at its end output flows again even if it had been held back before.
class OutputSuppression
{
public:
    explicit OutputSuppression(bool suppress = true);
    ~OutputSuppression() { setOutputSuppressed(false); }
    OutputSuppression(const OutputSuppression &) = delete;
    OutputSuppression &operator=(const OutputSuppression &) = delete;
};
