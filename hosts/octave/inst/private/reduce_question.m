## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{question} =} reduce_question (@var{files}, @var{partial}, @var{combine}, @var{options})
## Undocumented internal function: the bins of a reduction, which depend on the list of files alone, and if partials are kept
## the key of each bin's: a hash of the functions and of the bin's files with their sizes and times.
## @end deftypefn

function question = reduce_question (files, partial, combine, options)

  count = numel (files);
  size = options.bin;
  if (isempty (size))
    size = ceil (count / 256);
  endif
  edges = [0:size:count-1, count];
  question = struct ("files", {files}, "edges", edges, "count", numel (edges) - 1, "partial", partial, "combine", combine, ...
                     "keep", options.folder, "keys", {{}});
  if (isempty (question.keep) && strcmp (options.place, "slurm"))
    question.keep = "gridio_reduce";
  endif
  if (! isempty (question.keep))
    question.keep = make_absolute_filename (question.keep);
    make_folder (question.keep);
    functions = hash ("sha256", char (pack_value ({partial_text(partial, options.scope), ...
                                                   partial_text(combine, options.scope)}, "")));
    question.keys = cell (1, question.count);
    for k = 1:question.count
      about = cellfun (@file_identity, files(edges(k)+1:edges(k+1)), "UniformOutput", false);
      question.keys{k} = hash ("sha256", [functions, about{:}])(1:32);
    endfor
  endif

endfunction

## What a function is, and the text of its file where it has one.
function about = partial_text (f, scope)

  about = {carry_function(f, "", scope), ""};
  about{1}.saved = [];
  file = functions (f);
  if (strcmp (file.type, "anonymous"))
    words = function_words (about{1}.text);
    path = cellfun (@which, setdiff (words, fieldnames (about{1}.variables)), "UniformOutput", false);
  else
    path = {file.file};
  endif
  for one = path(! cellfun (@isempty, path))
    if (exist (one{1}, "file") == 2 && ! strncmp (one{1}, OCTAVE_HOME (), numel (OCTAVE_HOME ())))
      about{2} = [about{2}, hash("md5", fileread (one{1}))];
    endif
  endfor

endfunction

function text = file_identity (file)

  [about, failed] = stat (file);
  if (failed)
    text = [file "\n"];
  else
    text = sprintf ("%s\n%d %.9f\n", make_absolute_filename (file), about.size, about.mtime);
  endif

endfunction

## Another rank may have created the folder just before, or one above it: that is no failure, and the rest is still to do.
function make_folder (folder)

  for level = 1:numel (strfind (folder, filesep ()))
    if (isfolder (folder))
      return;
    endif
    [isMade, reason] = mkdir (folder);
  endfor
  if (! isMade && ! isfolder (folder))
    fail ("notWritten", "cannot create the folder '%s': %s", visible_text (folder), reason);
  endif

endfunction
