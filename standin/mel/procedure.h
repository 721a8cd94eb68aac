// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/statement.h"

#include <string>

namespace mel {

struct Parameter
{
    std::string name; // with its "$"
    Type type;
    int line = 0;
};

// A compiled procedure. Callers hold it while it runs, so it may be redefined meanwhile.
// Immutable once its text has been read whole, and so shared by all calls.
struct Procedure
{
    std::string name;
    Type returnType = Type::Void;
    std::vector<Parameter> parameters; // in the first slots
    std::vector<Value> slots;          // initial values
    StatementList body;
    SourcePointer source;
    bool isGlobal = false;

    // Return type and parameter types; names do not count.
    bool sameSignature(const Procedure &other) const;
};

using ProcedurePointer = std::shared_ptr<const Procedure>;

// A name that calls refer to; lives as long as the interpreter, so that calls may keep its address.
struct ProcedureEntry
{
    ProcedurePointer current; // null until a definition has been compiled
    // Of the current one: known without looking at it, of which there may be thousands.
    const Source *source = nullptr;
};

// A compiled text.
struct Unit
{
    SourcePointer source;
    std::vector<Value> slots;
    StatementList statements;
};

} // namespace mel
