// SPDX-License-Identifier: BSD-3-Clause
// Every identifier has a text, and every argument its place in it.
#include "hosts/messages/message_catalogue.h"
#include "hosts/messages/status_advice.h"

#include "any_error_identifiers.h"
#include "dataset_error_identifiers.h"
#include "error_identifiers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using namespace Ovard::gridio::netcdf;
namespace any = Ovard::gridio::any;
namespace dataset = Ovard::gridio::dataset;
using hosts::messages::messageText;
using Ovard::gridio::validate::argumentOutOfBounds;
using Ovard::gridio::validate::wrongNumberOfInputs;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct Occurrence {
    std::shared_ptr<msgcat::BaseMsgID> id;
    std::vector<std::string> argumentsInText; // in this order
};

template <class Id, class... Arguments>
Occurrence occurrence(std::vector<std::string> inText, Arguments... arguments)
{
    return {std::make_shared<Id>(arguments...), std::move(inText)};
}

std::vector<Occurrence> everyIdentifier()
{
    return {
        occurrence<wrongNumberOfInputs>({}),
        occurrence<argumentOutOfBounds>({}),
        occurrence<unrecognizedOperation>({"opne"}, "opne"),
        occurrence<libraryFailure>({"op-1", "code-2", "text-3"}, "op-1", "code-2", "text-3"),
        occurrence<librarydapFailure>({"op-1", "code-2", "text-3"}, "op-1", "code-2", "text-3"),
        occurrence<badScalarArgument>({"ncid", "numeric"}, "ncid", "numeric"),
        occurrence<argumentWasNotChar>({"file"}, "file"),
        occurrence<expectedLogicalType>({"deflate flag"}, "deflate flag"),
        occurrence<emptyVariableData>({}),
        occurrence<argumentIsEmpty>({"START"}, "START"),
        occurrence<argumentHasBadDatatype>({"STRIDE"}, "STRIDE"),
        occurrence<argumentIsEmptySet>({"MODE"}, "MODE"),
        occurrence<badModeDatatype>({}),
        occurrence<unrecognizedFileMode>({"FOO_BAR"}, "FOO_BAR"),
        occurrence<unrecognizedCharParameter>({"NC_FOO"}, "NC_FOO"),
        occurrence<unknownNetCDFFormat>({"77"}, 77L),
        occurrence<inqVarNcGlobal>({}),
        occurrence<invalidChunkParameter>({"72", "73"}, 72L, 73L),
        occurrence<unrecognizedChunkStorage>({}),
        occurrence<unrecognizedChunkingCode>({"72"}, 72L),
        occurrence<attemptedChunkingInquiryOnNetcdf3File>({}),
        occurrence<unrecognizedFletcher32Setting>({"-72"}, -72L),
        occurrence<attemptedChecksumInquiryOnNetcdf3File>({}),
        occurrence<unhandledFillDatatype>({"72"}, 72L),
        occurrence<postCreationFillValueDefinition>({}),
        occurrence<unhandledAttributeOperation>({"getAttDouble"}, "getAttDouble"),
        occurrence<dataSizeMismatch>({}),
        occurrence<countNotEqualToData>({"74", "73"}, 74L, 73L),
        occurrence<badIndexArgumentLength>({"COUNT", "temp", "73", "72"}, "COUNT", "temp", 73L,
                                           72L),
        occurrence<indexArgumentNotFinite>({}),
        occurrence<badRowDatatype>({"dimids"}, "dimids"),
        occurrence<rowLengthOutOfBounds>({"chunk dims", "1024"}, "chunk dims", 1024L),
        occurrence<closingFileHandle>({}),
        occurrence<any::badValueClass>({"field 2", "text"}, "field 2", "text"),
        occurrence<any::wrongNumberOfValues>({"element 4", "74", "73"}, "element 4", 74L, 73L),
        occurrence<any::valueDoesNotFit>({"0.5", "element 4", "short"}, "element 4", "0.5",
                                         "short"),
        occurrence<any::unknownLabel>({"foggy", "element 4", "sky", "clear, cloudy"}, "element 4",
                                      "foggy", "sky", "clear, cloudy"),
        occurrence<any::missingField>({"element 4", "depth", "obs"}, "element 4", "depth", "obs"),
        occurrence<any::surplusField>({"element 4", "depth", "obs"}, "element 4", "depth", "obs"),
        occurrence<any::textHoldsNul>({"element 4"}, "element 4"),
        occurrence<any::damagedType>({"obs"}, "obs"),
        occurrence<any::unalignedType>({"obs", "'a' at 0, size 8"}, "obs", "'a' at 0, size 8"),
        occurrence<any::foreignType>({"obs"}, "obs"),
        occurrence<any::unrecognizedWord>({"byte order", "middle", "big"}, "byte order", "middle",
                                          "big"),
        occurrence<dataset::unreadableTime>({"units", "text-2", "reason-3"}, "units", "text-2",
                                            "reason-3"),
        occurrence<dataset::unrepresentableTime>({"72", "value-2", "reason-3"}, 72L, "value-2",
                                                 "reason-3"),
        occurrence<dataset::valueOutOfRange>({"72", "value-2", "type-3", "range-4"}, 72L, "value-2",
                                             "type-3", "range-4"),
        occurrence<dataset::badPart>({"v", "difference-2"}, "v", "difference-2"),
        occurrence<dataset::badArgument>({"bins", "expected-2"}, "bins", "expected-2"),
    };
}

