// SPDX-License-Identifier: BSD-3-Clause
// Compressed variables through the second table: by src/chunks, or the library's own way.
#include "chunks/codecs/codec.h"
#include "hosts/standalone/errors.h"
#include "tests/operations/operation_test.h"
#include "tests/support/chunk_filters.h"
#include "tests/support/chunked_file.h"

#include <cstdlib>
#include <numeric>

namespace testsupport {
namespace {

// The user's choice, which holds for the process.
class ChosenThreads {
public:
    explicit ChosenThreads(int count)
    {
        setenv("GRIDIO_THREADS", std::to_string(count).c_str(), 1);
    }
    ~ChosenThreads() { unsetenv("GRIDIO_THREADS"); }
    ChosenThreads(const ChosenThreads&) = delete;
    ChosenThreads& operator=(const ChosenThreads&) = delete;
};

class ChunkedValues : public OperationTest {
protected:
    ChunkedValues()
    {
        variable.lengths = {16, 100, 200};
        variable.chunk = {1, 50, 100};
    }

    Value upTo(std::size_t count) const
    {
        std::vector<int> values(count);
        std::iota(values.begin(), values.end(), 0);
        return Value::numeric({200, 100, 16}, values);
    }
    Value all() const { return upTo(countOf(variable.lengths)); }

    Value read(int ncid) { return host.callAny("getVar", {ncid, 0}).at(0); }

    // Only what runs in src/chunks asks whether to go on.
    bool isInterrupted(const std::string& operation, const Values& arguments)
    {
        host.interruptQuestion(1);
        const Outcome outcome = host.attemptAny(operation, arguments);
        host.interruptQuestion(0);
        return outcome.raised && outcome.raised->identifier == standalone::interruptIdentifier;
    }

    ChunkedVariable variable;
};

TEST_F(ChunkedValues, AreReadWithAnyNumberOfThreads)
{
    makeChunked(folder.file("v.nc"), variable);
    const int ncid = openFile("v.nc");
    for (const int threads : {1, 2, 5}) {
        const ChosenThreads chosen(threads);
        EXPECT_EQ(read(ncid), all()) << threads;
        EXPECT_EQ(
            host.callAny("getVars", {ncid, 0, row({3, 1, 2}), row({2, 1, 2}), row({90, 2, 7})}),
            Values{Value::numeric({2, 1, 2}, std::vector<int>{40203, 40293, 180203, 180293})});
    }
    closeFile(ncid);
}

TEST_F(ChunkedValues, AreWrittenWithAnyNumberOfThreads)
{
    for (const int threads : {1, 2, 5}) {
        const ChosenThreads chosen(threads);
        makeChunked(folder.file("v.nc"), variable, false);
        const int ncid = openFile("v.nc", "write");
        host.callAny("putVar", {ncid, 0, all()});
        closeFile(ncid);
        const LibraryFile file = LibraryFile::open(folder.file("v.nc"));
        std::vector<int> values(countOf(variable.lengths), -1);
        require(nc_get_var_int(file.ncid(), 0, values.data()));
        EXPECT_EQ(Value::numeric({200, 100, 16}, values), all()) << threads;
    }
}

TEST_F(ChunkedValues, MayBeInterrupted)
{
    makeChunked(folder.file("v.nc"), variable);
    const int ncid = openFile("v.nc", "write");
    EXPECT_TRUE(isInterrupted("getVar", {ncid, 0}));
    EXPECT_TRUE(isInterrupted("putVar", {ncid, 0, all()}));
    EXPECT_EQ(host.callAny("putVar", {ncid, 0, all()}), Values{});
    EXPECT_EQ(read(ncid), all()) << "the file stays usable";
    closeFile(ncid);
}

TEST_F(ChunkedValues, AreWrittenByTheLibraryIfOneThreadIsChosen)
{
    makeChunked(folder.file("v.nc"), variable);
    const int ncid = openFile("v.nc", "write");
    const ChosenThreads chosen(1);
    EXPECT_FALSE(isInterrupted("putVar", {ncid, 0, all()}));
    closeFile(ncid);
}

TEST_F(ChunkedValues, AreReadThoughTheLibraryLacksTheirFilter)
{
    for (const unsigned id : testCodecs()) {
        makeFiltered(folder.file("v.nc"), variable, {filterFor(id, 4)});
        const int ncid = openFile("v.nc");
        EXPECT_EQ(read(ncid), all()) << id;
        const ChosenThreads chosen(1);
        EXPECT_EQ(read(ncid), all()) << id;
        closeFile(ncid);
    }
}

TEST_F(ChunkedValues, RaiseTheLibrarysErrorWhenDamaged)
{
    const auto damage = [](std::string& bytes) { bytes[bytes.size() / 2] ^= 0x55; };
    makeFiltered(
        folder.file("v.nc"), variable,
        {filterFor(Ovard::gridio::deflateFilter, 4), filterFor(Ovard::gridio::fletcher32Filter, 4)},
        damage);
    const int ncid = openFile("v.nc");
    EXPECT_THAT(host.attemptAny("getVar", {ncid, 0}), failsWith("getVar", NC_EHDFERR));
    closeFile(ncid);
}

} // namespace
} // namespace testsupport
