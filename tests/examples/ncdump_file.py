# SPDX-License-Identifier: BSD-3-Clause
"""Reads the root group of a netCDF file from ncdump's output, to full precision."""
import os
import re
import struct
import subprocess

HOST_CLASSES = {"byte": "int8", "char": "char", "short": "int16", "int": "int32", "float": "single",
                "double": "double", "ubyte": "uint8", "ushort": "uint16", "uint": "uint32",
                "int64": "int64", "uint64": "uint64"}

# ncdump prints "_" for a fill value, also for that of the type (but bytes have none).
DEFAULT_FILL = {"short": -32767, "int": -2147483647, "ushort": 65535, "uint": 4294967295,
                "int64": -9223372036854775806, "uint64": 18446744073709551614,
                "float": 9.9692099683868690e+36, "double": 9.9692099683868690e+36}

NAME = r"(?:[^\s\\(]|\\.)+"


def ncdump(*args):
    done = subprocess.run([os.environ["NCDUMP"], *args], check=True, capture_output=True)
    return done.stdout.decode("latin-1")


def plain(name):
    return re.sub(r"\\(.)", r"\1", name)


def as_float32(value):
    return struct.unpack("f", struct.pack("f", value))[0]


def number(text, type_name):
    if type_name not in ("float", "double"):
        return int(re.match(r"-?\d+", text)[0])  # attributes carry a suffix: 3s, 200UB
    value = float(text.removesuffix("f"))  # 0.5f, NaNf, Infinityf
    return as_float32(value) if type_name == "float" else value


class Dimension:
    def __init__(self, name, length, unlimited):
        self.name, self.length, self.unlimited = name, length, unlimited


class Variable:
    """dimensions slowest varying first; values is a list of numbers, or of bytes for each line of text."""

    def __init__(self, name, type_name, dimensions, fill):
        self.name, self.type, self.dimensions = name, type_name, dimensions
        self.fill, self.values = fill, []

    def host_class(self):
        return HOST_CLASSES.get(self.type)

    def read(self, body):
        if self.type == "char":
            self.values = [unescape(t) for t in re.findall(r'"((?:[^"\\]|\\.)*)"', body)]
        elif self.host_class():
            self.values = [self.fill if t == "_" else number(t, self.type)
                           for t in re.findall(r"[^\s,]+", body)]


def unescape(text):
    names = {"n": "\n", "t": "\t", "r": "\r", "b": "\b", "f": "\f", "v": "\v"}

    def character(match):
        escape = match[1]
        return chr(int(escape, 8)) if escape.isdigit() else names.get(escape, escape)
    return re.sub(r"\\(\d{3}|.)", character, text)


class File:
    def __init__(self, path):
        self.kind = ncdump("-k", path).strip()
        text = ncdump("-p", "9,17", path)
        header, _, data = re.split(r"\n *group: ", text)[0].partition("\ndata:\n")

        self.dimensions = []
        section = re.search(r"\ndimensions:\n((?:\t.*\n)*)", header)
        for name, length, current in re.findall(
                rf"\t({NAME}) = (\d+|UNLIMITED) ;(?: // \((\d+) currently\))?",
                section[1] if section else ""):
            unlimited = length == "UNLIMITED"
            self.dimensions.append(
                Dimension(plain(name), int(current if unlimited else length), unlimited))

        self.variables = []
        by_name = {d.name: d for d in self.dimensions}
        section = header.partition("\nvariables:\n")[2]
        for type_name, name, dims in re.findall(
                rf"^\t({NAME}) ({NAME})(?:\((.*)\))? ;$", section, re.MULTILINE):
            fill = re.search(rf"^\t\t{re.escape(name)}:_FillValue = (\S+) ;$", section, re.MULTILINE)
            numeric = type_name in HOST_CLASSES and type_name != "char"
            self.variables.append(Variable(
                plain(name), type_name,
                [by_name[plain(d)] for d in dims.split(", ")] if dims else [],
                number(fill[1], type_name) if fill and numeric else DEFAULT_FILL.get(type_name)))

        bodies = {plain(name): body for name, body in re.findall(
            rf'^ ({NAME}) =((?:[^";]+|"(?:[^"\\]|\\.)*")*);$', data, re.MULTILINE)}
        for variable in self.variables:
            variable.read(bodies.get(variable.name, ""))
