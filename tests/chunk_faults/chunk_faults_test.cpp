// SPDX-License-Identifier: BSD-3-Clause
// Each call of HDF5 and each allocation of a read and of a write fails once: the outcome is right,
// or an error, and the file stays usable.
#include "chunks/chunk_reads.h"
#include "chunks/chunk_writes.h"
#include "chunks/thread_count.h"
#include "check_status.h"
#include "data/elements/shapes.h"
#include "tests/chunk_faults/failing_calls.h"
#include "tests/support/chunk_filters.h"
#include "tests/support/chunked_file.h"
#include "tests/support/library_file.h"
#include "tests/support/library_failure.h"
#include "tests/support/module_test.h"

#include <hdf5.h>

#include <algorithm>
#include <numeric>
#include <set>

namespace faults {
namespace {

using namespace Ovard::gridio;
using testsupport::blockAt;
using testsupport::ChunkedVariable;
using testsupport::chunkEntry;
using testsupport::LibraryFile;
using testsupport::require;

constexpr std::size_t mostCalls = 5000;

class ChunkFaults : public testsupport::ModuleTest {
protected:
    void TearDown() override
    {
        setThreadCount(0);
        ModuleTest::TearDown();
    }

    std::string path() const { return folder.file("v.nc"); }
    std::size_t size() const { return testsupport::countOf(variable.lengths); }
    Block whole() const { return blockAt({0, 0, 0}, variable.lengths); }

    std::vector<int> upTo(std::size_t count, int first) const
    {
        std::vector<int> values(count);
        std::iota(values.begin(), values.end(), first);
        return values;
    }

    // The values, or the error.
    standalone::Outcome read(const LibraryFile& file, std::vector<int>& values) const
    {
        return testsupport::outcomeOf([&] {
            Variable opened(file.ncid(), 0, &chunkEntry);
            if (!readChunked(opened, whole(), {values.data(), nullptr}, Reads::wherePossible))
                readInSlabs(opened, whole(), {values.data(), nullptr});
            return true;
        });
    }

    standalone::Outcome write(const LibraryFile& file, const std::vector<int>& values) const
    {
        return testsupport::outcomeOf([&] {
            Variable opened(file.ncid(), 0, &chunkEntry);
            const ElementType& element = *findExternalType(NC_INT);
            if (!writeChunked(opened, whole(), values.data(), Writes::wherePossible))
                checkStatus(writeBlock(opened, element, whole(), values.data()), &chunkEntry);
            return true;
        });
    }

    static void expectAnError(const standalone::Outcome& outcome, Failing what)
    {
        ASSERT_TRUE(outcome.raised);
        if (what == Failing::hdf5)
            EXPECT_THAT(outcome, testing::AnyOf(
                                     failsWith("chunked", NC_EHDFERR),
                                     testsupport::failsInLibrary("chunked", "-136", NC_ENOFILTER)));
        else
            EXPECT_EQ(outcome.raised->name(), "outOfMemory") << outcome;
    }

    // The same, and what must be true of an error. False if it was raised.
    template <class Work> static bool succeeds(Failing what, std::size_t n, Work work)
    {
        standalone::Outcome outcome;
        {
            const FailingCall failing(what, n);
            outcome = work();
        }
        if (outcome.raised)
            expectAnError(outcome, what);
        return !outcome.raised;
    }

    static std::string failure(std::size_t n)
    {
        return "call " + std::to_string(n) + ", " + FailingCall::name();
    }

    // attempt (n) makes the n-th call fail and returns whether there was one.
    template <class Attempt> void forEachCall(Attempt attempt)
    {
        for (const std::size_t threads : {1U, 3U}) {
            setThreadCount(threads);
            std::size_t n = 1;
            while (n < mostCalls && attempt(n) && !HasFatalFailure())
                ++n;
            EXPECT_GT(n, 20U);
            EXPECT_LT(n, mostCalls);
        }
    }

    void failEachOfRead(Failing what)
    {
        const std::vector<int> expected = upTo(size(), 0);
        forEachCall([&](std::size_t n) {
            LibraryFile file = LibraryFile::open(path());
            std::vector<int> values(size(), -1);
            const long before = liveBlocks();
            if (succeeds(what, n, [&] { return read(file, values); })) {
                EXPECT_EQ(values == expected, true) << failure(n);
            }
            EXPECT_LE(liveBlocks(), before + warmth_) << failure(n);
            warmth_ = 0;
            const bool hasFailed = FailingCall::hasFailed();
            EXPECT_FALSE(read(file, values).raised) << failure(n);
            EXPECT_EQ(values == expected, true) << "afterwards, " << failure(n);
            expectUnheld(file);
            return hasFailed;
        });
    }

    void failEachOfWrite(Failing what)
    {
        forEachCall([&](std::size_t n) {
            testsupport::makeChunked(path(), variable, false);
            LibraryFile file = LibraryFile::open(path(), NC_WRITE);
            const std::vector<int> values = upTo(size(), static_cast<int>(n));
            if (!succeeds(what, n, [&] { return write(file, values); })) {
                EXPECT_FALSE(write(file, values).raised) << failure(n);
            }
            const bool hasFailed = FailingCall::hasFailed();
            expectUnheld(file);
            const LibraryFile again = LibraryFile::open(path());
            std::vector<int> found(size());
            require(nc_get_var_int(again.ncid(), 0, found.data()));
            EXPECT_EQ(found == values, true) << failure(n);
            return hasFailed;
        });
    }

    // No identifier of ours keeps the file open in HDF5.
    static void expectUnheld(LibraryFile& file)
    {
        file.close();
        EXPECT_EQ(H5Fget_obj_count(static_cast<hid_t>(H5F_OBJ_ALL), H5F_OBJ_ALL), 0);
    }

    ChunkedVariable variable;
    long warmth_ = 1000; // what is made only once
};

TEST_F(ChunkFaults, OfHdf5InReads)
{
    testsupport::makeChunked(path(), variable);
    failEachOfRead(Failing::hdf5);
}

TEST_F(ChunkFaults, OfMemoryInReads)
{
    testsupport::makeChunked(path(), variable);
    failEachOfRead(Failing::news);
}

TEST_F(ChunkFaults, OfHdf5InWrites)
{
    variable.isUnlimited = true;
    failEachOfWrite(Failing::hdf5);
}

TEST_F(ChunkFaults, OfMemoryInWrites)
{
    variable.isUnlimited = true;
    failEachOfWrite(Failing::news);
}

// What the library cannot read, for want of the filter, is an error when HDF5 fails.
TEST_F(ChunkFaults, OfHdf5InReadsThatTheLibraryCannotDo)
{
    const std::vector<unsigned> codecs = testsupport::testCodecs();
    const auto id =
        std::find_if(codecs.begin(), codecs.end(), [](unsigned codec) { return codec > 300; });
    ASSERT_NE(id, codecs.end());
    testsupport::makeFiltered(path(), variable, {testsupport::filterFor(*id, 4)});
    failEachOfRead(Failing::hdf5);
}

} // namespace
} // namespace faults
