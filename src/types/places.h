// SPDX-License-Identifier: BSD-3-Clause
// Positions of equal elements in a block of memory: at regular distances, with those of array
// fields nested.
#pragma once

#include <boost/container/small_vector.hpp>

#include <cstddef>

namespace Ovard::gridio {

// Byte is char or const char. In storage order: for an array field, the elements of one value come
// before those of the next.
template <class Byte> class Places {
public:
    // count elements, each so many bytes behind the one before it.
    Places(Byte* first, std::size_t count, std::size_t step) : first_(first), count_(count)
    {
        levels_.push_back({count, step});
    }

    // Within each of these elements, count elements at that offset.
    Places inside(std::size_t offset, std::size_t count, std::size_t step) const
    {
        Places inner = *this;
        inner.first_ += offset;
        inner.count_ *= count;
        if (count != 1)
            inner.levels_.push_back({count, step});
        return inner;
    }

    Byte* first() const { return first_; }
    std::size_t count() const { return count_; }

    // Whether they are contiguous elements of that size.
    bool areContiguous(std::size_t size) const
    {
        return count_ <= 1 || (levels_.size() == 1 && levels_[0].step == size);
    }

    // Calls visit(first, count, step) for each run of equal distances.
    template <class Visit> void forEachRun(Visit&& visit) const
    {
        if (count_ > 0)
            visitLevel(first_, 0, visit);
    }

    // Calls visit(element) for each.
    template <class Visit> void forEach(Visit&& visit) const
    {
        forEachRun([&](Byte* element, std::size_t count, std::size_t step) {
            for (std::size_t i = 0; i < count; ++i)
                visit(element + i * step);
        });
    }

private:
    struct Level {
        std::size_t count;
        std::size_t step;
    };

    template <class Visit> void visitLevel(Byte* first, std::size_t level, Visit& visit) const
    {
        const auto [count, step] = levels_[level];
        if (level + 1 == levels_.size()) {
            visit(first, count, step);
            return;
        }
        for (std::size_t i = 0; i < count; ++i)
            visitLevel(first + i * step, level + 1, visit);
    }

    Byte* first_;
    std::size_t count_;
    boost::container::small_vector<Level, 4> levels_; // from the outermost
};

using ReadPlaces = Places<const char>;
using WritePlaces = Places<char>;

} // namespace Ovard::gridio
