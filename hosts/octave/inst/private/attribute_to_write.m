## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{xtype}, @var{value}] =} attribute_to_write (@var{name}, @var{value}, @var{type}, @var{what}, @var{hasStrings})
## Undocumented internal function: the type of an attribute and its value in the class of that type.
## @end deftypefn

function [xtype, value] = attribute_to_write (name, value, type, what, hasStrings)

  of_type = {"valid_min", "valid_max", "valid_range", "missing_value", "flag_values", "flag_masks", "_FillValue", "actual_range"};
  if (ischar (value) && rows (value) <= 1)
    xtype = "char";
  elseif (iscellstr (value) && (isscalar (value) || hasStrings) && isvector (value))
    xtype = "string";
    if (! hasStrings)
      xtype = "char";
      value = value{1};
    endif
  elseif ((isnumeric (value) || islogical (value)) && ! iscomplex (value) && isvector (value))
    if (islogical (value))
      value = int8 (value);
    endif
    own = number_types (type);
    if (any (strcmp (name, of_type)) && ! isempty (own))
      stored = cast (value, own.class);
      if (isinteger (stored) && any (stored != value))
        fail ("badAttribute", "'%s' of '%s' must be of the type of the variable, %s", name, shown_text (what), type);
      endif
      value = stored;
    endif
    types = number_types ();
    xtype = types(strcmp (class (value), {types.class})).name;
  else
    fail ("badAttribute", "the attribute '%s'%s cannot be written: a text, %snumbers or a row of them are possible", ...
          shown_text (name), merge (isempty (what), "", [" of '" shown_text(what) "'"]), ...
          merge (hasStrings, "a cell array of texts, ", ""));
  endif

endfunction
