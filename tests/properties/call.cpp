// SPDX-License-Identifier: BSD-3-Clause
#include "tests/properties/call.h"

#include <sstream>

namespace properties {
namespace {

struct ShowArgument {
    std::ostream& out;

    void operator()(const Group& group) const { out << "group " << group.index; }
    void operator()(Number number) const { out << number; }
    void operator()(bool flag) const { out << (flag ? "true" : "false"); }
    void operator()(const std::string& text) const { out << '"' << text << '"'; }
    void operator()(const Numbers& numbers) const
    {
        out << '[';
        for (std::size_t i = 0; i < numbers.size(); ++i)
            out << (i == 0 ? "" : " ") << numbers[i];
        out << ']';
    }
    void operator()(const Elements& elements) const
    {
        out << elements.count << ' ' << elements.suffix;
        for (const char byte : elements.bytes.substr(0, 64))
            out << ' ' << static_cast<int>(static_cast<unsigned char>(byte));
    }
};

} // namespace

std::string show(const Call& call)
{
    std::ostringstream out;
    out << call.operation() << '(';
    for (std::size_t i = 0; i < call.arguments.size(); ++i) {
        out << (i == 0 ? "" : ", ");
        std::visit(ShowArgument{out}, call.arguments[i]);
    }
    out << ')';
    return out.str();
}

std::string show(const Reply& reply)
{
    if (!reply.failure.empty())
        return reply.failure;
    std::ostringstream out;
    for (const standalone::Value& value : reply.results)
        out << value << "; ";
    return out.str();
}

} // namespace properties
