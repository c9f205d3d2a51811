// SPDX-License-Identifier: BSD-3-Clause
// The times of an argument, in units that are passed besides.
#pragma once

#include "cf/time_columns.h"
#include "convert/numeric_class.h"
#include "dataset_error_identifiers.h"
#include "types/exact_numbers.h"
#include "vx/array.h"

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

namespace Ovard::gridio {

// Numbers of any class: 64-bit integers as they are, all others as doubles, which hold them.
class TimeValues {
public:
    explicit TimeValues(const vxArray* values, const char* name)
        : count_(vxGetNumberOfElements(values)),
          dims_(vxGetDimensions(values), vxGetDimensions(values) + vxGetNumberOfDimensions(values)),
          rounding_(vxGetClassID(values) == vxSINGLE_CLASS ? cf::Rounding::withinSingle
                                                           : cf::Rounding::withinDouble)
    {
        const bool isNumeric = visitNumericElements(values, [&](const auto* elements) {
            using Element = std::decay_t<decltype(*elements)>;
            if constexpr (std::is_integral_v<Element> && sizeof(Element) == 8)
                addWhole(elements);
            else
                doubles_.assign(elements, elements + count_);
        });
        if (!isNumeric)
            vxErrMsgId(dataset::badArgument(name, "numbers, in an array of any numeric class"));
    }

    std::size_t count() const { return count_; }

    vxArray* createLike() const
    {
        return vxCreateUninitNumericArray(dims_.size(), dims_.data(), vxDOUBLE_CLASS, vxREAL);
    }
    vxArray* createCellsLike() const { return vxCreateCellArray(dims_.size(), dims_.data()); }

    std::string text(std::size_t i) const
    {
        return isWhole_ ? numberText(whole_[i]) : numberText(doubles_[i]);
    }
    const std::vector<double>& doubles() const { return doubles_; }

    cf::Misses toDatenum(const cf::TimeUnits& units, double* datenum) const
    {
        return isWhole_ ? cf::valuesToDatenum(units, whole_.data(), count_, datenum)
                        : cf::valuesToDatenum(units, doubles_.data(), count_, rounding_, datenum);
    }
    cf::Misses toParts(const cf::TimeUnits& units, double* parts) const
    {
        return isWhole_ ? cf::valuesToParts(units, whole_.data(), count_, parts)
                        : cf::valuesToParts(units, doubles_.data(), count_, rounding_, parts);
    }
    cf::Misses toMoments(const cf::TimeUnits& units, cf::Moment* moments) const
    {
        return isWhole_ ? cf::valuesToMoments(units, whole_.data(), count_, moments)
                        : cf::valuesToMoments(units, doubles_.data(), count_, rounding_, moments);
    }

private:
    // A uint64 beyond the signed ones is out of range for any units.
    template <class Integer> void addWhole(const Integer* elements)
    {
        isWhole_ = true;
        constexpr std::uint64_t most = std::numeric_limits<std::int64_t>::max();
        for (std::size_t i = 0; i < count_; ++i)
            whole_.push_back(std::is_unsigned_v<Integer> &&
                                     static_cast<std::uint64_t>(elements[i]) > most
                                 ? std::numeric_limits<std::int64_t>::max()
                                 : static_cast<std::int64_t>(elements[i]));
    }

    std::size_t count_;
    std::vector<std::size_t> dims_;
    cf::Rounding rounding_;
    bool isWhole_ = false;
    std::vector<std::int64_t> whole_;
    std::vector<double> doubles_;
};

} // namespace Ovard::gridio
