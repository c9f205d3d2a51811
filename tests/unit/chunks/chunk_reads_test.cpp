// SPDX-License-Identifier: BSD-3-Clause
// Random layouts are in tests/properties.
#include "chunks/chunk_reads.h"

#include "chunks/thread_count.h"
#include "tests/support/chunk_filters.h"
#include "tests/support/chunked_file.h"
#include "tests/support/library_failure.h"
#include "tests/support/module_test.h"

#include <hdf5.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Ovard::gridio {
namespace {

using testsupport::blockAt;
using testsupport::ChunkedVariable;
using testsupport::chunkEntry;
using testsupport::countOf;
using testsupport::filterFor;
using testsupport::LibraryFile;
using testsupport::makeChunked;
using testsupport::makeFiltered;
using testsupport::outcomeOf;
using testsupport::require;

// A codec of this build that the library lacks.
unsigned foreignCodec()
{
    for (const unsigned id : testsupport::testCodecs()) {
        if (id > 300)
            return id;
    }
    return 0;
}

class ReadsOfChunks : public testsupport::ModuleTest {
protected:
    void SetUp() override { setThreadCount(2); }
    void TearDown() override
    {
        setThreadCount(0);
        ModuleTest::TearDown();
    }

    std::string path() const { return folder.file("chunks.nc"); }

    static Block whole(const ChunkedVariable& variable)
    {
        return blockAt({0, 0, 0}, variable.lengths);
    }

    // Whether readChunked accepts the block; if so, the values are in read.
    bool takesOn(const LibraryFile& file, const Block& block, Reads reads = Reads::whereFaster)
    {
        Variable variable(file.ncid(), file.varid("v"), &chunkEntry);
        read.assign(std::accumulate(block.count.begin(), block.count.end(), std::size_t{1},
                                    std::multiplies<>()),
                    -1);
        return readChunked(variable, block, {read.data(), nullptr}, reads);
    }

    bool takesOn(const ChunkedVariable& variable, Reads reads = Reads::whereFaster)
    {
        makeChunked(path(), variable);
        return takesOn(LibraryFile::open(path()), whole(variable), reads);
    }

    static std::vector<int> upTo(std::size_t count)
    {
        std::vector<int> values(count);
        std::iota(values.begin(), values.end(), 0);
        return values;
    }

