// SPDX-License-Identifier: BSD-3-Clause
#include "errors.h"

#include "hosts/messages/message_catalogue.h"

#include <octave/error.h>
#include <octave/oct.h>

#include <exception>
#include <string>

namespace hosts::oct {

namespace {

// The interpreter's messages end at a NUL, which a script may have put into an argument: it is
// shown as \0.
std::string withVisibleNuls(const std::string& text)
{
    std::string visible;
    for (const char c : text)
        visible += c == '\0' ? std::string("\\0") : std::string(1, c);
    return visible;
}

// Never fails: an error without its text is better than none.
std::string textOf(const msgcat::BaseMsgID& id)
{
    try {
        return withVisibleNuls(messages::messageText(id));
    } catch (const std::exception&) {
        return id.identifier();
    }
}

} // namespace

void raiseMessage(const msgcat::BaseMsgID& id)
{
    const std::string text = textOf(id);
    error_with_id(id.identifier(), "%s", text.c_str());
}

void raiseInternal(const char* what)
{
    error_with_id("Ovard:gridio:host:internal",
                  "gridio: internal error: %s; please report this, with the call that caused it",
                  what);
}

} // namespace hosts::oct

// Returns, so that the module throws: the entry point turns the exception into an error once the
// module's objects are gone.
void vxRaiseException(const fnd::except::IUserException&) {}

void vxWarningMsgId(const msgcat::BaseMsgID& id)
{
    try {
        const std::string text = hosts::messages::messageText(id);
        warning_with_id(id.identifier(), "%s", text.c_str());
    } catch (...) {
        // The script may have turned the warning into an error: the module must go on all the same.
    }
}
