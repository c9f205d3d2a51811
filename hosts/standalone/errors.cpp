// SPDX-License-Identifier: BSD-3-Clause
// Conversion of the module's exceptions, and of any other that leaves it, to errors of a script.
#include "hosts/standalone/errors.h"

#include "hosts/standalone/ledger.h"
#include "hosts/standalone/text.h"

#include "hosts/messages/message_catalogue.h"

#include <new>
#include <ostream>

namespace standalone {

const char* const outOfMemoryIdentifier = "standalone:outOfMemory";
const char* const internalErrorIdentifier = "standalone:internal";
const char* const interruptIdentifier = "standalone:interrupt";

namespace {

struct AsArgument : boost::static_visitor<Argument> {
    Argument operator()(long number) const { return number; }
    Argument operator()(const msgcat::MessageText& text) const
    {
        if (const auto* units = boost::get<std::u16string>(&text))
            return toUtf8(*units);
        return boost::get<std::string>(text);
    }
};

Raised describeInFlight()
{
    try {
        throw;
    } catch (const RaisedError& error) {
        return error.raised();
    } catch (const fnd::except::IMsgIDException& error) {
        return describe(error.messageId());
    } catch (const OutOfMemory& error) {
        return {outOfMemoryIdentifier, {}, error.what()};
    } catch (const std::bad_alloc&) {
        return {outOfMemoryIdentifier, {}, OutOfMemory().what()};
    } catch (const Interrupt& error) {
        return {interruptIdentifier, {}, error.what()};
    } catch (const std::exception& error) {
        return {internalErrorIdentifier, {std::string(error.what())}, error.what()};
    } catch (...) {
        return {internalErrorIdentifier, {}, "an exception of an unknown kind"};
    }
}

} // namespace

std::string Raised::name() const { return identifier.substr(identifier.rfind(':') + 1); }

Raised describe(const msgcat::BaseMsgID& id)
{
    Raised raised{id.identifier(), {}, hosts::messages::messageText(id, ledger().call)};
    for (const msgcat::MessageArgument& argument : id.arguments())
        raised.arguments.push_back(boost::apply_visitor(AsArgument(), argument));
    return raised;
}

Raised describeCurrentException() noexcept
{
    try {
        return describeInFlight();
    } catch (...) {
        Raised bare;
        bare.identifier = "outOfMemory"; // short enough to need no memory
        return bare;
    }
}

std::ostream& operator<<(std::ostream& out, const Raised& raised)
{
    out << raised.identifier << '(';
    const char* separator = "";
    for (const Argument& argument : raised.arguments) {
        out << separator;
        if (const auto* text = std::get_if<std::string>(&argument))
            out << '"' << *text << '"';
        else
            out << std::get<long>(argument);
        separator = ", ";
    }
    return out << "): " << raised.message;
}

} // namespace standalone

void vxRaiseException(const fnd::except::IUserException& exception)
{
    if (standalone::ledger().raiser == standalone::Raiser::returns)
        return; // vxErrMsgId throws
    const auto& error = dynamic_cast<const fnd::except::IMsgIDException&>(exception);
    throw standalone::RaisedError(standalone::describe(error.messageId()));
}

void vxWarningMsgId(const msgcat::BaseMsgID& id)
{
    try {
        standalone::ledger().warnings.push_back(standalone::describe(id));
    } catch (const std::exception&) {
        standalone::ledger().noteBreach(id.identifier()); // no memory for it, but not silent
    }
}
