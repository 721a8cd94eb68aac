// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/token.h"

#include <string_view>
#include <vector>

namespace mel {

// Cuts MEL text into tokens; never fails. What is no token becomes a Symbol that no grammar rule
// accepts, so that the parser reports it in its place.
class Lexer
{
public:
    explicit Lexer(std::string_view text) : m_text(text) {}

    // All tokens, the last one End.
    std::vector<Token> tokens();

private:
    // The byte so many further on, NUL beyond the end. NUL may also stand in the text.
    char at(size_t ahead = 0) const;
    // The only way forward, so that lines and columns cannot be forgotten. Stops at the end.
    void advance(size_t bytes);
    void skipBlanks();
    void skipComment();
    Token next();
    void readNumber(Token &token);
    void readHexadecimal(Token &token);
    void readString(Token &token);
    void readSymbol(Token &token);

    // Not owned: the Source holds it for longer than the lexer lives.
    std::string_view m_text;
    size_t m_at = 0;
    int m_line = 1;
    int m_column = 0;   // of the character before m_at, in characters
    int m_lastLine = 1; // place of the character read last
    int m_lastColumn = 0;
};

} // namespace mel
