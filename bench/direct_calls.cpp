// SPDX-License-Identifier: BSD-3-Clause
// Native functions of the interpreter, written plainly, that make the library's calls and nothing
// else: no name is looked up, no argument checked, nothing guarded. They take what gridio takes,
// the name as well, to be compared with it: direct_inqVarID ("inqVarID", ncid, "v").
#include <octave/oct.h>

#include <netcdf.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

void check(int status)
{
    if (status != NC_NOERR)
        error("%s", nc_strerror(status));
}

int intAt(const octave_value_list& args, octave_idx_type i)
{
    return static_cast<int>(args(i).double_value());
}

std::size_t sizeAt(const octave_value_list& args, octave_idx_type i)
{
    return static_cast<std::size_t>(args(i).double_value());
}

// In the library's order, the reverse of the interpreter's.
template <class T> std::vector<T> reversed(const octave_value& value)
{
    const NDArray numbers = value.array_value();
    std::vector<T> result(static_cast<std::size_t>(numbers.numel()));
    std::transform(numbers.data(), numbers.data() + numbers.numel(), result.rbegin(),
                   [](double number) { return static_cast<T>(number); });
    return result;
}

// A result that is not filled before the library does.
Array<double> column(std::size_t count)
{
    const auto length = static_cast<octave_idx_type>(count);
    return Array<double>(static_cast<double*>(::operator new(count * sizeof(double))),
                         dim_vector(length, 1));
}

} // namespace

#define HELP "The library's call and nothing else."
#define DIRECT(name) DEFUN_DLD(direct_##name, args, , HELP)

DIRECT(open)
{
    int ncid = 0;
    check(nc_open(args(1).string_value().c_str(), NC_NOWRITE, &ncid));
    return ovl(ncid);
}

DIRECT(create)
{
    const int mode = args(2).string_value() == "netcdf4" ? NC_NETCDF4 : NC_CLOBBER;
    int ncid = 0;
    check(nc_create(args(1).string_value().c_str(), mode, &ncid));
    return ovl(ncid);
}

DIRECT(close)
{
    check(nc_close(intAt(args, 1)));
    return {};
}

DIRECT(defDim)
{
    int dimid = 0;
    check(nc_def_dim(intAt(args, 1), args(2).string_value().c_str(), sizeAt(args, 3), &dimid));
    return ovl(dimid);
}

DIRECT(defVar)
{
    const std::vector<int> dimids = reversed<int>(args(4));
    int varid = 0;
    check(nc_def_var(intAt(args, 1), args(2).string_value().c_str(), intAt(args, 3),
                     static_cast<int>(dimids.size()), dimids.data(), &varid));
    return ovl(varid);
}

DIRECT(setFill)
{
    int before = 0;
    check(nc_set_fill(intAt(args, 1), intAt(args, 2), &before));
    return {};
}

DIRECT(endDef)
{
    check(nc_enddef(intAt(args, 1)));
    return {};
}

DIRECT(parameter)
{
    const std::string name = args(1).string_value();
    if (name == "NC_NOFILL")
        return ovl(NC_NOFILL);
    return ovl(name == "NC_DOUBLE" ? NC_DOUBLE : name == "NC_CHAR" ? NC_CHAR : NC_FILL);
}

// All values of a variable, numbers or text.
DIRECT(putVar)
{
    if (args(3).is_string())
        check(nc_put_var_text(intAt(args, 1), intAt(args, 2), args(3).char_array_value().data()));
    else
        check(nc_put_var_double(intAt(args, 1), intAt(args, 2), args(3).array_value().data()));
    return {};
}

DIRECT(putVaraDouble)
{
    const std::vector<std::size_t> start = reversed<std::size_t>(args(3));
    const std::vector<std::size_t> count = reversed<std::size_t>(args(4));
    const std::vector<std::ptrdiff_t> stride(start.size(), 1);
    check(nc_put_vars_double(intAt(args, 1), intAt(args, 2), start.data(), count.data(),
                             stride.data(), args(5).array_value().data()));
    return {};
}

DIRECT(getVar1Double)
{
    const std::size_t start = sizeAt(args, 3);
    const std::size_t count = 1;
    const std::ptrdiff_t stride = 1;
    double value = 0;
    check(nc_get_vars_double(intAt(args, 1), intAt(args, 2), &start, &count, &stride, &value));
    return ovl(value);
}

DIRECT(getVaraDouble)
{
    const std::size_t start = sizeAt(args, 3);
    const std::size_t count = sizeAt(args, 4);
    const std::ptrdiff_t stride = 1;
    Array<double> values = column(count);
    check(nc_get_vars_double(intAt(args, 1), intAt(args, 2), &start, &count, &stride,
                             values.fortran_vec()));
    return ovl(NDArray(values));
}

DIRECT(inq)
{
    int numbers[4] = {};
    check(nc_inq(intAt(args, 1), &numbers[0], &numbers[1], &numbers[2], &numbers[3]));
    return ovl(numbers[0], numbers[1], numbers[2], numbers[3]);
}

DEFUN_DLD(direct_inqLibVers, , , HELP) { return ovl(nc_inq_libvers()); }

DIRECT(inqFormat)
{
    int format = 0;
    check(nc_inq_format(intAt(args, 1), &format));
    return ovl(format == NC_FORMAT_CLASSIC ? "FORMAT_CLASSIC" : "FORMAT_NETCDF4");
}

DIRECT(inqDim)
{
    char name[NC_MAX_NAME + 1] = {};
    std::size_t length = 0;
    check(nc_inq_dim(intAt(args, 1), intAt(args, 2), name, &length));
    return ovl(name, static_cast<double>(length));
}

DIRECT(inqVar)
{
    char name[NC_MAX_NAME + 1] = {};
    nc_type xtype = NC_NAT;
    int ndims = 0;
    int natts = 0;
    int dimids[NC_MAX_VAR_DIMS];
    check(nc_inq_var(intAt(args, 1), intAt(args, 2), name, &xtype, &ndims, dimids, &natts));
    RowVector ids(ndims);
    std::copy(dimids, dimids + ndims, ids.fortran_vec());
    return ovl(name, xtype, ids, natts);
}

DIRECT(inqVarID)
{
    int varid = 0;
    check(nc_inq_varid(intAt(args, 1), args(2).string_value().c_str(), &varid));
    return ovl(varid);
}

DIRECT(getAttText)
{
    const std::string name = args(3).string_value();
    std::size_t length = 0;
    check(nc_inq_attlen(intAt(args, 1), intAt(args, 2), name.c_str(), &length));
    std::string text(length, '\0');
    check(nc_get_att_text(intAt(args, 1), intAt(args, 2), name.c_str(), text.data()));
    return ovl(text);
}

DIRECT(getAttDouble)
{
    const std::string name = args(3).string_value();
    std::size_t length = 0;
    check(nc_inq_attlen(intAt(args, 1), intAt(args, 2), name.c_str(), &length));
    RowVector values(static_cast<octave_idx_type>(length));
    check(nc_get_att_double(intAt(args, 1), intAt(args, 2), name.c_str(), values.fortran_vec()));
    return ovl(values);
}

DIRECT(putAttDouble)
{
    const double value = args(5).double_value();
    check(nc_put_att_double(intAt(args, 1), intAt(args, 2), args(3).string_value().c_str(),
                            intAt(args, 4), 1, &value));
    return {};
}
