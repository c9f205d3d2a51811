// SPDX-License-Identifier: BSD-3-Clause
// Options of the sanitizers: an allocation may fail, and the libraries' own leaks are ignored. A
// file in memory grows in steps that copy all of it, so that many MiB would take minutes; libFuzzer
// itself needs 20.

extern "C" {

const char* __asan_default_options();
const char* __lsan_default_suppressions();

__attribute__((visibility("default"))) const char* __asan_default_options()
{
    return "allocator_may_return_null=1:max_allocation_size_mb=24:malloc_context_size=6";
}

__attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libnetcdf\nleak:libhdf5\n";
}

} // extern "C"
