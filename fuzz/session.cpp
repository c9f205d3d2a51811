// SPDX-License-Identifier: BSD-3-Clause
#include "fuzz/session.h"

#include "fuzz/scratch_folder.h"
#include "open_file_registry.h"

#include <netcdf.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <set>

namespace fuzz {

using standalone::Outcome;
using standalone::Value;

namespace {

constexpr std::size_t largestArray = 1 << 20;

// The library's state at the start of a process.
struct LibrarySettings {
    std::size_t cacheSize = 0;
    std::size_t cacheSlots = 0;
    float cachePreemption = 0;

    LibrarySettings() { nc_get_chunk_cache(&cacheSize, &cacheSlots, &cachePreemption); }

    void restore() const
    {
        nc_set_chunk_cache(cacheSize, cacheSlots, cachePreemption);
        nc_set_default_format(NC_FORMAT_CLASSIC, nullptr);
    }
};

// The library allocates and clears its list of files, half a megabyte, whenever the first file is
// opened; a file that stays open keeps it. A run may close that one too.
constexpr int anchorId = 1 << 16;
const std::string anchorName = "anchor";

bool isAnchor(int ncid)
{
    std::size_t length = 0;
    char path[64] = "";
    if (nc_inq_path(ncid, &length, nullptr) != NC_NOERR || length != anchorName.size())
        return false;
    nc_inq_path(ncid, &length, path);
    return path == anchorName;
}

void keepAnchor()
{
    int ncid = 0;
    if (!isAnchor(anchorId))
        nc_create(anchorName.c_str(), NC_DISKLESS, &ncid);
}

// Files that the library could not close and so never forgets: their identifiers are not given out
// again, and their names are not free.
std::set<int> stuckFiles;

// A later run may have closed one by chance.
void forgetUnstuckFiles()
{
    int format = 0;
    for (auto file = stuckFiles.begin(); file != stuckFiles.end();)
        file =
            nc_inq_format(*file, &format) == NC_EBADID ? stuckFiles.erase(file) : std::next(file);
}

bool isClassic(int ncid)
{
    int model = 0;
    return nc_inq_format_extended(ncid, &model, nullptr) == NC_NOERR && model == NC_FORMATX_NC3;
}

bool isOpen(int ncid)
{
    int format = 0;
    return stuckFiles.count(ncid) == 0 && nc_inq_format(ncid, &format) != NC_EBADID;
}

bool opensFile(const std::string& operation)
{
    return operation == "open" || operation == "create" || operation == "pOpen" ||
           operation == "pCreate";
}

bool startsWith(const std::string& text, const std::string& start)
{
    return text.compare(0, start.size(), start) == 0;
}

} // namespace

void finding(const std::string& what)
{
    std::cerr << "FINDING: " << what << std::endl;
    std::abort();
}

Session::Session()
{
    static const LibrarySettings settings;
    settings.restore();
    keepAnchor();
    forgetUnstuckFiles();
    host_.limitBytes(largestArray);
}

Session::~Session()
{
    closeAll();
    if (!host_.breaches().empty())
        finding("contract: " + host_.breaches().front());
}

Outcome Session::call(const Operation& operation, const std::vector<Value>& arguments)
{
    return callOf(operation.function, operation.name, arguments);
}

Outcome Session::call(const std::string& operation, const std::vector<Value>& arguments)
{
    return callOf(Function::gridio, operation, arguments);
}

Outcome Session::callAny(const std::string& operation, const std::vector<Value>& arguments)
{
    return callOf(Function::gridioAny, operation, arguments);
}

Outcome Session::callOf(Function function, const std::string& operation,
                        const std::vector<Value>& arguments)
{
    static const bool isTraced = std::getenv("FUZZ_TRACE") != nullptr;
    if (isTraced) {
        std::cerr << (function == Function::gridio ? "" : "any ") << operation;
        for (const Value& argument : arguments)
            std::cerr << ", " << argument;
        std::cerr << std::endl;
    }
    const std::size_t arraysBefore = host_.liveArrays();
    Outcome outcome = function == Function::gridio ? host_.attempt(operation, arguments)
                                                   : host_.attemptAny(operation, arguments, 2);
    if (isTraced)
        std::cerr << "    " << outcome << std::endl;
    if (opensFile(operation))
        ++filesOpened_;

    if (host_.liveBlocks() != 0)
        finding(operation + ": a block was not freed");
    if (outcome.raised) {
        const std::string& identifier = outcome.raised->identifier;
        if (identifier == standalone::outOfMemoryIdentifier)
            ranOutOfMemory_ = true;
        else if (!startsWith(identifier, "Ovard:gridio:"))
            finding(operation + ": raised " + identifier + ": " + outcome.raised->message);
        if (host_.liveArrays() != arraysBefore)
            finding(operation + ": an array was left");
        if (operation == "close" || operation == "abort")
            namesAreStuck_ = true;
    }
    keepIds(operation, outcome);
    return outcome;
}

void Session::adoptFile(int ncid)
{
    ++filesOpened_;
    Ovard::gridio::registerOpenFile(ncid);
    knownIds_.push_back(ncid);
}

void Session::keepIds(const std::string& operation, const Outcome& outcome)
{
    const std::vector<Value>& results = outcome.results;
    if (results.empty())
        return;
    if (operation == "pOpen" || operation == "pCreate")
        knownIds_.push_back(static_cast<int>(results.at(1).toDouble()));
    else if (opensFile(operation) || operation == "defGrp" || operation == "inqNcid" ||
             operation == "inqGrpFullNcid")
        knownIds_.push_back(static_cast<int>(results.at(0).toDouble()));
}

// A file of a classic format can be aborted; for other formats it is unknown what the library has
// already freed.
void Session::giveUp(int ncid)
{
    if (isClassic(ncid))
        static_cast<void>(nc_abort(ncid));
    else
        stuckFiles.insert(ncid);
    namesAreStuck_ = true;
}

// The library's identifiers of files are small multiples of 65536, the lowest free first.
void Session::closeAll()
{
    std::vector<int> files;
    const int last = filesOpened_ + static_cast<int>(stuckFiles.size());
    for (int i = 0; i <= last; ++i)
        if (!isAnchor(anchorId + (i << 16)))
            files.push_back(anchorId + (i << 16));

    host_.failAllocation(0);
    const auto isKnown = [&](int ncid) {
        return std::find(knownIds_.begin(), knownIds_.end(), ncid) != knownIds_.end();
    };
    for (const int ncid : files) {
        if (isKnown(ncid) && isOpen(ncid) && !call("close", {ncid}).succeeded())
            giveUp(ncid);
        if (isKnown(ncid))
            Ovard::gridio::unregisterOpenFile(ncid);
    }

    // Only a file whose identifier could not be returned may still be registered.
    host_.unload();
    if (!host_.warnings().empty() && !ranOutOfMemory_)
        finding("a file is held that was never returned");
    for (const int ncid : files) {
        if (isOpen(ncid))
            finding("a file is lost: neither returned nor held, but open");
        Ovard::gridio::unregisterOpenFile(ncid);
    }
    if (filesOpened_ > 0) {
        unlink((scratchFolder() + "/a.nc").c_str());
        unlink((scratchFolder() + "/b.nc").c_str());
    }
    if (namesAreStuck_)
        replaceScratchFolder();
}

} // namespace fuzz
