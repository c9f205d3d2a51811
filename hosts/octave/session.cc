// SPDX-License-Identifier: BSD-3-Clause
// What gridio_open_files and gridio_version report. It lives in gridio.oct since only this knows
// its open files; both functions let go of it after each call, so that "clear gridio" unloads
// gridio.oct as ever.
#include "errors.h"
#include "open_file_registry.h"

#include <netcdf.h>
#include <netcdf_filter.h>
#include <netcdf_meta.h>
#include <octave/Cell.h>
#include <octave/oct-map.h>
#include <octave/oct.h>

#include <exception>
#include <initializer_list>
#include <new>
#include <string>
#include <vector>

namespace {

constexpr int largestFileNumber =
    0xFFFF; // an identifier holds a file's number in its upper 16 bits

struct OpenFile {
    int ncid = 0;
    std::string path;
    int model = 0;
    int mode = 0;
};

// False when no file has the number, and for a given-up one: the library would crash on many
// questions about it.
bool findFile(int number, OpenFile& file)
{
    file.ncid = static_cast<int>(static_cast<unsigned>(number) << 16);
    std::size_t length = 0;
    if (Ovard::gridio::isGivenUpFile(file.ncid) ||
        nc_inq_path(file.ncid, &length, nullptr) != NC_NOERR)
        return false;
    std::vector<char> path(length + 1);
    if (nc_inq_path(file.ncid, nullptr, path.data()) != NC_NOERR)
        return false;
    file.path = path.data();
    return nc_inq_format_extended(file.ncid, &file.model, &file.mode) == NC_NOERR;
}

// The memory in which the library keeps remote data has an identifier, too, that no script has
// seen.
bool belongsToTheLibrary(const OpenFile& file)
{
    return (file.mode & NC_DISKLESS) != 0 && file.path.compare(0, 4, "tmp_") == 0 &&
           !Ovard::gridio::isRegisteredFile(file.ncid);
}

// The library does not tell, and the mode of a file that was created is silent about it. An
// attribute of a variable that cannot exist cannot be renamed, and of two reasons the library names
// missing permission first.
bool isWritable(const OpenFile& file)
{
    if (file.model == NC_FORMATX_DAP2 || file.model == NC_FORMATX_DAP4)
        return false;
    constexpr int noVariable = -77;
    return nc_rename_att(file.ncid, noVariable, "a", "b") != NC_EPERM;
}

const char* formatName(const OpenFile& file)
{
    switch (file.model) {
    case NC_FORMATX_DAP2:
        return "DAP2";
    case NC_FORMATX_DAP4:
        return "DAP4";
    case NC_FORMATX_NCZARR:
        return "Zarr";
    default:
        break;
    }
    int format = 0;
    if (nc_inq_format(file.ncid, &format) != NC_NOERR)
        return "unknown";
    switch (format) {
    case NC_FORMAT_CLASSIC:
        return "classic";
    case NC_FORMAT_64BIT_OFFSET:
        return "64-bit offset";
    case NC_FORMAT_64BIT_DATA:
        return "CDF-5";
    case NC_FORMAT_NETCDF4:
        return "netCDF-4";
    case NC_FORMAT_NETCDF4_CLASSIC:
        return "netCDF-4 classic model";
    default:
        return "unknown";
    }
}

octave_value openFiles()
{
    std::vector<OpenFile> files;
    for (int number = 1; number <= largestFileNumber; ++number) {
        OpenFile file;
        if (findFile(number, file) && !belongsToTheLibrary(file))
            files.push_back(file);
    }

    const auto count = static_cast<octave_idx_type>(files.size());
    Cell ncid(count, 1);
    Cell path(count, 1);
    Cell mode(count, 1);
    Cell format(count, 1);
    Cell unload(count, 1);
    for (octave_idx_type i = 0; i < count; ++i) {
        const OpenFile& file = files[static_cast<std::size_t>(i)];
        ncid(i) = static_cast<double>(file.ncid);
        path(i) = file.path;
        mode(i) = isWritable(file) ? "write" : "read";
        format(i) = formatName(file);
        unload(i) = Ovard::gridio::isRegisteredFile(file.ncid) ? "closed" : "not closed";
    }
    octave_map list(dim_vector(count, 1));
    list.assign("ncid", ncid);
    list.assign("path", path);
    list.assign("mode", mode);
    list.assign("format", format);
    list.assign("unload", unload);
    return list;
}

// A netCDF-4 file that stays in memory: the library describes its HDF5 to nobody who has none.
class FileInMemory {
public:
    FileInMemory()
    {
        isOpen_ = nc_create("no_such_folder/gridio", NC_NETCDF4 | NC_DISKLESS, &ncid_) == NC_NOERR;
    }
    ~FileInMemory()
    {
        if (isOpen_)
            static_cast<void>(nc_close(ncid_)); // holds nothing to lose
    }
    FileInMemory(const FileInMemory&) = delete;
    FileInMemory& operator=(const FileInMemory&) = delete;

