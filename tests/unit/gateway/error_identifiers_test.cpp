// SPDX-License-Identifier: BSD-3-Clause
#include "error_identifiers.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

namespace Ovard::gridio {
namespace {

namespace id = netcdf;
using Text = std::string;
using Argument = std::variant<Text, long>;

struct Case {
    std::shared_ptr<msgcat::BaseMsgID> id;
    std::string identifier;
    std::vector<Argument> arguments;
};

// Constructible from arguments of exactly these kinds, in this order.
template <class Id, class... Arguments>
Case make(const std::string& identifier, const Arguments&... arguments)
{
    static_assert(std::is_constructible_v<Id, Arguments...>);
    static_assert(std::is_base_of_v<msgcat::BaseMsgID, Id>);
    return {std::make_shared<Id>(arguments...), "Ovard:gridio:" + identifier, {arguments...}};
}

// Written independently: every kind of failure, its identifier and the kinds of its arguments.
std::vector<Case> catalogue()
{
    const Text a = "first";
    const Text b = "second";
    const Text c = "third";
    const long one = -9223372036854775807L - 1;
    const long two = 9223372036854775807L;
    return {
        make<validate::wrongNumberOfInputs>("validate:wrongNumberOfInputs"),
        make<validate::argumentOutOfBounds>("validate:argumentOutOfBounds"),
        make<id::unrecognizedOperation>("netcdf:unrecognizedOperation", a),
        make<id::libraryFailure>("netcdf:libraryFailure", a, b, c),
        make<id::librarydapFailure>("netcdf:librarydapFailure", a, b, c),
        make<id::badScalarArgument>("netcdf:badScalarArgument", a, b),
        make<id::argumentWasNotChar>("netcdf:argumentWasNotChar", a),
        make<id::expectedLogicalType>("netcdf:expectedLogicalType", a),
        make<id::emptyVariableData>("netcdf:emptyVariableData"),
        make<id::argumentIsEmpty>("netcdf:argumentIsEmpty", a),
        make<id::argumentHasBadDatatype>("netcdf:argumentHasBadDatatype", a),
        make<id::argumentIsEmptySet>("netcdf:argumentIsEmptySet", a),
        make<id::badModeDatatype>("netcdf:badModeDatatype"),
        make<id::unrecognizedFileMode>("netcdf:unrecognizedFileMode", a),
        make<id::unrecognizedCharParameter>("netcdf:unrecognizedCharParameter", a),
        make<id::unknownNetCDFFormat>("netcdf:unknownNetCDFFormat", one),
        make<id::inqVarNcGlobal>("netcdf:inqVarNcGlobal"),
        make<id::invalidChunkParameter>("netcdf:invalidChunkParameter", one, two),
        make<id::unrecognizedChunkStorage>("netcdf:unrecognizedChunkStorage"),
        make<id::unrecognizedChunkingCode>("netcdf:unrecognizedChunkingCode", one),
        make<id::attemptedChunkingInquiryOnNetcdf3File>(
            "netcdf:attemptedChunkingInquiryOnNetcdf3File"),
        make<id::unrecognizedFletcher32Setting>("netcdf:unrecognizedFletcher32Setting", one),
        make<id::attemptedChecksumInquiryOnNetcdf3File>(
            "netcdf:attemptedChecksumInquiryOnNetcdf3File"),
        make<id::unhandledFillDatatype>("netcdf:unhandledFillDatatype", one),
        make<id::postCreationFillValueDefinition>("netcdf:postCreationFillValueDefinition"),
        make<id::unhandledAttributeOperation>("netcdf:unhandledAttributeOperation", a),
        make<id::dataSizeMismatch>("netcdf:dataSizeMismatch"),
        make<id::countNotEqualToData>("netcdf:countNotEqualToData", one, two),
        make<id::badIndexArgumentLength>("netcdf:badIndexArgumentLength", a, b, one, two),
        make<id::indexArgumentNotFinite>("netcdf:indexArgumentNotFinite"),
        make<id::badRowDatatype>("netcdf:badRowDatatype", a),
        make<id::rowLengthOutOfBounds>("netcdf:rowLengthOutOfBounds", a, one),
        make<id::closingFileHandle>("netcdf:closingFileHandle"),
    };
}

TEST(ErrorIdentifiers, BearTheirClassNamesAndTheirArgumentsInOrder)
{
    const std::vector<Case> cases = catalogue();
    EXPECT_EQ(cases.size(), 33U);
    for (const Case& expected : cases) {
        EXPECT_EQ(expected.id->identifier(), expected.identifier);
        const auto& actual = expected.id->arguments();
        ASSERT_EQ(actual.size(), expected.arguments.size()) << expected.identifier;
        for (std::size_t i = 0; i < actual.size(); ++i) {
            if (const auto* number = std::get_if<long>(&expected.arguments[i])) {
                EXPECT_EQ(boost::get<long>(actual[i]), *number) << expected.identifier;
                continue;
            }
            const auto& text = boost::get<msgcat::MessageText>(actual[i]); // always narrow
            EXPECT_EQ(boost::get<std::string>(text), std::get<Text>(expected.arguments[i]))
                << expected.identifier;
        }
    }
}

} // namespace
} // namespace Ovard::gridio
