// SPDX-License-Identifier: BSD-3-Clause
// soak_calls CALLS         repeats recorded programs in plain C and through the module in the
//                          stand-alone host, and fails if the module holds on to memory or
//                          descriptors.
// soak_calls CALLS SCRIPT  writes the programs as a script instead, and prints how many times to
//                          repeat them, and the bytes that plain C leaks in so many calls.
#include "tests/properties/library_executor.h"
#include "tests/properties/module_executor.h"
#include "tests/soak/recorded_programs.h"
#include "tests/support/module_test.h"

#include <malloc.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace {

using soak::Program;

// Caches and free lists fill up at first.
constexpr std::size_t warmingUp = 5;

// Of the module, over all its calls: less than an int for each thousand.
constexpr double bytesAllowed = 4096;

double bytesInUse() { return static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd); }

std::ptrdiff_t descriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

template <class Executor> void repeat(Executor& executor, const std::vector<Program>& programs)
{
    for (const Program& program : programs) {
        for (const properties::Call& call : program)
            executor.run(call);
    }
}

// The bytes in use that so many repetitions add.
template <class Executor>
double growth(Executor& executor, const std::vector<Program>& programs, std::size_t repetitions)
{
    for (std::size_t i = 0; i < warmingUp; ++i)
        repeat(executor, programs);
    const double before = bytesInUse();
    for (std::size_t i = 0; i < repetitions; ++i)
        repeat(executor, programs);
    return bytesInUse() - before;
}

bool soakStandaloneHost(const std::vector<Program>& programs, std::size_t repetitions,
                        const std::string& path, double libraryGrowth)
{
    standalone::Host host;
    properties::ModuleExecutor module(host, path);
    const std::ptrdiff_t descriptorsBefore = descriptors();
    const double moduleGrowth = growth(module, programs, repetitions);
    const std::ptrdiff_t descriptorsLeft = descriptors() - descriptorsBefore;

    std::cout << "stand-alone host: " << soak::callsIn(programs) * repetitions
              << " calls; plain C leaks " << libraryGrowth << " bytes, the module "
              << moduleGrowth - libraryGrowth << " beyond that; " << descriptorsLeft
              << " descriptors, " << host.liveBlocks() << " blocks left\n";
    return moduleGrowth - libraryGrowth < bytesAllowed && descriptorsLeft == 0 &&
           host.liveBlocks() == 0 && host.breaches().empty();
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc < 2)
        return EXIT_FAILURE;
    const testsupport::ScratchFolder folder;
    const std::string path = folder.file("soak.nc");
    const std::vector<Program> programs = soak::recordPrograms(path);
    const auto calls = static_cast<std::size_t>(std::atol(argv[1]));
    const std::size_t repetitions = calls / soak::callsIn(programs) + 1;

    properties::LibraryExecutor library(path);
    const double libraryGrowth = growth(library, programs, repetitions);
    if (argc == 2)
        return soakStandaloneHost(programs, repetitions, path, libraryGrowth) ? EXIT_SUCCESS
                                                                              : EXIT_FAILURE;

    std::ofstream script(argv[2]);
    soak::writeScript(programs, script);
    std::cout << repetitions << ' ' << libraryGrowth << '\n';
    return script.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}
