// SPDX-License-Identifier: BSD-3-Clause
// A module whose every operation is what the test says.
#pragma once

#include "hosts/standalone/host.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

// What a call of plugFunction is made with.
struct Call {
    int nlhs;
    vxArray** results;
    int nrhs;
    const vxArray** arguments;
};

using ModuleBody = std::function<void(const Call&)>;

// A host with clean books for each test.
class HostContract : public testing::Test {
protected:
    // What plugFunction does from now on.
    void moduleDoes(ModuleBody body);

    // The module's side of one call, with these arguments (the first names no operation here).
    standalone::Outcome inCall(ModuleBody body,
                               const std::vector<standalone::Value>& arguments = {}, int nlhs = 1);

    // The array that create makes in a call, as the call's result.
    standalone::Value created(const std::function<vxArray*()>& create);

    // The module did nothing against its side of the contract, and left nothing allocated.
    void TearDown() override;

    // Called by a test that breaks the contract on purpose.
    void expectBreach(const char* part);

    standalone::Host host;
};
