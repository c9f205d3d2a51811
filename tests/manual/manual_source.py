# SPDX-License-Identifier: BSD-3-Clause
"""The examples of docs/manual/, by the markers that docs/manual/gridio.texi defines."""
import dataclasses
import pathlib
import re

CHAPTERS = pathlib.Path(__file__).resolve().parents[2] / "docs" / "manual"
KINDS = ("run", "run on", "sample", "prints", "shell", "file", "form", "terminal", "session", "program", "commands")
WIDTH = 80  # so that an example fits a page


# Errors that no script can cause, and what depends on other programs or machines.
UNREACHABLE = {"Ovard:gridio:netcdf:unrecognizedFletcher32Setting", "Ovard:gridio:netcdf:unhandledAttributeOperation",
               "Ovard:gridio:host:internal", "Ovard:gridio:host:notOnPath", "Ovard:gridio:any:foreignType",
               "Ovard:gridio:dataset:badPart",  # datasets report it as badFile
               *(f"Ovard:gridio:dataset:{kind}" for kind in ("noLauncher", "noMpi", "notSubmitted", "rankFailed", "workerFailed")),
               "Ovard:gridio:dataset:notReplaced"}  # the text of the last holds a random name


class Mistake(Exception):
    """The source violates the format."""


@dataclasses.dataclass
class Block:
    path: pathlib.Path
    first: int  # index of its first line in the file
    last: int  # and of the line after its last
    kind: str
    name: str  # of a file, program or recipe
    text: str  # as the reader sees it, each line with its end

    def where(self):
        return f"{self.path.name}:{self.first + 1}"


def plain(line):
    line = line.replace("@value{VERSION}", (CHAPTERS.parents[1] / "VERSION").read_text().strip())
    if re.search(r"@[a-z]+\{|(?<!@)[{}]", line):
        raise Mistake(f"a command or a bare brace within an example: {line}")
    return re.sub(r"@([@{}])", r"\1", line)


def escaped(text):
    return re.sub(r"([@{}])", r"@\1", text)


def blocks(path):
    lines = path.read_text(encoding="utf-8").splitlines()
    at = 0
    while at < len(lines):
        if not re.fullmatch(r"@(small)?example", lines[at]):
            at += 1
            continue
        marker = re.fullmatch(r"@c (run on|\w+)(?: (.+))?", lines[at - 1])
        if not marker or marker[1] not in KINDS or (marker[1] in ("file", "program")) != bool(marker[2] and marker[1] != "sample"):
            raise Mistake(f"{path.name}:{at + 1}: an example without a marker")
        end = at + 1
        while not lines[end].startswith("@end "):
            end += 1
        text = "".join(plain(line) + "\n" for line in lines[at + 1:end])
        if any(len(line) > WIDTH for line in text.splitlines() if marker[1] != "prints"):
            raise Mistake(f"{path.name}:{at + 1}: a line of more than {WIDTH} characters")
        yield Block(path, at + 1, end, marker[1], marker[2] or "", text)
        at = end


def chapters():
    return sorted(path for path in CHAPTERS.glob("*.texi") if path.name != "gridio.texi")


def chains(path):
    """Lists of blocks that are run in one folder and workspace."""
    found = []
    for block in blocks(path):
        if block.kind in ("run", "sample", "file"):
            found.append([block])
        elif block.kind in ("run on", "prints", "shell"):
            if not found:
                raise Mistake(f"{block.where()}: nothing to go on from")
            found[-1].append(block)
    return found


@dataclasses.dataclass
class ErrorEntry:
    identifier: str
    count: int  # of its arguments; None for errors of the host and of the package
    first: int  # index of its first line in errors.texi
    last: int  # and of the line after its last
    body: str


def error_entries():
    """The entries of the chapter on errors, before the statuses of the library."""
    text = (CHAPTERS / "errors.texi").read_text("utf-8")
    text = text[:text.index("@node Statuses of the library")]
    for entry in re.finditer(r"^@item (.+)\n((?:(?!@item |@end table).*\n)*)", text, re.M):
        identifier, count = identifier_of(entry[1])
        yield ErrorEntry(identifier, count, text.count("\n", 0, entry.start()), text.count("\n", 0, entry.end()), entry[2])


def identifier_of(head):
    """The identifier that the first line of an entry abbreviates, and how many arguments it names."""
    name, _, arguments = head.partition(" (")
    count = len(arguments.split(", ")) if arguments else 0
    if name.startswith(("any:", "dataset:")):
        return f"Ovard:gridio:{name}", count if arguments else None
    if ":" in name:
        return name, None
    space = "validate" if name in ("wrongNumberOfInputs", "argumentOutOfBounds") else "netcdf"
    return f"Ovard:gridio:{space}:{name}", count
