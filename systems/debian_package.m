% SPDX-License-Identifier: BSD-3-Clause
% Uses gridio as the Debian package installs it: fails unless what it wrote is what it reads.
pkg load gridio
found = gridio_version ();
printf ("gridio %s, netCDF %s, HDF5 %s\n", found.gridio, found.netcdf, found.hdf5);
assert (isempty (strfind (which ("gridio"), [filesep() "home" filesep()])));
assert (exist (gridio_manual (), "file"), 2);
assert (exist (fullfile (fileparts (which ("gridio")), "doc.info"), "file"), 2); # what "doc gridio" shows

path = [tempname() ".nc"];
values = reshape (1:12, 3, 4);
ds = gridio_dataset (path, "new");
ds.put ("field", values, {"lon", "lat"});
ds.close ();
read = gridio_read (path, "field");
delete (path);
assert (read, values);
disp ("written and read");
