# SPDX-License-Identifier: BSD-3-Clause
import numpy as np
import xarray as xr
st = xr.open_dataset("stations.nc")
lon, lat = np.deg2rad(st.lon - 3), np.deg2rad(st.lat)
near = np.sin(lat) * np.sin(np.deg2rad(51)) + np.cos(lat) * np.cos(np.deg2rad(51)) * np.cos(lon)
x = st.level.isel(station=near.argmax("station")).sel(time="2013-05-01 06:00")
print(x.values)
