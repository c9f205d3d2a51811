# SPDX-License-Identifier: BSD-3-Clause
"""An independent model of each operation's rules for its arguments, and the cases that follow from it.

Prints one case a line (--tables: writes tables of them into files), fields separated by tabs: the operation ("any." before one
on values of any type), its arguments as tokens, "=>", the outcome expected:
  success            the call returns
  passes             the arguments are read; the library may accept or refuse (libraryFailure naming the operation)
  memory             as passes, or the host's out-of-memory error
  raises NAME ARG... the identifier, by its last word, and its arguments, %-encoded
The scratch file of the drivers: netCDF-4 in define mode, dimensions x = 3 and y = 2, variables d (double) and c (char) over
them (host order x, y), attributes num = [1 2] and txt = "abc" of variable d, group g.
"""
import copy
import math
import pathlib
import re
import sys
import urllib.parse

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "docs"))
import operation_entries  # noqa: E402

import any_rules  # noqa: E402
from argument_values import INTEGER_RANGES, Value, every_value, row, scalar, text

SHAPE = (3, 2)
VARIABLE_NAMES = ("d", "c")
SIZES = {"Double": 8, "Float": 4, "Int64": 8, "Uint64": 8, "Int": 4, "Uint": 4, "Short": 2, "Ushort": 2, "Schar": 1,
         "Uchar": 1, "Ubyte": 1, "Text": 2}
CLASSES = {"Double": "double", "Float": "single", "Int64": "int64", "Uint64": "uint64", "Int": "int32",
           "Uint": "uint32", "Short": "int16", "Ushort": "uint16", "Schar": "int8", "Uchar": "uint8",
           "Ubyte": "uint8", "Text": "char"}


class Raised(Exception):
    pass


def raises(name, *arguments):
    raise Raised(" ".join(["raises", name, *(urllib.parse.quote(str(a), safe="", encoding="latin-1") for a in arguments)]))


# --- Readers: each returns the value passed to the library, or raises
# ------------------------------------------------------

BOUNDS = {  # at or below the first, for double and single values, and at or above the last, a floating value fails
    "int32": (-2147483649.0, -2147483648.0, 2147483648.0),
    "uint32": (-1.0, -1.0, 4294967296.0),
    "uint64": (-1.0, -1.0, 18446744073709551616.0),
    "int64": (-9223372036854775808.0, -9223372036854775808.0, 9223372036854775808.0),
}


def convert(value, element, target):
    if isinstance(element, str):  # "@ncid", which fits
        return element
    if target == "double":
        return float(element)
    if value.is_floating:
        below_double, below_single, above = BOUNDS[target]
        below = below_double if value.host_class == "double" else below_single
        if element <= below or element >= above:
            raises("argumentOutOfBounds")
        return int(element)
    lowest, highest = INTEGER_RANGES[target]
    if not lowest <= element <= highest:
        raises("argumentOutOfBounds")
    return element


def number(name, target="int32"):
    def read(value):
        if value.count != 1 or not value.is_numeric:
            raises("badScalarArgument", name, "numeric")
        element = value.elements[0]
        if value.is_floating and not isinstance(element, str) and not math.isfinite(element) and name != "FILLVALUE":
            raises("badScalarArgument", name, "numeric")
        return convert(value, element, target)
    return read


def size(name):
    return number(name, "uint64")


def word(name):
    def read(value):
        if value.host_class != "char":
            raises("argumentWasNotChar", name)
        return value.elements
    return read


def flag(name):
    def read(value):
        if value.host_class != "logical" or value.count != 1:
            raises("expectedLogicalType", name)
        return value.elements[0] != 0
    return read


MODE_WORDS = {"clobber": 0, "noclobber": 4, "share": 2048, "write": 1, "netcdf4": 4096, "64bit_offset": 512,
              "classic_model": 256, "nowrite": 0}


def mode(value):
    if value.count == 0:
        raises("argumentIsEmptySet", "MODE")
    if value.host_class == "char":
        letters = "".join(map(chr, value.elements))
        plain = "".join(c.lower() if c.isascii() else c for c in letters)
        known = MODE_WORDS.get(plain[3:] if plain.startswith("nc_") else plain)
        if known is None:
            raises("unrecognizedFileMode", "".join(c.upper() if c.isascii() else c for c in letters))
        return known
    if value.host_class not in ("int32", "double"):
        raises("badModeDatatype")
    element = value.elements[0]
    if value.host_class == "double" and not -2147483649.0 < element < 2147483648.0:
        return -2147483648
    return int(element)


