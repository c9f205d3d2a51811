## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{value} =} partial_of_bin (@var{question}, @var{k})
## Undocumented internal function: the partial of bin @var{k} of a reduction, counted from 0: the one kept in the folder, or
## else computed, and kept where there is a folder.
## @end deftypefn

function value = partial_of_bin (question, k)

  files = question.files(question.edges(k+1)+1:question.edges(k+2));
  path = "";
  if (! isempty (question.keep))
    key = question.keys{k+1};
    path = partial_path (question, k);
    [value, isThere] = read_whole (path, key);
    if (isThere)
      return;
    endif
  endif
  try
    value = question.partial (files);
  catch failure
    fail ("partialFailed", "%s: %s", range_of_files (failing_files (question, files, failure.message)), failure.message);
  end_try_catch
  if (! isstruct (value) || ! isscalar (value))
    fail ("badPartial", "PARTIAL must return one struct; of %s it returned %s", range_of_files (files), shown_text (value));
  endif
  if (! isempty (path))
    write_whole (path, value, key);
  endif

endfunction

## Of several files those that fail alone, unless the message names one.
function files = failing_files (question, files, message)

  if (numel (files) > 1)
    isNamed = cellfun (@(file) ! isempty (strfind (message, visible_text (file))), files);
    if (any (isNamed))
      files = files(find (isNamed, 1));
      return;
    endif
    for k = 1:numel (files)
      try
        question.partial (files(k));
      catch
        files = files(k);
        return;
      end_try_catch
    endfor
  endif

endfunction
