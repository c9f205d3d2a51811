# SPDX-License-Identifier: BSD-3-Clause
import xarray as xr
ds = xr.open_dataset("sea.nc")
m = ds.sst.sel(lon=200, lat=40).groupby("time.season").mean()
print(m.sel(season=["DJF", "MAM", "JJA", "SON"]).values)