def raw_single(value):
    if value.bytes_held < 4:
        raises("badScalarArgument", "preemption", "numeric")
    return value.token


def number_row(name):
    def read(value):
        if value.host_class != "double":
            raises("badRowDatatype", name)
        if value.count > 1024:
            raises("rowLengthOutOfBounds", name, 1024)
        return [x if math.isfinite(x) else str(x) for x in value.elements]
    return read


def index(label, target):
    def read(value):
        if value.count == 0:
            raises("argumentIsEmpty", label)
        if not value.is_numeric:
            raises("argumentHasBadDatatype", label)
        if value.is_floating and not all(math.isfinite(x) for x in value.elements):
            raises("indexArgumentNotFinite")
        return [convert(value, x, target) for x in value.elements]
    return read


def anything(value):
    return value


# --- Checks after all arguments are read ------------------------------------------------------------------------------


def no_check(read, values):
    return None


def whole_write(suffix):
    def check(read, values):
        data = values[2]
        if data.count == 0:
            raises("emptyVariableData")
        if not is_scratch_variable(read):
            return
        if data.count != math.prod(SHAPE) or data.bytes_held < data.count * SIZES[suffix]:
            raises("dataSizeMismatch")
    return check


def is_scratch_variable(read):
    """Whether the identifiers name a variable of the scratch file; otherwise the library refuses them."""
    return read[0] in ("@ncid", 65536) and read[1] in (0, 1)


def subset(form, suffix, is_write):
    def check(read, values):
        start = read[2]
        count = read[3] if form in "as" else [1] * len(start)
        stride = read[4] if form == "s" else [1] * len(start)
        data = values[-1]
        if is_write and data.count == 0:
            raises("emptyVariableData")
        if not is_scratch_variable(read):
            return None
        variable = VARIABLE_NAMES[read[1]]
        if len(start) != len(SHAPE):
            raises("badIndexArgumentLength", "START", variable, len(SHAPE), len(start))
        for label, given in (("COUNT", count), ("STRIDE", stride)):
            if len(given) != len(start):
                raises("badIndexArgumentLength", label, variable, len(start), len(given) if is_write else len(start))
        product = math.prod(count)
        if product >= 2**64:
            raises("argumentOutOfBounds")
        if not is_write:
            return "memory" if product > 2**20 or max(count) >= 2**63 else None
        if product != data.count:
            signed = product - 2**64 if product >= 2**63 else product
            raises("countNotEqualToData", signed, data.count)
        if data.bytes_held < data.count * SIZES[suffix]:
            raises("dataSizeMismatch")
        return None
    return check


def attribute_write(suffix):
    def check(read, values):
        if values[-1].bytes_held < values[-1].count * SIZES[suffix]:
            raises("dataSizeMismatch")
    return check


def global_variable(read, values):
    if read[1] == -1:
        raises("inqVarNcGlobal")


def chunking(read, values):
    if read[2] == 0:
        if is_scratch_variable(read) and len(read[3]) != len(SHAPE):
            raises("invalidChunkParameter", len(read[3]), len(SHAPE))
    elif read[2] != 1:
        raises("unrecognizedChunkStorage")




def constant(read, values):
    name = "".join(c.upper() if c.isascii() else c for c in map(chr, read[0]))
    if len(name) > 3 and name.startswith("NC_"):
        name = name[3:]
    if name not in ("INT", "WRITE"):
        raises("unrecognizedCharParameter", name)


def passes():
    raise Raised("passes")


ANY = any_rules.Rules(raises, convert, passes)


def deflate_level(read, values):
    if read[3]:
        read[4] = number("deflate level")(values[4])


def fill_value(read, values):
    if read[2] or not is_scratch_variable(read):
        return
    if read[1] == 0:
        read[3] = number("FILLVALUE", "double")(values[3])
    elif values[3].host_class != "char" or values[3].count != 1:
        raises("badScalarArgument", "FILLVALUE", "char")


# --- The operations: readers with a valid value each, in order, and the check behind them -----------------------------
# What an operation takes is read from its entry in docs/operations/: the kind of an argument chooses the reader. Listed here
# is only what an entry does not say: values that succeed in the scratch file, and the checks after the reading.

