// SPDX-License-Identifier: BSD-3-Clause
// Advice by status, from the causes for which the library was observed to report it.
#include "hosts/messages/status_advice.h"

#include <algorithm>
#include <iterator>

namespace hosts::messages {

namespace {

struct Advice {
    const char* codeName;
    const char* text;
};

// clang-format off
constexpr Advice advice[] = {
    // System errors.
    {"2", "There is no such file or folder: check the path, and that the folder to create a file in exists."},
    {"13", "The permissions of the file or its folder forbid it. Creating a netCDF-4 file also fails so if its "
           "folder does not exist or the path is a folder's, and if the same file is still open: in another "
           "program, or here (gridio_open_files() lists those)."},
    {"20", "A part of the path that should be a folder is a file: check the path."},
    {"21", "The path is that of a folder: add the name of a file."},
    {"22", "The operating system does not accept the call. When opening, the path is often that of a folder: add "
           "the name of a file."},
    {"24", "The session has as many files open as the system allows it (\"ulimit -n\"): close those that are no longer "
           "needed, each with gridio(\"close\", ncid); gridio_open_files() lists them."},
    {"27", "The file would be larger than the system allows this session to write (\"ulimit -f\")."},
    {"28", "The disk is full."},
    {"36", "The name of the file is too long for the file system: choose a shorter one."},

    // Files and identifiers.
    {"NC_EBADID", "ncid is not the identifier of an open file: the file was closed, or never opened. "
                  "gridio_open_files() lists those that are open. When opening or creating, the library has 65535 "
                  "files open, and cannot open more."},
    {"NC_EBADGRPID", "The identifier of a group was given where that of a file is needed, or there is no such group."},
    {"NC_ENFILE", "The library has as many files open as it can: close those that are no longer needed, each with "
                  "gridio(\"close\", ncid); gridio_open_files() lists them."},
    {"NC_EEXIST", "The file exists, and the mode \"noclobber\" forbids replacing it: choose another name, or the "
                  "mode \"clobber\", which empties the file."},
    {"NC_EINVAL", "An argument has a value that the library does not accept: check the numbers and flags (two "
                  "formats in one mode, a deflate level outside 0 to 9, an unlimited dimension with contiguous "
                  "storage). When opening, the file may have been cut short."},
    {"NC_EPERM", "The file is open for reading only: open it with the mode \"write\"."},
    {"NC_ENOTNC", "This is not a netCDF file, or it is empty or a folder: check the path."},
    {"NC_EHDFERR", "The HDF5 library failed. When opening, the file is usually locked: another program is writing "
                   "it (or reading it, if it is opened for writing here), so wait until that has closed it, or "
                   "close it there. Otherwise the file is damaged, perhaps cut short while it was copied or "
                   "written. When reading or writing, the file is damaged or the disk full."},
    {"NC_EFILEMETA", "The description inside the file cannot be read or written: the file may be damaged."},
    {"NC_ECANTWRITE", "The file cannot be written: check its permissions and the space on the disk."},
    {"NC_ECANTREAD", "The file cannot be read: check its permissions; it may be damaged."},
    {"NC_ECANTCREATE", "The file cannot be created: check the folder and its permissions."},
    {"NC_ENOTBUILT", "The installed netCDF library was built without this feature."},
    {"NC_ENOMEM", "There is not enough memory: read or write a part at a time."},
    {"NC_ETRUNC", "The file is shorter than it says: it was cut short, or not closed by the program that wrote it."},

    // Define mode.
    {"NC_ENOTINDEFINE", "The file is in data mode, where definitions are not allowed: call gridio(\"redef\", ncid) first."},
    {"NC_EINDEFINE", "The file is in define mode, where data cannot be read or written: call gridio(\"endDef\", ncid) first."},
    {"NC_ELATEDEF", "A variable's storage settings and fill value are set right after \"defVar\", before the "
                    "definitions end and data are written."},
    {"NC_ELATEFILL", "A fill value is set right after \"defVar\", before the definitions end and data are written."},

    // Names and identifiers inside a file.
    {"NC_ENAMEINUSE", "A file or group has one dimension, variable, attribute or group of a name: choose another name, or "
                      "use the existing one (\"inqDimID\", \"inqVarID\" and \"inqNcid\" find it)."},
    {"NC_EBADNAME", "A name must not be empty, hold a slash, begin with a blank or a special character, or end with "
                    "a blank."},
    {"NC_EMAXNAME", "A name may have at most 256 bytes."},
    {"NC_ENOTVAR", "There is no such variable in this file or group: check the name, or the identifier. Identifiers "
                   "count from 0, and a group's variables are found through the group's own identifier."},
    {"NC_EBADDIM", "There is no such dimension in this file or group: check the name, or the identifier. Identifiers "
                   "count from 0."},
    {"NC_ENOTATT", "There is no such attribute: check its name and the variable; attributes of the file itself are "
                   "those of NC_GLOBAL (-1)."},
    {"NC_ENOGRP", "There is no such group: check the name. The file's root group has no parent."},
    {"NC_EBADTYPE", "That type is unknown, is not available in this file's format (the unsigned, 64-bit and string "
                    "types need netCDF-4), does not convert to the type asked for, or differs, for \"_FillValue\", "
                    "from its variable's."},
    {"NC_EBADTYPID", "There is no type of that number: see gridio(\"getConstantNames\") for those that exist."},
    {"NC_EUNLIMIT", "The classic formats allow one unlimited dimension: give this one a length, or create the file "
                    "with the mode \"netcdf4\"."},
    {"NC_EUNLIMPOS", "In the classic formats the unlimited dimension must be the slowest one: put it last in the list "
                     "of dimensions, which here runs from the fastest to the slowest."},
    {"NC_EDIMSIZE", "The length is larger than this file's format allows: create the file with the mode \"netcdf4\"."},
    {"NC_EVARSIZE", "The variable is larger than this file's format allows: create the file with the mode "
                    "\"64bit_offset\" or \"netcdf4\"."},
    {"NC_EGLOBAL", "NC_GLOBAL stands for the file itself, which is not a variable."},
    {"NC_ESTRICTNC3", "The file keeps to the classic model: groups, more than one unlimited dimension, and the "
                      "unsigned, 64-bit and string types need \"netcdf4\" without \"classic_model\"."},
    {"NC_ENOTNC4", "Groups, chunking, compression and checksums need a netCDF-4 file: create it with the mode "
                   "\"netcdf4\"."},
    {"NC_EBADCHUNK", "Chunk sizes go from 1 to the length of their dimension, fastest dimension first."},

    // Data.
    {"NC_EINVALCOORDS", "START, or what STRIDE leads to from there, lies past the end of a dimension. START is "
                        "zero-based: it goes from 0 to the length less 1. Its order is that of the array, fastest "
                        "dimension first, as \"inqVar\" lists them; ncdump lists them the other way round."},
    {"NC_EEDGE", "START, COUNT and STRIDE together reach past the end of a dimension. START is zero-based: the "
                 "first element is 0. The order of all three is that of the array, fastest dimension first, as "
                 "\"inqVar\" lists them; ncdump lists them the other way round."},
    {"NC_ESTRIDE", "Each element of STRIDE must be 1 or more."},
    {"NC_ERANGE", "Some values do not fit the type that they were converted to; the others were converted. Use an "
                  "operation of a wider type, or give the variable one."},
    {"NC_ECHAR", "Text and numbers are not converted into each other: text is read and written with the operations "
                 "that end in \"Text\", numbers with the others."},

    // Remote access.
    {"NC_EDAP", "The remote server's answer was not understood: check the address."},
    {"NC_ECURL", "The remote server was not reached: check the address and the network."},
    {"NC_EIO", "The remote server was not reached, or there is no such data set there: check the address and the "
               "network."},
    {"NC_EDAPSVC", "The remote server was not reached, or answered with an error: check the address, or try later."},
    {"NC_EDAPURL", "The file name is empty, or the address of the remote data set is malformed."},
    {"NC_EDAPCONSTRAINT", "The constraint at the end of the address is malformed, or names something that the data set does not have."},
    {"NC_ENODATA", "The remote data set has no data for this request."},
};
// clang-format on

} // namespace

const char* statusAdvice(const std::string& codeName)
{
    const auto found = std::find_if(std::begin(advice), std::end(advice),
                                    [&](const Advice& row) { return codeName == row.codeName; });
    return found == std::end(advice) ? nullptr : found->text;
}

} // namespace hosts::messages
