## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} __gridio_close_datasets__ (@var{isExiting})
## Undocumented internal function: close all datasets.  It runs at the end of a session, or of the package in it.
## @end deftypefn

## PKG_DEL: if (atexit ("__gridio_close_datasets__", false)) __gridio_close_datasets__ (false); endif

function __gridio_close_datasets__ (isExiting = true)

  ## A signal that ends the session makes the interpreter save all variables, which objects cannot be: up to Octave 10
  ## that is an error, and from 11 on a warning. What was being written is not whole.
  if (! isempty (strfind (lastwarn (), "Saving classdef objects is not supported")))
    lasterr ("a signal ended the session");
  endif
  open_datasets ("close", isExiting);

endfunction
