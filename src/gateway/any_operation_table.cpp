// SPDX-License-Identifier: BSD-3-Clause
#include "gateway/any_operation_table.h"

#include "gateway/row_search.h"

namespace Ovard::gridio {

// The handlers are defined in src/any.
namespace anyOperations {

HandlerFunction getVar, getVarSubset, putVar, putVarSubset, getAtt, putAtt;

HandlerFunction inqTypeIDs, inqType, inqTypeID, inqTypeEqual, inqUserType, inqCompound,
    inqCompoundField, inqEnum, inqEnumMember, inqEnumIdent, inqVlen, inqOpaque;

HandlerFunction defEnum, insertEnum, defCompound, insertCompound, insertArrayCompound, defVlen,
    defOpaque;

HandlerFunction defVarEndian, inqVarEndian, defVarFilter, inqVarFilters, inqFilterAvail, inqVarSzip,
    defVarQuantize, inqVarQuantize, setVarChunkCache, getVarChunkCache, defVarFill, inqVarFill;

HandlerFunction inqFormatExtended, inqPath, inqGrpFullNcid, renameGrp, inqDimIDs;

} // namespace anyOperations

namespace op = anyOperations;

// Every operation, with its arguments and results, under the conventions of the first table. A type
// is given by its number or by its name. Codes begin at 1001.

// clang-format off
constexpr OperationEntry rows[] = {
    // Values; of enumerations, a second result on demand: labels
    {1001, "getVar",              2, op::getVar},              // ncid, varid -> values (nc_get_vars)
    {1002, "getVar1",             3, op::getVarSubset},        // ncid, varid, START -> value (nc_get_vars)
    {1003, "getVara",             4, op::getVarSubset},        // ncid, varid, START, COUNT -> values (nc_get_vars)
    {1004, "getVars",             5, op::getVarSubset},        // ncid, varid, START, COUNT, STRIDE -> values (nc_get_vars)
    {1005, "putVar",              3, op::putVar},              // ncid, varid, values (nc_put_vars)
    {1006, "putVar1",             4, op::putVarSubset},        // ncid, varid, START, value (nc_put_vars)
    {1007, "putVara",             5, op::putVarSubset},        // ncid, varid, START, COUNT, values (nc_put_vars)
    {1008, "putVars",             6, op::putVarSubset},        // ncid, varid, START, COUNT, STRIDE, values (nc_put_vars)
    {1009, "getAtt",              3, op::getAtt},              // ncid, varid, name -> values (nc_get_att)
    {1010, "putAtt",              5, op::putAtt},              // ncid, varid, name, xtype, values (nc_put_att)

    // Types: inquiries
    {1011, "inqTypeIDs",          1, op::inqTypeIDs},          // ncid -> xtypes (nc_inq_typeids)
    {1012, "inqType",             2, op::inqType},             // ncid, xtype -> name, size (nc_inq_type)
    {1013, "inqTypeID",           2, op::inqTypeID},           // ncid, name -> xtype (nc_inq_typeid)
    {1014, "inqTypeEqual",        4, op::inqTypeEqual},        // ncid1, xtype1, ncid2, xtype2 -> flag (nc_inq_type_equal)
    {1015, "inqUserType",         2, op::inqUserType},         // ncid, xtype -> name, size, base, nfields, class (nc_inq_user_type)
    {1016, "inqCompound",         2, op::inqCompound},         // ncid, xtype -> name, size, nfields (nc_inq_compound)
    {1017, "inqCompoundField",    3, op::inqCompoundField},    // ncid, xtype, fieldid -> name, offset, xtype, lengths (nc_inq_compound_field)
    {1018, "inqEnum",             2, op::inqEnum},             // ncid, xtype -> name, base, size, number of members (nc_inq_enum)
    {1019, "inqEnumMember",       3, op::inqEnumMember},       // ncid, xtype, index -> name, value (nc_inq_enum_member)
    {1020, "inqEnumIdent",        3, op::inqEnumIdent},        // ncid, xtype, value -> name (nc_inq_enum_ident)
    {1021, "inqVlen",             2, op::inqVlen},             // ncid, xtype -> name, size, base (nc_inq_vlen)
    {1022, "inqOpaque",           2, op::inqOpaque},           // ncid, xtype -> name, size (nc_inq_opaque)

    // Types: definitions
    {1023, "defEnum",             3, op::defEnum},             // ncid, base, name -> xtype (nc_def_enum)
    {1024, "insertEnum",          4, op::insertEnum},          // ncid, xtype, name, value (nc_insert_enum)
    {1025, "defCompound",         3, op::defCompound},         // ncid, size, name -> xtype (nc_def_compound)
    {1026, "insertCompound",      5, op::insertCompound},      // ncid, xtype, name, offset, field type (nc_insert_compound)
    {1027, "insertArrayCompound", 6, op::insertArrayCompound}, // ncid, xtype, name, offset, field type, lengths (nc_insert_array_compound)
    {1028, "defVlen",             3, op::defVlen},             // ncid, name, base -> xtype (nc_def_vlen)
    {1029, "defOpaque",           3, op::defOpaque},           // ncid, size, name -> xtype (nc_def_opaque)

    // Storage settings and fill values
    {1030, "defVarEndian",        3, op::defVarEndian},        // ncid, varid, byte order (nc_def_var_endian)
    {1031, "inqVarEndian",        2, op::inqVarEndian},        // ncid, varid -> byte order (nc_inq_var_endian)
    {1032, "defVarFilter",        4, op::defVarFilter},        // ncid, varid, id, parameters (nc_def_var_filter)
    {1033, "inqVarFilters",       2, op::inqVarFilters},       // ncid, varid -> ids, parameters (nc_inq_var_filter_ids, nc_inq_var_filter_info)
    {1034, "inqFilterAvail",      2, op::inqFilterAvail},      // ncid, id -> flag (nc_inq_filter_avail)
    {1035, "inqVarSzip",          2, op::inqVarSzip},          // ncid, varid -> options, pixels per block (nc_inq_var_szip)
    {1036, "defVarQuantize",      4, op::defVarQuantize},      // ncid, varid, mode, digits (nc_def_var_quantize)
    {1037, "inqVarQuantize",      2, op::inqVarQuantize},      // ncid, varid -> mode, digits (nc_inq_var_quantize)
    {1038, "setVarChunkCache",    5, op::setVarChunkCache},    // ncid, varid, size in bytes, slots, preemption (nc_set_var_chunk_cache)
    {1039, "getVarChunkCache",    2, op::getVarChunkCache},    // ncid, varid -> size in bytes, slots, preemption (nc_get_var_chunk_cache)
    {1040, "defVarFill",          4, op::defVarFill},          // ncid, varid, no_fill flag, value (nc_def_var_fill)
    {1041, "inqVarFill",          2, op::inqVarFill},          // ncid, varid -> no_fill flag, value (nc_inq_var_fill)

    // Files, groups and dimensions
    {1042, "inqFormatExtended",   1, op::inqFormatExtended},   // ncid -> storage model, mode (nc_inq_format_extended)
    {1043, "inqPath",             1, op::inqPath},             // ncid -> path (nc_inq_path)
    {1044, "inqGrpFullNcid",      2, op::inqGrpFullNcid},      // ncid, path -> ncid of the group (nc_inq_grp_full_ncid)
    {1045, "renameGrp",           2, op::renameGrp},           // ncid of the group, name (nc_rename_grp)
    {1046, "inqDimIDs",           2, op::inqDimIDs},           // ncid, include_parents flag -> dimids, which of them are unlimited (nc_inq_dimids)
};
// clang-format on

namespace {

constexpr auto keys = keysOf(rows);

} // namespace

constexpr OperationRows anyOperationTable(rows);

const OperationEntry* findAnyOperation(const char* name, unsigned nargs)
{
    return findRow(rows, keys, name, nargs);
}

} // namespace Ovard::gridio
