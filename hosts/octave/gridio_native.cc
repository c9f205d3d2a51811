// SPDX-License-Identifier: BSD-3-Clause
// gridio_native (OPNAME, ...): the third entry from the interpreter, for the dataset classes. It
// lives in gridio.oct, as gridio_any does.
#include "module_call.h"

#include <octave/oct.h>

// PKG_ADD: autoload ("gridio_native", "gridio.oct");
// PKG_DEL: try, autoload ("gridio_native", "gridio.oct", "remove"); end_try_catch

namespace {

// Nothing is read by its bytes.
void nothingBefore(const octave_value_list&) {}

} // namespace

// As in gridio.cc: the interpreter finds the function by this symbol.
extern "C" __attribute__((visibility("default"))) octave_function*
Ggridio_native(const octave::dynamic_library& library, bool isRelative);

DEFUN_DLD(gridio_native, args, nargout, R"(-*- texinfo -*-
@deftypefn  {} {[@var{r1}, @var{r2}, @dots{}] =} gridio_native (@var{operation}, @var{arg1}, @var{arg2}, @dots{})
What the dataset classes are built on; call those, or @code{gridio} and @code{gridio_any}.
@seealso{gridio, gridio_any}
@end deftypefn)")
{
    return hosts::oct::callGuarded<plugDatasetFunction, nothingBefore>(args, nargout);
}
