#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""A small DAP2 server on the loopback address, for tests: one dataset, array constraints, and paths that fail.

/good answers well. The other paths answer the description well and then fail when data are asked for:
/broken sends half of the data, /garbage sends no DAP2 at all, /error a server error, /hangup nothing. Any other path is
not found.
Prints its port on the first line, then serves until its standard input ends.
"""
import http.server
import math
import re
import struct
import sys
import threading
import urllib.parse

TIME, LAT, LON = 4, 3, 5
TEXT = "gridio"


def values_of(kind):
    count = TIME * LAT * LON
    if kind == "Float64":
        return [math.sqrt(i) * (-1) ** i for i in range(count)]
    if kind == "Float32":
        return [i / 8 - 3 for i in range(count)]
    return [i * 97 - 2000 for i in range(count)]


# name: DAP2 type, dimensions, values in row-major order
VARIABLES = {
    "time": ("Int32", [("time", TIME)], [10, 20, 30, 40]),
    "lat": ("Float32", [("lat", LAT)], [-45.0, 0.0, 45.0]),
    "temp": ("Float64", [("time", TIME), ("lat", LAT), ("lon", LON)], values_of("Float64")),
    "wind": ("Float32", [("time", TIME), ("lat", LAT), ("lon", LON)], values_of("Float32")),
    "packed": ("Int16", [("time", TIME), ("lat", LAT), ("lon", LON)], values_of("Int16")),
    "flag": ("Byte", [("lat", LAT), ("lon", LON)], [i * 17 for i in range(LAT * LON)]),
}
PATHS = ("good", "broken", "garbage", "error", "hangup")
FORMATS = {"Float64": ">d", "Float32": ">f", "Int32": ">i", "Int16": ">i"}

DAS = """Attributes {
    temp {
        String units "K";
        Float64 valid_range -100.5, 100.5;
    }
    packed {
        Float32 scale_factor 0.5;
        Int16 missing_value -999;
    }
    NC_GLOBAL {
        String title "%s";
    }
}
""" % TEXT


class BadConstraint(Exception):
    pass


def parse_constraint(query):
    """[(name, [(first, step, last), ...]), ...] of "temp[0:1:3][0:2],lat"; everything when it is empty."""
    if not query:
        return [(name, None) for name in VARIABLES]
    wanted = []
    for item in query.split(","):
        match = re.fullmatch(r"(\w+)((?:\[\d+(?::\d+){0,2}\])*)", item)
        if not match or match.group(1) not in VARIABLES:
            raise BadConstraint(item)
        slabs = []
        for text in re.findall(r"\[([\d:]+)\]", match.group(2)):
            part = [int(x) for x in text.split(":")]
            slabs.append((part[0], part[1] if len(part) == 3 else 1, part[-1]))
        wanted.append((match.group(1), slabs or None))
    return wanted


def selection(name, slabs):
    """Lengths and values of a variable under a constraint."""
    _, dims, values = VARIABLES[name]
    if slabs is None:
        slabs = [(0, 1, length - 1) for _, length in dims]
    if len(slabs) != len(dims) or any(last >= length for (_, _, last), (_, length) in zip(slabs, dims)):
        raise BadConstraint(name)
    indices = [0]
    for (first, step, last), (_, length) in zip(slabs, dims):
        indices = [i * length + j for i in indices for j in range(first, last + 1, step)]
    return [len(range(f, l + 1, s)) for f, s, l in slabs], [values[i] for i in indices]


def dds(wanted):
    lines = ["Dataset {"]
    for name, slabs in wanted:
        kind, dims, _ = VARIABLES[name]
        lengths, _ = selection(name, slabs)
        shape = "".join(f"[{d} = {n}]" for (d, _), n in zip(dims, lengths))
        lines.append(f"    {kind} {name}{shape};")
    return "\n".join(lines + ["} good;", ""])


def dods(wanted):
    out = (dds(wanted) + "\nData:\n").encode()
    for name, slabs in wanted:
        kind = VARIABLES[name][0]
        _, values = selection(name, slabs)
        out += struct.pack(">II", len(values), len(values))
        if kind == "Byte":
            out += bytes(values) + b"\0" * (-len(values) % 4)
        else:
            out += b"".join(struct.pack(FORMATS[kind], v) for v in values)
    return out


class Handler(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        path, _, query = self.path.partition("?")
        name, _, kind = path.lstrip("/").rpartition(".")
        try:
            wanted = parse_constraint(urllib.parse.unquote(query))
            if name not in PATHS:
                self.answer(404, "text/plain", b"no such data set\n")
            elif kind == "dds":
                self.answer(200, "text/plain", dds(wanted).encode())
            elif kind == "das":
                self.answer(200, "text/plain", DAS.encode())
            elif kind == "dods":
                self.answer_data(name, dods(wanted))
            else:
                self.answer(404, "text/plain", b"no such thing\n")
        except BadConstraint as problem:
            text = 'Error {\n    code = 1005;\n    message = "bad constraint: %s";\n};\n' % problem
            self.answer(400, "text/plain", text.encode(), "dods-error")

    def answer_data(self, name, data):
        if name == "broken":
            data = data[: len(data) // 2]
        elif name == "garbage":
            data = b"<html>not what you expect</html>\n" * 9
        elif name == "error":
            return self.answer(500, "text/plain", b"the server is unwell\n")
        elif name == "hangup":
            self.close_connection = True
            return self.connection.close()
        return self.answer(200, "application/octet-stream", data, "dods-data")

    def answer(self, status, content_type, body, description="dods-dds"):
        self.send_response(status)
        self.send_header("Content-Type", content_type)
        self.send_header("Content-Description", description)
        self.send_header("XDODS-Server", "dods/3.2")
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *args):
        pass


def start():
    """Serves in the background; the server, whose server_port is the port."""
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.daemon_threads = True
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server


if __name__ == "__main__":
    print(start().server_port, flush=True)
    sys.stdin.read()
