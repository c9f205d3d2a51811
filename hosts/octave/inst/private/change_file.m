## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} change_file (@var{dataset}, @var{change}, @dots{})
## Undocumented internal function: call @var{change} with the arguments, which changes the file of a dataset, and look up what the
## file then has.  A change that fails in its midst, or is interrupted, leaves a file that replaces no other.
## @end deftypefn

function change_file (dataset, change, varargin)

  outcome = "broken";
  unwind_protect
    try
      change (varargin{:});
      outcome = "done";
    catch failure
      if (! isempty (strfind (failure.identifier, "Ovard:gridio:dataset:")))
        outcome = "refused"; # such errors come before anything is written
      endif
      rethrow (failure);
    end_try_catch
  unwind_protect_cleanup
    refresh (dataset, outcome);
  end_unwind_protect

endfunction
