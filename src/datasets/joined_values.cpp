// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/joined_values.h"

#include "check_status.h"
#include "convert/argument_readers.h"
#include "dataset_error_identifiers.h"
#include "datasets/decoding_rules.h"
#include "types/exact_numbers.h"

#include <netcdf.h>

#include <algorithm>
#include <cmath>

namespace Ovard::gridio {
namespace {

std::string lengthsText(const SizeVector& lengths)
{
    std::string text;
    for (auto length = lengths.rbegin(); length != lengths.rend(); ++length)
        text += (text.empty() ? "" : " x ") + std::to_string(*length);
    return text.empty() ? "one value" : text;
}

// The group of a path, and the name behind it.
int groupOf(int ncid, std::string& name, const OperationEntry* entry)
{
    const std::size_t slash = name.rfind('/');
    if (slash == std::string::npos)
        return ncid;
    std::string path = name.substr(0, slash);
    name.erase(0, slash + 1);
    if (path.empty())
        return ncid;
    if (path[0] != '/')
        path.insert(0, "/");
    int group = 0;
    checkStatus(nc_inq_grp_full_ncid(ncid, path.c_str(), &group), entry);
    return group;
}

int openPart(double owner, const std::string& path, const OperationEntry* entry)
{
    int ncid = 0;
    checkStatus(PartFiles::instance().open(owner, path, ncid), entry);
    return ncid;
}

cf::DecodingRules rulesOf(const Variable& variable, unsigned flags, const OperationEntry* entry)
{
    auto decoding = variableDecoding(variable, flags & ~unsigned{decodeToSingle});
    if (!decoding)
        raiseLibraryFailure(NC_EBADTYPE, entry);
    decoding->rules.decoded = cf::DecodedType::float64;
    return decoding->rules;
}

} // namespace

std::string reasonOf(const msgcat::BaseMsgID& id)
{
    std::vector<std::string> texts;
    for (const msgcat::MessageArgument& argument : id.arguments())
        if (const auto* text = boost::get<msgcat::MessageText>(&argument))
            if (const auto* narrow = boost::get<std::string>(text))
                texts.push_back(*narrow);
    if (texts.empty())
        return id.identifier();
    if (texts.size() == 3 && texts[1].front() == '"') // unreadableTime
        return "its " + texts[0] + " " + texts[1] + ": " + texts[2];
    return texts.back();
}

PartVariable::PartVariable(double owner, const std::string& path, const std::string& name,
                           const OperationEntry* entry)
    : PartVariable(openPart(owner, path, entry), name, entry)
{
}

PartVariable::PartVariable(int ncid, const std::string& name, const OperationEntry* entry)
{
    std::string own = name;
    const int group = groupOf(ncid, own, entry);
    int varid = 0;
    checkStatus(nc_inq_varid(group, own.c_str(), &varid), entry);
    variable_.emplace(group, varid, entry);
}

void PartVariable::requireLengths(const SizeVector& expected)
{
    const SizeVector& lengths = variable_->lengths();
    if (lengths != expected)
        vxErrMsgId(dataset::badPart(variable_->name(), "its size is " + lengthsText(lengths) +
                                                           " and not " + lengthsText(expected)));
}

JoinedParts::JoinedParts(const vxArray* a)
{
    const StructureArgument s(a, "parts");
    owner = s.number("owner");
    paths = s.texts("paths");
    name = s.text("name");
    dimension = readSizeScalar(s.field("dimension"), "dimension");
    isNew = s.number("isNew") != 0;
    lengths = s.numbers("lengths");
    isUsed = s.numbers("isUsed");
    units = s.texts("units");
    calendars = s.texts("calendars");
    scale = {s.text("toUnits"), s.text("toCalendar")};
    longUnits = readLongUnits(s.field("longUnits"));
    const std::size_t count = paths.size();
    if (lengths.size() != count || isUsed.size() != count ||
        (!units.empty() && units.size() != count) || calendars.size() != units.size())
        vxErrMsgId(dataset::badArgument("parts", "a structure of lists of one length"));
    for (const double length : lengths)
        if (!(length >= 0 && length <= 1e15) || std::trunc(length) != length)
            vxErrMsgId(dataset::badArgument("lengths", "whole numbers"));
}

struct JoinedSource::OpenPart {
    OpenPart(const JoinedParts& parts, std::size_t number, unsigned flags,
             const OperationEntry* entry)
        : variable(parts.owner, parts.paths[number], parts.name, entry),
          decoder(rulesOf(variable.variable(), flags, entry))
    {
        if (!parts.units.empty())
            conversion.emplace(TimeScale{parts.units[number], parts.calendars[number]}, parts.scale,
                               parts.longUnits);
    }

