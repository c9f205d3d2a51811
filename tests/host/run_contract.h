// SPDX-License-Identifier: BSD-3-Clause
// The script that runs the checks, for hosts whose scripts are C++: a line for each check, and the
// number of failures.
#pragma once

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace contract {

// How a call ended: an identifier is empty when it returned.
template <class Value> struct Ended {
    std::vector<Value> results;
    std::string identifier;
};

// Script has the members
//     Value                                     a value of the script
//     std::vector<Value> samples                those of samples.txt
//     Value text(std::string)                   a row of text
//     std::string bytes(Value)                  and back
//     Ended<Value> call(bool isSecond, std::vector<Value>)
//     std::size_t warningCount()                warnings contract:warning so far
//     memory, interrupt                         identifiers of the host's own errors
//     void unload()
template <class Script> class Contract {
public:
    using Value = typename Script::Value;

    explicit Contract(Script& script) : script_(script) {}

    int run()
    {
        std::istringstream list(script_.bytes(call(false, "checks", {}).results.at(0)));
        std::string name;
        std::string ending;
        std::size_t results = 0;
        while (list >> name >> results >> ending) {
            const std::string failures = runCheck(name, results, ending);
            std::cout << (failures.empty() ? "ok " : "FAILED ") << name
                      << (failures.empty() ? "" : ": ") << failures << std::endl;
            failed_ += failures.empty() ? 0 : 1;
        }
        script_.unload();
        script_.unload(); // the handler runs once
        return failed_;
    }

private:
    Ended<Value> call(bool isSecond, const std::string& name, std::vector<Value> arguments)
    {
        arguments.insert(arguments.begin(), script_.text(name));
        return script_.call(isSecond, arguments);
    }

    std::string runCheck(const std::string& name, std::size_t results, const std::string& ending)
    {
        const std::size_t warnings = script_.warningCount();
        const bool isSecond = ending == "second";
        const Ended<Value> ended = call(isSecond, name, script_.samples);
        if (ending == "raises" || ending == "memory" || ending == "interrupt" || ending == "fails")
            return checkRaised(ended, ending);
        if (!ended.identifier.empty())
            return "raised " + ended.identifier;
        if (ended.results.size() != results)
            return std::to_string(ended.results.size()) + " results";
        if (script_.warningCount() != warnings + (ending == "warns" ? 1 : 0))
            return "warned " + std::to_string(script_.warningCount() - warnings) + " times";
        const std::string failures = script_.bytes(ended.results[0]);
        if (!failures.empty() || results == 1)
            return failures;
        const Ended<Value> again =
            call(isSecond, "again:" + name, {ended.results.begin() + 1, ended.results.end()});
        return again.identifier.empty() ? script_.bytes(again.results.at(0))
                                        : "raised " + again.identifier + " when passed back";
    }

    std::string checkRaised(const Ended<Value>& ended, const std::string& ending) const
    {
        if (ended.identifier.empty())
            return "returned";
        const bool isOwn = ended.identifier != script_.memory &&
                           ended.identifier != script_.interrupt &&
                           ended.identifier != "contract:error";
        const bool isRight = ending == "raises"      ? ended.identifier == "contract:error"
                             : ending == "memory"    ? ended.identifier == script_.memory
                             : ending == "interrupt" ? ended.identifier == script_.interrupt
                                                     : isOwn;
        return isRight ? "" : "raised " + ended.identifier;
    }

    Script& script_;
    int failed_ = 0;
};

} // namespace contract
