// SPDX-License-Identifier: MIT
#include "standin/mel/librarytexts.h"

#include <iterator>

namespace mel {

// In MEL rather than C++, as whatIs has to call them procedures and calls need their exact number
// of arguments. Each text starts with a line break, so that its first line is line 2.
const LibraryText libraryTexts[] = {
    {"startsWith", R"mel(
global proc int startsWith(string $text, string $prefix) {
    return substring($text, 1, size($prefix)) == $prefix;
})mel"},
    {"endsWith", R"mel(
global proc int endsWith(string $text, string $suffix) {
    return endString($text, size($suffix)) == $suffix;
})mel"},
    {"startString", R"mel(
global proc string startString(string $text, int $count) {
    return substring($text, 1, $count);
})mel"},
    {"endString", R"mel(
global proc string endString(string $text, int $count) {
    int $length = size($text);
    if ($count > $length)
        $count = $length;
    return substring($text, $length - $count + 1, $length);
})mel"},
    {"capitalizeString", R"mel(
global proc string capitalizeString(string $text) {
    return toupper(substring($text, 1, 1)) + substring($text, 2, size($text));
})mel"},
    {"strip", R"mel(
global proc string strip(string $text) {
    return substitute("[ \t\r\n]+$", substitute("^[ \t\r\n]+", $text, ""), "");
})mel"},
    {"substituteAllString", R"mel(
global proc string substituteAllString(string $text, string $old, string $by) {
    // Reaching far into a long text takes time, so it is searched in short pieces.
    int $reach = 1000;
    int $length = size($old);
    if ($length == 0)
        return $text;
    int $rest = size($text);
    int $begin = 1;
    string $result = "";
    while ($rest > 0) {
        string $piece = substring($text, $begin, $begin + $reach + $length);
        int $last = $rest < $reach ? $rest : $reach;
        int $i = 1;
        while ($i <= $last) {
            int $found = substring($piece, $i, $i + $length - 1) == $old;
            $result += $found ? $by : substring($piece, $i, $i);
            $i += $found ? $length : 1;
        }
        $begin += $i - 1;
        $rest -= $i - 1;
    }
    return $result;
})mel"},
    {"stringToStringArray", R"mel(
global proc string[] stringToStringArray(string $text, string $separators) {
    string $tokens[];
    tokenize($text, $separators, $tokens);
    return $tokens;
})mel"},
    {"tokenizeList", R"mel(
global proc int tokenizeList(string $text, string $buffer[]) {
    return tokenize($text, ",", $buffer);
})mel"},
    {"basename", R"mel(
global proc string basename(string $path, string $suffix) {
    string $name = match("[^/]*$", substitute("/+$", $path, ""));
    int $length = size($name) - size($suffix);
    if ($suffix != "" && $length > 0 && endsWith($name, $suffix))
        return substring($name, 1, $length);
    return $name;
})mel"},
    {"dirname", R"mel(
global proc string dirname(string $path) {
    string $folder = substitute("/*[^/]*$", substitute("/+$", $path, ""), "");
    if ($folder == "" && startsWith($path, "/"))
        return "/";
    return $folder;
})mel"},
    {"fileExtension", R"mel(
global proc string fileExtension(string $path) {
    string $extension = match("\\.[^./]*$", $path);
    return substring($extension, 2, size($extension));
})mel"},
    {"appendStringArray", R"mel(
global proc appendStringArray(string $list[], string $added[], int $count) {
    int $i;
    int $end = $count < size($added) ? $count : size($added);
    for ($i = 0; $i < $end; $i++)
        $list[size($list)] = $added[$i];
})mel"},
    {"stringArrayRemoveExact", R"mel(
global proc string[] stringArrayRemoveExact(string $items[], string $list[]) {
    string $kept[] = $list;
    for ($item in $items)
        stringArrayRemoveAtIndex(stringArrayFind($item, 0, $kept), $kept);
    return $kept;
})mel"},
    {"stringArrayRemoveDuplicates", R"mel(
global proc string[] stringArrayRemoveDuplicates(string $list[]) {
    string $kept[];
    for ($each in $list) {
        if (!stringArrayContains($each, $kept))
            $kept[size($kept)] = $each;
    }
    return $kept;
})mel"},
    {"stringArrayAddPrefix", R"mel(
global proc string[] stringArrayAddPrefix(string $list[], string $prefix) {
    string $prefixed[];
    for ($each in $list)
        $prefixed[size($prefixed)] = $prefix + $each;
    return $prefixed;
})mel"},
    {"stringArrayRemovePrefix", R"mel(
global proc string[] stringArrayRemovePrefix(string $list[]) {
    string $bare[];
    for ($each in $list)
        $bare[size($bare)] = substitute("^.*:", $each, "");
    return $bare;
})mel"},
    {"equivalentTol", R"mel(
global proc int equivalentTol(float $a, float $b, float $tolerance) {
    return abs($a - $b) <= $tolerance;
})mel"},
    {"equivalent", R"mel(
global proc int equivalent(float $a, float $b) {
    return equivalentTol($a, $b, 1.0e-10);
})mel"},
};
const size_t libraryTextCount = std::size(libraryTexts);

} // namespace mel
