## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {@var{identifier} =} error_identifier (@var{kind})
## @deftypefnx {} {@var{kinds} =} error_identifier ()
## Undocumented internal function: the identifier of an error or a warning that a function of the package raises, or all
## kinds.  A kind without a colon is one of datasets.  The manual has an entry for each, which a test checks.
## @end deftypefn

function identifier = error_identifier (kind)

  persistent kinds = sort ({ ...
      "help:nameWasNotChar", "help:unknownOperation", "host:notOnPath", "host:threadCount", ...
      "dataset:ambiguousName", "dataset:attributeTwice", "dataset:attributesNotInPairs", "dataset:badAttribute", ...
      "dataset:badCall", "dataset:badCatalogue", "dataset:badDimensions", "dataset:badFile", "dataset:badFormat", ...
      "dataset:badIndex", "dataset:badLabels", "dataset:badMode", "dataset:badName", "dataset:badOption", ...
      "dataset:badSelection", "dataset:badSetting", "dataset:badType", "dataset:badValues", "dataset:closed", ...
      "dataset:coordinateIsMissing", "dataset:doNotFit", "dataset:emptyDimension", "dataset:emptySelection", ...
      "dataset:exists", "dataset:missingCoordinate", "dataset:noBounds", "dataset:noCoordinate", "dataset:noLabels", ...
      "dataset:notAFile", "dataset:notANumber", "dataset:notATime", "dataset:notDrawable", "dataset:notJoinable", ...
      "dataset:notMonotonic", "dataset:notOne", "dataset:notReplaced", "dataset:notSavable", "dataset:notUnlimited", ...
      "dataset:notWritable", "dataset:settingIsLate", "dataset:shapeDoesNotFit", "dataset:staleCatalogue", ...
      "dataset:unknownDimension", "dataset:unknownName", "dataset:unknownSetting", "dataset:variableExists"});

  if (nargin == 0)
    identifier = kinds;
    return;
  endif
  if (! any (kind == ":"))
    kind = ["dataset:" kind];
  endif
  if (! any (strcmp (kind, kinds)))
    error ("Ovard:gridio:host:internal", "gridio: the error '%s' is not in the list of error_identifier", kind);
  endif
  identifier = ["Ovard:gridio:" kind];

endfunction
