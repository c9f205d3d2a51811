// SPDX-License-Identifier: BSD-3-Clause
// Runs the unload handler. The interpreter unloads the function at "clear gridio", and at its own
// end while it can still show a warning: both times the destructor of a static object runs at the
// right moment.
#include "vx/plug.h"

namespace {

class ExitHandler {
public:
    ExitHandler() = default;
    ExitHandler(const ExitHandler&) = delete;
    ExitHandler& operator=(const ExitHandler&) = delete;
    ~ExitHandler()
    {
        try {
            if (handler_)
                handler_();
        } catch (...) {
            // The error can no longer be reported, and the session must continue.
        }
    }

    void set(void (*handler)()) { handler_ = handler; }

private:
    void (*handler_)() = nullptr;
};

} // namespace

void plugAtExit(void (*handler)())
{
    // Constructed at the first call, after every static object of the module, and so destroyed
    // before them.
    static ExitHandler exitHandler;
    exitHandler.set(handler);
}
