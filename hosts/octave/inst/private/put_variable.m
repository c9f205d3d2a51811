## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} put_variable (@var{ncid}, @var{name}, @var{values}, @var{dimensions}, @var{attribute}, @var{value}, @dots{})
## Undocumented internal function: define a variable with its dimensions and attributes, and write its values.  All checks
## come before the file is changed.
## @end deftypefn

function put_variable (ncid, name, values, dimensions = {}, varargin)

  [ncid, groups, name] = variable_group (ncid, name);
  format = file_format (ncid);
  hasAll = strcmp (format, "netCDF-4");
  [attributes, settings] = storage_settings (name, varargin{:});
  check_settings (name, settings, format);
  dimensions = dimension_names (name, dimensions);
  [values, dimensions, type] = variable_type (ncid, name, values, dimensions, attributes, settings, hasAll);
  dims = new_dimensions (ncid, name, dimensions, values, settings.Unlimited);
  if (! isempty (settings.ChunkSizes) && numel (settings.ChunkSizes) != numel (dims))
    fail ("badSetting", "'_ChunkSizes' of '%s' must have one number for each of its %d dimensions, and has %d", ...
          shown_text (name), numel (dims), numel (settings.ChunkSizes));
  endif

  attributes = with_calendar (attributes);
  encoding = value_encoding (name, type, [attributes; bounds_units(ncid, name, attributes)], settings.FillValue);
  encoding.isCoordinate = isequal (dimensions, {name});
  hasFill = ! isempty (encoding.class) && (! isempty (settings.FillValue) || encoding.isPacked || isfloat (values));
  if (encoding.isCoordinate || ! isempty (bounded (ncid, name)))
    hasFill = ! isempty (settings.FillValue);
  endif
  stored = encode_values (values, encoding);
  warn_of_order (name, stored, encoding);
  for i = 1:rows (attributes)
    [~, attributes{i,2}] = attribute_to_write (attributes{i,:}, type, name, hasAll);
  endfor
  if (hasFill)
    settings.FillValue = stored_fill (encoding);
  endif

  try
    begin_definitions (ncid);
    unwind_protect
      [ncid, varid] = define_variable (ncid, groups, name, type, dims, settings);
      for i = 1:rows (attributes)
        put_attribute (ncid, varid, attributes{i,:}, type, name);
      endfor
    unwind_protect_cleanup
      end_definitions (ncid);
    end_unwind_protect
    write_block (ncid, varid, zeros (1, numel (dims)), [dims.count], stored);
  catch failure
    raise (failure.identifier, sprintf ("'%s' is not whole in the file: %s", shown_text (name), failure.message));
  end_try_catch

endfunction

## The group of a path that is there, the groups that are to be defined in it, and the name of the variable.
function [ncid, groups, name] = variable_group (ncid, name)

  if (! ischar (name) || rows (name) != 1)
    fail ("badName", "the name of the variable must be text");
  endif
  groups = strsplit (name, "/");
  name = groups{end};
  groups = groups(1:end-1);
  groups(cellfun (@isempty, groups)) = [];
  if (isempty (name))
    fail ("badName", "the name of the variable is empty");
  endif
  while (! isempty (groups))
    try
      ncid = gridio ("inqNcid", ncid, groups{1});
    catch
      return;
    end_try_catch
    groups(1) = [];
  endwhile
  try
    gridio ("inqVarID", ncid, name);
  catch
    return;
  end_try_catch
  fail ("variableExists", "there is a variable '%s' already; values are assigned to it as in ds.%s(:) = values", ...
        shown_text (name), shown_text (name));

endfunction

function check_settings (name, settings, format)

  if (! isempty (settings.Format) && ! strcmp (settings.Format, format))
    fail ("badSetting", "'_Format' of '%s' is \"%s\", but the file is of format \"%s\", which is chosen when it is created", ...
          shown_text (name), shown_text (settings.Format), format);
  endif
  storage = {"ChunkSizes", "DeflateLevel", "Shuffle", "Fletcher32", "Endianness"};
  isGiven = cellfun (@(field) ! isempty (settings.(field)) && ! isequal (double (settings.(field)), 0), storage);
  if (any (isGiven) && isempty (strfind (format, "netCDF-4")))
    fail ("badSetting", "'_%s' of '%s' needs a file of format \"netCDF-4\"; this one is of format \"%s\"", ...
          storage{find (isGiven, 1)}, shown_text (name), format);
  endif

endfunction

function names = dimension_names (name, names)

  if (ischar (names) && ! isempty (names))
    names = cellstr (names);
  elseif (isempty (names))
    names = {};
  endif
  if (! iscellstr (names) || any (cellfun (@isempty, names)))
    fail ("badDimensions", "the dimensions of '%s' must be names, such as {\"lon\", \"lat\", \"time\"}", shown_text (name));
  endif
  names = names(:)';
  if (numel (unique (names)) < numel (names))
    fail ("badDimensions", "'%s' has a dimension twice", shown_text (name));
  endif

endfunction

## The calendar of times is written also where it is the one that CF takes without it.
function attributes = with_calendar (attributes)

  at = strcmp (attributes(:,1), "units");
  isTime = any (at) && ischar (attributes{at,2}) && ! isempty (regexp (attributes{at,2}, '^\s*[A-Za-z]+\s+since\s', "once"));
  if (isTime && ! any (strcmp (attributes(:,1), "calendar")))
    attributes(end+1,:) = {"calendar", "standard"};
  endif

endfunction

## Units and calendar of the variable whose bounds this one holds: bounds inherit them.
function rows_ = bounds_units (ncid, name, attributes)

  rows_ = cell (0, 2);
  varid = bounded (ncid, name);
  if (isempty (varid) || any (strcmp (attributes(:,1), "units")))
    return;
  endif
  stored = stored_attributes (ncid, varid);
  rows_ = stored(ismember (stored(:,1), {"units", "calendar"}),:);

endfunction

function warn_of_order (name, stored, encoding)

  if (encoding.isCoordinate && isnumeric (stored) && numel (stored) > 1)
    steps = sign (diff (double (stored(:))));
    if (any (steps != steps(1)) || steps(1) == 0)
      warning (error_identifier ("notMonotonic"), ...
               "'%s' neither ascends nor descends throughout, as coordinate variables should", shown_text (name));
    endif
  endif

endfunction