    std::vector<int> read;
};

TEST_F(ReadsOfChunks, TakeOnWhatIsCompressed)
{
    const ChunkedVariable variable;
    EXPECT_TRUE(takesOn(variable));
    EXPECT_EQ(read, upTo(countOf(variable.lengths)));
}

TEST_F(ReadsOfChunks, LeaveOtherStorageToTheLibrary)
{
    ChunkedVariable variable;
    variable.chunk.clear();
    EXPECT_FALSE(takesOn(variable, Reads::wherePossible)) << "contiguous";
    for (const int mode : {0, NC_64BIT_OFFSET, NC_64BIT_DATA}) {
        variable.mode = mode;
        EXPECT_FALSE(takesOn(variable, Reads::wherePossible)) << mode;
    }
}

TEST_F(ReadsOfChunks, LeaveOtherTypesToTheLibrary)
{
    const LibraryFile file = LibraryFile::create(path());
    int dimid = 0;
    int varid = 0;
    nc_type opaque = NC_NAT;
    require(nc_def_dim(file.ncid(), "x", NC_UNLIMITED, &dimid));
    require(nc_def_opaque(file.ncid(), 4, "opaque", &opaque));
    for (const nc_type type : {NC_STRING, opaque}) {
        require(
            nc_def_var(file.ncid(), ("v" + std::to_string(type)).c_str(), type, 1, &dimid, &varid));
        Variable variable(file.ncid(), varid, &chunkEntry);
        double value = 0;
        EXPECT_FALSE(
            readChunked(variable, blockAt({0}, {0}), {&value, nullptr}, Reads::wherePossible));
        EXPECT_THAT(outcomeOf([&] {
                        readInSlabs(variable, blockAt({0}, {0}), {&value, nullptr});
                    }),
                    failsWith("chunked", NC_EBADTYPE));
    }
}

TEST_F(ReadsOfChunks, LeaveScalarsToTheLibrary)
{
    const LibraryFile file = LibraryFile::create(path());
    int varid = 0;
    require(nc_def_var(file.ncid(), "v", NC_INT, 0, nullptr, &varid));
    const int value = 42;
    require(nc_put_var_int(file.ncid(), varid, &value));
    EXPECT_FALSE(takesOn(file, {}, Reads::wherePossible));

    Variable variable(file.ncid(), varid, &chunkEntry);
    int got = 0;
    readValues(variable, {}, {&got, nullptr});
    EXPECT_EQ(got, 42);
    cf::DecodingRules rules;
    rules.stored = cf::StoredType::int32;
    rules.scale = 0.5;
    const cf::Decoder decoder(rules);
    double decoded = 0;
    readValues(variable, {}, {&decoded, &decoder});
    EXPECT_EQ(decoded, 21);
}

TEST_F(ReadsOfChunks, LeaveUnknownFiltersToTheLibrary)
{
    const ChunkedVariable variable;
    hid_t settings = H5Pcreate(H5P_DATASET_CREATE);
    const hsize_t chunk[] = {2, 30, 40};
    const hsize_t lengths[] = {8, 60, 70};
    H5Pset_chunk(settings, 3, chunk);
    H5Pset_scaleoffset(settings, H5Z_SO_INT, 0);
    makeFiltered(path(), variable, {});
    const hid_t hdf5 = H5Fopen(path().c_str(), H5F_ACC_RDWR, H5P_DEFAULT);
    H5Ldelete(hdf5, "v", H5P_DEFAULT);
    const hid_t space = H5Screate_simple(3, lengths, nullptr);
    const hid_t dataset =
        H5Dcreate2(hdf5, "v", H5T_STD_I32LE, space, H5P_DEFAULT, settings, H5P_DEFAULT);
    const std::vector<int> values = upTo(countOf(variable.lengths));
    H5Dwrite(dataset, H5T_NATIVE_INT, H5S_ALL, H5S_ALL, H5P_DEFAULT, values.data());
    for (const hid_t id : {dataset, space, settings, hdf5})
        ASSERT_GE(H5Idec_ref(id), 0);

    const LibraryFile file = LibraryFile::open(path());
    EXPECT_FALSE(takesOn(file, whole(variable), Reads::wherePossible));
    Variable opened(file.ncid(), file.varid("v"), &chunkEntry);
    readValues(opened, whole(variable), {read.data(), nullptr});
    EXPECT_EQ(read, values);
}

TEST_F(ReadsOfChunks, LeaveBlocksThatAreRefusedToTheLibrary)
{
    makeChunked(path(), {});
    const LibraryFile file = LibraryFile::open(path());
    Block backward = blockAt({7, 0, 0}, {4, 60, 70});
    backward.stride[0] = -1;
    for (const Block& block :
         {blockAt({0, 0, 0}, {9, 60, 70}), blockAt({8, 0, 0}, {1, 60, 70}),
          blockAt({0, 0, 0}, {0, 60, 70}), blockAt({1, 1, 1}, {8, 60, 70}), backward})
        EXPECT_FALSE(takesOn(file, block, Reads::wherePossible));
}

TEST_F(ReadsOfChunks, RaiseWhatTheLibrarySaysOfABlock)
{
    makeChunked(path(), {});
    const LibraryFile file = LibraryFile::open(path());
    Variable variable(file.ncid(), file.varid("v"), &chunkEntry);
    std::vector<double> values(9 * 60 * 70);
    const auto readFrom = [&](const Block& block, const cf::Decoder* decoder) {
        return outcomeOf([&] { readValues(variable, block, {values.data(), decoder}); });
    };
    cf::DecodingRules rules;
    rules.stored = cf::StoredType::int32;
    const cf::Decoder decoder(rules);
    for (const cf::Decoder* each : {static_cast<const cf::Decoder*>(nullptr), &decoder}) {
        EXPECT_THAT(readFrom(blockAt({0, 0, 0}, {9, 60, 70}), each),
                    failsWith("chunked", NC_EEDGE));
        EXPECT_THAT(readFrom(blockAt({9, 0, 0}, {1, 60, 70}), each),
                    failsWith("chunked", NC_EINVALCOORDS));
        EXPECT_THAT(readFrom(blockAt({0, 0, 0}, {0, 60, 70}), each), testsupport::succeeds());
    }
}

TEST_F(ReadsOfChunks, LeaveSmallBlocksToTheLibrary)
{
    ChunkedVariable variable;
    variable.lengths = {4, 30, 40};
    variable.chunk = {1, 30, 40}; // 4800 bytes
    makeChunked(path(), variable);
    const LibraryFile file = LibraryFile::open(path());
    EXPECT_FALSE(takesOn(file, blockAt({0, 0, 0}, {1, 30, 40})));
    EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, {2, 30, 40})));
    EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, {1, 30, 40}), Reads::wherePossible));
}

