// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/path_findings.h"

#include "hosts/messages/address_findings.h"

#include "hosts/messages/file_contents.h"
#include "hosts/messages/file_locks.h"
#include "hosts/messages/near_names.h"
#include "hosts/messages/visible_text.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <vector>

namespace hosts::messages {

namespace {

constexpr std::size_t mostEntries = 5000;
constexpr unsigned long long littleSpace = 1 << 20; // in bytes

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.find_last_not_of('/') == std::string::npos
                                  ? std::string::npos
                                  : path.rfind('/', path.find_last_not_of('/'));
    if (slash == std::string::npos)
        return path[0] == '/' ? "/" : ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string nameOf(const std::string& path)
{
    const std::size_t end = path.find_last_not_of('/') + 1; // 0 if there are only slashes
    const std::size_t slash = end == 0 ? std::string::npos : path.rfind('/', end - 1);
    return path.substr(slash + 1, end - slash - 1);
}

std::optional<std::string> realPath(const std::string& path)
{
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
    return real ? std::optional<std::string>(real.get()) : std::nullopt;
}

std::vector<std::string> filesIn(const std::string& folder)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), closedir);
    while (const dirent* entry = open && names.size() < mostEntries ? readdir(open.get()) : nullptr)
        names.emplace_back(entry->d_name);
    return names;
}

// The uppermost folder of the path that does not exist or is not a folder.
std::string findMissingFolder(const std::string& path, Purpose purpose)
{
    const std::string folder = folderOf(path);
    struct stat status = {};
    if (stat(folder.c_str(), &status) == 0) {
        if (S_ISDIR(status.st_mode))
            return "";
        return inQuotes(resolvedPath(folder)) + " is a file, not a folder: check the path.";
    }
    if (errno == EACCES)
        return "You have no permission to search the folder " + inQuotes(folderOf(folder)) + ".";
    if (folder != "/" && folder != ".") {
        const std::string above = findMissingFolder(folder, purpose);
        if (!above.empty())
            return above;
    }
    return "There is no folder " + inQuotes(resolvedPath(folder)) +
           (purpose == Purpose::creating ? ": check the path, or make the folder first."
                                         : ": check the path.");
}

std::string findNoSuchFile(const std::string& path)
{
    struct stat status = {};
    char target[1024];
    const ssize_t length = readlink(path.c_str(), target, sizeof target);
    if (lstat(path.c_str(), &status) == 0 && length > 0)
        return inQuotes(resolvedPath(path)) + " is a link to " +
               inQuotes(std::string(target, static_cast<std::size_t>(length))) +
               ", which does not exist.";
    const std::string folder = folderOf(path);
    const std::string found = "There is no file " + inQuotes(nameOf(path)) + " in the folder " +
                              inQuotes(realPath(folder).value_or(folder)) + ": check the path.";
    const std::vector<std::string> near = nearNames(nameOf(path), filesIn(folder));
    return near.empty() ? found : found + " Did you mean " + quotedNames(near, 3, "or") + "?";
}

std::string findNoFile(const struct stat& status, const std::string& path)
{
    const std::string name = inQuotes(realPath(path).value_or(path));
    if (S_ISREG(status.st_mode))
        return "";
    if (!S_ISDIR(status.st_mode))
        return name + (S_ISFIFO(status.st_mode) ? " is a pipe" : " is a device or socket") +
               ", not a file.";
    const bool isStore = access((path + "/.zgroup").c_str(), F_OK) == 0;
    return name + (isStore ? " is a Zarr store: open it by its address, \"file://" +
                                 visible(realPath(path).value_or(path)) + "#mode=nczarr,file\"."
                           : " is a folder: add the name of a file.");
}

bool mayAccess(const std::string& path, int how)
{
    return faccessat(AT_FDCWD, path.c_str(), how, AT_EACCESS) == 0;
}

std::string permissionText(const struct stat& status)
{
    char digits[8];
    std::snprintf(digits, sizeof digits, "%03o", static_cast<unsigned>(status.st_mode & 0777));
    return std::string("its permissions are ") + digits +
           (status.st_uid == geteuid() ? "" : ", and it belongs to another user");
}

std::string findForbidden(const std::string& path, const std::string& what, const char* deed,
                          int how)
{
    if (mayAccess(path, how))
        return "";
    if (errno == EROFS)
        return "You may not " + std::string(deed) + " " + what +
               ": its file system is mounted for reading only.";
    struct stat status = {};
    return stat(path.c_str(), &status) != 0 ? ""
                                            : "You may not " + std::string(deed) + " " + what +
                                                  ": " + permissionText(status) + ".";
}

std::string firstOf(std::initializer_list<std::string> findings)
{
    for (const std::string& finding : findings)
        if (!finding.empty())
            return finding;
    return "";
}

