// SPDX-License-Identifier: BSD-3-Clause
// The files that are read, and the reading of those that others wrote.
#include "bench/native_work.h"

#include <vector>

namespace bench {

namespace {

template <class T, class Write>
Done makeField(const Job& job, nc_type xtype, T (*at)(std::size_t), bool isPacked, Write write)
{
    const Stopwatch watch;
    const File file(job);
    const int varid = defineField(file.id(), xtype, job.count);
    if (isPacked) {
        const std::size_t chunk[] = {1, 256, 256};
        check(nc_def_var_chunking(file.id(), varid, NC_CHUNKED, chunk));
        check(nc_def_var_deflate(file.id(), varid, 1, 1, 1));
    }
    int before = 0;
    check(nc_set_fill(file.id(), NC_NOFILL, &before));
    check(nc_enddef(file.id()));
    const auto values = fresh<T>(job.count);
    for (std::size_t i = 0; i < job.count; ++i)
        values.get()[i] = at(i);
    check(write(file.id(), varid, values.get()));
    return finish(watch.seconds(), 0);
}

Done makeDouble(const Job& job)
{
    return makeField(job, NC_DOUBLE, valueAt, false, nc_put_var_double);
}
Done makePacked(const Job& job)
{
    return makeField(job, NC_FLOAT, valueAt, true, nc_put_var_double);
}
Done makeShort(const Job& job)
{
    return makeField(job, NC_SHORT, shortAt, false, nc_put_var_short);
}
Done makeText(const Job& job) { return makeField(job, NC_CHAR, letterAt, false, nc_put_var_text); }

Done makeStrings(const Job& job)
{
    const Stopwatch watch;
    const File file(job);
    int dimid = 0;
    check(nc_def_dim(file.id(), "n", job.count, &dimid));
    int varid = 0;
    check(nc_def_var(file.id(), "v", NC_STRING, 1, &dimid, &varid));
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < job.count; ++i)
        texts.push_back("station " + std::to_string(i % 1009));
    std::vector<const char*> pointers;
    for (const std::string& text : texts)
        pointers.push_back(text.c_str());
    check(nc_put_var_string(file.id(), varid, pointers.data()));
    return finish(watch.seconds(), 0);
}

// A long vector "v" with two attributes, and ten small variables.
Done makeSmall(const Job& job)
{
    const Stopwatch watch;
    const File file(job);
    int dimid = 0;
    check(nc_def_dim(file.id(), "n", job.count, &dimid));
    int varid = 0;
    check(nc_def_var(file.id(), "v", NC_DOUBLE, 1, &dimid, &varid));
    const double range[] = {-90, 90};
    check(nc_put_att_text(file.id(), varid, "units", 13, "degrees_north"));
    check(nc_put_att_double(file.id(), varid, "valid_range", NC_DOUBLE, 2, range));
    check(nc_def_dim(file.id(), "x", 4, &dimid));
    for (int i = 1; i <= 10; ++i) {
        int other = 0;
        const std::string name = "v" + std::to_string(i);
        check(nc_def_var(file.id(), name.c_str(), NC_INT, 1, &dimid, &other));
    }
    check(nc_enddef(file.id()));
    std::vector<double> values(job.count);
    for (std::size_t i = 0; i < job.count; ++i)
        values[i] = valueAt(i);
    check(nc_put_var_double(file.id(), varid, values.data()));
    return finish(watch.seconds(), 0);
}

Done checkField(const Job& job)
{
    const File file(job.path);
    auto values = fresh<double>(job.count);
    check(nc_get_var_double(file.id(), 0, values.get()));
    return finish(0, std::move(values), job.count);
}

Done checkText(const Job& job)
{
    const File file(job.path);
    auto values = fresh<char>(job.count);
    check(nc_get_var_text(file.id(), 0, values.get()));
    return finish(0, std::move(values), job.count);
}

Done checkAttribute(const Job& job)
{
    const File file(job.path);
    double value = 0;
    check(nc_get_att_double(file.id(), NC_GLOBAL, "a", &value));
    return finish(0, value);
}

} // namespace

Works fileWorks()
{
    return {{"make_double", makeDouble},        {"make_packed", makePacked},
            {"make_short", makeShort},          {"make_text", makeText},
            {"make_small", makeSmall},          {"make_strings", makeStrings},
            {"check_field", checkField},        {"check_text", checkText},
            {"check_attribute", checkAttribute}};
}

} // namespace bench
