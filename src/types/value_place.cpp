// SPDX-License-Identifier: BSD-3-Clause
#include "types/value_place.h"

namespace Ovard::gridio {

std::string ValuePlace::text() const
{
    if (outer_ == nullptr)
        return "the values";
    std::string text = ownText();
    for (const ValuePlace* place = outer_; place->outer_ != nullptr; place = place->outer_)
        text.insert(0, place->ownText() + ", ");
    return text;
}

std::string ValuePlace::ownText() const
{
    const std::string number = std::to_string(index_ + 1);
    return field_.data() == nullptr ? "element " + number
                                    : "field " + number + " '" + std::string(field_) + "'";
}

} // namespace Ovard::gridio
