// SPDX-License-Identifier: BSD-3-Clause
// The linker's --wrap sends calls of f to __wrap_f, and calls of __real_f to f.
#include "tests/unit/library_stand_ins.h"

#include <cstddef>
#include <new>

namespace testsupport {
namespace {

LibraryStandIn* current = nullptr;

} // namespace

LibraryStandIn::LibraryStandIn() { current = this; }
LibraryStandIn::~LibraryStandIn() { current = nullptr; }

} // namespace testsupport

using testsupport::current;

extern "C" {

int __real_nc_close(int ncid);
const char* __real_nc_strerror(int status);
void* __real__Znwm(std::size_t size);

int __wrap_nc_close(int ncid)
{
    if (current == nullptr)
        return __real_nc_close(ncid);
    current->hasMemory = true;
    current->closed.push_back(ncid);
    const auto status = current->closeStatus.find(ncid);
    return status != current->closeStatus.end() ? status->second : 0;
}

const char* __wrap_nc_strerror(int status)
{
    if (current == nullptr || current->statusTexts.count(status) == 0)
        return __real_nc_strerror(status);
    return current->statusTexts.at(status).c_str();
}

// operator new(size_t), under the name that the compiler gives it
void* __wrap__Znwm(std::size_t size)
{
    if (current != nullptr && !current->hasMemory)
        throw std::bad_alloc();
    return __real__Znwm(size);
}

} // extern "C"
