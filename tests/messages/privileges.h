// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace testsupport {

// During its lifetime the process is not root, so that permissions apply. The files that it
// inspects belong to it only if it was not root before.
class OrdinaryUser {
public:
    OrdinaryUser() : before_(geteuid())
    {
        constexpr uid_t nobody = 65534;
        if (before_ == 0 && seteuid(nobody) != 0)
            throw std::system_error(errno, std::generic_category(), "seteuid");
    }
    ~OrdinaryUser() { static_cast<void>(seteuid(before_)); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t before_;
};

} // namespace testsupport
