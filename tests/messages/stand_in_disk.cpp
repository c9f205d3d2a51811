// SPDX-License-Identifier: BSD-3-Clause
// The linker's --wrap sends calls of statvfs to __wrap_statvfs.
#include "tests/messages/stand_in_disk.h"

namespace testsupport {
namespace {

const StandInDisk* current = nullptr;

} // namespace

StandInDisk::StandInDisk() { current = this; }
StandInDisk::~StandInDisk() { current = nullptr; }

namespace {

int answer(struct statvfs* system)
{
    *system = {};
    system->f_frsize = 4096;
    system->f_blocks = 1000000;
    system->f_bfree = system->f_bavail = current->freeBlocks;
    system->f_files = 1000000;
    system->f_ffree = system->f_favail = current->freeFiles;
    return 0;
}

} // namespace
} // namespace testsupport

extern "C" int __real_statvfs(const char* path, struct statvfs* system);
extern "C" int __wrap_statvfs(const char* path, struct statvfs* system)
{
    return testsupport::current == nullptr ? __real_statvfs(path, system)
                                           : testsupport::answer(system);
}
