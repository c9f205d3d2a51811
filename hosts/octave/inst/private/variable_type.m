## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{values}, @var{dimensions}, @var{type}] =} variable_type (@var{ncid}, @var{name}, @var{values}, @dots{})
## Undocumented internal function: the type of a new variable.  Texts that are stored as characters get their length as the
## first dimension.
## @end deftypefn

function [values, dimensions, type] = variable_type (ncid, name, values, dimensions, attributes, settings, hasAll)

  type = settings.Type;
  at = find (strcmp (attributes(:,1), "units"));
  isTime = ! isempty (at) && ischar (attributes{at,2}) && ! isempty (regexp (attributes{at,2}, '^\s*\w+\s+since\s', "once"));
  isText = ! isTime && (iscellstr (values) || (ischar (values) && isempty (dimensions) && rows (values) <= 1));
  if (isText && (strcmp (type, "char") || (isempty (type) && ! hasAll)))
    texts = cellstr (values);
    if (numel (dimensions) == 1)
      texts = texts(:);
    endif
    values = text_values (texts, 0);
    dimensions = [{sprintf("string%d", rows (values))}, dimensions];
    type = "char";
  elseif (isText && ischar (values) && (isempty (type) || strcmp (type, "string")))
    values = {values};
    type = "string";
  elseif (isempty (type))
    type = default_type (name, values, isTime, attributes, hasAll);
  endif
  check_type (ncid, name, type, hasAll);

endfunction

function type = default_type (name, values, isTime, attributes, hasAll)

  types = number_types ();
  if (any (ismember (attributes(:,1), {"scale_factor", "add_offset"})))
    type = "short";
  elseif (isTime && ! (isinteger (values) || isa (values, "single")))
    type = "double";
  elseif (islogical (values))
    type = "byte";
  elseif (ischar (values) && ! isempty (values) && (rows (values) > 1 || ! hasAll))
    type = "char";
  elseif (ischar (values) || iscellstr (values))
    type = merge (iscellstr (values) , "string", "char");
  elseif (isnumeric (values))
    type = types(strcmp (class (values), {types.class})).name;
  else
    fail ("badValues", "the values of '%s' are of class %s, which has no type of its own; name one by \"_Type\"", ...
          shown_text (name), class (values));
  endif

endfunction

## Types by name: those of the library, and those defined in the file.
function check_type (ncid, name, type, hasAll)

  classic = {"byte", "char", "short", "int", "float", "double"};
  is_cdf5 = strcmp (file_format (ncid), "cdf5");
  if (any (strcmp (type, classic)) || (is_cdf5 && ! isempty (number_types (type))))
    return;
  elseif (! hasAll)
    fail ("badType", ["'%s' would be of type %s, which a file of format \"%s\" does not have; choose another with " ...
          "\"_Type\" (%s), or the format \"netCDF-4\""], shown_text (name), shown_text (type), file_format (ncid), ...
          strjoin (classic, ", "));
  endif
  try
    gridio_any ("inqTypeID", ncid, type);
  catch
    fail ("badType", "'_Type' of '%s' is \"%s\"; there are %s, char and string, and types that the file defines", ...
          shown_text (name), shown_text (type), strjoin ({number_types().name}, ", "));
  end_try_catch

endfunction
