// SPDX-License-Identifier: BSD-3-Clause
// One call of the module, with results or an error as its outcome.
#include "hosts/standalone/host.h"

#include "vx/plug.h"

#include <algorithm>
#include <limits>
#include <ostream>
#include <stdexcept>
#include <utility>

namespace standalone {

namespace {

// The results up to the first null slot pass to the caller, in order.
std::vector<Value> takeResults(const std::vector<vxArray*>& slots)
{
    std::vector<Value> results;
    const auto firstUnset = std::find(slots.begin(), slots.end(), nullptr);
    for (auto slot = slots.begin(); slot != firstUnset; ++slot)
        results.push_back(Value::adopt(*slot));
    if (std::any_of(firstUnset, slots.end(), [](const vxArray* a) { return a != nullptr; }))
        ledger().noteBreach("a result slot was left out");
    return results;
}

hosts::messages::OperationTable tableOf(Entry entry)
{
    using hosts::messages::OperationTable;
    if (entry == plugAnyFunction)
        return OperationTable::any;
    return entry == plugDatasetFunction ? OperationTable::datasets : OperationTable::first;
}

std::vector<Value> resultsOf(Outcome outcome)
{
    if (outcome.raised)
        throw RaisedError(std::move(*outcome.raised));
    return std::move(outcome.results);
}

} // namespace

Host::Host() : books_(ledger())
{
    if (std::exchange(books_.hasHost, true))
        throw std::logic_error("there is a host already, and a process holds one module");
    books_.reset();
}

Host::~Host()
{
    books_.reset();
    books_.hasHost = false;
}

Outcome Host::attemptRaw(const std::vector<Value>& everyArgument, int nlhs, Entry entry)
{
    Outcome outcome;
    std::vector<const vxArray*> arguments; // outlive the call: an error's text uses them
    hosts::messages::CallContext context{};
    try {
        arguments.reserve(everyArgument.size());
        for (const Value& argument : everyArgument)
            arguments.push_back(argument.array());
        std::vector<vxArray*> slots(static_cast<std::size_t>(std::max(nlhs, plugResultSlots)));
        context = {arguments.data(), arguments.size(), tableOf(entry)};
        books_.call = &context;

        entry(nlhs, slots.data(), static_cast<int>(arguments.size()), arguments.data());
        outcome.results = takeResults(slots);
    } catch (...) {
        outcome.raised = describeCurrentException();
    }
    books_.call = nullptr;
    books_.created.clear(); // releases what was not returned
    return outcome;
}

Outcome Host::attemptNamed(const std::string& operation, const std::vector<Value>& arguments,
                           int nlhs, Entry entry)
{
    try {
        std::vector<Value> everyArgument;
        everyArgument.reserve(arguments.size() + 1);
        everyArgument.emplace_back(operation);
        everyArgument.insert(everyArgument.end(), arguments.begin(), arguments.end());
        return attemptRaw(everyArgument, nlhs, entry);
    } catch (...) {
        return {{}, describeCurrentException()};
    }
}

Outcome Host::attempt(const std::string& operation, const std::vector<Value>& arguments)
{
    return attemptNamed(operation, arguments, 1, plugFunction);
}

Outcome Host::attemptAny(const std::string& operation, const std::vector<Value>& arguments,
                         int nlhs)
{
    return attemptNamed(operation, arguments, nlhs, plugAnyFunction);
}

std::vector<Value> Host::call(const std::string& operation, const std::vector<Value>& arguments)
{
    return resultsOf(attempt(operation, arguments));
}

std::vector<Value> Host::callAny(const std::string& operation, const std::vector<Value>& arguments,
                                 int nlhs)
{
    return resultsOf(attemptAny(operation, arguments, nlhs));
}

Outcome Host::attemptDataset(const std::string& operation, const std::vector<Value>& arguments,
                             int nlhs)
{
    return attemptNamed(operation, arguments, nlhs, plugDatasetFunction);
}

std::vector<Value> Host::callDataset(const std::string& operation,
                                     const std::vector<Value>& arguments, int nlhs)
{
    return resultsOf(attemptDataset(operation, arguments, nlhs));
}

void Host::failAllocation(std::size_t n)
{
    books_.failingAllocation = n == 0 ? 0 : books_.allocations + n;
}

void Host::interruptQuestion(std::size_t n)
{
    books_.interruptedQuestion = n == 0 ? 0 : books_.continueQuestions + n;
}

std::ostream& operator<<(std::ostream& out, const Outcome& outcome)
{
    if (outcome.raised)
        return out << *outcome.raised;
    out << '{';
    for (std::size_t i = 0; i < outcome.results.size(); ++i)
        out << (i == 0 ? "" : ", ") << outcome.results[i];
    return out << '}';
}

} // namespace standalone
