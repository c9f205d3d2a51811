// SPDX-License-Identifier: BSD-3-Clause
// Opens the input as a file and reads everything that its header declares.
#include "fuzz/session.h"

#include "fuzz/classic_header.h"
#include "fuzz/operation_signatures.h"
#include "fuzz/scratch_folder.h"

#include <netcdf.h>

#include <algorithm>
#include <cstdint>
#include <fstream>

namespace fuzz {
namespace {

using standalone::Outcome;
using standalone::Value;

constexpr int groupLimit = 8;
constexpr int variableLimit = 12;
constexpr int attributeLimit = 8;
constexpr int typeLimit = 16;

class Walk {
public:
    explicit Walk(Session& session) : session_(session) {}

    void group(int ncid)
    {
        if (--groupsLeft_ < 0)
            return;
        call("inq", {ncid});
        call("inqFormat", {ncid});
        call("inqUnlimDims", {ncid});
        call("inqGrpName", {ncid});
        call("inqGrpNameFull", {ncid});
        call("inqGrpParent", {ncid});
        for (const char* inquiry : {"inqPath", "inqFormatExtended"})
            session_.callAny(inquiry, {ncid});
        session_.callAny("inqDimIDs", {ncid, true});
        types(ncid);
        for (const int dimid : ids(call("inqDimIDs", {ncid, true})))
            dimension(ncid, dimid);
        attributes(ncid, NC_GLOBAL);
        for (const int varid : ids(call("inqVarIDs", {ncid}))) {
            if (--variablesLeft_ >= 0)
                variable(ncid, varid);
        }
        for (const int child : ids(call("inqGrps", {ncid})))
            group(child);
    }

private:
    Outcome call(const std::string& operation, const std::vector<Value>& arguments)
    {
        return session_.call(operation, arguments);
    }

    static std::vector<int> ids(const Outcome& outcome, std::size_t result = 0)
    {
        if (!outcome.succeeded())
            return {};
        const std::vector<double> row = outcome.results.at(result).elements<double>();
        return {row.begin(), row.end()};
    }

    // What is not of a type's kind is refused.
    void types(int ncid)
    {
        for (const int xtype : ids(session_.callAny("inqTypeIDs", {ncid}))) {
            if (--typesLeft_ < 0)
                return;
            for (const Operation& operation : operations()) {
                if (operation.name.compare(0, 3, "inq") == 0 && operation.parameters == "nT")
                    session_.call(operation, {ncid, xtype});
                else if (operation.name.compare(0, 3, "inq") == 0 && operation.parameters == "nTi")
                    session_.call(operation, {ncid, xtype, 0});
            }
        }
    }

    void dimension(int ncid, int dimid)
    {
        const Outcome outcome = call("inqDim", {ncid, dimid});
        if (outcome.succeeded())
            call("inqDimID", {ncid, outcome.results.at(0)});
    }

    void attributes(int ncid, int varid)
    {
        for (int attnum = 0; attnum < attributeLimit; ++attnum) {
            const Outcome outcome = call("inqAttName", {ncid, varid, attnum});
            if (!outcome.succeeded())
                return;
            const Value name = outcome.results.at(0);
            call("inqAtt", {ncid, varid, name});
            call("inqAttID", {ncid, varid, name});
            for (const Operation& operation : operations()) {
                if (operation.name.compare(0, 6, "getAtt") == 0)
                    session_.call(operation, {ncid, varid, name});
            }
        }
    }

    void variable(int ncid, int varid)
    {
        const Outcome outcome = call("inqVar", {ncid, varid});
        if (!outcome.succeeded())
            return;
        call("inqVarID", {ncid, outcome.results.at(0)});
        for (const char* inquiry : {"inqVarChunking", "inqVarDeflate", "inqVarFletcher32"})
            call(inquiry, {ncid, varid});
        attributes(ncid, varid);

        const std::size_t rank = ids(outcome, 2).size();
        const Value first = Value::row(std::vector<double>(std::max<std::size_t>(rank, 1), 0));
        const Value two = Value::row(std::vector<double>(std::max<std::size_t>(rank, 1), 2));
        const Value one = Value::row(std::vector<double>(std::max<std::size_t>(rank, 1), 1));
        for (const Operation& operation : operations()) {
            const bool readsVariable = operation.dataClass != vxUNKNOWN_CLASS ||
                                       operation.function == Function::gridioAny ||
                                       operation.name == "inqVarFill";
            if (operation.parameters == "nv" && readsVariable)
                session_.call(operation, {ncid, varid});
            else if (operation.parameters == "nvs")
                session_.call(operation, {ncid, varid, first});
            else if (operation.parameters == "nvsc")
                session_.call(operation, {ncid, varid, first, rank < 8 ? two : one});
            else if (operation.parameters == "nvsck")
                session_.call(operation, {ncid, varid, first, one, two});
        }
    }

    Session& session_;
    int groupsLeft_ = groupLimit;
    int variablesLeft_ = variableLimit;
    int typesLeft_ = typeLimit;
};

void run(const std::uint8_t* bytes, std::size_t count)
{
    const std::string path = scratchFolder() + "/a.nc";
    {
        std::ofstream file(path, std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(count));
    }
    Session session;
    const Outcome opened = session.call("open", {path, NC_NOWRITE});
    if (opened.succeeded())
        Walk(session).group(static_cast<int>(opened.results.at(0).toDouble()));
}

} // namespace
} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    if (!fuzz::isSurvivable(bytes, count))
        return -1; // nor kept by the fuzzer
    fuzz::run(bytes, count);
    return 0;
}
