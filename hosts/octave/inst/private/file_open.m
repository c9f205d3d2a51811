## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{file} =} file_open (@var{path}, @var{mode}, @var{option}, @var{value}, @dots{})
## Undocumented internal function: a struct with the identifier of an open file, what the file has, and how to decode it.
## @end deftypefn

function file = file_open (path, varargin)

  if (is_catalogue (path) && (mod (numel (varargin), 2) == 0 || isequal (varargin{1}, "read")))
    file = catalogue_open (path, varargin{:});
    return;
  endif
  [paths, label] = many_paths (path);
  if (! isempty (paths))
    file = many_open (paths, label, varargin{:});
    return;
  endif
  if (! ischar (path) || isempty (path) || rows (path) > 1)
    fail ("notAFile", "the file must be a text, its path or address, or a cell of paths");
  endif
  mode = "read";
  if (mod (numel (varargin), 2) == 1)
    mode = varargin{1};
    varargin(1) = [];
  endif
  [format, varargin] = format_option (mode, varargin);
  [months, varargin] = months_option (varargin);
  file = struct ("months", months, "path", path, "mode", mode, "flags", decoding_flags (varargin{:}), ...
                 "lastError", lasterror (), "many", [], "serial", next_serial (), ...
                 "process", process_number (), "isBroken", false);
  try
    switch (mode)
      case {"read", "write"}
        file.ncid = gridio ("open", path, double (strcmp (mode, "write")));
      case {"new", "replace"}
        file.ncid = file_create (path, mode, format);
      otherwise
        fail ("badMode", "\"%s\" is not a mode; the modes are \"read\", \"write\", \"new\" and \"replace\"", shown_text (mode));
    endswitch
    if (strcmp (mode, "replace"))
      file.part = gridio_any ("inqPath", file.ncid);
    endif
    file.session = gridio_native ("session");
    file.d = file_description (file.ncid);
  catch failure
    if (isfield (file, "ncid"))
      gridio ("close", file.ncid);
    endif
    raise (failure.identifier, failure.message);
  end_try_catch

endfunction

## The format of a file to create.
function [format, options] = format_option (mode, options)

  format = "netCDF-4";
  at = find (strcmp (options(1:2:end), "_Format"));
  if (! isempty (at) && any (strcmp (mode, {"new", "replace"})))
    format = options{2*at(end)};
    options([2*at-1, 2*at]) = [];
  endif

endfunction

## How months and years are taken as units of time, whose lengths differ.
function [months, options] = months_option (options)

  months = "refused";
  k = find (cellfun (@(name) ischar (name) && strcmp (name, "months"), options(1:2:end)), 1, "last");
  if (! isempty (k))
    months = options{2*k};
    options(2*k-1:2*k) = [];
    if (! ischar (months) || ! any (strcmp (months, {"refused", "udunits", "calendar"})))
      fail ("badOption", "option \"months\" must be \"calendar\", \"udunits\" or \"refused\", not %s", shown_text (months));
    endif
  endif

endfunction

## A number that no other open file has had.
function serial = next_serial ()

  persistent last = 0;
  serial = ++last;

endfunction

## Processes are forked where there is getpid.
function pid = process_number ()

  pid = 0;
  if (! ispc ())
    pid = getpid ();
  endif

endfunction
