// SPDX-License-Identifier: BSD-3-Clause
// Compares every value of every variable and attribute of real files with direct library calls. The
// folder of the files comes from the environment variable GRIDIO_DATA.
#include "tests/operations/operation_test.h"
#include "tests/support/element_samples.h"
#include "tests/support/library_calls.h"
#include "tests/support/library_file.h"
#include "tests/support/library_leak.h"

#include "check_status.h"

#include <cstdlib>
#include <filesystem>
#include <functional>

using namespace testsupport;
using Ovard::gridio::ElementType;
using Ovard::gridio::elementTypes;
using Ovard::gridio::findExternalType;
using standalone::Dims;

namespace {

using Indices = std::vector<std::size_t>; // one for each dimension, in the host's order

std::size_t productOf(const Indices& lengths)
{
    std::size_t product = 1;
    for (const std::size_t length : lengths)
        product *= length;
    return product;
}

// Calls visit with every index within lengths, the first dimension fastest.
void forEachIndex(const Indices& lengths, const std::function<void(const Indices&)>& visit)
{
    Indices index(lengths.size());
    for (std::size_t n = productOf(lengths); n > 0; --n) {
        visit(index);
        for (std::size_t d = 0; d < index.size() && ++index[d] == lengths[d]; ++d)
            index[d] = 0;
    }
}

class RealData : public OperationTest {
protected:
    struct Variable {
        int ncid;
        int varid;
        std::string name;
        nc_type xtype;
        Indices lengths; // in the host's order
    };
    std::size_t valuesSeen = 0;

    static Variable describe(int ncid, int varid)
    {
        char name[NC_MAX_NAME + 1] = "";
        int ndims = 0;
        int dimids[NC_MAX_VAR_DIMS];
        Variable variable{ncid, varid, "", NC_NAT, {}};
        require(nc_inq_var(ncid, varid, name, &variable.xtype, &ndims, dimids, nullptr));
        variable.name = name;
        for (int d = ndims; d-- > 0;) {
            std::size_t length = 0;
            require(nc_inq_dimlen(ncid, dimids[d], &length));
            variable.lengths.push_back(length);
        }
        return variable;
    }

    static Dims shapeOf(const Indices& lengths)
    {
        Dims dims = lengths;
        dims.resize(std::max<std::size_t>(dims.size(), 2), 1);
        return dims;
    }

    static Value rowOf(const Indices& indices)
    {
        return Value::row(std::vector<double>(indices.begin(), indices.end()));
    }

    // The expected outcome of a call for which the library returns that status and these bytes.
    void expectSame(const std::string& operation, const Outcome& outcome, int status,
                    const std::function<Value()>& expected)
    {
        if (status != NC_NOERR) {
            EXPECT_THAT(outcome,
                        raises("libraryFailure", {operation, Ovard::gridio::errorCodeName(status),
                                                  libraryText(status)}));
        } else if (!outcome.succeeded()) {
            ADD_FAILURE() << operation << ": " << *outcome.raised;
        } else {
            EXPECT_TRUE(outcome.results.at(0) == expected()) << operation; // not printed whole
        }
    }

    void compareWholeReads(const Variable& v)
    {
        const std::size_t count = productOf(v.lengths);
        for (const ElementType& element : elementTypes) {
            const std::string suffix = element.suffix;
            if (!servesVariables(element))
                continue;
            Bytes bytes((count + 1) * element.size, '\0');
            const int status = libraryGetVar(suffix, v.ncid, v.varid, bytes.data());
            bytes.resize(count * element.size);
            const std::string operation = "getVar" + suffix;
            expectSame(operation, attempt(operation, {v.ncid, v.varid}), status, [&] {
                return count == 0 ? Value::empty(element.hostClass)
                                  : valueOfBytes(element.hostClass, shapeOf(v.lengths), bytes);
            });
        }
        valuesSeen += count;
    }