    PartVariable variable;
    const cf::Decoder decoder;
    std::optional<TimeConversion> conversion;
};

void JoinedSource::forEachSlab(const Block& block, const Visit& visit)
{
    const std::size_t dimension = dimensionOf(block);
    const auto step = static_cast<std::size_t>(block.stride[dimension]);
    const std::size_t start = block.start[dimension];
    const std::size_t count = block.count[dimension];
    std::size_t begin = 0;
    std::size_t first = 0;
    for (std::size_t part = 0; part < parts_.paths.size() && first < count; ++part) {
        const std::size_t end = begin + static_cast<std::size_t>(parts_.lengths[part]);
        const std::size_t behind = end <= start ? 0 : std::min(count, (end - 1 - start) / step + 1);
        if (behind > first) {
            if (parts_.isUsed[part] != 0)
                readPart({part, begin, first, behind - first}, block, visit);
            first = behind;
        }
        begin = end;
    }
    slabs_.drain();
}

// The slabs of a part are finished while the next part is read. If its read cannot begin, those
// before it are finished first, since they may fail, too.
void JoinedSource::readPart(const Range& range, const Block& block, const Visit& visit)
{
    try {
        const auto part = std::make_shared<OpenPart>(parts_, range.part, flags_, entry_);
        const Block own = blockOf(range, block);
        if (part->variable.variable().rank() != own.count.size())
            raiseLibraryFailure(NC_EBADTYPE, entry_);
        const auto end = [this, part, range, &visit](PendingRead& read, const Spans& spans,
                                                     double* values) {
            try {
                read.finish();
                pass(*part, range, spans, values, visit);
            } catch (const fnd::except::IMsgIDException& failure) {
                throw FailedPart{range.part, reasonOf(failure.messageId())};
            }
        };
        slabs_.read(part->variable.variable(), own, part->decoder, end);
    } catch (const fnd::except::IMsgIDException& failure) {
        const FailedPart failed{range.part, reasonOf(failure.messageId())};
        slabs_.drain();
        throw FailedPart(failed);
    }
}

Block JoinedSource::blockOf(const Range& range, const Block& block) const
{
    const std::size_t dimension = dimensionOf(block);
    Block own = block;
    own.isWhole = false;
    if (parts_.isNew) {
        const auto at = static_cast<std::ptrdiff_t>(dimension);
        own.start.erase(own.start.begin() + at);
        own.count.erase(own.count.begin() + at);
        own.stride.erase(own.stride.begin() + at);
    } else {
        const auto step = static_cast<std::size_t>(block.stride[dimension]);
        own.start[dimension] = block.start[dimension] + range.first * step - range.begin;
        own.count[dimension] = range.count;
    }
    return own;
}

// The spans are places in the part's block, those of the visit in the whole one.
void JoinedSource::pass(const OpenPart& part, const Range& range, const Spans& spans,
                        double* values, const Visit& visit) const
{
    const std::size_t dimension = spans.size() + (parts_.isNew ? 1 : 0) - parts_.dimension;
    Spans joined = spans;
    if (parts_.isNew)
        joined.insert(joined.begin() + static_cast<std::ptrdiff_t>(dimension),
                      Span{0, 1, 1, range.first});
    else
        joined[dimension].target += range.first;
    if (part.conversion)
        part.conversion->apply(values, countOf(joined));
    visit(joined, values);
}

} // namespace Ovard::gridio
