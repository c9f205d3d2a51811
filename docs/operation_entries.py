# SPDX-License-Identifier: BSD-3-Clause
"""Reads the entries of docs/operations/, whose common.txt explains their format."""
import dataclasses
import pathlib
import re

FOLDER = pathlib.Path(__file__).resolve().parent / "operations"
EXAMPLE_WIDTH = 78  # so that an example, indented by 2, fits a terminal


@dataclasses.dataclass
class Argument:
    name: str
    error_name: str
    kind: str
    class_text: str
    description: str


@dataclasses.dataclass
class Result:
    name: str
    class_text: str
    description: str


@dataclasses.dataclass
class Error:
    identifier: str  # "netcdf:badRowDatatype", without "Ovard:gridio:"
    arguments: list  # '"COUNT"', or a word in capitals for a variable part
    condition: str

    def call(self):
        return self.identifier + (f"({', '.join(self.arguments)})" if self.arguments else "")


FIRST, ANY = "gridio", "gridio_any"  # the functions, each with a table of operations


@dataclasses.dataclass
class Entry:
    function: str
    name: str
    family: str
    purpose: str
    arguments: list
    results: list
    library: list
    errors: list
    statuses: list  # the library's, with their conditions
    notes: list
    example: list
    prints: list

    def title(self):
        """A heading that no other entry has."""
        return self.name if self.function == FIRST else f"{self.function}: {self.name}"

    def left(self):
        """The left-hand side of the call: '[a, b]', 'a', ''."""
        names = [result.name for result in self.results]
        return f"[{', '.join(names)}]" if len(names) > 1 else "".join(names)

    def call(self):
        """The call in a script: '[a, b] = gridio("name", x)'."""
        left = f"{self.left()} = " if self.results else ""
        quoted = [f'"{self.name}"'] + [argument.name for argument in self.arguments]
        return f"{left}{self.function}({', '.join(quoted)})"


class Mistake(Exception):
    """The source violates the format."""


def blocks(path):
    """(header, lines) of each block, without comments and surrounding blank lines."""
    header, lines = None, []
    for line in path.read_text(encoding="ascii").splitlines():
        if line.startswith("#"):
            continue
        opening = re.fullmatch(r"\[(.+)\]", line)
        if opening:
            if header:
                yield header, strip_blank(lines)
            header, lines = opening[1], []
        elif header:
            lines.append(line)
        elif line.strip():
            raise Mistake(f"{path.name}: a line before the first block: {line}")
    if header:
        yield header, strip_blank(lines)


def strip_blank(lines):
    while lines and not lines[-1].strip():
        lines = lines[:-1]
    return lines


def sections(lines, where):
    """{"": the lines before the first section, "arguments": [...], ...}, without indentation."""
    found = {"": []}
    current = ""
    for line in lines:
        opening = re.fullmatch(r"([a-z]+):(.*)", line)
        if opening:
            current, inline = opening[1], opening[2].strip()
            if current in found:
                raise Mistake(f"{where}: two sections {current}")
            found[current] = [inline] if inline else []
            current = "" if inline else current
        elif line.startswith("    ") or current == "":
            found[current].append(line[4:] if current else line)
        elif line.strip():
            raise Mistake(f"{where}: not indented: {line}")
    return found


def parted(line, where):
    left, dashes, right = line.partition(" -- ")
    if not dashes:
        raise Mistake(f"{where}: no ' -- ' in: {line}")
    return left.strip(), right.strip()


def read_error(line, where):
    left, condition = parted(line, where)
    form = re.fullmatch(r"(netcdf:\w+|validate:\w+|any:\w+)(?:\((.+)\))?", left)
    if not form:
        raise Mistake(f"{where}: not an error: {left}")
    return Error(form[1], form[2].split(", ") if form[2] else [], condition)


