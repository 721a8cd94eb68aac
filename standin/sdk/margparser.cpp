// SPDX-License-Identifier: MIT
#include <maya/MArgParser.h>

#include "standin/sdk/standinaccess.h"

#include <maya/MStringArray.h>

#include <cctype>
#include <map>
#include <set>
#include <string>
#include <vector>

using standin::setStatus;

STANDIN_API_OPEN

// What the constructor reads, once; the public functions only look things up.
struct MArgParser::Data
{
    // A copy of the syntax, so that the parser may outlive it.
    explicit Data(const MSyntax &declared) : syntax(StandinAccess::data(declared)) {}

    bool readWords(const MArgList &words);
    bool asksQuery(const MString &word) const;
    bool asksEdit(const MString &word) const;
    // Each returns false when the words do not fit.
    bool readFlag(const MArgList &words, unsigned int &position);
    bool takesArguments(const StandinAccess::SyntaxData::Flag &flag, const MArgList &words,
                        unsigned int position) const;
    // Whether as many objects stand there as the syntax wants, of the declared types.
    bool countsFit() const;
    // The uses of a flag by either name; null for a flag that the syntax does not have.
    const std::vector<MArgList> *usesOf(const char *flag);

    StandinAccess::SyntaxData syntax;
    bool query = false;
    bool edit = false;
    std::map<std::string, std::vector<MArgList>> uses; // by long name
    MArgList objects;                                  // command arguments first
};

namespace {

// "-3" is a number, "-x" a flag.
bool isFlag(const MString &word)
{
    const char *text = word.asUTF8();
    return text[0] == '-' && std::isalpha(static_cast<unsigned char>(text[1]));
}

bool isOneOf(const MString &word, const char *shortName, const char *longName)
{
    return word == shortName || word == longName;
}

// Tried by reading: a word is of a type when it reads as one.
bool isOfType(const MArgList &words, unsigned int index, MSyntax::MArgType type)
{
    MStatus status;
    switch (type) {
    case MSyntax::kBoolean:
        words.asBool(index, &status);
        break;
    case MSyntax::kLong:
    case MSyntax::kUnsigned:
        words.asInt(index, &status);
        break;
    case MSyntax::kDouble:
    case MSyntax::kDistance:
    case MSyntax::kAngle:
    case MSyntax::kTime:
        words.asDouble(index, &status);
        break;
    default:
        words.asString(index, &status);
        break;
    }
    return !status.error();
}

} // namespace

// Stops at the first word that does not fit; what was read before it can still be asked for.
bool MArgParser::Data::readWords(const MArgList &words)
{
    // The mode decides how many arguments flags take, wherever it stands.
    for (unsigned int i = 0; i < words.length(); ++i) {
        query = query || asksQuery(words.asString(i));
        edit = edit || asksEdit(words.asString(i));
    }
    for (unsigned int i = 0; i < words.length(); ++i) {
        const MString word = words.asString(i);
        // Objects may stand between flags and before them.
        if (!isFlag(word))
            objects.addArg(word);
        else if (!readFlag(words, i) && !asksQuery(word) && !asksEdit(word))
            return false;
    }
    return countsFit();
}

bool MArgParser::Data::asksQuery(const MString &word) const
{
    return syntax.query && isOneOf(word, "-q", "-query");
}

bool MArgParser::Data::asksEdit(const MString &word) const
{
    return syntax.edit && isOneOf(word, "-e", "-edit");
}

// Reads the flag at the position and its arguments; the position ends at the last of them.
bool MArgParser::Data::readFlag(const MArgList &words, unsigned int &position)
{
    const StandinAccess::SyntaxData::Flag *flag = syntax.find(words.asString(position).asUTF8());
    if (!flag)
        return false;
    MArgList arguments;
    if (takesArguments(*flag, words, position + 1)) {
        for (MSyntax::MArgType type : flag->arguments) {
            if (!isOfType(words, ++position, type))
                return false;
            arguments.addArg(words.asString(position));
        }
    }
    // By the long name, whichever was written: both name the same flag.
    uses[flag->longName].push_back(arguments);
    return true;
}

// Whether the words from the position on are the flag's. A queried flag names what is asked for;
// an argument follows only where the flag says so.
bool MArgParser::Data::takesArguments(const StandinAccess::SyntaxData::Flag &flag,
                                      const MArgList &words, unsigned int position) const
{
    if (!query || flag.queryArgument == mel::QueryArgument::Mandatory)
        return true;
    return flag.queryArgument == mel::QueryArgument::Optional && position < words.length() &&
           !isFlag(words.asString(position));
}

