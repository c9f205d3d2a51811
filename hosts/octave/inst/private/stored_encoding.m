## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{encoding} =} stored_encoding (@var{ncid}, @var{varid})
## Undocumented internal function: how values are stored in a variable that is there already.
## @end deftypefn

function encoding = stored_encoding (ncid, varid)

  [name, xtype, dimids] = gridio ("inqVar", ncid, varid);
  attributes = stored_attributes (ncid, varid);
  at = find (strcmp (attributes(:,1), "_FillValue"));
  fill = [];
  if (! isempty (at))
    fill = attributes{at,2};
  endif
  parent = bounded (ncid, name);
  if (! isempty (parent) && ! any (strcmp (attributes(:,1), "units")))
    of_parent = stored_attributes (ncid, parent);
    attributes = [attributes; of_parent(ismember (of_parent(:,1), {"units", "calendar"}),:)];
  endif
  encoding = value_encoding (name, gridio_any ("inqType", ncid, xtype), attributes, fill);
  if (isempty (fill) && ! any (strcmp (attributes(:,1), "missing_value")) && any (strcmp (encoding.class, {"int8", "uint8"})))
    encoding.fill = []; # bytes have no fill value that readers know without the attribute
  endif
  encoding.isCoordinate = numel (dimids) == 1 && strcmp (gridio ("inqDim", ncid, dimids), name);

endfunction
