// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/library_verdict.h"

#include "data/elements/element_types.h"

namespace Ovard::gridio {
namespace {

struct NoElements {
    explicit NoElements(std::size_t rank) : zeros(rank, 0), ones(rank, 1) {}

    SizeVector zeros;
    StrideVector ones;
    double value = 0; // of any type
};

} // namespace

int readStatus(const Variable& variable)
{
    NoElements none(variable.rank());
    return findExternalType(variable.externalType())
        ->getVars(variable.ncid(), variable.varid(), none.zeros.data(), none.zeros.data(),
                  none.ones.data(), &none.value);
}

bool isWritable(const Variable& variable)
{
    NoElements none(variable.rank());
    return findExternalType(variable.externalType())
               ->putVars(variable.ncid(), variable.varid(), none.zeros.data(), none.zeros.data(),
                         none.ones.data(), &none.value) == NC_NOERR;
}

} // namespace Ovard::gridio
