// SPDX-License-Identifier: BSD-3-Clause
// Operations on files and groups. Identifiers are the library's own; results come in the order
// given.
#pragma once

#include "operation_entry.h"

namespace Ovard::gridio::operations {

// Opening and creating; the identifier is registered for closing at unload, but not by pCreate.
HandlerFunction open;   // file, mode -> ncid (nc_open)
HandlerFunction create; // file, mode -> ncid (nc_create)
HandlerFunction pOpen;  // file, mode, chunksizehint in bytes -> chunk size hint, ncid (nc__open)
HandlerFunction
    pCreate; // file, mode, initialsize and chunksize in bytes -> chunk size, ncid (nc__create)

// State.
HandlerFunction close;   // ncid (nc_close)
HandlerFunction abort;   // ncid (nc_abort)
HandlerFunction sync;    // ncid (nc_sync)
HandlerFunction redef;   // ncid (nc_redef)
HandlerFunction endDef;  // ncid (nc_enddef)
HandlerFunction pEndDef; // ncid, h_minfree, v_align, v_minfree, r_align in bytes (nc__enddef)
HandlerFunction setFill; // ncid, new fill mode -> old fill mode (nc_set_fill)
HandlerFunction
    setDefaultFormat; // new default format -> old default format (nc_set_default_format)

// Inquiries. Identifier lists are 1-by-n rows in the library's order, 0-by-0 when empty.
HandlerFunction inq;          // ncid -> ndims, nvars, ngatts, unlimdimid or -1 (nc_inq)
HandlerFunction inqFormat;    // ncid -> "FORMAT_CLASSIC", ... (nc_inq_format)
HandlerFunction inqLibVers;   // -> version text (nc_inq_libvers)
HandlerFunction inqUnlimDims; // ncid -> dimension identifiers (nc_inq_unlimdims)
HandlerFunction inqVarIDs;    // ncid -> variable identifiers (nc_inq_varids)
HandlerFunction inqDimIDs;    // ncid, include_parents flag -> dimension identifiers (nc_inq_dimids)

// Groups; their identifiers are never registered.
HandlerFunction defGrp;         // ncid, name -> group identifier (nc_def_grp)
HandlerFunction inqGrps;        // ncid -> identifiers of the child groups (nc_inq_grps)
HandlerFunction inqGrpName;     // ncid -> the group's own name (nc_inq_grpname)
HandlerFunction inqGrpNameFull; // ncid -> the path from the root (nc_inq_grpname_full)
HandlerFunction inqGrpParent;   // ncid -> parent group identifier (nc_inq_grp_parent)
HandlerFunction inqNcid;        // ncid, name -> identifier of that child group (nc_inq_ncid)

// The library's default chunk cache, for files opened or created afterwards.
HandlerFunction
    setChunkCache; // size in bytes, slots, preemption as raw single (nc_set_chunk_cache)
HandlerFunction getChunkCache; // -> size in bytes, slots, preemption (nc_get_chunk_cache)

} // namespace Ovard::gridio::operations
