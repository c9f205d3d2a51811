// SPDX-License-Identifier: BSD-3-Clause
#include "tests/faults/operation_calls.h"

#include "open_file_registry.h"
#include "fuzz/nested_type.h"
#include "tests/faults/any_operation_calls.h"

#include <netcdf.h>

#include <cstdio>
#include <map>
#include <stdexcept>

namespace faults {

using standalone::Value;
namespace parameter = fuzz::parameter;

namespace {

void require(int status)
{
    if (status != NC_NOERR)
        throw std::runtime_error(std::string("preparing a file: ") + nc_strerror(status));
}

template <class T> Value counting(std::size_t count)
{
    std::vector<T> elements(count);
    for (std::size_t i = 0; i < count; ++i)
        elements[i] = static_cast<T>(i);
    return Value::column(elements);
}

Value data(vxClassID classId, std::size_t count)
{
    switch (classId) {
    case vxSINGLE_CLASS:
        return counting<float>(count);
    case vxINT8_CLASS:
        return counting<std::int8_t>(count);
    case vxUINT8_CLASS:
        return counting<std::uint8_t>(count);
    case vxINT16_CLASS:
        return counting<std::int16_t>(count);
    case vxUINT16_CLASS:
        return counting<std::uint16_t>(count);
    case vxINT32_CLASS:
        return counting<std::int32_t>(count);
    case vxUINT32_CLASS:
        return counting<std::uint32_t>(count);
    case vxINT64_CLASS:
        return counting<std::int64_t>(count);
    case vxUINT64_CLASS:
        return counting<std::uint64_t>(count);
    case vxCHAR_CLASS:
        return std::string(count, 'a');
    default:
        return counting<double>(count);
    }
}

bool startsWith(const std::string& text, const std::string& start)
{
    return text.compare(0, start.size(), start) == 0;
}

std::size_t dataCount(const std::string& operation)
{
    if (startsWith(operation, "putAtt"))
        return 2;
    return startsWith(operation, "putVar1") ? 1 : 6;
}

Value name(const std::string& operation, bool isText, std::size_t namesBefore)
{
    static const std::map<std::string, const char*> existing = {
        {"inqDimID", "x"}, {"inqVarID", "v"}, {"inqNcid", "g"}};
    const auto found = existing.find(operation);
    if (found != existing.end())
        return found->second;
    const bool isOfAttribute = operation.find("Att") != std::string::npos;
    if (!isOfAttribute || namesBefore > 0)
        return "new";
    return isText ? "title" : "range";
}

int setting(const std::string& operation)
{
    return operation == "setFill" || operation == "defVarChunking" ? 0 : 1;
}

} // namespace

PreparedFile::PreparedFile(const std::string& folder, fuzz::Function function) : folder_(folder)
{
    static const int yx[] = {1, 0};
    static const double range[] = {1, 2};
    int id = 0;
    require(nc_create((folder + "/other.nc").c_str(), NC_CLOBBER, &id));
    require(nc_close(id));
    static_cast<void>(std::remove((folder + "/new.nc").c_str()));

    static int number = 0; // a file that is still open cannot be created anew
    const std::string path = folder + "/file" + std::to_string(number++) + ".nc";
    require(nc_create(path.c_str(), NC_NETCDF4, &ncid_));
    Ovard::gridio::registerOpenFile(ncid_);
    require(nc_def_dim(ncid_, "x", 2, &id));
    require(nc_def_dim(ncid_, "y", 3, &id));
    require(nc_def_var(ncid_, "v", NC_DOUBLE, 2, yx, &id));
    require(nc_def_var_fill(ncid_, id, NC_FILL, range));
    require(nc_put_att_double(ncid_, id, "range", NC_DOUBLE, 2, range));
    require(nc_def_var(ncid_, "w", NC_CHAR, 2, yx, &id));
    require(nc_put_att_text(ncid_, id, "title", 2, "ab"));
    require(nc_def_grp(ncid_, "g", &group_));
    if (function == fuzz::Function::gridioAny)
        fuzz::addNestedType(ncid_);
}

std::vector<Value> argumentsThatSucceed(const fuzz::Operation& operation, const PreparedFile& file)
{
    if (operation.function == fuzz::Function::gridioAny)
        return anyArgumentsThatSucceed(operation, file);
    const bool isText = operation.dataClass == vxCHAR_CLASS;
    const bool isOpen = operation.name == "open" || operation.name == "pOpen";
    std::map<char, std::size_t> seen;
    std::vector<Value> arguments;
    for (const char kind : operation.parameters) {
        const std::size_t before = seen[kind]++;
        switch (kind) {
        case parameter::file:
            arguments.emplace_back(file.folder() + (isOpen ? "/other.nc" : "/new.nc"));
            break;
        case parameter::mode:
            arguments.emplace_back(isOpen ? "nowrite" : "clobber");
            break;
        case parameter::ncid:
            arguments.emplace_back(operation.name == "inqGrpParent" ? file.group() : file.ncid());
            break;
        case parameter::varid:
            arguments.emplace_back(isText || before > 0 ? 1 : 0);
            break;
        case parameter::dimid:
        case parameter::attributeNumber:
            arguments.emplace_back(0);
            break;
        case parameter::name:
            arguments.push_back(name(operation.name, isText, before));
            break;
        case parameter::externalType:
            arguments.emplace_back(NC_DOUBLE);
            break;
        case parameter::size:
            arguments.emplace_back(4096);
            break;
        case parameter::setting:
            arguments.emplace_back(setting(operation.name));
            break;
        case parameter::flag:
            arguments.emplace_back(operation.name != "defVarFill");
            break;
        case parameter::dimids:
            arguments.push_back(Value::row<double>({0, 1}));
            break;
        case parameter::start:
            arguments.push_back(Value::row<double>({0, 0}));
            break;
        case parameter::count:
        case parameter::chunkSizes:
            arguments.push_back(Value::row<double>({2, 3}));
            break;
        case parameter::stride:
            arguments.push_back(Value::row<double>({1, 1}));
            break;
        case parameter::data:
            arguments.push_back(data(operation.dataClass, dataCount(operation.name)));
            break;
        case parameter::fillValue:
            arguments.emplace_back(7);
            break;
        case parameter::preemption:
            arguments.push_back(Value::scalar<float>(0.75F));
            break;
        case parameter::constantName:
            arguments.emplace_back("NC_GLOBAL");
            break;
        default:
            throw std::logic_error("no argument for a parameter of kind " + std::string(1, kind));
        }
    }
    return arguments;
}

standalone::Outcome attempt(standalone::Host& host, const fuzz::Operation& operation,
                            const std::vector<Value>& arguments)
{
    return operation.function == fuzz::Function::gridio
               ? host.attempt(operation.name, arguments)
               : host.attemptAny(operation.name, arguments, 2);
}

} // namespace faults