TEST_F(ReadsOfChunks, LeaveSomewhatLargerBlocksWithoutFiltersToTheLibrary)
{
    ChunkedVariable variable;
    variable.deflate = -1;
    variable.lengths = {8, 60, 100}; // 24,000 bytes each
    makeChunked(path(), variable);
    const LibraryFile file = LibraryFile::open(path());
    EXPECT_FALSE(takesOn(file, blockAt({0, 0, 0}, {4, 60, 100})));
    EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, {8, 60, 100})));
}

// Such as single rows one after the other.
TEST_F(ReadsOfChunks, LeaveSmallPartsOfChunksThatTheLibraryHoldsInItsCache)
{
    ChunkedVariable variable;
    variable.lengths = {8, 100, 100};
    variable.chunk = {8, 100, 100};
    makeChunked(path(), variable);
    const LibraryFile file = LibraryFile::open(path());
    EXPECT_FALSE(takesOn(file, blockAt({0, 0, 0}, {1, 100, 100})));
    EXPECT_FALSE(takesOn(file, blockAt({0, 0, 0}, {3, 100, 100})));
    EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, {4, 100, 100}))) << "half of the chunk";
    require(nc_set_var_chunk_cache(file.ncid(), file.varid("v"), 100000, 13, 0.75F));
    EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, {1, 100, 100}))) << "the cache is too small";
}

TEST_F(ReadsOfChunks, LeaveChunksBeyondTheMemoryBoundToTheLibrary)
{
    ChunkedVariable variable;
    variable.lengths = {1, 4097, 4096};
    variable.chunk = {1, 4097, 4096};
    makeChunked(path(), variable, false);
    EXPECT_FALSE(takesOn(LibraryFile::open(path()), whole(variable)));
}

TEST_F(ReadsOfChunks, TakeOnFiltersThatTheLibraryLacks)
{
    const unsigned codec = foreignCodec();
    ASSERT_NE(codec, 0U) << "no codec beyond deflate and szip was found when this was built";
    for (const unsigned id : testsupport::testCodecs()) {
        const ChunkedVariable variable;
        makeFiltered(path(), variable, {filterFor(shuffleFilter, 4), filterFor(id, 4)});
        const LibraryFile file = LibraryFile::open(path());
        EXPECT_TRUE(takesOn(file, whole(variable))) << id;
        EXPECT_EQ(read, upTo(countOf(variable.lengths))) << id;
        if (id > 300) {
            EXPECT_EQ(nc_get_var_int(file.ncid(), file.varid("v"), read.data()), NC_ENOFILTER);
            EXPECT_TRUE(takesOn(file, blockAt({1, 2, 3}, {1, 1, 1}))) << "however small";
            EXPECT_EQ(read, std::vector<int>{(60 + 2) * 70 + 3});
        }
    }
}

