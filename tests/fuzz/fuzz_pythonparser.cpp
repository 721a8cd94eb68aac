// SPDX-License-Identifier: MIT
#include "analysis/pythonparser.h"
#include "tests/fuzz/parserfuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    checkParser<PythonParser>(fuzzText(data, size));
    return 0;
}
