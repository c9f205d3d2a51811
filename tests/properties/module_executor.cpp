// SPDX-License-Identifier: BSD-3-Clause
#include "tests/properties/module_executor.h"

#include <algorithm>

namespace properties {
namespace {

using standalone::Value;

std::string failureOf(const standalone::Raised& raised)
{
    std::string text = raised.name() == "libraryFailure" ? "" : raised.name();
    for (const standalone::Argument& argument : raised.arguments) {
        if (raised.name() == "libraryFailure" && &argument == &raised.arguments.back())
            break; // the library's text says no more than the name of the status
        text += text.empty() ? "" : ": ";
        text += std::holds_alternative<long>(argument) ? std::to_string(std::get<long>(argument))
                                                       : std::get<std::string>(argument);
    }
    return text;
}

Value reversedRow(const Numbers& numbers)
{
    if (numbers.empty())
        return Value::empty();
    return Value::row(std::vector<double>(numbers.rbegin(), numbers.rend()));
}

Value rowOfElements(const Elements& elements)
{
    for (const Ovard::gridio::ElementType& element : Ovard::gridio::elementTypes) {
        if (element.suffix == elements.suffix)
            return testsupport::valueOfBytes(element.hostClass, {1, elements.count},
                                             elements.bytes);
    }
    throw std::invalid_argument(elements.suffix);
}

} // namespace

Value ModuleExecutor::hostValue(const Argument& argument) const
{
    if (const auto* group = std::get_if<Group>(&argument))
        return groups_.at(group->index);
    if (const auto* number = std::get_if<Number>(&argument))
        return static_cast<double>(*number);
    if (const auto* flag = std::get_if<bool>(&argument))
        return *flag;
    if (const auto* text = std::get_if<std::string>(&argument))
        return *text;
    if (const auto* numbers = std::get_if<Numbers>(&argument))
        return reversedRow(*numbers);
    return rowOfElements(std::get<Elements>(argument));
}

Value ModuleExecutor::placesOf(const Value& identifiers) const
{
    std::vector<double> places = identifiers.elements<double>();
    for (double& id : places) {
        const auto found = std::find(groups_.begin(), groups_.end(), static_cast<int>(id));
        id = static_cast<double>(found - groups_.begin());
    }
    return Value::numeric(identifiers.dims(), places);
}

void ModuleExecutor::numberGroups(int ncid)
{
    groups_.push_back(ncid);
    for (const double group : host_.call("inqGrps", {ncid}).at(0).elements<double>())
        numberGroups(static_cast<int>(group));
}

Reply ModuleExecutor::run(const Call& call)
{
    const bool starts = call.form == "create" || call.form == "open";
    std::vector<Value> arguments;
    if (starts)
        arguments.emplace_back(path_);
    for (const Argument& argument : call.arguments)
        arguments.push_back(hostValue(argument));
    standalone::Outcome outcome = host_.attempt(call.operation(), arguments);
    if (outcome.raised)
        return {failureOf(*outcome.raised), {}};

    if (starts) {
        groups_.clear();
        numberGroups(static_cast<int>(outcome.results.at(0).toDouble()));
        return {};
    }
    if (call.form == "defGrp")
        groups_.push_back(static_cast<int>(outcome.results.at(0).toDouble()));
    if (call.form == "defGrp" || call.form == "inqGrps" || call.form == "inqGrpParent" ||
        call.form == "inqNcid")
        outcome.results.at(0) = placesOf(outcome.results[0]);
    return {"", outcome.results};
}

} // namespace properties
