## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{names} =} vertical_names ()
## Undocumented internal function: the standard_names of vertical coordinates.
## @end deftypefn

function names = vertical_names ()

  names = {"air_pressure", "altitude", "depth", "height", "model_level_number", "sea_water_pressure", ...
           "geopotential_height", "height_above_mean_sea_level", "height_above_geopotential_datum", ...
           "atmosphere_ln_pressure_coordinate", "atmosphere_sigma_coordinate", ...
           "atmosphere_hybrid_sigma_pressure_coordinate", "atmosphere_hybrid_height_coordinate", ...
           "atmosphere_sleve_coordinate", "ocean_sigma_coordinate", "ocean_s_coordinate", "ocean_s_coordinate_g1", ...
           "ocean_s_coordinate_g2", "ocean_sigma_z_coordinate", "ocean_double_sigma_coordinate"};

endfunction
