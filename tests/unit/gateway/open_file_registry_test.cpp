// SPDX-License-Identifier: BSD-3-Clause
#include "open_file_registry.h"

#include "hosts/standalone/host.h"
#include "tests/library/failing_new.h"
#include "tests/library/library_stand_in.h"

#include <gmock/gmock.h>

#include <limits>
#include <new>
#include <vector>

namespace Ovard::gridio {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testsupport::Failing;
using testsupport::FailingNew;
using testsupport::Where;

class OpenFileRegistry : public testing::Test {
protected:
    OpenFileRegistry() { library.closeStatus.emplace(); } // these files do not exist

    standalone::Host host;
    testsupport::LibraryStandIn library;

    // Registers a file, and removes it at the end of the test in any case.
    void hold(int ncid)
    {
        held_.push_back(ncid);
        registerOpenFile(ncid);
    }

    void TearDown() override
    {
        for (const int ncid : held_)
            unregisterOpenFile(ncid);
    }

private:
    std::vector<int> held_;
};

TEST_F(OpenFileRegistry, WarnsNotAndClosesNothingWithNoFileOpen)
{
    closeRegisteredFiles();
    EXPECT_THAT(host.warnings(), IsEmpty());
    EXPECT_THAT(library.closed, IsEmpty());
}

TEST_F(OpenFileRegistry, WarnsOnceAndClosesThreeFilesInAscendingOrder)
{
    hold(0x30000);
    hold(0x10000);
    hold(0x20000);
    closeRegisteredFiles();

    ASSERT_EQ(host.warnings().size(), 1U);
    EXPECT_EQ(host.warnings()[0].identifier, "Ovard:gridio:netcdf:closingFileHandle");
    EXPECT_THAT(host.warnings()[0].arguments, IsEmpty());
    EXPECT_THAT(library.closed, ElementsAre(0x10000, 0x20000, 0x30000));
}

TEST_F(OpenFileRegistry, OrdersIdentifiersAsSignedNumbers)
{
    constexpr int highest = std::numeric_limits<int>::max();
    constexpr int lowest = std::numeric_limits<int>::min();
    for (const int ncid : {highest, 0, lowest, -1})
        hold(ncid);
    closeRegisteredFiles();
    EXPECT_THAT(library.closed, ElementsAre(lowest, -1, 0, highest));
}

TEST_F(OpenFileRegistry, HoldsAFileOnceHoweverOftenItIsRegistered)
{
    hold(0x10000);
    hold(0x10000);
    unregisterOpenFile(0x10000);
    closeRegisteredFiles();
    EXPECT_THAT(host.warnings(), IsEmpty());
    EXPECT_THAT(library.closed, IsEmpty());
}

TEST_F(OpenFileRegistry, TakesOutNothingForAFileThatItDoesNotHold)
{
    hold(0x10000);
    unregisterOpenFile(0x20000);
    unregisterOpenFile(0x10001); // a group of the same file
    closeRegisteredFiles();
    EXPECT_THAT(library.closed, ElementsAre(0x10000));
}

TEST_F(OpenFileRegistry, TellsTheFilesThatItHoldsFromOthers)
{
    EXPECT_FALSE(isRegisteredFile(0x10000));
    hold(0x10000);
    EXPECT_TRUE(isRegisteredFile(0x10000));
    EXPECT_FALSE(isRegisteredFile(0x10001));
    EXPECT_FALSE(isRegisteredFile(0x20000));
    unregisterOpenFile(0x10000);
    EXPECT_FALSE(isRegisteredFile(0x10000));
}

TEST_F(OpenFileRegistry, ClosesTheOthersAndRaisesNothingWhenTheLibraryFails)
{
    for (const int ncid : {0x10000, 0x20000, 0x30000})
        hold(ncid);
    library.closeStatus = {{0x10000, -33}, {0x20000, -101}};
    EXPECT_NO_THROW(closeRegisteredFiles());
    EXPECT_THAT(library.closed, ElementsAre(0x10000, 0x20000, 0x30000));
    EXPECT_EQ(host.warnings().size(), 1U);
}

TEST_F(OpenFileRegistry, DeliberatelyIsNotEmptiedByTheUnloadHandler)
{
    hold(0x10000);
    closeRegisteredFiles();
    closeRegisteredFiles();
    EXPECT_THAT(library.closed, ElementsAre(0x10000, 0x10000));
    EXPECT_EQ(host.warnings().size(), 2U);
}

TEST_F(OpenFileRegistry, ClosesTheFileWhenThereIsNoMemoryToRememberIt)
{
    {
        const FailingNew noMemory(1, Failing::once, Where::everywhere);
        EXPECT_THROW(registerOpenFile(0x10000), std::bad_alloc);
    }
    EXPECT_THAT(library.closed, ElementsAre(0x10000));

    closeRegisteredFiles();
    EXPECT_THAT(host.warnings(), IsEmpty());
}

} // namespace
} // namespace Ovard::gridio
