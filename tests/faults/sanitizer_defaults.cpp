// SPDX-License-Identifier: BSD-3-Clause
// Suppressions of the leak sanitizer: the library keeps a list of each Zarr store that it has
// closed.

extern "C" {

const char* __lsan_default_suppressions();

__attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:nclistnew\n";
}

} // extern "C"
