// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/builder.h"
#include "standin/mel/token.h"

#include <optional>

namespace mel {

// Reads one text, statement by statement, and hands what it finds to the Builder. An error is
// placed at the token that stands next when it is found.
// One pass by recursive descent: types are checked as soon as an operand has been read, which is
// why an error can name the token after it. Used once; the tokens are read whole before.
class Parser
{
public:
    Parser(Runtime &runtime, const SourcePointer &source);

    // Throws CompileFailure.
    std::unique_ptr<Unit> parse();

private:
    class Level;

    // Tokens.
    const Token &token() const { return m_tokens[m_at]; }
    // Beyond the end it is the End token again, so that looking ahead needs no check.
    const Token &tokenAfter(size_t count = 1) const;
    bool adjacent() const; // no blank before the current token
    void next();
    bool accept(int symbol);
    bool acceptWord(const char *word);
    void expect(int symbol);
    // The first throws what parse() will place; the second places the message at once.
    [[noreturn]] void failSyntax() const;
    [[noreturn]] void fail(const std::string &text) const;
    std::string sourceLine() const;
    std::string located(const std::string &text, const char *colon) const;
    void warn(const std::string &text) const;

    // Statements.
    StatementPointer statement();
    // The rule behind a keyword. Others start an expression, such as true and int(7.5).
    StatementPointer statementOf(const std::string &keyword, int line);
    StatementPointer block(int line);
    StatementPointer nestedStatement();
    StatementPointer loopBody();
    StatementPointer ifStatement(int line);
    StatementPointer whileStatement(int line);
    StatementPointer doStatement(int line);
    StatementPointer forStatement(int line);
    StatementPointer forInStatement(int line);
    Symbol loopVariable(const std::string &name, Type wanted, Type element, int line);
    StatementPointer switchStatement(int line);
    ExpressionPointer caseLabel(const Expression &value);
    StatementList caseBody();
    StatementPointer jump(const std::string &keyword, int line);
    StatementPointer returnStatement(int line);
    StatementPointer declaration(int line);
    StatementPointer simpleStatement(int line);
    ExpressionPointer declarator(Type type, bool isGlobal);
    Type declaratorBrackets(Type type, Value &initial);
    int constantSize();
    void procedure(bool isGlobal);
    Type returnTypeOfProcedure();
    std::vector<Parameter> parameters();
    ExpressionList expressionList(int end);
    ExpressionPointer parenthesisedCondition();
    void endStatement();
    bool startsProcedure() const;
    bool startsDeclaration() const;

    // Expressions.
    ExpressionPointer expression();
    ExpressionPointer conditional();
    // Level 0 binds loosest; beyond the last level stand the unary operators.
    ExpressionPointer binary(int level);
    ExpressionPointer unary();
    ExpressionPointer postfix();
    ExpressionPointer primary();
    ExpressionPointer assignment(ExpressionPointer left);
    ExpressionPointer incrementAfter(ExpressionPointer operand);
    // A syntax error for what cannot be assigned.
    std::unique_ptr<Target> asTarget(ExpressionPointer expression) const;
    ExpressionPointer variable();
    // For a name that no scope knows. Throws CompileError when it is read instead of assigned.
    ExpressionPointer newVariable(const std::string &name, int line);
    ExpressionPointer indexed(const std::string &name);
    ExpressionPointer component(ExpressionPointer operand);
    ExpressionPointer index();
    ExpressionPointer wordExpression();
    ExpressionPointer cast(Type type);
    ExpressionPointer catching(bool quiet);
    ExpressionPointer functionCall();
    ExpressionPointer vectorOrMatrix();
    ExpressionPointer arrayLiteral();
    ExpressionPointer literal(Value value);

    // Commands.
    ExpressionPointer commandOrCall();
    ExpressionPointer capturedCommand();
    ExpressionPointer commandLine();
    bool callIsCommandLine() const;
    bool wordFollows(size_t at) const;
    void requireEndOfCommand() const;
    bool startsWord() const;
    ExpressionPointer word();
    ExpressionPointer dashedWord();
    ExpressionPointer signedNumber(int sign);
    ExpressionPointer bareWord();
    bool bareWordContinues() const;
    bool skipPlainBrackets();
    std::string sourcedFile();
    // Looks ahead only, without consuming; linear in the tokens it passes.
    size_t matchingParenthesis(bool &hasComma) const;

    Runtime &m_runtime;
    SourcePointer m_source;
    std::vector<Token> m_tokens;
    // Index of the token in hand; the End token is never passed.
    size_t m_at = 0;
    Builder m_builder;
    // Of Level objects alive; Limits::nesting is its bound.
    int m_nesting = 0;
    int m_loops = 0;           // around the current statement, within its procedure
    int m_breakable = 0;       // loops and switches
    bool m_inBacktick = false; // the next backtick closes
};

} // namespace mel