READERS = {
    "int": number, "size": size, "text": word, "flag": flag, "mode": lambda name: mode,
    "row": number_row, "index": lambda name: index(name, "uint64"), "stride": lambda name: index(name, "int64"),
    "rawsingle": lambda name: raw_single, "fillvalue": lambda name: anything, "data": lambda name: anything,
    "type": lambda name: ANY.type(number(name)), "single": ANY.single, "word": ANY.word, "numbers": ANY.numbers,
    "unsigned": lambda name: number(name, "uint32"), "int64": lambda name: number(name, "int64"),
    "values": lambda name: anything,
}


def double(x):
    return scalar("double", float(x) if not isinstance(x, str) else x)


# A valid value by the name in errors; else by the kind.
VALID = {
    "ncid": double("@ncid"), "varid": double(0), "NCID": double("@ncid"), "VARID": double(0), "dimid": double(0),
    "attid": double(0), "xtype": double(6), "dimids": row("double", [0.0, 1.0]), "chunk dims": row("double", [3.0, 2.0]),
    "START": row("double", [0.0, 0.0]), "COUNT": row("double", [2.0, 1.0]), "STRIDE": row("double", [2.0, 1.0]),
    "group name": text("g"), "dimension": text("x"), "variable": text("d"), "attribute": text("num"),
    "file": Value("char", (1, 1), ["@file"]), "parameter": text("nc_int"), "MODE": text("nowrite"),
}
VALID_OF_KIND = {
    "int": double(1), "size": double(4096), "flag": scalar("logical", 0), "text": text("new"), "rawsingle": scalar("single", 0.75),
    "fillvalue": double(5),
}

# Other valid values of an operation, by the position of the argument.
NEW_FILE = {0: Value("char", (1, 1), ["@new"]), 1: text("clobber")}
VALID_IN = {
    "create": NEW_FILE, "pCreate": {**NEW_FILE, 2: double(0)}, "pEndDef": {1: double(0), 2: double(4), 3: double(0), 4: double(4)},
    "setFill": {1: double(256)}, "setChunkCache": {0: double(4194304), 1: double(1009)},
    "inqGrpParent": {0: double("@group")}, "defGrp": {1: text("new")}, "defDim": {1: text("new"), 2: double(5)},
    "renameDim": {2: text("new")}, "defVar": {1: text("new")}, "renameVar": {2: text("new")},
    "defVarChunking": {2: double(0)}, "defVarDeflate": {2: scalar("logical", 1), 3: scalar("logical", 1), 4: double(4)},
    "copyAtt": {4: double(-1)}, "renameAtt": {3: text("new")},
}

# The deflate level is read only when the deflate flag is set.
READ_LATER = {("defVarDeflate", 4)}

CHECKS = {
    "inqVar": global_variable, "defVarChunking": chunking, "defVarDeflate": deflate_level, "defVarFill": fill_value,
    "parameter": constant,
}


def data_of(suffix, count):
    name = CLASSES[suffix]
    elements = [65 + k for k in range(count)]
    return row(name, list(map(float, elements)) if name in ("double", "single") else elements)


def typed(name):
    """(form, suffix) of a typed operation: ("putVara", "Uint64"); None for any other."""
    match = re.fullmatch(r"((?:get|put)(?:Att|Var[1as]?))(U?[A-Z][a-z]+(?:64)?|UInt(?:64)?)", name)
    suffix = match and match[2].replace("UInt", "Uint")
    return (match[1], suffix) if suffix in SIZES else None


def check_of(name):
    form, suffix = typed(name) or (name, None)
    if suffix is None:
        return CHECKS.get(name, no_check)
    if form == "putAtt":
        return attribute_write(suffix)
    if form == "putVar":
        return whole_write(suffix)
    return subset(form[-1], suffix, form.startswith("put")) if form[-1] in "1as" else no_check


def valid_value(entry, position):
    argument = entry.arguments[position]
    if entry.function == operation_entries.ANY:
        return valid_value_of_any(entry, position)
    form, suffix = typed(entry.name) or ("", None)
    if argument.kind == "data":
        return data_of(suffix, {"putAtt": 3 if suffix == "Text" else 2, "putVar": 6, "putVar1": 1}.get(form, 2))
    if suffix == "Text" and argument.error_name == "varid" and "Var" in form:
        return double(1)  # the char variable
    if suffix == "Text" and form == "getAtt" and argument.error_name == "attribute":
        return text("txt")
    if form == "putAtt" and argument.error_name == "attribute":
        return text("new")
    own = VALID_IN.get(entry.name, {})
    return own.get(position) or VALID.get(argument.error_name) or VALID_OF_KIND[argument.kind]


