// SPDX-License-Identifier: BSD-3-Clause
// Random programs are in tests/properties.
#include "chunks/chunk_writes.h"

#include "chunks/thread_count.h"
#include "tests/support/chunked_file.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/library_failure.h"
#include "tests/support/module_test.h"

#include <fstream>
#include <iterator>
#include <numeric>

namespace Ovard::gridio {
namespace {

using testsupport::blockAt;
using testsupport::ChunkedVariable;
using testsupport::chunkEntry;
using testsupport::countOf;
using testsupport::LibraryFile;
using testsupport::makeChunked;
using testsupport::outcomeOf;
using testsupport::require;

class WritesOfChunks : public testsupport::ModuleTest {
protected:
    void SetUp() override { setThreadCount(2); }
    void TearDown() override
    {
        setThreadCount(0);
        ModuleTest::TearDown();
    }

    std::string path(const std::string& name = "chunks.nc") const { return folder.file(name); }

    static std::vector<int> upTo(std::size_t count)
    {
        std::vector<int> values(count);
        std::iota(values.begin(), values.end(), 0);
        return values;
    }

    static std::size_t sizeOf(const Block& block)
    {
        return std::accumulate(block.count.begin(), block.count.end(), std::size_t{1},
                               std::multiplies<>());
    }

    static bool takesOn(const LibraryFile& file, const Block& block,
                        Writes writes = Writes::whereFaster)
    {
        Variable variable(file.ncid(), file.varid("v"), &chunkEntry);
        return writeChunked(variable, block, upTo(sizeOf(block)).data(), writes);
    }

    static std::string contentOf(const std::string& name)
    {
        std::ifstream file(name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    ChunkedVariable variable;
};

TEST_F(WritesOfChunks, MakeWhatTheLibraryReads)
{
    makeChunked(path("library.nc"), variable);
    makeChunked(path(), variable, false);
    {
        LibraryFile file = LibraryFile::open(path(), NC_WRITE);
        EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, variable.lengths)));
        file.close();
    }
    EXPECT_EQ(testsupport::ncdump(path()), testsupport::ncdump(path("library.nc")));
    EXPECT_EQ(testsupport::ncdump(path(), "-hs"), testsupport::ncdump(path("library.nc"), "-hs"));
}

TEST_F(WritesOfChunks, TakeAsLittleSpaceAsThoseOfTheLibrary)
{
    makeChunked(path("library.nc"), variable);
    makeChunked(path(), variable, false);
    LibraryFile file = LibraryFile::open(path(), NC_WRITE);
    EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, variable.lengths)));
    file.close();
    EXPECT_LT(contentOf(path()).size(), contentOf(path("library.nc")).size() * 11 / 10);
}

TEST_F(WritesOfChunks, MakeTheSameFileWithAnyNumberOfThreads)
{
    variable.lengths = {20, 60, 70};
    std::string first;
    for (const std::size_t threads : {1U, 2U, 5U}) {
        setThreadCount(threads);
        makeChunked(path(), variable, false);
        LibraryFile file = LibraryFile::open(path(), NC_WRITE);
        EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, variable.lengths)));
        file.close();
        const std::string content = contentOf(path());
        if (first.empty())
            first = content;
        EXPECT_TRUE(content == first) << threads;
    }
}

TEST_F(WritesOfChunks, AppendRecords)
{
    variable.isUnlimited = true;
    variable.chunk = {1, 60, 70};
    makeChunked(path(), variable, false);
    LibraryFile file = LibraryFile::open(path(), NC_WRITE);
    for (std::size_t record = 0; record < 8; ++record) {
        Variable opened(file.ncid(), file.varid("v"), &chunkEntry);
        const std::vector<int> all = upTo(countOf(variable.lengths));
        EXPECT_TRUE(writeChunked(opened, blockAt({record, 0, 0}, {1, 60, 70}),
                                 all.data() + record * 60 * 70));
        std::size_t length = 0;
        require(nc_inq_dimlen(file.ncid(), 0, &length));
        EXPECT_EQ(length, record + 1);
    }
    file.close();
    makeChunked(path("library.nc"), variable);
    EXPECT_EQ(testsupport::ncdump(path()), testsupport::ncdump(path("library.nc")));
}

TEST_F(WritesOfChunks, FillWhatTheirChunksHoldBeyondTheVariable)
{
    variable.isUnlimited = true;
    variable.lengths = {3, 60, 70}; // one and a half chunks
    makeChunked(path(), variable, false);
    LibraryFile file = LibraryFile::open(path(), NC_WRITE);
    EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, variable.lengths)));
    // The variable grows into the rest of the chunk.
    const std::size_t last[] = {3, 59, 69};
    const int value = 1;
    require(nc_put_var1_int(file.ncid(), file.varid("v"), last, &value));
    const std::size_t first[] = {3, 0, 0};
    int read = 0;
    require(nc_get_var1_int(file.ncid(), file.varid("v"), first, &read));
    EXPECT_EQ(read, NC_FILL_INT);
}

