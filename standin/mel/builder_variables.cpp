// SPDX-License-Identifier: MIT
#include "standin/mel/builder.h"

namespace mel {

namespace {

[[noreturn]] void failRedeclaration(const std::string &variable)
{
    throw CompileError("Invalid redeclaration of variable \"" + variable +
                       "\" as a different type.");
}

[[noreturn]] void failIndexing(Type type)
{
    throw CompileError(std::string("Cannot index data of type ") + typeName(type) + ".");
}

} // namespace

Builder::Builder(Runtime &runtime, SourcePointer source,
                 std::function<void(const std::string &)> warn)
    : m_runtime(runtime), m_source(std::move(source)), m_warn(std::move(warn))
{
}

// Off by melOptions for scripts that declare a variable again on purpose.
void Builder::warnRedeclaration(const std::string &variable, int line) const
{
    if (!m_runtime.settings.duplicateVariableWarnings)
        return;
    m_warn("Redeclaration of variable \"" + variable + "\" shadows previous declaration at line " +
           std::to_string(line) + ". Previous value will be retained.");
}

void Builder::openScope()
{
    m_scopes.emplace_back();
}

void Builder::closeScope()
{
    m_scopes.pop_back();
}

// A procedure sees no global that it has not declared.
// Without a declaration an assignment in it makes a local variable of the same name.
std::optional<Symbol> Builder::find(const std::string &variable) const
{
    for (auto scope = m_scopes.rbegin(); scope != m_scopes.rend(); ++scope) {
        const auto found = scope->find(variable);
        if (found != scope->end())
            return found->second;
    }
    GlobalVariable *global = m_procedure ? nullptr : m_runtime.variables.find(variable);
    if (!global)
        return std::nullopt;
    return Symbol{global->type, Storage(&global->value)};
}

Symbol Builder::known(const std::string &variable) const
{
    const std::optional<Symbol> symbol = find(variable);
    if (!symbol)
        throw CompileError("\"" + variable + "\" is an undeclared variable.");
    return *symbol;
}

// "global" inside braces makes the name known in that scope, bound to the global variable.
Builder::Declared Builder::declare(const Declaration &declaration)
{
    if (!declaration.isGlobal && !atTopLevel())
        return declareLocal(declaration);
    const Declared declared = declareGlobal(declaration);
    if (!m_scopes.empty())
        m_scopes.back().insert_or_assign(declaration.name, declared.symbol);
    return declared;
}

// A global has one type for as long as the interpreter lives.
Builder::Declared Builder::declareGlobal(const Declaration &declaration)
{
    GlobalVariable *known = m_runtime.variables.find(declaration.name);
    const bool isNew = !known;
    if (isNew) {
        known =
            &m_runtime.variables.declare(declaration.name, declaration.type, declaration.initial);
        m_newGlobals.push_back(declaration.name);
    } else if (known->type == Type::Dynamic) {
        // Nothing was ever promised about it, so the declaration may settle its type.
        known->type = declaration.type;
        if (typeOf(known->value) != declaration.type)
            known->value = declaration.initial;
    } else if (known->type != declaration.type) {
        failRedeclaration(declaration.name);
    }
    int &line = m_globalLines[declaration.name];
    // Not for variables of earlier texts: typing a declaration a second time is everyday work.
    if (line > 0 && !declaration.isGlobal)
        warnRedeclaration(declaration.name, line);
    line = declaration.line;
    return {Symbol{known->type, Storage(&known->value), declaration.line}, isNew};
}

// Declaring again in the same scope keeps the variable.
Builder::Declared Builder::declareLocal(const Declaration &declaration)
{
    Scope &scope = m_scopes.back();
    const auto found = scope.find(declaration.name);
    if (found == scope.end()) {
        slots().push_back(declaration.initial);
        const Storage slot(static_cast<int>(slots().size()) - 1);
        const Symbol symbol{declaration.type, slot, declaration.line};
        scope.emplace(declaration.name, symbol);
        return {symbol, true};
    }
    if (found->second.type != declaration.type)
        failRedeclaration(declaration.name);
    warnRedeclaration(declaration.name, found->second.line);
    return {found->second, false};
}

ExpressionPointer Builder::initialise(const Declaration &declaration, const Declared &declared,
                                      ExpressionPointer value)
{
    const Storage &storage = declared.symbol.storage;
    if (value && declaration.isGlobal)
        return initialiseGlobal(declared, std::move(value));
    if (value)
        return assign(nodes::variable(storage, declaration.type), std::move(value));
    // Deliberate: a variable of the top level keeps its value when it is declared again.
    const bool isLocal = !declaration.isGlobal && !atTopLevel();
    return isLocal && declared.isNew ? nodes::reset(storage, declaration.initial) : nullptr;
}

// Set once, before the text runs, and never again however often the text is run.
// A frame without slots will do, as a constant reads no variable.
ExpressionPointer Builder::initialiseGlobal(const Declared &declared, ExpressionPointer value)
{
    if (!value->isConstant())
        throw CompileError("The initial value of a global variable must be a constant.");
    Frame frame(m_runtime, {}, m_source);
    if (declared.isNew)
        assign(nodes::variable(declared.symbol.storage, declared.symbol.type), std::move(value))
            ->run(frame);
    return nodes::variable(declared.symbol.storage, declared.symbol.type);
}

std::unique_ptr<Target> Builder::variable(const std::string &name)
{
    const Symbol symbol = known(name);
    return nodes::variable(symbol.storage, symbol.type);
}

std::unique_ptr<Target> Builder::element(const std::string &name, ExpressionPointer index)
{
    const Symbol symbol = known(name);
    if (!isArray(symbol.type) && symbol.type != Type::Dynamic)
        failIndexing(symbol.type);
    return nodes::element(symbol.storage, symbol.type, convert(std::move(index), Type::Int));
}

std::unique_ptr<Target> Builder::matrixElement(const std::string &name, ExpressionPointer row,
                                               ExpressionPointer column)
{
    const Symbol symbol = known(name);
    if (symbol.type != Type::Matrix && symbol.type != Type::Dynamic)
        failIndexing(symbol.type);
    return nodes::matrixElement(symbol.storage, convert(std::move(row), Type::Int),
                                convert(std::move(column), Type::Int));
}

// With an index, an array of the value's type is declared.
//   $list[2] = "a";     declares string $list[]
ExpressionPointer Builder::assignNew(const std::string &name, ExpressionPointer index,
                                     ExpressionPointer value, int line)
{
    Type type = value->type();
    if (type == Type::Void)
        failCast(Type::Void, Type::Int);
    if (index && arrayOf(type) != Type::Void)
        type = arrayOf(type);
    // A global at the top level, a local variable inside braces.
    Declaration declaration{name, type, false, defaultValue(type), line};
    declare(declaration);
    auto target = index ? element(name, std::move(index)) : variable(name);
    return assign(std::move(target), std::move(value));
}

} // namespace mel
