// SPDX-License-Identifier: BSD-3-Clause
// Random blocks of netCDF-4 variables, most of them partly written, against their elements read one
// by one in plain C. GRIDIO_PARTIAL_READS=N makes N reads instead of the usual number, and
// GRIDIO_SEED=S others than usual.
#include "tests/properties/random.h"
#include "tests/properties/typed_library_calls.h"
#include "tests/support/element_samples.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

#include <algorithm>
#include <iostream>

namespace properties {
namespace {

using standalone::Value;
using testsupport::require;

struct Variable {
    int ncid = 0;
    int varid = 0;
    const TypedLibraryCalls* stored = nullptr;
    std::vector<int> dimids;
    Lengths lengths;
    bool isFilled = true;
};

// A file with unlimited and other dimensions, and variables of which only blocks are written.
class RandomFile {
public:
    RandomFile(Random& random, int ncid) : random_(random), root_(ncid)
    {
        int group = root_;
        if (random_.oneIn(3))
            require(nc_def_grp(root_, "group", &group));
        const std::size_t rank = random_.between(1, 4);
        for (std::size_t i = 0; i < rank; ++i) {
            isUnlimited_.push_back(random_.below(3) > 0);
            const std::size_t length = random_.between(1, 5);
            int dimid = 0;
            groups_.push_back(random_.oneIn(2) ? root_ : group);
            require(nc_def_dim(groups_.back(), ("d" + std::to_string(i)).c_str(),
                               isUnlimited_.back() ? NC_UNLIMITED : length, &dimid));
            dimids_.push_back(dimid);
            lengths_.push_back(length);
        }
        for (int i = 0; i < 4; ++i)
            variables_.push_back(define(i, random_.oneIn(2) ? root_ : group));
        growDimensions();
        for (const Variable& variable : variables_)
            write(variable);
        for (int i = 4; i < 6; ++i) // not in the file, or not written, when they are read
            variables_.push_back(define(i, group));
    }

    const std::vector<Variable>& variables() const { return variables_; }

private:
    bool isUnlimited(int dimid) const
    {
        const auto found = std::find(dimids_.begin(), dimids_.end(), dimid);
        return isUnlimited_[static_cast<std::size_t>(found - dimids_.begin())];
    }

    Variable define(int number, int group)
    {
        Variable variable;
        variable.ncid = group;
        variable.stored = &typedCalls[random_.below(typedCount - 1)];
        std::vector<std::size_t> order(dimids_.size());
        for (std::size_t i = 0; i < order.size(); ++i)
            order[i] = i;
        random_.shuffle(order);
        order.resize(random_.between(1, order.size()));
        for (const std::size_t i : order) {
            if (groups_[i] != root_ && groups_[i] != group)
                continue;
            variable.dimids.push_back(dimids_[i]);
            variable.lengths.push_back(lengths_[i]);
        }
        // Named like a dimension of which it is not the coordinate variable, now and then.
        const std::string name =
            (random_.oneIn(6) && number < 4 ? "d" : "v") + std::to_string(number);
        const auto rank = static_cast<int>(variable.dimids.size());
        require(nc_def_var(group, name.c_str(), variable.stored->storedType, rank,
                           variable.dimids.data(), &variable.varid));
        variable.isFilled = number >= 4 || !random_.oneIn(4);
        if (!variable.isFilled)
            require(nc_def_var_fill(group, variable.varid, NC_NOFILL, nullptr));
        else if (random_.oneIn(2)) {
            const long long fill = 7;
            require(nc_def_var_fill(group, variable.varid, NC_FILL, &fill));
        }
        if (rank > 0 && random_.oneIn(4))
            require(nc_def_var_deflate(group, variable.varid, 1, 1, 1));
        return variable;
    }

    // Each unlimited dimension gets its length from a variable of its own.
    void growDimensions()
    {
        for (std::size_t i = 0; i < dimids_.size(); ++i) {
            int varid = 0;
            require(nc_def_var(groups_[i], ("grown" + std::to_string(i)).c_str(), NC_BYTE, 1,
                               &dimids_[i], &varid));
            const std::size_t last[] = {lengths_[i] - 1};
            const signed char one = 1;
            require(nc_put_var1_schar(groups_[i], varid, last, &one));
        }
    }

    // Without fill values, elements that were never written may be anything up to the farthest that
    // was: all of those are then written.
    void write(const Variable& variable)
    {
        const std::size_t most = variable.isFilled ? random_.below(4) : 1;
        for (std::size_t blocks = 0; blocks < most; ++blocks) {
            Lengths start;
            Lengths count;
            std::vector<std::ptrdiff_t> step;
            for (std::size_t i = 0; i < variable.lengths.size(); ++i) {
                const std::size_t length = variable.lengths[i];
                start.push_back(variable.isFilled ? random_.below(length) : 0);
                const bool isWhole = !variable.isFilled && !isUnlimited(variable.dimids[i]);
                count.push_back(isWhole ? length : random_.between(1, length - start.back()));
                step.push_back(1);
            }
            std::vector<double> values(std::max<std::size_t>(productOf(count), 1));
            std::string text(values.size(), ' ');
            for (std::size_t i = 0; i < values.size(); ++i) {
                values[i] = static_cast<double>(random_.below(120));
                text[i] = static_cast<char>(random_.between(1, 255));
            }
            const bool isText = variable.stored->storedType == NC_CHAR;
            const auto& calls = typedLibraryCalls(isText ? "Text" : "Double");
            const void* data = isText ? static_cast<const void*>(text.data()) : values.data();
            require(calls.putVars(variable.ncid, variable.varid, start.data(), count.data(),
                                  step.data(), data));
        }
    }

