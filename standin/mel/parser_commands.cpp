// SPDX-License-Identifier: MIT
#include "standin/mel/parser.h"

#include "standin/mel/parserlevel.h"
#include "standin/mel/sourcenode.h"

#include <cctype>
#include <cstring>

namespace mel {

namespace {

// Operators that make an expression of a call at the start of a statement.
// No compound assignments: what is assigned to is a variable, never a call.
bool isBinaryOperator(const Token &token)
{
    static const int symbols[] = {'+',
                                  '-',
                                  '*',
                                  '/',
                                  '%',
                                  '^',
                                  '<',
                                  '>',
                                  '?',
                                  '=',
                                  symbol::LessEqual,
                                  symbol::GreaterEqual,
                                  symbol::Equal,
                                  symbol::NotEqual,
                                  symbol::And,
                                  symbol::Or};
    for (const int candidate : symbols) {
        if (token.is(candidate))
            return true;
    }
    return false;
}

bool isNumber(const Token &token)
{
    return token.kind == TokenKind::Int || token.kind == TokenKind::Float;
}

// Tokens that bare words are made of when no blank stands between them.
//   |group1|ball.tx   ns:leg*   pSphere1.vtx[0:3]   ..
// The "||" of a path with an empty name in it arrives as one token.
bool isWordPiece(const Token &token)
{
    if (token.kind == TokenKind::Identifier || isNumber(token) || token.is(symbol::Or))
        return true;
    return token.kind == TokenKind::Symbol && token.symbol < 128 && token.symbol > 0 &&
           std::strchr("|:.*?#", token.symbol);
}

} // namespace

// The position after the parenthesis that closes the one after the current token; the number of
// tokens when there is none.
size_t Parser::matchingParenthesis(bool &hasComma) const
{
    int round = 0;
    int others = 0;
    hasComma = false;
    for (size_t i = m_at + 1; i < m_tokens.size(); ++i) {
        const Token &candidate = m_tokens[i];
        if (candidate.is('('))
            ++round;
        else if (candidate.is(')') && --round == 0)
            return i + 1;
        else if (candidate.is('{') || candidate.is('[') || candidate.is(symbol::VectorOpen))
            ++others;
        else if (candidate.is('}') || candidate.is(']') || candidate.is(symbol::VectorClose))
            --others;
        else if (candidate.is(',') && round == 1 && others == 0)
            hasComma = true;
    }
    return m_tokens.size();
}

// A name and parentheses start a command line when a further word follows:
//   setAttr ($n + ".tx") 5;
bool Parser::callIsCommandLine() const
{
    bool hasComma = false;
    const size_t after = matchingParenthesis(hasComma);
    if (hasComma || after >= m_tokens.size())
        return false;
    return wordFollows(after);
}

// Whether the token, met after a call, starts a word rather than goes on with an expression.
bool Parser::wordFollows(size_t at) const
{
    const Token &candidate = m_tokens[at];
    if (candidate.is('`'))
        return !m_inBacktick;
    if (candidate.is('-') && at + 1 < m_tokens.size()) {
        const Token &operand = m_tokens[at + 1];
        const bool joined = operand.begin == candidate.end;
        if (operand.kind == TokenKind::Identifier)
            return joined;
        // One blank decides: f (1) -2 has two words, f (1)-2 and f (1) - 2 subtract.
        const bool blankBefore = m_tokens[at - 1].end < candidate.begin;
        return joined && blankBefore;
    }
    if (isBinaryOperator(candidate))
        return false;
    return candidate.kind == TokenKind::String || isNumber(candidate) ||
           candidate.kind == TokenKind::Variable || candidate.kind == TokenKind::Identifier ||
           candidate.is('(') || candidate.is(symbol::VectorOpen) || candidate.is('|') ||
           candidate.is('.') || candidate.is(':') || candidate.is('{');
}

// At the start of a statement or after a backtick, where a name may begin either.
ExpressionPointer Parser::commandOrCall()
{
    const bool catchWord = token().isWord("catch") || token().isWord("catchQuiet");
    if (catchWord || (tokenAfter().is('(') && !callIsCommandLine()))
        return m_inBacktick ? wordExpression() : expression();
    return commandLine();
}

//   captured = "`" command "`"
ExpressionPointer Parser::capturedCommand()
{
    const Level level(*this);
    expect('`');
    if (token().kind != TokenKind::Identifier)
        failSyntax();
    const bool outer = std::exchange(m_inBacktick, true);
    ExpressionPointer command = commandOrCall();
    if (!token().is('`'))
        failSyntax();
    m_inBacktick = outer;
    next();
    return command;
}

// A name and its words, up to a token that cannot be a word.
//   command = name word* ;  words need no commas, and line ends do not end them
ExpressionPointer Parser::commandLine()
{
    const std::string name = token().text;
    const int line = token().startLine;
    if (isKeyword(name))
        failSyntax();
    next();
    // Read while compiling, so that the procedures of the file are known to the rest of this text.
    if (name == "source") {
        const std::string file = sourcedFile();
        requireEndOfCommand();
        return nodes::sourceFile(m_runtime, file, {m_source, line});
    }
    ExpressionList words;
    while (startsWord())
        words.push_back(word());
    requireEndOfCommand();
    return m_builder.call(name, std::move(words), line);
}

// What is no word is wrong before the number of words is: print + 1;
void Parser::requireEndOfCommand() const
{
    if (token().kind != TokenKind::End && !token().is(';') && !token().is('`'))
        failSyntax();
}

// Within backticks the next backtick always closes; a nested capture has to stand in parentheses.
bool Parser::startsWord() const
{
    if (token().is('`'))
        return !m_inBacktick;
    // A sign belongs to the word it touches; standing free it is an operator, which words do not
    // have.
    if (token().is('-') || token().is('!') || token().is('+')) {
        const Token &operand = tokenAfter();
        const bool joined = operand.begin == token().end;
        return joined && (operand.kind == TokenKind::Identifier || isNumber(operand) ||
                          operand.kind == TokenKind::Variable || operand.is('('));
    }
    if (token().is('*')) // alone it is no word
        return bareWordContinues();
    return token().kind == TokenKind::String || token().kind == TokenKind::Variable ||
           isWordPiece(token()) || token().is('(') || token().is('{') ||
           token().is(symbol::VectorOpen);
}

// Whether the token after this one belongs to the same word.
bool Parser::bareWordContinues() const
{
    const Token &following = tokenAfter();
    return following.begin == token().end && (isWordPiece(following) || following.is('['));
}

//   word = flag | number | string | variable index? | "(" expression ")" | captured | vector | bare
ExpressionPointer Parser::word()
{
    const Level level(*this);
    if (token().is('-'))
        return dashedWord();
    if (token().is('+') || token().is('!'))
        return unary();
    // Deliberate: $v.tx is two words, the value and ".tx"; joining them takes ($v + ".tx").
    if (token().kind == TokenKind::Variable) {
        const std::string name = token().text;
        next();
        return token().is('[') ? indexed(name) : m_builder.variable(name);
    }
    if (isNumber(token()) || !isWordPiece(token()))
        return primary();
    return bareWord();
}

// -flag stays a text; -5 and -$x are numbers.
ExpressionPointer Parser::dashedWord()
{
    if (tokenAfter().kind != TokenKind::Identifier)
        return unary();
    next();
    return literal("-" + token().text);
}

// Adjacent tokens as one text; brackets that hold an expression insert its value:
//   pSphere1.vtx[$i]
// Keywords lose their meaning here: -type string passes the word "string".
ExpressionPointer Parser::bareWord()
{
    ExpressionPointer value;
    const auto append = [&](ExpressionPointer piece) {
        value = value ? m_builder.binary(Operator::Add, std::move(value), std::move(piece))
                      : std::move(piece);
    };
    size_t begin = token().begin;
    next();
    while (adjacent() && (isWordPiece(token()) || token().is('['))) {
        if (!token().is('[')) {
            next();
            continue;
        }
        if (skipPlainBrackets())
            continue;
        append(nodes::constant(m_source->text.substr(begin, token().end - begin)));
        append(index());
        begin = m_tokens[m_at - 1].begin;
    }
    append(nodes::constant(m_source->text.substr(begin, m_tokens[m_at - 1].end - begin)));
    return value;
}

// Passes brackets that are plain text, such as [0:3] and [*]; false when they hold an expression.
bool Parser::skipPlainBrackets()
{
    size_t end = m_at + 1;
    while (m_tokens[end].kind == TokenKind::Int || m_tokens[end].is(':') || m_tokens[end].is('*'))
        ++end;
    if (!m_tokens[end].is(']'))
        return false;
    while (m_at <= end)
        next();
    return true;
}

//   source = "source" (string | file-name), the name without quotes as in: source lib/tools.mel;
std::string Parser::sourcedFile()
{
    if (token().kind == TokenKind::String) {
        const std::string &name = token().text;
        next();
        return name;
    }
    // A name that is only known later cannot be read while compiling.
    if (!isWordPiece(token()) && !token().is('/'))
        failSyntax();
    const size_t begin = token().begin;
    do {
        next();
    } while (adjacent() && (isWordPiece(token()) || token().is('/')));
    return m_source->text.substr(begin, m_tokens[m_at - 1].end - begin);
}

} // namespace mel
