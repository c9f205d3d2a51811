// SPDX-License-Identifier: BSD-3-Clause
// A program that calls the module through the minimal host: writes a file and reads it back.
#include "hosts/minimal/call.h"

#include <cstdint>
#include <iostream>

using minimal::number;
using minimal::text;
using minimal::Value;

namespace {

Value gridio(const std::string& operation, std::vector<Value> arguments)
{
    arguments.insert(arguments.begin(), text(operation));
    const std::vector<Value> results = minimal::call(plugFunction, arguments);
    return results.empty() ? nullptr : results[0];
}

} // namespace

int main()
{
    const Value ncid = gridio("create", {text("example.nc"), text("clobber")});
    const Value x = gridio("defDim", {ncid, text("x"), number(3)});
    const Value xtype = gridio("parameter", {text("NC_INT")});
    const Value varid = gridio("defVar", {ncid, text("v"), xtype, x});
    gridio("endDef", {ncid});

    const size_t row[] = {1, 3};
    const Value written = minimal::makeArray(vxINT32_CLASS, 2, row, minimal::Elements::zeros);
    auto* elements = static_cast<std::int32_t*>(vxGetWritableData(written.get()));
    for (std::int32_t i = 0; i < 3; ++i)
        elements[i] = i + 1;
    gridio("putVarInt", {ncid, varid, written});

    const Value read = gridio("getVarInt", {ncid, varid});
    for (size_t i = 0; i < vxGetNumberOfElements(read.get()); ++i)
        std::cout << static_cast<const std::int32_t*>(vxGetData(read.get()))[i] << '\n';

    try {
        gridio("inqVarID", {ncid, text("w")});
    } catch (const minimal::Error& error) {
        std::cout << error.identifier() << '\n';
    }
    minimal::unload(); // warns on stderr, and closes the file that is still open
}
