// SPDX-License-Identifier: BSD-3-Clause
// What datasets are compared with: a packed field decoded in C, and the files that are read.
#include "bench/native_work.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace bench {
namespace {

constexpr std::size_t mapSize = 500000; // 1000 by 500
constexpr short missing = -32767;
constexpr double scale = 0.01;
constexpr double offset = 273.15;

// Shorts, every 97th of them missing.
Done makePacked(const Job& job)
{
    const File file(job);
    const std::size_t lengths[] = {job.count, 500, 1000};
    int dimids[3];
    for (int i = 0; i < 3; ++i)
        check(nc_def_dim(file.id(), std::string(1, "zyx"[i]).c_str(), lengths[i], &dimids[i]));
    int varid = 0;
    check(nc_def_var(file.id(), "v", NC_SHORT, 3, dimids, &varid));
    check(nc_put_att_short(file.id(), varid, "_FillValue", NC_SHORT, 1, &missing));
    check(nc_put_att_double(file.id(), varid, "scale_factor", NC_DOUBLE, 1, &scale));
    check(nc_put_att_double(file.id(), varid, "add_offset", NC_DOUBLE, 1, &offset));
    check(nc_enddef(file.id()));
    std::vector<short> values(mapSize * job.count);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = i % 97 == 0 ? missing : static_cast<short>(i * 7 % 20011 + i / mapSize);
    check(nc_put_var_short(file.id(), varid, values.data()));
    return finish(0, 0);
}

// Each map decoded to doubles, with NaN; the sum of their maxima.
Done readPacked(const Job& job)
{
    const File file(job.path);
    const Stopwatch watch;
    double sum = 0;
    std::vector<short> stored(mapSize);
    std::vector<double> values(mapSize);
    for (std::size_t i = 0; i < job.count; ++i) {
        const std::size_t start[] = {i, 0, 0};
        const std::size_t count[] = {1, 500, 1000};
        check(nc_get_vara_short(file.id(), 0, start, count, stored.data()));
        std::transform(stored.begin(), stored.end(), values.begin(), [](short value) {
            return value == missing ? std::numeric_limits<double>::quiet_NaN()
                                    : value * scale + offset;
        });
        double most = -std::numeric_limits<double>::infinity();
        for (const double value : values)
            most = value > most ? value : most;
        sum += most;
    }
    return finish(watch.seconds(), sum);
}

// Many small variables, as in the output of models.
Done makeMany(const Job& job)
{
    const File file(job);
    int dimids[3];
    for (int i = 0; i < 3; ++i)
        check(nc_def_dim(file.id(), std::string(1, "tyx"[i]).c_str(), 4, &dimids[i]));
    for (std::size_t i = 0; i < job.count; ++i) {
        int varid = 0;
        check(
            nc_def_var(file.id(), ("v" + std::to_string(i)).c_str(), NC_FLOAT, 3, dimids, &varid));
        check(nc_put_att_text(file.id(), varid, "units", 1, "K"));
        check(nc_put_att_text(file.id(), varid, "long_name", 11, "temperature"));
    }
    return finish(0, 0);
}

} // namespace

Works datasetWorks()
{
    return {{"make_maxima", makePacked}, {"maxima", readPacked}, {"make_many", makeMany}};
}

} // namespace bench