TEST(MessageCatalogue, HasATextForEveryIdentifierWithItsArgumentsInOrder)
{
    const std::vector<Occurrence> occurrences = everyIdentifier();
    EXPECT_EQ(occurrences.size(), 49u);
    for (const Occurrence& o : occurrences) {
        const std::string text = messageText(*o.id);
        SCOPED_TRACE(text);
        EXPECT_THAT(text, Not(HasSubstr(o.id->identifier())));
        EXPECT_THAT(text, Not(HasSubstr("{")));
        std::size_t from = 0;
        for (const std::string& argument : o.argumentsInText) {
            const std::size_t at = text.find(argument, from);
            ASSERT_NE(at, std::string::npos) << argument;
            from = at + argument.size();
        }
    }
}

TEST(MessageCatalogue, BeginsALibraryFailureWithOperationStatusAndTheLibrarysText)
{
    const std::string text = messageText(
        libraryFailure("getVaraDouble", "NC_EEDGE", "Start+count exceeds dimension bound"));
    EXPECT_THAT(text, StartsWith("getVaraDouble: NC_EEDGE: Start+count exceeds dimension bound\n"));
    EXPECT_THAT(text, HasSubstr("zero-based"));
}

TEST(MessageCatalogue, AddsNothingToAStatusWithoutAdvice)
{
    EXPECT_EQ(messageText(libraryFailure("sync", "-200", "Unknown Error")),
              "sync: -200: Unknown Error");
}

TEST(MessageCatalogue, AdvisesOnRemoteFailuresToo)
{
    EXPECT_THAT(messageText(librarydapFailure("open", "NC_ECURL", "text")),
                StartsWith("open: NC_ECURL: text\nThe remote server"));
}

TEST(MessageCatalogue, TakesBracesInArgumentsAsTheyAre)
{
    EXPECT_THAT(messageText(badScalarArgument("{2}", "{1}")), HasSubstr("\"{2}\" must be one {1}"));
    EXPECT_THAT(messageText(unrecognizedOperation("{")), HasSubstr("\"{\""));
}

struct unlisted : msgcat::BaseMsgID {
    explicit unlisted(std::vector<msgcat::MessageArgument> arguments)
        : BaseMsgID("other:unlisted", std::move(arguments))
    {
    }
};

TEST(MessageCatalogue, FallsBackOnTheIdentifierAndItsArguments)
{
    using msgcat::MessageText;
    EXPECT_EQ(messageText(unlisted({})), "other:unlisted");
    EXPECT_EQ(messageText(unlisted(
                  {MessageText(std::string("a")), -5L, MessageText(std::u16string(u"\u00E9"))})),
              "other:unlisted: a, -5, \xC3\xA9");
}

TEST(StatusAdvice, ExistsOnlyForKnownNames)
{
    for (const char* codeName : {"2", "13", "NC_EHDFERR", "NC_ENOTNC", "NC_EINVALCOORDS"})
        EXPECT_NE(hosts::messages::statusAdvice(codeName), nullptr) << codeName;
    for (const char* codeName : {"", "1", "NC_", "NC_EEDGE ", "nc_eedge"})
        EXPECT_EQ(hosts::messages::statusAdvice(codeName), nullptr) << codeName;
}

} // namespace
