% SPDX-License-Identifier: BSD-3-Clause
% What the table of "./gridio systems" says of a system, one a line.
found = gridio_version ();
printf ("%s\n", version (), found.netcdf, found.hdf5);
