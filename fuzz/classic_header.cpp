// SPDX-License-Identifier: BSD-3-Clause
#include "fuzz/classic_header.h"

#include <cstring>

namespace fuzz {
namespace {

// Thrown when the header ends early or contradicts itself, which the library handles.
struct Unreadable {};
// Thrown for a header that must not be passed to the library.
struct Fatal {};

class Header {
public:
    Header(const std::uint8_t* bytes, std::size_t count) : next_(bytes), left_(count) {}

    void check()
    {
        if (left_ < 4 || std::memcmp(next_, "CDF", 3) != 0)
            throw Unreadable();
        version_ = next_[3];
        skip(4);
        number(); // of records
        list([this] {
            text();
            number(); // length
        });
        attributes();
        list([this] {
            text();
            skip(counted() * wordSize()); // dimensions
            attributes();
            if (type() == nullptr)
                throw Fatal(); // the library divides by the size of its elements
            number();          // bytes
            skip(version_ == 1 ? 4 : 8);
        });
    }

private:
    std::size_t wordSize() const { return version_ == 5 ? 8 : 4; }

    void skip(std::size_t bytes)
    {
        if (bytes > left_)
            throw Unreadable();
        next_ += bytes;
        left_ -= bytes;
    }

    std::uint64_t read(std::size_t bytes)
    {
        const std::uint8_t* first = next_;
        skip(bytes);
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < bytes; ++i)
            value = value << 8 | first[i];
        return value;
    }

    std::uint64_t number() { return read(wordSize()); }

    std::size_t counted()
    {
        if (left_ < wordSize())
            throw Fatal(); // missing bytes are taken from whatever memory holds
        const std::uint64_t count = number();
        if (count > left_)
            throw Fatal();
        return static_cast<std::size_t>(count);
    }

    void text() { skip((counted() + 3) / 4 * 4); }

    template <class Element> void list(const Element& element)
    {
        skip(4); // tag
        for (std::size_t i = counted(); i > 0; --i)
            element();
    }

    // The size of the type's elements; null if there is no such type.
    const std::size_t* type()
    {
        static constexpr std::size_t sizes[] = {1, 1, 2, 4, 4, 8, 1, 2, 4, 8, 8};
        const std::uint64_t code = read(4);
        return code >= 1 && code <= sizeof sizes / sizeof *sizes ? &sizes[code - 1] : nullptr;
    }

    void attributes()
    {
        list([this] {
            text();
            const std::size_t* elementSize = type();
            if (elementSize == nullptr)
                throw Unreadable();
            skip((counted() * *elementSize + 3) / 4 * 4);
        });
    }

    const std::uint8_t* next_;
    std::size_t left_;
    int version_ = 0;
};

} // namespace

bool isSurvivable(const std::uint8_t* bytes, std::size_t count)
{
    try {
        Header(bytes, count).check();
    } catch (const Unreadable&) {
        return true;
    } catch (const Fatal&) {
        return false;
    }
    return true;
}

} // namespace fuzz
