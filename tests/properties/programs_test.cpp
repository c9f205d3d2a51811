// SPDX-License-Identifier: BSD-3-Clause
// Random programs: the results and the files of a script are those of the same library calls in
// plain C.
//
// Without the environment variable RC_PARAMS a few hundred programs run, always the same ones. With
// RC_PARAMS=max_success=5000 as many run that are new each time; a "seed=..." that was printed
// brings them back. GRIDIO_TRACE=1 prints each call before it is made, in case the library crashes.
#include "tests/properties/file_description.h"
#include "tests/properties/library_executor.h"
#include "tests/properties/module_executor.h"
#include "tests/properties/planner.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

#include <rapidcheck.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <stdexcept>

namespace properties {
namespace {

constexpr int usualPrograms = 400;
constexpr std::uint64_t usualSeed = 1;
constexpr std::size_t choicesOfACommand = 32;
constexpr std::size_t programsToADump = 50; // ncdump is slow to start

struct Figures {
    std::size_t programs = 0;
    std::size_t calls = 0;
    std::size_t refused = 0;
    std::size_t dumps = 0;
};

// The library gives a new netCDF-4 variable other chunks once somebody has asked how many records
// there are. The planner asks all the time of one of the files: so the other one is asked as well.
void askForLengths(int ncid)
{
    int count = 0;
    int ids[NC_MAX_DIMS];
    testsupport::require(nc_inq_dimids(ncid, &count, ids, 0));
    for (int i = 0; i < count; ++i) {
        std::size_t length = 0; // without which the library would not look
        testsupport::require(nc_inq_dimlen(ncid, ids[i], &length));
    }
}

// One program on two files of its own. Throws std::runtime_error at the first difference.
class Comparison {
public:
    Comparison(const testsupport::FileFormat& format, const testsupport::ScratchFolder& folder,
               Figures& figures)
        : figures_(figures), modulePath_(folder.file("module.nc")),
          libraryPath_(folder.file("library.nc")), module_(host_, modulePath_),
          library_(libraryPath_), planner_(format, library_),
          trace_(std::string("in a file of format ") + format.name + ":\n")
    {
        std::filesystem::remove(modulePath_);
        std::filesystem::remove(libraryPath_);
        ++figures_.programs;
    }
    ~Comparison() { testsupport::closeEverything(host_); }
    Comparison(const Comparison&) = delete;
    Comparison& operator=(const Comparison&) = delete;

    void run(const Command& command)
    {
        for (const Call& call : planner_.plan(command))
            run(call);
    }

    void run(const Call& call)
    {
        trace_ += "  " + show(call) + '\n';
        if (std::getenv("GRIDIO_TRACE") != nullptr)
            std::cerr << show(call) << std::endl;
        const Reply expected = library_.run(call);
        const Reply given = module_.run(call);
        ++figures_.calls;
        figures_.refused += expected.failure.empty() ? 0 : 1;
        if (!(given == expected))
            differ("library: " + show(expected) + "\n  module: " + show(given));
        if (call.form == "close" && !expected.failure.empty())
            differ("library: " + show(expected)); // one of its defects, for the planner to avoid
        planner_.note(call, expected);
        for (std::size_t i = 0; i < library_.groupCount(); ++i) {
            askForLengths(library_.ncid({i}));
            askForLengths(module_.ncid({i}));
        }
    }

    // Closes the files, and compares all that they hold.
    void finish()
    {
        if (library_.groupCount() != 0)
            run(Call{"close", "", {Group{0}}});
        if (!host_.breaches().empty() || host_.liveBlocks() != 0)
            differ("the module broke the host's contract");
        const bool exists = std::filesystem::exists(libraryPath_);
        if (exists != std::filesystem::exists(modulePath_))
            differ("only one of the files exists");
        if (!exists || library_.groupCount() != 0) // aborted, or not to be closed
            return;
        const std::string description = describeFile(libraryPath_);
        compare(description, describeFile(modulePath_));
        if (figures_.programs % programsToADump == 0 &&
            description.find(properties::unreadable) == std::string::npos) {
            compare(testsupport::ncdump(libraryPath_), testsupport::ncdump(modulePath_));
            ++figures_.dumps;
        }
    }

    // What was called until now.
    const std::string& trace() const { return trace_; }

private:
    static void compare(const std::string& library, const std::string& module)
    {
        if (library != module)
            differ("library's file:\n" + library + "module's file:\n" + module);
    }
    [[noreturn]] static void differ(const std::string& how) { throw std::runtime_error(how); }

    Figures& figures_;
    std::string modulePath_;
    std::string libraryPath_;
    standalone::Host host_;
    ModuleExecutor module_;
    LibraryExecutor library_;
    Planner planner_;
    std::string trace_;
};

rc::Gen<Command> anyCommand()
{
    const auto choice =
        rc::gen::cast<unsigned char>(rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, 256)));
    return rc::gen::build<Command>(
        rc::gen::set(&Command::action, choice),
        rc::gen::set(&Command::choices,
                     rc::gen::container<std::vector<unsigned char>>(choicesOfACommand, choice)));
}

rc::detail::TestParams parameters()
{
    rc::detail::TestParams params = rc::detail::configuration().testParams;
    if (std::getenv("RC_PARAMS") == nullptr) {
        params.maxSuccess = usualPrograms;
        params.seed = usualSeed;
    }
    return params;
}

TEST(Programs, MatchPlainLibraryCalls)
{
    const testsupport::ScratchFolder folder;
    Figures figures;
    const rc::detail::TestParams params = parameters();
    const auto result = rc::detail::checkTestable(
        [&] {
            const auto& format = testsupport::fileFormats[*rc::gen::inRange<std::size_t>(
                0, std::size(testsupport::fileFormats))];
            const auto program = *rc::gen::container<std::vector<Command>>(anyCommand());
            Comparison comparison(format, folder, figures);
            try {
                for (const Command& command : program)
                    comparison.run(command);
                comparison.finish();
            } catch (const std::exception& difference) {
                RC_FAIL(comparison.trace() + "  " + difference.what());
            }
        },
        rc::detail::TestMetadata{}, params);

    std::cout << figures.programs << " programs, " << figures.calls << " calls, " << figures.refused
              << " of them refused by the library, " << figures.dumps
              << " pairs of files dumped, seed " << params.seed << '\n';
    if (!result.is<rc::detail::SuccessResult>()) {
        std::ostringstream message;
        rc::detail::printResultMessage(result, message);
        FAIL() << message.str();
    }
}

} // namespace
} // namespace properties
