// SPDX-License-Identifier: BSD-3-Clause
// Turns commands, which are no more than rolls of dice, into calls that make sense for what the
// file holds by then: so that any part of a program is a program, and a failing one can be cut
// down.
#pragma once

#include "tests/properties/library_executor.h"
#include "tests/support/file_formats.h"

#include <vector>

namespace properties {

struct Command {
    unsigned char action = 0;
    std::vector<unsigned char> choices; // what is missing counts as zeros
};

class Planner {
public:
    // The reference is asked what the file holds.
    Planner(const testsupport::FileFormat& format, const LibraryExecutor& reference)
        : format_(format), reference_(reference)
    {
    }

    // The calls that the command stands for at this moment. Most fit; some are to be refused.
    std::vector<Call> plan(const Command& command);

    // Must be called after each call that was executed.
    void note(const Call& call, const Reply& reply);

private:
    struct Variable {
        Group group;
        int varid = 0;
        nc_type xtype = NC_NAT;
        std::vector<int> dimids;
        std::vector<std::size_t> lengths;
        std::vector<bool> unlimited;
    };
    struct Action;

    void reopen();
    void defineDimension();
    void defineVariable();
    void defineGroup();
    void defineStorage();
    void defineFill();
    void defineUnfilled();
    void changeMode();
    void putAttribute();
    void getAttribute();
    void changeAttribute();
    void rename();
    void putWhole();
    void putSubset();
    void getWhole();
    void getSubset();
    void inquire();

    // 0 to n-1 by the next choice.
    std::size_t pick(std::size_t n);
    // Once in n times.
    bool rarely(std::size_t n) { return pick(n) == n - 1; }
    template <class T> T oneOf(std::initializer_list<T> list)
    {
        return list.begin()[pick(list.size())];
    }

    Group pickGroup() { return {pick(reference_.groupCount())}; }
    Variable pickVariable();
    Number pickAttributeOwner(const Group& group);
    std::string pickSuffix(nc_type xtype);
    std::string oddNameOr(const std::string& name);
    bool isVariable(const Group& group, const std::string& name) const;
    bool isDimension(const Group& group, const std::string& name) const;
    bool isRenamedWell(const Group& group, const std::string& oldName,
                       const std::string& newName) const;
    std::string dimensionName(const Group& group);
    std::string variableName(std::size_t rank);
    std::string attributeName();
    Elements pickElements(const std::string& suffix, std::size_t count);
    void addSubset(Call& call, const Variable& variable, bool isWrite);

    void defining(bool wanted);
    void add(const std::string& form, std::vector<Argument> arguments,
             const std::string& suffix = "");

    const testsupport::FileFormat& format_;
    const LibraryExecutor& reference_;
    bool isDefining_ = false;
    bool isNew_ = false;      // made, not opened
    bool hasRenamed_ = false; // a variable, or tried to
    const Command* command_ = nullptr;
    std::size_t nextChoice_ = 0;
    std::vector<Call> calls_;
};

} // namespace properties
