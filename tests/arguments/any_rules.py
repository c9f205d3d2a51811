# SPDX-License-Identifier: BSD-3-Clause
"""The model of argument_rules.py for the operations on values of any type.

Their scratch file has more types: enumeration "sky" (byte: clear 0, cloudy 1), opaque "blob" (3 bytes), vlen "words" of strings,
compound "pair" (int a, short b(2)), and compound "loose" of the same size with the field a alone.
"""
import math

from argument_values import INTEGER_RANGES, NUMERIC_CLASSES, Value, row, scalar, text, to_single

WORDS = {"byte order": "native, little, big", "quantize mode": "none, BitGroom, GranularBitRound, BitRound",
         "storage kind": "chunked, contiguous, compact"}
ATOMIC = {1: "byte", 2: "char", 3: "short", 4: "int", 5: "float", 6: "double", 7: "ubyte", 8: "ushort", 9: "uint", 10: "int64",
          11: "uint64", 12: "string"}
CLASSES = {"byte": "int8", "short": "int16", "int": "int32", "float": "single", "double": "double", "ubyte": "uint8",
           "ushort": "uint16", "uint": "uint32", "int64": "int64", "uint64": "uint64"}
LABELS = ("clear", "cloudy")
PAIR = Value("pair", (1, 1), [])  # what the drivers build for the type "pair"


