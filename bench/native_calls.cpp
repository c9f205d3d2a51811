// SPDX-License-Identifier: BSD-3-Clause
// The library's part of the calls that are measured one by one: what the module calls.
#include "bench/native_work.h"

namespace bench {

namespace {

template <class Call> Done repeat(const Job& job, Call call)
{
    const File file(job.path);
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; ++i)
        check(call(file.id()));
    return finish(watch.seconds(), 0);
}

char text[NC_MAX_NAME + 1];
double numbers[100];
int number;
std::size_t length;
const std::size_t start = 3;
const std::size_t one = 1;
const std::size_t hundred = 100;
const std::ptrdiff_t stride = 1;

// The inquiries that the module makes before it reads values.
int inquireShape(int ncid)
{
    int model = 0;
    check(nc_inq_format_extended(ncid, &model, nullptr));
    int dimid = 0;
    if (model != NC_FORMATX_NC_HDF5)
        return nc_inq_var(ncid, 0, nullptr, nullptr, &number, nullptr, nullptr);
    check(nc_inq_var(ncid, 0, nullptr, nullptr, &number, &dimid, nullptr));
    return nc_inq_dim(ncid, dimid, nullptr, nullptr);
}

// clang-format off
Done callInqLibVers(const Job& job) { return repeat(job, [](int) { return nc_inq_libvers() ? NC_NOERR : NC_EINVAL; }); }
Done callInqFormat(const Job& job) { return repeat(job, [](int ncid) { return nc_inq_format(ncid, &number); }); }
Done callInqVarID(const Job& job) { return repeat(job, [](int ncid) { return nc_inq_varid(ncid, "v10", &number); }); }
Done callInqDim(const Job& job) { return repeat(job, [](int ncid) { return nc_inq_dim(ncid, 0, text, &length); }); }
Done callInqVar(const Job& job) { return repeat(job, [](int ncid) { int dimid; nc_type xtype; check(nc_inq_varndims(ncid, 3, &number)); return nc_inq_var(ncid, 3, text, &xtype, nullptr, &dimid, &number); }); }
Done callGetAttDouble(const Job& job) { return repeat(job, [](int ncid) { check(nc_inq_att(ncid, 0, "valid_range", nullptr, &length)); return nc_get_att_double(ncid, 0, "valid_range", numbers); }); }
Done callGetAttText(const Job& job) { return repeat(job, [](int ncid) { check(nc_inq_att(ncid, 0, "units", nullptr, &length)); return nc_get_att_text(ncid, 0, "units", text); }); }
Done callGetVar1Double(const Job& job) { return repeat(job, [](int ncid) { check(inquireShape(ncid)); return nc_get_vars_double(ncid, 0, &start, &one, &stride, numbers); }); }
Done callGetVaraDouble(const Job& job) { return repeat(job, [](int ncid) { check(inquireShape(ncid)); return nc_get_vars_double(ncid, 0, &start, &hundred, &stride, numbers); }); }
Done callParameter(const Job& job) { return repeat(job, [](int) { return NC_NOERR; }); }
// clang-format on

} // namespace

Works callWorks()
{
    return {{"call_inqLibVers", callInqLibVers},
            {"call_inqFormat", callInqFormat},
            {"call_inqVarID", callInqVarID},
            {"call_inqDim", callInqDim},
            {"call_inqVar", callInqVar},
            {"call_getAttDouble", callGetAttDouble},
            {"call_getAttText", callGetAttText},
            {"call_getVar1Double", callGetVar1Double},
            {"call_getVaraDouble", callGetVaraDouble},
            {"call_parameter", callParameter}};
}

} // namespace bench
