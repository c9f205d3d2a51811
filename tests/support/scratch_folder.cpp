// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/scratch_folder.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace testsupport {

ScratchFolder::ScratchFolder()
    : path_((std::filesystem::temp_directory_path() / "gridio-test-XXXXXX").string())
{
    if (mkdtemp(path_.data()) == nullptr)
        throw std::system_error(errno, std::generic_category(), path_);
}

ScratchFolder::~ScratchFolder()
{
    std::error_code ignored; // a folder left behind is no reason to fail
    std::filesystem::remove_all(path_, ignored);
}

} // namespace testsupport
