// SPDX-License-Identifier: BSD-3-Clause
// Classic files that the library opens although their headers exceed its own limits.
#include "tests/operations/operation_test.h"
#include "tests/support/element_samples.h"

#include <algorithm>
#include <fstream>

using namespace testsupport;
using Ovard::gridio::ElementType;
using Ovard::gridio::elementTypes;

namespace {

// The header of a classic file, piece by piece.
class ClassicHeader {
public:
    ClassicHeader& number(std::size_t n)
    {
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes_ += static_cast<char>(n >> shift & 0xFF);
        return *this;
    }
    ClassicHeader& numbers(std::size_t count, std::size_t n)
    {
        while (count-- > 0)
            number(n);
        return *this;
    }
    ClassicHeader& name(const std::string& text)
    {
        number(text.size());
        bytes_ += text;
        bytes_.resize((bytes_.size() + 3) / 4 * 4, '\0');
        return *this;
    }
    const std::string& bytes() const { return bytes_; }

private:
    std::string bytes_ = std::string("CDF\1", 4);
};

// One dimension of length 1, one global attribute, and one int variable of that rank over the
// dimension, which holds 42. All three have that name.
void writeFile(const std::string& path, const std::string& name, std::size_t rank)
{
    constexpr std::size_t dimensions = 10;
    constexpr std::size_t variables = 11;
    constexpr std::size_t attributes = 12;
    ClassicHeader header;
    header.number(0).number(dimensions).number(1).name(name).number(1);
    header.number(attributes).number(1).name(name).number(NC_INT).number(1).number(7);
    header.number(variables).number(1).name(name).number(rank).numbers(rank, 0);
    header.numbers(2, 0).number(NC_INT).number(4);
    header.number(header.bytes().size() + 4); // where the data begin
    header.number(42);
    std::ofstream(path, std::ios::binary) << header.bytes();
}

class HostileFiles : public OperationTest {
protected:
    // The library reads so much at once, and rejects header items larger than that.
    static constexpr int chunkSizeHint = 1 << 22;

    int openFileOf(const std::string& name, std::size_t rank)
    {
        const std::string path = folder.file("h.nc");
        writeFile(path, name, rank);
        const Values opened = host.call("pOpen", {path, NC_NOWRITE, chunkSizeHint});
        return static_cast<int>(opened.at(1).toDouble());
    }

    bool isOpenedByTheLibrary(const std::string& name, std::size_t rank)
    {
        const std::string path = folder.file("h.nc");
        writeFile(path, name, rank);
        std::size_t hint = chunkSizeHint;
        int ncid = 0;
        const bool isOpened = nc__open(path.c_str(), NC_NOWRITE, &hint, &ncid) == NC_NOERR;
        if (isOpened)
            nc_close(ncid);
        return isOpened;
    }

    // From release 4.10.1 on the library cuts off what is too long.
    static std::string nameOfTheLibrary(int ncid, std::size_t length)
    {
        std::vector<char> name(length + 1);
        nc_inq_dimname(ncid, 0, name.data());
        return name.data();
    }
};

TEST_F(HostileFiles, AreReadUpToTheHighestRank)
{
    const int ncid = openFileOf("v", NC_MAX_VAR_DIMS);
    const Value zeros = Value::row(std::vector<double>(NC_MAX_VAR_DIMS));
    EXPECT_EQ(host.call("inqVar", {ncid, 0}).at(2), zeros);
    const Value whole = got("getVarDouble", {ncid, 0});
    EXPECT_EQ(whole.dims().size(), std::size_t{NC_MAX_VAR_DIMS});
    EXPECT_EQ(whole.elements<double>(), std::vector<double>{42});
    EXPECT_EQ(got("getVar1Int", {ncid, 0, zeros}).numel(), 1U);
}

// From release 4.10.1 on the library does not open them.
TEST_F(HostileFiles, AreDescribedButNotReadAboveTheHighestRank)
{
    for (const std::size_t rank : {1025U, 5000U}) {
        if (!isOpenedByTheLibrary("v", rank)) {
            EXPECT_THAT(attempt("pOpen", {folder.file("h.nc"), NC_NOWRITE, chunkSizeHint}),
                        failsWith("pOpen", NC_EMAXDIMS));
            continue;
        }
        const int ncid = openFileOf("v", rank);
        const Value zeros = Value::row(std::vector<double>(rank));
        const Value ones = Value::row(std::vector<double>(rank, 1));
        EXPECT_EQ(host.call("inqVar", {ncid, 0}), (Values{"v", NC_INT, zeros, 0}));
        for (const ElementType& element : elementTypes) {
            const std::string suffix = element.suffix;
            if (!servesVariables(element))
                continue;
            const Value one = valueOfBytes(element.hostClass, {1, 1}, Bytes(element.size, '\1'));
            const std::pair<std::string, Values> calls[] = {
                {"getVar", {ncid, 0}},
                {"putVar", {ncid, 0, one}},
                {"getVar1", {ncid, 0, zeros}},
                {"getVara", {ncid, 0, zeros, ones}},
                {"getVars", {ncid, 0, zeros, ones, ones}},
                {"putVar1", {ncid, 0, zeros, one}},
                {"putVara", {ncid, 0, zeros, ones, one}},
                {"putVars", {ncid, 0, zeros, ones, ones, one}},
            };
            for (const auto& [form, arguments] : calls) {
                const std::string operation = operationName(form, suffix);
                EXPECT_THAT(attempt(operation, arguments), failsWith(operation, NC_EMAXDIMS));
            }
        }
        closeFile(ncid);
    }
}

TEST_F(HostileFiles, AreDescribedWithNamesOfAnyLength)
{
    for (const std::size_t length : {256U, 257U, 1000U, 300000U}) {
        const std::string written(length, 'n');
        const int ncid = openFileOf(written, 1);
        const std::string name = nameOfTheLibrary(ncid, length);
        ASSERT_GE(name.size(), std::min<std::size_t>(length, NC_MAX_NAME));
        EXPECT_EQ(host.call("inqDim", {ncid, 0}), (Values{name, 1})) << length;
        EXPECT_EQ(host.call("inqVar", {ncid, 0}), (Values{name, NC_INT, row({0}), 0})) << length;
        EXPECT_EQ(got("inqAttName", {ncid, NC_GLOBAL, 0}), Value(name)) << length;
        EXPECT_EQ(number("inqVarID", {ncid, written}), 0) << length;
        EXPECT_EQ(got("getAttInt", {ncid, NC_GLOBAL, written}), Value::scalar<std::int32_t>(7));
        EXPECT_EQ(got("getVar1Int", {ncid, 0, 0}), Value::scalar<std::int32_t>(42)) << length;
        EXPECT_THAT(attempt("getVar1Int", {ncid, 0, row({0, 0})}),
                    raises("badIndexArgumentLength", {"START", name, 1L, 2L}));
        EXPECT_FALSE(attempt("defVarFill", {ncid, 0, false, 1}).succeeded()) << length;
        EXPECT_LT(attempt("inqVarID", {ncid, "m"}).raised->message.size(), 2000U) << length;
        closeFile(ncid);
    }
}

} // namespace
