// SPDX-License-Identifier: BSD-3-Clause
// The way into the module and out of it: results, errors, warnings, interrupts and the end.
#include "hosts/minimal/call.h"

#include "vx/error.h"
#include "vx/interrupt.h"

#include "hosts/messages/message_catalogue.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <iostream>
#include <new>
#include <utility>

namespace minimal {

const char* const outOfMemoryIdentifier = "minimal:outOfMemory";
const char* const interruptIdentifier = "minimal:interrupt";
const char* const internalIdentifier = "minimal:internal";

namespace {

struct Interrupt {};

std::vector<Value> created; // in the call that is under way, and not handed on yet
std::atomic<bool> wantsInterrupt{false};
void (*exitHandler)() = nullptr;

// What was created and not handed on ends with the call, however that ends.
struct EndOfCall {
    ~EndOfCall() { created.clear(); }
};

// All of them, whatever the script asked for, up to the first slot that was left null.
std::vector<Value> takeResults(vxArray* const* slots)
{
    std::vector<Value> results;
    for (; results.size() < plugResultSlots && slots[results.size()] != nullptr;)
        results.push_back(takeFromCall(slots[results.size()]));
    return results;
}

// The exception in flight, whatever it is, as an error of the script. The text of one of the
// module's looks at the arguments of the call, which are still alive.
[[noreturn]] void raise(const hosts::messages::CallContext& context)
{
    try {
        throw;
    } catch (const fnd::except::IMsgIDException& failure) {
        const msgcat::BaseMsgID& id = failure.messageId();
        throw Error(id.identifier(), hosts::messages::messageText(id, &context));
    } catch (const std::bad_alloc&) {
        throw Error(outOfMemoryIdentifier, "out of memory");
    } catch (const Interrupt&) {
        throw Error(interruptIdentifier, "interrupted");
    } catch (const std::exception& failure) {
        throw Error(internalIdentifier, failure.what());
    } catch (...) {
        throw Error(internalIdentifier, "an exception of an unknown kind");
    }
}

} // namespace

std::vector<Value> call(Entry entry, const std::vector<Value>& arguments, int nlhs)
{
    const EndOfCall endOfCall;
    std::vector<const vxArray*> seen;
    for (const Value& argument : arguments)
        seen.push_back(argument.get());
    vxArray* slots[plugResultSlots] = {};
    try {
        entry(nlhs, slots, static_cast<int>(seen.size()), seen.data());
        return takeResults(slots);
    } catch (...) {
        raise({seen.data(), seen.size(),
               entry == plugAnyFunction ? hosts::messages::OperationTable::any
                                        : hosts::messages::OperationTable::first});
    }
}

Value number(double value)
{
    const size_t one[] = {1, 1};
    Value array = makeArray(vxDOUBLE_CLASS, 2, one, Elements::anything);
    std::memcpy(array->elements.get(), &value, sizeof value);
    return array;
}

Value text(const std::string& bytes)
{
    const size_t row[] = {1, bytes.size()};
    Value array = makeArray(vxCHAR_CLASS, 2, row, Elements::anything);
    std::transform(bytes.begin(), bytes.end(), static_cast<char16_t*>(array->elements.get()),
                   [](char byte) { return static_cast<unsigned char>(byte); });
    return array;
}

void requestInterrupt() noexcept { wantsInterrupt = true; }

void unload()
{
    if (void (*const handler)() = std::exchange(exitHandler, nullptr))
        handler();
}

vxArray* keepForCall(Value array)
{
    created.push_back(std::move(array));
    return created.back().get();
}

Value takeFromCall(const vxArray* array)
{
    const auto found = std::find_if(created.rbegin(), created.rend(),
                                    [&](const Value& own) { return own.get() == array; });
    if (found == created.rend())
        throw std::logic_error("an array that the call does not own was handed on");
    Value value = std::move(*found);
    created.erase(std::next(found).base());
    return value;
}

} // namespace minimal

// Returns, so that the module throws.
void vxRaiseException(const fnd::except::IUserException&) {}

void vxWarningMsgId(const msgcat::BaseMsgID& id)
{
    try {
        std::cerr << "warning: " << id.identifier() << ": " << hosts::messages::messageText(id)
                  << std::endl;
    } catch (...) {
        // Without memory for its text the warning is lost: the module must go on all the same.
    }
}

bool vxContinue() { return !minimal::wantsInterrupt; }

void vxRaiseInterrupt()
{
    minimal::wantsInterrupt = false;
    throw minimal::Interrupt();
}

void plugAtExit(void (*handler)()) { minimal::exitHandler = handler; }
