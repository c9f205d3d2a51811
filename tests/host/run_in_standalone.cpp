// SPDX-License-Identifier: BSD-3-Clause
// The contract in the stand-alone host.
#include "tests/host/run_contract.h"

#include "hosts/standalone/host.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

using standalone::Host;
using standalone::Outcome;

struct Script {
    using Value = standalone::Value;

    Host host;
    std::vector<Value> samples = {
        Value::column<double>({1, 2}),
        Value::column<float>({1, 2}),
        Value::column<std::int8_t>({1, 2}),
        Value::column<std::uint8_t>({1, 2}),
        Value::column<std::int16_t>({1, 2}),
        Value::column<std::uint16_t>({1, 2}),
        Value::column<std::int32_t>({1, 2}),
        Value::column<std::uint32_t>({1, 2}),
        Value::column<std::int64_t>({1, 2}),
        Value::column<std::uint64_t>({1, 2}),
        Value::text({2, 1}, u"ab"),
        Value::logical({2, 1}, {true, false}),
        Value::cell({2, 1}, {1, "x"}),
        Value::structures({2, 1}, {"a", "b"}),
        Value::anythingElse(),
        Value::numeric<std::int32_t>({2, 3, 2}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}),
        Value::complex<double>({1, 3}, {1, 2, 3}, {-1, -2, -3}),
        Value::numeric<double>({2, 3}, {0, 0, 5, 0, 0, 6}),
        Value::row<double>({1, 2, 3, 4, 5}),
        Value(true),
        Value::logical({1, 2}, {true, true}),
        Value::empty(vxDOUBLE_CLASS, {0, 3}),
        Value(""),
        Value::empty(vxINT8_CLASS, {2, 0, 5}),
        Value::cell({3, 0}, {}),
        Value::cell({2, 2}, {1, Value::cell({1, 1}, {3}), "two", Value::empty()}),
        Value::structure({{"depth", Value::column<float>({1, 2})},
                          {"name", "high"},
                          {"inner", Value::structure({{"flag", true}})}}),
        Value("open"),
        Value::text({2, 2}, std::u16string_view(u"a\0cd", 4)),
        Value::row<std::int64_t>(
            {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}),
    };
    const std::string memory = standalone::outOfMemoryIdentifier;
    const std::string interrupt = standalone::interruptIdentifier;

    static Value text(const std::string& bytes) { return {bytes}; }
    static std::string bytes(const Value& value) { return value.toText(); }

    contract::Ended<Value> call(bool isSecond, const std::vector<Value>& arguments)
    {
        Outcome outcome = host.attemptRaw(arguments, 5, isSecond ? plugAnyFunction : plugFunction);
        return {outcome.results, outcome.raised ? outcome.raised->identifier : ""};
    }

    std::size_t warningCount() const
    {
        const auto& warnings = host.warnings();
        return static_cast<std::size_t>(
            std::count_if(warnings.begin(), warnings.end(),
                          [](const auto& w) { return w.identifier == "contract:warning"; }));
    }

    void unload() { host.unload(); }
};

} // namespace

int main()
{
    Script script;
    const int failed = contract::Contract<Script>(script).run();
    for (const standalone::Raised& warning : script.host.warnings())
        std::cerr << "warning: " << warning.message << std::endl;
    for (const std::string& breach : script.host.breaches())
        std::cout << "FAILED " << breach << std::endl;
    if (script.host.liveBlocks() > 0)
        std::cout << "FAILED blocks were left behind" << std::endl;
    return failed;
}
