// SPDX-License-Identifier: BSD-3-Clause
// Findings about a call that the library refused, by its status: sentences that name the objects
// concerned, or nothing. Every function only inquires and changes nothing.
#pragma once

#include "hosts/messages/call_context.h"

#include <string>

namespace hosts::messages {

// For an object that does not exist under the name or identifier given: the nearest name, the
// existing names, and other groups that have it.
std::string findMissingVariable(const FailedCall& call);
std::string findMissingDimension(const FailedCall& call);
std::string findMissingAttribute(const FailedCall& call);
std::string findMissingGroup(const FailedCall& call);

// Which of the identifiers does not belong to an open file.
std::string findClosedFile(const FailedCall& call);

// Which object already has the name, and what is wrong with a name.
std::string findNameInUse(const FailedCall& call);
std::string findBadName(const FailedCall& call);

// The type of the variable or attribute, and the operations that read or write it.
std::string findOtherKindOfValues(const FailedCall& call);
std::string findUnfitType(const FailedCall& call);
std::string findValueOutOfRange(const FailedCall& call);

// ", which holds -128 to 127" for NC_BYTE; empty for a type that holds any number.
std::string describeRange(int type);

// Why a definition is refused: the unlimited dimension, the file's format, a chunk size, a number.
std::string findUnlimitedPosition(const FailedCall& call);
std::string findOtherUnlimited(const FailedCall& call);
std::string findUnfitFormat(const FailedCall& call);
std::string findBadChunkSize(const FailedCall& call);
std::string findInvalidArgument(const FailedCall& call);

// Why a file cannot be opened, created, read or written (system errors, NC_EHDFERR and others).
std::string findFileProblem(const FailedCall& call);
std::string findNotWritable(const FailedCall& call);
std::string findExistingFile(const FailedCall& call);

} // namespace hosts::messages
