// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/file_locks.h"

#include "hosts/messages/subjects.h"
#include "hosts/messages/visible_text.h"

#include "abandoned_files.h"

#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <vector>

namespace hosts::messages {

namespace {

int identifierOf(int number) { return static_cast<int>(static_cast<unsigned>(number) << 16); }

bool isSameFile(const std::string& path, const struct stat& wanted)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && status.st_dev == wanted.st_dev &&
           status.st_ino == wanted.st_ino;
}

// HDF5 takes no locks if this variable says so.
bool areLocksUsed()
{
    const char* setting = std::getenv("HDF5_USE_FILE_LOCKING");
    return setting == nullptr ||
           (std::strcmp(setting, "FALSE") != 0 && std::strcmp(setting, "0") != 0);
}

std::string programName(long process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/comm");
    std::string name;
    std::getline(file, name);
    return name;
}

// The first process that the system lists as a holder; 0 when it lists none.
long lockHolder(const struct stat& status)
{
    char wanted[64];
    std::snprintf(wanted, sizeof wanted, "%02x:%02x:%lu", major(status.st_dev),
                  minor(status.st_dev), static_cast<unsigned long>(status.st_ino));
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
        char kind[16] = "";
        char place[64] = "";
        long process = 0;
        if (std::sscanf(line.c_str(), "%*s %15s %*s %*s %ld %63s", kind, &process, place) == 3 &&
            std::strcmp(kind, "FLOCK") == 0 && std::strcmp(place, wanted) == 0 && process > 0)
            return process;
    }
    return 0;
}

// True if the lock could be taken, or cannot be tried; it is released at once.
bool canLock(int descriptor, int kind)
{
    if (flock(descriptor, kind | LOCK_NB) != 0)
        return errno != EWOULDBLOCK;
    static_cast<void>(flock(descriptor, LOCK_UN)); // closing would release it as well
    return true;
}

} // namespace

std::string findOpenHere(const std::string& path, bool forCreating)
{
    struct stat wanted = {};
    if (stat(path.c_str(), &wanted) != 0)
        return "";
    for (int number = 1; number <= mostOpenFiles; ++number) {
        const int ncid = identifierOf(number);
        std::size_t length = 0;
        if (Ovard::gridio::isAbandonedFile(ncid) ||
            nc_inq_path(ncid, &length, nullptr) != NC_NOERR || !isSameFile(pathOf(ncid), wanted))
            continue;
        if (!isHdf5(ncid) || (!forCreating && isWritable(ncid)))
            continue;
        return "The file " + inQuotes(resolvedPathOf(ncid)) + " is open in this session, for " +
               (isWritable(ncid) ? "writing" : "reading") + ", as " + std::to_string(ncid) +
               ": close it first, with gridio(\"close\", " + std::to_string(ncid) + ").";
    }
    return "";
}

std::string findLock(const LookedAtFile& file, const std::string& path, bool forWriting)
{
    struct stat status = {};
    if (!areLocksUsed() || !file.isOpen() || fstat(file.descriptor(), &status) != 0)
        return "";
    const bool isWritten = !canLock(file.descriptor(), LOCK_SH);
    if (!isWritten && (!forWriting || canLock(file.descriptor(), LOCK_EX)))
        return "";
    const std::string what = "The file " + inQuotes(path) + " is locked by ";
    const std::string deed = isWritten ? "writes it" : "reads it";
    const long holder = lockHolder(status);
    if (holder == getpid())
        return what + "this session, which still " + deed + ": close it first.";
    const std::string name = holder == 0 ? "" : programName(holder);
    return what + "another program" + (holder == 0 ? "" : " (process " + std::to_string(holder)) +
           (name.empty() ? "" : ", " + inQuotes(name)) + (holder == 0 ? "" : ")") + ", which " +
           deed + ": wait until that has closed it, or close it there.";
}

int openFileCount()
{
    int count = 0;
    for (int number = 1; number <= mostOpenFiles; ++number) {
        std::size_t length = 0;
        const int ncid = identifierOf(number);
        if (Ovard::gridio::isAbandonedFile(ncid) || nc_inq_path(ncid, &length, nullptr) == NC_NOERR)
            ++count;
    }
    return count;
}

} // namespace hosts::messages
