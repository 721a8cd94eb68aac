// SPDX-License-Identifier: MIT
#pragma once

// The languages as editors number them; code views have other numbers. Any other number is plain
// text too.
enum EditorLanguage { TextLanguage = 1, PythonLanguage = 2, MelLanguage = 3 };