    // From the note that the library leaves in every file, "version=2,netcdf=4.9.0,hdf5=1.10.8".
    std::string hdf5Version() const
    {
        const char* attribute = "_NCProperties";
        std::size_t length = 0;
        if (!isOpen_ || nc_inq_attlen(ncid_, NC_GLOBAL, attribute, &length) != NC_NOERR)
            return "none";
        std::string note(length, '\0');
        if (nc_get_att_text(ncid_, NC_GLOBAL, attribute, note.data()) != NC_NOERR)
            return "none";
        const std::string key = "hdf5=";
        const std::size_t start = note.find(key);
        if (start == std::string::npos)
            return "none";
        const std::string version = note.substr(start + key.size());
        return version.substr(0, version.find_first_of(std::string(",\0", 2)));
    }

    bool hasFilter(unsigned id) const
    {
        return isOpen_ && nc_inq_filter_avail(ncid_, id) == NC_NOERR;
    }

private:
    int ncid_ = 0;
    bool isOpen_ = false;
};

octave_value versions()
{
    const std::string library = nc_inq_libvers(); // "4.9.0 of Sep  3 2022 ..."
    const FileInMemory file;

    octave_scalar_map features;
    features.assign("dap2", octave_value(NC_HAS_DAP2 != 0));
    features.assign("dap4", octave_value(NC_HAS_DAP4 != 0));
    features.assign("zarr", octave_value(NC_HAS_NCZARR != 0));
    features.assign("cdf5", octave_value(NC_HAS_CDF5 != 0));
    features.assign("diskless", octave_value(NC_HAS_DISKLESS != 0));
    features.assign("parallel", octave_value(NC_HAS_PARALLEL != 0));

    octave_scalar_map filters;
    struct Filter {
        const char* name;
        unsigned id; // as registered with the HDF Group
    };
    for (const Filter& filter : std::initializer_list<Filter>{{"deflate", 1},
                                                              {"shuffle", 2},
                                                              {"fletcher32", 3},
                                                              {"szip", 4},
                                                              {"bzip2", 307},
                                                              {"blosc", 32001},
                                                              {"zstd", 32015}})
        filters.assign(filter.name, octave_value(file.hasFilter(filter.id)));

    octave_scalar_map all;
    all.assign("gridio", GRIDIO_VERSION);
    all.assign("netcdf", library.substr(0, library.find(' ')));
    all.assign("netcdf_built_with", NC_VERSION);
    all.assign("hdf5", file.hdf5Version());
    all.assign("features", features);
    all.assign("filters", filters);
    return all;
}

} // namespace

// As in gridio.cc: the interpreter finds the function by this symbol.
extern "C" __attribute__((visibility("default"))) octave_function*
G__gridio_session__(const octave::dynamic_library& library, bool isRelative);

DEFUN_DLD(__gridio_session__, args, , R"(-*- texinfo -*-
@deftypefn  {} {@var{files} =} __gridio_session__ (@qcode{"files"})
@deftypefnx {} {@var{versions} =} __gridio_session__ (@qcode{"versions"})
Undocumented internal function of @code{gridio_open_files} and @code{gridio_version}.
@end deftypefn)")
{
    const std::string wanted =
        args.length() == 1 && args(0).is_string() ? args(0).string_value() : "";
    if (wanted != "files" && wanted != "versions")
        print_usage();
    try {
        return ovl(wanted == "files" ? openFiles() : versions());
    } catch (const octave::execution_exception&) {
        throw;
    } catch (const octave::interrupt_exception&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& failure) {
        hosts::oct::raiseInternal(failure.what());
    } catch (...) {
        hosts::oct::raiseInternal("an exception of unknown type");
    }
}
