% The header of a netCDF file as CDL, line by line what "ncdump -h" prints.
%   describe.m FILE       types, groups, dimensions, variables and attributes
%   describe.m FILE -s    also how the variables are stored, as special attributes (ncdump -hs)
%
% It differs from ncdump where that prints what means something else: dimensions and types that nearer
% ones of their name hide have their path, and within compound types "\v" and other control characters
% stay what they are. Control characters beyond ASCII (C1), which ncdump sends to the terminal, are escaped.
% SPDX-License-Identifier: BSD-3-Clause
1;
if (! exist ("gridio"))
  pkg load gridio
endif
addpath (fullfile (fileparts (mfilename ("fullpath")), "shared"));

function main (args)
  storage = strcmp (args, "-s");
  if (numel (args) - sum (storage) != 1)
    error ("usage: describe.m FILE [-s]");
  endif
  file = args{! storage};
  ncid = gridio ("open", file, "nowrite");
  unwind_protect
    printFile (ncid, file, any (storage));
  unwind_protect_cleanup
    gridio ("close", ncid);
  end_unwind_protect
endfunction

function printFile (ncid, file, withStorage)
  [~, name, extension] = fileparts (file);
  format = fileFormat (ncid);
  context = struct ("format", format, "netcdf4", strncmp (format, "netCDF-4", 8), ...
                    "storage", withStorage, "root", ncid);
  printf ("netcdf %s {\n", escapeName (name));
  printGroups (ncid, context);
  puts ("}\n");
endfunction

% The groups of a file, each with what it holds. A list of what is still to be printed takes the place
% of recursion, which the interpreter limits: groups may lie deeper than that.
function printGroups (root, context)
  toPrint = {struct("ncid", root, "depth", 0, "ending", "")};
  while (! isempty (toPrint))
    [next, toPrint] = deal (toPrint{end}, toPrint(1:end - 1));
    if (! isempty (next.ending))
      puts (next.ending);
      continue;
    endif
    if (next.depth > 0)
      name = escapeName (gridio ("inqGrpName", next.ncid));
      printf ("\n%sgroup: %s {\n", blanks (2 * next.depth - 2), name);
      ending = sprintf ("%s} // group %s\n", blanks (2 * next.depth), name);
      toPrint{end + 1} = struct ("ncid", [], "depth", [], "ending", ending);
    endif
    printGroup (next.ncid, next.depth, context);
    if (context.netcdf4)
      for group = fliplr (gridio ("inqGrps", next.ncid))
        toPrint{end + 1} = struct ("ncid", group, "depth", next.depth + 1, "ending", "");
      endfor
    endif
  endwhile
endfunction

% What a group holds; DEPTH is 0 for the root group.
function printGroup (ncid, depth, context)
  indent = blanks (2 * depth);
  if (context.netcdf4)
    printTypes (ncid, indent, context.root);
  endif
  printDimensions (ncid, indent);
  printVariables (ncid, indent, context);
  printGroupAttributes (ncid, depth, indent, context);
endfunction

function printDimensions (ncid, indent)
  dimids = gridio ("inqDimIDs", ncid, false);
  if (! isempty (dimids))
    printf ("%sdimensions:\n", indent);
  endif
  unlimited = gridio ("inqUnlimDims", ncid);
  for dimid = dimids
    [name, len] = gridio ("inqDim", ncid, dimid);
    if (any (unlimited == dimid))
      printf ("%s\t%s = UNLIMITED ; // (%d currently)\n", indent, escapeName (name), len);
    else
      printf ("%s\t%s = %d ;\n", indent, escapeName (name), len);
    endif
  endfor
endfunction

function printVariables (ncid, indent, context)
  varids = gridio ("inqVarIDs", ncid);
  if (! isempty (varids))
    printf ("%svariables:\n", indent);
  endif
  for varid = varids
    [name, xtype, dimids, natts] = gridio ("inqVar", ncid, varid);
    name = escapeName (name);
    dimensions = "";
    if (! isempty (dimids))  % CDL lists the slowest varying dimension first, gridio last
      names = arrayfun (@(dimid) dimensionPath (ncid, dimid), fliplr (dimids), ...
                        "UniformOutput", false);
      dimensions = ["(" strjoin(names, ", ") ")"];
    endif
    printf ("%s\t%s %s%s ;\n", indent, typePath (ncid, xtype, context.root), name, dimensions);
    printAttributes (ncid, varid, natts, indent, name, context);
    if (context.storage && context.netcdf4)
      printStorage (ncid, varid, xtype, [indent "\t\t"], name);
    endif
  endfor
endfunction

function printGroupAttributes (ncid, depth, indent, context)
  NC_GLOBAL = gridio ("parameter", "NC_GLOBAL");
  [~, ~, natts] = gridio ("inq", ncid);
  if (natts > 0 || context.storage)
    titles = {"global", "group"};
    printf ("\n%s// %s attributes:\n", indent, titles{1 + (depth > 0)});
  endif
  printAttributes (ncid, NC_GLOBAL, natts, indent, "", context);
  if (! context.storage || depth > 0)
    return;
  endif
  if (context.netcdf4)
    % These three are not listed among the attributes, but can be read by their names. A file
    % that another library wrote lacks the first.
    try
      printf ("\t\t:_NCProperties = %s ;\n", ...
              quotedText (gridio ("getAttText", ncid, NC_GLOBAL, "_NCProperties")));
    catch failure
      if (isempty (strfind (failure.message, "NC_ENOTATT")))
        rethrow (failure);
      endif
    end_try_catch
    printf ("\t\t:_SuperblockVersion = %d ;\n", ...
            gridio ("getAttInt", ncid, NC_GLOBAL, "_SuperblockVersion"));
    printf ("\t\t:_IsNetcdf4 = %d ;\n", gridio ("getAttInt", ncid, NC_GLOBAL, "_IsNetcdf4"));
  endif
  printf ("\t\t:_Format = \"%s\" ;\n", context.format);
