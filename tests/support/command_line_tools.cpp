// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/command_line_tools.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace testsupport {
namespace {

std::string quoted(const std::string& file)
{
    std::string result = "'";
    for (const char c : file)
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return result + "'";
}

std::string run(const std::string& command)
{
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (pipe == nullptr)
        throw std::runtime_error("cannot run " + command);
    std::string output;
    std::array<char, 4096> buffer{};
    for (std::size_t n = 0; (n = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        output.append(buffer.data(), n);
    if (pclose(pipe) != 0)
        throw std::runtime_error(command + " failed: " + output);
    return output;
}

} // namespace

std::string ncdump(const std::string& file, const std::string& options)
{
    return run(GRIDIO_NCDUMP " -n test " + options + " " + quoted(file));
}

std::string ncdumpKind(const std::string& file)
{
    std::string kind = run(GRIDIO_NCDUMP " -k " + quoted(file));
    while (!kind.empty() && kind.back() == '\n')
        kind.pop_back();
    return kind;
}

void ncgen(const std::string& file, const std::string& cdl, const std::string& kind)
{
    const std::string source = file + ".cdl";
    if (!(std::ofstream(source) << cdl).flush())
        throw std::runtime_error("cannot write " + source);
    run(GRIDIO_NCGEN " -k " + kind + " -o " + quoted(file) + " " + quoted(source));
}

} // namespace testsupport
