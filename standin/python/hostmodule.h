// SPDX-License-Identifier: MIT
#pragma once

namespace standin {

// Makes the module `_standin` importable, through which the Python files of the `maya` package
// reach the host. Once in the life of the process, whatever engine is current. False with an
// exception set when that fails.
bool addHostModule();

} // namespace standin
