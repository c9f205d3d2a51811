// SPDX-License-Identifier: BSD-3-Clause
// Random types, nested in each other, and random values of them: what plain C writes the module
// reads, and what the module writes plain C reads, as the same values.
//
// RC_PARAMS as in programs_test.cpp. Without it a few hundred programs run, always the same ones.
#include "library/guards/misplaced_strings.h"
#include "tests/properties/typed_data.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

#include <rapidcheck.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <sstream>

namespace properties {
namespace {

using standalone::Host;
using standalone::Value;
using testsupport::LibraryFile;
using testsupport::require;

constexpr int usualPrograms = 300;
constexpr std::uint64_t usualSeed = 1;
constexpr std::size_t choicesOfAProgram = 600;
constexpr std::size_t programsToADump = 50; // ncdump is slow to start

template <class T> Value rowOf(const std::vector<T>& numbers)
{
    return Value::row(std::vector<double>(numbers.begin(), numbers.end()));
}

// A variable with its values, and an attribute of it.
struct TypedVariable {
    std::string name;
    const Typed* type;
    std::vector<std::size_t> lengths; // in the library's order
    Data data;
    const Typed* attributeType;
    Data attribute;

    std::vector<std::size_t> hostLengths() const { return {lengths.rbegin(), lengths.rend()}; }
};

std::size_t productOf(const std::vector<std::size_t>& lengths)
{
    std::size_t product = 1;
    for (const std::size_t length : lengths)
        product *= length;
    return product;
}

bool holdsStringBehindItsStart(const Typed& type)
{
    if (type.kind == Kind::vlen)
        return holdsStringBehindItsStart(*type.base);
    return std::any_of(type.fields.begin(), type.fields.end(), [](const TypedField& field) {
        return field.type->kind == Kind::string ? field.offset > 0
                                                : holdsStringBehindItsStart(*field.type);
    });
}

// Types and variables out of choices.
struct Program {
    explicit Program(Dice& dice) : schema(dice)
    {
        const std::size_t count = dice.below(3) + 1;
        for (std::size_t i = 0; i < count; ++i) {
            TypedVariable v;
            v.name = "v" + std::to_string(i);
            v.type = &schema.any(dice);
            for (std::size_t rank = dice.below(4); rank > 0; --rank)
                v.lengths.push_back(dice.below(3) + 1);
            v.data = randomData(*v.type, productOf(v.lengths), dice);
            v.attributeType = attributeType(dice);
            const std::size_t values = dice.below(4);
            v.attribute = randomData(
                *v.attributeType,
                v.attributeType->isWrittenAlone ? std::min<std::size_t>(values, 1) : values, dice);
            variables.push_back(v);
        }
    }

    // Some type, or the library's first where it would lose the strings of an attribute.
    const Typed* attributeType(Dice& dice) const
    {
        static const bool isMisplacing = Ovard::gridio::misplacesStrings(nc_inq_libvers());
        const Typed& type = schema.any(dice);
        return isMisplacing && holdsStringBehindItsStart(type) ? &schema.types().front() : &type;
    }

