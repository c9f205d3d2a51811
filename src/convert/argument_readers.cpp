// SPDX-License-Identifier: BSD-3-Clause
#include "convert/argument_readers.h"

#include "convert/numeric_class.h"
#include "convert/numeric_conversion.h"
#include "error_identifiers.h"
#include "library/guards/torn_down_files.h"
#include "vx/text.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace Ovard::gridio {
namespace {

static_assert(sizeof(long) == 8 && sizeof(std::size_t) == 8 && sizeof(int) == 4);
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "charDataToString takes the first byte");

[[noreturn]] void raiseBadScalar(std::string_view name)
{
    vxErrMsgId(netcdf::badScalarArgument(std::string(name), "numeric"));
}

bool isFinite(double value) { return !vxIsNaN(value) && !vxIsInf(value); }

template <class Target> Target readScalar(const vxArray* a, std::string_view name)
{
    if (vxGetNumberOfElements(a) != 1)
        raiseBadScalar(name);

    Target result{};
    const bool isNumeric = visitNumericElements(a, [&](const auto* elements) {
        const auto value = *elements;
        if constexpr (std::is_floating_point_v<std::decay_t<decltype(value)>>) {
            if (!isFinite(value) && name != fillValueName)
                raiseBadScalar(name);
        }
        result = convertChecked<Target>(value);
    });
    if (!isNumeric)
        raiseBadScalar(name);
    return result;
}

} // namespace

std::size_t readSizeScalar(const vxArray* a, std::string_view name)
{
    return readScalar<std::size_t>(a, name);
}

int readIntScalar(const vxArray* a, std::string_view name) { return readScalar<int>(a, name); }

double readDoubleScalar(const vxArray* a, std::string_view name)
{
    return readScalar<double>(a, name);
}

float readFloatScalar(const vxArray* a, std::string_view name)
{
    return readScalar<float>(a, name);
}

long readInt64Scalar(const vxArray* a, std::string_view name) { return readScalar<long>(a, name); }

unsigned int readUintScalar(const vxArray* a, std::string_view name)
{
    return readScalar<unsigned int>(a, name);
}

unsigned short readUshortScalar(const vxArray* a, std::string_view name)
{
    return readScalar<unsigned short>(a, name);
}

short readShortScalar(const vxArray* a, std::string_view name)
{
    return readScalar<short>(a, name);
}

unsigned char readUcharScalar(const vxArray* a, std::string_view name)
{
    return readScalar<unsigned char>(a, name);
}

signed char readScharScalar(const vxArray* a, std::string_view name)
{
    return readScalar<signed char>(a, name);
}

int readNcid(const vxArray* a, std::string_view name)
{
    constexpr int refusedNcid = -1;
    const int ncid = readIntScalar(a, name);
    return isAbandonedFile(ncid) ? refusedNcid : ncid;
}

std::string readText(const vxArray* a, std::string_view name)
{
    if (vxGetClassID(a) != vxCHAR_CLASS)
        vxErrMsgId(netcdf::argumentWasNotChar(std::string(name)));
    return fnd::filesystem::codecvt_ustring_to_narrow_string()(vxGetText(a));
}

bool readFlag(const vxArray* a, std::string_view name)
{
    if (!vxIsLogicalScalar(a))
        vxErrMsgId(netcdf::expectedLogicalType(std::string(name)));

    unsigned char stored = 0;
    std::memcpy(&stored, vxGetLogicals(a), 1); // any non-zero byte is true, not only 1
    return stored != 0;
}

float readRawFloat(const vxArray* a, std::string_view name)
{
    float value = 0;
    if (vxGetNumberOfElements(a) * vxGetElementSize(a) < sizeof value)
        raiseBadScalar(name);
    std::memcpy(&value, vxGetData(a), sizeof value);
    return value;
}

std::string charDataToString(const vxArray* a)
{
    const std::size_t count = vxGetNumberOfElements(a);
    requireStorage(a, count, sizeof(char16_t));

    // In pieces, so that the string is not filled with zeros first.
    std::string bytes;
    bytes.reserve(count);
    const auto* storage = static_cast<const char*>(vxGetData(a));
    char piece[1024];
    for (std::size_t done = 0; done < count; done += sizeof piece) {
        const std::size_t length = std::min(count - done, sizeof piece);
        for (std::size_t i = 0; i < length; ++i)
            piece[i] = storage[sizeof(char16_t) * (done + i)];
        bytes.append(piece, length);
    }
    return bytes;
}

void requireStorage(const vxArray* data, std::size_t count, std::size_t elementSize)
{
    const std::size_t bytesHeld = vxGetNumberOfElements(data) * vxGetElementSize(data);
    if (count > bytesHeld / elementSize)
        vxErrMsgId(netcdf::dataSizeMismatch());
}

} // namespace Ovard::gridio
