// SPDX-License-Identifier: MIT
#pragma once

// While on, every message of Maya is dropped: what runs is the editor's own doing.
void setOutputSuppressed(bool suppressed);
bool isOutputSuppressed();
