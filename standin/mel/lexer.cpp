// SPDX-License-Identifier: MIT
#include "standin/mel/lexer.h"

#include "standin/mel/number.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace mel {

namespace {

// ASCII only, whatever the locale says: other letters may stand in strings and comments alone.
bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// -1 for any other character. Setting bit 5 makes a letter small.
int hexDigit(char c)
{
    if (isDigit(c))
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

struct LongSymbol
{
    const char *text;
    int symbol;
};

// All of two characters, none the start of another, so the order does not matter. There are no
// shifts: << and >> always belong to a vector or matrix, and >> always closes one.
const LongSymbol longSymbols[] = {
    {"++", symbol::Increment},
    {"--", symbol::Decrement},
    {"<=", symbol::LessEqual},
    {">=", symbol::GreaterEqual},
    {"==", symbol::Equal},
    {"!=", symbol::NotEqual},
    {"&&", symbol::And},
    {"||", symbol::Or},
    {"+=", symbol::AddAssign},
    {"-=", symbol::SubtractAssign},
    {"*=", symbol::MultiplyAssign},
    {"/=", symbol::DivideAssign},
    {"%=", symbol::RemainderAssign},
    {"^=", symbol::CrossAssign},
    {"<<", symbol::VectorOpen},
    {">>", symbol::VectorClose},
};

// One escape; a line end after the backslash vanishes with it.
// Any other character stands for itself, so that "\q" is "q".
char escaped(char c)
{
    switch (c) {
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    default:
        return c;
    }
}

} // namespace

char Lexer::at(size_t ahead) const
{
    return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : '\0';
}

void Lexer::advance(size_t bytes)
{
    for (const size_t end = std::min(m_at + bytes, m_text.size()); m_at < end; ++m_at) {
        const char c = m_text[m_at];
        // Only the first byte of a UTF-8 character counts as a column.
        if ((static_cast<unsigned char>(c) & 0xC0) != 0x80)
            ++m_column;
        m_lastLine = m_line;
        m_lastColumn = m_column;
        if (c == '\n') {
            ++m_line;
            m_column = 0;
        }
    }
}

// A comment that is never closed runs to the end.
// Comments do not nest: the first */ ends one.
void Lexer::skipComment()
{
    const bool lineComment = at(1) == '/';
    const size_t end = m_text.find(lineComment ? "\n" : "*/", m_at + 2);
    const size_t length = lineComment ? 0 : 2;
    advance(end == std::string_view::npos ? m_text.size() - m_at : end + length - m_at);
}

void Lexer::skipBlanks()
{
    while (m_at < m_text.size()) {
        const char c = at();
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f')
            advance(1);
        else if (c == '/' && (at(1) == '/' || at(1) == '*'))
            skipComment();
        else
            return;
    }
}

void Lexer::readHexadecimal(Token &token)
{
    std::uint32_t value = 0;
    advance(2);
    for (; hexDigit(at()) >= 0; advance(1))
        value = value * 16 + static_cast<std::uint32_t>(hexDigit(at()));
    token.kind = TokenKind::Int;
    token.number = static_cast<int>(value);
}

// Leading zeros do not make a number octal; what is beyond 32 bits wraps around.
//   007 is 7,   0xFF is 255,   1. and .5 and 1e5 are floats
void Lexer::readNumber(Token &token)
{
    if (at() == '0' && (at(1) == 'x' || at(1) == 'X') && hexDigit(at(2)) >= 0) {
        readHexadecimal(token);
        return;
    }
    size_t length = 0;
    std::uint32_t whole = 0;
    for (; isDigit(at(length)); ++length)
        whole = whole * 10 + static_cast<std::uint32_t>(at(length) - '0');
    const size_t wholeLength = length;
    if (at(length) == '.') {
        for (++length; isDigit(at(length)); ++length) {
        }
    }
    // An exponent needs a digit, or the letter begins a word of its own: "1e" is 1 and e.
    const size_t sign = at(length + 1) == '+' || at(length + 1) == '-' ? 1 : 0;
    if ((at(length) == 'e' || at(length) == 'E') && isDigit(at(length + 1 + sign))) {
        for (length += 2 + sign; isDigit(at(length)); ++length) {
        }
    }
    token.kind = length == wholeLength ? TokenKind::Int : TokenKind::Float;
    token.number = static_cast<int>(whole);
    // Filled for whole numbers too, though only floats are asked for it.
    token.real = leadingNumber(m_text.substr(m_at, length)).value;
    advance(length);
}

//   string = '"' (character | "\" character | "\" line-end)* '"'
// A line end without a backslash ends the attempt: the token becomes UnterminatedString.
void Lexer::readString(Token &token)
{
    token.kind = TokenKind::String;
    advance(1);
    while (m_at < m_text.size() && at() != '"' && at() != '\n') {
        if (at() != '\\') {
            token.text += at();
            advance(1);
            continue;
        }
        // A backslash before the line end continues the string; neither of them is part of it.
        const bool windowsLineEnd = at(1) == '\r' && at(2) == '\n';
        if (!windowsLineEnd && at(1) != '\n' && m_at + 1 < m_text.size())
            token.text += escaped(at(1));
        advance(windowsLineEnd ? 3 : 2);
    }
    // A quote byte is looked for within the text only, as at() gives NUL beyond it.
    const bool closed = at() == '"' && m_at < m_text.size();
    if (closed) {
        advance(1);
        return;
    }
    token.kind = TokenKind::UnterminatedString;
    advance(1);
}

void Lexer::readSymbol(Token &token)
{
    token.kind = TokenKind::Symbol;
    for (const LongSymbol &candidate : longSymbols) {
        if (at() == candidate.text[0] && at(1) == candidate.text[1]) {
            token.symbol = candidate.symbol;
            advance(2);
            return;
        }
    }
    // Bytes beyond ASCII, a lone "$" and an escape outside of a string match no rule of the
    // grammar.
    token.symbol = static_cast<unsigned char>(at());
    const bool isEscape = at() == '\\' && at(1) != '\n' && at(1) != '\r';
    advance(isEscape ? 2 : 1);
}

//   variable = "$" letter (letter | digit)*        no blank after the "$"
Token Lexer::next()
{
    skipBlanks();
    Token token;
    token.begin = m_at;
    token.startLine = m_line;
    const char c = at();
    if (m_at >= m_text.size()) {
        token.kind = TokenKind::End;
    } else if (isLetter(c) || (c == '$' && isLetter(at(1)))) {
        size_t length = 1;
        while (isLetter(at(length)) || isDigit(at(length)))
            ++length;
        token.kind = c == '$' ? TokenKind::Variable : TokenKind::Identifier;
        token.text = m_text.substr(m_at, length);
        advance(length);
    } else if (isDigit(c) || (c == '.' && isDigit(at(1)))) {
        readNumber(token);
    } else if (c == '"') {
        readString(token);
    } else {
        readSymbol(token);
    }
    token.end = m_at;
    token.line = m_lastLine;
    token.column = m_lastColumn;
    // The line break that ends an open string counts as the start of the next line.
    if (token.kind == TokenKind::UnterminatedString && m_line > m_lastLine) {
        token.line = m_line;
        token.column = 1;
    }
    return token;
}

std::vector<Token> Lexer::tokens()
{
    std::vector<Token> all;
    do {
        all.push_back(next());
    } while (all.back().kind != TokenKind::End);
    return all;
}

} // namespace mel
