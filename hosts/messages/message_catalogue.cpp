// SPDX-License-Identifier: BSD-3-Clause
// One text per identifier, and how the arguments get into it.
#include "hosts/messages/message_catalogue.h"

#include "hosts/messages/argument_findings.h"
#include "hosts/messages/call_messages.h"
#include "hosts/messages/library_failure.h"
#include "hosts/messages/visible_text.h"

#include "vx/text.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <optional>
#include <string_view>
#include <vector>

namespace hosts::messages {

namespace {

// clang-format off
constexpr MessageTemplate catalogue[] = {
    {"Ovard:gridio:validate:wrongNumberOfInputs",
     "The number of arguments after the operation's name is not the one that this operation takes: gridio_help(NAME) "
     "lists them."},
    {"Ovard:gridio:validate:argumentOutOfBounds",
     "The value of an argument is too large, too small or not a number, and does not fit the integer or float type "
     "that the operation takes. Positions, counts and lengths are never negative."},

    {"Ovard:gridio:netcdf:unrecognizedOperation",
     "There is no operation \"{1}\". The first argument names one, exactly as documented, capital letters included: "
     "\"open\", \"inqVarID\", \"getVarDouble\", ... gridio_help() lists all, and gridio_help(NAME) finds the "
     "nearest names."},
    {"Ovard:gridio:netcdf:libraryFailure", "{1}: {2}: {3}"},
    {"Ovard:gridio:netcdf:librarydapFailure", "{1}: {2}: {3}"},
    {"Ovard:gridio:netcdf:badScalarArgument",
     "The argument \"{1}\" must be one {2} value: a {2} scalar, neither empty nor NaN nor infinite. Files, groups, "
     "dimensions and variables are given by the number that \"open\", \"inqVarID\" or the like returned, and types "
     "by that of a constant, such as gridio(\"parameter\", \"NC_DOUBLE\")."},
    {"Ovard:gridio:netcdf:argumentWasNotChar",
     "The argument \"{1}\" must be text: a char array."},
    {"Ovard:gridio:netcdf:expectedLogicalType",
     "The argument \"{1}\" must be a logical scalar: true or false. The numbers 1 and 0 are not accepted."},
    {"Ovard:gridio:netcdf:emptyVariableData",
     "The values to write are empty: give as many as the variable, or the part of it, holds."},
    {"Ovard:gridio:netcdf:argumentIsEmpty",
     "{1} is empty: give one element for each dimension of the variable. A variable without dimensions is read and "
     "written as a whole (\"getVarDouble\", \"putVarDouble\", ...)."},
    {"Ovard:gridio:netcdf:argumentHasBadDatatype",
     "{1} must be numeric: give a vector with one element for each dimension of the variable."},
    {"Ovard:gridio:netcdf:argumentIsEmptySet",
     "{1} is empty: give a word such as \"write\", or a sum of constants as a double or int32 number."},
    {"Ovard:gridio:netcdf:badModeDatatype",
     "The mode must be text, such as \"write\", or a number of class double or int32."},
    {"Ovard:gridio:netcdf:unrecognizedFileMode",
     "\"{1}\" is not a file mode. The words are \"clobber\", \"noclobber\", \"share\", \"write\", \"nowrite\", "
     "\"netcdf4\", \"64bit_offset\" and \"classic_model\", also with \"nc_\" before them; to combine several, pass "
     "the sum of their constants as a number."},
    {"Ovard:gridio:netcdf:unrecognizedCharParameter",
     "There is no constant \"{1}\": gridio(\"getConstantNames\") lists them."},
    {"Ovard:gridio:netcdf:unknownNetCDFFormat",
     "The file's format has the code {1}, which has no name here; the codes 1 to 4 have one."},
    {"Ovard:gridio:netcdf:inqVarNcGlobal",
     "\"inqVar\" was given NC_GLOBAL (-1), which stands for the file itself, not for a variable: use \"inq\" and "
     "\"inqAtt\" for the file and its attributes."},
    {"Ovard:gridio:netcdf:invalidChunkParameter",
     "{1} chunk sizes were given, and the variable has {2} dimensions: give one size for each, fastest dimension "
     "first."},
    {"Ovard:gridio:netcdf:unrecognizedChunkStorage",
     "The storage of \"defVarChunking\" must be NC_CHUNKED (0) or NC_CONTIGUOUS (1)."},
    {"Ovard:gridio:netcdf:unrecognizedChunkingCode",
     "The variable's storage has the code {1}, which is neither chunked (0) nor contiguous (1): its values can "
     "be read, but its storage cannot be described."},
    {"Ovard:gridio:netcdf:attemptedChunkingInquiryOnNetcdf3File",
     "\"inqVarChunking\" is for netCDF-4 files, and this is not one: its variables are never chunked."},
    {"Ovard:gridio:netcdf:unrecognizedFletcher32Setting",
     "The variable's checksum setting has the code {1}, which is neither none (0) nor Fletcher-32 (1)."},
    {"Ovard:gridio:netcdf:attemptedChecksumInquiryOnNetcdf3File",
     "\"inqVarFletcher32\" is for netCDF-4 files, and this is not one: its variables never have a checksum."},
    {"Ovard:gridio:netcdf:unhandledFillDatatype",
     "The variable's type has the number {1}, for which there is no fill value here: those that have one are the "
     "numeric types and char, 1 to 11."},
    {"Ovard:gridio:netcdf:postCreationFillValueDefinition",
     "In a netCDF-4 file the fill value of a variable cannot be written as an attribute: set it with \"defVarFill\", right "
     "after \"defVar\"."},
    {"Ovard:gridio:netcdf:unhandledAttributeOperation",
     "\"{1}\" does not read attributes of a known type."},
    {"Ovard:gridio:netcdf:dataSizeMismatch",
     "The values do not fit the operation: they are too few or too many, or of another class. Give as many as the "
     "variable, or the part of it, holds, and of the class that the operation's name asks for: double for "
     "\"Double\", single for \"Float\", int32 for \"Int\", char for \"Text\", ...; convert them first if need be. "
     "To add records along an unlimited dimension, write with START and COUNT (\"putVaraDouble\", ...)."},
    {"Ovard:gridio:netcdf:countNotEqualToData",
     "COUNT asks for {1} values, and {2} were given: the product of its elements must be their number."},
    {"Ovard:gridio:netcdf:badIndexArgumentLength",
     "{1} of variable \"{2}\" must have one element for each dimension: {3} needed, {4} given. A variable without "
     "dimensions is read and written as a whole (\"getVarDouble\", \"putVarDouble\", ...)."},
    {"Ovard:gridio:netcdf:indexArgumentNotFinite",
     "START, COUNT or STRIDE holds a NaN or an infinite value: give whole numbers."},
    {"Ovard:gridio:netcdf:badRowDatatype",
     "The argument \"{1}\" must be a vector of class double: convert numbers of another class with double(...)."},
    {"Ovard:gridio:netcdf:rowLengthOutOfBounds",
     "The argument \"{1}\" has too many elements: at most {2} are allowed."},
    {"Ovard:gridio:netcdf:closingFileHandle",
     "Files were still open and have been closed. Close each when it is no longer needed, with "
     "gridio(\"close\", ncid); gridio_open_files() lists those that are open."},

    // Values of any type. Elements and fields are counted from 1.
    {"Ovard:gridio:any:badValueClass", "Values of another class are needed: {1} must be {2}."},
    {"Ovard:gridio:any:wrongNumberOfValues", "Wrong number of values ({1}): {2} needed, {3} given."},
    {"Ovard:gridio:any:valueDoesNotFit",
     "The value {2} ({1}) cannot be stored exactly in the type \"{3}\": convert the values first, with single(...), "
     "round(...) or the like. Elements are counted from 1."},
    {"Ovard:gridio:any:unknownLabel",
     "\"{2}\" ({1}) is not a member of the enumeration \"{3}\". Its members are: {4}."},
    {"Ovard:gridio:any:missingField",
     "The structure ({1}) lacks the field \"{2}\", which the compound type \"{3}\" has."},
    {"Ovard:gridio:any:surplusField",
     "The structure ({1}) has a field \"{2}\", which the compound type \"{3}\" does not have."},
    {"Ovard:gridio:any:textHoldsNul",
     "The text ({1}) holds a NUL character, where a string would end: remove it, or store the text as characters."},
    {"Ovard:gridio:any:damagedType",
     "The description of the type \"{1}\" contradicts itself or is incomplete: the file is damaged, or a compound type "
     "has no fields yet."},
    {"Ovard:gridio:any:unalignedType",
     "The fields of the compound type \"{1}\" are not laid out as in a C structure: the library would misread them. "
     "Define them like this: {2}."},
    {"Ovard:gridio:any:foreignType",
     "The library would write values of the type \"{1}\" incorrectly. Either the file stores them packed, with a fixed "
     "length or in another byte order: copy them to a new file, and write there. Or the type has arrays of compound "
     "types with strings or vlens inside: such values can be written to a variable, and one of them to an attribute or into a vlen."},
    {"Ovard:gridio:any:unrecognizedWord",
     "The argument \"{1}\" takes one of these words, and not \"{2}\": {3}."},

    // Datasets.
    {"Ovard:gridio:dataset:unreadableTime", "The {1} {2} cannot be used: {3}."},
    {"Ovard:gridio:dataset:unrepresentableTime", "Time {1} ({2}) cannot be converted: {3}."},
    {"Ovard:gridio:dataset:valueOutOfRange",
     "Value {1} ({2}) cannot be stored as {3}: the values that can go from {4}. NaN needs a fill value."},
    {"Ovard:gridio:dataset:badPart", "The variable \"{1}\" is not as it was when the files were joined: {2}."},
    {"Ovard:gridio:dataset:badArgument", "The argument \"{1}\" must be {2}."},
};
// clang-format on

struct AsText : boost::static_visitor<std::string> {
    std::string operator()(long number) const { return std::to_string(number); }
    std::string operator()(const msgcat::MessageText& text) const
    {
        if (const auto* units = boost::get<std::u16string>(&text))
            return fnd::filesystem::codecvt_ustring_to_narrow_string()(*units);
        return boost::get<std::string>(text);
    }
};

// A script may pass a text of any length as a name.
std::string shortened(std::string text)
{
    constexpr std::size_t mostBytes = 100000;
    if (text.size() > mostBytes)
        text.replace(mostBytes, std::string::npos, "...");
    return text;
}

std::vector<std::string> argumentTexts(const msgcat::BaseMsgID& id)
{
    std::vector<std::string> texts;
    for (const msgcat::MessageArgument& argument : id.arguments())
        texts.push_back(visible(shortened(boost::apply_visitor(AsText(), argument))));
    return texts;
}

std::string textWithoutRow(std::string text, const std::vector<std::string>& arguments)
{
    const char* separator = ": ";
    for (const std::string& argument : arguments) {
        text += separator + argument;
        separator = ", ";
    }
    return text;
}

bool isLibraryFailure(std::string_view identifier)
{
    return identifier == "Ovard:gridio:netcdf:libraryFailure" ||
           identifier == "Ovard:gridio:netcdf:librarydapFailure";
}

// An inquiry about the call must not prevent the message: if it fails, its finding is left out.
template <class Look> auto lookedUp(const Look& look) -> decltype(look())
{
    try {
        return look();
    } catch (const std::exception&) {
        return {};
    }
}

std::string generalText(std::string_view identifier, const std::vector<std::string>& arguments)
{
    const auto row =
        std::find_if(std::begin(catalogue), std::end(catalogue),
                     [&](const MessageTemplate& m) { return m.identifier == identifier; });
    return row == std::end(catalogue) ? textWithoutRow(std::string(identifier), arguments)
                                      : fillPlaces(row->text, arguments);
}

// The lines below the message; the message itself stays unchanged.
std::string linesBelow(std::string_view identifier, const std::vector<std::string>& arguments,
                       const FailedCall* call)
{
    if (isLibraryFailure(identifier) && arguments.size() > 1)
        return libraryFailureLines(arguments[1], call);
    return call == nullptr ? "" : argumentFinding(identifier, *call);
}

} // namespace

std::vector<MessageTemplate> generalTemplates()
{
    return {std::begin(catalogue), std::end(catalogue)};
}

std::string messageText(const msgcat::BaseMsgID& id, const CallContext* context)
{
    const std::string_view identifier = id.identifier();
    const std::vector<std::string> arguments = argumentTexts(id);
    const auto call = lookedUp(
        [&] { return context == nullptr ? std::nullopt : std::optional<FailedCall>(*context); });
    const FailedCall* known = call ? &*call : nullptr;
    const std::optional<std::string> inCall = lookedUp([&] {
        return known == nullptr ? std::nullopt : callMessage(identifier, arguments, *known);
    });

    std::string text = inCall ? *inCall : generalText(identifier, arguments);
    std::string below = lookedUp([&] { return linesBelow(identifier, arguments, known); });
    if (below.empty())
        below = lookedUp([&] { return linesBelow(identifier, arguments, nullptr); });
    if (!below.empty())
        text.append("\n").append(below);
    return text;
}

} // namespace hosts::messages
