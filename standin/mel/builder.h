// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/callnodes.h"
#include "standin/mel/nodes.h"
#include "standin/mel/runtime.h"

#include <functional>
#include <map>
#include <optional>

namespace mel {

// What a name stands for in the scope being compiled.
// A copy is enough: the storage it names outlives the compilation.
struct Symbol
{
    Type type;
    Storage storage;
    int line = 0; // of the declaration
};

// Checks what the parser has read, knows scopes, types and procedures, and makes the nodes.
// Throws CompileError.
// One builder per text, owned by its parser. It reads no tokens and runs nothing, except for the
// constant that a global variable starts with.
class Builder
{
public:
    // `warn` takes what is odd but allowed; the parser adds the place.
    Builder(Runtime &runtime, SourcePointer source, std::function<void(const std::string &)> warn);

    // Scopes and variables.
    void openScope();
    void closeScope();
    // Innermost scope first; none when the name is unknown.
    std::optional<Symbol> find(const std::string &variable) const;
    // The same for a name that has to be known: throws CompileError when it is not.
    Symbol known(const std::string &variable) const;
    struct Declaration
    {
        std::string name;
        Type type = Type::Int;
        bool isGlobal = false;
        Value initial; // without an initialiser
        int line = 0;
    };
    // `isNew` is false for a repeated declaration, which keeps the variable and its value.
    struct Declared
    {
        Symbol symbol;
        bool isNew;
    };
    // Throws CompileError when the name has another type already.
    Declared declare(const Declaration &declaration);
    // What happens when the declaration is reached; null: nothing. `value` may be null.
    ExpressionPointer initialise(const Declaration &declaration, const Declared &declared,
                                 ExpressionPointer value);

    // Expressions.
    std::unique_ptr<Target> variable(const std::string &name);
    std::unique_ptr<Target> element(const std::string &name, ExpressionPointer index);
    std::unique_ptr<Target> matrixElement(const std::string &name, ExpressionPointer row,
                                          ExpressionPointer column);
    ExpressionPointer component(ExpressionPointer vector, char axis);
    // A no-op when the types agree; throws CompileError when they can never convert.
    ExpressionPointer convert(ExpressionPointer value, Type to);
    // As an int that is not 0 when true. Throws CompileError for arrays and matrices.
    ExpressionPointer condition(ExpressionPointer value);
    ExpressionPointer vectorOrMatrix(std::vector<ExpressionList> rows);
    ExpressionPointer arrayLiteral(ExpressionList elements);
    ExpressionPointer negate(ExpressionPointer value);
    ExpressionPointer binary(Operator op, ExpressionPointer left, ExpressionPointer right);
    ExpressionPointer logical(bool isAnd, ExpressionPointer left, ExpressionPointer right);
    ExpressionPointer conditional(ExpressionPointer condition, ExpressionPointer yes,
                                  ExpressionPointer no);
    ExpressionPointer assign(std::unique_ptr<Target> target, ExpressionPointer value);
    // Declares the name with the value's type, then assigns.
    ExpressionPointer assignNew(const std::string &name, ExpressionPointer index,
                                ExpressionPointer value, int line);
    ExpressionPointer compoundAssign(Operator op, std::unique_ptr<Target> target,
                                     ExpressionPointer value);
    ExpressionPointer increment(std::unique_ptr<Target> target, int by, bool prefix);
    // A call of whatever has that name; one that nothing has yet is looked up when it is reached.
    ExpressionPointer call(const std::string &name, ExpressionList arguments, int line);

    // Procedures.
    // Between the two calls everything declared belongs to the procedure.
    void beginProcedure(const std::string &name, bool isGlobal, Type returnType,
                        const std::vector<Parameter> &parameters);
    void endProcedure(StatementList body);
    bool atTopLevel() const { return !m_procedure && m_scopes.empty(); }
    bool inProcedure() const { return m_procedure != nullptr; }
    ExpressionPointer
    returned(ExpressionPointer value); // checked and converted; null for "return;"
    void checkReturns() const;         // of the procedure whose body has been read

    // Makes the procedures of the text known, once all of it has been read.
    void commit();
    // Instead of commit(), when the text has an error.
    void abandon();
    // The finished text; the builder is used up afterwards.
    std::unique_ptr<Unit> unit(StatementList statements);

private:
    using Scope = std::map<std::string, Symbol>;
    struct Pending
    {
        ProcedureEntry *entry;
        std::shared_ptr<Procedure> procedure;
    };

    std::vector<Value> &slots() { return m_procedure ? m_procedure->slots : m_unitSlots; }
    Declared declareGlobal(const Declaration &declaration);
    Declared declareLocal(const Declaration &declaration);
    void warnRedeclaration(const std::string &variable, int line) const;
    ExpressionPointer initialiseGlobal(const Declared &declared, ExpressionPointer value);
    // Converts for a parameter; a variable of an array type stays one, to be passed by reference.
    ExpressionPointer argument(ExpressionPointer value, Type to);
    static void checkDepth(const Expression &expression);
    ExpressionPointer callProcedure(const ProcedureEntry &entry, const ProcedurePointer &signature,
                                    ExpressionList arguments, int line);
    ExpressionPointer callFunction(const std::vector<const Function *> &rows,
                                   ExpressionList arguments, int line);
    // What a call in this text binds to, this text's own definitions first; nulls when nothing
    // does.
    std::pair<const ProcedureEntry *, ProcedurePointer>
    findProcedure(const std::string &name) const;

    Runtime &m_runtime;
    SourcePointer m_source;
    std::function<void(const std::string &)> m_warn;
    std::vector<Scope> m_scopes; // of the text, then of the procedure
    std::vector<Value> m_unitSlots;
    // The one being read, null outside; procedures do not nest.
    std::shared_ptr<Procedure> m_procedure;
    bool m_sawReturn = false;
    std::map<std::string, Pending> m_pending; // the last definition of each name
    std::vector<Pending> m_definitions;       // all of them
    // Names that abandon() takes back.
    std::vector<std::string> m_newGlobals;
    std::map<std::string, int> m_globalLines; // globals declared by this text
};

} // namespace mel