class Common:
    """The definitions of common.txt."""

    def __init__(self):
        self.families = {}  # file: title
        self.functions = {}  # file: the function whose operations it describes
        self.types = {}  # suffix: {placeholder: word}
        self.arguments = {}  # name: sections of the whole definition
        self.kinds = {}  # name: (class, errors)
        self.later = set()  # kinds that are read after a library call
        for header, lines in blocks(FOLDER / "common.txt"):
            what, *words = header.split()
            getattr(self, "read_" + what)(words, [line for line in lines if line.strip()])

    def read_families(self, words, lines):
        families = dict(line.split(" ", 1) for line in lines)
        self.families.update(families)
        self.functions.update(dict.fromkeys(families, words[0]))

    def read_types(self, _, lines):
        for line in lines:
            words = line.split()
            self.types[words[0]] = dict(zip(("T", "word", "class", "xtype", "a", "b", "c"), words))

    def read_argument(self, words, lines):
        self.arguments[words[0]] = sections(lines, words[0])

    def read_kind(self, words, lines):
        parts = sections(lines, words[0])
        errors = [read_error(line, words[0]) for line in parts["errors"]]
        self.kinds[words[0]] = (parts[""][0], errors)
        if "later" in words:
            self.later.add(words[0])


def expanded(name, lines, common):
    """(name, lines) for each type of a template; any other entry is returned unchanged."""
    if "{T}" not in name:
        yield name, lines
        return
    parts = sections(lines, name)
    suffixes = []
    for word in " ".join(parts["types"]).split():
        numeric = [s for s, words in common.types.items() if words["xtype"] != "NC_CHAR"]
        suffixes += [s for s in numeric if s != "Ubyte"] if word == "numeric" else [word]
    spelled = dict(pair.split() for line in parts.get("names", []) for pair in line.split(","))
    for suffix in [s for s in common.types if s in suffixes]:
        words = dict(common.types[suffix])
        words["name"] = spelled.get(suffix, name.replace("{T}", suffix))
        yield words["name"], [fill_in(line, words) for line in lines if holds(line, suffix)]


def holds(line, suffix):
    condition = re.match(r"    \[(not )?([A-Z][A-Za-z0-9 ]*)\] ", line)
    return not condition or (suffix in condition[2].split()) != bool(condition[1])


def fill_in(line, words):
    line = re.sub(r"^    \[(not )?[A-Z][A-Za-z0-9 ]*\] ", "    ", line)
    line = re.sub(r"\{(\w+)\}", lambda found: words[found[1]], line)
    # Literal numbers are of class double.
    return re.sub(r"([(,] ?)double\((\[[^]]*\]|[-\d.]+)\)", r"\1\2", line)


def read_argument(line, common, where):
    """An Argument, and the statuses that come with a shared definition."""
    statuses = []
    if line in common.arguments:
        definition = common.arguments[line]
        statuses = definition.get("errors", [])
        line = definition[""][0]
    left, description = parted(line, where)
    form = re.fullmatch(r'(\w+)(?: "([^"]+)")? (\w+)(?:\((\w+)\))?', left)
    if not form or form[3] not in common.kinds:
        raise Mistake(f"{where}: not an argument: {left}")
    name, error_name, kind, class_word = form.groups()
    class_text = common.kinds[kind][0]
    if ("CLASS" in class_text) != bool(class_word):
        raise Mistake(f"{where}: the class of {name}")
    class_text = class_text.replace("CLASS", class_word or "")
    return Argument(name, error_name or name, kind, class_text, description), statuses


def read_result(line, where):
    left, description = parted(line, where)
    name, _, class_text = left.partition(" ")
    if not class_text:
        raise Mistake(f"{where}: a result without a class: {line}")
    return Result(name, class_text, description)


def listed(words, last="or"):
    words = list(dict.fromkeys(words))
    return words[0] if len(words) == 1 else f"{', '.join(words[:-1])} {last} {words[-1]}"


