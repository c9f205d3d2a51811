// SPDX-License-Identifier: BSD-3-Clause
// What is wrong with an address ("file:///data/store#mode=zarr,file"), as far as its text and the
// folder that it names show.
#pragma once

#include <string>

namespace hosts::messages {

// Reports that the folder of a local address holds something that would be lost, or that the kind
// of store is missing after "zarr". Empty if neither applies.
std::string findAddressProblem(const std::string& address);

} // namespace hosts::messages
