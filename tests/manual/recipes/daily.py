# SPDX-License-Identifier: BSD-3-Clause
import xarray as xr
st = xr.open_dataset("stations.nc")
print(st.level.resample(time="1D").mean().transpose("time", "station").values)
