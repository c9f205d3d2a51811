// SPDX-License-Identifier: BSD-3-Clause
#include "fuzz/operation_signatures.h"

#include <map>

namespace fuzz {
namespace {

struct Signature {
    const char* name;
    const char* parameters;
    vxClassID dataClass;
    Function function;
};

constexpr Signature signatures[] = {
#include "operation_signatures.inc"
};

std::map<std::uint16_t, const Operation*> byCode()
{
    std::map<std::uint16_t, const Operation*> result;
    for (const Operation& operation : operations())
        result[codeOf(operation.title())] = &operation;
    return result;
}

} // namespace

const std::vector<Operation>& operations()
{
    static const std::vector<Operation> all = [] {
        std::vector<Operation> result;
        for (const Signature& row : signatures)
            result.push_back({row.name, row.parameters, row.dataClass, row.function});
        return result;
    }();
    return all;
}

// The 32-bit FNV-1a hash of the name, folded.
std::uint16_t codeOf(std::string_view name)
{
    std::uint32_t hash = 2166136261U;
    for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    return static_cast<std::uint16_t>(hash ^ (hash >> 16));
}

const Operation& operationNear(std::uint16_t code)
{
    static const std::map<std::uint16_t, const Operation*> codes = byCode();
    const auto found = codes.lower_bound(code);
    return found == codes.end() ? *codes.begin()->second : *found->second;
}

} // namespace fuzz
