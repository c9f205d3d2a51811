// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/fingerprint.h"

#include "check_status.h"
#include "library/guards/oversized_names.h"

#include <netcdf.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace Ovard::gridio {
namespace {

constexpr const char* timeAttributes[] = {"units", "calendar"};
constexpr const char* decodingAttributes[] = {"scale_factor",  "add_offset", "_FillValue",
                                              "missing_value", "_Unsigned",  "valid_range",
                                              "valid_min",     "valid_max"};

// Longer attributes are known by their length alone.
constexpr std::size_t mostElements = 1024;

// The hash FNV-1a of 64 bits.
class Hash {
public:
    void add(const void* bytes, std::size_t count)
    {
        const auto* byte = static_cast<const unsigned char*>(bytes);
        for (std::size_t i = 0; i < count; ++i)
            value_ = (value_ ^ byte[i]) * 1099511628211U;
    }
    void add(std::uint64_t number) { add(&number, sizeof number); }
    void add(std::string_view text)
    {
        add(text.data(), text.size());
        add(text.size());
    }

    double folded() const
    {
        return static_cast<double>((value_ ^ value_ >> 52) & ((std::uint64_t{1} << 52) - 1));
    }

private:
    std::uint64_t value_ = 14695981039346656037U;
};

class Fingerprint {
public:
    Fingerprint(const JoinedNames& joined, const OperationEntry* entry)
        : joined_(joined), entry_(entry)
    {
    }

    void addGroup(int ncid, const std::string& path)
    {
        addDimensions(ncid, path);
        int count = 0;
        checkStatus(nc_inq_varids(ncid, &count, nullptr), entry_);
        std::vector<int> ids(static_cast<std::size_t>(count));
        checkStatus(nc_inq_varids(ncid, nullptr, ids.data()), entry_);
        for (const int varid : ids)
            addVariable(ncid, varid, path);
        checkStatus(nc_inq_grps(ncid, &count, nullptr), entry_);
        ids.resize(static_cast<std::size_t>(count));
        checkStatus(nc_inq_grps(ncid, nullptr, ids.data()), entry_);
        for (const int group : ids) {
            char name[NC_MAX_NAME + 1] = "";
            checkStatus(nc_inq_grpname(group, name), entry_);
            hash_.add(name);
            addGroup(group, path + name + "/");
        }
    }

    double value() const { return hash_.folded(); }

private:
    void addDimensions(int ncid, const std::string& path)
    {
        int count = 0;
        checkStatus(nc_inq_dimids(ncid, &count, nullptr, 0), entry_);
        std::vector<int> ids(static_cast<std::size_t>(count));
        checkStatus(nc_inq_dimids(ncid, nullptr, ids.data(), 0), entry_);
        for (const int dimid : ids) {
            std::size_t length = 0;
            char* name = nameBuffer();
            checkStatus(nc_inq_dim(ncid, dimid, name, &length), entry_);
            hash_.add(name);
            hash_.add(path + name == joined_.dimension ? 0 : length);
        }
    }

    void addVariable(int ncid, int varid, const std::string& path)
    {
        nc_type type = NC_NAT;
        int rank = 0;
        char* name = nameBuffer();
        checkStatus(nc_inq_var(ncid, varid, name, &type, &rank, nullptr, nullptr), entry_);
        const std::string full = path + name;
        hash_.add(name);
        addType(ncid, type);
        std::vector<int> dimids(static_cast<std::size_t>(rank));
        if (rank > 0)
            checkStatus(nc_inq_vardimid(ncid, varid, dimids.data()), entry_);
        for (const int dimid : dimids) {
            name = nameBuffer();
            checkStatus(nc_inq_dimname(ncid, dimid, name), entry_);
            hash_.add(name);
        }
        for (const char* attribute : decodingAttributes)
            addAttribute(ncid, varid, attribute);
        if (full != joined_.coordinate && full != joined_.bounds)
            for (const char* attribute : timeAttributes)
                addAttribute(ncid, varid, attribute);
    }

    // Types that the file defines are known by their names.
    void addType(int ncid, nc_type type)
    {
        if (type <= NC_MAX_ATOMIC_TYPE) {
            hash_.add(static_cast<std::uint64_t>(type));
            return;
        }
        char* name = nameBuffer();
        std::size_t size = 0;
        checkStatus(nc_inq_user_type(ncid, type, name, &size, nullptr, nullptr, nullptr), entry_);
        hash_.add(name);
        hash_.add(size);
    }

    void addAttribute(int ncid, int varid, const char* name)
    {
        nc_type type = NC_NAT;
        std::size_t length = 0;
        if (nc_inq_att(ncid, varid, name, &type, &length) != NC_NOERR)
            return;
        hash_.add(name);
        hash_.add(static_cast<std::uint64_t>(type));
        hash_.add(length);
        if (type >= NC_STRING || length == 0 || length > mostElements)
            return addString(ncid, varid, name, type, length);
        std::uint64_t values[mostElements] = {};
        checkStatus(nc_get_att(ncid, varid, name, values), entry_);
        std::size_t size = 0;
        checkStatus(nc_inq_type(ncid, type, nullptr, &size), entry_);
        hash_.add(values, length * size);
    }

    void addString(int ncid, int varid, const char* name, nc_type type, std::size_t length)
    {
        if (type != NC_STRING || length != 1)
            return;
        char* text = nullptr;
        checkStatus(nc_get_att_string(ncid, varid, name, &text), entry_);
        hash_.add(text == nullptr ? "" : text);
        checkStatus(nc_free_string(1, &text), entry_);
    }

    const JoinedNames& joined_;
    const OperationEntry* entry_;
    Hash hash_;
};

} // namespace

double fingerprintOf(int ncid, const JoinedNames& joined, const OperationEntry* entry)
{
    Fingerprint fingerprint(joined, entry);
    fingerprint.addGroup(ncid, "/");
    return fingerprint.value();
}

} // namespace Ovard::gridio
