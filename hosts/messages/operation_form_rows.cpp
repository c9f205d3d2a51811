// SPDX-License-Identifier: BSD-3-Clause
// Made by docs/make_operations.py from docs/operations/: edit there.
#include "hosts/messages/operation_forms.h"

#include <iterator>

namespace hosts::messages {

namespace {

// clang-format off
constexpr Parameter file{"file", "file", ParameterKind::text};
constexpr Parameter mode{"mode", "MODE", ParameterKind::mode};
constexpr Parameter chunksizehint{"chunksizehint", "chunksizehint", ParameterKind::size};
constexpr Parameter initialsize{"initialsize", "initialsize", ParameterKind::size};
constexpr Parameter chunksize{"chunksize", "chunksize", ParameterKind::size};
constexpr Parameter ncid{"ncid", "ncid", ParameterKind::integer};
constexpr Parameter hMinfree{"h_minfree", "h_minfree", ParameterKind::size};
constexpr Parameter vAlign{"v_align", "v_align", ParameterKind::size};
constexpr Parameter vMinfree{"v_minfree", "v_minfree", ParameterKind::size};
constexpr Parameter rAlign{"r_align", "r_align", ParameterKind::size};
constexpr Parameter newFillMode{"new_fill_mode", "new_fill_mode", ParameterKind::integer};
constexpr Parameter format{"format", "new default format", ParameterKind::integer};
constexpr Parameter includeParents{"include_parents", "include_parents flag", ParameterKind::flag};
constexpr Parameter groupName{"name", "group name", ParameterKind::text};
constexpr Parameter dimensionName{"name", "dimension", ParameterKind::text};
constexpr Parameter dimLength{"dim_length", "dim_length", ParameterKind::size};
constexpr Parameter dimid{"dimid", "dimid", ParameterKind::integer};
constexpr Parameter variableName{"name", "variable", ParameterKind::text};
constexpr Parameter xtype{"xtype", "xtype", ParameterKind::integer};
constexpr Parameter dimids{"dimids", "dimids", ParameterKind::row};
constexpr Parameter varid{"varid", "varid", ParameterKind::integer};
constexpr Parameter storage{"storage", "storage", ParameterKind::integer};
constexpr Parameter sizes{"sizes", "chunk dims", ParameterKind::row};
constexpr Parameter shuffle{"shuffle", "shuffle flag", ParameterKind::flag};
constexpr Parameter deflate{"deflate", "deflate flag", ParameterKind::flag};
constexpr Parameter level{"level", "deflate level", ParameterKind::integer};
constexpr Parameter setting{"setting", "checksum setting", ParameterKind::integer};
constexpr Parameter intNcid{"ncid", "NCID", ParameterKind::integer};
constexpr Parameter intVarid{"varid", "VARID", ParameterKind::integer};
constexpr Parameter noFill{"no_fill", "FILL FLAG", ParameterKind::flag};
constexpr Parameter value{"value", "FILLVALUE", ParameterKind::fillValue};
constexpr Parameter attributeName{"name", "attribute", ParameterKind::text};
constexpr Parameter attnum{"attnum", "attid", ParameterKind::integer};
constexpr Parameter newName{"new_name", "attribute", ParameterKind::text};
constexpr Parameter ncidOut{"ncid_out", "ncid", ParameterKind::integer};
constexpr Parameter varidOut{"varid_out", "varid", ParameterKind::integer};
constexpr Parameter values{"values", "values", ParameterKind::data};
constexpr Parameter text{"text", "text", ParameterKind::data};
constexpr Parameter start{"START", "START", ParameterKind::index};
constexpr Parameter count{"COUNT", "COUNT", ParameterKind::index};
constexpr Parameter stride{"STRIDE", "STRIDE", ParameterKind::stride};
constexpr Parameter dataValue{"value", "value", ParameterKind::data};
constexpr Parameter size{"size", "chunkSize", ParameterKind::size};
constexpr Parameter nelems{"nelems", "nelems", ParameterKind::size};
constexpr Parameter preemption{"preemption", "preemption", ParameterKind::rawSingle};
constexpr Parameter parameterName{"name", "parameter", ParameterKind::text};
constexpr Parameter valuesValues{"values", "values", ParameterKind::values};
constexpr Parameter valuesValue{"value", "value", ParameterKind::values};
constexpr Parameter typeXtype{"xtype", "xtype", ParameterKind::type};
constexpr Parameter typeName{"name", "type", ParameterKind::text};
constexpr Parameter otherNcid{"other_ncid", "ncid", ParameterKind::integer};
constexpr Parameter otherXtype{"other_xtype", "xtype", ParameterKind::type};
constexpr Parameter field{"field", "fieldid", ParameterKind::integer};
constexpr Parameter index{"index", "index", ParameterKind::integer};
constexpr Parameter int64Value{"value", "value", ParameterKind::integer64};
constexpr Parameter base{"base", "base", ParameterKind::type};
constexpr Parameter memberName{"name", "member", ParameterKind::text};
constexpr Parameter sizeSize{"size", "size", ParameterKind::size};
constexpr Parameter fieldName{"name", "field", ParameterKind::text};
constexpr Parameter offset{"offset", "offset", ParameterKind::size};
constexpr Parameter type{"type", "field type", ParameterKind::type};
constexpr Parameter dims{"dims", "field lengths", ParameterKind::numbers};
constexpr Parameter order{"order", "byte order", ParameterKind::word};
constexpr Parameter id{"id", "filter", ParameterKind::unsigned32};
constexpr Parameter parameters{"parameters", "filter parameters", ParameterKind::numbers};
constexpr Parameter wordMode{"mode", "quantize mode", ParameterKind::word};
constexpr Parameter nsd{"nsd", "nsd", ParameterKind::integer};
constexpr Parameter singlePreemption{"preemption", "preemption", ParameterKind::singleNumber};
constexpr Parameter flagNoFill{"no_fill", "no_fill flag", ParameterKind::flag};
constexpr Parameter wordStorage{"storage", "storage kind", ParameterKind::word};
constexpr Parameter numbersSizes{"sizes", "chunk sizes", ParameterKind::numbers};
constexpr Parameter path{"path", "group path", ParameterKind::text};

constexpr OperationForm forms[] = {
    {"open", "ncid", {file, mode}, 2, vxUNKNOWN_CLASS},
    {"create", "ncid", {file, mode}, 2, vxUNKNOWN_CLASS},
    {"pOpen", "[chunksizehint, ncid]", {file, mode, chunksizehint}, 3, vxUNKNOWN_CLASS},
    {"pCreate", "[chunksize, ncid]", {file, mode, initialsize, chunksize}, 4, vxUNKNOWN_CLASS},
    {"close", "", {ncid}, 1, vxUNKNOWN_CLASS},
    {"abort", "", {ncid}, 1, vxUNKNOWN_CLASS},
    {"sync", "", {ncid}, 1, vxUNKNOWN_CLASS},
    {"redef", "", {ncid}, 1, vxUNKNOWN_CLASS},
    {"endDef", "", {ncid}, 1, vxUNKNOWN_CLASS},
    {"pEndDef", "", {ncid, hMinfree, vAlign, vMinfree, rAlign}, 5, vxUNKNOWN_CLASS},
    {"setFill", "old_fill_mode", {ncid, newFillMode}, 2, vxUNKNOWN_CLASS},
    {"setDefaultFormat", "old_format", {format}, 1, vxUNKNOWN_CLASS},
    {"inq", "[ndims, nvars, ngatts, unlimdimid]", {ncid}, 1, vxUNKNOWN_CLASS},
    {"inqDimIDs", "dimids", {ncid, includeParents}, 2, vxUNKNOWN_CLASS},
    {"inqFormat", "format", {ncid}, 1, vxUNKNOWN_CLASS},
    {"inqLibVers", "version", {}, 0, vxUNKNOWN_CLASS},
    {"inqUnlimDims", "dimids", {ncid}, 1, vxUNKNOWN_CLASS},
    {"inqVarIDs", "varids", {ncid}, 1, vxUNKNOWN_CLASS},
    {"defGrp", "grpid", {ncid, groupName}, 2, vxUNKNOWN_CLASS},
    {"inqGrps", "grpids", {ncid}, 1, vxUNKNOWN_CLASS},
    {"inqGrpName", "name", {ncid}, 1, vxUNKNOWN_CLASS},
    {"inqGrpNameFull", "path", {ncid}, 1, vxUNKNOWN_CLASS},
    {"inqGrpParent", "parent", {ncid}, 1, vxUNKNOWN_CLASS},
    {"inqNcid", "grpid", {ncid, groupName}, 2, vxUNKNOWN_CLASS},
    {"defDim", "dimid", {ncid, dimensionName, dimLength}, 3, vxUNKNOWN_CLASS},
    {"inqDim", "[name, dim_length]", {ncid, dimid}, 2, vxUNKNOWN_CLASS},
    {"inqDimID", "dimid", {ncid, dimensionName}, 2, vxUNKNOWN_CLASS},
    {"renameDim", "", {ncid, dimid, dimensionName}, 3, vxUNKNOWN_CLASS},
    {"defVar", "varid", {ncid, variableName, xtype, dimids}, 4, vxUNKNOWN_CLASS},
    {"inqVar", "[name, xtype, dimids, natts]", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"inqVarID", "varid", {ncid, variableName}, 2, vxUNKNOWN_CLASS},
    {"renameVar", "", {ncid, varid, variableName}, 3, vxUNKNOWN_CLASS},
    {"defVarChunking", "", {ncid, varid, storage, sizes}, 4, vxUNKNOWN_CLASS},
    {"inqVarChunking", "[storage, sizes]", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"defVarDeflate", "", {ncid, varid, shuffle, deflate, level}, 5, vxUNKNOWN_CLASS},
    {"inqVarDeflate", "[shuffle, deflate, level]", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"defVarFletcher32", "", {ncid, varid, setting}, 3, vxUNKNOWN_CLASS},
    {"inqVarFletcher32", "checksum", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"defVarFill", "", {intNcid, intVarid, noFill, value}, 4, vxUNKNOWN_CLASS},
    {"inqVarFill", "[no_fill, value]", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"inqAtt", "[xtype, count]", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"inqAttID", "attnum", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"inqAttName", "name", {ncid, varid, attnum}, 3, vxUNKNOWN_CLASS},
    {"renameAtt", "", {ncid, varid, attributeName, newName}, 4, vxUNKNOWN_CLASS},
    {"delAtt", "", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"copyAtt", "", {ncid, varid, attributeName, ncidOut, varidOut}, 5, vxUNKNOWN_CLASS},
    {"getAttDouble", "values", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"getAttFloat", "values", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"getAttInt64", "values", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"getAttUint64", "values", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"getAttInt", "values", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"getAttUint", "values", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"getAttShort", "values", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"getAttUshort", "values", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"getAttSchar", "values", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"getAttUchar", "values", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"getAttUbyte", "values", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"getAttText", "text", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS},
    {"putAttDouble", "", {ncid, varid, attributeName, xtype, values}, 5, vxDOUBLE_CLASS},
    {"putAttFloat", "", {ncid, varid, attributeName, xtype, values}, 5, vxSINGLE_CLASS},
    {"putAttInt64", "", {ncid, varid, attributeName, xtype, values}, 5, vxINT64_CLASS},
    {"putAttUint64", "", {ncid, varid, attributeName, xtype, values}, 5, vxUINT64_CLASS},
    {"putAttInt", "", {ncid, varid, attributeName, xtype, values}, 5, vxINT32_CLASS},
    {"putAttUint", "", {ncid, varid, attributeName, xtype, values}, 5, vxUINT32_CLASS},
    {"putAttShort", "", {ncid, varid, attributeName, xtype, values}, 5, vxINT16_CLASS},
    {"putAttUshort", "", {ncid, varid, attributeName, xtype, values}, 5, vxUINT16_CLASS},
    {"putAttSchar", "", {ncid, varid, attributeName, xtype, values}, 5, vxINT8_CLASS},
    {"putAttUchar", "", {ncid, varid, attributeName, xtype, values}, 5, vxUINT8_CLASS},
    {"putAttUbyte", "", {ncid, varid, attributeName, xtype, values}, 5, vxUINT8_CLASS},
    {"putAttText", "", {ncid, varid, attributeName, text}, 4, vxCHAR_CLASS},
    {"getVarDouble", "values", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"getVarFloat", "values", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"getVarInt64", "values", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"getVarUint64", "values", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"getVarInt", "values", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"getVarUint", "values", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"getVarShort", "values", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"getVarUshort", "values", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"getVarSchar", "values", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"getVarUchar", "values", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"getVarText", "text", {ncid, varid}, 2, vxUNKNOWN_CLASS},
    {"putVarDouble", "", {ncid, varid, values}, 3, vxDOUBLE_CLASS},
    {"putVarFloat", "", {ncid, varid, values}, 3, vxSINGLE_CLASS},
    {"putVarInt64", "", {ncid, varid, values}, 3, vxINT64_CLASS},
    {"putVarUint64", "", {ncid, varid, values}, 3, vxUINT64_CLASS},
    {"putVarInt", "", {ncid, varid, values}, 3, vxINT32_CLASS},
    {"putVarUint", "", {ncid, varid, values}, 3, vxUINT32_CLASS},
    {"putVarShort", "", {ncid, varid, values}, 3, vxINT16_CLASS},
    {"putVarUshort", "", {ncid, varid, values}, 3, vxUINT16_CLASS},
    {"putVarSchar", "", {ncid, varid, values}, 3, vxINT8_CLASS},
    {"putVarUchar", "", {ncid, varid, values}, 3, vxUINT8_CLASS},
    {"putVarText", "", {ncid, varid, text}, 3, vxCHAR_CLASS},
    {"getVar1Double", "value", {ncid, varid, start}, 3, vxUNKNOWN_CLASS},
    {"getVar1Float", "value", {ncid, varid, start}, 3, vxUNKNOWN_CLASS},
    {"getVar1Int64", "value", {ncid, varid, start}, 3, vxUNKNOWN_CLASS},
    {"getVar1Uint64", "value", {ncid, varid, start}, 3, vxUNKNOWN_CLASS},
    {"getVar1Int", "value", {ncid, varid, start}, 3, vxUNKNOWN_CLASS},
    {"getVar1Uint", "value", {ncid, varid, start}, 3, vxUNKNOWN_CLASS},
    {"getVar1Short", "value", {ncid, varid, start}, 3, vxUNKNOWN_CLASS},
    {"getVar1Ushort", "value", {ncid, varid, start}, 3, vxUNKNOWN_CLASS},
    {"getVar1Schar", "value", {ncid, varid, start}, 3, vxUNKNOWN_CLASS},
    {"getVar1Uchar", "value", {ncid, varid, start}, 3, vxUNKNOWN_CLASS},
    {"getVaraDouble", "values", {ncid, varid, start, count}, 4, vxUNKNOWN_CLASS},
    {"getVaraFloat", "values", {ncid, varid, start, count}, 4, vxUNKNOWN_CLASS},
    {"getVaraInt64", "values", {ncid, varid, start, count}, 4, vxUNKNOWN_CLASS},
    {"getVaraUint64", "values", {ncid, varid, start, count}, 4, vxUNKNOWN_CLASS},
    {"getVaraInt", "values", {ncid, varid, start, count}, 4, vxUNKNOWN_CLASS},
    {"getVaraUint", "values", {ncid, varid, start, count}, 4, vxUNKNOWN_CLASS},
    {"getVaraShort", "values", {ncid, varid, start, count}, 4, vxUNKNOWN_CLASS},
    {"getVaraUshort", "values", {ncid, varid, start, count}, 4, vxUNKNOWN_CLASS},
    {"getVaraSchar", "values", {ncid, varid, start, count}, 4, vxUNKNOWN_CLASS},
    {"getVaraUchar", "values", {ncid, varid, start, count}, 4, vxUNKNOWN_CLASS},
    {"getVarsDouble", "values", {ncid, varid, start, count, stride}, 5, vxUNKNOWN_CLASS},
    {"getVarsFloat", "values", {ncid, varid, start, count, stride}, 5, vxUNKNOWN_CLASS},
    {"getVarsInt64", "values", {ncid, varid, start, count, stride}, 5, vxUNKNOWN_CLASS},
    {"getVarsUint64", "values", {ncid, varid, start, count, stride}, 5, vxUNKNOWN_CLASS},
    {"getVarsInt", "values", {ncid, varid, start, count, stride}, 5, vxUNKNOWN_CLASS},
    {"getVarsUint", "values", {ncid, varid, start, count, stride}, 5, vxUNKNOWN_CLASS},
    {"getVarsShort", "values", {ncid, varid, start, count, stride}, 5, vxUNKNOWN_CLASS},
    {"getVarsUshort", "values", {ncid, varid, start, count, stride}, 5, vxUNKNOWN_CLASS},
    {"getVarsSchar", "values", {ncid, varid, start, count, stride}, 5, vxUNKNOWN_CLASS},
    {"getVarsUchar", "values", {ncid, varid, start, count, stride}, 5, vxUNKNOWN_CLASS},
    {"getVar1Text", "text", {ncid, varid, start}, 3, vxUNKNOWN_CLASS},
    {"getVaraText", "text", {ncid, varid, start, count}, 4, vxUNKNOWN_CLASS},
    {"getVarsText", "text", {ncid, varid, start, count, stride}, 5, vxUNKNOWN_CLASS},
    {"putVar1Double", "", {ncid, varid, start, dataValue}, 4, vxDOUBLE_CLASS},
    {"putVar1Float", "", {ncid, varid, start, dataValue}, 4, vxSINGLE_CLASS},
    {"putVar1Int64", "", {ncid, varid, start, dataValue}, 4, vxINT64_CLASS},
    {"putVar1UInt64", "", {ncid, varid, start, dataValue}, 4, vxUINT64_CLASS},
    {"putVar1Int", "", {ncid, varid, start, dataValue}, 4, vxINT32_CLASS},
    {"putVar1UInt", "", {ncid, varid, start, dataValue}, 4, vxUINT32_CLASS},
    {"putVar1Short", "", {ncid, varid, start, dataValue}, 4, vxINT16_CLASS},
    {"putVar1Ushort", "", {ncid, varid, start, dataValue}, 4, vxUINT16_CLASS},
    {"putVar1Schar", "", {ncid, varid, start, dataValue}, 4, vxINT8_CLASS},
    {"putVar1Uchar", "", {ncid, varid, start, dataValue}, 4, vxUINT8_CLASS},
    {"putVaraDouble", "", {ncid, varid, start, count, values}, 5, vxDOUBLE_CLASS},
    {"putVaraFloat", "", {ncid, varid, start, count, values}, 5, vxSINGLE_CLASS},
    {"putVaraInt64", "", {ncid, varid, start, count, values}, 5, vxINT64_CLASS},
    {"putVaraUint64", "", {ncid, varid, start, count, values}, 5, vxUINT64_CLASS},
    {"putVaraInt", "", {ncid, varid, start, count, values}, 5, vxINT32_CLASS},
    {"putVaraUint", "", {ncid, varid, start, count, values}, 5, vxUINT32_CLASS},
    {"putVaraShort", "", {ncid, varid, start, count, values}, 5, vxINT16_CLASS},
    {"putVaraUshort", "", {ncid, varid, start, count, values}, 5, vxUINT16_CLASS},
    {"putVaraSchar", "", {ncid, varid, start, count, values}, 5, vxINT8_CLASS},
    {"putVaraUchar", "", {ncid, varid, start, count, values}, 5, vxUINT8_CLASS},
    {"putVarsDouble", "", {ncid, varid, start, count, stride, values}, 6, vxDOUBLE_CLASS},
    {"putVarsFloat", "", {ncid, varid, start, count, stride, values}, 6, vxSINGLE_CLASS},
    {"putVarsInt64", "", {ncid, varid, start, count, stride, values}, 6, vxINT64_CLASS},
    {"putVarsUint64", "", {ncid, varid, start, count, stride, values}, 6, vxUINT64_CLASS},
    {"putVarsInt", "", {ncid, varid, start, count, stride, values}, 6, vxINT32_CLASS},
    {"putVarsUint", "", {ncid, varid, start, count, stride, values}, 6, vxUINT32_CLASS},
    {"putVarsShort", "", {ncid, varid, start, count, stride, values}, 6, vxINT16_CLASS},
    {"putVarsUshort", "", {ncid, varid, start, count, stride, values}, 6, vxUINT16_CLASS},
    {"putVarsSchar", "", {ncid, varid, start, count, stride, values}, 6, vxINT8_CLASS},
    {"putVarsUchar", "", {ncid, varid, start, count, stride, values}, 6, vxUINT8_CLASS},
    {"putVar1Text", "", {ncid, varid, start, text}, 4, vxCHAR_CLASS},
    {"putVaraText", "", {ncid, varid, start, count, text}, 5, vxCHAR_CLASS},
    {"putVarsText", "", {ncid, varid, start, count, stride, text}, 6, vxCHAR_CLASS},
    {"setChunkCache", "", {size, nelems, preemption}, 3, vxUNKNOWN_CLASS},
    {"getChunkCache", "[size, nelems, preemption]", {}, 0, vxUNKNOWN_CLASS},
    {"parameter", "value", {parameterName}, 1, vxUNKNOWN_CLASS},
    {"getConstantNames", "names", {}, 0, vxUNKNOWN_CLASS},
    {"getVar", "[values, labels]", {ncid, varid}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"getVar1", "[value, labels]", {ncid, varid, start}, 3, vxUNKNOWN_CLASS, OperationTable::any},
    {"getVara", "[values, labels]", {ncid, varid, start, count}, 4, vxUNKNOWN_CLASS, OperationTable::any},
    {"getVars", "[values, labels]", {ncid, varid, start, count, stride}, 5, vxUNKNOWN_CLASS, OperationTable::any},
    {"putVar", "", {ncid, varid, valuesValues}, 3, vxUNKNOWN_CLASS, OperationTable::any},
    {"putVar1", "", {ncid, varid, start, valuesValue}, 4, vxUNKNOWN_CLASS, OperationTable::any},
    {"putVara", "", {ncid, varid, start, count, valuesValues}, 5, vxUNKNOWN_CLASS, OperationTable::any},
    {"putVars", "", {ncid, varid, start, count, stride, valuesValues}, 6, vxUNKNOWN_CLASS, OperationTable::any},
    {"getAtt", "[values, labels]", {ncid, varid, attributeName}, 3, vxUNKNOWN_CLASS, OperationTable::any},
    {"putAtt", "", {ncid, varid, attributeName, typeXtype, valuesValues}, 5, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqTypeIDs", "xtypes", {ncid}, 1, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqType", "[name, size]", {ncid, typeXtype}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqTypeID", "xtype", {ncid, typeName}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqTypeEqual", "equal", {ncid, typeXtype, otherNcid, otherXtype}, 4, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqUserType", "[name, size, base, nfields, class]", {ncid, typeXtype}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqCompound", "[name, size, nfields]", {ncid, typeXtype}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqCompoundField", "[name, at, type, dims]", {ncid, typeXtype, field}, 3, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqEnum", "[name, base, base_size, nmembers]", {ncid, typeXtype}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqEnumMember", "[name, value]", {ncid, typeXtype, index}, 3, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqEnumIdent", "name", {ncid, typeXtype, int64Value}, 3, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqVlen", "[name, datum_size, base]", {ncid, typeXtype}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqOpaque", "[name, size]", {ncid, typeXtype}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"defEnum", "xtype", {ncid, base, typeName}, 3, vxUNKNOWN_CLASS, OperationTable::any},
    {"insertEnum", "", {ncid, typeXtype, memberName, valuesValue}, 4, vxUNKNOWN_CLASS, OperationTable::any},
    {"defCompound", "xtype", {ncid, sizeSize, typeName}, 3, vxUNKNOWN_CLASS, OperationTable::any},
    {"insertCompound", "", {ncid, typeXtype, fieldName, offset, type}, 5, vxUNKNOWN_CLASS, OperationTable::any},
    {"insertArrayCompound", "", {ncid, typeXtype, fieldName, offset, type, dims}, 6, vxUNKNOWN_CLASS, OperationTable::any},
    {"defVlen", "xtype", {ncid, typeName, base}, 3, vxUNKNOWN_CLASS, OperationTable::any},
    {"defOpaque", "xtype", {ncid, sizeSize, typeName}, 3, vxUNKNOWN_CLASS, OperationTable::any},
    {"defVarEndian", "", {ncid, varid, order}, 3, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqVarEndian", "order", {ncid, varid}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"defVarFilter", "", {ncid, varid, id, parameters}, 4, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqVarFilters", "[ids, parameters]", {ncid, varid}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqFilterAvail", "available", {ncid, id}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqVarSzip", "[options, pixels]", {ncid, varid}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"defVarQuantize", "", {ncid, varid, wordMode, nsd}, 4, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqVarQuantize", "[mode, nsd]", {ncid, varid}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"setVarChunkCache", "", {ncid, varid, sizeSize, nelems, singlePreemption}, 5, vxUNKNOWN_CLASS, OperationTable::any},
    {"getVarChunkCache", "[size, nelems, preemption]", {ncid, varid}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"defVarFill", "", {ncid, varid, flagNoFill, valuesValue}, 4, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqVarFill", "[no_fill, value]", {ncid, varid}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"defVarChunking", "", {ncid, varid, wordStorage, numbersSizes}, 4, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqVarChunking", "[storage, sizes]", {ncid, varid}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqFormatExtended", "[model, mode]", {ncid}, 1, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqPath", "path", {ncid}, 1, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqGrpFullNcid", "grpid", {ncid, path}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"renameGrp", "", {ncid, groupName}, 2, vxUNKNOWN_CLASS, OperationTable::any},
    {"inqDimIDs", "[dimids, unlimited]", {ncid, includeParents}, 2, vxUNKNOWN_CLASS, OperationTable::any},
};
// clang-format on

} // namespace

const OperationForm* beginOperationForms() { return std::begin(forms); }
const OperationForm* endOperationForms() { return std::end(forms); }

} // namespace hosts::messages
