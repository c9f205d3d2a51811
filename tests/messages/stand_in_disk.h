// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <sys/statvfs.h>

namespace testsupport {

// During its lifetime, every file system reports so much free space.
class StandInDisk {
public:
    StandInDisk();
    ~StandInDisk();
    StandInDisk(const StandInDisk&) = delete;
    StandInDisk& operator=(const StandInDisk&) = delete;

    fsblkcnt_t freeBlocks = 100000; // of 4096 bytes
    fsfilcnt_t freeFiles = 100000;
};

} // namespace testsupport