class Rules:
    """Readers and checks; raises is how an error of the model is raised, convert the conversion of checked numbers."""

    def __init__(self, raises, convert, passes):
        self.raises, self.convert, self.passes = raises, convert, passes

    def type(self, number):
        def read(value):
            if value.host_class != "char":
                return ATOMIC.get(number(value), "no type")
            name = "".join(map(chr, value.elements))
            if name not in (*ATOMIC.values(), "sky", "blob", "words", "pair", "loose"):
                self.passes()  # the library knows no such type
            return name
        return read

    def single(self, name):
        def read(value):
            if value.count != 1 or not value.is_numeric or (value.is_floating and not math.isfinite(value.elements[0])):
                self.raises("badScalarArgument", name, "numeric")
            if value.host_class == "double" and abs(value.elements[0]) > 3.4028234663852886e38:
                self.raises("argumentOutOfBounds")
            return value.elements[0]
        return read

    def word(self, name):
        def read(value):
            if value.host_class != "char":
                self.raises("argumentWasNotChar", name)
            given = "".join(map(chr, value.elements))
            if given.lower() not in WORDS[name].lower().split(", "):
                self.raises("unrecognizedWord", name, given, WORDS[name])
            return given.lower()
        return read

    def numbers(self, name):
        target = "uint32" if name in ("filter parameters", "chunk sizes") else "int32"

        def read(value):
            if not value.is_numeric:
                self.raises("badValueClass", name, "numbers, in an array of any numeric class")
            return [self.checked(value, element, target) for element in value.elements]
        return read

    def checked(self, value, element, target):
        if value.is_floating and not math.isfinite(element):
            self.raises("argumentOutOfBounds")
        return self.convert(value, element, target)

    # --- Values, as a type takes them ---------------------------------------------------------------------------------

    def values(self, kind, value, needed=None):
        """needed: how many values, None for as many as there are."""
        if kind in CLASSES or kind == "sky":
            if kind == "sky" and value.host_class in ("char", "cell"):
                return self.labels(value, needed)
            return self.numeric(kind, value, needed)
        return {"char": self.characters, "string": self.strings, "blob": self.bytes, "words": self.lists,
                "pair": self.structure}[kind](value, needed)

    def require_count(self, needed, given):
        if needed is not None and needed != given:
            self.raises("wrongNumberOfValues", "the values", needed, given)

    def bad_class(self, place, expected):
        self.raises("badValueClass", place, expected)

    def numeric(self, kind, value, needed):
        target = CLASSES.get(kind, "int8")
        is_number = value.is_numeric or value.host_class == "logical"
        if not is_number or value.written_class == "complex":
            self.bad_class("the values", "real numbers: a numeric or logical array")
        self.require_count(needed, value.count)
        for position, element in enumerate(value.elements):
            if value.host_class != target and not fits_exactly(element, target):
                self.raises("valueDoesNotFit", f"element {position + 1}", number_text(element, value.host_class), kind)
        for position, element in enumerate(value.elements if kind == "sky" else ()):
            if int(element) not in range(len(LABELS)):
                self.raises("unknownLabel", f"element {position + 1}", str(int(element)), "sky", ", ".join(LABELS))

    def characters(self, value, needed):
        if value.host_class != "char":
            self.bad_class("the values", "text: a char array")
        self.require_count(needed, value.count)

    def strings(self, value, needed):
        if value.host_class not in ("char", "cell"):
            self.bad_class("the values", "text: a char row, or a cell array of char rows")
        self.require_count(needed, 1 if value.host_class == "char" else value.count)
        if value.host_class == "cell":
            if value.count > 0:
                self.bad_class("element 1", "text: a char row")
        elif not is_row(value):
            self.bad_class("the values", "text: a char row")
        elif 0 in value.elements:
            self.raises("textHoldsNul", "the values")

    def labels(self, value, needed):
        expected = "a char row: a label of the enumeration"
        self.require_count(needed, 1 if value.host_class == "char" else value.count)
        if value.host_class == "cell":
            if value.count > 0:
                self.bad_class("element 1", expected)
        elif not is_row(value):
            self.bad_class("the values", expected)
        elif "".join(map(chr, value.elements)) not in LABELS:
            self.raises("unknownLabel", "the values", "".join(map(chr, value.elements)), "sky", ", ".join(LABELS))

    def bytes(self, value, needed):
        if value.host_class != "uint8" or value.written_class == "complex":
            self.bad_class("the values", "bytes: a uint8 array, the bytes of each value one after the other")
        self.require_count(3 * (value.count // 3 if needed is None else needed), value.count)

    def lists(self, value, needed):
        if value.host_class != "cell":
            self.bad_class("the values", "a cell array with the elements of one value in each cell")
        self.require_count(needed, value.count)
        if value.count > 0:
            self.bad_class("element 1", "text: a char row, or a cell array of char rows")

    def structure(self, value, needed):
        if value.written_class not in ("pair", "struct") or value.count != 1:
            self.bad_class("the values", "one structure, whose fields hold the values")
        if value.written_class == "struct":
            self.raises("missingField", "the values", "b", "pair")

    # --- Checks after all arguments are read --------------------------------------------------------------------------

    def attribute(self, read, values):
        if read[3] not in ("no type", "loose") and read[0] in ("@ncid", 65536):
            self.values(read[3], values[4])

    def whole_write(self, read, values):
        if not is_scratch_variable(read):
            return
        if values[2].count == 0:
            self.raises("emptyVariableData")
        self.values(VARIABLE_TYPES[read[1]], values[2], math.prod(SHAPE))

    def subset(self, form, is_write):
        def check(read, values):
            start = read[2]
            count = read[3] if form in "as" else [1] * len(start)
            stride = read[4] if form == "s" else [1] * len(start)
            if not is_scratch_variable(read):
                return None
            variable = "dc"[read[1]]
            if len(start) != len(SHAPE):
                self.raises("badIndexArgumentLength", "START", variable, len(SHAPE), len(start))
            for label, given in (("COUNT", count), ("STRIDE", stride)):
                if len(given) != len(start):
                    shown = len(given) if is_write else len(start)
                    self.raises("badIndexArgumentLength", label, variable, len(start), shown)
            product = math.prod(count)
            data = values[-1]
            if is_write and data.count == 0:
                self.raises("emptyVariableData")
            if product >= 2**64:
                self.raises("argumentOutOfBounds")
            if not is_write:
                return "memory" if product > 2**20 or max(count) >= 2**63 else None
            if product != data.count:
                self.raises("countNotEqualToData", product - 2**64 if product >= 2**63 else product, data.count)
            return self.values(VARIABLE_TYPES[read[1]], data, product)
        return check

    def member(self, read, values):
        if read[0] in ("@ncid", 65536) and read[1] == "sky":
            self.values("byte", values[3], 1)

    def fill_value(self, read, values):
        if not read[2] and is_scratch_variable(read):
            self.values(VARIABLE_TYPES[read[1]], values[3], 1)

    def checks(self):
        return {
            "putAtt": self.attribute, "putVar": self.whole_write, "insertEnum": self.member, "defVarFill": self.fill_value,
            **{f"getVar{form}": self.subset(form, False) for form in "1as"},
            **{f"putVar{form}": self.subset(form, True) for form in "1as"},
        }


SHAPE = (3, 2)
VARIABLE_TYPES = ("double", "char")


def is_scratch_variable(read):
    return read[0] in ("@ncid", 65536) and read[1] in (0, 1)


def is_row(value):
    return value.count == 0 or (len(value.dims) == 2 and value.dims[0] == 1)


def fits_exactly(element, target):
    if target == "double":
        return isinstance(element, float) or int(float(element)) == element
    if target == "single":
        return not math.isfinite(element) or (abs(element) <= 3.4028234663852886e38 and to_single(element) == element)
    lowest, highest = INTEGER_RANGES[target]
    return math.isfinite(element) and element == int(element) and lowest <= int(element) <= highest


def number_text(element, host_class):
    if not isinstance(element, float) or host_class not in ("double", "single"):
        return str(int(element))
    if not math.isfinite(element):
        return "NaN" if math.isnan(element) else "Inf" if element > 0 else "-Inf"
    digits = (15, 17) if host_class == "double" else (6, 9)
    short = f"{element:.{digits[0]}g}"
    back = float(short) if host_class == "double" else to_single(float(short))
    return short if back == element else f"{element:.{digits[1]}g}"


# Valid values by the name in errors, then by the kind; others of an operation by the position of the argument.
VALID = {
    "storage kind": text("compact"), "chunk sizes": row("double", [3.0, 2.0]),
    "byte order": text("big"), "quantize mode": text("BitGroom"), "filter parameters": row("double", [5.0]),
    "field lengths": row("double", [1.0]), "type": text("new"), "member": text("new"), "field": text("new"),
    "group path": text("/g"), "field type": text("short"), "base": text("int"), "offset": scalar("double", 4.0),
    "filter": scalar("double", 1.0), "fieldid": scalar("double", 0.0), "index": scalar("double", 0.0),
    "nsd": scalar("double", 3.0), "preemption": scalar("double", 0.5),
}
VALID_OF_KIND = {"type": text("pair"), "int64": scalar("double", 0.0)}
D_VALUES = row("double", [1.0, 2.0, 3.0, 4.0, 5.0, 6.0])
VALID_IN = {
    "putVar": {2: D_VALUES}, "putVar1": {3: scalar("double", 5.0)}, "putVara": {4: row("double", [1.0, 2.0])},
    "putVars": {5: row("double", [1.0, 2.0])}, "putAtt": {2: text("new"), 3: text("double"), 4: row("double", [1.0, 2.0])},
    "inqTypeID": {1: text("pair")}, "inqTypeEqual": {1: text("int"), 3: text("double")}, "inqEnum": {1: text("sky")},
    "inqEnumMember": {1: text("sky")}, "inqEnumIdent": {1: text("sky")}, "inqVlen": {1: text("words")},
    "inqOpaque": {1: text("blob")}, "insertEnum": {1: text("sky"), 3: scalar("double", 5.0)},
    "insertCompound": {1: text("loose")}, "insertArrayCompound": {1: text("loose")}, "defVarFill": {3: scalar("double", 5.0)},
    "setVarChunkCache": {3: scalar("double", 1009.0)}, "renameGrp": {0: scalar("double", "@group"), 1: text("new")},
}

# Attributes of the other types, with values that they take.
TYPED_ATTRIBUTES = {
    "string": text("ab"), "sky": text("cloudy"), "blob": row("uint8", [1, 2, 3]), "words": Value("cell", (0, 0), []), "pair": PAIR,
    "char": text("ab"), "byte": row("double", [1.0, 2.0]), "float": row("double", [0.5]), "uint64": row("double", [7.0]),
}
