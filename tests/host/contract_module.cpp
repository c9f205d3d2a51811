// SPDX-License-Identifier: BSD-3-Clause
// The checks as a module: its entries.
#include "tests/host/contract.h"

#include "vx/plug.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <set>
#include <string>

namespace {

using contract::Check;
using contract::CheckEntry;

const std::vector<CheckEntry>& everyCheck()
{
    static const std::vector<CheckEntry> all = [] {
        std::vector<CheckEntry> list;
        for (const auto& some : {contract::arrayChecks(), contract::creationChecks(),
                                 contract::textChecks(), contract::callChecks()})
            list.insert(list.end(), some.begin(), some.end());
        return list;
    }();
    return all;
}

// The names that the script has called.
std::set<std::string>& called()
{
    static std::set<std::string> names;
    return names;
}

vxArray* createText(const std::string& bytes)
{
    const std::size_t dims[] = {1, bytes.size()};
    return vxCreateCharArrayFromBytes(2, dims, bytes.data());
}

std::string nameOf(const vxArray* text)
{
    std::string name(vxGetNumberOfElements(text), '\0');
    vxGetCharBytes(text, name.data());
    return name;
}

std::string listChecks()
{
    std::string list;
    for (const CheckEntry& check : everyCheck())
        list.append(check.name)
            .append(" ")
            .append(std::to_string(check.results))
            .append(" ")
            .append(check.ending)
            .append("\n");
    return list;
}

void answer(const char* entry, int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    std::string name = nameOf(arguments[0]);
    called().insert(name);
    if (name == "checks") {
        results[0] = createText(listChecks());
        return;
    }
    constexpr std::string_view prefix = "again:";
    const bool isAgain = name.compare(0, prefix.size(), prefix) == 0;
    if (isAgain)
        name.erase(0, prefix.size());
    const auto named = [&](const CheckEntry& check) { return check.name == name; };
    const auto found = std::find_if(everyCheck().begin(), everyCheck().end(), named);

    Check check(nlhs, results, nrhs, arguments);
    if (found == everyCheck().end()) {
        check.expect(false, "there is no check of this name");
    } else {
        const char* const right = std::strcmp(found->ending, "second") == 0 ? "second" : "first";
        check.expect(isAgain || std::strcmp(entry, right) == 0, "called by the wrong entry");
        check.expect(check.argumentCount() ==
                         (isAgain ? found->results - 1 : static_cast<int>(contract::sampleCount)),
                     "not as many arguments as there are samples or created arrays");
        if (check.failures.empty())
            (isAgain ? found->again : found->run)(check);
    }
    results[0] = createText(check.failures);
}

} // namespace

// Interrupts may end a script, so that it may leave them to another one.
void contract::printMissing()
{
    for (const CheckEntry& check : everyCheck()) {
        const std::string name = check.name;
        const bool isInterrupt = std::strcmp(check.ending, "interrupt") == 0;
        if (!isInterrupt && called().count(name) == 0)
            std::printf("FAILED %s was never called\n", check.name);
        if (check.again != nullptr && called().count("again:" + name) == 0)
            std::printf("FAILED again:%s was never called\n", check.name);
    }
}

void plugFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    answer("first", nlhs, results, nrhs, arguments);
}

void plugAnyFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    answer("second", nlhs, results, nrhs, arguments);
}
