// SPDX-License-Identifier: BSD-3-Clause
// Runs the cases of argument_rules.py, read from standard input, in the stand-alone host, and
// compares each outcome with the model's. With the argument "classic" the scratch file is a classic
// one, for which the library may refuse calls that the model expects to succeed.
#include "hosts/standalone/host.h"

#include <netcdf.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>

namespace {

using standalone::Host;
using standalone::Outcome;
using standalone::Value;
using Fields = std::vector<std::string>;

Fields split(const std::string& text, char separator)
{
    Fields fields;
    std::string field;
    for (std::istringstream in(text); std::getline(in, field, separator);)
        fields.push_back(field);
    if (!text.empty() && text.back() == separator)
        fields.emplace_back();
    return fields;
}

std::string percentDecoded(const std::string& text)
{
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            decoded += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            decoded += text[i];
        }
    }
    return decoded;
}

// Before the names of operations on values of any type.
const std::string anyPrefix = "any.";

// The file that the cases work on, created anew after every case that may have changed it.
class ScratchFile {
public:
    ScratchFile(Host& host, bool isClassic) : host_(host), isClassic_(isClassic) {}

    void renew()
    {
        close(ncid_);
        std::remove(name_.c_str());
        // A new name each time: some definitions leave a file that the library cannot close.
        name_ = "scratch" + std::to_string(++count_);
        nc_set_default_format(NC_FORMAT_CLASSIC, nullptr);
        nc_set_chunk_cache(4194304, 1009, 0.75F);
        const double create = isClassic_ ? NC_CLOBBER : NC_NETCDF4;
        ncid_ = host_.call("create", {name_, create})[0].toDouble();
        const Value dims = Value::row<double>({0, 1});
        host_.call("defDim", {ncid_, "x", 3});
        host_.call("defDim", {ncid_, "y", 2});
        host_.call("defVar", {ncid_, "d", NC_DOUBLE, dims});
        host_.call("defVar", {ncid_, "c", NC_CHAR, dims});
        // A value that every type can hold; the classic formats take it as an attribute.
        if (isClassic_)
            host_.call("putAttDouble", {ncid_, 0, "_FillValue", NC_DOUBLE, 7});
        else
            host_.call("defVarFill", {ncid_, 0, false, 7});
        host_.call("putAttDouble", {ncid_, 0, "num", NC_DOUBLE, Value::row<double>({1, 2})});
        host_.call("putAttText", {ncid_, 0, "txt", "abc"});
        group_ = isClassic_ ? ncid_ : host_.call("defGrp", {ncid_, "g"})[0].toDouble();
        hasTypes_ = isClassic_;
    }

    // For the operations on values of any type; those that were added before stay.
    void addTypes()
    {
        if (hasTypes_)
            return;
        hasTypes_ = true;
        host_.callAny("defEnum", {ncid_, "byte", "sky"});
        host_.callAny("insertEnum", {ncid_, "sky", "clear", 0});
        host_.callAny("insertEnum", {ncid_, "sky", "cloudy", 1});
        host_.callAny("defOpaque", {ncid_, 3, "blob"});
        host_.callAny("defVlen", {ncid_, "words", "string"});
        for (const char* name : {"pair", "loose"}) {
            host_.callAny("defCompound", {ncid_, 8, name});
            host_.callAny("insertCompound", {ncid_, name, "a", 0, "int"});
        }
        host_.callAny("insertArrayCompound", {ncid_, "pair", "b", 4, "short", 2});
    }

    // Closes the file that is open under the identifier, if any.
    void close(double ncid) { static_cast<void>(host_.attempt("close", {ncid})); }

    double ncid() const { return ncid_; }
    double group() const { return group_; }

private:
    Host& host_;
    bool isClassic_;
    std::string name_;
    int count_ = 0;
    double ncid_ = -1;
    double group_ = -1;
    bool hasTypes_ = false;
};

template <class T> T parsed(const std::string& element)
{
    if constexpr (std::is_floating_point_v<T>)
        return static_cast<T>(std::strtod(element.c_str(), nullptr));
    else if constexpr (std::is_unsigned_v<T>)
        return static_cast<T>(std::strtoull(element.c_str(), nullptr, 10));
    else
        return static_cast<T>(std::strtoll(element.c_str(), nullptr, 10));
}

