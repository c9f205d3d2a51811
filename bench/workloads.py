# SPDX-License-Identifier: BSD-3-Clause
"""The work that is timed: how much of it, on which file, and which checksum shows that it was done."""
import dataclasses

FORMATS = ("classic", "netcdf4")
MIB = 1 << 20


@dataclasses.dataclass(frozen=True)
class Sizes:
    rounds: int  # of bulk work; three times as many of small calls, which scatter more
    bulk: int  # elements of the large double field; the others are parts or multiples of it
    calls: int  # of each cheap call
    small: int  # elements of the vector that is read piece by piece
    divisor: int  # of the numbers of small calls

    @classmethod
    def full(cls):
        return cls(rounds=5, bulk=64 * MIB, calls=50000, small=120000, divisor=1)

    @classmethod
    def quick(cls):
        return cls(rounds=2, bulk=2 * MIB, calls=10000, small=120000, divisor=20)

    @property
    def bytes_needed(self):
        return 24 * self.bulk


def checksum(value_at, indices):
    """See bench/worker.h; indices are a sequence that can be sliced."""
    sample = indices[::4099]
    return (sum_over(value_at, indices)
            + sum(value_at(i) * (k % 7 + 1) for k, i in enumerate(sample)))


def sum_over(value_at, indices):
    """Values repeat with the period of their formula, which makes long sums short."""
    if not isinstance(indices, range):
        return sum(map(value_at, indices))
    whole, rest = divmod(len(indices), value_at.period)
    return whole * sum(map(value_at, range(value_at.period))) + sum(map(value_at, range(rest)))


def number_at(i):
    return (i % 1009) * 0.25


def short_at(i):
    return float(i % 1009)


def letter_at(i):
    return float(ord("a") + i % 26)


def string_at(i):
    """The sum of the bytes of the i-th string."""
    return float(sum(f"station {i % 1009}".encode()))


number_at.period = short_at.period = string_at.period = 1009
letter_at.period = 26


def whole(value_at):
    return lambda count: checksum(value_at, range(count))


def strided(levels):
    return checksum(number_at, [(z * 256 + 2 * y) * 256 + 2 * x
                                for z in range(levels) for y in range(128) for x in range(128)])


@dataclasses.dataclass(frozen=True)
class Workload:
    name: str
    title: str
    count: object  # of Sizes
    expected: object  # checksum, of count
    element: int = 0  # bytes in memory of each of count, of bulk work
    formats: tuple = ()
    source: str = None  # what to read
    source_count: object = None
    check: str = None  # how the native worker reads what was written
    check_count: object = staticmethod(lambda count: count)
    contenders: tuple = ()  # all, unless some are named

    @property
    def is_bulk_read(self):
        return self.element > 0 and self.source is not None

    def rounds(self, sizes):
        return sizes.rounds if self.element > 0 else 3 * sizes.rounds

    def data_bytes(self, count):
        return self.element * count


def bulk(fraction):
    return lambda sizes: int(sizes.bulk * fraction)


def small(count):
    return lambda sizes: count // sizes.divisor


def vector(sizes):
    return sizes.small


def position(i):
    """Of the i-th value or block that is read from the long vector: scattered."""
    return i * 7919 % 100000


WORKLOADS = [
    Workload("read_double", "read doubles", bulk(1), whole(number_at), 8, (), "double", bulk(1)),
    Workload("read_strided", "levels, every 2nd value", lambda sizes: 32 if sizes.divisor > 1 else 64,
             strided, 8 * 128 * 128, (), "double", bulk(1)),
    Workload("read_short", "read int16", bulk(2), whole(short_at), 2, (), "short", bulk(2)),
    Workload("read_short_as_double", "read int16 as double", bulk(2), whole(short_at), 8, (), "short", bulk(2)),
    Workload("read_packed", "read compressed chunks", bulk(1 / 4), whole(number_at), 4, ("netcdf4",), "packed",
             bulk(1 / 4)),
    Workload("read_text", "read text", bulk(1), whole(letter_at), 1, (), "text", bulk(1)),
    Workload("read_strings", "strings", small(1000000), whole(string_at), formats=("netcdf4",), source="strings",
             source_count=small(1000000), contenders=("c", "gridio", "python")),
    Workload("write_double", "write doubles", bulk(1 / 2), whole(number_at), 8, check="check_field"),
    Workload("write_without_fill", "write doubles, fill mode off", bulk(1 / 2), whole(number_at), 8,
             check="check_field"),
    Workload("write_text", "write text", bulk(1), whole(letter_at), 1, check="check_text"),
    Workload("read_values", "scattered values", small(100000),
             lambda n: sum(number_at(position(i)) for i in range(n)), source="small", source_count=vector),
    Workload("read_blocks", "scattered blocks of 100", small(20000),
             lambda n: sum(number_at(position(i)) for i in range(n)), source="small", source_count=vector),
    Workload("append_records", "appended records of 10", small(5000),
             lambda n: checksum(lambda i: float(i % 10), [*range(10 * n)]), check="check_field",
             check_count=lambda n: 10 * n),
    Workload("open_inquire_close", "open, inquire, close", small(1000),
             lambda n: 11 * n, source="small", source_count=vector),
    Workload("read_attributes", "attribute reads", small(20000),
             lambda n: ord("d") + 90, source="small", source_count=vector),
    Workload("write_attributes", "attribute writes", small(5000), lambda n: n - 1, check="check_attribute"),
    Workload("inquire_variables", "look-ups of a variable", small(100000), lambda n: 10 * n, source="small",
             source_count=vector),
]


@dataclasses.dataclass(frozen=True)
class Call:
    """A call in the interpreter, measured against native functions with the same arguments."""
    name: str
    arguments: str  # after the name
    formats: tuple = ("classic",)


CALLS = [
    Call("inqLibVers", ''),
    Call("inqFormat", ', ncid'),
    Call("inqVarID", ', ncid, "v10"'),
    Call("inqDim", ', ncid, 0'),
    Call("inqVar", ', ncid, 3'),
    Call("getAttDouble", ', ncid, 0, "valid_range"'),
    Call("getAttText", ', ncid, 0, "units"'),
    Call("getVar1Double", ', ncid, 0, start', FORMATS),
    Call("getVaraDouble", ', ncid, 0, start, 100', FORMATS),
    Call("parameter", ', "NC_DOUBLE"'),
]
