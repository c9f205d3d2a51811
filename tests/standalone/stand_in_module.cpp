// SPDX-License-Identifier: BSD-3-Clause
// plugFunction, for tests that need no operation of the real module.
#include "tests/standalone/stand_in_module.h"

#include "abandoned_files.h"
#include "vx/plug.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace {

ModuleBody& moduleBody()
{
    static ModuleBody body;
    return body;
}

} // namespace

void plugFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    if (moduleBody())
        moduleBody()({nlhs, results, nrhs, arguments});
}

// No file is ever abandoned here.
bool Ovard::gridio::isAbandonedFile(int) { return false; }

void plugAnyFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    plugFunction(nlhs, results, nrhs, arguments);
}

void plugDatasetFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    plugFunction(nlhs, results, nrhs, arguments);
}

void HostContract::moduleDoes(ModuleBody body) { moduleBody() = std::move(body); }

standalone::Outcome HostContract::inCall(ModuleBody body,
                                         const std::vector<standalone::Value>& arguments, int nlhs)
{
    moduleDoes(std::move(body));
    return host.attemptRaw(arguments, nlhs);
}

standalone::Value HostContract::created(const std::function<vxArray*()>& create)
{
    standalone::Outcome outcome = inCall([&](const Call& call) { call.results[0] = create(); });
    if (outcome.results.size() != 1)
        throw std::logic_error("no array was created");
    return outcome.results[0];
}

void HostContract::TearDown()
{
    moduleDoes(nullptr);
    EXPECT_THAT(host.breaches(), testing::IsEmpty());
    EXPECT_EQ(host.liveBlocks(), 0u);
}

void HostContract::expectBreach(const char* part)
{
    EXPECT_THAT(host.breaches(), testing::ElementsAre(testing::HasSubstr(part)));
    host.reset();
}
