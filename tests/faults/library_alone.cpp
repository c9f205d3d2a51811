// SPDX-License-Identifier: BSD-3-Clause
// Reproduces the library bugs of docs/limits.md without this project's code, each in its own
// process. Reports which of them occur; fails if one does not with a release that it was seen in,
// since its guard or warning may then be removed. With --list it only prints the guards and these
// releases.
#include <fcntl.h>
#include <hdf5.h>
#include <malloc.h>
#include <netcdf.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

extern "C" void* __libc_malloc(std::size_t);

namespace {

std::string file;

int create(int mode)
{
    int ncid = 0;
    nc_create(file.c_str(), mode, &ncid);
    return ncid;
}

// With dimensions x (2) and y (3), v (y, x), a scalar s and a global attribute; written.
int createNetcdf4()
{
    static const int yx[] = {1, 0};
    const int ncid = create(NC_NETCDF4);
    int id = 0;
    nc_put_att_text(ncid, NC_GLOBAL, "title", 4, "text");
    nc_def_dim(ncid, "x", 2, &id);
    nc_def_dim(ncid, "y", 3, &id);
    nc_def_var(ncid, "v", NC_DOUBLE, 2, yx, &id);
    nc_def_var(ncid, "s", NC_INT, 0, nullptr, &id);
    nc_enddef(ncid);
    return ncid;
}

void openAndClose()
{
    int ncid = 0;
    if (nc_open(file.c_str(), NC_NOWRITE, &ncid) == NC_NOERR)
        nc_close(ncid);
}

// A compound type, and its size where its fields are stored without a gap.
struct Pair {
    signed char c;
    double d;
};
constexpr std::size_t packedSize = 1 + sizeof(double);

// While `watched` is not 0, memory of that size has one byte more, which is marked.
constexpr unsigned char untouched = 7;
std::size_t watched = 0;
const unsigned char* behindWatched = nullptr;

// A bug occurs if its function does not return, or returns true.
struct Fault {
    const char* guard; // null: nothing can be done about it
    const char* name;
    bool (*shows)();
    const char* releases = "4.9.0, 4.9.3, 4.10.1";
};

const Fault faults[] = {
    {"unregistered_formats",
     "nc_create with the flag of a user-defined format that the program has not defined",
     [] {
         create(NC_UDF0);
         return false;
     },
     "4.9.0, 4.9.3"},
    {"files_in_memory", "nc_open with NC_INMEMORY",
     [] {
         nc_close(create(NC_CLOBBER));
         int ncid = 0;
         nc_open(file.c_str(), NC_INMEMORY, &ncid);
         return false;
     }},
    {"zero_alignments", "nc__enddef of a classic file with an alignment of 0",
     [] {
         const int ncid = create(NC_CLOBBER);
         int id = 0;
         nc_def_dim(ncid, "x", 3, &id);
         nc_def_var(ncid, "v", NC_INT, 1, &id, &id);
         nc__enddef(ncid, 0, 0, 0, 0);
         return false;
     }},
    {"unflushed_files",
     "any use of a classic file that nc_close could not bring out of define mode",
     [] {
         const int ncid = create(NC_CLOBBER);
         const int fill = 1;
         int id = 0;
         nc_def_dim(ncid, "x", 2, &id);
         nc_def_var(ncid, "v", NC_SHORT, 1, &id, &id);
         nc_put_att_int(ncid, id, "_FillValue", NC_INT, 1, &fill);
         nc_close(ncid);
         nc_close(ncid);
         return false;
     }},
    {"generated_attributes",
     "nc_get_att of an attribute that the library generates writes more than it reports",
     [] {
         const int ncid = createNetcdf4();
         std::size_t length = 0;
         nc_inq_attlen(ncid, NC_GLOBAL, "_IsNetcdf4", &length);
         signed char values[16];
         std::memset(values, 7, sizeof values);
         nc_get_att_schar(ncid, NC_GLOBAL, "_IsNetcdf4", values);
         return length == 1 && values[1] != 7;
     }},
    {"torn_down_files", "a second nc_close of a netCDF-4 file that could not be closed",
     [] {
         const int ncid = createNetcdf4();
         nc_rename_var(ncid, 0, "x");
         nc_close(ncid);
         nc_close(ncid);
         return false;
     }},
    {"renamed_scalars", "nc_rename_var of a scalar netCDF-4 variable to the name of a dimension",
     [] {
         nc_rename_var(createNetcdf4(), 1, "x");
         return false;
     }},
    {"missing_dimensions", "access to a netCDF-4 variable of which a dimension is missing",
     [] {
         const int first = createNetcdf4();
         nc_rename_var(first, 0, "x");
         nc_rename_var(first, 0, "other");
         int ncid = 0;
         nc_open(file.c_str(), NC_WRITE, &ncid);
         const std::size_t start[] = {0, 0};
         const std::size_t count[] = {1, 1};
         double value = 0;
         nc_get_vara_double(ncid, 0, start, count, &value);
         return false;
     }},
    {"partly_written_variables",
     "a strided read of a netCDF-4 variable with fewer records than there are",
     [] {
         const int ncid = create(NC_NETCDF4);
         int id = 0;
         nc_def_dim(ncid, "t", NC_UNLIMITED, &id);
         nc_def_var(ncid, "v", NC_INT, 1, &id, &id);
         nc_def_var(ncid, "w", NC_INT, 1, &id, &id);
         const std::size_t start[] = {0};
         const std::size_t four[] = {4};
         const std::size_t last[] = {6};
         const int written[] = {1, 2, 3, 4};
         nc_put_vara_int(ncid, 0, start, four, written);
         nc_put_var1_int(ncid, 1, last, written);
         const std::size_t three[] = {3};
         const std::ptrdiff_t step[] = {3};
         int read[] = {0, 0, 0};
         nc_get_vars_int(ncid, 0, start, three, step, read);
         return read[0] != 1 || read[1] != 4 || read[2] != NC_FILL_INT;
     },
     "4.9.0, 4.9.3"},
    {"partly_written_variables",
     "a read of a netCDF-4 variable whose second dimension grew past what was written of it",
     [] {
         const int ncid = create(NC_NETCDF4);
         int dimids[2] = {};
         int id = 0;
         nc_def_dim(ncid, "t", NC_UNLIMITED, &dimids[0]);
         nc_def_dim(ncid, "x", NC_UNLIMITED, &dimids[1]);
         nc_def_var(ncid, "v", NC_INT, 2, dimids, &id);
         nc_def_var(ncid, "w", NC_INT, 2, dimids, &id);
         const std::size_t start[] = {0, 0};
         const std::size_t square[] = {2, 2};
         const std::size_t last[] = {2, 2};
         const int written[] = {1, 2, 3, 4};
         nc_put_vara_int(ncid, 0, start, square, written);
         nc_put_var1_int(ncid, 1, last, written);
         int read[9] = {};
         nc_get_var_int(ncid, 0, read);
         const int fill = NC_FILL_INT;
         const int expected[] = {1, 2, fill, 3, 4, fill, fill, fill, fill};
         return std::memcmp(read, expected, sizeof expected) != 0;
     }},
    {"renamed_dimensions",
     "closing a netCDF-4 file of which a dimension was renamed before its variable was looked at",
     [] {
         nc_close(createNetcdf4());
         int ncid = 0;
         nc_open(file.c_str(), NC_WRITE, &ncid);
         nc_rename_dim(ncid, 0, "z");
         int ndims = 0;
         nc_inq_varndims(ncid, 0, &ndims);
         return nc_close(ncid) != NC_NOERR;
     }},
    {"emptied_files", "nc_create of a netCDF-4 file over one that is locked",
     [] {
         nc_close(createNetcdf4());
         const int other = open(file.c_str(), O_RDONLY);
         flock(other, LOCK_SH);
         create(NC_NETCDF4);
         return std::filesystem::file_size(file) == 0;
     }},
    {"full_tables", "nc_create of a netCDF-4 file with 65,535 files open",
     [] {
         const rlimit many = {70000, 70000};
         setrlimit(RLIMIT_NOFILE, &many);
         nc_close(create(NC_CLOBBER));
         int ncid = 0;
         while (nc_open(file.c_str(), NC_NOWRITE, &ncid) == NC_NOERR) {
         }
         if (ncid >> 16 < 0xFFFF)
             return true; // the system does not allow so many descriptors
         const std::string other = file + ".other";
         nc_create(other.c_str(), NC_NETCDF4, &ncid);
         return false;
     }},
    {"misread_paths", "nc_create of a path that begins with a blank",
     [] {
         const std::filesystem::path folder = std::filesystem::path(file).parent_path();
         std::filesystem::current_path(folder);
         int ncid = 0;
         nc_create(" blank.nc", NC_CLOBBER, &ncid);
         nc_close(ncid);
         const bool isOther = std::filesystem::exists(folder / "blank.nc");
         std::filesystem::remove(folder / "blank.nc");
         std::filesystem::remove(folder / " blank.nc");
         return isOther;
     }},
    {"misread_paths", "nc_create of a netCDF-4 file with a backslash in its path",
     [] {
         const std::filesystem::path folder = std::filesystem::path(file).parent_path();
         std::filesystem::create_directory(folder / "a");
         int ncid = 0;
         nc_create((folder / "a\\b.nc").c_str(), NC_NETCDF4, &ncid);
         nc_close(ncid);
         const bool isOther = std::filesystem::exists(folder / "a/b.nc");
         std::filesystem::remove_all(folder / "a");
         std::filesystem::remove(folder / "a\\b.nc");
         return isOther;
     }},
    {"blocking_files", "nc_open of a pipe without a writer",
     [] {
         mkfifo(file.c_str(), 0600);
         alarm(2);
         openAndClose();
         return false;
     }},
    {"endless_addresses", "nc_open of an address whose mode names zarr without the kind of store",
     [] {
         alarm(2);
         int ncid = 0;
         nc_open("file:///nowhere#mode=zarr", NC_NOWRITE, &ncid);
         return false;
     },
     "4.9.0"},
    {"replaced_folders",
     "nc_create at the address of a folder, which is made a Zarr store with nothing else in it",
     [] {
         const std::string folder = file + ".folder";
         const std::string other = folder + "/other";
         mkdir(folder.c_str(), 0700);
         std::ofstream(other) << "not of the store";
         int ncid = 0;
         nc_create(("file://" + folder + "#mode=zarr,file").c_str(), NC_NETCDF4, &ncid);
         nc_close(ncid);
         const bool isGone = !std::filesystem::exists(other);
         std::filesystem::remove_all(folder);
         return isGone;
     }},
    {"copied_provenance", "nc_copy_att of the attribute with the provenance of a netCDF-4 file",
     [] {
         nc_close(createNetcdf4());
         int from = 0;
         nc_open(file.c_str(), NC_NOWRITE, &from);
         std::size_t length = 0;
         nc_inq_attlen(from, NC_GLOBAL, "_NCProperties", &length);
         const std::string other = file + ".other";
         int to = 0;
         nc_create(other.c_str(), NC_CLOBBER, &to);
         watched = length;
         nc_copy_att(from, NC_GLOBAL, "_NCProperties", to, NC_GLOBAL);
         watched = 0;
         std::filesystem::remove(other);
         return behindWatched != nullptr && *behindWatched != untouched;
     }},
    {"fixed_length_strings",
     "nc_get_var_string of strings that another program stored with a fixed length",
     [] {
         const hid_t made = H5Fcreate(file.c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, H5P_DEFAULT);
         const hsize_t lengths[] = {3};
         const hid_t type = H5Tcopy(H5T_C_S1);
         H5Tset_size(type, 8);
         const hid_t space = H5Screate_simple(1, lengths, nullptr);
         const hid_t strings =
             H5Dcreate2(made, "v", type, space, H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
         H5Dwrite(strings, type, H5S_ALL, H5S_ALL, H5P_DEFAULT, "abcdefghABCDEFGH12345678");
         H5Dclose(strings);
         H5Fclose(made);
         // The library's memory is filled with bytes other than 0 before it is used.
         mallopt(M_PERTURB, 0x55);
         int ncid = 0;
         nc_open(file.c_str(), NC_NOWRITE, &ncid);
         char* read[3] = {};
         return nc_get_var_string(ncid, 0, read) == NC_NOERR &&
                (std::string(read[0]) != "abcdefgh" || std::string(read[2]) != "12345678");
     },
     "4.9.0"},
    {"foreign_layouts", "nc_put_var of a compound type that another program stored packed",
     [] {
         // The library writes to no file that does not record in which order it was made.
         const hid_t ordered = H5Pcreate(H5P_FILE_CREATE);
         H5Pset_link_creation_order(ordered, H5P_CRT_ORDER_TRACKED | H5P_CRT_ORDER_INDEXED);
         const hid_t made = H5Fcreate(file.c_str(), H5F_ACC_TRUNC, ordered, H5P_DEFAULT);
         const hid_t type = H5Tcreate(H5T_COMPOUND, packedSize);
         H5Tinsert(type, "c", 0, H5T_NATIVE_SCHAR);
         H5Tinsert(type, "d", 1, H5T_NATIVE_DOUBLE);
         H5Tcommit2(made, "pair", type, H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
         const hid_t space = H5Screate(H5S_SCALAR);
         H5Dclose(H5Dcreate2(made, "v", type, space, H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
         H5Tclose(type);
         H5Fclose(made);
         int ncid = 0;
         nc_open(file.c_str(), NC_WRITE, &ncid);
         Pair written = {};
         written.c = 1;
         written.d = 2.5;
         const int status = nc_put_var(ncid, 0, &written);
         Pair read = {};
         nc_get_var(ncid, 0, &read);
         return status == NC_NOERR && (read.c != 1 || read.d != 2.5);
     },
     "4.9.0, 4.9.3"},
    {"forked_files",
     "nc_close in a forked process of a classic file that its parent has written more to",
     [] {
         const int ncid = create(NC_CLOBBER);
         int id = 0;
         nc_def_dim(ncid, "t", NC_UNLIMITED, &id);
         nc_def_var(ncid, "v", NC_INT, 1, &id, &id);
         nc_enddef(ncid);
         const std::size_t records[] = {0, 1};
         const int value = 1;
         nc_put_var1_int(ncid, 0, &records[0], &value);
         int closed[2] = {};
         if (pipe(closed) != 0)
             return true;
         const pid_t child = fork();
         if (child == 0) {
             char done = 0;
             if (read(closed[0], &done, 1) == 1)
                 nc_close(ncid);
             _exit(0);
         }
         nc_put_var1_int(ncid, 0, &records[1], &value);
         nc_close(ncid);
         const bool isWritten = write(closed[1], "", 1) == 1;
         waitpid(child, nullptr, 0);
         int again = 0;
         nc_open(file.c_str(), NC_NOWRITE, &again);
         std::size_t length = 0;
         nc_inq_dimlen(again, 0, &length);
         return isWritten && length != 2;
     }},
    {"mismatched_fill_values",
     "nc_put_att of a _FillValue of another type, in a netCDF-4 file of the classic model",
     [] {
         const int ncid = create(NC_NETCDF4 | NC_CLASSIC_MODEL);
         int id = 0;
         nc_def_dim(ncid, "x", 2, &id);
         nc_def_var(ncid, "v", NC_SHORT, 1, &id, &id);
         const short fill = 1;
         nc_put_att_short(ncid, id, "_FillValue", NC_SHORT, 1, &fill);
         nc_put_att_short(ncid, id, "_FillValue", NC_INT, 1, &fill);
         return nc_close(ncid) != NC_NOERR;
     }},
    {"mistaken_compounds", "nc_inq_compound_field of a type that is not a compound type",
     [] {
         const int ncid = create(NC_NETCDF4);
         int type = 0;
         nc_def_vlen(ncid, "list", NC_INT, &type);
         char name[NC_MAX_NAME + 1] = {};
         std::size_t offset = 0;
         int fieldType = 0;
         int rank = 0;
         nc_inq_compound_field(ncid, type, 0, name, &offset, &fieldType, &rank, nullptr);
         return false;
     }},
    {"oversized_names", "nc_inq_dimname of a name that is longer than the library allows",
     [] {
         // CDF-1: no records, one dimension with a name of 300 characters, no attributes, no
         // variables.
         const std::string header = std::string("CDF\1\0\0\0\0\0\0\0\12\0\0\0\1\0\0\1\54", 20) +
                                    std::string(300, 'a') + std::string("\0\0\0\2", 4) +
                                    std::string(16, '\0');
         std::ofstream(file, std::ios::binary) << header;
         int ncid = 0;
         nc_open(file.c_str(), NC_NOWRITE, &ncid);
         char name[1000] = {};
         nc_inq_dimname(ncid, 0, name);
         return name[NC_MAX_NAME + 1] != '\0';
     },
     "4.9.0, 4.9.3"},
    {"oversized_ranks", "nc_get_var of a variable with more dimensions than the library allows",
     [] {
         // CDF-1: one dimension of length 1, and a variable that has it 2000 times.
         std::string header("CDF\1\0\0\0\0\0\0\0\12\0\0\0\1\0\0\0\1d\0\0\0\0\0\0\1\0\0\0\0\0\0\0\0",
                            36);
         header += std::string("\0\0\0\13\0\0\0\1\0\0\0\1v\0\0\0\0\0\7\320", 20) +
                   std::string(4 * 2000, '\0');
         header += std::string("\0\0\0\0\0\0\0\0\0\0\0\4\0\0\0\4\0\0\37\214", 20) +
                   std::string(1000, '\0');
         std::ofstream(file, std::ios::binary) << header;
         int ncid = 0;
         nc_open(file.c_str(), NC_NOWRITE, &ncid);
         int value = 0;
         nc_get_var_int(ncid, 0, &value);
         return false;
     },
     "4.9.0, 4.9.3"},
    {"unaligned_compounds",
     "nc_get_var of a packed compound type, in the file in which it was defined",
     [] {
         const int ncid = create(NC_NETCDF4);
         int id = 0;
         int type = 0;
         nc_def_compound(ncid, packedSize, "pair", &type);
         nc_insert_compound(ncid, type, "c", 0, NC_BYTE);
         nc_insert_compound(ncid, type, "d", 1, NC_DOUBLE);
         nc_def_var(ncid, "v", type, 0, nullptr, &id);
         unsigned char values[64] = {};
         nc_put_var(ncid, id, values);
         std::memset(values, untouched, sizeof values);
         nc_get_var(ncid, id, values);
         return values[packedSize] != untouched;
     }},
    {"unwritable_types", "a compound type with two fields of one name",
     [] {
         const int ncid = create(NC_NETCDF4);
         int type = 0;
         nc_def_compound(ncid, 8, "pair", &type);
         nc_insert_compound(ncid, type, "a", 0, NC_INT);
         const int status = nc_insert_compound(ncid, type, "a", 4, NC_INT);
         return status == NC_NOERR && nc_close(ncid) != NC_NOERR;
     }},
    {nullptr, "a variable of a group over a dimension of another group",
     [] {
         const int ncid = create(NC_NETCDF4);
         int groups[2] = {};
         nc_def_grp(ncid, "a", &groups[0]);
         nc_def_grp(ncid, "b", &groups[1]);
         int id = 0;
         nc_def_dim(groups[1], "x", 2, &id);
         int varid = 0;
         nc_def_var(groups[0], "v", NC_INT, 1, &id, &varid);
         return nc_close(ncid) != NC_NOERR;
     }},
    {nullptr, "writing to a big-endian variable of a file that was opened",
     [] {
         const int ncid = create(NC_NETCDF4);
         int id = 0;
         nc_def_var(ncid, "v", NC_INT, 0, nullptr, &id);
         nc_def_var_endian(ncid, id, NC_ENDIAN_BIG);
         nc_close(ncid);
         int again = 0;
         nc_open(file.c_str(), NC_WRITE, &again);
         const int written = 1;
         nc_put_var_int(again, 0, &written);
         nc_close(again);
         nc_open(file.c_str(), NC_NOWRITE, &again);
         int read = 0;
         nc_get_var_int(again, 0, &read);
         return read != 1;
     },
     "4.9.0, 4.9.3"},
    {nullptr, "a classic header that announces a name longer than can be",
     [] {
         // CDF-5: no records, no dimension, and one attribute with a name of -1 characters.
         const std::string header = std::string("CDF\5") + std::string(20, '\0') +
                                    std::string("\0\0\0\14\0\0\0\0\0\0\0\1", 12) +
                                    std::string(8, '\xff') + std::string(4000, 'a');
         std::ofstream(file, std::ios::binary) << header;
         openAndClose();
         return false;
     },
     "4.9.0, 4.9.3"},
    {nullptr, "a classic header with a variable of an unknown type",
     [] {
         const int ncid = create(NC_CLOBBER);
         int id = 0;
         nc_def_dim(ncid, "x", 3, &id);
         nc_def_var(ncid, "v", NC_INT, 1, &id, &id);
         nc_close(ncid);
         std::fstream made(file, std::ios::in | std::ios::out | std::ios::binary);
         made.seekp(68); // type of v: its name, rank, dimension and no attributes come before it
         made.write("\0\0\0\x0c", 4);
         made.close();
         openAndClose();
         return false;
     },
     "4.9.0, 4.9.3"},
    {nullptr, "the end of a process with a netCDF-4 file open that does not fit on the disk",
     [] {
         const int ncid = createNetcdf4();
         int id = 0;
         nc_def_dim(ncid, "z", 100000, &id);
         nc_def_var(ncid, "w", NC_DOUBLE, 1, &id, &id);
         const rlimit full = {20000, RLIM_INFINITY};
         setrlimit(RLIMIT_FSIZE, &full);
         const std::vector<double> values(100000);
         nc_put_var_double(ncid, id, values.data());
         nc_close(ncid);
         std::exit(0);
         return false;
     },
     "4.9.0"},
    {"misplaced_strings",
     "an attribute of a compound type with a string behind another field: crash",
     [] {
         struct Port {
             int depth;
             const char* name;
         };
         const int ncid = create(NC_NETCDF4);
         int type = 0;
         nc_def_compound(ncid, sizeof(Port), "port", &type);
         nc_insert_compound(ncid, type, "depth", offsetof(Port, depth), NC_INT);
         nc_insert_compound(ncid, type, "name", offsetof(Port, name), NC_STRING);
         const Port port = {7, "Bergen"};
         nc_put_att(ncid, NC_GLOBAL, "a", type, 1, &port);
         return false;
     },
     "4.9.3"},
    {"misplaced_strings", "an attribute of a compound type of two strings: the second one is lost",
     [] {
         const int ncid = create(NC_NETCDF4);
         int type = 0;
         nc_def_compound(ncid, sizeof(char* [2]), "pair", &type);
         nc_insert_compound(ncid, type, "first", 0, NC_STRING);
         nc_insert_compound(ncid, type, "second", sizeof(char*), NC_STRING);
         const char* texts[] = {"a", "b"};
         nc_put_att(ncid, NC_GLOBAL, "a", type, 1, texts);
         char* read[2] = {};
         nc_get_att(ncid, NC_GLOBAL, "a", read);
         return read[1] == nullptr || std::strcmp(read[1], "b") != 0;
     },
     "4.9.3"},
};

// In a child process; the library's own output is dropped.
bool shows(const Fault& fault)
{
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        alarm(20);
        std::freopen("/dev/null", "w", stderr);
        _exit(fault.shows() ? 1 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return !WIFEXITED(status) || WEXITSTATUS(status) != 0;
}

} // namespace

extern "C" void* malloc(std::size_t size) noexcept
{
    if (watched == 0 || size != watched)
        return __libc_malloc(size);
    auto* const memory = static_cast<unsigned char*>(__libc_malloc(size + 1));
    memory[size] = untouched;
    behindWatched = &memory[size];
    return memory;
}

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--list") == 0) {
        for (const Fault& fault : faults)
            std::printf("%s: %s\n", fault.guard == nullptr ? "-" : fault.guard, fault.releases);
        return 0;
    }
    char folder[] = "/tmp/gridio-library-XXXXXX";
    if (mkdtemp(folder) == nullptr)
        return 2;
    file = std::string(folder) + "/file.nc";
    const std::string library = nc_inq_libvers(); // "4.9.0 of Sep  3 2022 ..."
    const std::string release = library.substr(0, library.find(' '));
    int missing = 0;
    for (const Fault& fault : faults) {
        const bool isThere = shows(fault);
        const bool wasSeen =
            (std::string(fault.releases) + ",").find(release + ",") != std::string::npos;
        missing += !isThere && wasSeen ? 1 : 0;
        std::printf("%-14s %s\n", isThere ? "shows:" : "does not show:", fault.name);
        std::remove(file.c_str());
    }
    rmdir(folder);
    return missing > 0 ? 1 : 0;
}
