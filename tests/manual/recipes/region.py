# SPDX-License-Identifier: BSD-3-Clause
import xarray as xr
ds = xr.open_dataset("sea.nc")
x = ds.sst.sel(lon=slice(10, 40), lat=slice(0, 20), time="2013-05")
print(x.values)
