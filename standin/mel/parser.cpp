// SPDX-License-Identifier: MIT
#include "standin/mel/parser.h"

#include "standin/mel/compiler.h"
#include "standin/mel/lexer.h"
#include "standin/mel/parserlevel.h"

#include <algorithm>

namespace mel {

Parser::Parser(Runtime &runtime, const SourcePointer &source)
    : m_runtime(runtime), m_source(source), m_tokens(Lexer(m_source->text).tokens()),
      m_builder(runtime, source, [this](const std::string &text) { warn(text); })
{
}

// Text is nested by its author, the stack is spent by the build: both are bounded. The count goes
// back before throwing, as a constructor that throws has no destructor run.
Parser::Level::Level(Parser &parser) : m_parser(parser)
{
    if (++parser.m_nesting > parser.m_runtime.limits.nesting) {
        --parser.m_nesting;
        throw CompileError("Too many nested expressions or blocks.");
    }
    try {
        parser.m_runtime.checkStack();
    } catch (const RuntimeError &) {
        --parser.m_nesting;
        throw;
    }
}

Parser::Level::~Level()
{
    --m_parser.m_nesting;
}

const Token &Parser::tokenAfter(size_t count) const
{
    return m_tokens[std::min(m_at + count, m_tokens.size() - 1)];
}

// Decides whether tokens are one word of a command line, which the lexer does not know.
bool Parser::adjacent() const
{
    return m_at > 0 && m_tokens[m_at - 1].end == token().begin;
}

// An open string is an error of its own, wherever the grammar is.
void Parser::next()
{
    if (m_at + 1 < m_tokens.size())
        ++m_at;
    if (token().kind == TokenKind::UnterminatedString)
        fail("Unterminated string.");
}

bool Parser::accept(int symbol)
{
    if (!token().is(symbol))
        return false;
    next();
    return true;
}

bool Parser::acceptWord(const char *word)
{
    if (!token().isWord(word))
        return false;
    next();
    return true;
}

void Parser::expect(int symbol)
{
    if (!accept(symbol))
        failSyntax();
}

void Parser::failSyntax() const
{
    throw CompileError("Syntax error");
}

// The place is that of the last character of the token in hand.
std::string Parser::located(const std::string &text, const char *colon) const
{
    //   Line 3.14: text              typed
    //   "PATH" line 3.14: text       from a file
    const std::string place =
        std::to_string(token().line) + "." + std::to_string(token().column) + colon;
    // Without line numbers files are not named either.
    if (!m_runtime.settings.lineNumbers)
        return text;
    return m_source->isTyped() ? "Line " + place + text
                               : "\"" + m_source->path + "\" line " + place + text;
}

// A token shows the line it begins on; the end of the text, which no line holds, the last one.
std::string Parser::sourceLine() const
{
    return m_source->line(token().kind == TokenKind::End ? token().line : token().startLine);
}

void Parser::fail(const std::string &text) const
{
    throw CompileFailure(sourceLine(), located(text, ": "));
}

void Parser::warn(const std::string &text) const
{
    m_runtime.compileWarning(sourceLine(), located(text, " : "));
}

// Nothing of a text that has an error stays behind: no procedure, no variable.
std::unique_ptr<Unit> Parser::parse()
{
    try {
        StatementList statements;
        // next() checks every token but the first.
        if (token().kind == TokenKind::UnterminatedString)
            fail("Unterminated string.");
        while (token().kind != TokenKind::End) {
            if (StatementPointer read = statement())
                statements.push_back(std::move(read));
        }
        m_builder.commit();
        return m_builder.unit(std::move(statements));
        // The token in hand has not moved since the error was found, so it still is its place.
    } catch (const CompileError &error) {
        m_builder.abandon();
        fail(error.what());
    } catch (...) {
        m_builder.abandon();
        throw;
    }
}

std::unique_ptr<Unit> compileSource(Runtime &runtime, SourcePointer source)
{
    return Parser(runtime, std::move(source)).parse();
}

} // namespace mel
