// SPDX-License-Identifier: BSD-3-Clause
// The least that joining files costs: open each of FOLDER, read its time with its units, close it.
#include <netcdf.h>

#include <chrono>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

int main(int, char** arguments)
{
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(arguments[1]))
        paths.push_back(entry.path());
    const auto begin = std::chrono::steady_clock::now();
    const std::clock_t before = std::clock();
    for (const std::string& path : paths) {
        int ncid = 0;
        int varid = 0;
        int dimid = 0;
        std::size_t length = 0;
        char units[64] = "";
        if (nc_open(path.c_str(), NC_NOWRITE, &ncid) != NC_NOERR)
            return 1;
        int failures = nc_inq_dimid(ncid, "time", &dimid) | nc_inq_dimlen(ncid, dimid, &length) |
                       nc_inq_varid(ncid, "time", &varid);
        std::vector<double> times(length);
        failures |= nc_get_var_double(ncid, varid, times.data()) |
                    nc_get_att_text(ncid, varid, "units", units);
        if ((failures | nc_close(ncid)) != NC_NOERR)
            return 1;
    }
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
    const double used = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    std::printf("%.6f %.6f\n", wall.count(), used);
    return 0;
}
