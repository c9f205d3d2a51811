## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{flags} =} decoding_flags (@var{option}, @var{value}, @dots{})
## Undocumented internal function: the rules of decoding that are on, as a sum.  Those below 64 are of gridio_native; 64
## stands for times as day numbers, 128 for characters as texts.
## @end deftypefn

function flags = decoding_flags (varargin)

  names = {"missing", "default_fill", "valid_range", "unsigned", "scale", "single", "times", "texts"};
  isOn = [true, true, true, true, true, false, true, true];
  for k = 1:2:numel (varargin)
    [name, value] = varargin{k:k+1};
    if (any (strcmp (name, {"along", "new dimension"})))
      fail ("badOption", "option \"%s\" is for many files: a pattern such as \"sst_*.nc\", or a cell of paths", name);
    elseif (! any (strcmp (name, [names, "decode"])))
      unknown_name ("badOption", "option", name, [names, "decode", "months", "along", "new dimension"]);
    elseif (! (isscalar (value) && (islogical (value) || (isnumeric (value) && any (value == [0 1])))))
      fail ("badOption", "option \"%s\" must be true or false", name);
    endif
    which = strcmp (name, names);
    if (any (which))
      isOn(which) = value;
    else
      isOn(1:8) = value & [true, true, true, true, true, isOn(6), true, true];
    endif
  endfor
  flags = sum (2 .^ (find (isOn) - 1));

endfunction
