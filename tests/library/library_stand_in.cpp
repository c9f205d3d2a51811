// SPDX-License-Identifier: BSD-3-Clause
// The linker's --wrap sends calls of f to __wrap_f, and calls of __real_f to f. The functions are
// those that the library's headers declare (write_stand_ins.py).
#include "tests/library/library_stand_in.h"

#include <netcdf.h>
#include <netcdf_filter.h>

#include <tuple>

namespace testsupport {
namespace {

LibraryStandIn* current = nullptr;

template <class Call> int answer(const char* name, const Call& call)
{
    if (current == nullptr)
        return call();
    current->calls.emplace_back(name);
    if (current->calls.size() == current->failingCall)
        return current->status;
    const auto found = current->answers.find(name);
    return found == current->answers.end() ? call() : found->second;
}

// Replaces the value that argument number position points to, if it is not null, by a test's value.
template <std::size_t position, class T, class... Arguments>
void report(const std::optional<T>& value, const std::tuple<Arguments...>& arguments)
{
    auto* place = std::get<position>(arguments);
    if (value && place != nullptr)
        *place = *value;
}

void reportDeflate(const LibraryStandIn& library, int* shuffle, int* deflate, int* level)
{
    if (library.deflate) {
        *shuffle = library.deflate->at(0);
        *deflate = library.deflate->at(1);
        *level = library.deflate->at(2);
    }
}

// What happens after a call of that name that succeeded: nothing, except for the functions below.
template <class Name> struct After {
    template <class Arguments> static void apply(LibraryStandIn&, const Arguments&) {}
};

} // namespace

LibraryStandIn::LibraryStandIn() { current = this; }
LibraryStandIn::~LibraryStandIn() { current = nullptr; }

} // namespace testsupport

using testsupport::After;
using testsupport::answer;
using testsupport::current;
using testsupport::LibraryStandIn;
using testsupport::report;
using testsupport::reportDeflate;

#define AFTER(name, ...)                                                                           \
    struct Call_##name;                                                                            \
    namespace testsupport {                                                                        \
    namespace {                                                                                    \
    template <> struct After<Call_##name> {                                                        \
        template <class Arguments>                                                                 \
        static void apply(LibraryStandIn& library, const Arguments& arguments)                     \
        {                                                                                          \
            __VA_ARGS__;                                                                           \
        }                                                                                          \
    };                                                                                             \
    }                                                                                              \
    }

AFTER(nc_inq_format, report<1>(library.format, arguments))
AFTER(nc_inq_dimids, report<1>(library.idCount, arguments))
AFTER(nc_inq_unlimdims, report<1>(library.idCount, arguments))
AFTER(nc_inq_varids, report<1>(library.idCount, arguments))
AFTER(nc_inq_grps, report<1>(library.idCount, arguments))
AFTER(nc_inq_grpname_len, report<1>(library.groupPathLength, arguments))
AFTER(nc_inq_dim, report<3>(library.dimensionLength, arguments))
AFTER(nc_inq_dimlen, report<2>(library.dimensionLength, arguments))
AFTER(nc_inq_var, report<3>(library.externalType, arguments); report<4>(library.rank, arguments))
AFTER(nc_inq_vartype, report<2>(library.externalType, arguments))
AFTER(nc_inq_varndims, report<2>(library.rank, arguments))
AFTER(nc_inq_var_chunking, report<2>(library.storage, arguments))
AFTER(nc_inq_var_fletcher32, report<2>(library.checksum, arguments))
AFTER(nc_inq_var_deflate, reportDeflate(library, std::get<2>(arguments), std::get<3>(arguments),
                                        std::get<4>(arguments)))
AFTER(nc_inq_att, report<4>(library.attributeLength, arguments))

#undef AFTER

#define CALL(name, parameters, values)                                                             \
    struct Call_##name;                                                                            \
    extern "C" int __real_##name parameters;                                                       \
    extern "C" int __wrap_##name parameters                                                        \
    {                                                                                              \
        const int status = answer(#name, [&] { return __real_##name values; });                    \
        if (status == NC_NOERR && current != nullptr)                                              \
            After<Call_##name>::apply(*current, std::make_tuple values);                           \
        return status;                                                                             \
    }

#include "library_calls.inc"

#undef CALL

extern "C" {

int __real_nc_close(int ncid);
int __real_nc_def_var_fletcher32(int ncid, int varid, int setting);
const char* __real_nc_strerror(int status);

int __wrap_nc_close(int ncid)
{
    return answer("nc_close", [ncid] {
        if (current != nullptr)
            current->closed.push_back(ncid);
        if (current == nullptr || !current->closeStatus)
            return __real_nc_close(ncid);
        const auto found = current->closeStatus->find(ncid);
        return found == current->closeStatus->end() ? NC_NOERR : found->second;
    });
}

int __wrap_nc_def_var_fletcher32(int ncid, int varid, int setting)
{
    if (current != nullptr)
        current->checksumGiven = setting;
    return answer("nc_def_var_fletcher32",
                  [=] { return __real_nc_def_var_fletcher32(ncid, varid, setting); });
}

const char* __wrap_nc_strerror(int status)
{
    if (current == nullptr || current->statusTexts.count(status) == 0)
        return __real_nc_strerror(status);
    return current->statusTexts.at(status).c_str();
}

} // extern "C"
