# SPDX-License-Identifier: BSD-3-Clause
import xarray as xr
ds = xr.open_dataset("sea.nc")
ds = ds.assign_coords(lon=(ds.lon + 180) % 360 - 180).sortby("lon")
x = ds.sst.sel(lon=slice(-30, 20), lat=0, time="2012-07").squeeze()
print(*zip(x.lon.values, x.values))
