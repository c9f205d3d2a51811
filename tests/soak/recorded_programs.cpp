// SPDX-License-Identifier: BSD-3-Clause
#include "tests/soak/recorded_programs.h"

#include "tests/properties/planner.h"
#include "tests/properties/typed_library_calls.h"

#include <ostream>
#include <random>
#include <stdexcept>

namespace soak {
namespace {

using properties::Argument;
using properties::Call;

constexpr int programsOfAFormat = 8;
constexpr int commandsOfAProgram = 60;
constexpr int choicesOfACommand = 32;

properties::Command roll(std::mt19937& dice)
{
    properties::Command command;
    command.action = static_cast<unsigned char>(dice());
    for (int i = 0; i < choicesOfACommand; ++i)
        command.choices.push_back(static_cast<unsigned char>(dice()));
    return command;
}

Program record(const testsupport::FileFormat& format, const std::string& path, std::mt19937& dice)
{
    properties::LibraryExecutor library(path);
    properties::Planner planner(format, library);
    Program program;
    const auto carryOut = [&](const Call& call) {
        const properties::Reply reply = library.run(call);
        if (call.form == "close" && !reply.failure.empty())
            throw std::runtime_error("a program to be repeated cannot close its file");
        planner.note(call, reply);
        program.push_back(call);
    };
    for (int i = 0; i < commandsOfAProgram; ++i) {
        for (const Call& call : planner.plan(roll(dice)))
            carryOut(call);
    }
    if (library.groupCount() != 0)
        carryOut(Call{"close", "", {properties::Group{0}}});
    return program;
}

struct WriteArgument {
    std::ostream& out;

    void operator()(const properties::Group& group) const
    {
        out << "@(ids) ids(" << group.index + 1 << ')';
    }
    void operator()(properties::Number number) const { out << number; }
    void operator()(bool flag) const { out << (flag ? "true" : "false"); }
    void operator()(const std::string& text) const
    {
        writeBytes(text);
        out << ", \"char\")";
    }
    void operator()(const properties::Numbers& numbers) const
    {
        out << '[';
        for (auto number = numbers.rbegin(); number != numbers.rend(); ++number)
            out << *number << ' ';
        out << ']';
    }
    void operator()(const properties::Elements& elements) const
    {
        writeBytes(elements.bytes);
        out << ", \""
            << standalone::classWord(properties::typedLibraryCalls(elements.suffix).hostClass)
            << "\")";
    }

private:
    void writeBytes(const std::string& bytes) const
    {
        out << "typecast(uint8([";
        for (const char byte : bytes)
            out << static_cast<int>(static_cast<unsigned char>(byte)) << ' ';
        out << "])";
    }
};

} // namespace

std::vector<Program> recordPrograms(const std::string& path)
{
    std::mt19937 dice(1); // NOLINT: the same ones each time
    std::vector<Program> programs;
    for (const testsupport::FileFormat& format : testsupport::fileFormats) {
        for (int i = 0; i < programsOfAFormat; ++i)
            programs.push_back(record(format, path, dice));
    }
    return programs;
}

std::size_t callsIn(const std::vector<Program>& programs)
{
    std::size_t count = 0;
    for (const Program& program : programs)
        count += program.size();
    return count;
}

void writeScript(const std::vector<Program>& programs, std::ostream& out)
{
    out << "function programs = recorded_programs ()\n  programs = {};\n";
    for (const Program& program : programs) {
        out << "  p = {};\n";
        for (const Call& call : program) {
            out << "  p{end+1} = {\"" << call.operation() << '"';
            for (const Argument& argument : call.arguments) {
                out << ", ";
                std::visit(WriteArgument{out}, argument);
            }
            out << "};\n";
        }
        out << "  programs{end+1} = p;\n";
    }
    out << "end\n";
}

} // namespace soak
