// SPDX-License-Identifier: BSD-3-Clause
// How the module raises errors and warnings. An identifier object names the kind of failure and
// carries its arguments; the message text belongs to the host's catalogue. Header-only except for
// the two functions that the host defines.
#pragma once

#include <boost/variant.hpp>

#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace msgcat {

// One argument of a message: a text (this module always fills the narrow alternative) or a number.
using MessageText = boost::variant<std::string, std::u16string>;
using MessageArgument = boost::variant<MessageText, long>;

// A kind of failure, by its identifier, with the arguments of this occurrence in the order of the
// constructor.
class BaseMsgID {
public:
    virtual ~BaseMsgID() = default;

    // "Ovard:gridio:netcdf:libraryFailure": a literal, valid while the module is loaded.
    const char* identifier() const noexcept { return identifier_; }

    const std::vector<MessageArgument>& arguments() const noexcept { return arguments_; }

protected:
    explicit BaseMsgID(const char* identifier, std::vector<MessageArgument> arguments = {})
        : identifier_(identifier), arguments_(std::move(arguments))
    {
    }
    BaseMsgID(const BaseMsgID&) = default;
    BaseMsgID& operator=(const BaseMsgID&) = default;

private:
    const char* identifier_;
    std::vector<MessageArgument> arguments_;
};

} // namespace msgcat

namespace fnd::except {

// The type that the host's raiser takes.
class IUserException {
public:
    virtual ~IUserException() = default;
};

// A raised identifier: what the host catches.
class IMsgIDException : public IUserException {
public:
    virtual const msgcat::BaseMsgID& messageId() const noexcept = 0;
};

// An identifier of class Id as an exception that is also a Base.
template <class Id, class Base> class Exception : public Base, public IMsgIDException {
public:
    explicit Exception(Id id) : id_(std::move(id)) {}

    const msgcat::BaseMsgID& messageId() const noexcept override { return id_; }
    const char* what() const noexcept override { return id_.identifier(); }

private:
    Id id_;
};

} // namespace fnd::except

// Defined by the host: may raise the exception in the host's own way, by throwing, or may return.
void vxRaiseException(const fnd::except::IUserException& exception);

// Defined by the host: issues the identifier as a warning and returns; never throws.
void vxWarningMsgId(const msgcat::BaseMsgID& id);

// Raises id as an error of the host. Never returns: if the host's raiser returns, this function
// throws.
template <class Id> [[noreturn]] void vxErrMsgId(const Id& id)
{
    const fnd::except::Exception<Id, std::exception> exception(id);
    vxRaiseException(exception);
    throw exception;
}
