// SPDX-License-Identifier: BSD-3-Clause
// Descriptions of types that contradict themselves, as those of a damaged file may: each is an
// error, before anything is read or written by it.
#include "tests/faults/fault_test.h"

#include <netcdf.h>

#include <algorithm>
#include <functional>
#include <limits>

namespace faults {
namespace {

constexpr int variable = 2;  // of the type "nested"
constexpr int attribute = 2; // the variable that has it

struct Damage {
    const char* name;
    std::function<void(LibraryStandIn&)> report;
};

std::vector<Damage> damages()
{
    const auto kind = [](int typeClass, auto change) {
        return [=](LibraryStandIn& library) {
            library.typeClass = typeClass;
            change(library);
        };
    };
    const auto nothing = [](LibraryStandIn&) {};
    return {
        {"UnknownClass", kind(77, nothing)},
        {"VlenOfAnotherSize", kind(NC_VLEN, nothing)},
        {"OpaqueWithoutBytes", kind(NC_OPAQUE, [](LibraryStandIn& l) { l.typeSize = 0; })},
        {"EnumerationOfFloats", kind(NC_ENUM, [](LibraryStandIn& l) { l.typeBase = NC_FLOAT; })},
        {"EnumerationOfAnotherSize",
         kind(NC_ENUM, [](LibraryStandIn& l) { l.typeBase = NC_BYTE; })},
        {"CompoundWithoutFields", [](LibraryStandIn& l) { l.typeParts = 0; }},
        {"FieldBehindItsType", [](LibraryStandIn& l) { l.fieldOffset = 1000; }},
        {"FieldBeyondCounting",
         [](LibraryStandIn& l) { l.fieldOffset = std::numeric_limits<std::size_t>::max() - 3; }},
        {"FieldOfNoElements",
         [](LibraryStandIn& l) {
             l.fieldRank = 1;
             l.fieldLength = 0;
         }},
        {"FieldOfFewerThanNoElements",
         [](LibraryStandIn& l) {
             l.fieldRank = 1;
             l.fieldLength = -1;
         }},
        {"FieldOfTooManyElements",
         [](LibraryStandIn& l) {
             l.fieldRank = 1;
             l.fieldLength = std::numeric_limits<int>::max();
         }},
    };
}

class DamagedType : public FaultTest, public testing::WithParamInterface<Damage> {
protected:
    void expectDamaged(const std::string& operation, const std::vector<Value>& arguments)
    {
        SCOPED_TRACE(operation);
        LibraryStandIn library;
        GetParam().report(library);
        const Outcome outcome = host.attemptAny(operation, arguments, 2);
        ASSERT_FALSE(outcome.succeeded());
        EXPECT_EQ(outcome.raised->identifier, "Ovard:gridio:any:damagedType") << outcome;
        const auto transfers = [](const std::string& call) {
            return call.find("nc_get_") == 0 || call.find("nc_put_") == 0;
        };
        EXPECT_EQ(std::count_if(library.calls.begin(), library.calls.end(), transfers), 0);
    }
};

TEST_P(DamagedType, IsAnErrorOfEachTransfer)
{
    {
        const PreparedFile file(folder.path(), fuzz::Function::gridioAny);
        const int ncid = file.ncid();
        expectDamaged("getVar", {ncid, variable});
        expectDamaged("getVara", {ncid, variable, 0, 1});
        expectDamaged("putVar", {ncid, variable, Value::structure({{"name", "a"}})});
        expectDamaged("getAtt", {ncid, attribute, "range"});
        expectDamaged("putAtt", {ncid, attribute, "new", "nested", 1});
        expectDamaged("defVarFill", {ncid, variable, false, 1});
        expectDamaged("inqVarFill", {ncid, variable});
    }
    expectHealth();
}

INSTANTIATE_TEST_SUITE_P(Damages, DamagedType, testing::ValuesIn(damages()),
                         [](const auto& damage) { return std::string(damage.param.name); });

class TypeDescription : public FaultTest {};

TEST_F(TypeDescription, IsDamagedWhenATypeHoldsItself)
{
    {
        const PreparedFile file(folder.path(), fuzz::Function::gridioAny);
        nc_type nested = NC_NAT;
        ASSERT_EQ(nc_inq_typeid(file.ncid(), "nested", &nested), NC_NOERR);
        LibraryStandIn library;
        library.fieldType = nested;
        const Outcome outcome = host.attemptAny("getVar", {file.ncid(), variable});
        ASSERT_FALSE(outcome.succeeded());
        EXPECT_EQ(outcome.raised->identifier, "Ovard:gridio:any:damagedType");
    }
    expectHealth();
}

TEST_F(TypeDescription, IsRefusedForMoreBytesThanCanBeCounted)
{
    {
        const PreparedFile file(folder.path(), fuzz::Function::gridioAny);
        LibraryStandIn library;
        library.typeClass = NC_OPAQUE;
        library.typeSize = std::numeric_limits<std::size_t>::max() / 2 + 1;
        const Outcome outcome = host.attemptAny("getVar", {file.ncid(), variable});
        EXPECT_THAT(outcome, testsupport::raises("argumentOutOfBounds"));
    }
    expectHealth();
}

} // namespace
} // namespace faults