// The library reports the error in a chunk of a filter that it knows.
TEST_F(ReadsOfChunks, RaiseTheLibrarysErrorForDamagedChunks)
{
    const auto damage = [](std::string& bytes) { bytes[bytes.size() / 2] ^= 0x55; };
    for (const unsigned id : testsupport::testCodecs()) {
        if (id == bloscFilter || id == szipFilter)
            continue; // without a checksum most damage is not detected
        const ChunkedVariable variable;
        const Filter checksum = filterFor(fletcher32Filter, 4);
        makeFiltered(path(), variable, {filterFor(id, 4), checksum}, damage);
        const LibraryFile file = LibraryFile::open(path());
        Variable opened(file.ncid(), file.varid("v"), &chunkEntry);
        read.resize(countOf(variable.lengths));
        EXPECT_THAT(outcomeOf([&] {
                        readValues(opened, whole(variable), {read.data(), nullptr});
                    }),
                    failsWith("chunked", NC_EHDFERR))
            << id;
        // The file is still usable.
        EXPECT_THAT(outcomeOf([&] {
                        readValues(opened, blockAt({0, 0, 0}, {1, 1, 1}), {read.data(), nullptr});
                    }),
                    failsWith("chunked", NC_EHDFERR))
            << id;
    }
}

TEST_F(ReadsOfChunks, RaiseAnErrorForChunksOfTheWrongSize)
{
    const unsigned codec = foreignCodec();
    const ChunkedVariable variable;
    for (auto* const damage : {+[](std::string& bytes) { bytes.resize(bytes.size() - 3); },
                               +[](std::string& bytes) { bytes.resize(1); },
                               +[](std::string& bytes) { bytes.resize(10'000'000); }}) {
        makeFiltered(path(), variable, {filterFor(codec, 4), filterFor(fletcher32Filter, 4)},
                     damage);
        const LibraryFile file = LibraryFile::open(path());
        Variable opened(file.ncid(), file.varid("v"), &chunkEntry);
        read.resize(countOf(variable.lengths));
        EXPECT_THAT(outcomeOf([&] {
                        readValues(opened, whole(variable), {read.data(), nullptr});
                    }),
                    failsWith("chunked", NC_EHDFERR));
    }
}

TEST_F(ReadsOfChunks, GoOnWhileTheirCallerBeginsOthers)
{
    const ChunkedVariable variable;
    makeChunked(path(), variable);
    makeChunked(folder.file("plain.nc"), {{4, 5, 6}, {}});
    for (const std::size_t threads : {1U, 2U, 4U}) {
        setThreadCount(threads);
        const LibraryFile file = LibraryFile::open(path());
        const LibraryFile plain = LibraryFile::open(folder.file("plain.nc"));
        Variable opened(file.ncid(), file.varid("v"), &chunkEntry);
        Variable contiguous(plain.ncid(), plain.varid("v"), &chunkEntry);
        std::vector<int> first(countOf(variable.lengths), -1), second(4 * 5 * 6, -1),
            third(first.size(), -1);
        PendingRead one(opened, whole(variable), {first.data(), nullptr});
        PendingRead two(contiguous, blockAt({0, 0, 0}, {4, 5, 6}), {second.data(), nullptr});
        {
            const PendingRead dropped(opened, whole(variable), {third.data(), nullptr});
        }
        PendingRead three(opened, whole(variable), {third.data(), nullptr});
        three.finish();
        two.finish();
        one.finish();
        one.finish();
        EXPECT_EQ(first, upTo(first.size())) << threads;
        EXPECT_EQ(second, upTo(second.size())) << threads;
        EXPECT_EQ(third, first) << threads;
    }
}

TEST_F(ReadsOfChunks, FailBeforeTheyAreFinished)
{
    const ChunkedVariable variable;
    makeFiltered(path(), variable, {filterFor(deflateFilter, 4), filterFor(fletcher32Filter, 4)},
                 [](std::string& bytes) { bytes[bytes.size() / 2] ^= 0x55; });
    const LibraryFile file = LibraryFile::open(path());
    Variable opened(file.ncid(), file.varid("v"), &chunkEntry);
    read.resize(countOf(variable.lengths));
    EXPECT_THAT(outcomeOf([&] {
                    PendingRead pending(opened, whole(variable), {read.data(), nullptr});
                    pending.finish();
                }),
                failsWith("chunked", NC_EHDFERR));
}

