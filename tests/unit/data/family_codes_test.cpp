// SPDX-License-Identifier: BSD-3-Clause
// Family handlers called with a code outside their family, which the operation table never does.
#include "operation_entry.h"

#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

namespace Ovard::gridio::operations {

HandlerFunction getAtt, putAtt, getVar, putVar, getVarSubset, putVarSubset;

} // namespace Ovard::gridio::operations

using namespace Ovard::gridio;
using namespace testsupport;
using standalone::Outcome;
using standalone::Value;

namespace {

class FamilyCodes : public ModuleTest {
protected:
    // Calls a handler with our own row.
    static Outcome callWithCode(Handler handler, std::int32_t code,
                                const std::vector<Value>& values)
    {
        std::vector<const vxArray*> args;
        for (const Value& value : values)
            args.push_back(value.array());
        vxArray* results[4] = {};
        const OperationEntry entry = {code, "strayName", 0, handler};
        Outcome outcome = outcomeOf([&] {
            handler(1, results, static_cast<int>(args.size()), args.data(), &entry);
            return 0;
        });
        if (results[0] != nullptr)
            static_cast<void>(Value::adopt(results[0]));
        return outcome;
    }
};

TEST_F(FamilyCodes, OutsideTheDataFamiliesAreUnrecognized)
{
    struct {
        Handler handler;
        std::int32_t first, last;
        std::vector<Value> args;
    } const families[] = {
        {operations::getVar, 27, 37, {-7, 0}},
        {operations::putVar, 89, 99, {-7, 0, 1}},
        {operations::getVarSubset, 38, 48, {-7, 0, 1}},
        {operations::putVarSubset, 100, 110, {-7, 0, 1, 1}},
    };
    for (const auto& f : families) {
        for (const std::int32_t code : {f.first - 1, f.last + 1, 0, 1000})
            EXPECT_THAT(callWithCode(f.handler, code, f.args),
                        raises("unrecognizedOperation", {"strayName"}))
                << code;
        for (const std::int32_t code : {f.first, f.last})
            EXPECT_EQ(callWithCode(f.handler, code, f.args).raised->name(), "libraryFailure")
                << code;
    }
}

TEST_F(FamilyCodes, OutsideTheAttributeReadsAreUnhandled)
{
    LibraryFile file = LibraryFile::create(folder.file("a.nc"));
    require(nc_put_att_text(file.ncid(), NC_GLOBAL, "a", 1, "x"));
    const std::vector<Value> args = {file.ncid(), NC_GLOBAL, "a"};
    for (const std::int32_t code : {14, 27})
        EXPECT_THAT(callWithCode(operations::getAtt, code, args),
                    raises("unhandledAttributeOperation", {"strayName"}));
    EXPECT_EQ(callWithCode(operations::getAtt, 27, {file.ncid(), NC_GLOBAL, "b"}).raised->name(),
              "libraryFailure"); // the attribute is looked for first
}

TEST_F(FamilyCodes, OutsideTheAttributeWritesAreUnrecognized)
{
    LibraryFile file = LibraryFile::create(folder.file("a.nc"));
    const std::vector<Value> args = {file.ncid(), NC_GLOBAL, "a", NC_INT, 1};
    for (const std::int32_t code : {76, 88})
        EXPECT_THAT(callWithCode(operations::putAtt, code, args),
                    raises("unrecognizedOperation", {"strayName"}));
}

TEST_F(FamilyCodes, OutsideTheAttributeWritesAreNotExemptFromTheEmptyDataRule)
{
    const std::vector<Value> args = {-7, NC_GLOBAL, "a", NC_INT, Value::empty()};
    for (const std::int32_t code : {76, 89})
        EXPECT_THAT(callWithCode(operations::putAtt, code, args), raises("emptyVariableData"));
    EXPECT_EQ(callWithCode(operations::putAtt, 88, args).raised->name(), "libraryFailure");
}

} // namespace