    Schema schema;
    std::vector<TypedVariable> variables;
};

// Dimensions by their lengths, made when they are first needed.
int dimensionOf(int ncid, std::size_t length)
{
    const std::string name = "d" + std::to_string(length);
    int id = 0;
    if (nc_inq_dimid(ncid, name.c_str(), &id) != NC_NOERR)
        require(nc_def_dim(ncid, name.c_str(), length, &id));
    return id;
}

std::vector<int> dimensionsOf(int ncid, const TypedVariable& v)
{
    std::vector<int> ids;
    for (const std::size_t length : v.lengths)
        ids.push_back(dimensionOf(ncid, length));
    return ids;
}

void putByLibrary(int ncid, int varid, const TypedVariable& v, const CValues& values)
{
    if (!v.type->isWrittenAlone) {
        require(nc_put_var(ncid, varid, values.get()));
        return;
    }
    for (std::size_t i = 0; i < v.data.size(); ++i) {
        std::vector<std::size_t> index(v.lengths.size());
        std::size_t rest = i;
        for (std::size_t d = index.size(); d-- > 0; rest /= v.lengths[d])
            index[d] = rest % v.lengths[d];
        require(nc_put_var1(ncid, varid, index.data(),
                            static_cast<const char*>(values.get()) + i * v.type->size));
    }
}

void writeByLibrary(const std::string& path, Program& program)
{
    LibraryFile file = LibraryFile::create(path);
    program.schema.defineByLibrary(file.ncid());
    for (const TypedVariable& v : program.variables) {
        const std::vector<int> dims = dimensionsOf(file.ncid(), v);
        int varid = 0;
        require(nc_def_var(file.ncid(), v.name.c_str(), v.type->id, static_cast<int>(dims.size()),
                           dims.data(), &varid));
        const CValues attribute(*v.attributeType, v.attribute);
        require(nc_put_att(file.ncid(), varid, "a", v.attributeType->id, v.attribute.size(),
                           attribute.get()));
        const CValues values(*v.type, v.data);
        putByLibrary(file.ncid(), varid, v, values);
    }
    file.close();
}

// The module's calls that define types.
class ModuleDefiner {
public:
    ModuleDefiner(Host& host, int ncid) : host_(host), ncid_(ncid) {}

    nc_type define(const Typed& type)
    {
        switch (type.kind) {
        case Kind::enumeration: {
            const nc_type id = idOf("defEnum", {ncid_, type.base->id, type.name});
            for (const TypedMember& member : type.members) {
                Datum datum;
                datum.bits = member.bits;
                call("insertEnum",
                     {ncid_, id, member.name, toHost(*type.base, {&datum}, {}, false)});
            }
            return id;
        }
        case Kind::vlen:
            return idOf("defVlen", {ncid_, type.name, type.base->id});
        case Kind::opaque:
            return idOf("defOpaque", {ncid_, type.size, type.name});
        default:
            break;
        }
        const nc_type id = idOf("defCompound", {ncid_, type.size, type.name});
        for (const TypedField& field : type.fields) {
            const std::vector<int> lengths(field.lengths.rbegin(), field.lengths.rend());
            if (lengths.empty())
                call("insertCompound", {ncid_, id, field.name, field.offset, field.type->id});
            else
                call("insertArrayCompound",
                     {ncid_, id, field.name, field.offset, field.type->id, rowOf(lengths)});
        }
        return id;
    }

private:
    void call(const std::string& operation, const std::vector<Value>& arguments)
    {
        host_.callAny(operation, arguments);
    }
    nc_type idOf(const std::string& operation, const std::vector<Value>& arguments)
    {
        return static_cast<nc_type>(host_.callAny(operation, arguments).at(0).toDouble());
    }

