// SPDX-License-Identifier: BSD-3-Clause
// The operations of many files, with arguments as the classes pass them and as nobody should.
#include "tests/operations/datasets/dataset_test.h"
#include "tests/support/chunk_filters.h"
#include "tests/support/chunked_file.h"

#include <cmath>
#include <filesystem>
#include <fstream>

using standalone::Dims;
using standalone::Value;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class Parts : public testsupport::DatasetTest {
protected:
    using Fields = std::vector<std::pair<std::string, Value>>;

    // A file with the values first, first + 1, ... at so many times, two at each.
    std::string made(const std::string& name, int first, int times,
                     const std::string& units = "days since 2000-01-01",
                     const std::string& kind = "nc4")
    {
        std::string moments, values;
        for (int i = 0; i < times; ++i) {
            moments += (i == 0 ? "" : ", ") + std::to_string(first + i);
            values += (i == 0 ? "" : ", ") + std::to_string(first + 2 * i) + ", " +
                      std::to_string(first + 2 * i + 1);
        }
        const std::string path = folder.file(name);
        testsupport::ncgen(path,
                           "netcdf made { dimensions: time = UNLIMITED; x = 2; variables: double "
                           "time(time); time:units = \"" +
                               units + "\"; int v(time, x); data: time = " + moments +
                               "; v = " + values + "; }",
                           kind);
        return path;
    }

    static Value list(const std::vector<std::string>& texts)
    {
        return Value::cell({texts.size(), 1}, Values(texts.begin(), texts.end()));
    }

    static Value changed(Fields fields, const std::string& name, const Value& value)
    {
        for (auto& [field, old] : fields)
            if (field == name)
                old = value;
        return Value::structure(fields);
    }

    // How often this process has a file open.
    static int openTimes(const std::string& path)
    {
        int count = 0;
        for (const auto& link : std::filesystem::directory_iterator("/proc/self/fd")) {
            std::error_code failure;
            count += std::filesystem::read_symlink(link.path(), failure) == path ? 1 : 0;
        }
        return count;
    }

    static Fields request()
    {
        return {{"dimension", "/time"},   {"coordinate", "/time"},
                {"bounds", ""},           {"units", "days since 2000-01-01"},
                {"calendar", "standard"}, {"longUnits", "refused"}};
    }

    static Fields partsOf(const std::vector<std::string>& paths, const std::vector<double>& lengths)
    {
        const Value none = Value::cell({0, 0}, {});
        return {{"owner", 1},
                {"paths", list(paths)},
                {"name", "v"},
                {"dimension", 2},
                {"isNew", 0},
                {"lengths", Value::row(lengths)},
                {"isUsed", Value::row(std::vector<double>(lengths.size(), 1))},
                {"units", none},
                {"calendars", none},
                {"toUnits", ""},
                {"toCalendar", ""},
                {"longUnits", "refused"}};
    }

    Values reduction(const Value& parts, const Value& start, const Value& count)
    {
        const Value none = Value::cell({0, 0}, {});
        return {"mean", parts, start, count, 31, Value::row<double>({0, 1}), none, none};
    }
};

} // namespace

TEST_F(Parts, AreScannedInOneUnitOfTime)
{
    const std::string one = made("one.nc", 4, 2);
    const std::string other = made("other.nc", 0, 1, "days since 2000-01-07");
    const std::string text = folder.file("text.nc");
    std::ofstream(text) << "no netCDF file";
    const Value found =
        result("scan", {list({one, text, other, "nosuch.nc"}), Value::structure(request())});
    EXPECT_THAT(numbers(found.field("values")), ElementsAre(4, 5, 6));
    EXPECT_EQ(numbers(found.field("lengths"))[2], 1);
    EXPECT_TRUE(std::isnan(numbers(found.field("lengths"))[1]));
    EXPECT_EQ(numbers(found.field("fingerprints"))[0], numbers(found.field("fingerprints"))[2]);
    EXPECT_EQ(numbers(found.field("sizes"))[1], 14);
    EXPECT_THAT(texts(found.field("problems")),
                ElementsAre("", Not(IsEmpty()), "", HasSubstr("No such file")));
    EXPECT_EQ(texts(found.field("units"))[2], "days since 2000-01-07");
}

TEST_F(Parts, AreNotScannedIfTheirCalendarIsAnother)
{
    const std::string one = made("one.nc", 4, 2);
    const Value found =
        result("scan", {list({one}), changed(request(), "calendar", Value("noleap"))});
    EXPECT_THAT(texts(found.field("problems"))[0], HasSubstr("calendar"));
    EXPECT_THAT(numbers(found.field("values")), IsEmpty());
}

