// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/type.h"

#include <string>

namespace mel {

// Numbers carry no sign: minus is an operator, or part of a word of a command line.
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
// One numbering for all, so that the parser compares a token with a character or a name alike.
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

// What the text held; the parser looks back at the source by offset where it needs it as written.
struct Token
{
    TokenKind kind = TokenKind::End;
    int symbol = 0;
    // Of an Int, wrapped to 32 bits.
    int number = 0;
    // Of an Int or a Float.
    double real = 0;
    // Of words, variables and strings; symbols and numbers leave it empty.
    std::string text;
    // UTF-8 offsets into the text; adjacency (no blank between) is `end` equal to the next `begin`.
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