bool MArgParser::Data::countsFit() const
{
    const size_t count = objects.length();
    const size_t arguments = syntax.arguments.size();
    // Queries and edits are about something that exists, so they may leave the arguments out.
    if (count < arguments && !query && !edit)
        return false;
    for (unsigned int i = 0; i < arguments && i < count; ++i) {
        if (!isOfType(objects, i, syntax.arguments[i]))
            return false;
    }
    if (syntax.objectFormat <= MSyntax::kNone)
        return count <= arguments;
    return count >= arguments + syntax.minimumObjects && count - arguments <= syntax.maximumObjects;
}

const std::vector<MArgList> *MArgParser::Data::usesOf(const char *flag)
{
    // Known but not used is another answer than not known.
    static const std::vector<MArgList> none;
    const StandinAccess::SyntaxData::Flag *known = flag ? syntax.find(flag) : nullptr;
    if (!known)
        return nullptr;
    const auto found = uses.find(known->longName);
    return found == uses.end() ? &none : &found->second;
}

MArgParser::MArgParser(const MSyntax &syntax, const MArgList &argList, MStatus *ReturnStatus)
    : m_data(std::make_unique<Data>(syntax))
{
    setStatus(ReturnStatus, m_data->readWords(argList) ? MS::kSuccess : MS::kFailure);
}

MArgParser::~MArgParser() = default;

bool MArgParser::isEdit(MStatus *ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return m_data->edit;
}

bool MArgParser::isQuery(MStatus *ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return m_data->query;
}

bool MArgParser::isFlagSet(const char *flag, MStatus *ReturnStatus) const
{
    setStatus(ReturnStatus, m_data->usesOf(flag) ? MS::kSuccess : MS::kInvalidParameter);
    return numberOfFlagUses(flag) > 0;
}

unsigned int MArgParser::numberOfFlagsUsed() const
{
    return static_cast<unsigned int>(m_data->uses.size());
}

unsigned int MArgParser::numberOfFlagUses(const char *flag) const
{
    const std::vector<MArgList> *uses = m_data->usesOf(flag);
    return uses ? static_cast<unsigned int>(uses->size()) : 0;
}

MStatus MArgParser::getFlagArgumentList(const char *flag, unsigned int use,
                                        MArgList &arguments) const
{
    if (use >= numberOfFlagUses(flag))
        return MS::kInvalidParameter;
    arguments = (*m_data->usesOf(flag))[use];
    return MS::kSuccess;
}

MStatus MArgParser::getObjects(MStringArray &objects) const
{
    objects.clear();
    // The declared arguments come first; what is left are the objects.
    for (unsigned int i = m_data->syntax.arguments.size(); i < m_data->objects.length(); ++i)
        objects.append(m_data->objects.asString(i));
    return MS::kSuccess;
}

// The same four types again and again: written once here, for reading a flag's argument and a
// command's, and for the forms that return the value.
#define STANDIN_ARGUMENT(Type, Name)                                                               \
    MStatus MArgParser::getFlagArgument(const char *flag, unsigned int index, Type &value) const   \
    {                                                                                              \
        MArgList arguments;                                                                        \
        const unsigned int uses = numberOfFlagUses(flag);                                          \
        const MStatus status = getFlagArgumentList(flag, uses - 1, arguments);                     \
        return status.error() ? status : arguments.get(index, value);                              \
    }                                                                                              \
    Type MArgParser::flagArgument##Name(const char *flag, unsigned int index,                      \
                                        MStatus *ReturnStatus) const                               \
    {                                                                                              \
        Type value = Type();                                                                       \
        setStatus(ReturnStatus, getFlagArgument(flag, index, value).statusCode());                 \
        return value;                                                                              \
    }                                                                                              \
    MStatus MArgParser::getCommandArgument(unsigned int index, Type &value) const                  \
    {                                                                                              \
        const bool known = index < m_data->syntax.arguments.size();                                \
        return known ? m_data->objects.get(index, value) : MStatus(MS::kInvalidParameter);         \
    }                                                                                              \
    Type MArgParser::commandArgument##Name(unsigned int index, MStatus *ReturnStatus) const        \
    {                                                                                              \
        Type value = Type();                                                                       \
        setStatus(ReturnStatus, getCommandArgument(index, value).statusCode());                    \
        return value;                                                                              \
    }

STANDIN_ARGUMENT(bool, Bool)
STANDIN_ARGUMENT(int, Int)
STANDIN_ARGUMENT(double, Double)
STANDIN_ARGUMENT(MString, String)

STANDIN_API_CLOSE
