// SPDX-License-Identifier: BSD-3-Clause
// The kinds of failure that the operations for datasets add to error_identifiers.h and
// any_error_identifiers.h.
#pragma once

#include "vx/error.h"

#include <string>

namespace Ovard::gridio::dataset {

using msgcat::MessageText;

// A text that describes times cannot be understood: "calendar", "units" or "period", the text in
// quotes, and the reason.
struct unreadableTime : msgcat::BaseMsgID {
    unreadableTime(const std::string& kind, const std::string& text, const std::string& reason)
        : BaseMsgID("Ovard:gridio:dataset:unreadableTime",
                    {MessageText(kind), MessageText(text), MessageText(reason)})
    {
    }
};

// A time cannot be represented in the requested form: its place, counted from 1, the value, and the
// reason.
struct unrepresentableTime : msgcat::BaseMsgID {
    unrepresentableTime(long place, const std::string& value, const std::string& reason)
        : BaseMsgID("Ovard:gridio:dataset:unrepresentableTime",
                    {place, MessageText(value), MessageText(reason)})
    {
    }
};

// A value to be packed is out of the range of the type: its place, counted from 1, what was given,
// the type, and the range.
struct valueOutOfRange : msgcat::BaseMsgID {
    valueOutOfRange(long place, const std::string& value, const std::string& type,
                    const std::string& range)
        : BaseMsgID("Ovard:gridio:dataset:valueOutOfRange",
                    {place, MessageText(value), MessageText(type), MessageText(range)})
    {
    }
};

// A variable of one of many files is not as it was when the files were joined: its name, and how it
// differs.
struct badPart : msgcat::BaseMsgID {
    badPart(const std::string& variable, const std::string& difference)
        : BaseMsgID("Ovard:gridio:dataset:badPart",
                    {MessageText(variable), MessageText(difference)})
    {
    }
};

// An argument has another class or shape than the operation takes.
struct badArgument : msgcat::BaseMsgID {
    badArgument(const std::string& parameter, const std::string& expected)
        : BaseMsgID("Ovard:gridio:dataset:badArgument",
                    {MessageText(parameter), MessageText(expected)})
    {
    }
};

} // namespace Ovard::gridio::dataset
