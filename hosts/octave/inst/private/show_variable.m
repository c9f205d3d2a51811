## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} show_variable (@var{file}, @var{number})
## Undocumented internal function: print what a variable is: shape, storage, coordinates with their ranges, attributes.
## @end deftypefn

function show_variable (file, number)

  d = file.d;
  attributes = d.variables.attributes{number};
  what = visible_text (title_of (attributes));
  units = visible_text (attribute_text (attributes, "units"));
  printf ("variable %s%s%s\n", visible_text (d.variables.path{number}), between (": ", what, ""), between (" [", units, "]"));
  shape = variable_shape (file, number);
  printf ("  shape   %s\n", shape_line (d, shape));
  printf ("  stored  %s\n", storage_line (file, number));
  numbers = coordinates_of (d, number);
  numbers(numbers == number) = [];
  show_list ("Coordinates", numbers, 20, @(k) {visible_text(d.variables.name{k}), shape_words(file, k), ...
                                                range_words(file, k)}, "variables ()");
  show_list ("Attributes", 1:rows (attributes), 40, @(k) attribute_row (attributes, k), "attributes");

endfunction

function words = between (before, words, after)

  if (! isempty (words))
    words = [before words after];
  endif

endfunction

function line = shape_line (d, shape)

  words = cell (1, numel (shape.dimensions));
  for n = 1:numel (words)
    k = shape.dimensions(n);
    words{n} = sprintf ("%s %d%s", visible_text (d.dimensions.name{k}), shape.lengths(n), ...
                        merge (logical (d.dimensions.isUnlimited(k)), " (unlimited)", ""));
  endfor
  line = strjoin (words, " x ");
  if (isempty (words))
    line = "one value";
  endif

endfunction

function line = storage_line (file, number)

  d = file.d;
  words = {type_words(d, number)};
  if (! isempty (file.many) && file.many.isNew && number == file.many.coordinate)
    line = "by the names of the files";
    return;
  endif
  ncid = d.groups.ncid(d.variables.group(number));
  varid = d.variables.varid(number);
  if (strncmp (d.format, "netCDF-4", 8))
    words = [words, chunk_words(ncid, varid, d, number)];
  endif
  if (strcmp (d.variables.kind{number}, "number"))
    decoding = gridio_native ("decoding", ncid, varid, bitand (file.flags, 63));
    words{end+1} = sprintf ("read as %s", decoding.class);
    words = [words, cellfun(@(text) ["note: " visible_text(text)], decoding.warnings(:)', "UniformOutput", false)];
  endif
  line = strjoin (words, ", ");

endfunction

function words = chunk_words (ncid, varid, d, number)

  words = {};
  if (isempty (d.variables.dimensions{number}))
    return;
  endif
  [storage, sizes] = gridio ("inqVarChunking", ncid, varid);
  if (strcmpi (storage, "CHUNKED"))
    words{end+1} = sprintf ("chunks %s", strjoin (arrayfun (@num2str, double (sizes(:)'), "UniformOutput", false), " x "));
  endif
  [~, isDeflated, level] = gridio ("inqVarDeflate", ncid, varid);
  if (isDeflated)
    words{end+1} = sprintf ("deflate %d", level);
  endif

endfunction
