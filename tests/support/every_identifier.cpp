// SPDX-License-Identifier: BSD-3-Clause
#include "every_identifier.h"

#include "any_error_identifiers.h"
#include "dataset_error_identifiers.h"
#include "error_identifiers.h"

#include <utility>

using namespace Ovard::gridio::netcdf;
namespace any = Ovard::gridio::any;
namespace dataset = Ovard::gridio::dataset;
using Ovard::gridio::validate::argumentOutOfBounds;
using Ovard::gridio::validate::wrongNumberOfInputs;

namespace {

template <class Id, class... Arguments>
Occurrence occurrence(std::vector<std::string> inText, Arguments... arguments)
{
    return {std::make_shared<Id>(arguments...), std::move(inText)};
}

} // namespace

std::vector<Occurrence> everyIdentifier()
{
    return {
        occurrence<wrongNumberOfInputs>({}),
        occurrence<argumentOutOfBounds>({}),
        occurrence<unrecognizedOperation>({"opne"}, "opne"),
        occurrence<libraryFailure>({"op-1", "code-2", "text-3"}, "op-1", "code-2", "text-3"),
        occurrence<librarydapFailure>({"op-1", "code-2", "text-3"}, "op-1", "code-2", "text-3"),
        occurrence<badScalarArgument>({"ncid", "numeric"}, "ncid", "numeric"),
        occurrence<argumentWasNotChar>({"file"}, "file"),
        occurrence<expectedLogicalType>({"deflate flag"}, "deflate flag"),
        occurrence<emptyVariableData>({}),
        occurrence<argumentIsEmpty>({"START"}, "START"),
        occurrence<argumentHasBadDatatype>({"STRIDE"}, "STRIDE"),
        occurrence<argumentIsEmptySet>({"MODE"}, "MODE"),
        occurrence<badModeDatatype>({}),
        occurrence<unrecognizedFileMode>({"FOO_BAR"}, "FOO_BAR"),
        occurrence<unrecognizedCharParameter>({"NC_FOO"}, "NC_FOO"),
        occurrence<unknownNetCDFFormat>({"77"}, 77L),
        occurrence<inqVarNcGlobal>({}),
        occurrence<invalidChunkParameter>({"72", "73"}, 72L, 73L),
        occurrence<unrecognizedChunkStorage>({}),
        occurrence<unrecognizedChunkingCode>({"72"}, 72L),
        occurrence<attemptedChunkingInquiryOnNetcdf3File>({}),
        occurrence<unrecognizedFletcher32Setting>({"-72"}, -72L),
        occurrence<attemptedChecksumInquiryOnNetcdf3File>({}),
        occurrence<unhandledFillDatatype>({"72"}, 72L),
        occurrence<postCreationFillValueDefinition>({}),
        occurrence<unhandledAttributeOperation>({"getAttDouble"}, "getAttDouble"),
        occurrence<dataSizeMismatch>({}),
        occurrence<countNotEqualToData>({"74", "73"}, 74L, 73L),
        occurrence<badIndexArgumentLength>({"COUNT", "temp", "73", "72"}, "COUNT", "temp", 73L,
                                           72L),
        occurrence<indexArgumentNotFinite>({}),
        occurrence<badRowDatatype>({"dimids"}, "dimids"),
        occurrence<rowLengthOutOfBounds>({"chunk dims", "1024"}, "chunk dims", 1024L),
        occurrence<closingFileHandle>({}),
        occurrence<any::badValueClass>({"field 2", "text"}, "field 2", "text"),
        occurrence<any::wrongNumberOfValues>({"element 4", "74", "73"}, "element 4", 74L, 73L),
        occurrence<any::valueDoesNotFit>({"0.5", "element 4", "short"}, "element 4", "0.5",
                                         "short"),
        occurrence<any::unknownLabel>({"foggy", "element 4", "sky", "clear, cloudy"}, "element 4",
                                      "foggy", "sky", "clear, cloudy"),
        occurrence<any::missingField>({"element 4", "depth", "obs"}, "element 4", "depth", "obs"),
        occurrence<any::surplusField>({"element 4", "depth", "obs"}, "element 4", "depth", "obs"),
        occurrence<any::textHoldsNul>({"element 4"}, "element 4"),
        occurrence<any::damagedType>({"obs"}, "obs"),
        occurrence<any::unalignedType>({"obs", "'a' at 0, size 8"}, "obs", "'a' at 0, size 8"),
        occurrence<any::foreignType>({"obs"}, "obs"),
        occurrence<any::unrecognizedWord>({"byte order", "middle", "big"}, "byte order", "middle",
                                          "big"),
        occurrence<dataset::unreadableTime>({"units", "text-2", "reason-3"}, "units", "text-2",
                                            "reason-3"),
        occurrence<dataset::unrepresentableTime>({"72", "value-2", "reason-3"}, 72L, "value-2",
                                                 "reason-3"),
        occurrence<dataset::valueOutOfRange>({"72", "value-2", "type-3", "range-4"}, 72L, "value-2",
                                             "type-3", "range-4"),
        occurrence<dataset::badPart>({"v", "difference-2"}, "v", "difference-2"),
        occurrence<dataset::badArgument>({"bins", "expected-2"}, "bins", "expected-2"),
    };
}
