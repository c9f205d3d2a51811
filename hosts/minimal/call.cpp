// SPDX-License-Identifier: BSD-3-Clause
// Calling the module: results, errors, warnings, interrupts and unloading.
#include "hosts/minimal/call.h"

#include "vx/error.h"
#include "vx/interrupt.h"
#include "vx/progress.h"

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

// Arrays that were created and not passed on are released at the end of the call, also when it
// fails.
struct EndOfCall {
    ~EndOfCall() { created.clear(); }
};

// All results, whatever the script requested, up to the first slot that is still null.
std::vector<Value> takeResults(vxArray* const* slots)
{
    std::vector<Value> results;
    for (; results.size() < plugResultSlots && slots[results.size()] != nullptr;)
        results.push_back(takeFromCall(slots[results.size()]));
    return results;
}

hosts::messages::OperationTable tableOf(Entry entry)
{
    using hosts::messages::OperationTable;

    if (entry == plugAnyFunction)
        return OperationTable::any;
    return entry == plugDatasetFunction ? OperationTable::datasets : OperationTable::first;
}

// The current exception, of any type, as an error of the script. The text of a module's error is
// composed from the arguments of the call, which still exist.
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
        raise({seen.data(), seen.size(), tableOf(entry)});
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
        // Without memory for its text the warning is lost, but the module must continue.
    }
}

bool vxContinue() { return !minimal::wantsInterrupt; }

void vxShowProgress(double) {}

void vxRaiseInterrupt()
{
    minimal::wantsInterrupt = false;
    throw minimal::Interrupt();
}

void plugAtExit(void (*handler)()) { minimal::exitHandler = handler; }
