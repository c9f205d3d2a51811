// SPDX-License-Identifier: BSD-3-Clause
// Results that no file makes the library return: unknown codes, and absurd sizes.
#include "tests/faults/fault_test.h"

#include <functional>
#include <limits>

namespace faults {
namespace {

constexpr std::size_t mostBytes = std::numeric_limits<std::size_t>::max();

struct Answer {
    const char* operation;
    std::function<void(LibraryStandIn&)> inject;
    testing::Matcher<const Outcome&> expected;
};

class LibraryAnswers : public FaultTest {
protected:
    void expectOutcome(const Answer& answer)
    {
        SCOPED_TRACE(answer.operation);
        {
            const PreparedFile file(folder.path());
            const fuzz::Operation& operation = find(answer.operation);
            const std::vector<Value> arguments = argumentsThatSucceed(operation, file);
            LibraryStandIn library;
            answer.inject(library);
            EXPECT_THAT(host.attempt(operation.name, arguments), answer.expected);
        }
        expectHealth();
    }

    static const fuzz::Operation& find(const std::string& name)
    {
        for (const fuzz::Operation& operation : fuzz::operations())
            if (operation.name == name)
                return operation;
        throw std::logic_error("no operation " + name);
    }
};

MATCHER(failsForWantOfMemory, "") { return ranOutOfMemory(arg); }
MATCHER(fails, "") { return !arg.succeeded(); }

using testsupport::raises;

TEST_F(LibraryAnswers, AreRaisedWithTheirNumberForUnknownCodes)
{
    const auto format = [](int code) { return [=](LibraryStandIn& l) { l.format = code; }; };
    const auto storage = [](int code) { return [=](LibraryStandIn& l) { l.storage = code; }; };
    const auto checksum = [](int code) { return [=](LibraryStandIn& l) { l.checksum = code; }; };
    const auto type = [](int code) { return [=](LibraryStandIn& l) { l.externalType = code; }; };
    for (const long code : {5L, 0L, -1L, 77L}) {
        const int c = static_cast<int>(code);
        expectOutcome({"inqFormat", format(c), raises("unknownNetCDFFormat", {code})});
        expectOutcome(
            {"inqVarChunking", format(c), raises("attemptedChunkingInquiryOnNetcdf3File")});
        expectOutcome(
            {"inqVarFletcher32", format(c), raises("attemptedChecksumInquiryOnNetcdf3File")});
    }
    for (const long code : {2L, -1L, 3L, 99L}) {
        const int c = static_cast<int>(code);
        expectOutcome({"inqVarChunking", storage(c), raises("unrecognizedChunkingCode", {code})});
        expectOutcome(
            {"inqVarFletcher32", checksum(c), raises("unrecognizedFletcher32Setting", {code})});
    }
    for (const long code : {0L, 12L, 32L, -1L}) {
        const int c = static_cast<int>(code);
        expectOutcome({"inqVarFill", type(c), raises("unhandledFillDatatype", {code})});
        expectOutcome({"defVarFill", type(c), raises("unhandledFillDatatype", {code})});
    }
}

TEST_F(LibraryAnswers, RaiseOutOfMemoryForSizesBeyondMemory)
{
    const auto attribute = [](std::size_t length) {
        return [=](LibraryStandIn& l) { l.attributeLength = length; };
    };
    for (const std::size_t length :
         {mostBytes, mostBytes / 2, mostBytes / 4, std::size_t{1} << 60}) {
        expectOutcome({"getAttText", attribute(length), failsForWantOfMemory()});
        expectOutcome({"getAttDouble", attribute(length), failsForWantOfMemory()});
        expectOutcome({"getAttSchar", attribute(length), failsForWantOfMemory()});
    }
    const auto dimension = [](std::size_t length) {
        return [=](LibraryStandIn& l) { l.dimensionLength = length; };
    };
    for (const char* operation : {"getVarDouble", "putVarDouble", "getVarText"})
        expectOutcome({operation, dimension(mostBytes), raises("argumentOutOfBounds")});
    expectOutcome({"getVarDouble", dimension(std::size_t{1} << 30), failsForWantOfMemory()});
    expectOutcome({"getVarText", dimension(std::size_t{1} << 31), failsForWantOfMemory()});
    expectOutcome({"putVarDouble", dimension(std::size_t{1} << 30), raises("dataSizeMismatch")});
}

// Only an error is promised here: such counts of the library make no sense.
TEST_F(LibraryAnswers, MayBeCountsOutOfReason)
{
    for (const char* operation : {"inqDimIDs", "inqUnlimDims", "inqVarIDs", "inqGrps"})
        expectOutcome({operation, [](LibraryStandIn& l) { l.idCount = -1; }, fails()});
    expectOutcome(
        {"inqGrpNameFull", [](LibraryStandIn& l) { l.groupPathLength = mostBytes / 2; }, fails()});
    for (const char* operation : {"inqVar", "getVarDouble", "putVarDouble", "getVaraDouble",
                                  "putVaraText", "inqVarChunking", "renameVar"})
        expectOutcome({operation, [](LibraryStandIn& l) { l.rank = -1; }, fails()});
}

TEST_F(LibraryAnswers, MayBeMoreDimensionsThanTheLibraryCanAccess)
{
    const auto ranked = [](LibraryStandIn& l) { l.rank = 1025; };
    for (const char* operation : {"getVarDouble", "putVarDouble", "getVarText"})
        expectOutcome({operation, ranked, failsWithStatus(operation, NC_EMAXDIMS)});
}

} // namespace
} // namespace faults
