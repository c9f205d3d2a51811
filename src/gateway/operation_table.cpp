// SPDX-License-Identifier: BSD-3-Clause
#include "gateway/operation_table.h"

#include "gateway/row_search.h"

namespace Ovard::gridio {

// Each handler is defined in the folder of its subsystem.
namespace operations {

// Files and groups.
HandlerFunction open, create, pOpen, pCreate, close, abort, sync, redef, endDef, pEndDef, setFill,
    setDefaultFormat, setChunkCache, getChunkCache, inq, inqFormat, inqLibVers, inqUnlimDims,
    inqVarIDs, inqDimIDs, defGrp, inqGrps, inqGrpName, inqGrpNameFull, inqGrpParent, inqNcid;

// Definitions.
HandlerFunction defDim, inqDim, inqDimID, renameDim, defVar, inqVarID, inqVar, renameVar,
    defVarChunking, inqVarChunking, defVarDeflate, inqVarDeflate, defVarFletcher32,
    inqVarFletcher32, defVarFill, inqVarFill;

// Attributes.
HandlerFunction inqAtt, inqAttID, inqAttName, renameAtt, delAtt, copyAtt, getAtt, putAtt,
    putAttText;

// Data: one handler serves each family, and the row's code selects the element type.
HandlerFunction getVar, putVar, getVarSubset, putVarSubset;

// Constants.
HandlerFunction parameter, getConstantNames;

} // namespace operations

namespace op = operations;

// Every operation, with its arguments and results. Lists by dimension are in the host's order,
// fastest-varying first; lists of identifiers are 1-by-n rows in the library's order, 0-by-0 when
// empty. Positions count from 0. Values form one block and are never transposed.

// clang-format off
constexpr OperationEntry rows[] = {
    // Files: life cycle
    {  0, "abort",             1, op::abort},            // ncid (nc_abort)
    {  1, "close",             1, op::close},            // ncid (nc_close)
    {  3, "pCreate",           4, op::pCreate},          // file, mode, initialsize and chunksize in bytes -> chunk size, ncid (nc__create)
    {  4, "create",            2, op::create},           // file, mode -> ncid (nc_create)
    { 14, "endDef",            1, op::endDef},           // ncid (nc_enddef)
    { 13, "pEndDef",           5, op::pEndDef},          // ncid, h_minfree, v_align, v_minfree, r_align in bytes (nc__enddef)
    { 75, "pOpen",             3, op::pOpen},            // file, mode, chunksizehint in bytes -> chunk size hint, ncid (nc__open)
    { 76, "open",              2, op::open},             // file, mode -> ncid (nc_open)
    {111, "redef",             1, op::redef},            // ncid (nc_redef)
    {115, "setDefaultFormat",  1, op::setDefaultFormat}, // new default format -> old one (nc_set_default_format)
    {116, "setFill",           2, op::setFill},          // ncid, new fill mode -> old one (nc_set_fill)
    {118, "sync",              1, op::sync},             // ncid (nc_sync)

    // Chunk cache
    {119, "setChunkCache",     3, op::setChunkCache},    // size in bytes, slots, preemption as raw single (nc_set_chunk_cache)
    {120, "getChunkCache",     0, op::getChunkCache},    // -> size in bytes, slots, preemption (nc_get_chunk_cache)

    // Files: inquiries
    { 49, "inq",               1, op::inq},              // ncid -> ndims, nvars, ngatts, unlimdimid or -1 (nc_inq)
    { 55, "inqDimIDs",         2, op::inqDimIDs},        // ncid, include_parents flag -> dimids (nc_inq_dimids)
    { 58, "inqFormat",         1, op::inqFormat},        // ncid -> "FORMAT_CLASSIC", ... (nc_inq_format)
    { 63, "inqLibVers",        0, op::inqLibVers},       // -> version text (nc_inq_libvers)
    { 65, "inqUnlimDims",      1, op::inqUnlimDims},     // ncid -> dimids (nc_inq_unlimdims)
    { 67, "inqVarIDs",         1, op::inqVarIDs},        // ncid -> varids (nc_inq_varids)
    // Never reached, deliberately: the look-up stops at the first row of a name.
    { 55, "inqDimIDs",         1, op::inqDimIDs},

    // Groups
    {  6, "defGrp",            2, op::defGrp},           // ncid, name -> ncid of the group (nc_def_grp)
    { 59, "inqGrpName",        1, op::inqGrpName},       // ncid -> the group's own name (nc_inq_grpname)
    { 60, "inqGrpNameFull",    1, op::inqGrpNameFull},   // ncid -> the path from the root (nc_inq_grpname_full)
    { 61, "inqGrps",           1, op::inqGrps},          // ncid -> ncids of the child groups (nc_inq_grps)
    { 62, "inqGrpParent",      1, op::inqGrpParent},     // ncid -> ncid of the parent group (nc_inq_grp_parent)
    { 64, "inqNcid",           2, op::inqNcid},          // ncid, name -> ncid of that child group (nc_inq_ncid)

    // Dimensions
    {  5, "defDim",            3, op::defDim},           // ncid, name, length (0: unlimited) -> dimid (nc_def_dim)
    { 53, "inqDim",            2, op::inqDim},           // ncid, dimid -> name, length (nc_inq_dim)
    { 54, "inqDimID",          2, op::inqDimID},         // ncid, name -> dimid (nc_inq_dimid)
    {113, "renameDim",         3, op::renameDim},        // ncid, dimid, new name (nc_rename_dim)

    // Variables
    {  7, "defVar",            4, op::defVar},           // ncid, name, xtype, dimids -> varid (nc_def_var)
    { 66, "inqVarID",          2, op::inqVarID},         // ncid, name -> varid (nc_inq_varid)
    { 68, "inqVar",            2, op::inqVar},           // ncid, varid -> name, xtype, dimids (0-by-0 for a scalar), natts (nc_inq_var)
    {114, "renameVar",         3, op::renameVar},        // ncid, varid, new name (nc_rename_var)

    // Storage settings
    {  8, "defVarChunking",    4, op::defVarChunking},   // ncid, varid, storage, chunk sizes (nc_def_var_chunking)
    {  9, "defVarDeflate",     5, op::defVarDeflate},    // ncid, varid, shuffle, deflate, level (nc_def_var_deflate)
    { 11, "defVarFletcher32",  3, op::defVarFletcher32}, // ncid, varid, setting (nc_def_var_fletcher32)
    { 69, "inqVarChunking",    2, op::inqVarChunking},   // ncid, varid -> "chunked" or "contiguous", chunk sizes (nc_inq_var_chunking)
    { 70, "inqVarDeflate",     2, op::inqVarDeflate},    // ncid, varid -> shuffle, deflate, level (nc_inq_var_deflate)
    { 74, "inqVarFletcher32",  2, op::inqVarFletcher32}, // ncid, varid -> "NOCHECKSUM" or "FLETCHER32" (nc_inq_var_fletcher32)

    // Fill values
    { 10, "defVarFill",        4, op::defVarFill},       // NCID, VARID, FILL FLAG (true: no filling), value (nc_def_var_fill)
    { 73, "inqVarFill",        2, op::inqVarFill},       // ncid, varid -> no-fill flag, value in the variable's class (nc_inq_var_fill)

    // Attribute catalogue
    {  2, "copyAtt",           5, op::copyAtt},          // ncid, varid, name, destination ncid, varid (nc_copy_att)
    { 12, "delAtt",            3, op::delAtt},           // ncid, varid, name (nc_del_att)
    { 50, "inqAtt",            3, op::inqAtt},           // ncid, varid, name -> xtype, number of values (nc_inq_att)
    { 51, "inqAttID",          3, op::inqAttID},         // ncid, varid, name -> attribute number (nc_inq_attid)
    { 52, "inqAttName",        3, op::inqAttName},       // ncid, varid, attribute number -> name (nc_inq_attname)
    {112, "renameAtt",         4, op::renameAtt},        // ncid, varid, old name, new name (nc_rename_att)

    // Attribute reads: ncid, varid, name -> 1-by-n row, 0-by-0 of none; text up to its first NUL (nc_get_att_double, ...)
    { 15, "getAttDouble",      3, op::getAtt},
    { 16, "getAttFloat",       3, op::getAtt},
    { 17, "getAttInt64",       3, op::getAtt},
    { 18, "getAttUint64",      3, op::getAtt},
    { 19, "getAttInt",         3, op::getAtt},
    { 20, "getAttUint",        3, op::getAtt},
    { 21, "getAttShort",       3, op::getAtt},
    { 22, "getAttUshort",      3, op::getAtt},
    { 23, "getAttSchar",       3, op::getAtt},
    { 24, "getAttUchar",       3, op::getAtt},
    { 25, "getAttUbyte",       3, op::getAtt},
    { 26, "getAttText",        3, op::getAtt},

    // Attribute writes: ncid, varid, name, xtype, values (nc_put_att_double, ...); text without xtype
    { 77, "putAttDouble",      5, op::putAtt},
    { 78, "putAttFloat",       5, op::putAtt},
    { 79, "putAttInt64",       5, op::putAtt},
    { 80, "putAttUint64",      5, op::putAtt},
    { 81, "putAttInt",         5, op::putAtt},
    { 82, "putAttUint",        5, op::putAtt},
    { 83, "putAttShort",       5, op::putAtt},
    { 84, "putAttUshort",      5, op::putAtt},
    { 85, "putAttSchar",       5, op::putAtt},
    { 86, "putAttUchar",       5, op::putAtt},
    { 87, "putAttUbyte",       5, op::putAtt},
    { 88, "putAttText",        4, op::putAttText},

    // Whole-variable reads: ncid, varid -> values, at least two dimensions (nc_get_var_double, ...)
    { 27, "getVarDouble",      2, op::getVar},
    { 28, "getVarFloat",       2, op::getVar},
    { 29, "getVarInt64",       2, op::getVar},
    { 30, "getVarUint64",      2, op::getVar},
    { 31, "getVarInt",         2, op::getVar},
    { 32, "getVarUint",        2, op::getVar},
    { 33, "getVarShort",       2, op::getVar},
    { 34, "getVarUshort",      2, op::getVar},
    { 35, "getVarSchar",       2, op::getVar},
    { 36, "getVarUchar",       2, op::getVar},
    { 37, "getVarText",        2, op::getVar},

    // Whole-variable writes: ncid, varid, values of any shape with as many elements (nc_put_var_double, ...)
    { 89, "putVarDouble",      3, op::putVar},
    { 90, "putVarFloat",       3, op::putVar},
    { 91, "putVarInt64",       3, op::putVar},
    { 92, "putVarUint64",      3, op::putVar},
    { 93, "putVarInt",         3, op::putVar},
    { 94, "putVarUint",        3, op::putVar},
    { 95, "putVarShort",       3, op::putVar},
    { 96, "putVarUshort",      3, op::putVar},
    { 97, "putVarSchar",       3, op::putVar},
    { 98, "putVarUchar",       3, op::putVar},
    { 99, "putVarText",        3, op::putVar},

    // Subset reads: ncid, varid, START[, COUNT[, STRIDE]] -> values shaped as COUNT (nc_get_vars_double, ...)
    { 38, "getVar1Double",     3, op::getVarSubset},
    { 38, "getVaraDouble",     4, op::getVarSubset},
    { 38, "getVarsDouble",     5, op::getVarSubset},
    { 39, "getVar1Float",      3, op::getVarSubset},
    { 39, "getVaraFloat",      4, op::getVarSubset},
    { 39, "getVarsFloat",      5, op::getVarSubset},
    { 40, "getVar1Int64",      3, op::getVarSubset},
    { 40, "getVaraInt64",      4, op::getVarSubset},
    { 40, "getVarsInt64",      5, op::getVarSubset},
    { 41, "getVar1Uint64",     3, op::getVarSubset},
    { 41, "getVaraUint64",     4, op::getVarSubset},
    { 41, "getVarsUint64",     5, op::getVarSubset},
    { 42, "getVar1Int",        3, op::getVarSubset},
    { 42, "getVaraInt",        4, op::getVarSubset},
    { 42, "getVarsInt",        5, op::getVarSubset},
    { 43, "getVar1Uint",       3, op::getVarSubset},
    { 43, "getVaraUint",       4, op::getVarSubset},
    { 43, "getVarsUint",       5, op::getVarSubset},
    { 44, "getVar1Short",      3, op::getVarSubset},
    { 44, "getVaraShort",      4, op::getVarSubset},
    { 44, "getVarsShort",      5, op::getVarSubset},
    { 45, "getVar1Ushort",     3, op::getVarSubset},
    { 45, "getVaraUshort",     4, op::getVarSubset},
    { 45, "getVarsUshort",     5, op::getVarSubset},
    { 46, "getVar1Schar",      3, op::getVarSubset},
    { 46, "getVaraSchar",      4, op::getVarSubset},
    { 46, "getVarsSchar",      5, op::getVarSubset},
    { 47, "getVar1Uchar",      3, op::getVarSubset},
    { 47, "getVaraUchar",      4, op::getVarSubset},
    { 47, "getVarsUchar",      5, op::getVarSubset},
    { 48, "getVar1Text",       3, op::getVarSubset},
    { 48, "getVaraText",       4, op::getVarSubset},
    { 48, "getVarsText",       5, op::getVarSubset},

    // Subset writes: ncid, varid, START[, COUNT[, STRIDE]], values; they append along an unlimited dimension
    // (nc_put_vars_double, ...). Two single-element names have a capital I, deliberately.
    {100, "putVar1Double",     4, op::putVarSubset},
    {100, "putVaraDouble",     5, op::putVarSubset},
    {100, "putVarsDouble",     6, op::putVarSubset},
    {101, "putVar1Float",      4, op::putVarSubset},
    {101, "putVaraFloat",      5, op::putVarSubset},
    {101, "putVarsFloat",      6, op::putVarSubset},
    {102, "putVar1Int64",      4, op::putVarSubset},
    {102, "putVaraInt64",      5, op::putVarSubset},
    {102, "putVarsInt64",      6, op::putVarSubset},
    {103, "putVar1UInt64",     4, op::putVarSubset},
    {103, "putVaraUint64",     5, op::putVarSubset},
    {103, "putVarsUint64",     6, op::putVarSubset},
    {104, "putVar1Int",        4, op::putVarSubset},
    {104, "putVaraInt",        5, op::putVarSubset},
    {104, "putVarsInt",        6, op::putVarSubset},
    {105, "putVar1UInt",       4, op::putVarSubset},
    {105, "putVaraUint",       5, op::putVarSubset},
    {105, "putVarsUint",       6, op::putVarSubset},
    {106, "putVar1Short",      4, op::putVarSubset},
    {106, "putVaraShort",      5, op::putVarSubset},
    {106, "putVarsShort",      6, op::putVarSubset},
    {107, "putVar1Ushort",     4, op::putVarSubset},
    {107, "putVaraUshort",     5, op::putVarSubset},
    {107, "putVarsUshort",     6, op::putVarSubset},
    {108, "putVar1Schar",      4, op::putVarSubset},
    {108, "putVaraSchar",      5, op::putVarSubset},
    {108, "putVarsSchar",      6, op::putVarSubset},
    {109, "putVar1Uchar",      4, op::putVarSubset},
    {109, "putVaraUchar",      5, op::putVarSubset},
    {109, "putVarsUchar",      6, op::putVarSubset},
    {110, "putVar1Text",       4, op::putVarSubset},
    {110, "putVaraText",       5, op::putVarSubset},
    {110, "putVarsText",       6, op::putVarSubset},

    // Named constants
    {122, "parameter",         1, op::parameter},        // name, in any case, with or without "NC_" -> its value
    {121, "getConstantNames",  0, op::getConstantNames}, // -> every name with its prefix, a 114-by-1 cell array
};
// clang-format on

namespace {

constexpr auto keys = keysOf(rows);

} // namespace

constexpr OperationRows operationTable(rows);

const OperationEntry* findOperation(const char* name, unsigned nargs)
{
    return findRow(rows, keys, name, nargs);
}

} // namespace Ovard::gridio
