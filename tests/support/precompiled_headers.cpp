// SPDX-License-Identifier: BSD-3-Clause
// A library has to have a source; what counts of this one are its precompiled headers
// (CMakeLists.txt).
