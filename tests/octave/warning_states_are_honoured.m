% SPDX-License-Identifier: BSD-3-Clause
% The warning at unloading can be switched off, turned into an error and captured; the files are closed in every case.
1;

function path = leave_open ()
  [ncid, path] = new_file ();
  x = gridio ("defDim", ncid, "x", 3);
  v = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), x);
  gridio ("endDef", ncid);
  gridio ("putVarDouble", ncid, v, [1 2 3]);
end

function yes = is_loaded ()
  yes = ! isempty (strfind (fileread ("/proc/self/maps"), "gridio.oct"));
end

id = "Ovard:gridio:netcdf:closingFileHandle";
path = leave_open ();
check ("the function is mapped while it is loaded", is_loaded ());
shown = evalc ("clear gridio");
check ("clear unmaps it", ! is_loaded ());
check ("clear warns once", numel (regexp (shown, "warning: (?!called from)")) == 1);
[~, lastId] = lastwarn ();
check ("the warning has its identifier", strcmp (lastId, id));
check ("clear closes the file", isequal (dumped (path, "v"), [1 2 3]));

lastwarn ("", "");
warning ("off", id);
path = leave_open ();
check ("a warning switched off is not shown", isempty (evalc ("clear gridio")));
check ("with the warning off the file is closed", isequal (dumped (path, "v"), [1 2 3]));

warning ("error", id);
path = leave_open ();
raised = false;
try
  clear gridio
catch
  raised = true;
end
check ("clear never fails", ! raised);
check ("with the warning as an error the file is closed", isequal (dumped (path, "v"), [1 2 3]));
warning ("on", id);

path = leave_open ();
gridio ("close", 65536);
clear gridio
check ("a function without open files leaves in silence", ! is_loaded ());

% Loading and unloading can be repeated without end.
for k = 1:50
  path = leave_open ();
  evalc ("clear gridio");
end
check ("fifty rounds later it still closes", isequal (dumped (path, "v"), [1 2 3]) && ! is_loaded ());
conclude ();
