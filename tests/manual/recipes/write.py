# SPDX-License-Identifier: BSD-3-Clause
import numpy as np
import xarray as xr
lon, lat, t = np.arange(0, 360, 90), np.array([-45, 45]), np.array(["2013-05-01", "2013-05-02"], "datetime64[ns]")
x = 15 + lon / 100 + lat[:, None] / 50 + np.array([0, 1])[:, None, None]
ds = xr.Dataset({"sst": (("time", "lat", "lon"), x)}, {"lon": lon, "lat": lat, "time": t})
ds.lon.attrs["units"] = "degrees_east"
ds.lat.attrs["units"] = "degrees_north"
ds.sst.attrs["units"] = "degC"
ds.attrs["Conventions"] = "CF-1.11"
packing = {"scale_factor": 0.01, "dtype": "int16", "_FillValue": -32767, "zlib": True, "complevel": 1}
ds.to_netcdf("field.nc", encoding={"sst": packing}, unlimited_dims=["time"])
print(xr.open_dataset("field.nc").sst.sel(time="2013-05-02").values)
