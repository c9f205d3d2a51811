// SPDX-License-Identifier: BSD-3-Clause
#include "fuzz/scratch_folder.h"

#include <sys/resource.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace fuzz {
namespace {

constexpr rlim_t largestFile = 4 << 20;

void limitFileSize()
{
    // A write past the bound must fail as on a full disk, not end the process.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = largestFile;
    setrlimit(RLIMIT_FSIZE, &limit);
}

struct ScratchFolder {
    std::string root;
    std::string current;
    int number = 0;

    ScratchFolder()
    {
        const bool inMemory = std::filesystem::is_directory("/dev/shm");
        root = (inMemory ? "/dev/shm" : std::filesystem::temp_directory_path().string()) +
               "/gridio-fuzz-XXXXXX";
        if (mkdtemp(root.data()) == nullptr) {
            std::perror(root.c_str());
            std::_Exit(1);
        }
        limitFileSize();
        replace();
    }

    ~ScratchFolder()
    {
        std::error_code ignored; // what remains is in memory, or among temporary files
        std::filesystem::remove_all(root, ignored);
    }

    void replace()
    {
        current = root + "/" + std::to_string(number++);
        std::filesystem::create_directory(current);
    }
};

ScratchFolder& folder()
{
    static ScratchFolder theFolder;
    return theFolder;
}

} // namespace

const std::string& scratchFolder() { return folder().current; }

void replaceScratchFolder() { folder().replace(); }

} // namespace fuzz
