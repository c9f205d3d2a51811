# SPDX-License-Identifier: BSD-3-Clause
import xarray as xr
ds = xr.open_dataset("sea.nc")
print(ds.sizes["lon"], ds.sizes["lat"], ds.sizes["depth"], ds.sizes["time"])
