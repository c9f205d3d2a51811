// SPDX-License-Identifier: BSD-3-Clause
#include "tests/operations/datasets/dataset_test.h"

using testing::ElementsAre;

namespace {

class Describe : public testsupport::DatasetTest {
protected:
    Value described(int ncid) { return result("describe", {ncid}); }
};

constexpr const char* nested = R"(
types: byte enum sky {clear = 0, cloudy = 1};
dimensions: time = UNLIMITED; lat = 3; lon = 4;
variables: double time(time); time:units = "days since 2000-01-01"; short t(time, lat, lon);
  string s(lat); char c(lat); sky q(lat); double one;
:title = "A title"; :levels = 1, 2;
group: g { dimensions: z = 2; lon = 5; variables: int k(z, lon); k:foo = 1.5f;
  group: h { variables: int k(z); } })";

} // namespace

TEST_F(Describe, ListsGroupsEachBeforeThoseInIt)
{
    const int ncid = openMade(nested);
    const Value groups = described(ncid).field("groups");
    EXPECT_THAT(texts(groups.field("name")), ElementsAre("/", "/g", "/g/h"));
    EXPECT_THAT(numbers(groups.field("parent")), ElementsAre(0, 1, 2));
    EXPECT_EQ(numbers(groups.field("ncid")).at(1), id("inqNcid", {ncid, "g"}));
    EXPECT_EQ(groups.field("attributes").dims(), (Dims{3, 1}));
}

TEST_F(Describe, ListsDimensionsWithTheirGroups)
{
    const Value dimensions = described(openMade(nested)).field("dimensions");
    EXPECT_THAT(texts(dimensions.field("name")), ElementsAre("time", "lat", "lon", "z", "lon"));
    EXPECT_THAT(numbers(dimensions.field("group")), ElementsAre(1, 1, 1, 2, 2));
    EXPECT_THAT(numbers(dimensions.field("length")), ElementsAre(0, 3, 4, 2, 5));
    EXPECT_THAT(numbers(dimensions.field("isUnlimited")), ElementsAre(1, 0, 0, 0, 0));
}

TEST_F(Describe, ListsVariablesWithTypesAndPlacesOfDimensions)
{
    const Value variables = described(openMade(nested)).field("variables");
    EXPECT_THAT(texts(variables.field("name")),
                ElementsAre("time", "t", "s", "c", "q", "one", "k", "k"));
    EXPECT_THAT(texts(variables.field("type")),
                ElementsAre("double", "short", "string", "char", "sky", "double", "int", "int"));
    EXPECT_THAT(texts(variables.field("kind")), ElementsAre("number", "number", "string", "char",
                                                            "enum", "number", "number", "number"));
    EXPECT_THAT(numbers(variables.field("group")), ElementsAre(1, 1, 1, 1, 1, 1, 2, 3));
    const Values places = variables.field("dimensions").cells();
    EXPECT_THAT(numbers(places.at(1)), ElementsAre(3, 2, 1));
    EXPECT_EQ(places.at(5).dims(), (Dims{1, 0}));
    EXPECT_THAT(numbers(places.at(6)), ElementsAre(5, 4));
    EXPECT_THAT(numbers(places.at(7)), ElementsAre(4));
}

TEST_F(Describe, GivesAttributesAsNamesAndValues)
{
    const Value all = described(openMade(nested));
    const Value global = all.field("groups").field("attributes").cells().at(0);
    EXPECT_EQ(global.dims(), (Dims{2, 2}));
    EXPECT_THAT(texts(Value::cell({2, 1}, {global.cells().at(0), global.cells().at(1)})),
                ElementsAre("title", "levels"));
    EXPECT_EQ(global.cells().at(2).toText(), "A title");
    EXPECT_EQ(global.cells().at(3), Value::row<std::int32_t>({1, 2}));
    const Values ofVariables = all.field("variables").field("attributes").cells();
    EXPECT_EQ(ofVariables.at(1).dims(), (Dims{0, 2}));
    EXPECT_EQ(ofVariables.at(6).cells().at(1), Value::scalar<float>(1.5F));
}

TEST_F(Describe, DescribesTheWholeFileWhicheverGroupIsGiven)
{
    const int ncid = openMade(nested);
    EXPECT_EQ(described(id("inqNcid", {ncid, "g"})), described(ncid));
}

TEST_F(Describe, NamesEveryFormatAsTheToolsDo)
{
    for (const char* kind : {"nc3", "nc6", "nc4", "nc7", "nc5"}) {
        const int ncid = openMade("dimensions: x = 2; variables: int v(x);", kind);
        EXPECT_EQ(described(ncid).field("format").toText(),
                  testsupport::ncdumpKind(folder.file("made.nc")));
        EXPECT_EQ(described(ncid).field("path").toText(), folder.file("made.nc"));
        closeFile(ncid);
    }
}

TEST_F(Describe, GivesColumnsWithoutRowsForAnEmptyFile)
{
    const Value all = described(openMade(""));
    EXPECT_EQ(all.field("groups").field("attributes").cells().at(0).dims(), (Dims{0, 2}));
    EXPECT_EQ(all.field("variables").field("name").dims(), (Dims{0, 1}));
    EXPECT_EQ(all.field("dimensions").field("length").dims(), (Dims{0, 1}));
}

TEST_F(Describe, RefusesWhatIsNoOpenFile)
{
    EXPECT_THAT(attemptDataset("describe", {12345}), failsWith("describe", NC_EBADID));
}
