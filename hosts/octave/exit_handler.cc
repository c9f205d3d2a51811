// SPDX-License-Identifier: BSD-3-Clause
// The module's farewell. The interpreter unloads the function at "clear gridio", and at its own end
// while it can still show a warning: a static object's destructor is then the right moment.
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
            // There is no one left to tell, and the session must go on.
        }
    }

    void set(void (*handler)()) { handler_ = handler; }

private:
    void (*handler_)() = nullptr;
};

} // namespace

void plugAtExit(void (*handler)())
{
    // Made at the first call, after every static object of the module, and so destroyed before
    // them.
    static ExitHandler exitHandler;
    exitHandler.set(handler);
}
