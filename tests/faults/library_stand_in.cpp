// SPDX-License-Identifier: BSD-3-Clause
// The linker's --wrap sends the module's calls of f to __wrap_f, and calls of __real_f to f. The
// build reads the names of plain calls out of this file.
#include "tests/faults/library_stand_in.h"

#include <netcdf.h>

namespace faults {
namespace {

LibraryStandIn* current = nullptr;

// Puts what is to be told in place of the truth.
template <class T> void tell(std::optional<T> LibraryStandIn::*lie, T* truth)
{
    if (current != nullptr && current->*lie && truth != nullptr)
        *truth = *(current->*lie);
}

template <class Call> int answer(const char* name, const Call& call)
{
    if (current == nullptr)
        return call();
    current->calls.emplace_back(name);
    if (current->calls.size() == current->failingCall)
        return current->status;
    return call();
}

void noteClosed(int ncid)
{
    if (current != nullptr)
        current->closed.push_back(ncid);
}

} // namespace

LibraryStandIn::LibraryStandIn() { current = this; }
LibraryStandIn::~LibraryStandIn() { current = nullptr; }

} // namespace faults

using faults::answer;
using faults::LibraryStandIn;
using faults::noteClosed;
using faults::tell;

// A call whose answer is changed afterwards.
#define TOLD(name, parameters, arguments, change)                                                  \
    extern "C" int __real_##name parameters;                                                       \
    extern "C" int __wrap_##name parameters                                                        \
    {                                                                                              \
        const int status = answer(#name, [&] { return __real_##name arguments; });                 \
        if (status == NC_NOERR) {                                                                  \
            change;                                                                                \
        }                                                                                          \
        return status;                                                                             \
    }

#define CALL(name, parameters, arguments)                                                          \
    extern "C" int __real_##name parameters;                                                       \
    extern "C" int __wrap_##name parameters                                                        \
    {                                                                                              \
        return answer(#name, [&] { return __real_##name arguments; });                             \
    }

// clang-format off
CALL(nc_open, (const char* path, int mode, int* ncidp), (path, mode, ncidp))
CALL(nc__open, (const char* path, int mode, std::size_t* chunksizehintp, int* ncidp), (path, mode, chunksizehintp, ncidp))
CALL(nc_create, (const char* path, int cmode, int* ncidp), (path, cmode, ncidp))
CALL(nc__create, (const char* path, int cmode, std::size_t initialsz, std::size_t* chunksizehintp, int* ncidp), (path, cmode, initialsz, chunksizehintp, ncidp))
TOLD(nc_close, (int ncid), (ncid), noteClosed(ncid))
CALL(nc_abort, (int ncid), (ncid))
CALL(nc_sync, (int ncid), (ncid))
CALL(nc_redef, (int ncid), (ncid))
CALL(nc_enddef, (int ncid), (ncid))
CALL(nc__enddef, (int ncid, std::size_t h_minfree, std::size_t v_align, std::size_t v_minfree, std::size_t r_align), (ncid, h_minfree, v_align, v_minfree, r_align))
CALL(nc_set_fill, (int ncid, int fillmode, int* old_modep), (ncid, fillmode, old_modep))
CALL(nc_set_default_format, (int format, int* old_formatp), (format, old_formatp))
CALL(nc_set_chunk_cache, (std::size_t size, std::size_t nelems, float preemption), (size, nelems, preemption))
CALL(nc_get_chunk_cache, (std::size_t* sizep, std::size_t* nelemsp, float* preemptionp), (sizep, nelemsp, preemptionp))
CALL(nc_inq, (int ncid, int* ndimsp, int* nvarsp, int* nattsp, int* unlimdimidp), (ncid, ndimsp, nvarsp, nattsp, unlimdimidp))
CALL(nc_inq_format_extended, (int ncid, int* formatp, int* modep), (ncid, formatp, modep))
TOLD(nc_inq_format, (int ncid, int* formatp), (ncid, formatp), tell(&LibraryStandIn::format, formatp))
TOLD(nc_inq_dimids, (int ncid, int* ndims, int* dimids, int include_parents), (ncid, ndims, dimids, include_parents), tell(&LibraryStandIn::idCount, ndims))
TOLD(nc_inq_unlimdims, (int ncid, int* nunlimdimsp, int* unlimdimidsp), (ncid, nunlimdimsp, unlimdimidsp), tell(&LibraryStandIn::idCount, nunlimdimsp))
TOLD(nc_inq_varids, (int ncid, int* nvars, int* varids), (ncid, nvars, varids), tell(&LibraryStandIn::idCount, nvars))
CALL(nc_def_grp, (int parent_ncid, const char* name, int* new_ncid), (parent_ncid, name, new_ncid))
TOLD(nc_inq_grps, (int ncid, int* numgrps, int* ncids), (ncid, numgrps, ncids), tell(&LibraryStandIn::idCount, numgrps))
CALL(nc_inq_grpname, (int ncid, char* name), (ncid, name))
TOLD(nc_inq_grpname_len, (int ncid, std::size_t* lenp), (ncid, lenp), tell(&LibraryStandIn::groupPathLength, lenp))
CALL(nc_inq_grpname_full, (int ncid, std::size_t* lenp, char* full_name), (ncid, lenp, full_name))
CALL(nc_inq_grp_parent, (int ncid, int* parent_ncid), (ncid, parent_ncid))
CALL(nc_inq_ncid, (int ncid, const char* name, int* grp_ncid), (ncid, name, grp_ncid))
CALL(nc_def_dim, (int ncid, const char* name, std::size_t len, int* idp), (ncid, name, len, idp))
TOLD(nc_inq_dim, (int ncid, int dimid, char* name, std::size_t* lenp), (ncid, dimid, name, lenp), tell(&LibraryStandIn::dimensionLength, lenp))
CALL(nc_inq_dimid, (int ncid, const char* name, int* idp), (ncid, name, idp))
TOLD(nc_inq_dimlen, (int ncid, int dimid, std::size_t* lenp), (ncid, dimid, lenp), tell(&LibraryStandIn::dimensionLength, lenp))
CALL(nc_rename_dim, (int ncid, int dimid, const char* name), (ncid, dimid, name))
CALL(nc_def_var, (int ncid, const char* name, nc_type xtype, int ndims, const int* dimidsp, int* varidp), (ncid, name, xtype, ndims, dimidsp, varidp))
TOLD(nc_inq_var, (int ncid, int varid, char* name, nc_type* xtypep, int* ndimsp, int* dimidsp, int* nattsp), (ncid, varid, name, xtypep, ndimsp, dimidsp, nattsp), tell(&LibraryStandIn::externalType, xtypep); tell(&LibraryStandIn::rank, ndimsp))
CALL(nc_inq_varid, (int ncid, const char* name, int* varidp), (ncid, name, varidp))
TOLD(nc_inq_vartype, (int ncid, int varid, nc_type* xtypep), (ncid, varid, xtypep), tell(&LibraryStandIn::externalType, xtypep))
TOLD(nc_inq_varndims, (int ncid, int varid, int* ndimsp), (ncid, varid, ndimsp), tell(&LibraryStandIn::rank, ndimsp))
CALL(nc_inq_vardimid, (int ncid, int varid, int* dimidsp), (ncid, varid, dimidsp))
CALL(nc_rename_var, (int ncid, int varid, const char* name), (ncid, varid, name))
CALL(nc_def_var_chunking, (int ncid, int varid, int storage, const std::size_t* chunksizesp), (ncid, varid, storage, chunksizesp))
TOLD(nc_inq_var_chunking, (int ncid, int varid, int* storagep, std::size_t* chunksizesp), (ncid, varid, storagep, chunksizesp), tell(&LibraryStandIn::storage, storagep))
CALL(nc_def_var_deflate, (int ncid, int varid, int shuffle, int deflate, int deflate_level), (ncid, varid, shuffle, deflate, deflate_level))
CALL(nc_inq_var_deflate, (int ncid, int varid, int* shufflep, int* deflatep, int* deflate_levelp), (ncid, varid, shufflep, deflatep, deflate_levelp))
CALL(nc_def_var_fletcher32, (int ncid, int varid, int fletcher32), (ncid, varid, fletcher32))
TOLD(nc_inq_var_fletcher32, (int ncid, int varid, int* fletcher32p), (ncid, varid, fletcher32p), tell(&LibraryStandIn::checksum, fletcher32p))
CALL(nc_def_var_fill, (int ncid, int varid, int no_fill, const void* fill_value), (ncid, varid, no_fill, fill_value))
CALL(nc_inq_var_fill, (int ncid, int varid, int* no_fill, void* fill_valuep), (ncid, varid, no_fill, fill_valuep))
TOLD(nc_inq_att, (int ncid, int varid, const char* name, nc_type* xtypep, std::size_t* lenp), (ncid, varid, name, xtypep, lenp), tell(&LibraryStandIn::attributeLength, lenp))
CALL(nc_inq_attid, (int ncid, int varid, const char* name, int* idp), (ncid, varid, name, idp))
CALL(nc_inq_attname, (int ncid, int varid, int attnum, char* name), (ncid, varid, attnum, name))
CALL(nc_rename_att, (int ncid, int varid, const char* name, const char* newname), (ncid, varid, name, newname))
CALL(nc_del_att, (int ncid, int varid, const char* name), (ncid, varid, name))
CALL(nc_copy_att, (int ncid_in, int varid_in, const char* name, int ncid_out, int varid_out), (ncid_in, varid_in, name, ncid_out, varid_out))
// What messages ask besides.
CALL(nc_inq_path, (int ncid, std::size_t* pathlen, char* path), (ncid, pathlen, path))
CALL(nc_inq_unlimdim, (int ncid, int* unlimdimidp), (ncid, unlimdimidp))
CALL(nc_inq_nvars, (int ncid, int* nvarsp), (ncid, nvarsp))
CALL(nc_inq_natts, (int ncid, int* nattsp), (ncid, nattsp))
CALL(nc_inq_varnatts, (int ncid, int varid, int* nattsp), (ncid, varid, nattsp))
CALL(nc_inq_varname, (int ncid, int varid, char* name), (ncid, varid, name))
CALL(nc_inq_dimname, (int ncid, int dimid, char* name), (ncid, dimid, name))
CALL(nc_inq_atttype, (int ncid, int varid, const char* name, nc_type* xtypep), (ncid, varid, name, xtypep))
CALL(nc_inq_user_type, (int ncid, nc_type xtype, char* name, std::size_t* sizep, nc_type* basep, std::size_t* nfieldsp, int* classp), (ncid, xtype, name, sizep, basep, nfieldsp, classp))
CALL(nc_get_var1, (int ncid, int varid, const std::size_t* indexp, void* p), (ncid, varid, indexp, p))

#define TYPED(word, T) \
    CALL(nc_get_var_##word, (int ncid, int varid, T* p), (ncid, varid, p)) \
    CALL(nc_put_var_##word, (int ncid, int varid, const T* p), (ncid, varid, p)) \
    CALL(nc_get_vars_##word, (int ncid, int varid, const std::size_t* s, const std::size_t* c, const std::ptrdiff_t* k, T* p), (ncid, varid, s, c, k, p)) \
    CALL(nc_put_vars_##word, (int ncid, int varid, const std::size_t* s, const std::size_t* c, const std::ptrdiff_t* k, const T* p), (ncid, varid, s, c, k, p)) \
    CALL(nc_get_att_##word, (int ncid, int varid, const char* name, T* p), (ncid, varid, name, p))
#define NUMERIC(word, T) TYPED(word, T) \
    CALL(nc_put_att_##word, (int ncid, int varid, const char* name, nc_type x, std::size_t n, const T* p), (ncid, varid, name, x, n, p))

NUMERIC(double, double)
NUMERIC(float, float)
NUMERIC(longlong, long long)
NUMERIC(ulonglong, unsigned long long)
NUMERIC(int, int)
NUMERIC(uint, unsigned int)
NUMERIC(short, short)
NUMERIC(ushort, unsigned short)
NUMERIC(schar, signed char)
NUMERIC(uchar, unsigned char)
NUMERIC(ubyte, unsigned char)
TYPED(text, char)
CALL(nc_put_att_text, (int ncid, int varid, const char* name, std::size_t n, const char* p), (ncid, varid, name, n, p))
