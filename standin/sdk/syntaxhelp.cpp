// SPDX-License-Identifier: MIT
#include "standin/sdk/syntaxhelp.h"

#include "standin/sdk/hostservices.h"
#include "standin/sdk/standinaccess.h"

#include <string>

namespace standin {

namespace {

using Syntax = StandinAccess::SyntaxData;

// How the kinds of arguments are called: `kind` where they belong to a flag, `word` in the
// synopsis.
struct TypeRow
{
    MSyntax::MArgType type;
    mel::ArgumentKind kind;
    const char *word;
};

const TypeRow types[] = {
    {MSyntax::kBoolean, mel::ArgumentKind::Boolean, "on|off"},
    {MSyntax::kLong, mel::ArgumentKind::Int, "Int"},
    {MSyntax::kUnsigned, mel::ArgumentKind::UnsignedInt, "UnsignedInt"},
    {MSyntax::kDouble, mel::ArgumentKind::Float, "Float"},
    {MSyntax::kDistance, mel::ArgumentKind::Length, "Length"},
    {MSyntax::kAngle, mel::ArgumentKind::Angle, "Angle"},
    {MSyntax::kTime, mel::ArgumentKind::Time, "Time"},
    {MSyntax::kSelectionItem, mel::ArgumentKind::Name, "Name"},
};
// Also what an unknown type is taken for.
const TypeRow text = {MSyntax::kString, mel::ArgumentKind::String, "String"};

const TypeRow &rowOf(MSyntax::MArgType type)
{
    for (const TypeRow &row : types) {
        if (row.type == type)
            return row;
    }
    return text;
}

mel::Flag flagOf(const Syntax::Flag &declared)
{
    mel::Flag flag;
    flag.shortName = declared.shortName;
    flag.longName = declared.longName;
    for (const MSyntax::MArgType type : declared.arguments)
        flag.arguments.push_back(rowOf(type).kind);
    flag.multiUse = declared.multiUse;
    flag.queryArgument = declared.queryArgument;
    return flag;
}

// "String" for one object, "String..." for several, in brackets when there need be none.
std::string objectWords(const Syntax &syntax)
{
    // kInvalidFormat, which is what a syntax starts with, takes no objects either.
    if (syntax.objectFormat <= MSyntax::kNone || syntax.maximumObjects == 0)
        return {};
    std::string words = syntax.objectFormat == MSyntax::kSelectionList ? "Name" : "String";
    if (syntax.maximumObjects > 1)
        words += "...";
    return syntax.minimumObjects == 0 ? "[" + words + "]" : words;
}

std::string synopsis(const Syntax &syntax)
{
    std::string words;
    for (const MSyntax::MArgType type : syntax.arguments)
        words += std::string(words.empty() ? "" : " ") + rowOf(type).word;
    const std::string objects = objectWords(syntax);
    return words + (words.empty() || objects.empty() ? "" : " ") + objects;
}

} // namespace

void describe(const MSyntax &syntax, PluginCommand &command)
{
    const Syntax &data = StandinAccess::data(syntax);
    for (const Syntax::Flag &flag : data.flags)
        command.flags.push_back(flagOf(flag));
    command.queryable = data.query;
    command.editable = data.edit;
    command.objectSynopsis = synopsis(data);
}

} // namespace standin
