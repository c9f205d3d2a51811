// SPDX-License-Identifier: BSD-3-Clause
// Operations on attributes, of a variable or, with the variable identifier -1 (NC_GLOBAL), of a
// file or group.
#pragma once

#include "operation_entry.h"

namespace Ovard::gridio::operations {

// Catalogue.
HandlerFunction inqAtt;     // ncid, varid, name -> xtype, number of values (nc_inq_att)
HandlerFunction inqAttID;   // ncid, varid, name -> attribute number (nc_inq_attid)
HandlerFunction inqAttName; // ncid, varid, attribute number -> name (nc_inq_attname)
HandlerFunction renameAtt;  // ncid, varid, old name, new name (nc_rename_att)
HandlerFunction delAtt;     // ncid, varid, name (nc_del_att)
HandlerFunction copyAtt;    // ncid, varid, name, destination ncid, varid (nc_copy_att)

// Values; one handler serves each family, and the row's code names the element type.
HandlerFunction getAtt; // ncid, varid, name -> 1-by-n row, 0-by-0 of none; text up to its first NUL
HandlerFunction putAtt; // ncid, varid, name, xtype, values
HandlerFunction putAttText; // ncid, varid, name, text

} // namespace Ovard::gridio::operations
