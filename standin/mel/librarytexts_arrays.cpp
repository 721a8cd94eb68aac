// SPDX-License-Identifier: MIT
#include "standin/mel/librarytexts.h"

#include <iterator>

namespace mel {

// "ArrayFind" becomes stringArrayFind, intArrayFind and floatArrayFind. Arrays arrive by reference,
// so those that work at an index change the caller's; the others leave it alone.
const LibraryText arrayLibraryTexts[] = {
    {"ArrayContains", R"mel(
global proc int TYPEArrayContains(TYPE $item, TYPE $list[]) {
    for ($each in $list) {
        if ($each == $item)
            return 1;
    }
    return 0;
})mel"},
    {"ArrayCount", R"mel(
global proc int TYPEArrayCount(TYPE $item, TYPE $list[]) {
    int $count = 0;
    for ($each in $list) {
        if ($each == $item)
            $count++;
    }
    return $count;
})mel"},
    {"ArrayFind", R"mel(
global proc int TYPEArrayFind(TYPE $item, int $from, TYPE $list[]) {
    int $i = $from < 0 ? 0 : $from;
    for (; $i < size($list); $i++) {
        if ($list[$i] == $item)
            return $i;
    }
    return -1;
})mel"},
    {"ArrayInsertAtIndex", R"mel(
global proc int TYPEArrayInsertAtIndex(int $index, TYPE $list[], TYPE $item) {
    if ($index < 0)
        return 0;
    int $i = size($list);
    if ($index > $i)
        $index = $i;
    for (; $i > $index; $i--)
        $list[$i] = $list[$i - 1];
    $list[$index] = $item;
    return 1;
})mel"},
    {"ArrayRemove", R"mel(
global proc TYPE[] TYPEArrayRemove(TYPE $items[], TYPE $list[]) {
    TYPE $kept[];
    for ($each in $list) {
        if (!TYPEArrayContains($each, $items))
            $kept[size($kept)] = $each;
    }
    return $kept;
})mel"},
    {"ArrayRemoveAtIndex", R"mel(
global proc int TYPEArrayRemoveAtIndex(int $index, TYPE $list[]) {
    if ($index < 0 || $index >= size($list))
        return 0;
    TYPE $kept[];
    int $i;
    for ($i = 0; $i < size($list); $i++) {
        if ($i != $index)
            $kept[size($kept)] = $list[$i];
    }
    $list = $kept;
    return 1;
})mel"},
    {"ArrayToString", R"mel(
global proc string TYPEArrayToString(TYPE $list[], string $separator) {
    string $text = "";
    int $i;
    for ($i = 0; $i < size($list); $i++) {
        if ($i > 0)
            $text += $separator;
        $text += $list[$i];
    }
    return $text;
})mel"},
    {"ArrayCatenate", R"mel(
global proc TYPE[] TYPEArrayCatenate(TYPE $first[], TYPE $second[]) {
    TYPE $both[] = $first;
    for ($each in $second)
        $both[size($both)] = $each;
    return $both;
})mel"},
};
const size_t arrayLibraryTextCount = std::size(arrayLibraryTexts);

} // namespace mel
