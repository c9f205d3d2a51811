// SPDX-License-Identifier: BSD-3-Clause
// A program that calls the module through the stand-alone host: writes a file and reads it back.
#include "hosts/standalone/host.h"

#include <iostream>

int main()
{
    using standalone::Value;
    standalone::Host host;

    const Value ncid = host.call("create", {"example.nc", "clobber"})[0];
    const Value x = host.call("defDim", {ncid, "x", 3})[0];
    const Value xtype = host.call("parameter", {"NC_INT"})[0];
    const Value varid = host.call("defVar", {ncid, "v", xtype, x})[0];
    host.call("endDef", {ncid});
    host.call("putVarInt", {ncid, varid, Value::row<std::int32_t>({1, 2, 3})});
    std::cout << host.call("getVarInt", {ncid, varid})[0] << '\n';

    const standalone::Outcome outcome = host.attempt("inqVarID", {ncid, "w"});
    std::cout << outcome.raised->name() << '\n';

    host.unload(); // warns, and closes the file that is still open
    std::cout << host.warnings().at(0).name() << '\n';
}
