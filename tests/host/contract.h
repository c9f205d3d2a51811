// SPDX-License-Identifier: BSD-3-Clause
// The contract between module and host, as checks that run inside a host. They are a module of
// their own, which uses vx/ and nothing else, so that they can be linked with any host.
//
// A script runs them: it calls the entry with the name "checks" and gets a line for each check,
// "NAME RESULTS ENDING". It then calls each by its name, followed by the samples of samples.txt.
// A check gives its failures as a text, empty when it found nothing wrong, and after it the arrays
// that it created; these the script passes back, with the name "again:NAME", for a second text of
// failures. ENDING is how the call ends:
//
//     returns     with so many RESULTS
//     second      the same, called by the second entry
//     third       the same, called by the third entry
//     warns       the same, with a warning of the identifier contract:warning
//     raises      an error with the identifier contract:error
//     memory      the host's out-of-memory error
//     fails       an error of the host's own, for an exception that the module must not let out
//     interrupt   the host's interrupt
#pragma once

#include "vx/array.h"
#include "vx/error.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace contract {

// The samples, in the order of samples.txt.
enum Sample : std::size_t {
    doubles,
    singles,
    int8s,
    uint8s,
    int16s,
    uint16s,
    int32s,
    uint32s,
    int64s,
    uint64s,
    chars,
    logicals,
    cells,
    structs,
    other,
    cube,
    complexRow,
    sparse,
    range,
    trueScalar,
    trueRow,
    emptyDouble,
    emptyChar,
    emptyInt8,
    emptyCell,
    nestedCells,
    structure,
    textRow,
    textMatrix,
    extremes,
    sampleCount
};

// One call of a check.
class Check {
public:
    Check(int asked, vxArray** slots, int count, const vxArray** arguments)
        : nlhs(asked), results(slots), arguments_(arguments), count_(count)
    {
    }

    const int nlhs;
    vxArray** const results; // [0] is for the failures
    const vxArray* sample(Sample sample) const { return arguments_[1 + sample]; }

    // What the check has created, when the script passes it back: from 1, as results.
    const vxArray* created(int result) const { return arguments_[result]; }
    int argumentCount() const { return count_ - 1; }

    // Notes what is not as it should be.
    void expect(bool isTrue, std::string_view claim)
    {
        if (!isTrue)
            failures.append(failures.empty() ? "" : "; ").append(claim);
    }

    // What create does must throw, and so raise nothing else.
    template <class Create> void expectNoMemory(const Create& create, std::string_view claim)
    {
        try {
            create();
        } catch (...) {
            return;
        }
        expect(false, claim);
    }

    std::string failures;

private:
    const vxArray** arguments_;
    int count_;
};

struct CheckEntry {
    const char* name;
    int results;
    const char* ending;
    void (*run)(Check&);
    void (*again)(Check&) = nullptr;
};

// The checks of each file.
std::vector<CheckEntry> arrayChecks();
std::vector<CheckEntry> creationChecks();
std::vector<CheckEntry> textChecks();
std::vector<CheckEntry> callChecks();

// Prints a line for each check that the script has left out.
void printMissing();

// The elements of an array as a vector.
template <class T> std::vector<T> elements(const vxArray* array)
{
    const T* first = static_cast<const T*>(vxGetData(array));
    return {first, first + vxGetNumberOfElements(array)};
}

inline std::vector<std::size_t> dimensions(const vxArray* array)
{
    const std::size_t* first = vxGetDimensions(array);
    return {first, first + vxGetNumberOfDimensions(array)};
}

// Ends the call when the module's objects are destroyed on its way out, as they must be.
struct raised : msgcat::BaseMsgID {
    raised() : BaseMsgID("contract:error", {msgcat::MessageText(std::string("text")), 7L}) {}
};
struct warned : msgcat::BaseMsgID {
    warned() : BaseMsgID("contract:warning") {}
};

} // namespace contract
