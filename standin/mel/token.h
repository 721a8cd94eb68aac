// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/type.h"

#include <string>

namespace mel {

enum class TokenKind {
    End,
    Identifier,
    Variable, // text with its "$"
    Int,
    Float,
    String, // text decoded
    Symbol,
    UnterminatedString
};

// Symbols of one character are their own code; longer ones are numbered from 256.
namespace symbol {
enum : int {
    Increment = 256,
    Decrement,
    LessEqual,
    GreaterEqual,
    Equal,
    NotEqual,
    And,
    Or,
    AddAssign,
    SubtractAssign,
    MultiplyAssign,
    DivideAssign,
    RemainderAssign,
    CrossAssign,
    VectorOpen,
    VectorClose
};
} // namespace symbol

struct Token
{
    TokenKind kind = TokenKind::End;
    int symbol = 0;
    int number = 0;
    double real = 0;
    std::string text;
    size_t begin = 0; // byte offsets, `end` exclusive
    size_t end = 0;
    int line = 1;      // of the last character
    int column = 0;    // of the last character, from 1
    int startLine = 1; // of the first character

    bool is(int wanted) const { return kind == TokenKind::Symbol && symbol == wanted; }
    bool isWord(const char *word) const { return kind == TokenKind::Identifier && text == word; }
};

// Whether the word is reserved, boolean words included.
bool isKeyword(const std::string &word);
// The type a declaration may start with; Void when the word names none.
Type typeWord(const std::string &word);

} // namespace mel
