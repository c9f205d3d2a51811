// SPDX-License-Identifier: BSD-3-Clause
#include "data/elements/element_forms.h"

#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "data/elements/element_types.h"
#include "error_identifiers.h"
#include "library/guards/generated_attributes.h"

#include <algorithm>
#include <cstring>

namespace Ovard::gridio {
namespace {

constexpr std::size_t oneByOne[] = {1, 1};

HostMemory<char> zeroedBuffer(std::size_t count, std::size_t size)
{
    return HostMemory<char>(static_cast<char*>(vxCalloc(count, size)));
}

// --- Numbers are stored in the array itself.

IncomingElements createNumbers(const ElementType& element, const SizeVector& hostDimensions,
                               std::size_t count, std::size_t)
{
    vxArray* array = vxCreateUninitNumericArray(hostDimensions.size(), hostDimensions.data(),
                                                element.hostClass, vxREAL);
    return {array, nullptr, count};
}

void leaveNumbers(const IncomingElements&) {}

IncomingElements createNumericAttribute(const ElementType& element, std::size_t count)
{
    const std::size_t dims[] = {count == 0 ? std::size_t{0} : std::size_t{1}, count};
    IncomingElements elements;
    elements.array = vxCreateNumericArray(2, dims, element.hostClass, vxREAL);
    elements.count = count;
    if (element.size < leastAttributeBytes)
        elements.buffer = zeroedBuffer(count * element.size + leastAttributeBytes, 1);
    return elements;
}

vxArray* finishNumericAttribute(const ElementType& element, const IncomingElements& elements)
{
    const std::size_t bytes = elements.count * element.size;
    if (elements.buffer && bytes != 0)
        std::memcpy(vxGetWritableData(elements.array), elements.buffer.get(), bytes);
    return elements.array;
}

vxArray* createNoNumbers(const ElementType& element)
{
    return vxCreateUninitNumericArray(0, nullptr, element.hostClass, vxREAL);
}

const void* borrowNumbers(const vxArray* data, const ElementType& element, std::string&)
{
    requireStorage(data, vxGetNumberOfElements(data), element.size);
    return vxGetData(data);
}

void readFillNumber(const vxArray* argument, const ElementType& element, void* value)
{
    element.readScalar(argument, fillValueName, value);
}

vxArray* createFillNumber(const ElementType& element)
{
    return vxCreateNumericArray(2, oneByOne, element.hostClass, vxREAL);
}

// --- Text passes through a buffer of bytes.

// The bytes are widened as signed characters, whatever the platform's char is.
char16_t widen(char byte) { return static_cast<char16_t>(static_cast<signed char>(byte)); }

IncomingElements createText(const ElementType&, const SizeVector& hostDimensions, std::size_t count,
                            std::size_t textUnitSize)
{
    vxArray* array = vxCreateCharArray(hostDimensions.size(), hostDimensions.data());
    return {array, zeroedBuffer(count + 1, textUnitSize), count};
}

void widenText(const IncomingElements& elements)
{
    const char* bytes = elements.buffer.get();
    std::transform(bytes, bytes + elements.count,
                   static_cast<char16_t*>(vxGetWritableData(elements.array)), widen);
}

// The buffer is twice the length, so that a NUL always follows the text that the library writes.
IncomingElements createTextAttribute(const ElementType&, std::size_t count)
{
    IncomingElements elements;
    elements.buffer = zeroedBuffer(std::max(count, leastAttributeBytes), sizeof(char16_t));
    elements.count = count;
    return elements;
}

vxArray* finishTextAttribute(const ElementType&, const IncomingElements& elements)
{
    return textResult(elements.count == 0 ? "" : elements.buffer.get());
}

// The result of reading text from a variable that is not NC_CHAR has no class.
vxArray* createNoText(const ElementType&)
{
    return vxCreateUninitNumericArray(0, nullptr, vxUNKNOWN_CLASS, vxREAL);
}

const void* borrowText(const vxArray* data, const ElementType&, std::string& bytes)
{
    bytes = charDataToString(data);
    return bytes.data();
}

void readFillCharacter(const vxArray* argument, const ElementType&, void* value)
{
    if (vxGetClassID(argument) != vxCHAR_CLASS || vxGetNumberOfElements(argument) != 1)
        vxErrMsgId(netcdf::badScalarArgument(std::string(fillValueName), "char"));
    // The name deliberately differs from that in the error above.
    *static_cast<char*>(value) = readText(argument, "fill value")[0];
}

// A fill character is the byte's own code, deliberately without the sign extension of text reads:
// the library writes one byte into the zeroed 16-bit unit.
vxArray* createFillUnit(const ElementType&) { return vxCreateCharArray(2, oneByOne); }

} // namespace

const ElementForm numericForm = {
    createNumbers,   leaveNumbers,  createNumericAttribute, finishNumericAttribute,
    createNoNumbers, borrowNumbers, readFillNumber,         createFillNumber,
};

const ElementForm textForm = {
    createText,   widenText,  createTextAttribute, finishTextAttribute,
    createNoText, borrowText, readFillCharacter,   createFillUnit,
};

} // namespace Ovard::gridio
