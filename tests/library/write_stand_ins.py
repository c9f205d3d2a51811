# SPDX-License-Identifier: BSD-3-Clause
"""write_stand_ins.py NM LIBRARY HEADER... FOLDER: stand-ins for every function of the netCDF library that returns a status.

Writes library_calls.inc, a row CALL(name, (parameters), (arguments)) for each function that the headers declare and the library
exports, and wraps.txt, the linker's options that send calls of the function to its stand-in.
"""
import pathlib
import re
import subprocess
import sys

TYPES = {"int", "char", "short", "long", "float", "double", "unsigned", "void", "size_t", "ptrdiff_t", "nc_type"}
WRITTEN_BY_HAND = {"nc_close", "nc_def_var_fletcher32", "nc_strerror"}
DECLARATION = re.compile(r"^(?:EXTERNL|extern)\s+int\s+(nc_\w+)\s*\(([^;]*?)\)\s*;", re.MULTILINE)


def exported(nm, library):
    listing = subprocess.run([nm, "-D", "--defined-only", library], capture_output=True, text=True, check=True).stdout
    return {line.split()[-1].split("@")[0] for line in listing.splitlines()}


def declarations(path):
    """(name, [parameter, ...]) of each function, without comments."""
    text = re.sub(r"/\*.*?\*/", " ", path.read_text(encoding="utf-8", errors="replace"), flags=re.DOTALL)
    for name, parameters in DECLARATION.findall(re.sub(r"//[^\n]*", " ", text)):
        words = [" ".join(word.split()) for word in parameters.split(",")]
        yield name, [] if words == ["void"] or words == [""] else words


def named(parameter, position):
    """The parameter with a name of our own, since headers leave some out, and that name."""
    name = f"a{position}"
    match = re.fullmatch(r"(.*?)(\w+)(\[\w*\])?", parameter)
    if match is None or match[2] in TYPES or not match[1].strip():
        return f"{parameter} {name}", name
    return f"{match[1]}{name}{match[3] or ''}", name


def main():
    nm, library, *headers, folder = sys.argv[1:]
    known = exported(nm, library)
    functions = {}
    for header in headers:
        for name, parameters in declarations(pathlib.Path(header)):
            if name in known:
                functions.setdefault(name, parameters)
    rows = []
    for name, parameters in sorted(functions.items()):
        if name in WRITTEN_BY_HAND:
            continue
        pairs = [named(parameter, i) for i, parameter in enumerate(parameters)]
        rows.append(f"CALL({name}, ({', '.join(p for p, _ in pairs)}), ({', '.join(n for _, n in pairs)}))\n")
    target = pathlib.Path(folder)
    (target / "library_calls.inc").write_text("".join(rows), encoding="ascii")
    wrapped = sorted({*functions, *WRITTEN_BY_HAND})
    (target / "wraps.txt").write_text("".join(f"--wrap={name}\n" for name in wrapped), encoding="ascii")


if __name__ == "__main__":
    main()