endfunction

% The attributes of a variable, or of a group if VARID is NC_GLOBAL and VARIABLE is empty.
function printAttributes (ncid, varid, natts, indent, variable, context)
  if (any (strcmp (variable, {"variables", "dimensions", "data", "group", "types"})))
    variable = [variable " "];  % a keyword of CDL
  endif
  for attnum = 0:natts - 1
    attribute = gridio ("inqAttName", ncid, varid, attnum);
    [xtype, count] = gridio ("inqAtt", ncid, varid, attribute);
    type = "";
    if (xtype >= 12)  % of the others, the values show the type
      type = [typePath(ncid, xtype, context.root) " "];
    endif
    printf ("%s\t\t%s%s:%s = ", indent, type, variable, escapeName (attribute));
    values = gridio_any ("getAtt", ncid, varid, attribute);
    printValues (typeTree (ncid, xtype), values, count, indent, context);
    puts (" ;\n");
  endfor
endfunction

% Several texts in a row are one text in the classic formats, but a list of strings in netCDF-4.
function printValues (type, values, count, indent, context)
  if (count == 0)
    puts ("\"\"");  % as ncdump: an attribute without values, of whatever type
  elseif (strcmp (type.class, "char"))
    lineBreak = {"\\n\",\n\t\t\t\"", "\\n"}{1 + strcmp(context.format, "netCDF-4")};
    puts (quotedText (values(1:max ([0, find(values != 0)])), lineBreak));
  elseif (strcmp (type.class, "number"))
    suffix = elementType (type.id).suffix;
    puts (strjoin (arrayfun (@(v) numberText (v, suffix), values, "UniformOutput", false), ", "));
  else
    texts = valueTexts (type, values, count);
    if (strcmp (type.class, "enum"))
      texts = cellfun (@escapeName, texts, "UniformOutput", false);
    endif
    if (any (strcmp (type.class, {"compound", "vlen"})))
      texts(1:end - 1) = strcat (texts(1:end - 1), {", "});
      cellfun (@(text) putPiece (text, indent), texts);
    else
      puts (strjoin (texts, ", "));
    endif
  endif
endfunction

% How a variable of a netCDF-4 file is stored.
function printStorage (ncid, varid, xtype, indent, variable)
  start = [indent variable ":"];
  [storage, sizes] = gridio_any ("inqVarChunking", ncid, varid);
  printf ("%s_Storage = \"%s\" ;\n", start, storage);
  if (! isempty (sizes))
    sizes = arrayfun (@(n) sprintf ("%d", n), fliplr (sizes), "UniformOutput", false);
    printf ("%s_ChunkSizes = %s ;\n", start, strjoin (sizes, ", "));
  endif
  printFilters (ncid, varid, start);
  order = gridio_any ("inqVarEndian", ncid, varid);
  if (typeTree (ncid, xtype).bytes > 1 && ! strcmp (order, "native"))
    printf ("%s_Endianness = \"%s\" ;\n", start, order);
  endif
  if (gridio_any ("inqVarFill", ncid, varid))
    printf ("%s_NoFill = \"true\" ;\n", start);
  endif
endfunction

function printFilters (ncid, varid, start)
  if (strcmp (gridio ("inqVarFletcher32", ncid, varid), "FLETCHER32"))
    printf ("%s_Fletcher32 = \"true\" ;\n", start);
  endif
  [shuffle, deflate, level] = gridio ("inqVarDeflate", ncid, varid);
  if (shuffle)
    printf ("%s_Shuffle = \"true\" ;\n", start);
  endif
  if (deflate)
    printf ("%s_DeflateLevel = %d ;\n", start, level);
  endif
  [ids, parameters] = gridio_any ("inqVarFilters", ncid, varid);
  others = find (ids > 3);  % the first three are deflate, shuffle and checksum
  if (! isempty (others))
    texts = arrayfun (@(k) strjoin (arrayfun (@(n) sprintf ("%d", n), [ids(k), parameters{k}], ...
                                              "UniformOutput", false), ","), ...
                      others, "UniformOutput", false);
    printf ("%s_Filter = \"%s\" ;\n", start, strjoin (texts, "|"));
  endif
endfunction

% A dimension's name as seen from a group: with its path if a nearer one has the same name.
function path = dimensionPath (ncid, dimid)
  name = gridio ("inqDim", ncid, dimid);
  path = escapeName (name);
  if (gridio ("inqDimID", ncid, name) == dimid)
    return;
  endif
  group = ncid;
  while (! any (gridio ("inqDimIDs", group, false) == dimid))
    group = gridio ("inqGrpParent", group);
  endwhile
  parents = strsplit (gridio ("inqGrpNameFull", group), "/");
  parents = parents(! cellfun (@isempty, parents));
  path = ["/" strjoin([cellfun(@escapeName, parents, "UniformOutput", false), {path}], "/")];
endfunction

% describe.m FILE [-s]: prints the header of a netCDF file as CDL, with -s also the storage.

try
  main (argv ());
catch failure
  fprintf (stderr, "describe.m: %s\n", failure.message);
  exit (1);
end_try_catch
