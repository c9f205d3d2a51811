// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/file_contents.h"

#include "hosts/messages/visible_text.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <optional>
#include <string_view>

namespace hosts::messages {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view hdf5Signature = "\x89HDF\r\n\x1a\n"sv;
constexpr long long lastSuperblock = 1 << 20; // a user block before it is rarely larger

struct Kind {
    std::string_view beginning;
    const char* what;
};

constexpr Kind foreignKinds[] = {
    {"\x1f\x8b"sv, "a file that gzip has compressed: unpack it first"},
    {"BZh"sv, "a file that bzip2 has compressed: unpack it first"},
    {"\xfd"
     "7zXZ"sv,
     "a file that xz has compressed: unpack it first"},
    {"\x28\xb5\x2f\xfd"sv, "a file that zstd has compressed: unpack it first"},
    {"PK\x03\x04"sv, "a zip archive: unpack it first"},
    {"GRIB"sv, "a GRIB file"},
    {"\x0e\x03\x13\x01"sv, "an HDF4 file"},
    {"<"sv, "a web page or XML, perhaps what a server sent in place of the file"},
    {"{"sv, "JSON text"},
    {"netcdf "sv, "CDL text, from which \"ncgen -o file.nc\" makes a netCDF file"},
};

struct Superblock {
    std::uint64_t endOfFile = 0;
    bool isBeingWritten = false;
};

std::uint64_t littleEndian(std::string_view bytes)
{
    std::uint64_t number = 0;
    for (std::size_t i = bytes.size(); i-- > 0;)
        number = number << 8 | static_cast<unsigned char>(bytes[i]);
    return number;
}

// After the fixed fields come the base address, another address, and the end of the file.
std::optional<Superblock> readSuperblock(std::string_view bytes)
{
    constexpr std::size_t shortest = 14; // up to and including the address widths
    if (bytes.size() < shortest || bytes.substr(0, hdf5Signature.size()) != hdf5Signature)
        return std::nullopt;
    const auto version = static_cast<unsigned char>(bytes[8]);
    const std::size_t addresses = version == 0 ? 24 : version == 1 ? 28 : 12;
    const auto width = static_cast<unsigned char>(bytes[version < 2 ? 13 : 9]);
    if (version > 3 || width > 8 || addresses + 3u * width > bytes.size())
        return std::nullopt;
    Superblock superblock;
    superblock.endOfFile = littleEndian(bytes.substr(addresses + 2u * width, width));
    superblock.isBeingWritten = version == 3 && (bytes[11] & 0x05) != 0;
    return superblock;
}

std::optional<Superblock> findSuperblock(const LookedAtFile& file)
{
    constexpr std::size_t longest = 64;
    for (long long offset = 0; offset <= lastSuperblock; offset = offset == 0 ? 512 : 2 * offset)
        if (const auto found = readSuperblock(file.bytes(offset, longest)))
            return found;
    return std::nullopt;
}

} // namespace

// Only a regular file is opened: opening a pipe or a device may have side effects.
LookedAtFile::LookedAtFile(const std::string& path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0) {
        error_ = errno;
    } else if (S_ISREG(status.st_mode)) {
        descriptor_ = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
        error_ = descriptor_ < 0 ? errno : 0;
    }
}

LookedAtFile::~LookedAtFile()
{
    if (descriptor_ >= 0)
        static_cast<void>(close(descriptor_)); // nothing was written
}

std::string LookedAtFile::bytes(long long offset, std::size_t count) const
{
    std::string read(count, '\0');
    const ssize_t found = descriptor_ < 0 ? 0 : pread(descriptor_, read.data(), count, offset);
    read.resize(found < 0 ? 0 : static_cast<std::size_t>(found));
    return read;
}

bool isHdf5(const LookedAtFile& file)
{
    return findSuperblock(file) || file.bytes(0, hdf5Signature.size()) == hdf5Signature;
}

std::string findForeignContents(const LookedAtFile& file, const std::string& path)
{
    const std::string beginning = file.bytes(0, 16);
    const std::string_view bytes = beginning;
    if (bytes.empty())
        return "The file " + inQuotes(path) + " is empty.";
    if (bytes.substr(0, 3) == "CDF" || isHdf5(file))
        return "";
    const std::string start = "The file " + inQuotes(path) + " is not a netCDF file";
    for (const Kind& kind : foreignKinds)
        if (bytes.substr(0, kind.beginning.size()) == kind.beginning)
            return start + ": it looks like " + kind.what + ".";
    return start + ": it begins with " + inQuotes(bytes) + ".";
}

std::string findDamagedSuperblock(const LookedAtFile& file, const std::string& path)
{
    const std::string what = "The file " + inQuotes(path);
    struct stat status = {};
    if (fstat(file.descriptor(), &status) != 0)
        return "";
    const auto size = static_cast<std::uint64_t>(status.st_size);
    const std::optional<Superblock> superblock = findSuperblock(file);
    if (!superblock)
        return file.bytes(0, hdf5Signature.size()) == hdf5Signature
                   ? what + " is damaged or was cut short: it has " + std::to_string(size) +
                         " bytes, and its superblock cannot be read."
                   : "";
    constexpr std::uint64_t undefined = ~std::uint64_t{0};
    if (superblock->endOfFile != undefined && size < superblock->endOfFile)
        return what + " was cut short: it has " + std::to_string(size) +
               " bytes, and by its superblock " + std::to_string(superblock->endOfFile) +
               ". It was copied incompletely, or the program that wrote it did not close it.";
    if (superblock->isBeingWritten)
        return what + " is marked as being written: by a program that has it open, or by one that "
                      "ended without closing it (\"h5clear -s\" clears the mark).";
    return "";
}

} // namespace hosts::messages