def valid_value_of_any(entry, position):
    argument = entry.arguments[position]
    own = any_rules.VALID_IN.get(entry.name, {})
    shared = VALID if argument.kind != "type" else {}
    kinds = {**VALID_OF_KIND, **any_rules.VALID_OF_KIND}
    return (own.get(position) or any_rules.VALID.get(argument.error_name) or shared.get(argument.error_name)
            or kinds[argument.kind])


def operations():
    """{name: ([(reader, valid value), ...], check)} in the order of the manual."""
    result = {}
    for entry in operation_entries.read_all_entries():
        arguments = []
        for position, argument in enumerate(entry.arguments):
            is_later = (entry.name, position) in READ_LATER
            reader = anything if is_later else READERS[argument.kind](argument.error_name)
            arguments.append((reader, valid_value(entry, position)))
        if entry.function == operation_entries.ANY:
            result[f"any.{entry.name}"] = (arguments, ANY.checks().get(entry.name, no_check))
        else:
            result[entry.name] = (arguments, check_of(entry.name))
    return result


def outcome(readers, check, values, valid_reading=None):
    """What the model expects, and what was read."""
    read = []
    try:
        for reader, value in zip(readers, values):
            read.append(reader(value))
        note = check(read, values)
    except Raised as raised:
        return str(raised), None
    if note:
        return note, read
    same = valid_reading is not None and comparable(read) == comparable(valid_reading)
    return ("success" if same else "passes"), read


def comparable(read):
    return [r.token if isinstance(r, Value) else r for r in read]


def recast(value):
    """A valid scalar again in every class that holds it."""
    if value.host_class != "double" or value.count != 1:
        return []
    element = value.elements[0]
    if isinstance(element, str):
        # From the 257th file on, the identifier of a group may not fit in a single.
        floating = () if element == "@group" else ("single",)
        return [scalar(name, element) for name in (*floating, "int32", "uint32", "int64", "uint64", "sparse", "complex")]
    whole = int(element)
    return [scalar(name, whole) for name, (lowest, highest) in INTEGER_RANGES.items() if lowest <= whole <= highest] + [
        scalar("single", element), scalar("sparse", element), scalar("complex", element),
        scalar("double", element + (0.5 if element >= 0 else -0.5))]


def line(operation, values, expected):
    return "\t".join([operation, *(value.token for value in values), "=>", expected])


def cases_of(operation, arguments, check, every):
    readers = [reader for reader, _ in arguments]
    valid = [value for _, value in arguments]
    expected, valid_reading = outcome(readers, check, valid)
    assert valid_reading is not None, (operation, expected)
    yield operation, valid, "success"
    yield operation, valid + [scalar("double", 0.0)], "raises wrongNumberOfInputs"
    if valid:
        yield operation, valid[:-1], "raises wrongNumberOfInputs"
    for position in range(len(valid)):
        for value in [*recast(valid[position]), *every]:
            values = copy.copy(valid)
            values[position] = value
            yield operation, values, outcome(readers, check, values, valid_reading)[0]


def every_case():
    every = every_value()
    all_operations = operations()
    for operation, (arguments, check) in all_operations.items():
        yield from cases_of(operation, arguments, check, every)
    # A char variable takes its fill value from a character.
    arguments, check = all_operations["defVarFill"]
    char_variable = [*arguments[:1], (number("VARID"), double(1)), *arguments[2:3], (anything, text("x"))]
    yield from cases_of("defVarFill", char_variable, check, every)
    # An attribute takes other values with each kind of type.
    arguments, check = all_operations["any.putAtt"]
    for name, value in any_rules.TYPED_ATTRIBUTES.items():
        of_type = [*arguments[:3], (arguments[3][0], text(name)), (anything, value)]
        yield from cases_of("any.putAtt", of_type, check, every)


def write_tables():
    """For a driver that is slow with text: what occurs once each, and the cases as rows of line numbers in those."""
    tables = {"operations": {}, "outcomes": {}, "values": {}}

    def number_of(table, word):
        return tables[table].setdefault(word, len(tables[table]) + 1)

    with open("cases", "w", encoding="ascii") as rows:
        for operation, values, expected in every_case():
            numbers = [number_of("values", value.token) for value in values]
            numbers += [0] * (7 - len(numbers))
            print(number_of("operations", operation), number_of("outcomes", expected), *numbers, file=rows)
    for name, words in tables.items():
        with open(name, "w", encoding="ascii") as out:
            out.write("\n".join(words))


if __name__ == "__main__":
    if sys.argv[1:] == ["--tables"]:
        write_tables()
    else:
        for case in every_case():
            print(line(*case))
