// SPDX-License-Identifier: BSD-3-Clause
#include "tests/properties/chunk_layouts.h"
#include "tests/properties/typed_library_calls.h"
#include "tests/support/library_file.h"

#include <sstream>

namespace properties {
namespace {

using testsupport::require;

constexpr nc_type types[] = {NC_BYTE, NC_UBYTE, NC_CHAR,   NC_SHORT, NC_USHORT, NC_INT,
                             NC_UINT, NC_INT64, NC_UINT64, NC_FLOAT, NC_DOUBLE};

class Maker {
public:
    Maker(Random& random, const std::string& path) : random_(random)
    {
        require(nc_create(path.c_str(), NC_NETCDF4 | NC_CLOBBER, &root_));
        group_ = root_;
        if (random_.oneIn(4))
            require(nc_def_grp(root_, "group", &group_));
        for (std::size_t i = 0; i < 6; ++i) {
            const std::size_t length = random_.between(1, random_.oneIn(3) ? 20 : 6);
            isUnlimited_.push_back(random_.oneIn(3));
            int dimid = 0;
            require(nc_def_dim(root_, ("d" + std::to_string(i)).c_str(),
                               isUnlimited_.back() ? NC_UNLIMITED : length, &dimid));
            dimids_.push_back(dimid);
            lengths_.push_back(length);
        }
    }

    LayoutFile make(const std::string& path, std::size_t count)
    {
        LayoutFile file;
        for (std::size_t i = 0; i < count; ++i)
            file.layouts.push_back(define(i));
        growDimensions();
        for (const Layout& layout : file.layouts)
            write(layout);
        if (random_.oneIn(2))
            reopen(path, file);
        else if (random_.oneIn(3))
            require(nc_sync(root_));
        file.ncid = root_;
        return file;
    }

private:
    Layout define(std::size_t number)
    {
        Layout layout;
        std::ostringstream text;
        layout.ncid = random_.oneIn(2) ? root_ : group_;
        layout.type = random_.oneOf(types);
        std::vector<std::size_t> order{0, 1, 2, 3, 4, 5};
        random_.shuffle(order);
        order.resize(random_.between(1, random_.oneIn(3) ? 6 : 3));
        std::vector<int> dimids;
        for (const std::size_t i : order) {
            dimids.push_back(dimids_[i]);
            layout.lengths.push_back(lengths_[i]);
        }
        const std::string name = "v" + std::to_string(number);
        require(nc_def_var(layout.ncid, name.c_str(), layout.type, static_cast<int>(dimids.size()),
                           dimids.data(), &layout.varid));
        layout.twin = layout.varid;
        text << name << " type " << layout.type << " lengths " << show(layout.lengths);
        setStorage(layout, dimids, text);
        setFilling(layout, text);
        layout.description = text.str();
        return layout;
    }

    void setStorage(const Layout& layout, const std::vector<int>& dimids, std::ostream& text)
    {
        Lengths chunks;
        for (std::size_t i = 0; i < dimids.size(); ++i) {
            // The library refuses chunks that are longer than a dimension that cannot grow.
            const bool canGrow = isUnlimited_[static_cast<std::size_t>(dimids[i])];
            chunks.push_back(random_.between(1, layout.lengths[i] + (canGrow ? 3 : 0)));
        }
        require(nc_def_var_chunking(layout.ncid, layout.varid, NC_CHUNKED, chunks.data()));
        text << "chunks " << show(chunks);
        const int shuffle = random_.oneIn(2) ? 1 : 0;
        const int deflate = random_.oneIn(4) ? 0 : 1;
        const int level = static_cast<int>(random_.below(10));
        require(nc_def_var_deflate(layout.ncid, layout.varid, shuffle, deflate, level));
        text << "shuffle " << shuffle << " deflate " << deflate * level;
        if (random_.oneIn(3)) {
            require(nc_def_var_fletcher32(layout.ncid, layout.varid, 1));
            text << " fletcher32";
        }
        if (layout.type != NC_CHAR && random_.oneIn(3)) {
            require(nc_def_var_endian(layout.ncid, layout.varid, NC_ENDIAN_BIG));
            text << " big endian";
        }
    }

    void setFilling(const Layout& layout, std::ostream& text)
    {
        const long long fill = 0x0102030405060708;
        if (random_.oneIn(4)) {
            require(nc_def_var_fill(layout.ncid, layout.varid, NC_NOFILL, nullptr));
            unfilled_.emplace_back(layout.ncid, layout.varid);
            text << " no filling";
        } else if (random_.oneIn(3)) {
            require(nc_def_var_fill(layout.ncid, layout.varid, NC_FILL, &fill));
            text << " fill value";
        }
    }

    // Each unlimited dimension gets its length from a variable of its own.
    void growDimensions()
    {
        for (std::size_t i = 0; i < dimids_.size(); ++i) {
            int varid = 0;
            require(nc_def_var(root_, ("grown" + std::to_string(i)).c_str(), NC_BYTE, 1,
                               &dimids_[i], &varid));
            const std::size_t last[] = {lengths_[i] - 1};
            const signed char one = 1;
            require(nc_put_var1_schar(root_, varid, last, &one));
        }
    }

    void write(const Layout& layout)
    {
        // Without filling, elements that were never written may be anything.
        const bool isFilled =
            std::find(unfilled_.begin(), unfilled_.end(),
                      std::make_pair(layout.ncid, layout.varid)) == unfilled_.end();
        const std::size_t blocks = isFilled ? random_.below(4) : 1;
        for (std::size_t block = 0; block < blocks; ++block) {
            Lengths start;
            Lengths count;
            const bool isWhole = !isFilled || random_.oneIn(3);
            for (const std::size_t length : layout.lengths) {
                start.push_back(isWhole ? 0 : random_.below(length));
                count.push_back(isWhole ? length : random_.between(1, length - start.back()));
            }
            const auto& calls = callsOfStoredType(layout.type);
            std::string values(productOf(count) * calls.size, '\0');
            const bool isSmooth = random_.oneIn(2);
            for (char& byte : values)
                byte = static_cast<char>(isSmooth ? random_.below(3) : random_.below(256));
            const std::vector<std::ptrdiff_t> steps(count.size(), 1);
            require(calls.putVars(layout.ncid, layout.varid, start.data(), count.data(),
                                  steps.data(), values.data()));
        }
    }

    void reopen(const std::string& path, LayoutFile& file)
    {
        require(nc_close(root_));
        int ncid = 0;
        require(nc_open(path.c_str(), random_.oneIn(2) ? NC_WRITE : NC_NOWRITE, &ncid));
        int group = ncid;
        if (group_ != root_)
            require(nc_inq_ncid(ncid, "group", &group));
        for (Layout& layout : file.layouts)
            layout.ncid = layout.ncid == root_ ? ncid : group;
        root_ = ncid;
        group_ = group;
    }

    Random& random_;
    int root_ = 0;
    int group_ = 0;
    std::vector<int> dimids_;
    std::vector<bool> isUnlimited_;
    std::vector<std::pair<int, int>> unfilled_; // group and variable
    Lengths lengths_;                           // that the dimensions grow to
};

} // namespace

LayoutFile makeLibraryFile(Random& random, const std::string& path, std::size_t count)
{
    return Maker(random, path).make(path, count);
}

} // namespace properties
