#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Runs remote_data.m against a server of this process and a local file of the same data, made by ncgen."""
import os
import socket
import subprocess
import sys
import tempfile

import dap2_server
import interpreter

CDL_TYPES = {"Float64": "double", "Float32": "float", "Int32": "int", "Int16": "short", "Byte": "ubyte"}


def write_local_file(path):
    dims, declarations, data = {}, [], []
    for name, (kind, var_dims, values) in dap2_server.VARIABLES.items():
        dims.update(var_dims)
        declarations.append(f"{CDL_TYPES[kind]} {name}({', '.join(d for d, _ in var_dims)}) ;")
        data.append(f"{name} = {', '.join(repr(v) for v in values)} ;")
    lengths = "".join(f"{d} = {n} ;\n" for d, n in dims.items())
    cdl = "netcdf good {\ndimensions:\n%svariables:\n%s\ndata:\n%s\n}\n" % (
        lengths, "\n".join(declarations), "\n".join(data))
    subprocess.run(["ncgen", "-k", "nc4", "-o", path], input=cdl, text=True, check=True)


def unused_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def check_unreachable_host(scratch):
    """In a network name space of its own, where there is no way to anywhere: nothing leaves the machine."""
    alone = ["unshare", "-rn"]
    if subprocess.run([*alone, "true"], capture_output=True).returncode != 0:
        print("this machine allows no network name space: an unreachable host is tried as a dead port only")
        return 0
    script = ("try, gridio ('open', 'http://192.0.2.1/good', 'nowrite');"
              "catch err, printf ('%s %s\\n', err.identifier, strsplit (err.message, ':'){2}); end;"
              "printf ('%d\\n', gridio ('parameter', 'NC_WRITE'));")
    run = subprocess.run([*alone, *interpreter.command(None, "--eval", script)],
                         env=interpreter.environment(scratch), capture_output=True, text=True, timeout=60)
    expected = "Ovard:gridio:netcdf:librarydapFailure  NC_EIO\n1\n"
    if run.stdout == expected and run.returncode == 0:
        return 0
    print(f"FAILED: an unreachable host\nexpected:\n{expected}got:\n{run.stdout}{run.stderr}")
    return 1


def main():
    script = os.path.join(os.path.dirname(os.path.abspath(__file__)), "remote_data.m")
    server = dap2_server.start()
    with tempfile.TemporaryDirectory() as scratch:
        file = os.path.join(scratch, "good.nc")
        write_local_file(file)
        command = interpreter.command(script, f"http://127.0.0.1:{server.server_port}", file, unused_port())
        return (subprocess.run(command, env=interpreter.environment(scratch), timeout=120).returncode
                or check_unreachable_host(scratch))


if __name__ == "__main__":
    sys.exit(main())
