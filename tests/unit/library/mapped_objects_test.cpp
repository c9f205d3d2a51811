// SPDX-License-Identifier: BSD-3-Clause
#include "library/mapped_objects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <dlfcn.h>

#include <hdf5.h>
#include <netcdf.h>

using namespace Ovard::gridio;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

namespace {

bool isMapped(const std::string& path)
{
    void* handle = dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (handle != nullptr)
        dlclose(handle);
    return handle != nullptr;
}

TEST(LibraryAt, IsThatOfTheFunction)
{
    EXPECT_THAT(libraryAt(reinterpret_cast<const void*>(&nc_inq_libvers)), HasSubstr("netcdf"));
    EXPECT_EQ(libraryAt(nullptr), "");
}

TEST(LibrariesThatDefine, AreThoseOfThisVeryName)
{
    EXPECT_THAT(librariesThatDefine("H5open"),
                Contains(libraryAt(reinterpret_cast<const void*>(&H5open))));
    EXPECT_THAT(librariesThatDefine("H5open"), Not(Contains(HasSubstr("netcdf"))));
    EXPECT_TRUE(librariesThatDefine("a_function_of_no_library").empty());
}

TEST(KeepMapped, OutlastsTheLastUserOfALibrary)
{
    for (const bool isKept : {false, true}) {
        void* handle = dlopen(GRIDIO_UNUSED_LIBRARY, RTLD_NOW);
        ASSERT_NE(handle, nullptr) << dlerror();
        if (isKept)
            keepMapped(dlsym(handle, "unused"));
        dlclose(handle);
        EXPECT_EQ(isMapped(GRIDIO_UNUSED_LIBRARY), isKept);
    }
}

} // namespace
