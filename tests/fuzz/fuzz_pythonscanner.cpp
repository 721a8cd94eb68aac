// SPDX-License-Identifier: MIT
#include "editor/pythonscanner.h"
#include "tests/fuzz/scannerfuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const ScannedLanguage python{
        4,
        -2,
        {EditorText::PythonStrings, EditorText::PythonDocStrings, EditorText::PythonComments}};
    checkScanner<PythonScanner>(fuzzText(data, size), python);
    return 0;
}
