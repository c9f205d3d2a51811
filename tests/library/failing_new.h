// SPDX-License-Identifier: BSD-3-Clause
// operator new that fails at the request of a test, in the module and in code that it calls, except
// in the C libraries.
#pragma once

#include <cstddef>

namespace testsupport {

enum class Failing { once, fromThenOn };

// Which calls count: those while plugFunction is running, or all of the process.
enum class Where { inModule, everywhere };

// During its lifetime the n-th call of operator new (1: the next) throws std::bad_alloc, and on
// request all later calls too.
class FailingNew {
public:
    FailingNew(std::size_t n, Failing failing, Where where = Where::inModule);
    ~FailingNew();
    FailingNew(const FailingNew&) = delete;
    FailingNew& operator=(const FailingNew&) = delete;

    // Whether a call has failed.
    static bool hasFailed();
};

// Blocks of operator new that are not deleted.
long liveNewBlocks();

} // namespace testsupport