template <class T> Value numeric(const standalone::Dims& dims, const Fields& elements)
{
    std::vector<T> values;
    for (const std::string& element : elements)
        values.push_back(parsed<T>(element));
    return Value::numeric<T>(dims, values);
}

Value textValue(const standalone::Dims& dims, const Fields& elements)
{
    std::u16string units;
    for (const std::string& element : elements)
        units += static_cast<char16_t>(std::stoi(element));
    return Value::text(dims, units);
}

// Parses values from tokens.
class ValueReader {
public:
    explicit ValueReader(const ScratchFile& file) : file_(file) {}

    Value operator()(const std::string& token)
    {
        if (token.find('@') != std::string::npos)
            return fromToken(token);
        const auto known = values_.find(token);
        return known != values_.end() ? known->second
                                      : values_.emplace(token, fromToken(token)).first->second;
    }

private:
    Value fromToken(const std::string& token) const
    {
        const Fields parts = split(token, ' ');
        standalone::Dims dims;
        std::size_t count = 1;
        for (const std::string& length : split(parts[1], 'x')) {
            dims.push_back(std::stoul(length));
            count *= dims.back();
        }
        Fields elements = parts.size() > 2 ? split(parts[2], ',') : Fields();
        if (!elements.empty() && elements[0][0] == '*')
            elements = Fields(count, elements[0].substr(1));
        if (!elements.empty() && elements[0] == "@file")
            return "plain";
        if (!elements.empty() && elements[0] == "@new")
            return "made";
        for (std::string& element : elements) {
            if (element == "@ncid" || element == "@group")
                element = std::to_string(element == "@ncid" ? file_.ncid() : file_.group());
        }
        return build(parts[0], dims, elements);
    }

    static Value build(const std::string& name, const standalone::Dims& dims,
                       const Fields& elements)
    {
        // clang-format off
        if (name == "single") return numeric<float>(dims, elements);
        if (name == "int8")   return numeric<std::int8_t>(dims, elements);
        if (name == "uint8")  return numeric<std::uint8_t>(dims, elements);
        if (name == "int16")  return numeric<std::int16_t>(dims, elements);
        if (name == "uint16") return numeric<std::uint16_t>(dims, elements);
        if (name == "int32")  return numeric<std::int32_t>(dims, elements);
        if (name == "uint32") return numeric<std::uint32_t>(dims, elements);
        if (name == "int64")  return numeric<std::int64_t>(dims, elements);
        if (name == "uint64") return numeric<std::uint64_t>(dims, elements);
        if (name == "char")   return textValue(dims, elements);
        // clang-format on
        if (name == "logical") {
            std::vector<bool> flags;
            for (const std::string& element : elements)
                flags.push_back(element != "0");
            return Value::logical(dims, flags);
        }
        if (name == "cell") {
            const std::size_t count = dims[0] * dims[1];
            return Value::cell(dims, std::vector<Value>(count, Value(1.0)));
        }
        if (name == "pair")
            return Value::structure({{"a", 1}, {"b", Value::column<double>({2, 3})}});
        if (name == "struct")
            return dims == standalone::Dims{1, 1} ? Value::structure({{"a", 1}})
                                                  : Value::structures(dims, {"a"});
        if (name == "function" || name == "object")
            return Value::anythingElse(dims);
        if (name == "complex") {
            const Value real = numeric<double>(dims, elements);
            return Value::complex<double>(dims, real.elements<double>(),
                                          std::vector<double>(real.numel(), 7.5));
        }
        return numeric<double>(dims, elements); // also what the host has as a form of its own
    }

    const ScratchFile& file_;
    std::map<std::string, Value> values_;
};

bool isRefused(const Outcome& outcome, const std::string& operation)
{
    const std::string name = outcome.raised->name();
    if (name == "attemptedChunkingInquiryOnNetcdf3File" ||
        name == "attemptedChecksumInquiryOnNetcdf3File")
        return true;
    return (name == "libraryFailure" || name == "librarydapFailure") &&
           outcome.raised->arguments.at(0) == standalone::Argument(operation);
}

