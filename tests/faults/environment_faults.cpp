// SPDX-License-Identifier: BSD-3-Clause
// Faults of the environment, in every format: a full disk, missing permissions, no descriptors, and
// a file that is removed or truncated while it is open.
#include "tests/faults/fault_test.h"
#include "tests/support/file_formats.h"

#include <netcdf.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <system_error>

namespace testsupport {

void PrintTo(const FileFormat& format, std::ostream* out) { *out << format.name; }

} // namespace testsupport

namespace faults {
namespace {

// Sets a soft limit of the process for its lifetime.
class Limit {
public:
    Limit(decltype(RLIMIT_NOFILE) resource, rlim_t limit) : resource_(resource)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(resource_, &before_);
        const rlimit now = {limit, before_.rlim_max};
        if (setrlimit(resource_, &now) != 0)
            throw std::system_error(errno, std::generic_category(), "setrlimit");
    }
    ~Limit() { setrlimit(resource_, &before_); }
    Limit(const Limit&) = delete;
    Limit& operator=(const Limit&) = delete;

private:
    decltype(RLIMIT_NOFILE) resource_;
    rlimit before_ = {};
};

constexpr std::size_t length = 40000;

class Environment : public FaultTest, public testing::WithParamInterface<testsupport::FileFormat> {
protected:
    std::string path() const { return folder.file("file.nc"); }

    // With a variable v of doubles that is larger than any buffer, in define mode or not.
    int create()
    {
        const int ncid = id("create", {path(), GetParam().mode});
        host.call("putAttText", {ncid, NC_GLOBAL, "title", "kept"});
        host.call("defDim", {ncid, "x", length});
        host.call("defVar", {ncid, "v", NC_DOUBLE, 0});
        return ncid;
    }

    void makeFile()
    {
        const int ncid = create();
        host.call("endDef", {ncid});
        host.call("putVarDouble", {ncid, 0, values()});
        host.call("close", {ncid});
    }

    int id(const std::string& operation, const std::vector<Value>& arguments)
    {
        return static_cast<int>(host.call(operation, arguments).at(0).toDouble());
    }

    static Value values() { return Value::column(std::vector<double>(length, 1.5)); }

