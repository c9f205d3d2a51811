// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

#include <cstring>

namespace testsupport {
namespace {

using standalone::Value;

struct Cache {
    std::size_t size = 0;
    std::size_t nelems = 0;
    float preemption = 0;
};

Cache libraryCache()
{
    Cache cache;
    require(nc_get_chunk_cache(&cache.size, &cache.nelems, &cache.preemption));
    return cache;
}

// The cache belongs to the whole library: each test leaves it as it was.
class ChunkCache : public ModuleTest {
protected:
    const Cache before = libraryCache();

    ~ChunkCache() override
    {
        static_cast<void>(nc_set_chunk_cache(before.size, before.nelems, before.preemption));
    }
};

TEST_F(ChunkCache, GetGivesWhatSetHasSet)
{
    EXPECT_TRUE(host.call("setChunkCache", {32000000, 1000, Value::scalar(0.5F)}).empty());
    EXPECT_EQ(
        host.call("getChunkCache"),
        (std::vector<Value>{Value::number(32000000), Value::number(1000), Value::number(0.5)}));
}

TEST_F(ChunkCache, GetWidensThePreemptionToDouble)
{
    host.call("setChunkCache", {1, 1, Value::scalar(0.1F)});
    EXPECT_EQ(host.call("getChunkCache").at(2), Value::number(0.100000001490116119384765625));
}

TEST_F(ChunkCache, GetGivesALargeSizeAsAnUnsignedNumber)
{
    const Value huge = Value::scalar<std::uint64_t>(18446744073709551615U);
    host.call("setChunkCache", {huge, 1, Value::scalar(0.0F)});
    EXPECT_EQ(libraryCache().size, 18446744073709551615U);
    EXPECT_EQ(host.call("getChunkCache").at(0), Value::number(18446744073709551616.0));
}

TEST_F(ChunkCache, SetAppliesToFilesCreatedAfterwards)
{
    host.call("setChunkCache", {123456, 789, Value::scalar(0.25F)});
    const int ncid = createFile("x.nc");
    const Value x = host.call("defDim", {ncid, "x", 0})[0];
    const Value v = host.call("defVar", {ncid, "v", NC_INT, x})[0];
    Cache ofVariable;
    require(nc_get_var_chunk_cache(ncid, static_cast<int>(v.toDouble()), &ofVariable.size,
                                   &ofVariable.nelems, &ofVariable.preemption));
    EXPECT_EQ(ofVariable.size, 123456U);
    EXPECT_EQ(ofVariable.nelems, 789U);
    EXPECT_EQ(ofVariable.preemption, 0.25F);
}

TEST_F(ChunkCache, SetDeliberatelyTakesThePreemptionAsRawBytesAndConvertsNoDouble)
{
    host.call("setChunkCache", {1, 1, 0.75}); // its low four bytes are zero
    EXPECT_EQ(libraryCache().preemption, 0.0F);

    double carrier = 0;
    const float inside = 0.625F;
    std::memcpy(&carrier, &inside, sizeof inside);
    host.call("setChunkCache", {1, 1, carrier});
    EXPECT_EQ(libraryCache().preemption, 0.625F);

    host.call("setChunkCache", {1, 1, Value::row<std::uint8_t>({0, 0, 0x40, 0x3F})});
    EXPECT_EQ(libraryCache().preemption, 0.75F);
    host.call("setChunkCache", {1, 1, Value::row<float>({0.125F, 9.0F})}); // the first counts
    EXPECT_EQ(libraryCache().preemption, 0.125F);
}

TEST_F(ChunkCache, SetRefusesAPreemptionWithoutFourBytes)
{
    for (const Value& preemption :
         {Value::empty(vxSINGLE_CLASS), Value::scalar<std::int16_t>(1), Value("x"), Value(true),
          Value::cell({1, 1}, {Value::scalar(0.5F)}), Value::anythingElse()})
        EXPECT_THAT(host.attempt("setChunkCache", {1, 1, preemption}),
                    raises("badScalarArgument", {"preemption", "numeric"}))
            << preemption;
    EXPECT_EQ(libraryCache().size, before.size);
}

TEST_F(ChunkCache, SetLeavesTheRangeOfThePreemptionToTheLibrary)
{
    for (const float preemption : {1.5F, -0.1F})
        EXPECT_THAT(host.attempt("setChunkCache", {1, 1, Value::scalar(preemption)}),
                    raises("libraryFailure", {"setChunkCache", "NC_EINVAL", "Invalid argument"}));
    EXPECT_EQ(libraryCache().size, before.size);
    for (const float preemption : {0.0F, 1.0F})
        EXPECT_THAT(host.attempt("setChunkCache", {1, 1, Value::scalar(preemption)}), succeeds());
}

TEST_F(ChunkCache, SetReadsTheSizesUnderTheirNames)
{
    const Value half = Value::scalar(0.5F);
    EXPECT_THAT(host.attempt("setChunkCache", {"1", 1, half}),
                raises("badScalarArgument", {"chunkSize", "numeric"}));
    EXPECT_THAT(host.attempt("setChunkCache", {1, Value::empty(), half}),
                raises("badScalarArgument", {"nelems", "numeric"}));
    EXPECT_THAT(host.attempt("setChunkCache", {-1, 1, half}), raises("argumentOutOfBounds"));
    EXPECT_THAT(host.attempt("setChunkCache", {1, -1, half}), raises("argumentOutOfBounds"));
}

TEST_F(ChunkCache, TakesExactlyItsArguments)
{
    const Value half = Value::scalar(0.5F);
    EXPECT_THAT(host.attempt("getChunkCache", {1}), raises("wrongNumberOfInputs"));
    EXPECT_THAT(host.attempt("setChunkCache", {1, 1}), raises("wrongNumberOfInputs"));
    EXPECT_THAT(host.attempt("setChunkCache", {1, 1, half, 1}), raises("wrongNumberOfInputs"));
}

} // namespace
} // namespace testsupport
