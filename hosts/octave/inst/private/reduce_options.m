## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{options} =} reduce_options (@var{given})
## Undocumented internal function: the options of @code{gridio_reduce}.
## @end deftypefn

function options = reduce_options (given)

  options = struct ("place", "here", "folder", "", "bin", [], "workers", [], "tasks", 64, "sbatch", {{}}, "wait", true, ...
                    "scope", struct ("files", {{}}, "own", struct ()));
  places = {"here", "cores", "mpi", "slurm"};
  if (mod (numel (given), 2) == 1)
    fail ("badCall", "each option needs a value: %s", shown_text (given{end}));
  endif
  for k = 1:2:numel (given)
    [name, value] = given{k:k+1};
    if (! ischar (name))
      fail ("badCall", "an option is given by its name, not %s", shown_text (name));
    endif
    switch (name)
      case "on"
        check (name, value, any (strcmp (value, places)), ["one of " listed_names(places)]);
        options.place = value;
      case "folder"
        check (name, value, ischar (value) && isrow (value), "the name of a folder");
        options.folder = tilde_expand (value);
      case {"bin", "workers", "tasks"}
        check (name, value, isnumeric (value) && isreal (value) && isscalar (value) && value >= 1 && value == fix (value) ...
                            && value < 2^31, "a whole number from 1");
        options.(name) = double (value);
      case "sbatch"
        check (name, value, iscellstr (value), "a cell array of texts");
        options.sbatch = value(:)';
      case "wait"
        check (name, value, isscalar (value) && (islogical (value) || isnumeric (value)), "true or false");
        options.wait = logical (value);
      otherwise
        fail ("badCall", "gridio_reduce has no option '%s'; it has \"on\", \"folder\", \"bin\", \"workers\", \"tasks\", %s", ...
              visible_text (name), '"sbatch" and "wait"');
    endswitch
  endfor

endfunction

function check (name, value, isGood, wanted)

  if (! isGood)
    fail ("badCall", "\"%s\" must be %s, not %s", name, wanted, shown_text (value));
  endif

endfunction
