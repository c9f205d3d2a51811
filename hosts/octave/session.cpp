// SPDX-License-Identifier: BSD-3-Clause
// The data that gridio_open_files, gridio_version and gridio_threads report. The function is in
// gridio.oct, which alone knows its open files; its callers clear it after each call, so that
// "clear gridio" still unloads gridio.oct.
#include "errors.h"
#include "guarded_call.h"
#include "session_report.h"

#include <octave/Cell.h>
#include <octave/oct-map.h>
#include <octave/interpreter.h>
#include <octave/oct.h>

#include <exception>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace {

octave_value openFiles()
{
    const std::vector<Ovard::gridio::OpenFile> files = Ovard::gridio::listOpenFiles();
    const auto count = static_cast<octave_idx_type>(files.size());
    Cell ncid(count, 1);
    Cell path(count, 1);
    Cell mode(count, 1);
    Cell format(count, 1);
    Cell unload(count, 1);
    for (octave_idx_type i = 0; i < count; ++i) {
        const Ovard::gridio::OpenFile& file = files[static_cast<std::size_t>(i)];
        ncid(i) = static_cast<double>(file.ncid);
        path(i) = file.path;
        mode(i) = file.isWritable ? "write" : "read";
        format(i) = file.format;
        unload(i) = file.isClosedAtUnload ? "closed" : "not closed";
    }
    octave_map list(dim_vector(count, 1));
    list.assign("ncid", ncid);
    list.assign("path", path);
    list.assign("mode", mode);
    list.assign("format", format);
    list.assign("unload", unload);
    return list;
}

octave_scalar_map flagStruct(const std::vector<std::pair<std::string, bool>>& flags)
{
    octave_scalar_map result;
    for (const auto& [name, isAvailable] : flags)
        result.assign(name, octave_value(isAvailable));
    return result;
}

octave_value versions()
{
    const Ovard::gridio::LibraryReport library = Ovard::gridio::describeLibrary();
    octave_scalar_map all;
    all.assign("gridio", GRIDIO_VERSION);
    all.assign("netcdf", library.netcdf);
    all.assign("netcdf_built_with", library.netcdfBuiltWith);
    all.assign("hdf5", library.hdf5);
    all.assign("hdf5_libraries", Cell(string_vector(library.hdf5Libraries)));
    all.assign("features", flagStruct(library.features));
    all.assign("filters", flagStruct(library.filters));
    return all;
}

// Releases before 9 have the inquiry under its older name, and releases after 9 under the newer
// only.
template <class Interpreter>
auto isInitialized(const Interpreter& interpreter, int) -> decltype(interpreter.is_initialized())
{
    return interpreter.is_initialized();
}
template <class Interpreter> bool isInitialized(const Interpreter& interpreter, long)
{
    return interpreter.initialized();
}

// Whether an error is on its way through the interpreter, and whether the session ends: a
// destructor of a class learns neither otherwise.
octave_scalar_map state()
{
    octave_scalar_map all;
    all.assign("isUnwinding", std::uncaught_exceptions() > 0);
    all.assign("isExiting", !isInitialized(*octave::interpreter::the_interpreter(), 0));
    return all;
}

octave_value answerTo(const std::string& question)
{
    if (question == "files")
        return openFiles();
    if (question == "versions")
        return versions();
    if (question == "state")
        return state();
    return static_cast<double>(Ovard::gridio::threadCount());
}

} // namespace

// As in gridio.cpp: the interpreter finds the function by this symbol.
extern "C" __attribute__((visibility("default"))) octave_function*
G__gridio_session__(const octave::dynamic_library& library, bool isRelative);

DEFUN_DLD(__gridio_session__, args, , R"(-*- texinfo -*-
@deftypefn  {} {@var{files} =} __gridio_session__ (@qcode{"files"})
@deftypefnx {} {@var{versions} =} __gridio_session__ (@qcode{"versions"})
@deftypefnx {} {@var{state} =} __gridio_session__ (@qcode{"state"})
@deftypefnx {} {@var{count} =} __gridio_session__ (@qcode{"threads"})
Undocumented internal function of @code{gridio_open_files}, @code{gridio_version}, @code{gridio_threads} and the dataset classes.
@end deftypefn)")
{
    const std::string wanted =
        args.length() == 1 && args(0).is_string() ? args(0).string_value() : "";
    if (wanted != "files" && wanted != "versions" && wanted != "state" && wanted != "threads")
        print_usage();
    return hosts::oct::guardedCall(
        [&] { return ovl(answerTo(wanted)); },
        [](const std::string& failure) { hosts::oct::raiseInternal(failure.c_str()); });
}