    // The whole variable, a block that covers it, and strided pieces reassembled.
    void compareWaysOfReading(const Variable& v)
    {
        const ElementType* element = findExternalType(v.xtype);
        if (element == nullptr || v.lengths.empty() || productOf(v.lengths) == 0)
            return;
        const std::string suffix = element->suffix;
        const Value whole = got("getVar" + suffix, {v.ncid, v.varid});
        const Indices origin(v.lengths.size());
        EXPECT_TRUE(got("getVara" + suffix, {v.ncid, v.varid, rowOf(origin), rowOf(v.lengths)}) ==
                    whole);

        const Bytes expected = bytesOfValue(whole);
        Bytes assembled(expected.size(), '?');
        Indices strides;
        for (const std::size_t length : v.lengths)
            strides.push_back(std::min<std::size_t>(length, strides.empty() ? 3 : 2));
        forEachIndex(strides, [&](const Indices& start) {
            Indices count;
            for (std::size_t d = 0; d < start.size(); ++d)
                count.push_back((v.lengths[d] - start[d] + strides[d] - 1) / strides[d]);
            const Bytes piece = bytesOfValue(got(
                "getVars" + suffix, {v.ncid, v.varid, rowOf(start), rowOf(count), rowOf(strides)}));
            std::size_t from = 0;
            forEachIndex(count, [&](const Indices& index) {
                std::size_t place = 0;
                for (std::size_t d = index.size(); d-- > 0;)
                    place = place * v.lengths[d] + start[d] + index[d] * strides[d];
                assembled.replace(place * element->size, element->size, piece, from, element->size);
                from += element->size;
            });
        });
        EXPECT_TRUE(assembled == expected);
    }

    void compareAttributes(int ncid, int varid)
    {
        int count = 0;
        require(varid == NC_GLOBAL ? nc_inq_natts(ncid, &count)
                                   : nc_inq_varnatts(ncid, varid, &count));
        for (int i = 0; i < count; ++i) {
            char name[NC_MAX_NAME + 1] = "";
            require(nc_inq_attname(ncid, varid, i, name));
            SCOPED_TRACE(name);
            std::size_t length = 0;
            require(nc_inq_attlen(ncid, varid, name, &length));
            for (const ElementType& element : elementTypes) {
                const std::string operation = std::string("getAtt") + element.suffix;
                Bytes bytes(length * element.size + 8, '\0');
                const int status = libraryGetAtt(element.suffix, ncid, varid, name, bytes.data());
                bytes.resize(length * element.size);
                expectSame(operation, attempt(operation, {ncid, varid, name}), status, [&] {
                    if (element.hostClass == vxCHAR_CLASS) // in UTF-8, up to the first NUL
                        return got("getAttText", {ncid, varid, name}).toText() == bytes.c_str()
                                   ? got("getAttText", {ncid, varid, name})
                                   : Value("another text");
                    return valueOfBytes(element.hostClass, {length == 0 ? 0U : 1U, length}, bytes);
                });
            }
        }
    }

    void compareGroup(int ncid)
    {
        compareAttributes(ncid, NC_GLOBAL);
        for (const double varid : got("inqVarIDs", {ncid}).elements<double>()) {
            const Variable variable = describe(ncid, static_cast<int>(varid));
            SCOPED_TRACE(variable.name);
            compareWholeReads(variable);
            compareWaysOfReading(variable);
            compareAttributes(ncid, variable.varid);
        }
        for (const double child : got("inqGrps", {ncid}).elements<double>())
            compareGroup(static_cast<int>(child));
    }
};

TEST_F(RealData, EqualTheLibrarysReadsInEveryTypeAndWay)
{
    const char* data = std::getenv("GRIDIO_DATA");
    if (data == nullptr || !std::filesystem::is_directory(data))
        GTEST_SKIP() << "GRIDIO_DATA names no folder of real files";
    const LeakOfTheLibrary leak; // of strings that are read as numbers
    std::size_t files = 0;
    for (const auto& file : std::filesystem::directory_iterator(data)) {
        if (file.path().extension() != ".nc")
            continue;
        SCOPED_TRACE(file.path().filename().string());
        const int ncid = id("open", {file.path().string(), "nowrite"});
        compareGroup(ncid);
        closeFile(ncid);
        ++files;
    }
    EXPECT_GT(files, 0U);
    RecordProperty("values", std::to_string(valuesSeen));
}

} // namespace
