// SPDX-License-Identifier: BSD-3-Clause
// How calls end: errors, warnings, exceptions, interrupts, and the module's own end.
#include "tests/host/contract.h"

#include "vx/interrupt.h"
#include "vx/plug.h"
#include "vx/progress.h"

#include <cstdio>
#include <limits>
#include <stdexcept>

namespace contract {

namespace {

// What was created is the host's, whether it is returned or not.
void leaveArrays(Check& check)
{
    vxCreateString("left");
    const std::size_t one[] = {1, 1};
    vxSetCell(vxCreateCellArray(2, one), 0, vxCreateDoubleScalar(1));
    check.results[1] = vxCreateDoubleScalar(1);
}

// Set when an object of the module was destroyed while an exception passed.
bool isUnwound = false;
struct Unwound {
    ~Unwound() { isUnwound = true; }
};

template <class Raise> void raiseFrom(Check& check, const Raise& raise)
{
    leaveArrays(check);
    isUnwound = false;
    const Unwound unwound;
    raise();
}

void anyResult(Check&) {}

void unwoundBefore(Check& check) { check.expect(isUnwound, "the module's objects were destroyed"); }

void raise(Check& check)
{
    raiseFrom(check, [] { vxErrMsgId(raised()); });
}

void memory(Check& check)
{
    raiseFrom(check, [] {
        const std::size_t dims[] = {std::numeric_limits<std::size_t>::max() / 16, 1};
        vxCreateNumericArray(2, dims, vxDOUBLE_CLASS, vxREAL);
    });
}

void knownException(Check& check)
{
    raiseFrom(check, [] { throw std::runtime_error("broken"); });
}

void unknownException(Check& check)
{
    raiseFrom(check, [] { throw 5; });
}

void interrupt(Check& check)
{
    raiseFrom(check, [] { vxRaiseInterrupt(); });
}

void caught(Check& check)
{
    try {
        vxErrMsgId(raised());
    } catch (...) {
        return; // in the host's own way or as IMsgIDException
    }
    check.expect(false, "vxErrMsgId returned");
}

void warn(Check&) { vxWarningMsgId(warned()); }

void goOn(Check& check)
{
    for (int i = 0; i < 100; ++i)
        check.expect(vxContinue(), "vxContinue without an interrupt");
}

void showProgress(Check&)
{
    for (const double done : {0.0, 0.5, 1.0, -1.0, 0.25, -1.0, -1.0})
        vxShowProgress(done);
}

// Printed rather than noted: no call follows in which it could be reported.
void endOfModule()
{
    printMissing();
    std::puts("the handler ran");
    std::fflush(stdout);
    vxWarningMsgId(warned());
}

void atExit(Check&)
{
    plugAtExit([] { std::puts("an earlier handler ran"); });
    plugAtExit(endOfModule);
    plugAtExit(endOfModule);
}

} // namespace

std::vector<CheckEntry> callChecks()
{
    return {
        {"CallsMayLeaveArraysBehind", 2, "returns", leaveArrays, anyResult},
        {"CallsReachTheSecondEntry", 2, "second", leaveArrays, anyResult},
        {"CallsReachTheThirdEntry", 2, "third", leaveArrays, anyResult},
        {"CallsRaiseErrors", 2, "raises", raise},
        {"CallsUnwindForErrors", 1, "returns", unwoundBefore},
        {"CallsPassOutOfMemory", 2, "memory", memory},
        {"CallsUnwindForOutOfMemory", 1, "returns", unwoundBefore},
        {"CallsTurnExceptionsIntoErrors", 2, "fails", knownException},
        {"CallsTurnThrownNumbersIntoErrors", 2, "fails", unknownException},
        {"CallsUnwindForExceptions", 1, "returns", unwoundBefore},
        {"ErrorsMayBeCaughtByTheModule", 1, "returns", caught},
        {"WarningsReturn", 1, "warns", warn},
        {"CallsContinueWithoutAnInterrupt", 1, "returns", goOn},
        {"CallsShowTheirProgress", 1, "returns", showProgress},
        {"ExitsRunTheLastHandler", 1, "returns", atExit},
        {"CallsPassInterrupts", 2, "interrupt", interrupt},
    };
}

} // namespace contract