bool isAsExpected(const Outcome& outcome, const std::string& operation, const Fields& expected)
{
    if (expected[0] == "success")
        return outcome.succeeded();
    if (expected[0] == "passes")
        return outcome.succeeded() || isRefused(outcome, operation);
    if (expected[0] == "memory")
        return outcome.succeeded() || isRefused(outcome, operation) ||
               outcome.raised->identifier == "standalone:outOfMemory";
    if (outcome.succeeded() || outcome.raised->name() != expected[1] ||
        outcome.raised->arguments.size() != expected.size() - 2)
        return false;
    for (std::size_t i = 2; i < expected.size(); ++i) {
        std::ostringstream given;
        const auto& argument = outcome.raised->arguments[i - 2];
        if (const auto* text = std::get_if<std::string>(&argument))
            given << *text;
        else
            given << std::get<long>(argument);
        if (given.str() != expected[i])
            return false;
    }
    return true;
}

// In UTF-8, the host's encoding of text; the model writes bytes.
std::string utf8(const std::string& latin1)
{
    std::string text;
    for (const char c : latin1) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            text += c;
        } else {
            text += static_cast<char>(0xC0 | byte >> 6);
            text += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return text;
}

} // namespace

int main(int count, char** words)
{
    const bool isClassic = count > 1 && std::string(words[1]) == "classic";
    Host host;
    host.limitBytes(std::size_t{64} << 20);
    const Value plain = host.call("create", {"plain", "clobber"})[0];
    host.call("close", {plain});
    ScratchFile file(host, isClassic);
    file.renew();
    ValueReader valueOf(file);

    int passed = 0;
    int failed = 0;
    std::string written; // the operation that wrote values into the file since it was created
    for (std::string line; std::getline(std::cin, line);) {
        const Fields fields = split(line, '\t');
        const bool isAny = fields[0].compare(0, anyPrefix.size(), anyPrefix) == 0;
        const std::string operation = fields[0].substr(isAny ? anyPrefix.size() : 0);
        if (!written.empty() && written != fields[0]) {
            file.renew();
            written.clear();
        }
        std::vector<Value> arguments;
        for (std::size_t i = 1; i + 2 < fields.size(); ++i)
            arguments.push_back(valueOf(fields[i]));
        Fields expected = split(fields.back(), ' ');
        // A label is named by its bytes, any other text by its characters.
        const bool isBytes = expected.size() > 1 && expected[1] == "unknownLabel";
        for (std::string& word : expected)
            word = isBytes ? percentDecoded(word) : utf8(percentDecoded(word));

        if (isClassic && expected[0] == "success")
            expected[0] = "passes";
        if (isAny)
            file.addTypes();
        const Outcome outcome =
            isAny ? host.attemptAny(operation, arguments) : host.attempt(operation, arguments);
        // A classic file refuses what has a type before the values are looked at.
        if (isClassic && isAny && expected[0] == "raises" && isRefused(outcome, operation))
            expected[0] = "passes";
        const bool isGood = isAsExpected(outcome, operation, expected) && host.liveBlocks() == 0 &&
                            host.breaches().empty();
        ++(isGood ? passed : failed);
        if (!isGood && failed <= 30)
            std::cout << "FAILED: " << line << "\n  got " << outcome << "\n";

        const bool onlyLooks = operation.compare(0, 3, "inq") == 0 ||
                               operation.compare(0, 3, "get") == 0 || operation == "parameter";
        // A call that is refused changes nothing, and values that an operation writes change
        // nothing for its other cases.
        if (isGood && outcome.succeeded() && fields[0].compare(0, 6, "putVar") == 0) {
            written = fields[0];
        } else if ((outcome.succeeded() && !onlyLooks) || !isGood) {
            const bool opens = operation == "open" || operation == "create" ||
                               operation == "pOpen" || operation == "pCreate";
            if (outcome.succeeded() && opens)
                file.close(outcome.results.back().toDouble());
            file.renew();
        }
    }
    file.close(file.ncid());
    std::cout << passed << " passed, " << failed << " failed\n";
    return failed == 0 && passed > 0 ? 0 : 1;
}