    void expectAllValues()
    {
        const int ncid = id("open", {path(), "nowrite"});
        EXPECT_EQ(host.call("getVarDouble", {ncid, 0}).at(0), values());
        host.call("close", {ncid});
    }
};

MATCHER(failsInTheLibrary, "") { return arg.raised && arg.raised->name() == "libraryFailure"; }

TEST_P(Environment, ReportsAFullDiskAndContinues)
{
    const int ncid = create();
    {
        const Limit full(RLIMIT_FSIZE, 20000);
        const Outcome ended = host.attempt("endDef", {ncid});
        const Outcome written = host.attempt("putVarDouble", {ncid, 0, values()});
        const Outcome synchronised = host.attempt("sync", {ncid});
        EXPECT_TRUE(!ended.succeeded() || !written.succeeded() || !synchronised.succeeded());
        for (const Outcome* outcome : {&ended, &written, &synchronised})
            EXPECT_TRUE(outcome->succeeded() || outcome->raised->name() == "libraryFailure");
        EXPECT_THAT(host.attempt("close", {ncid}), failsInTheLibrary());
        EXPECT_THAT(host.attempt("close", {ncid}), failsInTheLibrary());
        EXPECT_THAT(host.attempt("inq", {ncid}), testsupport::succeeds());
    }
    host.attempt("abort", {ncid});
    expectHealth();

    makeFile();
    expectAllValues();
    expectHealth();
}

// Once there is space again, the writes to a netCDF-4 file that failed before succeed.
TEST_P(Environment, KeepsANetcdf4FileUsableAfterAFullDisk)
{
    if (!GetParam().isNetcdf4)
        return;
    const int ncid = create();
    host.call("endDef", {ncid});
    {
        const Limit full(RLIMIT_FSIZE, 20000);
        EXPECT_THAT(host.attempt("putVarDouble", {ncid, 0, values()}), failsInTheLibrary());
        EXPECT_THAT(host.attempt("close", {ncid}), failsInTheLibrary());
    }
    host.call("putVarDouble", {ncid, 0, values()});
    host.call("close", {ncid});
    expectAllValues();
    expectHealth();
}

TEST_P(Environment, KeepsAReadOnlyFileUnchanged)
{
    makeFile();
    const int ncid = id("open", {path(), "nowrite"});
    const bool isDefining = host.attempt("redef", {ncid}).succeeded();
    EXPECT_FALSE(isDefining);
    for (const auto& [operation, arguments] :
         std::vector<std::pair<std::string, std::vector<Value>>>{
             {"putVarDouble", {ncid, 0, values()}},
             {"putVar1Double", {ncid, 0, 0, 2}},
             {"defDim", {ncid, "y", 3}},
             {"defVar", {ncid, "w", NC_INT, 0}},
             {"putAttText", {ncid, NC_GLOBAL, "title", "lost"}},
             {"delAtt", {ncid, NC_GLOBAL, "title"}},
             {"renameVar", {ncid, 0, "w"}},
             {"renameDim", {ncid, 0, "y"}}})
        EXPECT_THAT(host.attempt(operation, arguments), failsInTheLibrary()) << operation;
    host.call("close", {ncid});
    expectAllValues();
    expectHealth();
}

TEST_P(Environment, RefusesToOpenAnotherUsersFileForWriting)
{
    makeFile();
    constexpr uid_t nobody = 65534;
    const bool isRoot = geteuid() == 0;
    // An ordinary user, who owns the folder here, could remove the file from it.
    std::filesystem::permissions(folder.path(), std::filesystem::perms{isRoot ? 0755U : 0555U});
    std::filesystem::permissions(path(), std::filesystem::perms{0444});
    ASSERT_EQ(isRoot ? seteuid(nobody) : 0, 0);
    const Outcome opened = host.attempt("open", {path(), "write"});
    const Outcome created = host.attempt("create", {path(), GetParam().mode});
    ASSERT_EQ(isRoot ? seteuid(0) : 0, 0);
    std::filesystem::permissions(folder.path(), std::filesystem::perms{0755});

    EXPECT_THAT(opened, failsInTheLibrary());
    EXPECT_THAT(created, failsWithStatus("create", EACCES));
    expectAllValues();
    expectHealth();
}

TEST_P(Environment, KeepsARemovedFileReadable)
{
    makeFile();
    const int ncid = id("open", {path(), "write"});
    std::filesystem::remove(path());
    EXPECT_EQ(host.call("getVarDouble", {ncid, 0}).at(0), values());
    host.call("putVar1Double", {ncid, 0, 7, 2.5});
    EXPECT_EQ(host.call("getVar1Double", {ncid, 0, 7}).at(0), Value(2.5));
    host.call("close", {ncid});
    EXPECT_FALSE(host.attempt("open", {path(), "nowrite"}).succeeded());
    expectHealth();
}

TEST_P(Environment, SurvivesAFileTruncatedWhileOpen)
{
    for (const char* mode : {"nowrite", "write"}) {
        for (const std::uintmax_t size :
             {std::uintmax_t{0}, std::uintmax_t{100}, std::uintmax_t{9000}}) {
            SCOPED_TRACE(mode + (" " + std::to_string(size)));
            makeFile();
            const int ncid = id("open", {path(), mode});
            std::filesystem::resize_file(path(), size);
            for (const char* operation : {"getVarDouble", "getVarFloat"}) {
                const Outcome outcome = host.attempt(operation, {ncid, 0});
                EXPECT_TRUE(outcome.succeeded() || outcome.raised->name() == "libraryFailure");
            }
            host.attempt("putVar1Double", {ncid, 0, 7, 2.5});
            host.attempt("sync", {ncid});
            if (!host.attempt("close", {ncid}).succeeded())
                host.attempt("abort", {ncid});
            std::filesystem::remove(path());
        }
    }
    EXPECT_THAT(host.attempt("inqLibVers"), testsupport::succeeds());
}

TEST_P(Environment, OpensAndLosesNothingWithoutDescriptors)
{
    makeFile();
    {
        const int free = dup(0);
        ASSERT_GE(free, 0);
        ::close(free);
        const Limit none(RLIMIT_NOFILE, static_cast<rlim_t>(free));
        for (int i = 0; i < 3; ++i) {
            const Outcome opened = host.attempt("open", {path(), "nowrite"});
            EXPECT_THAT(opened, failsWithStatus("open", EMFILE));
            EXPECT_THAT(host.attempt("create", {folder.file("new.nc"), GetParam().mode}),
                        failsInTheLibrary());
        }
    }
    expectAllValues();
    expectHealth();
}

INSTANTIATE_TEST_SUITE_P(Formats, Environment, testing::ValuesIn(testsupport::fileFormats),
                         [](const auto& format) {
                             std::string name = format.param.name;
                             name.erase(
                                 std::remove_if(name.begin(), name.end(),
                                                [](unsigned char c) { return !std::isalnum(c); }),
                                 name.end());
                             return name;
                         });

} // namespace
} // namespace faults
