// SPDX-License-Identifier: BSD-3-Clause
// Compares reads of random blocks, of variables with random chunk layouts, with the library's.
// GRIDIO_CHUNK_LAYOUTS=N tries N layouts instead of the default, and GRIDIO_SEED=S chooses others.
#include "chunks/chunk_reads.h"
#include "chunks/thread_count.h"
#include "tests/properties/chunk_layouts.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

#include <iostream>

namespace properties {
namespace {

using namespace Ovard::gridio;
using testsupport::require;

const OperationEntry entry = {0, "read", 0, nullptr};

constexpr std::size_t layoutsInFile = 25;

Block anyBlock(Random& random, const Lengths& lengths)
{
    Block block;
    const bool isWhole = random.oneIn(4);
    const bool isStrided = random.oneIn(3);
    for (const std::size_t length : lengths) {
        const std::size_t start = isWhole ? 0 : random.below(length);
        const std::size_t stride = isStrided ? random.between(1, 5) : 1;
        const std::size_t most = (length - 1 - start) / stride + 1;
        block.start.push_back(start);
        block.stride.push_back(static_cast<std::ptrdiff_t>(stride));
        block.count.push_back(isWhole ? most : random.between(1, most));
    }
    return block;
}

std::string show(const Block& block)
{
    return "start " + properties::show({block.start.begin(), block.start.end()}) + "count " +
           properties::show({block.count.begin(), block.count.end()}) + "stride " +
           properties::show({block.stride.begin(), block.stride.end()});
}

class ChunkReads : public testsupport::ModuleTest {
protected:
    void TearDown() override
    {
        setThreadCount(0);
        ModuleTest::TearDown();
    }

    void compare(Random& random, const Layout& layout)
    {
        const Block block = anyBlock(random, layout.lengths);
        const std::string what =
            "file " + std::to_string(files_) + ", " + layout.description + ", " + show(block);
        const ElementType& element = *findExternalType(layout.type);
        const std::size_t count = productOf(Lengths(block.count.begin(), block.count.end()));
        ::Ovard::gridio::Variable twin(layout.ncid, layout.twin, &entry);
        std::string expected(count * element.size, '\0');
        ASSERT_EQ(readBlock(twin, element, block, expected.data()), NC_NOERR) << what;

        ::Ovard::gridio::Variable variable(layout.ncid, layout.varid, &entry);
        std::string read(count * element.size, '\x55');
        setThreadCount(random.between(1, 4));
        ASSERT_TRUE(readChunked(variable, block, {read.data(), nullptr}, Reads::wherePossible))
            << what;
        ASSERT_EQ(read == expected, true) << what;
        if (layout.type != NC_CHAR && random.oneIn(3))
            compareDecoded(random, layout, block, expected, what);
    }

    // The decoded values of the expected bytes.
    void compareDecoded(Random& random, const Layout& layout, const Block& block,
                        const std::string& stored, const std::string& what)
    {
        cf::DecodingRules rules;
        rules.stored = storedTypes.at(layout.type);
        rules.scale = 0.25;
        rules.offset = 7;
        rules.decoded = random.oneIn(2) ? cf::DecodedType::float64 : cf::DecodedType::float32;
        cf::StoredValue missing{};
        std::copy_n(stored.begin(), sizeOf(rules.stored), missing.begin());
        rules.missing.push_back(missing);
        const cf::Decoder decoder(rules);
        const std::size_t count = stored.size() / decoder.storedSize();
        std::vector<double> expected(count);
        std::vector<double> read(count, 5);
        std::vector<double> aligned((stored.size() + 7) / 8);
        std::memcpy(aligned.data(), stored.data(), stored.size());
        decoder.decode(aligned.data(), count, expected.data());
        ::Ovard::gridio::Variable variable(layout.ncid, layout.varid, &entry);
        if (random.oneIn(2)) {
            ASSERT_TRUE(readChunked(variable, block, {read.data(), &decoder}, Reads::wherePossible))
                << what;
        } else {
            ::Ovard::gridio::Variable twin(layout.ncid, layout.twin, &entry);
            readInSlabs(twin, block, {read.data(), &decoder});
        }
        ASSERT_EQ(std::memcmp(read.data(), expected.data(), count * decoder.decodedSize()), 0)
            << what << " decoded";
    }

    void compareFiles(LayoutFile (*make)(Random&, const std::string&, std::size_t))
    {
        Random random(environmentNumber("GRIDIO_SEED", 1));
        const std::size_t wanted = environmentNumber("GRIDIO_CHUNK_LAYOUTS", 3000) / 2;
        for (std::size_t done = 0; done < wanted; done += layoutsInFile) {
            ++files_;
            const LayoutFile file = make(random, folder.file("file.nc"), layoutsInFile);
            for (const Layout& layout : file.layouts) {
                for (int i = 0; i < 4; ++i)
                    ASSERT_NO_FATAL_FAILURE(compare(random, layout));
            }
            require(nc_close(file.ncid));
        }
    }

    std::size_t files_ = 0;
    const std::map<nc_type, cf::StoredType> storedTypes = {
        {NC_BYTE, cf::StoredType::int8},     {NC_UBYTE, cf::StoredType::uint8},
        {NC_SHORT, cf::StoredType::int16},   {NC_USHORT, cf::StoredType::uint16},
        {NC_INT, cf::StoredType::int32},     {NC_UINT, cf::StoredType::uint32},
        {NC_INT64, cf::StoredType::int64},   {NC_UINT64, cf::StoredType::uint64},
        {NC_FLOAT, cf::StoredType::float32}, {NC_DOUBLE, cf::StoredType::float64},
    };
};

TEST_F(ChunkReads, AgreeWithTheLibraryOnItsOwnFiles) { compareFiles(makeLibraryFile); }

TEST_F(ChunkReads, AgreeWithTheLibraryOnFilesMadeByHdf5) { compareFiles(makeHdf5File); }

} // namespace
} // namespace properties
