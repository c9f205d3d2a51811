// SPDX-License-Identifier: BSD-3-Clause
// The contract in a host that was copied from hosts/minimal.
#include "tests/host/run_contract.h"

#include GRIDIO_HOST_CALL

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <sstream>

namespace {

using minimal::Elements;
using minimal::makeArray;

template <class T>
minimal::Value array(vxClassID classId, const std::vector<std::size_t>& dims,
                     const std::vector<T>& elements)
{
    minimal::Value made = makeArray(classId, dims.size(), dims.data(), Elements::zeros);
    if (!elements.empty())
        std::memcpy(made->elements.get(), elements.data(), elements.size() * sizeof(T));
    return made;
}

template <class T> minimal::Value column(vxClassID classId)
{
    return array<T>(classId, {2, 1}, {1, 2});
}

minimal::Value containing(vxClassID classId, const std::vector<std::size_t>& dims,
                          const std::vector<minimal::Value>& contents,
                          const std::vector<std::string>& fieldNames = {})
{
    minimal::Value made = makeArray(classId, dims.size(), dims.data(), Elements::zeros);
    made->contents = contents;
    made->fieldNames = fieldNames;
    return made;
}

minimal::Value complexRow()
{
    minimal::Value made = array<double>(vxDOUBLE_CLASS, {1, 3}, {1, 2, 3});
    made->isComplex = true;
    return made;
}

// Counts the warnings that the host prints.
class Warnings : public std::stringbuf {
public:
    Warnings() : printed_(std::cerr.rdbuf(this)) {}
    ~Warnings() override
    {
        std::cerr.rdbuf(printed_);
        std::cerr << str();
    }

    std::size_t count() const
    {
        const std::string all = str();
        const std::string line = "warning: contract:warning: ";
        std::size_t found = 0;
        for (std::size_t at = all.find(line); at != std::string::npos; at = all.find(line, at + 1))
            ++found;
        return found;
    }

private:
    std::streambuf* printed_;
};

struct Script {
    using Value = minimal::Value;

    Warnings warnings;
    const Value three = containing(vxCELL_CLASS, {1, 1}, {minimal::number(3)});
    const Value flag = containing(vxSTRUCT_CLASS, {1, 1},
                                  {array<unsigned char>(vxLOGICAL_CLASS, {1, 1}, {1})}, {"flag"});
    std::vector<Value> samples = {
        column<double>(vxDOUBLE_CLASS),
        column<float>(vxSINGLE_CLASS),
        column<std::int8_t>(vxINT8_CLASS),
        column<std::uint8_t>(vxUINT8_CLASS),
        column<std::int16_t>(vxINT16_CLASS),
        column<std::uint16_t>(vxUINT16_CLASS),
        column<std::int32_t>(vxINT32_CLASS),
        column<std::uint32_t>(vxUINT32_CLASS),
        column<std::int64_t>(vxINT64_CLASS),
        column<std::uint64_t>(vxUINT64_CLASS),
        array<char16_t>(vxCHAR_CLASS, {2, 1}, {u'a', u'b'}),
        array<unsigned char>(vxLOGICAL_CLASS, {2, 1}, {1, 0}),
        containing(vxCELL_CLASS, {2, 1}, {minimal::number(1), minimal::text("x")}),
        containing(vxSTRUCT_CLASS, {2, 1}, {}, {"a", "b"}),
        containing(vxUNKNOWN_CLASS, {1, 1}, {}),
        array<std::int32_t>(vxINT32_CLASS, {2, 3, 2}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}),
        complexRow(),
        array<double>(vxDOUBLE_CLASS, {2, 3}, {0, 0, 5, 0, 0, 6}),
        array<double>(vxDOUBLE_CLASS, {1, 5}, {1, 2, 3, 4, 5}),
        array<unsigned char>(vxLOGICAL_CLASS, {1, 1}, {1}),
        array<unsigned char>(vxLOGICAL_CLASS, {1, 2}, {1, 1}),
        array<double>(vxDOUBLE_CLASS, {0, 3}, {}),
        array<char16_t>(vxCHAR_CLASS, {0, 0}, {}),
        array<std::int8_t>(vxINT8_CLASS, {2, 0, 5}, {}),
        containing(vxCELL_CLASS, {3, 0}, {}),
        containing(vxCELL_CLASS, {2, 2},
                   {minimal::number(1), three, minimal::text("two"), nullptr}),
        containing(vxSTRUCT_CLASS, {1, 1},
                   {column<float>(vxSINGLE_CLASS), minimal::text("high"), flag},
                   {"depth", "name", "inner"}),
        minimal::text("open"),
        array<char16_t>(vxCHAR_CLASS, {2, 2}, {u'a', u'\0', u'c', u'd'}),
        array<std::int64_t>(
            vxINT64_CLASS, {1, 2},
            {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}),
    };
    const std::string memory = minimal::outOfMemoryIdentifier;
    const std::string interrupt = minimal::interruptIdentifier;

    static Value text(const std::string& bytes) { return minimal::text(bytes); }
    static std::string bytes(const Value& value)
    {
        const auto* units = static_cast<const char16_t*>(value->elements.get());
        return {units, units + value->count};
    }

    static contract::Ended<Value> call(bool isSecond, const std::vector<Value>& arguments)
    {
        try {
            return {minimal::call(isSecond ? plugAnyFunction : plugFunction, arguments, 5), ""};
        } catch (const minimal::Error& error) {
            return {{}, error.identifier()};
        }
    }

    std::size_t warningCount() const { return warnings.count(); }
    static void unload() { minimal::unload(); }
};

} // namespace

int main()
{
    Script script;
    return contract::Contract<Script>(script).run();
}
