## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{variable} =} dataset_find (@var{self}, @dots{})
## Undocumented internal function: the method @code{find} of @code{gridio_dataset}: the one variable with given attributes.
## @end deftypefn

function variable = dataset_find (self, varargin)

  if (numel (varargin) < 2)
    fail ("badCall", "find takes the name of an attribute and its value: find (\"standard_name\", \"air_temperature\")");
  endif
  [file, group] = content (self);
  [numbers, names] = variables_with (file.d, group, varargin{:});
  asked = strjoin (cellfun (@shown_text, varargin, "UniformOutput", false), " ");
  if (isempty (numbers))
    unknown_value (file.d, group, varargin{:}, asked);
  elseif (numel (numbers) > 1)
    fail ("ambiguousName", "%d variables have %s: %s\nds.variables (%s) names them all", numel (numbers), asked, ...
          listed_names (names), "ATTRIBUTE, VALUE, ...");
  endif
  variable = gridio_variable (self, numbers);

endfunction

function unknown_value (d, group, varargin)

  asked = varargin{end};
  [numbers, ~] = variables_with (d, group);
  values = cellfun (@(a) attribute_text (a, varargin{1}), d.variables.attributes(numbers), "UniformOutput", false);
  values = unique (values(! cellfun (@isempty, values)));
  if (isempty (values))
    fail ("unknownName", "no variable has the attribute '%s'", visible_text (varargin{1}));
  endif
  unknown_name ("unknownName", sprintf ("variable with %s", visible_text (varargin{1})), varargin{2}, values);

endfunction
