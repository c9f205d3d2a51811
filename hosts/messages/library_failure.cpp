// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/library_failure.h"

#include "hosts/messages/file_locks.h"
#include "hosts/messages/findings.h"
#include "hosts/messages/index_advice.h"
#include "hosts/messages/status_advice.h"
#include "hosts/messages/subjects.h"

#include <algorithm>
#include <iterator>

namespace hosts::messages {

namespace {

enum class Advice { follows, isReplaced };

struct Finder {
    const char* codeName;
    std::string (*find)(const FailedCall& call);
    Advice advice; // whether the general advice follows a finding
};

// clang-format off
constexpr Finder finders[] = {
    {"NC_EBADID",       findClosedFile,        Advice::isReplaced},
    {"NC_ENOTVAR",      findMissingVariable,   Advice::isReplaced},
    {"NC_EBADDIM",      findMissingDimension,  Advice::isReplaced},
    {"NC_ENOTATT",      findMissingAttribute,  Advice::isReplaced},
    {"NC_ENOGRP",       findMissingGroup,      Advice::isReplaced},
    {"NC_ENAMEINUSE",   findNameInUse,         Advice::follows},
    {"NC_EBADNAME",     findBadName,           Advice::follows},
    {"NC_EMAXNAME",     findBadName,           Advice::follows},

    {"NC_EINVALCOORDS", findIndexPastEnd,      Advice::follows},
    {"NC_EEDGE",        findIndexPastEnd,      Advice::follows},
    {"NC_ESTRIDE",      findBadStride,         Advice::follows},
    {"NC_ECHAR",        findOtherKindOfValues, Advice::isReplaced},
    {"NC_EBADTYPE",     findUnfitType,         Advice::isReplaced},
    {"NC_EBADTYPID",    findUnfitType,         Advice::isReplaced},
    {"NC_ERANGE",       findValueOutOfRange,   Advice::follows},

    {"NC_EUNLIMPOS",    findUnlimitedPosition, Advice::follows},
    {"NC_EUNLIMIT",     findOtherUnlimited,    Advice::follows},
    {"NC_ENOTNC4",      findUnfitFormat,       Advice::follows},
    {"NC_ESTRICTNC3",   findUnfitFormat,       Advice::follows},
    {"NC_EBADCHUNK",    findBadChunkSize,      Advice::follows},
    {"NC_EPERM",        findNotWritable,       Advice::isReplaced},
    {"NC_EEXIST",       findExistingFile,      Advice::isReplaced},

    {"NC_EHDFERR",      findFileProblem,       Advice::isReplaced},
    {"NC_EFILEMETA",    findFileProblem,       Advice::isReplaced},
    {"NC_EDIMMETA",     findFileProblem,       Advice::isReplaced},
    {"NC_EVARMETA",     findFileProblem,       Advice::isReplaced},
    {"NC_EATTMETA",     findFileProblem,       Advice::isReplaced},
    {"NC_ECANTREAD",    findFileProblem,       Advice::isReplaced},
    {"NC_ECANTWRITE",   findFileProblem,       Advice::isReplaced},
    {"NC_ECANTCREATE",  findFileProblem,       Advice::isReplaced},
};
// clang-format on

// For a status without a row: when a file is opened, anything about it may be wrong, and a system
// error concerns the file, too.
std::string findAnyCause(const std::string& codeName, const FailedCall& call)
{
    const bool isSystemError = !codeName.empty() && codeName[0] >= '0' && codeName[0] <= '9';
    return call.has("file") || isSystemError ? findFileProblem(call) : findInvalidArgument(call);
}

// The library's table of open files is full: it then reports a bad identifier.
std::string findFullTable(const FailedCall& call)
{
    if (!call.has("file") || openFileCount() < mostOpenFiles)
        return "";
    return "The library has " + std::to_string(mostOpenFiles) +
           " files open, and cannot open more: close those that are no longer needed, each with "
           "gridio(\"close\", ncid); gridio_open_files() lists them.";
}

// A copy is refused because of its destination, unless the source lacks the attribute.
std::string subjectOf(const std::string& codeName, const FailedCall& call)
{
    const bool isOut = call.has("ncid_out") && codeName != "NC_ENOTATT";
    const std::optional<int> ncid = call.identifier(isOut ? "ncid_out" : "ncid");
    return ncid ? subjectLine(*ncid, call.identifier(isOut ? "varid_out" : "varid")) : "";
}

std::string linesOf(const std::string& codeName, const FailedCall& call)
{
    const char* general = statusAdvice(codeName);
    const auto* row = std::find_if(std::begin(finders), std::end(finders),
                                   [&](const Finder& r) { return codeName == r.codeName; });
    const std::string fullTable = codeName == "NC_EBADID" ? findFullTable(call) : "";
    const bool hasRow = row != std::end(finders);
    const std::string found = !fullTable.empty() ? fullTable
                              : hasRow           ? row->find(call)
                                                 : findAnyCause(codeName, call);
    const bool isReplaced = !fullTable.empty() || !hasRow || row->advice == Advice::isReplaced;

    std::string lines = found;
    if (general != nullptr && (found.empty() || !isReplaced))
        lines += (found.empty() ? "" : "\n") + std::string(general);
    const std::string subject = subjectOf(codeName, call);
    if (!subject.empty())
        lines += (lines.empty() ? "" : "\n") + subject;
    return lines;
}

} // namespace

std::string libraryFailureLines(const std::string& codeName, const FailedCall* call)
{
    if (call != nullptr)
        return linesOf(codeName, *call);
    const char* general = statusAdvice(codeName);
    return general == nullptr ? "" : general;
}

} // namespace hosts::messages
