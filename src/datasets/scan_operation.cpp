// SPDX-License-Identifier: BSD-3-Clause
// What must be known of each of many files to join them, in one call for many files: the length of
// the joined dimension, the values of its coordinate, and what the files have in common.
#include "check_status.h"
#include "chunks/chunk_reads.h"
#include "chunks/interruption.h"
#include "convert/argument_readers.h"
#include "data/elements/shapes.h"
#include "dataset_error_identifiers.h"
#include "datasets/decoding_rules.h"
#include "datasets/fingerprint.h"
#include "datasets/joined_values.h"
#include "datasets/structure_result.h"
#include "files/opening.h"

#include <netcdf.h>

#include <sys/stat.h>

#include <algorithm>
#include <limits>

namespace Ovard::gridio::datasetOperations {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

struct FileState {
    double size = notANumber;
    double changed = notANumber; // when, in seconds since 1970
};

// NaN where there is no file, as for an address.
FileState stateOf(const std::string& path)
{
    struct stat found = {};
    if (stat(path.c_str(), &found) != 0)
        return {};
    double changed = static_cast<double>(found.st_mtime);
#ifdef __linux__
    changed += static_cast<double>(found.st_mtim.tv_nsec) / 1e9;
#endif
    return {static_cast<double>(found.st_size), changed};
}

// How the files are to be joined: a structure with these fields.
struct ScanRequest {
    explicit ScanRequest(const vxArray* a)
    {
        const StructureArgument s(a, "request");
        names = {s.text("dimension"), s.text("coordinate"), s.text("bounds")};
        scale = {s.text("units"), s.text("calendar")};
        longUnits = readLongUnits(s.field("longUnits"));
    }

    JoinedNames names; // empty for none
    TimeScale scale;   // of times, to which they are converted; empty for other coordinates
    cf::LongUnits longUnits;
};

std::string attributeText(const Variable& variable, const char* name)
{
    nc_type type = NC_NAT;
    std::size_t length = 0;
    if (nc_inq_att(variable.ncid(), variable.varid(), name, &type, &length) != NC_NOERR)
        return "";
    if (type == NC_CHAR) {
        std::string text(length, '\0');
        checkStatus(nc_get_att_text(variable.ncid(), variable.varid(), name, text.data()),
                    variable.entry());
        text.resize(std::min(text.find('\0'), length));
        return text;
    }
    if (type != NC_STRING || length != 1)
        return "";
    char* stored = nullptr;
    checkStatus(nc_get_att_string(variable.ncid(), variable.varid(), name, &stored),
                variable.entry());
    const std::string text = stored == nullptr ? "" : stored;
    checkStatus(nc_free_string(1, &stored), variable.entry());
    return text;
}

// The columns of the result.
struct Scans {
    std::vector<double> lengths, fingerprints, sizes, changed;
    std::vector<double> values; // of all files, one behind the other
    std::vector<std::string> units, calendars, problems;
};

class Scanner {
public:
    Scanner(const ScanRequest& request, const OperationEntry* entry)
        : request_(request), entry_(entry)
    {
    }

    // A file that cannot be used has a problem and the length NaN. Raises nothing but the host's
    // interrupt.
    void scan(const std::string& path)
    {
        scans_.lengths.push_back(notANumber);
        scans_.fingerprints.push_back(notANumber);
        scans_.units.emplace_back();
        scans_.calendars.emplace_back();
        scans_.problems.emplace_back();
        const FileState state = stateOf(path);
        scans_.sizes.push_back(state.size);
        scans_.changed.push_back(state.changed);
        const std::size_t before = scans_.values.size();
        try {
            const ScopedFile file(path);
            checkStatus(file.status(), entry_);
            scanContent(file.ncid());
            scans_.fingerprints.back() = fingerprintOf(file.ncid(), request_.names, entry_);
        } catch (const fnd::except::IMsgIDException& failure) {
            scans_.problems.back() = reasonOf(failure.messageId());
            scans_.lengths.back() = notANumber;
            scans_.values.resize(before);
        }
    }

    vxArray* result() const
    {
        return structureResult({{"lengths", numberColumn(scans_.lengths)},
                                {"values", numberColumn(scans_.values)},
                                {"units", textColumn(scans_.units)},
                                {"calendars", textColumn(scans_.calendars)},
                                {"fingerprints", numberColumn(scans_.fingerprints)},
                                {"sizes", numberColumn(scans_.sizes)},
                                {"changed", numberColumn(scans_.changed)},
                                {"problems", textColumn(scans_.problems)}});
    }

private:
    void scanContent(int ncid)
    {
        if (request_.names.dimension.empty()) {
            scans_.lengths.back() = 1;
            return;
        }
        const std::size_t slash = request_.names.dimension.rfind('/');
        int group = ncid;
        if (slash > 0)
            checkStatus(nc_inq_grp_full_ncid(
                            ncid, request_.names.dimension.substr(0, slash).c_str(), &group),
                        entry_);
        int dimid = 0;
        std::size_t length = 0;
        checkStatus(nc_inq_dimid(group, request_.names.dimension.c_str() + slash + 1, &dimid),
                    entry_);
        checkStatus(nc_inq_dimlen(group, dimid, &length), entry_);
        scans_.lengths.back() = static_cast<double>(length);
        if (!request_.names.coordinate.empty())
            scanCoordinate(ncid, dimid, length);
    }

    void scanCoordinate(int ncid, int dimid, std::size_t length)
    {
        PartVariable part(ncid, request_.names.coordinate, entry_);
        Variable& variable = part.variable();
        if (variable.rank() != 1 || variable.dimensionIds()[0] != dimid)
            vxErrMsgId(dataset::badPart(variable.name(), "the coordinate '" + variable.name() +
                                                             "' has other dimensions"));
        auto decoding = variableDecoding(variable, decodeMissing | decodeUnsigned | decodeScale);
        if (!decoding)
            raiseLibraryFailure(NC_EBADTYPE, entry_);
        decoding->rules.decoded = cf::DecodedType::float64;
        const cf::Decoder decoder(decoding->rules);
        const std::size_t before = scans_.values.size();
        scans_.values.resize(before + length);
        if (length > 0)
            readValues(variable, wholeBlock(variable), {scans_.values.data() + before, &decoder});
        if (request_.scale.units.empty())
            return;
        scans_.units.back() = attributeText(variable, "units");
        scans_.calendars.back() = attributeText(variable, "calendar");
        const std::string& calendar = scans_.calendars.back();
        TimeConversion({scans_.units.back(), calendar.empty() ? "standard" : calendar},
                       request_.scale, request_.longUnits)
            .apply(scans_.values.data() + before, length);
    }

    const ScanRequest& request_;
    const OperationEntry* entry_;
    Scans scans_;
};

} // namespace

void scan(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::vector<std::string> paths = readTexts(args[0], "paths");
    const ScanRequest request(args[1]);
    Scanner scanner(request, entry);
    Interruption interruption;
    for (const std::string& path : paths) {
        interruption.check();
        scanner.scan(path);
    }
    results[0] = scanner.result();
}

// Sizes and times of the last changes alone.
void fileStates(int, vxArray* results[], int, const vxArray* args[], const OperationEntry*)
{
    std::vector<double> sizes, changed;
    for (const std::string& path : readTexts(args[0], "paths")) {
        const FileState state = stateOf(path);
        sizes.push_back(state.size);
        changed.push_back(state.changed);
    }
    results[0] = numberColumn(sizes);
    results[1] = numberColumn(changed);
}

} // namespace Ovard::gridio::datasetOperations
