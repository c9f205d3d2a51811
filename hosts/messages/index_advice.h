// SPDX-License-Identifier: BSD-3-Clause
// What is wrong with START, COUNT and STRIDE, dimension by dimension.
#pragma once

#include "hosts/messages/call_context.h"
#include "hosts/messages/subjects.h"

#include <string>

namespace hosts::messages {

// Each function returns sentences, or an empty text if it finds nothing.

// Which of the dimensions START, COUNT and STRIDE reach past, and by how much; whether they would
// fit in the reverse order.
std::string findIndexPastEnd(const FailedCall& call);

// An element of STRIDE below 1.
std::string findBadStride(const FailedCall& call);

// An element of START, COUNT or STRIDE that is negative or too large, NaN or infinite.
std::string findIndexOutOfRange(const FailedCall& call);
std::string findIndexNotFinite(const FailedCall& call);

// 'along dimension "time" (third of 3, length 12)'
std::string describePlace(const Variable& variable, std::size_t dimension);

// The variable of the call, if it has one.
std::optional<Variable> variableOfCall(const FailedCall& call);

} // namespace hosts::messages