std::string findInExistingFile(const std::string& path, Purpose purpose)
{
    const std::string shown = resolvedPath(path);
    const std::string what = "the file " + inQuotes(shown);
    const std::string forbidden =
        firstOf({purpose == Purpose::creating ? "" : findForbidden(path, what, "read", R_OK),
                 purpose == Purpose::reading ? "" : findForbidden(path, what, "write", W_OK)});
    if (!forbidden.empty())
        return forbidden;
    const std::string noSpace = purpose == Purpose::creating ? findNoSpace(path) : "";
    if (!noSpace.empty())
        return noSpace;
    const std::string openHere =
        purpose == Purpose::reading ? "" : findOpenHere(path, purpose == Purpose::creating);
    if (!openHere.empty())
        return openHere;
    const LookedAtFile file(path);
    if (!file.isOpen())
        return "";
    if (purpose == Purpose::creating)
        return findLock(file, shown, true);
    const std::string foreign = findForeignContents(file, shown);
    return !foreign.empty() || !isHdf5(file)
               ? foreign
               : firstOf({findLock(file, shown, purpose == Purpose::writing),
                          findDamagedSuperblock(file, shown)});
}

} // namespace

bool isAddress(const std::string& path) { return path.find("://") != std::string::npos; }

std::string resolvedPath(const std::string& path)
{
    const std::optional<std::string> folder = realPath(folderOf(path));
    if (!folder || path.empty())
        return path;
    return (*folder == "/" ? "" : *folder) + "/" + nameOf(path);
}

std::string findPathProblem(const std::string& path, Purpose purpose)
{
    if (path.empty())
        return "The name of the file is empty.";
    if (path.find('\0') != std::string::npos)
        return "";
    if (isAddress(path))
        return findAddressProblem(path);
    if (path.size() >= PATH_MAX)
        return "The path is too long: it has " + std::to_string(path.size()) +
               " bytes. Choose a shorter one.";
    const std::string noDescriptors = findNoDescriptors();
    const std::string missing =
        noDescriptors.empty() ? findMissingFolder(path, purpose) : noDescriptors;
    if (!missing.empty())
        return missing;

    struct stat status = {};
    if (stat(path.c_str(), &status) == 0) {
        const std::string noFile = findNoFile(status, path);
        return noFile.empty() ? findInExistingFile(path, purpose) : noFile;
    }
    if (errno == ENAMETOOLONG)
        return "The name of the file is too long: it has " + std::to_string(nameOf(path).size()) +
               " bytes. Choose a shorter one.";
    if (errno == EACCES)
        return "You have no permission to search the folder " +
               inQuotes(resolvedPath(folderOf(path))) + ".";
    if (errno != ENOENT)
        return "";
    if (purpose != Purpose::creating)
        return findNoSuchFile(path);
    const std::string folder = folderOf(path);
    return firstOf(
        {findForbidden(folder, "the folder " + inQuotes(realPath(folder).value_or(folder)),
                       "write into", W_OK | X_OK),
         findNoSpace(folder)});
}

std::string findNoSpace(const std::string& path)
{
    struct statvfs system = {};
    const std::string shown = inQuotes(resolvedPath(path));
    if (statvfs(path.c_str(), &system) == 0) {
        const auto blocks = geteuid() == 0 ? system.f_bfree : system.f_bavail;
        const unsigned long long bytes = static_cast<unsigned long long>(blocks) * system.f_frsize;
        if (bytes < littleSpace && system.f_blocks > 0)
            return "The disk of " + shown + " is full: " + std::to_string(bytes) +
                   " bytes are left.";
        if (system.f_files > 0 && system.f_ffree == 0)
            return "The disk of " + shown + " has no space for another file.";
    }
    struct rlimit limit = {};
    struct stat status = {};
    if (getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY &&
        stat(path.c_str(), &status) == 0 &&
        static_cast<rlim_t>(status.st_size) + littleSpace > limit.rlim_cur)
        return "The file " + shown + " has " + std::to_string(status.st_size) +
               " bytes, and the system allows this session files of " +
               std::to_string(limit.rlim_cur) + " (\"ulimit -f\").";
    return "";
}

std::string findNoDescriptors()
{
    const int descriptor = open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        static_cast<void>(close(descriptor)); // of a folder
        return "";
    }
    struct rlimit limit = {};
    if (errno == ENFILE)
        return "The system has as many files open as it allows all programs together.";
    if (errno != EMFILE || getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return "";
    return "The session has as many files open as the system allows it, " +
           std::to_string(limit.rlim_cur) +
           " (\"ulimit -n\"): close those that are no longer needed, each with "
           "gridio(\"close\", ncid); gridio_open_files() lists them.";
}

} // namespace hosts::messages