TEST_F(Parts, AreReadByPathWhileTheyAreAsTheyWere)
{
    const std::string one = made("one.nc", 4, 3);
    const Value two = Value::row<double>({2, 2}), zero = Value::row<double>({0, 0}),
                step = Value::row<double>({1, 1});
    const Value lengths = Value::row<double>({2, 3});
    EXPECT_EQ(result("readPart", {1, one, "/v", lengths, zero, two, step, 31}),
              Value::numeric<std::int32_t>({2, 2}, {4, 5, 6, 7}));
    EXPECT_THAT(attemptDataset("readPart", {1, one, "v", two, zero, two, step, 31}),
                testsupport::raisesInDatasets("badPart", {"v", "its size is 2 x 3 and not 2 x 2"}));
    EXPECT_TRUE(attemptDataset("readPart", {1, one, "w", two, zero, two, step, 31}).raised);
    EXPECT_TRUE(attemptDataset("readPart", {1, one, "a/b/v", two, zero, two, step, 31}).raised);
    EXPECT_TRUE(attemptDataset("readPart", {1, "nosuch.nc", "v", two, zero, two, step, 31}).raised);
    results("closeParts", {1}, 0);
    EXPECT_EQ(result("readPart", {1, one, "v", lengths, zero, step, step, 0}),
              Value::scalar<std::int32_t>(4));
    results("closeParts", {1}, 0);
    results("closeParts", {77}, 0);
}

TEST_F(Parts, AreReducedAcrossTheirEnds)
{
    const std::vector<std::string> paths{made("a.nc", 0, 2), made("b.nc", 10, 3)};
    const Value start = Value::row<double>({0, 1}), count = Value::row<double>({2, 3});
    const Fields parts = partsOf(paths, {2, 3});
    const Values means =
        results("reduceParts", reduction(Value::structure(parts), start, count), 4);
    EXPECT_THAT(numbers(means[0]), ElementsAre((2 + 10 + 12) / 3.0, (3 + 11 + 13) / 3.0));
    EXPECT_EQ(means[2], Value::number(0));
    const Value used = Value::row<double>({0, 1});
    EXPECT_THAT(numbers(results("reduceParts",
                                reduction(changed(parts, "isUsed", used), start, count), 4)[0]),
                ElementsAre(11, 12));
    results("closeParts", {1}, 0);
}

TEST_F(Parts, AreNamedByNumberIfTheyFail)
{
    const std::vector<std::string> paths{made("a.nc", 0, 2), "nosuch.nc"};
    const Value zero = Value::row<double>({0, 0}), count = Value::row<double>({2, 3});
    const Values failed =
        results("reduceParts", reduction(Value::structure(partsOf(paths, {2, 1})), zero, count), 4);
    EXPECT_EQ(failed[2], Value::number(2));
    EXPECT_THAT(failed[3].toText(), HasSubstr("No such file"));
    results("closeParts", {1}, 0);
}

TEST_F(Parts, AreReducedWhileTheNextIsRead)
{
    const testsupport::ChunkedVariable variable;
    const std::string path = folder.file("chunks.nc");
    testsupport::makeChunked(path, variable);
    const std::vector<std::string> paths{path, path, path};
    const auto times = static_cast<double>(variable.lengths[0]);
    Fields parts = partsOf(paths, {times, times, times});
    parts[3].second = Value::number(3);
    Values arguments = reduction(Value::structure(parts), Value::row<double>({0, 0, 0}),
                                 Value::row<double>({70, 60, 3 * times}));
    arguments[5] = Value::row<double>({1, 1, 1});
    const auto last = static_cast<double>(testsupport::countOf(variable.lengths) - 1);
    EXPECT_THAT(numbers(results("reduceParts", arguments, 4)[0]), ElementsAre(last / 2));
    arguments[5] = Value::row<double>({1, 1, 0});
    const std::vector<double> means = numbers(results("reduceParts", arguments, 4)[0]);
    ASSERT_EQ(means.size(), 3 * variable.lengths[0]);
    for (std::size_t i = 0; i < means.size(); ++i)
        EXPECT_EQ(means[i], static_cast<double>(i % variable.lengths[0]) * 4200 + 4199 / 2.0);
    results("closeParts", {1}, 0);
}