    Random& random_;
    int root_;
    std::vector<int> dimids_;
    std::vector<int> groups_; // of the dimensions
    std::vector<bool> isUnlimited_;
    Lengths lengths_; // that the dimensions grow to
    std::vector<Variable> variables_;
};

// Every element of a variable as one type, each read by a call of its own.
struct Elements {
    const TypedLibraryCalls* type = nullptr;
    std::string bytes;
    std::vector<int> statuses;
};

Elements readOneByOne(const Variable& variable, const TypedLibraryCalls& type)
{
    Elements elements;
    elements.type = &type;
    const std::size_t count = productOf(variable.lengths);
    elements.bytes.assign(count * type.size, '\0');
    for (std::size_t i = 0; i < count; ++i) {
        const Lengths index = indexOf(i, variable.lengths);
        elements.statuses.push_back(type.getVar1(variable.ncid, variable.varid, index.data(),
                                                 &elements.bytes[i * type.size]));
    }
    return elements;
}

// A block that lies in the variable. In the library's order.
struct Block {
    Lengths start;
    Lengths count;
    Lengths stride;
};

Block anyBlock(Random& random, const Lengths& lengths)
{
    Block block;
    for (const std::size_t length : lengths) {
        block.start.push_back(random.below(length));
        block.stride.push_back(random.oneIn(2) ? 1 : random.between(1, 4));
        const std::size_t most = (length - 1 - block.start.back()) / block.stride.back() + 1;
        block.count.push_back(random.between(1, most));
    }
    return block;
}

Value hostVector(const Lengths& vector)
{
    return Value::row(std::vector<double>(vector.rbegin(), vector.rend()));
}

struct Expected {
    std::string bytes;
    bool isOutOfRange = false;
};

Expected expectedOf(const Elements& elements, const Lengths& lengths, const Block& block)
{
    Expected expected;
    const std::size_t count = productOf(block.count);
    for (std::size_t i = 0; i < count; ++i) {
        Lengths index = indexOf(i, block.count);
        for (std::size_t d = 0; d < index.size(); ++d)
            index[d] = block.start[d] + index[d] * block.stride[d];
        const std::size_t position = positionOf(index, lengths);
        expected.bytes.append(elements.bytes, position * elements.type->size, elements.type->size);
        expected.isOutOfRange |= elements.statuses[position] == NC_ERANGE;
    }
    return expected;
}

class PartialReads : public testsupport::ModuleTest {
protected:
    void SetUp() override { host.fillUninitialised(0x55); }

    void compare(const standalone::Outcome& outcome, const Expected& expected,
                 const std::string& what)
    {
        ++reads;
        if (expected.isOutOfRange) {
            ++outOfRange;
            ASSERT_TRUE(outcome.raised) << what;
            ASSERT_EQ(std::get<std::string>(outcome.raised->arguments.at(1)), "NC_ERANGE") << what;
        } else {
            ASSERT_TRUE(outcome.succeeded()) << what << outcome;
            ASSERT_EQ(testsupport::bytesOfValue(outcome.results.at(0)), expected.bytes)
                << what << outcome;
        }
    }

    void readBlocks(Random& random, const Variable& variable, std::size_t count)
    {
        const bool isText = variable.stored->storedType == NC_CHAR;
        const auto& type = isText            ? typedLibraryCalls("Text")
                           : random.oneIn(2) ? *variable.stored
                                             : typedCalls[random.below(typedCount - 2)];
        // The one-by-one reads make the library write what is only defined: not always first.
        std::vector<std::pair<Block, standalone::Outcome>> blocks;
        const Value ncid(variable.ncid);
        const Value varid(variable.varid);
        for (std::size_t i = 0; i < count && !variable.lengths.empty(); ++i) {
            const Block block = anyBlock(random, variable.lengths);
            blocks.emplace_back(block,
                                host.attempt("getVars" + type.suffix,
                                             {ncid, varid, hostVector(block.start),
                                              hostVector(block.count), hostVector(block.stride)}));
        }
        const auto whole = host.attempt("getVar" + type.suffix, {ncid, varid});
        const Elements elements = readOneByOne(variable, type);
        const std::string what = "file " + std::to_string(files) + ", variable " +
                                 std::to_string(variable.varid) + " as " + type.suffix +
                                 ", lengths " + show(variable.lengths);
        for (const auto& [block, outcome] : blocks)
            compare(outcome, expectedOf(elements, variable.lengths, block),
                    what + ", start " + show(block.start) + ", count " + show(block.count) +
                        ", stride " + show(block.stride));
        const Lengths zeros(variable.lengths.size(), 0);
        const Lengths ones(variable.lengths.size(), 1);
        compare(whole, expectedOf(elements, variable.lengths, {zeros, variable.lengths, ones}),
                what);
    }

    std::size_t files = 0;
    std::size_t reads = 0;
    std::size_t outOfRange = 0;
};

TEST_F(PartialReads, AgreeWithElementsReadOneByOne)
{
    Random random(environmentNumber("GRIDIO_SEED", 1));
    const std::size_t wanted = environmentNumber("GRIDIO_PARTIAL_READS", 100000);
    while (reads < wanted) {
        ++files;
        const std::string name =
            "file" + std::to_string(files % 2) + ".nc"; // two are open at a time
        const int ncid = createFile(name);
        const RandomFile file(random, ncid);
        for (const Variable& variable : file.variables())
            ASSERT_NO_FATAL_FAILURE(readBlocks(random, variable, 60));
        closeFile(ncid);
    }
    std::cout << reads << " reads in " << files << " files, " << outOfRange << " out of range\n";
    EXPECT_GT(outOfRange, reads / 1000);
}

} // namespace
} // namespace properties