def errors_of_arguments(arguments, common):
    """The errors of reading the arguments, in order; errors that differ only in the name are merged."""
    names = {}  # (identifier, arguments, condition): quoted names
    for argument in arguments:
        for error in common.kinds[argument.kind][1]:
            key = (error.identifier, tuple(error.arguments), error.condition)
            names.setdefault(key, []).append(f'"{argument.error_name}"')
    errors = []
    for (identifier, words, condition), quoted in names.items():
        one = len(set(quoted)) == 1
        shown = [quoted[0] if one and word == "NAME" else word for word in words]
        errors.append(Error(identifier, shown, condition.replace("NAME", listed(quoted))))
    return errors


def joined(errors):
    """One line for each identifier and its arguments, with all its conditions."""
    conditions = {}
    for error in errors:
        key = (error.identifier, tuple(error.arguments))
        conditions.setdefault(key, []).append(error.condition)
    return [Error(identifier, list(words), "; ".join(dict.fromkeys(those)))
            for (identifier, words), those in conditions.items()]


def read_entry(name, file, lines, common):
    parts = sections(lines, name)
    unknown = set(parts) - {"", "types", "names", "arguments", "results", "library", "errors",
                            "notes", "example", "prints"}
    if unknown:
        raise Mistake(f"{name}: unknown sections {unknown}")
    purpose = " ".join(parts[""]).strip()
    arguments, status_lines = [], []
    for line in parts.get("arguments", []):
        argument, statuses = read_argument(line, common, name)
        arguments.append(argument)
        status_lines += statuses
    own = []
    for line in parts.get("errors", []):
        (status_lines if re.match(r"NC_|-?\d", line) else own).append(line)
    library = [word for line in parts.get("library", []) for word in line.split(", ")]
    results = [read_result(line, name) for line in parts.get("results", []) if line]
    example = strip_blank(parts["example"])
    for line in example:
        if len(line) > EXAMPLE_WIDTH:
            raise Mistake(f"{name}: a line of the example is too long: {line}")

    count = len(arguments)
    plural = f"{count or 'no'} argument{'' if count == 1 else 's'}"
    errors = [Error("validate:wrongNumberOfInputs", [],
                    f"there are not {plural} after the name" if count
                    else "there are arguments after the name")]
    errors += errors_of_arguments(arguments, common)
    errors += [read_error(line, name) for line in own]
    if library and library != ["nc_inq_libvers"]:
        refusal = [f'"{name}"', "STATUS", "TEXT"]
        errors.append(Error("netcdf:libraryFailure", refusal, "the library refuses the call"))
        if any(a.name in ("ncid", "file") for a in arguments):
            errors.append(Error("netcdf:librarydapFailure", refusal,
                                "the library refuses it for a remote dataset"))
    statuses = [parted(line, name) for line in status_lines]
    return Entry(common.functions[file], name, common.families[file], purpose, arguments, results, library, joined(errors), statuses,
                 parts.get("notes", []), example, strip_blank(parts["prints"]))


def read_entries(*functions):
    """Every entry of the functions, by family in the order of the manual; only gridio's if none is named."""
    common = Common()
    entries = []
    for file in [f for f, function in common.functions.items() if function in (functions or [FIRST])]:
        for header, lines in blocks(FOLDER / f"{file}.txt"):
            what, _, name = header.partition(" ")
            if what != "entry":
                raise Mistake(f"{file}: not an entry: {header}")
            entries += [read_entry(full, file, those, common)
                        for full, those in expanded(name, lines, common)]
    names = [entry.title() for entry in entries]
    twice = {name for name in names if names.count(name) > 1}
    if twice:
        raise Mistake(f"entries that occur twice: {twice}")
    return entries


def read_preface():
    """Paragraphs; one that is indented is code."""
    text = (FOLDER / "preface.txt").read_text(encoding="ascii")
    text = "".join(line for line in text.splitlines(True) if not line.startswith("#"))
    return [paragraph.strip("\n") for paragraph in re.split(r"\n{2,}", text.strip("\n"))]


def read_all_entries():
    return read_entries(FIRST, ANY)


def by_family(entries):
    families = {}
    for entry in entries:
        families.setdefault(entry.family, []).append(entry)
    return families
