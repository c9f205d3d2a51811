// SPDX-License-Identifier: BSD-3-Clause
// Operations that define and describe dimensions and variables. Lists by dimension are in the
// host's order, fastest-varying first: reversed on their way into the library and on their way out.
#pragma once

#include "operation_entry.h"

namespace Ovard::gridio::operations {

// Dimensions.
HandlerFunction defDim;    // ncid, name, length (0: unlimited) -> dimid (nc_def_dim)
HandlerFunction inqDim;    // ncid, dimid -> name, length (nc_inq_dim)
HandlerFunction inqDimID;  // ncid, name -> dimid (nc_inq_dimid)
HandlerFunction renameDim; // ncid, dimid, new name (nc_rename_dim)

// Variables.
HandlerFunction defVar;   // ncid, name, xtype, dimids -> varid (nc_def_var)
HandlerFunction inqVarID; // ncid, name -> varid (nc_inq_varid)
HandlerFunction
    inqVar; // ncid, varid -> name, xtype, dimids (0-by-0 for a scalar), natts (nc_inq_var)
HandlerFunction renameVar; // ncid, varid, new name (nc_rename_var)

// Storage settings of netCDF-4 variables.
HandlerFunction defVarChunking; // ncid, varid, storage, chunk sizes (nc_def_var_chunking)
HandlerFunction
    inqVarChunking; // ncid, varid -> "chunked" or "contiguous", chunk sizes (nc_inq_var_chunking)
HandlerFunction defVarDeflate;    // ncid, varid, shuffle, deflate, level (nc_def_var_deflate)
HandlerFunction inqVarDeflate;    // ncid, varid -> shuffle, deflate, level (nc_inq_var_deflate)
HandlerFunction defVarFletcher32; // ncid, varid, setting (nc_def_var_fletcher32)
HandlerFunction
    inqVarFletcher32; // ncid, varid -> "NOCHECKSUM" or "FLETCHER32" (nc_inq_var_fletcher32)

// Fill values.
HandlerFunction defVarFill; // NCID, VARID, FILL FLAG (true: no filling), value (nc_def_var_fill)
HandlerFunction
    inqVarFill; // ncid, varid -> no-fill flag, value in the variable's class (nc_inq_var_fill)

} // namespace Ovard::gridio::operations
