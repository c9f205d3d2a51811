// SPDX-License-Identifier: BSD-3-Clause
// A module whose operation is a function of the test.
#pragma once

#include "hosts/standalone/host.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

// The arguments of a call of plugFunction.
struct Call {
    int nlhs;
    vxArray** results;
    int nrhs;
    const vxArray** arguments;
};

using ModuleBody = std::function<void(const Call&)>;

// A host with empty records for each test.
class HostContract : public testing::Test {
protected:
    // Sets the function that plugFunction calls from now on.
    void moduleDoes(ModuleBody body);

    // The module's side of one call, with these arguments (the first names no operation here).
    standalone::Outcome inCall(ModuleBody body,
                               const std::vector<standalone::Value>& arguments = {}, int nlhs = 1);

    // The array that create returns in a call, as the call's result.
    standalone::Value created(const std::function<vxArray*()>& create);

    // Checks that the module kept its side of the contract, and left nothing allocated.
    void TearDown() override;

    // Called by a test that breaks the contract on purpose.
    void expectBreach(const char* part);

    standalone::Host host;
};
