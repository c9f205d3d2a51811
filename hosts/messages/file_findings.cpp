// SPDX-License-Identifier: BSD-3-Clause
// Findings about whole files: opening, creating, reading and writing them.
#include "hosts/messages/address_findings.h"
#include "hosts/messages/file_contents.h"
#include "hosts/messages/file_locks.h"
#include "hosts/messages/findings.h"
#include "hosts/messages/path_findings.h"
#include "hosts/messages/subjects.h"
#include "hosts/messages/visible_text.h"

#include "abandoned_files.h"

#include <unistd.h>

namespace hosts::messages {

namespace {

bool isOpening(const FailedCall& call) { return call.has("file"); }

bool isCreating(const FailedCall& call)
{
    return call.operation() == "create" || call.operation() == "pCreate";
}

// The flags of the mode argument, as far as they matter here.
int flagsOf(const FailedCall& call)
{
    if (const std::optional<double> number = call.number("mode"))
        return *number >= 0 && *number < 0x7FFFFFFF ? static_cast<int>(*number) : 0;
    std::string word = call.text("mode").value_or("");
    for (char& c : word)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return word == "write" || word == "nc_write" ? NC_WRITE : 0;
}

std::string findProblemOfPath(const FailedCall& call)
{
    const std::optional<std::string> path = call.text("file");
    const int flags = flagsOf(call);
    if (!path || (flags & (NC_DISKLESS | NC_INMEMORY)) != 0)
        return "";
    const Purpose purpose = isCreating(call)          ? Purpose::creating
                            : (flags & NC_WRITE) != 0 ? Purpose::writing
                                                      : Purpose::reading;
    return findPathProblem(path->substr(0, path->find('\0')), purpose);
}

bool changesFile(const FailedCall& call)
{
    const std::string& name = call.operation();
    for (const char* start : {"get", "inq"})
        if (name.rfind(start, 0) == 0)
            return false;
    return true;
}

std::string findProblemOfOpenFile(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier(call.has("ncid_out") ? "ncid_out" : "ncid");
    if (ncid && Ovard::gridio::isAbandonedFile(*ncid))
        return "HDF5 could not close the file, which is abandoned: " + std::to_string(*ncid) +
               " no longer identifies a file. What was written before is in the file.";
    const std::string path = ncid ? pathOf(*ncid) : "";
    if (path.empty() || isAddress(path))
        return "";
    if (changesFile(call)) {
        const std::string notWritable = findNotWritable(call);
        return notWritable.empty() ? findNoSpace(path) : notWritable;
    }
    if (access(path.c_str(), F_OK) != 0)
        return "There is no file " + inQuotes(path) + " any more.";
    // While a file is being written, its superblock and length are not final.
    return isWritable(*ncid) ? ""
                             : findDamagedSuperblock(LookedAtFile(path), resolvedPathOf(*ncid));
}

} // namespace

std::string findFileProblem(const FailedCall& call)
{
    return isOpening(call) ? findProblemOfPath(call) : findProblemOfOpenFile(call);
}

std::string findNotWritable(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier(call.has("ncid_out") ? "ncid_out" : "ncid");
    if (!ncid || !isOpen(*ncid) || isWritable(*ncid))
        return "";
    const std::string path = resolvedPathOf(*ncid);
    std::string found = "The file " + inQuotes(path) +
                        " was opened for reading: close it, and open it "
                        "with the mode \"write\".";
    if (!isAddress(path) && access(path.c_str(), F_OK) == 0 && access(path.c_str(), W_OK) != 0)
        found += " Its permissions do not let you write it.";
    return found;
}

std::string findExistingFile(const FailedCall& call)
{
    const std::optional<std::string> path = call.text("file");
    if (!path)
        return "";
    if (isAddress(*path))
        return findAddressProblem(*path);
    return "There is already a file " + inQuotes(resolvedPath(*path)) +
           ", and the mode \"noclobber\" forbids replacing it: choose another name, or the mode "
           "\"clobber\", which empties the file.";
}

} // namespace hosts::messages