TEST_F(WritesOfChunks, LeaveOtherStorageToTheLibrary)
{
    const auto isLeft = [&] {
        makeChunked(path(), variable, false);
        const LibraryFile file = LibraryFile::open(path(), NC_WRITE);
        return !takesOn(file, blockAt({0, 0, 0}, variable.lengths));
    };
    EXPECT_FALSE(isLeft());
    variable.deflate = -1;
    EXPECT_TRUE(isLeft()) << "nothing to compress";
    variable.chunk.clear();
    EXPECT_TRUE(isLeft()) << "contiguous";
    variable.mode = 0;
    EXPECT_TRUE(isLeft()) << "classic";
}

TEST_F(WritesOfChunks, LeaveBlocksWithoutAWholeChunkToTheLibrary)
{
    makeChunked(path(), variable);
    const LibraryFile file = LibraryFile::open(path(), NC_WRITE);
    Block strided = blockAt({0, 0, 0}, {4, 60, 70});
    strided.stride[0] = 2;
    for (const Block& block :
         {strided, blockAt({1, 0, 0}, {2, 60, 70}), blockAt({0, 0, 0}, {8, 29, 70}),
          blockAt({0, 1, 0}, {8, 58, 70}), blockAt({0, 0, 1}, {8, 60, 69 - 30}),
          blockAt({0, 0, 0}, {0, 60, 70})})
        EXPECT_FALSE(takesOn(file, block, Writes::wherePossible));
    EXPECT_TRUE(takesOn(file, blockAt({1, 0, 0}, {3, 60, 70}), Writes::wherePossible));
}

TEST_F(WritesOfChunks, LeaveRefusalsToTheLibrary)
{
    makeChunked(path(), variable);
    {
        const LibraryFile file = LibraryFile::open(path());
        EXPECT_FALSE(takesOn(file, blockAt({0, 0, 0}, variable.lengths))) << "read-only";
    }
    const LibraryFile file = LibraryFile::open(path(), NC_WRITE);
    EXPECT_FALSE(takesOn(file, blockAt({0, 0, 0}, {9, 60, 70}))) << "beyond a dimension";
    EXPECT_FALSE(takesOn(file, blockAt({static_cast<std::size_t>(-1), 0, 0}, {8, 60, 70})));
}

TEST_F(WritesOfChunks, LeaveFewBytesToTheLibrary)
{
    variable.chunk = {1, 30, 35}; // 4,200 bytes
    makeChunked(path(), variable);
    const LibraryFile file = LibraryFile::open(path(), NC_WRITE);
    EXPECT_FALSE(takesOn(file, blockAt({0, 0, 0}, {1, 30, 35})));
    EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, {2, 30, 35})));
}

TEST_F(WritesOfChunks, DropWhatIsInTheCacheOfTheLibrary)
{
    makeChunked(path(), variable);
    const LibraryFile file = LibraryFile::open(path(), NC_WRITE);
    const int varid = file.varid("v");
    const std::vector<int> other(countOf(variable.lengths), -7);
    require(nc_put_var_int(file.ncid(), varid, other.data())); // not in the file yet
    EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, variable.lengths)));
    std::vector<int> read(other.size());
    require(nc_get_var_int(file.ncid(), varid, read.data()));
    EXPECT_EQ(read, upTo(read.size()));
}

TEST_F(WritesOfChunks, RaiseTheHostsInterruptAndLeaveTheFileUsable)
{
    variable.lengths = {40, 200, 200};
    variable.chunk = {1, 50, 200};
    for (const std::size_t threads : {1U, 3U}) {
        setThreadCount(threads);
        makeChunked(path(), variable, false);
        LibraryFile file = LibraryFile::open(path(), NC_WRITE);
        host.interruptQuestion(2);
        const auto outcome = outcomeOf([&] {
            takesOn(file, blockAt({0, 0, 0}, variable.lengths));
        });
        ASSERT_TRUE(outcome.raised);
        EXPECT_EQ(outcome.raised->identifier, standalone::interruptIdentifier);
        EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, variable.lengths)));
        std::vector<int> read(countOf(variable.lengths));
        require(nc_get_var_int(file.ncid(), file.varid("v"), read.data()));
        EXPECT_EQ(read, upTo(read.size()));
        file.close();
    }
}

} // namespace
} // namespace Ovard::gridio
