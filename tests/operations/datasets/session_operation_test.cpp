// SPDX-License-Identifier: BSD-3-Clause
#include "tests/operations/datasets/dataset_test.h"

namespace {

class Session : public testsupport::DatasetTest {};

} // namespace

TEST_F(Session, IsOneNumberWhileTheModuleIsLoaded)
{
    const Value first = result("session", {});
    EXPECT_EQ(result("session", {}), first);
}
