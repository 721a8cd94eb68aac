// SPDX-License-Identifier: MIT
#include "bridge/flagtext.h"
#include "tests/fuzz/fuzzinput.h"

namespace {

bool holdsSeparator(const QString &field)
{
    for (const char separator : {' ', '\t', '\r', '\n'}) {
        if (field.contains(QLatin1Char(separator)))
            return true;
    }
    return false;
}

void requireFields(const QStringList &fields, const QString &text)
{
    require(fields.size() % 3 == 0, "each flag has three fields");
    int position = int(text.indexOf(QLatin1String("Flags:")));
    require(fields.isEmpty() || position >= 0, "without a section there are no flags");
    for (int i = 0; i < fields.size(); ++i) {
        require(i % 3 == 0 || fields[i].isEmpty() || !fields[i - 1].isEmpty(),
                "fields are filled from the left");
        require(!holdsSeparator(fields[i]), "a field is one word");
        position = int(text.indexOf(fields[i], position));
        require(position >= 0, "fields stand in the text in their order");
        position += int(fields[i].size());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const TightText text(fuzzText(data, size));
    requireFields(flagFields(text.text()), text.text());
    return 0;
}
