// SPDX-License-Identifier: BSD-3-Clause
// The result of parsing text: a value, or the reason for its absence.
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace Ovard::gridio::cf {

// The reason is a clause without a full stop, to follow the name of what was parsed.
struct Refusal {
    std::string reason;
};

template <class T> class [[nodiscard]] Outcome {
public:
    // Implicit, so that a function returns either.
    Outcome(T value) : content_(std::move(value)) {}
    Outcome(Refusal refusal) : content_(std::move(refusal)) {}

    explicit operator bool() const { return std::holds_alternative<T>(content_); }

    const T& operator*() const { return std::get<T>(content_); }
    const T* operator->() const { return &std::get<T>(content_); }

    const std::string& reason() const { return std::get<Refusal>(content_).reason; }

private:
    std::variant<T, Refusal> content_;
};

} // namespace Ovard::gridio::cf
