# SPDX-License-Identifier: BSD-3-Clause
import numpy as np
import xarray as xr
ds = xr.open_dataset("sea.nc")
m = ds.sst.sel(time="2013").weighted(np.cos(np.deg2rad(ds.lat))).mean(["lon", "lat"])
print(m.values)
