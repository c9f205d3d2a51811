// SPDX-License-Identifier: BSD-3-Clause
#include "errors.h"

#include "host_identifiers.h"
#include "hosts/messages/message_catalogue.h"
#include "hosts/messages/visible_text.h"

#include <octave/error.h>
#include <octave/oct.h>

#include <exception>
#include <string>

namespace hosts::oct {

namespace {

// Never fails: an error without a text is better than no error.
std::string textOf(const msgcat::BaseMsgID& id, const messages::CallContext* call)
{
    try {
        return messages::messageText(id, call);
    } catch (const std::exception&) {
        return id.identifier();
    }
}

} // namespace

void raiseMessage(const msgcat::BaseMsgID& id, const messages::CallContext& call)
{
    const std::string text = textOf(id, &call);
    error_with_id(id.identifier(), "%s", text.c_str());
}

void raiseInternal(const char* what)
{
    error_with_id(internalErrorIdentifier,
                  "gridio: internal error: %s; please report this, with the call that caused it",
                  messages::visible(what).c_str());
}

} // namespace hosts::oct

// Returns, so that the module throws: the call turns the exception into an error once the module's
// objects are gone, while its own arguments are still there.
void vxRaiseException(const fnd::except::IUserException&) {}

void vxWarningMsgId(const msgcat::BaseMsgID& id)
{
    try {
        const std::string text = hosts::messages::messageText(id);
        warning_with_id(id.identifier(), "%s", text.c_str());
    } catch (...) {
        // The script may have turned the warning into an error, but the module must continue.
    }
}