TEST_F(ReadsOfChunks, SeeWhatWasJustWritten)
{
    ChunkedVariable variable;
    makeChunked(path(), variable, false);
    const LibraryFile file = LibraryFile::open(path(), NC_WRITE);
    std::vector<int> values = upTo(countOf(variable.lengths));
    for (int round = 0; round < 3; ++round) {
        require(nc_put_var_int(file.ncid(), file.varid("v"), values.data()));
        EXPECT_TRUE(takesOn(file, whole(variable)));
        EXPECT_EQ(read, values);
        for (int& value : values)
            ++value;
    }
}

TEST_F(ReadsOfChunks, LeaveDefineModeAsTheLibraryDoes)
{
    const LibraryFile file = LibraryFile::create(path());
    const char* const names[] = {"z", "y", "x"};
    int dimids[3] = {};
    for (std::size_t i = 0; i < 3; ++i)
        require(nc_def_dim(file.ncid(), names[i], 20, &dimids[i]));
    int varid = 0;
    const std::size_t chunk[] = {10, 10, 10};
    require(nc_def_var(file.ncid(), "v", NC_INT, 3, dimids, &varid));
    require(nc_def_var_chunking(file.ncid(), varid, NC_CHUNKED, chunk));
    EXPECT_TRUE(takesOn(file, blockAt({0, 0, 0}, {20, 20, 20}), Reads::wherePossible));
    EXPECT_EQ(read, std::vector<int>(8000, NC_FILL_INT));
    // A dimension becomes a variable: its dataset is replaced.
    require(nc_redef(file.ncid()));
    require(nc_def_var(file.ncid(), "x", NC_INT, 1, &dimids[2], &varid));
    require(nc_def_var_chunking(file.ncid(), varid, NC_CHUNKED, chunk));
    Variable variable(file.ncid(), varid, &chunkEntry);
    read.assign(20, -1);
    EXPECT_TRUE(
        readChunked(variable, blockAt({0}, {20}), {read.data(), nullptr}, Reads::wherePossible));
    EXPECT_EQ(read, std::vector<int>(20, NC_FILL_INT));
}

TEST_F(ReadsOfChunks, RaiseThatOfTheClassicModelInDefineMode)
{
    ChunkedVariable variable;
    variable.mode = NC_NETCDF4 | NC_CLASSIC_MODEL;
    makeChunked(path(), variable);
    const LibraryFile file = LibraryFile::open(path(), NC_WRITE);
    require(nc_redef(file.ncid()));
    EXPECT_FALSE(takesOn(file, whole(variable), Reads::wherePossible));
    Variable opened(file.ncid(), file.varid("v"), &chunkEntry);
    EXPECT_THAT(outcomeOf([&] {
                    readValues(opened, whole(variable), {read.data(), nullptr});
                }),
                failsWith("chunked", NC_EINDEFINE));
}

// The library leaves the memory unchanged.
TEST_F(ReadsOfChunks, GiveZerosForMissingChunksWithoutFilling)
{
    const LibraryFile file = LibraryFile::create(path());
    int dimid = 0;
    int varid = 0;
    const std::size_t chunk = 100;
    require(nc_def_dim(file.ncid(), "x", 300, &dimid));
    require(nc_def_var(file.ncid(), "v", NC_INT, 1, &dimid, &varid));
    require(nc_def_var_chunking(file.ncid(), varid, NC_CHUNKED, &chunk));
    require(nc_def_var_fill(file.ncid(), varid, NC_NOFILL, nullptr));
    const std::size_t start = 100;
    const std::vector<int> values(100, 7);
    require(nc_put_vara_int(file.ncid(), varid, &start, &chunk, values.data()));
    EXPECT_TRUE(takesOn(file, blockAt({0}, {300}), Reads::wherePossible));
    std::vector<int> expected(300, 0);
    std::copy(values.begin(), values.end(), expected.begin() + 100);
    EXPECT_EQ(read, expected);
}

