// SPDX-License-Identifier: BSD-3-Clause
// For tests that define a library function themselves, in front of the library's own, to see it
// called or to answer in its place: the way on to the library.
#pragma once

#include <dlfcn.h>

#include <stdexcept>
#include <string>

namespace testsupport {

// The library's own function of that name; the second argument tells its type.
template <class Function> Function* inLibrary(const char* name, Function*)
{
    void* symbol = dlsym(RTLD_NEXT, name);
    if (symbol == nullptr)
        throw std::runtime_error(std::string("the library has no ") + name);
    return reinterpret_cast<Function*>(symbol); // the only way from a symbol to a function
}

} // namespace testsupport
