// SPDX-License-Identifier: MIT
#include <maya/MStringArray.h>

STANDIN_API_OPEN

MStringArray::MStringArray(const char *source[], unsigned int count)
{
    for (unsigned int i = 0; i < count; ++i)
        append(MString(source[i]));
}

STANDIN_API_CLOSE
