// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/module_test.h"

#include "open_file_registry.h"

namespace testsupport {
namespace {

// The library numbers files by the upper half of an identifier.
constexpr int fileStep = 0x10000;
constexpr int fileCount = 0x8000;

} // namespace

int ModuleTest::createFile(const std::string& name, const standalone::Value& mode)
{
    return static_cast<int>(host.call("create", {folder.file(name), mode}).at(0).toDouble());
}

int ModuleTest::openFile(const std::string& name, const standalone::Value& mode)
{
    return static_cast<int>(host.call("open", {folder.file(name), mode}).at(0).toDouble());
}

void ModuleTest::closeFile(int ncid) { host.call("close", {ncid}); }

void ModuleTest::TearDown()
{
    closeEverything(host);
    EXPECT_THAT(host.breaches(), testing::IsEmpty());
    EXPECT_EQ(host.liveBlocks(), 0U);
    EXPECT_EQ(host.blocksFreed(), host.blocksAllocated());
    EXPECT_EQ(host.liveArrays(), arraysBefore_);
}

void closeEverything(standalone::Host& host)
{
    host.unload();
    if (host.warnings().empty())
        return; // the list is empty
    // Unloading would discard the module's list of files; here the module stays, so the list is
    // emptied by hand.
    for (int file = 0; file < fileCount; ++file)
        Ovard::gridio::unregisterOpenFile(file * fileStep);
}

} // namespace testsupport
