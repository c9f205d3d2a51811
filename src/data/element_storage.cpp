// SPDX-License-Identifier: BSD-3-Clause
#include "data/element_storage.h"

#include "convert/argument_readers.h"
#include "data/shapes.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

// The bytes are widened as signed characters, whatever the platform's char is.
char16_t widen(char byte) { return static_cast<char16_t>(static_cast<signed char>(byte)); }

} // namespace

ElementResult::ElementResult(vxArray*& slot, const ElementType& element,
                             const SizeVector& hostDimensions, std::size_t textUnitSize)
    : count_(productOf(hostDimensions)), array_(nullptr)
{
    const std::size_t rank = hostDimensions.size();
    if (element.hostClass == vxCHAR_CLASS) {
        slot = array_ = vxCreateCharArray(rank, hostDimensions.data());
        buffer_.reset(static_cast<char*>(vxCalloc(count_ + 1, textUnitSize)));
    } else {
        slot = array_ =
            vxCreateUninitNumericArray(rank, hostDimensions.data(), element.hostClass, vxREAL);
    }
}

void ElementResult::finish()
{
    if (buffer_) {
        const char* bytes = buffer_.get();
        std::transform(bytes, bytes + count_, static_cast<char16_t*>(vxGetWritableData(array_)),
                       widen);
        buffer_.reset();
    }
}

ElementSource::ElementSource(const vxArray* data, const ElementType& element)
{
    if (element.hostClass == vxCHAR_CLASS) {
        text_ = charDataToString(data);
        values_ = text_.data();
    } else {
        requireStorage(data, vxGetNumberOfElements(data), element.size);
        values_ = vxGetData(data);
    }
}

} // namespace Ovard::gridio
