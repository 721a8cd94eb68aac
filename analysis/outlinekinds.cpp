// SPDX-License-Identifier: MIT
#include "analysis/outlinekinds.h"

namespace {

// By number.
// clang-format off
const OutlineKindRow rows[outlineKindCount] = {
    // icon                            hides it                                    has a body
    {"",                               nullptr,                                    false},
    {":/icons/mel_global_proc.png",    &Preferences::melHideGlobalProcsInOutline,  true},
    {":/icons/mel_proc.png",           &Preferences::melHideProcsInOutline,        true},
    {":/icons/mel_global_var.png",     &Preferences::melHideGlobalVarInOutline,    false},
    {":/icons/python_import.png",      &Preferences::pythonHideImportInOutline,    false},
    {":/icons/python_import.png",      &Preferences::pythonHideImportInOutline,    false},
    {":/icons/python_import.png",      &Preferences::pythonHideImportInOutline,    false},
    {":/icons/python_main.png",        &Preferences::pythonHideMainInOutline,      true},
    {":/icons/python_method.png",        nullptr,                                  true},
    {":/icons/python_static_method.png", nullptr,                                  true},
    {":/icons/python_class_method.png",  nullptr,                                  true},
    {":/icons/python_class.png",         nullptr,                                  true},
    // Variables, and those of classes; no parser lists them yet.
    {":/icons/python_variable.png",       nullptr,                                 false},
    {":/icons/python_class_variable.png", nullptr,                                 false},
};
// clang-format on

} // namespace

int outlineKindNumber(int kind)
{
    return kind > 0 && kind < outlineKindCount ? kind : 0;
}

const OutlineKindRow &outlineKindRow(int kind)
{
    return rows[outlineKindNumber(kind)];
}

bool isHiddenKind(int kind)
{
    bool Preferences::*hides = outlineKindRow(kind).hidesIt;
    return hides && preferences().*hides;
}
