# SPDX-License-Identifier: BSD-3-Clause
import xarray as xr
ds = xr.open_dataset("sea.nc")
months = ds.sst.groupby("time.month")
anomaly = months - months.mean("time")
print(anomaly[:, 8, 20].values)
