// SPDX-License-Identifier: BSD-3-Clause
// gridio (OPNAME, ...): the entry from the interpreter, which no foreign exception ever leaves.
#include "call.h"
#include "errors.h"
#include "raw_bytes.h"
#include "vx/plug.h"

#include <octave/oct.h>

#include <exception>
#include <new>

namespace {

octave_value_list callModule(const octave_value_list& args, int nargout)
{
    hosts::oct::Call call;
    const octave_idx_type count = args.length();
    auto** arguments = static_cast<const vxArray**>(
        call.allocate(static_cast<size_t>(count) * sizeof(const vxArray*)));
    for (octave_idx_type i = 0; i < count; ++i)
        arguments[i] = call.add(args(i));

    vxArray* results[plugResultSlots] = {};
    try {
        plugFunction(nargout, results, static_cast<int>(count), arguments);
    } catch (const fnd::except::IMsgIDException& failure) {
        hosts::oct::raiseMessage(failure.messageId(), {arguments, static_cast<size_t>(count)});
    }

    // All of them, whatever the script asked for: the interpreter drops what is too much.
    octave_idx_type used = 0;
    while (used < plugResultSlots && results[used])
        ++used;
    octave_value_list values(used);
    for (octave_idx_type i = 0; i < used; ++i)
        values(i) = hosts::oct::toValue(*results[i]);
    return values;
}

octave_value_list callGuarded(const octave_value_list& args, int nargout)
{
    try {
        hosts::oct::warnOfRawBytes(args);
        return callModule(args, nargout);
    } catch (const octave::execution_exception&) {
        throw;
    } catch (const octave::interrupt_exception&) {
        throw;
    } catch (const octave::exit_exception&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& failure) {
        hosts::oct::raiseInternal(failure.what());
    } catch (...) {
        hosts::oct::raiseInternal("an exception of unknown type");
    }
}

} // namespace

// The interpreter finds the function by this symbol, the only one that gridio.oct exports.
extern "C" __attribute__((visibility("default"))) octave_function*
Ggridio(const octave::dynamic_library& library, bool isRelative);

DEFUN_DLD(gridio, args, nargout, R"(-*- texinfo -*-
@deftypefn  {} {[@var{r1}, @var{r2}, @dots{}] =} gridio (@var{operation}, @var{arg1}, @var{arg2}, @dots{})
Read and write netCDF files of every kind, from classic CDF to NetCDF-4/HDF5, by an operation of the netCDF library.

The operations bear the names of the library's functions without @qcode{"nc_"}, in lower camel case, and take their
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

@seealso{gridio_help, gridio_open_files, gridio_version}
@end deftypefn)")
{
    return callGuarded(args, nargout);
}
