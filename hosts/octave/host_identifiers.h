// SPDX-License-Identifier: BSD-3-Clause
// The identifiers of the error and the warning that this host itself raises.
#pragma once

namespace hosts::oct {

// A foreign exception has left the module.
inline constexpr const char* internalErrorIdentifier = "Ovard:gridio:host:internal";

// Values of another class than the operation takes are written byte by byte.
inline constexpr const char* rawBytesIdentifier = "Ovard:gridio:octave:rawBytes";

inline constexpr const char* hostIdentifiers[] = {internalErrorIdentifier, rawBytesIdentifier};

} // namespace hosts::oct
