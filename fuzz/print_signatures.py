# SPDX-License-Identifier: BSD-3-Clause
"""print_signatures.py FILE: writes the parameters of each operation, from the entries of docs/operations/.

    {"defDim", "nNz", vxUNKNOWN_CLASS, Function::gridio},

The letters are those of fuzz/operation_signatures.h. A new operation has its row as soon as it has its entry.
"""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "docs"))
import operation_entries  # noqa: E402

# By kind and, where one kind has several letters, by the name that errors use.
LETTERS = {
    "mode": "m", "size": "z", "flag": "l", "stride": "k", "data": "D", "fillvalue": "V", "rawsingle": "P",
    "type": "T", "word": "W", "numbers": "L", "values": "A", "single": "p", "int64": "i", "unsigned": "i",
    "text": {"file": "f", "parameter": "C", "": "N"},
    "int": {"ncid": "n", "varid": "v", "dimid": "d", "attid": "#", "xtype": "x", "": "i"},
    "row": {"dimids": "R", "": "K"},
    "index": {"START": "s", "COUNT": "c", "": "c"},
}
CLASSES = {"single": "vxSINGLE_CLASS", "char": "vxCHAR_CLASS"}
TYPED = ("attribute_reads", "attribute_writes", "whole_reads", "whole_writes", "subset_reads", "subset_writes")


def letter(argument):
    letters = LETTERS[argument.kind]
    if isinstance(letters, str):
        return letters
    name = argument.error_name if argument.error_name in letters else argument.error_name.lower()
    return letters.get(name, letters[""])


def data_class(entry, common):
    """The class of what a typed operation reads or writes."""
    if entry.family not in (common.families[family] for family in TYPED):
        return "vxUNKNOWN_CLASS"
    suffix = max((s for s in common.types if entry.name.lower().endswith(s.lower())), key=len)
    word = common.types[suffix]["class"]
    return CLASSES.get(word, f"vx{word.upper()}_CLASS")


def row(entry, common):
    letters = "".join(letter(argument) for argument in entry.arguments)
    table = "gridio" if entry.function == operation_entries.FIRST else "gridioAny"
    return f'{{"{entry.name}", "{letters}", {data_class(entry, common)}, Function::{table}}},\n'


def main():
    common = operation_entries.Common()
    rows = [row(entry, common) for entry in operation_entries.read_all_entries()]
    pathlib.Path(sys.argv[1]).write_text("".join(rows), encoding="ascii")


if __name__ == "__main__":
    main()
