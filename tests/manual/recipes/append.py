# SPDX-License-Identifier: BSD-3-Clause
import numpy as np
import xarray as xr
ds = xr.load_dataset("sea.nc")
new = ds[["sst"]].sel(time=["2013-12-15"]) - 1
new["time"] = np.array(["2014-01-15"], "datetime64[ns]")
ds = ds.merge(new)
ds.to_netcdf("longer.nc", unlimited_dims=["time"])
print(ds.sizes["time"], ds.sst[-1, 8, 20].values)