    Host& host_;
    int ncid_;
};

void writeByModule(Host& host, const std::string& path, Program& program, Dice& dice)
{
    const int ncid = static_cast<int>(host.call("create", {path, "netcdf4"}).at(0).toDouble());
    ModuleDefiner definer(host, ncid);
    program.schema.defineBy(definer);
    for (const TypedVariable& v : program.variables) {
        std::vector<int> dims = dimensionsOf(ncid, v);
        std::reverse(dims.begin(), dims.end());
        const Value dimids = dims.empty() ? Value::empty() : rowOf(dims);
        const Value varid = host.call("defVar", {ncid, v.name, v.type->id, dimids}).at(0);
        host.callAny("putAtt", {ncid, varid, "a", v.attributeType->id,
                                toWrite(*v.attributeType, pointersTo(v.attribute),
                                        {v.attribute.size()}, true, dice)});
        const Value values = toWrite(*v.type, pointersTo(v.data), v.hostLengths(), false, dice);
        if (v.lengths.empty() || dice.rarely(2)) {
            host.callAny("putVar", {ncid, varid, values});
        } else {
            const std::vector<double> zeros(v.lengths.size(), 0);
            host.callAny("putVara",
                         {ncid, varid, Value::row(zeros), rowOf(v.hostLengths()), values});
        }
    }
    host.call("close", {ncid});
}

[[noreturn]] void differ(const std::string& what) { throw std::runtime_error(what); }

void compare(const std::string& what, const Value& given, const Value& expected)
{
    if (given != expected)
        differ(what + ":\n  expected " + expected.describe() + "\n  given    " + given.describe());
}

bool holdsLabels(const Typed& type)
{
    return type.kind == Kind::enumeration || (type.kind == Kind::vlen && holdsLabels(*type.base)) ||
           std::any_of(type.fields.begin(), type.fields.end(),
                       [](const TypedField& field) { return holdsLabels(*field.type); });
}

// Both results, against what they are to be.
void compareResults(const std::string& what, const std::vector<Value>& results, const Typed& type,
                    const std::vector<const Datum*>& data, const std::vector<std::size_t>& lengths,
                    bool isRow)
{
    compare(what, results.at(0), toHost(type, data, lengths, isRow));
    if (results.size() != (holdsLabels(type) ? 2 : 1))
        differ(what + ": the number of results");
    if (results.size() > 1)
        compare(what + ", labels", results[1], toHost(type, data, lengths, isRow, true));
}

// A strided block of a variable.
void readBlock(Host& host, int ncid, int varid, const TypedVariable& v, Dice& dice)
{
    const std::size_t rank = v.lengths.size();
    std::vector<std::size_t> start(rank), count(rank), stride(rank);
    for (std::size_t d = 0; d < rank; ++d) {
        start[d] = dice.below(v.lengths[d]);
        stride[d] = dice.below(2) + 1;
        count[d] = 1 + dice.below((v.lengths[d] - 1 - start[d]) / stride[d] + 1);
    }
    std::vector<const Datum*> chosen;
    for (std::size_t i = 0; i < productOf(count); ++i) {
        std::size_t rest = i;
        std::size_t index = 0;
        std::size_t step = 1;
        for (std::size_t d = rank; d-- > 0; rest /= count[d]) {
            index += step * (start[d] + rest % count[d] * stride[d]);
            step *= v.lengths[d];
        }
        chosen.push_back(&v.data[index]);
    }
    const auto reversed = [](const std::vector<std::size_t>& list) {
        return std::vector<std::size_t>(list.rbegin(), list.rend());
    };
    compareResults("block of " + v.name,
                   host.callAny("getVars",
                                {ncid, varid, rowOf(reversed(start)), rowOf(reversed(count)),
                                 rowOf(reversed(stride))},
                                2),
                   *v.type, chosen, reversed(count), false);
}

void readByModule(Host& host, const std::string& path, const Program& program, Dice& dice)
{
    const int ncid = static_cast<int>(host.call("open", {path, "nowrite"}).at(0).toDouble());
    for (const TypedVariable& v : program.variables) {
        const int varid = static_cast<int>(host.call("inqVarID", {ncid, v.name}).at(0).toDouble());
        compareResults(v.name, host.callAny("getVar", {ncid, varid}, 2), *v.type,
                       pointersTo(v.data), v.hostLengths(), false);
        if (!v.lengths.empty())
            readBlock(host, ncid, varid, v, dice);
        compareResults("attribute of " + v.name, host.callAny("getAtt", {ncid, varid, "a"}, 2),
                       *v.attributeType, pointersTo(v.attribute), {v.attribute.size()}, true);
    }
    host.call("close", {ncid});
}

void readByLibrary(const std::string& path, const Program& program)
{
    const LibraryFile file = LibraryFile::open(path);
    const auto check = [&](const std::string& what, const Typed& type, const Data& data,
                           auto read) {
        std::vector<char> bytes(data.size() * type.size + 1);
        require(read(bytes.data()));
        const Data stored = decode(type, bytes.data(), data.size());
        require(nc_reclaim_data(file.ncid(), type.id, bytes.data(), data.size()));
        if (!(stored == data))
            differ("what was stored of " + what);
    };
    for (const TypedVariable& v : program.variables) {
        const int varid = file.varid(v.name);
        check(v.name, *v.type, v.data, [&](void* p) { return nc_get_var(file.ncid(), varid, p); });
        check("attribute of " + v.name, *v.attributeType, v.attribute,
              [&](void* p) { return nc_get_att(file.ncid(), varid, "a", p); });
    }
}

// False for files that ncdump fails on, as it does on enumerations with values that are no
// member's.
bool compareDumps(const std::string& byLibrary, const std::string& byModule)
{
    std::string expected;
    try {
        expected = testsupport::ncdump(byLibrary);
    } catch (const std::runtime_error&) {
        return false;
    }
    if (testsupport::ncdump(byModule) != expected)
        differ("ncdump of both files: " + expected + testsupport::ncdump(byModule));
    return true;
}

struct Figures {
    std::size_t programs = 0;
    std::size_t userTypes = 0;
    std::size_t dumps = 0;
};

void run(const std::vector<unsigned char>& choices, const testsupport::ScratchFolder& folder,
         Figures& figures)
{
    const std::string byLibrary = folder.file("library.nc");
    const std::string byModule = folder.file("module.nc");
    Dice dice(choices);
    Program program(dice);
    ++figures.programs;
    figures.userTypes += program.schema.types().size() - 12;
    Host host;
    struct Closing {
        Host& host;
        ~Closing() { testsupport::closeEverything(host); }
    } const closing{host};
    writeByLibrary(byLibrary, program);
    readByModule(host, byLibrary, program, dice);
    writeByModule(host, byModule, program, dice);
    readByLibrary(byModule, program);
    if (!host.breaches().empty() || host.liveBlocks() != 0 || host.liveArrays() != 0)
        differ("the module broke the host's contract");
    if (figures.programs % programsToADump == 0)
        figures.dumps += compareDumps(byLibrary, byModule) ? 1 : 0;
}

// The program that a failure has reported, as numbers between blanks.
std::vector<unsigned char> choicesOf(const char* numbers)
{
    std::istringstream words(numbers);
    std::vector<unsigned char> choices;
    for (unsigned choice = 0; words >> choice;)
        choices.push_back(static_cast<unsigned char>(choice));
    return choices;
}

TEST(TypedPrograms, MatchPlainLibraryCalls)
{
    const testsupport::ScratchFolder folder;
    Figures figures;
    if (const char* one = std::getenv("GRIDIO_TYPED_PROGRAM")) {
        run(choicesOf(one), folder, figures);
        return;
    }
    rc::detail::TestParams params = rc::detail::configuration().testParams;
    if (std::getenv("RC_PARAMS") == nullptr) {
        params.maxSuccess = usualPrograms;
        params.seed = usualSeed;
    }
    const auto choice =
        rc::gen::cast<unsigned char>(rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, 256)));
    const auto result = rc::detail::checkTestable(
        [&] {
            const auto choices =
                *rc::gen::container<std::vector<unsigned char>>(choicesOfAProgram, choice);
            try {
                run(choices, folder, figures);
            } catch (const std::exception& difference) {
                RC_FAIL(std::string(difference.what()));
            }
        },
        rc::detail::TestMetadata{}, params);
    std::cout << figures.programs << " programs, " << figures.userTypes << " types, "
              << figures.dumps << " pairs of files dumped, seed " << params.seed << '\n';
    if (!result.is<rc::detail::SuccessResult>()) {
        std::ostringstream message;
        rc::detail::printResultMessage(result, message);
        FAIL() << message.str();
    }
}

} // namespace
} // namespace properties
