// SPDX-License-Identifier: MIT
#include "standin/mel/builder.h"

namespace mel {

std::pair<const ProcedureEntry *, ProcedurePointer>
Builder::findProcedure(const std::string &name) const
{
    // This text's own definitions are not in the table before commit(), yet calls below them bind.
    const auto pending = m_pending.find(name);
    if (pending != m_pending.end())
        return {pending->second.entry, pending->second.procedure};
    const ProcedureEntry *known = m_runtime.knownProcedure(name, m_source->isTyped());
    return {known, known ? known->current : nullptr};
}

ExpressionPointer Builder::argument(ExpressionPointer value, Type to)
{
    // Fails in the words of convert(), but for an array literal, which takes the other type.
    if (value->type() == Type::Void || !canConvert(value->type(), to))
        return convert(std::move(value), to == Type::Dynamic ? Type::String : to);
    if (auto literal = nodes::retypedLiteral(value, to))
        return literal;
    // A dynamic variable stays a variable, so that the callee can change its array.
    const bool unchanged = to == Type::Dynamic || (isArray(to) && value->type() == Type::Dynamic);
    return unchanged ? std::move(value) : nodes::convertArgument(std::move(value), to);
}

// The number of arguments is fixed: there are no defaults and no variable lists.
ExpressionPointer Builder::callProcedure(const ProcedureEntry &entry,
                                         const ProcedurePointer &signature,
                                         ExpressionList arguments, int line)
{
    if (arguments.size() != signature->parameters.size())
        throw CompileError(argumentCountText(signature->name));
    for (size_t i = 0; i < arguments.size(); ++i)
        arguments[i] = argument(std::move(arguments[i]), signature->parameters[i].type);
    return nodes::procedureCall(entry, signature, std::move(arguments), line);
}

// The caller has made sure that nobody has removed the command of that name.
ExpressionPointer Builder::callFunction(const std::vector<const Function *> &rows,
                                        ExpressionList arguments, int line)
{
    std::vector<Type> types;
    for (const ExpressionPointer &given : arguments)
        types.push_back(given->type());
    const Function *function = chooseFunction(rows, types);
    if (!function)
        throw CompileError(argumentCountText(rows.front()->name));
    for (size_t i = 0; i < arguments.size(); ++i)
        arguments[i] = argument(std::move(arguments[i]), function->parameterType(i));
    const Type type = function->returnType(types.empty() ? Type::Dynamic : types.front());
    return nodes::functionCall(*function, std::move(arguments), type, line);
}

// Procedures hide commands. What nobody knows yet may be known when the call is reached.
// Unknown names compile on purpose: the script that defines them may be loaded by this very text.
ExpressionPointer Builder::call(const std::string &name, ExpressionList arguments, int line)
{
    const auto [entry, signature] = findProcedure(name);
    if (entry)
        return callProcedure(*entry, signature, std::move(arguments), line);
    const auto functions = functionsNamed(name);
    if (!functions.empty() && m_runtime.commands.find(name))
        return callFunction(functions, std::move(arguments), line);
    for (const ExpressionPointer &given : arguments) {
        if (given->type() == Type::Void)
            failCast(Type::Void, Type::String);
    }
    return nodes::lateCall(name, std::move(arguments), line);
}

void Builder::beginProcedure(const std::string &name, bool isGlobal, Type returnType,
                             const std::vector<Parameter> &parameters)
{
    m_procedure = std::make_shared<Procedure>();
    m_procedure->name = name;
    m_procedure->isGlobal = isGlobal;
    m_procedure->returnType = returnType;
    m_procedure->parameters = parameters;
    m_procedure->source = m_source;
    m_sawReturn = false;
    openScope();
    for (const Parameter &parameter : parameters) {
        if (m_scopes.back().count(parameter.name) > 0)
            throw CompileError("Invalid redeclaration of variable \"" + parameter.name + "\".");
        declareLocal(
            {parameter.name, parameter.type, false, defaultValue(parameter.type), parameter.line});
    }
    // Only a warning: calls compiled before are checked once more when they run.
    const ProcedurePointer old = findProcedure(name).second;
    if (old && !old->sameSignature(*m_procedure))
        m_warn("New procedure definition for \"" + name +
               "\" has a different argument list and/or return type.");
    // Known before its body, so that it may call itself.
    m_definitions.push_back({&m_runtime.procedures.entry(name, isGlobal, *m_source), m_procedure});
    m_pending[name] = m_definitions.back();
}

// One return anywhere is enough for checkReturns(); a path without one yields the default value.
ExpressionPointer Builder::returned(ExpressionPointer value)
{
    const Type wanted = m_procedure ? m_procedure->returnType : Type::Void;
    m_sawReturn = true;
    if (!value)
        return nullptr;
    if (wanted == Type::Void)
        throw CompileError("This procedure has no return value.");
    return convert(std::move(value), wanted);
}

void Builder::checkReturns() const
{
    if (m_procedure->returnType != Type::Void && !m_sawReturn)
        throw CompileError("Procedure is missing a return statement.");
}

void Builder::endProcedure(StatementList body)
{
    closeScope();
    m_procedure->body = std::move(body);
    m_procedure.reset();
}

// From here on all callers reach the new definitions, those compiled earlier as well.
// Nobody outside can reach a procedure before this, so a faulty text defines none.
void Builder::commit()
{
    for (const Pending &definition : m_definitions)
        m_runtime.procedures.define(*definition.entry, definition.procedure);
}

// Gives back the names of variables that only the faulty text declared.
// Their values live on, as a file compiled on the way may have bound to them.
void Builder::abandon()
{
    for (const std::string &name : m_newGlobals)
        m_runtime.variables.forget(name);
}

std::unique_ptr<Unit> Builder::unit(StatementList statements)
{
    auto unit = std::make_unique<Unit>();
    unit->source = m_source;
    unit->slots = std::move(m_unitSlots);
    unit->statements = std::move(statements);
    return unit;
}

} // namespace mel
