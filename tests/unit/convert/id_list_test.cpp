// SPDX-License-Identifier: BSD-3-Clause
#include "convert/id_list.h"

#include "tests/support/module_test.h"

#include <algorithm>
#include <vector>

namespace Ovard::gridio {
namespace {

using standalone::Value;
using testing::ElementsAre;
using testsupport::outcomeOf;
using testsupport::raises;

const OperationEntry row = {61, "inqGrps", 1, nullptr};

// A stand-in that returns a count at the first call and a list at the second.
struct Library {
    std::vector<int> ids;
    int countStatus = 0;
    int listStatus = 0;
    std::vector<std::string> calls;

    int operator()(int* count, int* list)
    {
        if (count != nullptr) {
            calls.emplace_back(list == nullptr ? "count" : "both");
            *count = static_cast<int>(ids.size());
            return countStatus;
        }
        calls.emplace_back("list");
        EXPECT_TRUE(std::all_of(list, list + ids.size(), [](int id) { return id == 0; }));
        std::copy(ids.begin(), ids.end(), list);
        return listStatus;
    }
};

using InquireIdRow = testsupport::ModuleTest;

TEST_F(InquireIdRow, AsksForTheCountAndThenForTheList)
{
    Library library;
    library.ids = {65540, 3, 65539};
    const Value ids = Value::adopt(inquireIdRow(&row, library));
    EXPECT_EQ(ids, Value::row<double>({65540, 3, 65539}));

    Library counted;
    const Value none = Value::adopt(
        inquireIdRow(&row, [&](int* count, int* list) { return counted(count, list); }));
    EXPECT_EQ(none, Value::empty(vxDOUBLE_CLASS, {0, 0}));
    EXPECT_THAT(counted.calls, ElementsAre("count", "list"));
}

TEST_F(InquireIdRow, MakesNoResultWhenEitherCallFails)
{
    Library first;
    first.countStatus = -33;
    EXPECT_THAT(outcomeOf([&] { return inquireIdRow(&row, first); }),
                raises("libraryFailure", {"inqGrps", "NC_EBADID", "Not a valid ID"}));
    Library second;
    second.ids = {1, 2, 3};
    second.listStatus = -101;
    EXPECT_THAT(outcomeOf([&] { return inquireIdRow(&row, second); }),
                raises("libraryFailure", {"inqGrps", "NC_EHDFERR", "HDF error"}));
    EXPECT_EQ(host.arraysCreated(), 0U);
}

} // namespace
} // namespace Ovard::gridio
