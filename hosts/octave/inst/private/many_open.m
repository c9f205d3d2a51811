## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{file} =} many_open (@var{paths}, @var{label}, @var{option}, @var{value}, @dots{})
## Undocumented internal function: many files as one, as @code{file_open} returns one file.
##
## The struct is that of the first file, with the joined dimension at its whole length.  Its field @code{many} says where
## what lies: @code{paths} and @code{lengths} in the order of joining, @code{offsets} of the parts along the dimension with
## the number @code{dimension}, whether that @code{isNew}, the number of its @code{coordinate} (0 for none) with its
## @code{values}.
## @end deftypefn

function file = many_open (paths, label, varargin)

  [request, options] = many_options (varargin);
  [file, first] = first_file (paths, request, options);
  try
    joining = joining_of (file, paths, request, first);
    if (isempty (joining))
      return; # one file, and nothing to join it along
    endif
    scans = scan_files (paths, joining, file);
    file = many_joined (file, paths, scans, joining, request, first);
  catch failure
    file_close (file);
    rethrow (failure);
  end_try_catch
  file.path = label;

endfunction

## The first file that can be opened, if others may be left out.
function [file, first] = first_file (paths, request, options)

  for first = 1:numel (paths)
    try
      file = file_open (paths{first}, "read", options{:});
      return;
    catch failure
      isLast = first == numel (paths) || strncmp (failure.identifier, "Ovard:gridio:dataset:", 21);
      if (isLast || ! request.isSkipping)
        rethrow (failure);
      endif
    end_try_catch
  endfor

endfunction
