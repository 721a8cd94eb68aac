// SPDX-License-Identifier: MIT
#include "standin/mel/function.h"

#include "standin/mel/commandrun.h"
#include "standin/mel/functions.h"
#include "standin/mel/nodes.h"
#include "standin/mel/runtime.h"

#include <algorithm>
#include <unordered_map>

namespace mel {

namespace {

// Letters that stand for no single type, such as a and ?, are dynamic: any value passes as it is.
Type letterType(char letter)
{
    static const std::pair<char, Type> types[] = {
        {'n', Type::Void},    {'i', Type::Int},     {'f', Type::Float}, {'s', Type::String},
        {'v', Type::Vector},  {'m', Type::Matrix},  {'I', Type::Ints},  {'F', Type::Floats},
        {'S', Type::Strings}, {'V', Type::Vectors},
    };
    for (const auto &entry : types) {
        if (entry.first == letter)
            return entry.second;
    }
    return Type::Dynamic;
}

using FunctionMap = std::unordered_map<std::string, std::vector<const Function *>>;

// Built once: the tables are constants, so nothing ever invalidates it.
const FunctionMap &functionMap()
{
    static const FunctionMap map = [] {
        FunctionMap byName;
        for (const Function *function : allFunctions())
            byName[function->name].push_back(function);
        return byName;
    }();
    return map;
}

// How many arguments have exactly the wanted type.
// An argument without a known type fits a parameter that takes anything.
int fitness(const Function &function, const std::vector<Type> &arguments)
{
    int score = 0;
    for (size_t i = 0; i < arguments.size(); ++i)
        score += function.parameterType(i) == arguments[i] ? 1 : 0;
    return score;
}

} // namespace

bool Function::takes(size_t count) const
{
    // The * itself stands for no argument.
    const std::string_view letters = parameters();
    if (!letters.empty() && letters.back() == '*')
        return count + 1 >= letters.size();
    return count == letters.size();
}

Type Function::parameterType(size_t index) const
{
    const std::string_view letters = parameters();
    return index < letters.size() ? letterType(letters[index]) : Type::Dynamic;
}

// Known while compiling where the signature tells, which saves checks at run time.
Type Function::returnType(Type firstArgument) const
{
    return signature[0] == '=' ? firstArgument : letterType(signature[0]);
}

const std::vector<const Function *> &allFunctions()
{
    static const std::vector<const Function *> all = [] {
        std::vector<const Function *> rows;
        for (const FunctionTable &table : functionTables()) {
            for (size_t i = 0; i < table.count; ++i)
                rows.push_back(&table.rows[i]);
        }
        return rows;
    }();
    return all;
}

bool isFunction(const std::string &name)
{
    return functionMap().count(name) > 0;
}

std::vector<const Function *> functionsNamed(const std::string &name)
{
    const auto found = functionMap().find(name);
    return found == functionMap().end() ? std::vector<const Function *>() : found->second;
}

// Only the number of arguments decides whether a row fits; the types merely rank, as they convert.
const Function *chooseFunction(const std::vector<const Function *> &rows,
                               const std::vector<Type> &arguments)
{
    const Function *best = nullptr;
    for (const Function *row : rows) {
        if (!row->takes(arguments.size()))
            continue;
        if (!best || fitness(*row, arguments) > fitness(*best, arguments))
            best = row;
    }
    return best;
}

// What a row writes to an array is lost, as the values belong to no variable.
Value callFunctionByName(Runtime &runtime, const std::string &name, std::vector<Value> arguments)
{
    std::vector<Type> types;
    types.reserve(arguments.size());
    for (const Value &argument : arguments)
        types.push_back(typeOf(argument));
    const Function *function = chooseFunction(functionsNamed(name), types);
    if (!function)
        throw RuntimeError(argumentCountText(name));
    echoCommand(runtime, name, arguments);
    std::vector<Value *> places;
    for (size_t i = 0; i < arguments.size(); ++i) {
        arguments[i] =
            nodes::convertArgument(std::move(arguments[i]), function->parameterType(i), runtime);
        places.push_back(&arguments[i]);
    }
    return function->run(Arguments(runtime, places.data(), places.size()));
}

} // namespace mel
