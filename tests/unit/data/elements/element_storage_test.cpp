// SPDX-License-Identifier: BSD-3-Clause
// The storage that the library reads elements from and writes them to.
#include "data/elements/element_storage.h"

#include "gateway/operation_table.h"
#include "tests/support/element_samples.h"
#include "tests/support/module_test.h"

#include <boost/numeric/conversion/cast.hpp>

#include <cstring>

using namespace Ovard::gridio;
using namespace testsupport;
using standalone::Value;

namespace {

class ElementStorage : public ModuleTest {
protected:
    // The result of reading these bytes.
    static Value readBytes(const ElementType& element, const SizeVector& dims, const Bytes& bytes)
    {
        vxArray* slot = nullptr;
        ElementResult result(slot, element, dims, 1);
        EXPECT_EQ(result.count() * element.size, bytes.size());
        if (!bytes.empty())
            std::memcpy(result.destination(), bytes.data(), bytes.size());
        result.finish();
        return Value::adopt(slot);
    }
};

TEST_F(ElementStorage, ReturnsWhatTheLibraryWritesIntoAResult)
{
    for (const ElementType& element : elementTypes) {
        const Bytes bytes = sampleBytes(element, 12);
        EXPECT_EQ(readBytes(element, {3, 4}, bytes), valueOfBytes(element.hostClass, {3, 4}, bytes))
            << element.suffix;
    }
}

TEST_F(ElementStorage, WidensTextBySignExtensionDeliberately)
{
    const Value text = readBytes(*findExternalType(NC_CHAR), {4, 1}, "A\x7F\x80\xE9");
    EXPECT_EQ(text.toUtf16(), u"A\x7F\xFF80\xFFE9");
}

TEST_F(ElementStorage, IsEmptyForAnEmptyResult)
{
    for (const ElementType& element : elementTypes) {
        const Value value = readBytes(element, {0, 3}, "");
        EXPECT_EQ(value, Value::empty(element.hostClass, {0, 3})) << element.suffix;
    }
}

TEST_F(ElementStorage, IsInTheResultSlotBeforeAnythingIsRead)
{
    for (const ElementType& element : elementTypes) {
        vxArray* slot = nullptr;
        const ElementResult result(slot, element, {2, 2}, 1);
        ASSERT_NE(slot, nullptr) << element.suffix;
        static_cast<void>(Value::adopt(slot));
    }
}

TEST_F(ElementStorage, RefusesSizesThatOverflow)
{
    vxArray* slot = nullptr;
    const std::size_t half = std::size_t{1} << 32;
    for (const ElementType& element : elementTypes)
        EXPECT_THROW(ElementResult(slot, element, {half, half}, 1),
                     boost::numeric::positive_overflow)
            << element.suffix;
    EXPECT_EQ(slot, nullptr);
}

TEST_F(ElementStorage, UsesTheHostsStorageOfASource)
{
    for (const ElementType& element : elementTypes) {
        const Bytes bytes = sampleBytes(element, 12);
        const Value value = valueOfBytes(element.hostClass, {3, 4}, bytes);
        const ElementSource source(value.array(), element);
        EXPECT_EQ(Bytes(static_cast<const char*>(source.get()), bytes.size()), bytes)
            << element.suffix;
    }
}

TEST_F(ElementStorage, RefusesASourceWithFewerBytesThanAreRead)
{
    for (const ElementType& element : elementTypes) {
        const std::size_t read = element.hostClass == vxCHAR_CLASS ? 2 : element.size;
        const Value candidates[] = {Value::row<std::int8_t>({1, 2}),  true,
                                    Value::row<std::int16_t>({1, 2}), "ab",
                                    Value::row<float>({1, 2}),        Value::row<double>({1, 2}),
                                    Value::cell({1, 1}, {1}),         Value::anythingElse()};
        for (const Value& value : candidates) {
            const auto outcome = outcomeOf([&] { return ElementSource(value.array(), element); });
            if (vxGetElementSize(value.array()) >= read)
                EXPECT_THAT(outcome, succeeds()) << element.suffix << ": " << value;
            else
                EXPECT_THAT(outcome, raises("dataSizeMismatch")) << element.suffix << ": " << value;
        }
    }
}

TEST(RequireVariableData, RefusesEmptyDataOfEveryOperationButTheAttributeWrites)
{
    const Value empties[] = {Value::empty(), Value(""), Value::empty(vxINT8_CLASS, {3, 0})};
    for (const OperationEntry& row : operationTable) {
        const bool isAttributeWrite = std::string(row.name).rfind("putAtt", 0) == 0;
        for (const Value& empty : empties) {
            const auto outcome = outcomeOf([&] { requireVariableData(empty.array(), &row); });
            if (isAttributeWrite)
                EXPECT_THAT(outcome, succeeds()) << row.name;
            else
                EXPECT_THAT(outcome, raises("emptyVariableData")) << row.name;
        }
    }
}

TEST(RequireVariableData, ExemptsExactlyTheCodes77To88)
{
    const Value empty = Value::empty();
    for (const int code : {0, 76, 77, 88, 89, 99, 100, 110, 122}) {
        const OperationEntry row = {code, "x", 0, nullptr};
        const bool passes =
            outcomeOf([&] { requireVariableData(empty.array(), &row); }).succeeded();
        EXPECT_EQ(passes, code == 77 || code == 88) << code;
    }
}

TEST(RequireVariableData, TakesDataOfAnyClass)
{
    const Value others[] = {Value(1), Value("x"), Value(false), Value::cell({1, 1}, {1}),
                            Value::anythingElse()};
    for (const Value& other : others)
        EXPECT_NO_THROW(requireVariableData(other.array(), findOperation("putVarDouble", 3)));
}

} // namespace
