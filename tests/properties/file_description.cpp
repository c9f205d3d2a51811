// SPDX-License-Identifier: BSD-3-Clause
#include "tests/properties/file_description.h"

#include "tests/support/library_file.h"

#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace properties {
namespace {

using testsupport::require;

class Description {
public:
    explicit Description(int ncid)
    {
        int format = 0;
        require(nc_inq_format(ncid, &format));
        isNetcdf4_ = format == NC_FORMAT_NETCDF4 || format == NC_FORMAT_NETCDF4_CLASSIC;
        out_ << "format " << format << '\n';
        try {
            describeGroup(ncid);
        } catch (const std::runtime_error& error) {
            out_ << unreadable << error.what() << '\n';
        }
    }

    std::string text() const { return out_.str(); }

private:
    void describeGroup(int ncid)
    {
        int count = 0;
        require(nc_inq_dimids(ncid, &count, nullptr, 0));
        std::vector<int> ids(static_cast<std::size_t>(count));
        require(nc_inq_dimids(ncid, nullptr, ids.data(), 0));
        for (const int id : ids) {
            char name[NC_MAX_NAME + 1] = "";
            std::size_t length = 0;
            require(nc_inq_dim(ncid, id, name, &length));
            out_ << "dimension " << id << ' ' << name << ' ' << length << '\n';
        }
        require(nc_inq_unlimdims(ncid, &count, nullptr));
        ids.resize(static_cast<std::size_t>(count));
        require(nc_inq_unlimdims(ncid, nullptr, ids.data()));
        for (const int id : ids)
            out_ << "unlimited " << id << '\n';

        require(nc_inq_natts(ncid, &count));
        describeAttributes(ncid, NC_GLOBAL, count);
        require(nc_inq_nvars(ncid, &count));
        for (int varid = 0; varid < count; ++varid)
            describeVariable(ncid, varid);

        require(nc_inq_grps(ncid, &count, nullptr));
        ids.resize(static_cast<std::size_t>(count));
        require(nc_inq_grps(ncid, nullptr, ids.data()));
        for (const int id : ids) {
            char name[NC_MAX_NAME + 1] = "";
            require(nc_inq_grpname(id, name));
            out_ << "group " << name << " {\n";
            describeGroup(id);
            out_ << "}\n";
        }
    }

    void describeVariable(int ncid, int varid)
    {
        char name[NC_MAX_NAME + 1] = "";
        nc_type xtype = NC_NAT;
        int ndims = 0;
        int dimids[NC_MAX_VAR_DIMS];
        int natts = 0;
        require(nc_inq_var(ncid, varid, name, &xtype, &ndims, dimids, &natts));
        out_ << "variable " << varid << ' ' << name << " type " << xtype << " dims";
        std::size_t size = typeSize(ncid, xtype);
        for (int i = 0; i < ndims; ++i) {
            std::size_t length = 0;
            require(nc_inq_dimlen(ncid, dimids[i], &length));
            size *= length;
            out_ << ' ' << dimids[i];
        }
        if (isNetcdf4_)
            describeStorage(ncid, varid, ndims);
        out_ << '\n';
        describeAttributes(ncid, varid, natts);
        std::vector<unsigned char> values(size);
        require(nc_get_var(ncid, varid, values.data()));
        writeBytes(values);
    }

    void describeStorage(int ncid, int varid, int ndims)
    {
        int storage = 0;
        std::vector<std::size_t> chunks(static_cast<std::size_t>(ndims));
        require(nc_inq_var_chunking(ncid, varid, &storage, chunks.data()));
        out_ << " storage " << storage;
        if (storage == NC_CHUNKED) {
            for (const std::size_t length : chunks)
                out_ << ' ' << length;
        }
        int shuffle = 0;
        int deflate = 0;
        int level = 0;
        int checksum = 0;
        int noFill = 0;
        unsigned char fill[8] = {};
        require(nc_inq_var_deflate(ncid, varid, &shuffle, &deflate, &level));
        require(nc_inq_var_fletcher32(ncid, varid, &checksum));
        require(nc_inq_var_fill(ncid, varid, &noFill, fill));
        out_ << " filters " << shuffle << deflate << ' ' << level << ' ' << checksum << " fill "
             << noFill;
        for (const int byte : fill)
            out_ << ' ' << byte;
    }

    void describeAttributes(int ncid, int varid, int count)
    {
        for (int i = 0; i < count; ++i) {
            char name[NC_MAX_NAME + 1] = "";
            nc_type xtype = NC_NAT;
            std::size_t length = 0;
            require(nc_inq_attname(ncid, varid, i, name));
            require(nc_inq_att(ncid, varid, name, &xtype, &length));
            std::vector<unsigned char> values(length * typeSize(ncid, xtype));
            require(nc_get_att(ncid, varid, name, values.data()));
            out_ << "attribute " << varid << ' ' << name << " type " << xtype;
            writeBytes(values);
        }
    }

    static std::size_t typeSize(int ncid, nc_type xtype)
    {
        std::size_t size = 0;
        require(nc_inq_type(ncid, xtype, nullptr, &size));
        return size;
    }

    void writeBytes(const std::vector<unsigned char>& bytes)
    {
        for (const int byte : bytes)
            out_ << ' ' << byte;
        out_ << '\n';
    }

    std::ostringstream out_;
    bool isNetcdf4_ = false;
};

} // namespace

std::string describeFile(const std::string& path)
{
    const auto file = testsupport::LibraryFile::open(path);
    return Description(file.ncid()).text();
}

} // namespace properties
