// SPDX-License-Identifier: BSD-3-Clause
// gridio_any (OPNAME, ...): the second function that the interpreter calls. It is in gridio.oct,
// since both functions share the open files; the autoload command below is run when the folder of
// gridio.oct is added to the load path.
#include "module_call.h"

#include <octave/oct.h>

// PKG_ADD: autoload ("gridio_any", "gridio.oct");
// PKG_DEL: try, autoload ("gridio_any", "gridio.oct", "remove"); end_try_catch

namespace {

// Values are converted, so there is no warning about raw bytes.
void nothingBefore(const octave_value_list&) {}

} // namespace

// As in gridio.cc: the interpreter finds the function by this symbol.
extern "C" __attribute__((visibility("default"))) octave_function*
Ggridio_any(const octave::dynamic_library& library, bool isRelative);

DEFUN_DLD(gridio_any, args, nargout, R"(-*- texinfo -*-
@deftypefn  {} {[@var{r1}, @var{r2}, @dots{}] =} gridio_any (@var{operation}, @var{arg1}, @var{arg2}, @dots{})
Read and write values of every type that a netCDF file can hold, by an operation of the netCDF library without a type in its
name.

It works on the files that @code{gridio} opens or creates, under the same conventions: the operations have the names of
the library's functions without @qcode{"nc_"}, take their arguments in the same order, count from 0, and list dimensions
in the order of the array.  @code{gridio_help ("getVar")} explains one.

@table @asis
@item Values
@qcode{"getVar"}, @qcode{"getVar1"}, @qcode{"getVara"}, @qcode{"getVars"}, @qcode{"putVar"}, @dots{}, @qcode{"getAtt"},
@qcode{"putAtt"}
@item Types
@qcode{"inqTypeIDs"}, @qcode{"inqTypeID"}, @qcode{"inqUserType"}, @qcode{"inqEnumMember"}, @qcode{"inqCompoundField"},
@dots{}
@item Definitions
@qcode{"defEnum"}, @qcode{"insertEnum"}, @qcode{"defCompound"}, @qcode{"insertCompound"}, @qcode{"defVlen"},
@qcode{"defOpaque"}
@item Storage
@qcode{"inqVarEndian"}, @qcode{"inqVarFilters"}, @qcode{"defVarFilter"}, @qcode{"defVarFill"}, @dots{}
@end table

Numbers come in their own class, strings as a character row or a cell array of them, an enumeration as integers and, if a second
result is asked for, as labels, a variable-length type as a cell array of columns, a compound type as a struct of arrays, an opaque
type as bytes.  Writing takes the same.

@example
@group
ncid = gridio ("open", "stations.nc", "nowrite");
names = gridio_any ("getVar", ncid, gridio ("inqVarID", ncid, "station"));
units = gridio_any ("getAtt", ncid, gridio ("inqVarID", ncid, "time"), "units");
gridio ("close", ncid);
@end group
@end example

Files that are still open when @code{clear gridio gridio_any} or the end of the session unloads the functions are closed with
a warning.

Large blocks of chunked and compressed variables are read and written by several threads: see @code{gridio_threads}.

@seealso{gridio, gridio_help, gridio_open_files, gridio_threads}
@end deftypefn)")
{
    return hosts::oct::callGuarded<plugAnyFunction, nothingBefore>(args, nargout);
}
