// SPDX-License-Identifier: BSD-3-Clause
// A library that nothing needs.
extern "C" __attribute__((visibility("default"))) int unused() { return 1; }
