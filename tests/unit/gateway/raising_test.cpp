// SPDX-License-Identifier: BSD-3-Clause
// Raising an identifier as an error: vx/error.h.
#include "vx/error.h"

#include "error_identifiers.h"
#include "hosts/standalone/host.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace Ovard::gridio {
namespace {

using netcdf::libraryFailure;
using LibraryFailureException = fnd::except::Exception<libraryFailure, std::exception>;

[[noreturn]] void raise() { vxErrMsgId(libraryFailure("open", "2", "No such file or directory")); }

TEST(Raising, GivesTheHostsRaiserAnExceptionOfItsInterfaces)
{
    static_assert(std::is_base_of_v<fnd::except::IMsgIDException, LibraryFailureException>);
    static_assert(std::is_base_of_v<fnd::except::IUserException, LibraryFailureException>);
    static_assert(std::is_base_of_v<std::exception, LibraryFailureException>);
    standalone::Host host;
    host.setRaiser(standalone::Raiser::throws);
    try {
        raise();
    } catch (const standalone::RaisedError& error) {
        EXPECT_EQ(error.raised().identifier, "Ovard:gridio:netcdf:libraryFailure");
        ASSERT_EQ(error.raised().arguments.size(), 3U);
        EXPECT_EQ(error.raised().arguments[1], standalone::Argument("2"));
    }
}

TEST(Raising, ThrowsByItselfWhenTheHostsRaiserReturns)
{
    standalone::Host host;
    host.setRaiser(standalone::Raiser::returns);
    try {
        raise();
    } catch (const fnd::except::IMsgIDException& error) {
        EXPECT_STREQ(error.messageId().identifier(), "Ovard:gridio:netcdf:libraryFailure");
        EXPECT_EQ(error.messageId().arguments().size(), 3U);
        EXPECT_NE(dynamic_cast<const libraryFailure*>(&error.messageId()), nullptr);
    }
    EXPECT_THROW(raise(), LibraryFailureException);
    EXPECT_THROW(raise(), std::exception);
}

} // namespace
} // namespace Ovard::gridio
