# SPDX-License-Identifier: BSD-3-Clause
import xarray as xr
ds = xr.open_dataset("sea.nc")
x = ds.sst.sel(lon=203, lat=38, method="nearest").sel(time="2013")
print(x.values.round(2))
