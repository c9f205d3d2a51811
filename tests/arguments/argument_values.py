# SPDX-License-Identifier: BSD-3-Clause
"""Every kind of host value that an argument may be given, as the drivers in both hosts build them.

A value is written as a token "CLASS ROWSxCOLUMNS ELEMENTS": the elements in storage order, separated by commas, or one
element with "*" before it that fills the array. Names that begin with "@" stand for what only the driver knows.
"""
import math
import struct

INTEGER_RANGES = {
    "int8": (-2**7, 2**7 - 1), "uint8": (0, 2**8 - 1), "int16": (-2**15, 2**15 - 1), "uint16": (0, 2**16 - 1),
    "int32": (-2**31, 2**31 - 1), "uint32": (0, 2**32 - 1), "int64": (-2**63, 2**63 - 1), "uint64": (0, 2**64 - 1),
}
NUMERIC_CLASSES = ("double", "single", *INTEGER_RANGES)
ELEMENT_SIZES = {
    "double": 8, "single": 4, "int8": 1, "uint8": 1, "int16": 2, "uint16": 2, "int32": 4, "uint32": 4, "int64": 8,
    "uint64": 8, "char": 2, "logical": 1, "cell": 0, "other": 0,
}
# Forms of double that only an interpreter has; the module sees the full array.
DOUBLE_FORMS = ("sparse", "range", "complex")


def to_single(x):
    return struct.unpack("f", struct.pack("f", x))[0]


class Value:
    def __init__(self, written_class, dims, elements):
        self.written_class = written_class
        self.dims = tuple(dims)
        self.count = math.prod(dims)
        filled = self.count > 64
        self.elements = list(elements) * self.count if filled else list(elements)
        self.host_class = "double" if written_class in DOUBLE_FORMS else written_class
        if written_class in ("struct", "function", "object", "pair"):
            self.host_class = "other"
        self.size = ELEMENT_SIZES[self.host_class]
        shown = ["*" + self.show(self.elements[0])] if filled else [self.show(x) for x in self.elements]
        self.token = f"{written_class} {'x'.join(map(str, dims))} {','.join(shown)}"

    @staticmethod
    def show(element):
        if isinstance(element, float):
            return repr(element).replace("inf", "Inf").replace("nan", "NaN")
        return str(element)

    @property
    def is_numeric(self):
        return self.host_class in NUMERIC_CLASSES

    @property
    def is_floating(self):
        return self.host_class in ("double", "single")

    @property
    def bytes_held(self):
        return self.count * self.size


def scalar(written_class, element):
    return Value(written_class, (1, 1), [element])


def row(written_class, elements):
    return Value(written_class, (1, len(elements)), elements)


def text(characters):
    """A char row of these bytes."""
    return row("char", list(characters.encode("latin-1")))


def interesting_doubles():
    """NaN, infinities, fractions, and the bounds of every integer type with one beyond and a fraction inside."""
    numbers = [math.nan, math.inf, -math.inf, 0.0, 0.5, -0.5, -1.0, 2.7, -2.7, 1e300, 3.4028234663852886e38, 3.5e38]
    for lowest, highest in INTEGER_RANGES.values():
        numbers += [float(lowest), float(lowest) - 1, float(highest), float(highest) + 1, float(highest) + 0.9]
    return list(dict.fromkeys(numbers))


def every_value():
    values = []
    for name in NUMERIC_CLASSES:
        number = float if name in ("double", "single") else int
        values += [scalar(name, number(0)), scalar(name, number(1)), row(name, [number(1), number(2)]),
                   Value(name, (2, 1), [number(2), number(1)]), Value(name, (2, 3), [number(k) for k in range(1, 7)]),
                   Value(name, (1, 2, 2), [number(1)] * 4)]
        values += [Value(name, dims, []) for dims in ((0, 0), (1, 0), (0, 3))]
    for x in interesting_doubles():
        values.append(scalar("double", x))
        values.append(row("double", [1.0, x]))
        if abs(x) <= 3.4028234663852886e38 or not math.isfinite(x):
            values.append(scalar("single", to_single(x)))
    for name, bounds in INTEGER_RANGES.items():
        values += [scalar(name, bound) for bound in bounds]
        values.append(row(name, list(bounds)))
    values += [scalar("complex", 1.0), row("complex", [1.0, 2.0]), scalar("sparse", 1.0), row("sparse", [0.0, 2.0]),
               row("range", [1.0, 2.0, 3.0]), row("range", [0.0, 1.0]), Value("double", (1, 1025), [0.0])]
    values += [scalar("logical", 1), scalar("logical", 0), row("logical", [1, 0]), Value("logical", (0, 0), [])]
    values += [text(t) for t in ("x", "1", "ab", "abcdef", "write", "NC_INT", "a\0b", "caf\xe9\xff")]
    values += [Value("char", (0, 0), []), Value("char", (1, 0), []), Value("char", (2, 3), list(b"abcdef"))]
    values += [Value("cell", (1, 1), []), Value("cell", (0, 0), []), Value("cell", (2, 3), [])]
    values += [Value(name, (1, 1), []) for name in ("struct", "function", "object")]
    values += [Value("struct", dims, []) for dims in ((0, 0), (1, 2), (2, 3))]
    unique = {value.token: value for value in values}
    return list(unique.values())
