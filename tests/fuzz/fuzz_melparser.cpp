// SPDX-License-Identifier: MIT
#include "analysis/melparser.h"
#include "tests/fuzz/parserfuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    checkParser<MelParser>(fuzzText(data, size));
    return 0;
}
