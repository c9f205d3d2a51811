// SPDX-License-Identifier: BSD-3-Clause
// Text of the host: UTF-16 units inside, a narrow encoding towards the library. Defined by the
// host.
#pragma once

#include "vx/array.h"

#include <string>
#include <string_view>

// The units of a char array, in storage order, whatever its shape. Only for arrays of vxCHAR_CLASS.
std::u16string_view vxGetText(const vxArray* array);

namespace fnd::filesystem {

// UTF-16 to the host's narrow encoding: the one in which it names files. Never fails: a character
// without a counterpart becomes a replacement of the host's choice.
struct codecvt_ustring_to_narrow_string {
    std::string operator()(std::u16string_view text) const;
};

} // namespace fnd::filesystem
