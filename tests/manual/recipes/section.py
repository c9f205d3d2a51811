# SPDX-License-Identifier: BSD-3-Clause
import matplotlib.pyplot as plt
import xarray as xr
ds = xr.open_dataset("sea.nc")
x = ds.temp.sel(lon=200, time="2013-05").squeeze()
x.plot(y="depth", yincrease=False)
plt.savefig("section.png")
print(x.min().values, x.max().values)