TEST_F(Parts, FailInTheirOrder)
{
    const testsupport::ChunkedVariable variable;
    const std::string good = folder.file("chunks.nc");
    const std::string damaged = folder.file("damaged.nc");
    testsupport::makeChunked(good, variable);
    testsupport::makeFiltered(damaged, variable,
                              {testsupport::filterFor(Ovard::gridio::deflateFilter, 4),
                               testsupport::filterFor(Ovard::gridio::fletcher32Filter, 4)},
                              [](std::string& bytes) { bytes[bytes.size() / 2] ^= 0x55; });
    for (const std::string& last : {good, damaged, std::string("nosuch.nc")}) {
        Fields parts = partsOf({good, damaged, last}, {8, 8, 8});
        parts[3].second = Value::number(3);
        Values arguments = reduction(Value::structure(parts), Value::row<double>({0, 0, 0}),
                                     Value::row<double>({70, 60, 24}));
        arguments[5] = Value::row<double>({0, 0, 1});
        const Values failed = results("reduceParts", arguments, 4);
        EXPECT_EQ(failed[2], Value::number(2)) << last;
        EXPECT_THAT(failed[3].toText(), HasSubstr("HDF error")) << last;
        results("closeParts", {1}, 0);
    }
}

TEST_F(Parts, RefuseStructuresThatAreNone)
{
    const Fields parts = partsOf({made("a.nc", 0, 2)}, {2});
    const Value zero = Value::row<double>({0, 0}), count = Value::row<double>({2, 2});
    const Values bad = {
        Value::number(3),
        Value::structure({{"owner", 1}}),
        changed(parts, "lengths", Value::row<double>({1, 2})),
        changed(parts, "isUsed", Value::empty()),
        changed(parts, "paths", Value("a.nc")),
        changed(parts, "dimension", Value::number(0)),
        changed(parts, "dimension", Value::number(3)),
        changed(parts, "lengths", Value::row<double>({1})),
        changed(parts, "lengths", Value::row<double>({-5})),
        changed(parts, "lengths", Value::row<double>({std::nan("")})),
        changed(parts, "units", list({"a", "b"})),
        changed(parts, "longUnits", Value("maybe")),
    };
    for (std::size_t i = 0; i < bad.size(); ++i)
        EXPECT_TRUE(attemptDataset("reduceParts", reduction(bad[i], zero, count)).raised) << i;
    EXPECT_TRUE(attemptDataset("reduceParts",
                               reduction(Value::structure(parts), zero, Value::row<double>({2})))
                    .raised);
    EXPECT_TRUE(attemptDataset("scan", {"a.nc", Value::structure(request())}).raised);
    EXPECT_TRUE(attemptDataset("scan", {list({"a.nc"}), Value::number(1)}).raised);
    EXPECT_TRUE(attemptDataset("fileStates", {3}).raised);
}

TEST_F(Parts, AreLeftOutOfTheWholeIfTheirShapeIsAnother)
{
    const std::vector<std::string> paths{made("a.nc", 0, 2)};
    const Value zero = Value::row<double>({0, 0}), count = Value::row<double>({2, 5});
    const Values failed =
        results("reduceParts", reduction(Value::structure(partsOf(paths, {5})), zero, count), 4);
    EXPECT_EQ(failed[2], Value::number(1));
    EXPECT_THAT(failed[3].toText(), Not(IsEmpty()));
    Fields stacked = partsOf(paths, {1});
    const Value alone = changed(stacked, "isNew", Value::number(1));
    EXPECT_EQ(results("reduceParts", reduction(alone, zero, Value::row<double>({2, 1})), 4)[2],
              Value::number(1));
    results("closeParts", {1}, 0);
}

TEST_F(Parts, AreOpenSixtyThreeAtATime)
{
    const std::string path = made("a.nc", 0, 1, "days since 2000-01-01", "classic");
    const Value one = Value::row<double>({1, 1}), zero = Value::row<double>({0, 0});
    for (int owner = 0; owner < 100; ++owner)
        result("readPart", {owner, path, "v", Value::row<double>({2, 1}), zero, one, one, 0});
    EXPECT_EQ(openTimes(path), 63);
    for (int owner = 0; owner < 100; ++owner)
        results("closeParts", {owner}, 0);
    EXPECT_EQ(openTimes(path), 0);
}

TEST_F(Parts, HaveTimesInOtherUnits)
{
    const Value times = Value::row<double>({0, 1.5, std::nan("")});
    EXPECT_THAT(numbers(result("timesToTimes", {times, "days since 2000-01-02", "standard",
                                                "hours since 2000-01-01", "gregorian", "refused"})),
                ElementsAre(24, 60, testing::IsNan()));
    EXPECT_TRUE(
        attemptDataset("timesToTimes", {times, "days since 1500-01-02", "standard",
                                        "hours since 2000-01-01", "proleptic_gregorian", "refused"})
            .raised);
    EXPECT_TRUE(attemptDataset("timesToTimes", {times, "days since 2000-01-02", "360_day",
                                                "days since 2000-01-02", "standard", "refused"})
                    .raised);
}