class InterruptedReads : public ReadsOfChunks {
protected:
    // Each read is interrupted at a later check, until it has fewer checks.
    template <class Read> void interruptEach(const LibraryFile& file, Read readAll)
    {
        const std::vector<int> expected = upTo(countOf(variable.lengths));
        Variable opened(file.ncid(), file.varid("v"), &chunkEntry);
        std::size_t interrupts = 0;
        for (std::size_t question = 1;; ++question) {
            read.assign(expected.size(), -1);
            host.interruptQuestion(question);
            const auto outcome = outcomeOf([&] { readAll(opened); });
            host.interruptQuestion(0);
            if (outcome.succeeded())
                break;
            ASSERT_EQ(outcome.raised->identifier, standalone::interruptIdentifier);
            ++interrupts;
        }
        EXPECT_GE(interrupts, 1U);
        EXPECT_EQ(read, expected) << "the file stays usable";
    }

    ChunkedVariable variable;
};

TEST_F(InterruptedReads, RaiseTheHostsInterruptBetweenChunks)
{
    variable.lengths = {64, 200, 200};
    variable.chunk = {1, 50, 200};
    makeChunked(path(), variable);
    const LibraryFile file = LibraryFile::open(path());
    for (const std::size_t threads : {1U, 3U}) {
        setThreadCount(threads);
        interruptEach(file, [&](Variable& opened) {
            ASSERT_TRUE(readChunked(opened, whole(variable), {read.data(), nullptr}));
        });
    }
}

TEST_F(InterruptedReads, RaiseTheHostsInterruptBetweenSlabs)
{
    variable.lengths = {50, 500, 400}; // 40 MB: three slabs
    variable.chunk.clear();
    for (const int mode : {NC_NETCDF4, 0}) {
        variable.mode = mode;
        makeChunked(path(), variable);
        const LibraryFile file = LibraryFile::open(path());
        interruptEach(file, [&](Variable& opened) {
            readValues(opened, whole(variable), {read.data(), nullptr});
        });
    }
}

class DecodedReads : public ReadsOfChunks {
protected:
    static cf::Decoder decoder()
    {
        cf::DecodingRules rules;
        rules.stored = cf::StoredType::int32;
        rules.scale = 0.25;
        rules.offset = 100;
        rules.missing.push_back(cf::storedValue<std::int32_t>(5));
        return cf::Decoder(rules);
    }

    void expectDecoded(const ChunkedVariable& variable, const Block& block)
    {
        makeChunked(path(), variable);
        const LibraryFile file = LibraryFile::open(path());
        Variable opened(file.ncid(), file.varid("v"), &chunkEntry);
        std::vector<int> stored(countOf(variable.lengths));
        require(nc_get_vars_int(file.ncid(), file.varid("v"), block.start.data(),
                                block.count.data(), block.stride.data(), stored.data()));
        const cf::Decoder each = decoder();
        std::vector<double> values(stored.size(), -1);
        readValues(opened, block, {values.data(), &each});
        const std::size_t count = block.count[0] * block.count[1] * block.count[2];
        for (std::size_t i = 0; i < count; ++i) {
            if (stored[i] == 5)
                ASSERT_TRUE(std::isnan(values[i])) << i;
            else
                ASSERT_EQ(values[i], stored[i] * 0.25 + 100) << i;
        }
    }
};

TEST_F(DecodedReads, AreTheSameForEveryStorage)
{
    ChunkedVariable variable;
    variable.lengths = {30, 210, 190}; // 4.8 MB: five slabs
    variable.chunk = {4, 50, 60};
    Block strided = blockAt({1, 0, 3}, {10, 100, 60});
    strided.stride = {2, 2, 3};
    for (const bool isUnlimited : {false, true}) {
        variable.isUnlimited = isUnlimited;
        for (const int mode : {NC_NETCDF4, 0, NC_64BIT_DATA}) {
            variable.mode = mode;
            expectDecoded(variable, whole(variable));
            expectDecoded(variable, blockAt({2, 7, 5}, {20, 200, 150}));
            expectDecoded(variable, strided);
        }
    }
    variable.mode = NC_NETCDF4;
    variable.isUnlimited = false;
    variable.chunk.clear();
    expectDecoded(variable, whole(variable));
    expectDecoded(variable, strided);
}

} // namespace
} // namespace Ovard::gridio
