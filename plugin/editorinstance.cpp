// SPDX-License-Identifier: MIT
#include "plugin/editorinstance.h"

EditorInstance &editorInstance()
{
    static EditorInstance instance;
    return instance;
}
