## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{attributes}, @var{settings}] =} storage_settings (@var{what}, @var{name}, @var{value}, @dots{})
## Undocumented internal function: separate the special attributes, which say how the variable @var{what} is stored, from
## those that are written.  @var{attributes} has a name and a value in each row; @var{settings} has a field for each special
## attribute, without its underscore, that is empty if it was not given.
## @end deftypefn

function [attributes, settings] = storage_settings (what, varargin)

  if (numel (varargin) > 0 && isstruct (varargin{1}) && isscalar (varargin{1}))
    varargin = [[fieldnames(varargin{1}), struct2cell(varargin{1})]'(:)', varargin(2:end)];
  endif
  names = varargin(1:2:end);
  if (mod (numel (varargin), 2) == 1 || ! all (cellfun (@(name) ischar (name) && rows (name) == 1, names)))
    fail ("attributesNotInPairs", "the attributes of '%s' must be pairs of a name and a value, optionally after a struct of them", shown_text (what));
  endif
  known = {"FillValue", "ChunkSizes", "DeflateLevel", "Shuffle", "Fletcher32", "Endianness", "Format", "Type", ...
           "Unlimited", "NoFill", "Storage"};
  settings = cell2struct (cell (size (known)), known, 2);
  attributes = cell (0, 2);
  for i = 1:numel (names)
    [name, value] = varargin{2*i-1:2*i};
    if (any (strcmp (name(2:end), known)) && name(1) == "_")
      settings.(name(2:end)) = checked (what, name, value);
    elseif (any (strcmp (name, {"_Filter", "_Codecs", "_SuperblockVersion", "_IsNetcdf4", "_NCProperties"})))
      fail ("unknownSetting", "'%s' of '%s' cannot be chosen; use _DeflateLevel, _Shuffle, _Fletcher32 and _ChunkSizes", ...
            name, shown_text (what));
    elseif (is_misspelt (name, known))
      fail ("unknownSetting", "'%s' of '%s' is not a special attribute; did you mean %s?", shown_text (name), ...
            shown_text (what), strjoin (near_names (name, strcat ("_", known(:)))(:)', " or "));
    else
      attributes(end+1,:) = {name, value};
    endif
  endfor
  if (numel (unique (names)) < numel (names))
    fail ("attributeTwice", "an attribute of '%s' is given twice", shown_text (what));
  endif

endfunction

## Whether a name is nearly that of a special attribute.  Others that begin with an underscore are attributes as any.
function yes = is_misspelt (name, known)

  isPlain = numel (name) < 2 || name(1) != "_" || any (strcmp (name, {"_Unsigned", "_Encoding"}));
  near = near_names (merge (isPlain, "", name), strcat ("_", known(:)));
  yes = any (abs (cellfun (@numel, near) - numel (name)) <= 2);

endfunction

## The value of a special attribute; flags may be texts, as ncdump writes them.
function value = checked (what, name, value)

  switch (name)
    case {"_Shuffle", "_Fletcher32", "_NoFill"}
      if (ischar (value) && any (strcmpi (value, {"true", "false"})))
        value = strcmpi (value, "true");
      endif
      isGood = isscalar (value) && (islogical (value) || isnumeric (value));
      value = isGood && logical (value);
      cure = "true or false";
    case "_DeflateLevel"
      isGood = isnumeric (value) && isscalar (value) && any (value == 0:9);
      cure = "a whole number from 0 to 9";
    case "_ChunkSizes"
      isGood = isnumeric (value) && isvector (value) && all (value >= 1 & value == fix (value));
      value = double (value(:)');
      cure = "whole numbers from 1, one for each dimension";
    case "_Endianness"
      isGood = any (strcmp (value, {"little", "big", "native"}));
      cure = "\"little\", \"big\" or \"native\"";
    case "_Storage"
      isGood = any (strcmp (value, {"contiguous", "chunked"}));
      cure = "\"contiguous\" or \"chunked\"";
    case "_Unlimited"
      isGood = iscellstr (value) || ischar (value) || (isscalar (value) && (islogical (value) || isnumeric (value)));
      cure = "true, or the name of a dimension";
    case "_FillValue"
      isGood = (isnumeric (value) && isscalar (value)) || ischar (value);
      cure = "one number";
    otherwise # _Type, _Format
      isGood = ischar (value) && rows (value) == 1;
      cure = "a text";
  endswitch
  if (! isGood)
    fail ("badSetting", "'%s' of '%s' must be %s", name, shown_text (what), cure);
  endif

endfunction
