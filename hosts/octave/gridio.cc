// SPDX-License-Identifier: BSD-3-Clause
// gridio (OPNAME, ...): the first of the functions that the interpreter calls.
#include "module_call.h"
#include "raw_bytes.h"

#include <octave/oct.h>

// The interpreter finds the function by this symbol.
extern "C" __attribute__((visibility("default"))) octave_function*
Ggridio(const octave::dynamic_library& library, bool isRelative);

DEFUN_DLD(gridio, args, nargout, R"(-*- texinfo -*-
@deftypefn  {} {[@var{r1}, @var{r2}, @dots{}] =} gridio (@var{operation}, @var{arg1}, @var{arg2}, @dots{})
Read and write netCDF files of every kind, from classic CDF to NetCDF-4/HDF5, by an operation of the netCDF library.

The operations have the names of the library's functions without @qcode{"nc_"}, in lower camel case, and take their
arguments in the same order.  @code{gridio_help} lists them all, and @code{gridio_help ("defVar")} explains one.

@table @asis
@item Files
@qcode{"open"}, @qcode{"create"}, @qcode{"close"}, @qcode{"endDef"}, @qcode{"redef"}, @qcode{"sync"}, @qcode{"inq"}
@item Groups
@qcode{"defGrp"}, @qcode{"inqGrps"}, @qcode{"inqNcid"}
@item Dimensions
@qcode{"defDim"}, @qcode{"inqDim"}, @qcode{"inqDimID"}
@item Variables
@qcode{"defVar"}, @qcode{"inqVar"}, @qcode{"inqVarID"}, @qcode{"defVarFill"}
@item Storage
@qcode{"defVarChunking"}, @qcode{"defVarDeflate"}, @qcode{"setChunkCache"}
@item Data
@qcode{"getVarDouble"}, @qcode{"putVarDouble"} for all values, @qcode{"getVaraDouble"} for a block, @dots{}; other
classes are @qcode{"Float"}, @qcode{"Int"}, @qcode{"Short"}, @qcode{"Schar"}, @qcode{"Text"}, @dots{}
@item Attributes
@qcode{"getAttDouble"}, @qcode{"putAttText"}, @qcode{"inqAtt"}
@item Constants
@qcode{"parameter"}, @qcode{"getConstantNames"}
@end table

Dimensions are listed in the order of the array: the first varies fastest.  Positions count from 0.  Every failure is an
error with an identifier.

@example
@group
ncid = gridio ("open", "field.nc", "nowrite");
t = gridio ("getVarDouble", ncid, gridio ("inqVarID", ncid, "t"));
gridio ("close", ncid);
@end group
@end example

Files that are still open when @code{clear gridio} or the end of the session unloads the function are closed with a
warning; @code{gridio_open_files} lists them.

@seealso{gridio_any, gridio_help, gridio_open_files, gridio_version}
@end deftypefn)")
{
    return hosts::oct::callGuarded<plugFunction, hosts::oct::warnOfRawBytes>(args, nargout);
}
