// SPDX-License-Identifier: MIT
#include "editor/melscanner.h"
#include "tests/fuzz/scannerfuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const ScannedLanguage mel{2, 2, {EditorText::MelStrings, EditorText::MelComments}};
    checkScanner<MelScanner>(fuzzText(data, size), mel);
    return 0;
}
