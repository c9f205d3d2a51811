# SPDX-License-Identifier: BSD-3-Clause
import xarray as xr
ds = xr.open_dataset("sea.nc")
flags = dict(zip(ds.quality.flag_meanings.split(), ds.quality.flag_values))
x = ds.sst[0].where(ds.quality[0] != flags["ice"])
print(x.min().values, x.mean().values)
