// SPDX-License-Identifier: BSD-3-Clause
#include "gateway/dataset_operation_table.h"

#include "error_identifiers.h"

#include <cstring>

namespace Ovard::gridio {

// The handlers are defined in src/datasets.
namespace datasetOperations {

HandlerFunction session, describe, decoding, read, reduce, pack;

HandlerFunction scan, fileStates, readPart, reduceParts, closeParts;

HandlerFunction timesToDatenum, timesToParts, timesToText, partsToTimes, datenumToTimes,
    periodToTimes, timesToTimes;

} // namespace datasetOperations

namespace op = datasetOperations;

namespace {

// Codes begin at 2000.
// clang-format off
constexpr OperationEntry datasetOperationTable[] = {
    {2000, "session",        0, op::session},        // -> a number that is the same until the module is unloaded
    {2001, "describe",       1, op::describe},       // ncid -> structure
    {2002, "decoding",       3, op::decoding},       // ncid, varid, flags -> structure
    {2003, "read",           6, op::read},           // ncid, varid, START, COUNT, STRIDE, flags -> values
    {2004, "reduce",        10, op::reduce},         // kind, ncid, varid, START, COUNT, STRIDE, flags, which dimensions, bins, weights -> results, numbers of values
    {2005, "pack",           5, op::pack},           // values, type, scale, offset, fill value -> values as they are stored

    // Of many files; a dataset of many files is known by its number, the owner
    {2006, "scan",           2, op::scan},           // paths, structure -> structure of columns
    {2007, "fileStates",     1, op::fileStates},     // paths -> sizes, times of the last changes
    {2008, "readPart",       8, op::readPart},       // owner, path, name, lengths, START, COUNT, STRIDE, flags -> values
    {2009, "reduceParts",    8, op::reduceParts},    // kind, parts, START, COUNT, flags, which dimensions, bins, weights -> results, numbers of values, which file failed, why
    {2010, "closeParts",     1, op::closeParts},     // owner

    // A last argument says how months and years are taken (time_units.h): "refused" (the rule), "udunits", "calendar"
    {2011, "timesToDatenum", 3, op::timesToDatenum}, // values, units, calendar -> day numbers
    {2011, "timesToDatenum", 4, op::timesToDatenum},
    {2012, "timesToParts",   3, op::timesToParts},   // values, units, calendar -> [y m d h mi s]
    {2012, "timesToParts",   4, op::timesToParts},
    {2013, "timesToText",    3, op::timesToText},    // values, units, calendar -> texts, in a cell array
    {2013, "timesToText",    4, op::timesToText},
    {2014, "partsToTimes",   3, op::partsToTimes},   // [y m d h mi s], units, calendar -> values
    {2014, "partsToTimes",   4, op::partsToTimes},
    {2015, "datenumToTimes", 3, op::datenumToTimes}, // day numbers, units, calendar -> values
    {2015, "datenumToTimes", 4, op::datenumToTimes},
    {2016, "periodToTimes",  3, op::periodToTimes},  // text, units, calendar -> [begin end], flag
    {2016, "periodToTimes",  4, op::periodToTimes},
    {2017, "timesToTimes",   6, op::timesToTimes},   // values, units, calendar, units, calendar, long units -> values
};
// clang-format on

} // namespace

const OperationEntry* findDatasetOperation(const char* name, unsigned nargs)
{
    bool isKnown = false;
    for (const OperationEntry& entry : datasetOperationTable) {
        if (name == nullptr || std::strcmp(name, entry.name) != 0)
            continue;
        if (entry.nargs == nargs)
            return &entry;
        isKnown = true;
    }
    if (isKnown)
        vxErrMsgId(validate::wrongNumberOfInputs());
    vxErrMsgId(netcdf::unrecognizedOperation(name == nullptr ? "" : name));
}

} // namespace Ovard::gridio
