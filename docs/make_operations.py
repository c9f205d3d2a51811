#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Generates the documents and tables that are made from the entries of docs/operations/.

make_operations.py            writes docs/operations.md, the text of gridio_help, and the calls that messages show
make_operations.py --texinfo  prints the chapter of the manual
"""
import itertools
import pathlib
import re
import sys
import textwrap

import operation_entries

ROOT = pathlib.Path(__file__).resolve().parent.parent
MARKDOWN = ROOT / "docs" / "operations.md"
TEXT = ROOT / "hosts" / "octave" / "inst" / "gridio_operations.txt"
FORMS = ROOT / "hosts" / "messages" / "operation_form_rows.cpp"
WIDTH = 80


def sentence(text):
    """The text as a sentence."""
    return text[0].upper() + text[1:] + ("" if text.endswith(".") else ".")


def is_code(paragraph):
    return paragraph.startswith("    ")


# Text: the list of families, then one part per operation, which begins with a line "@@ NAME".

def wrapped(text, indent, hanging=None):
    hanging = indent if hanging is None else hanging
    return textwrap.wrap(text, WIDTH, initial_indent=" " * indent, subsequent_indent=" " * hanging,
                         break_long_words=False, break_on_hyphens=False)


def text_overview(entries):
    lines = []
    for function, title in (
            (operation_entries.FIRST, 'Operations, called as gridio("NAME", ...). gridio_help("NAME") explains one.'),
            (operation_entries.ANY, 'Operations on values of any type, called as gridio_any("NAME", ...).')):
        lines += ([""] if lines else []) + [title]
        own = [entry for entry in entries if entry.function == function]
        for family, members in operation_entries.by_family(own).items():
            lines += ["", family] + wrapped(" ".join(e.name for e in members), 2)
    return lines


def text_entry(entry):
    lines = [f"{entry.title()} ({entry.family})", "", f"  {entry.call()}", ""]
    lines += wrapped(entry.purpose, 2)
    if entry.arguments:
        lines += ["", "Arguments"]
    for argument in entry.arguments:
        called = "" if argument.error_name == argument.name else f', "{argument.error_name}" in errors'
        lines += wrapped(f"{argument.name}: {argument.class_text}{called}", 2, 6)
        lines += wrapped(argument.description, 6)
    lines += ["", "Results"]
    for result in entry.results:
        lines += wrapped(f"{result.name}: {result.class_text}", 2, 6) + wrapped(result.description, 6)
    if not entry.results:
        lines += ["  none"]
    lines += ["", "Errors"]
    for error in entry.errors:
        lines += wrapped(error.call(), 2, 6) + wrapped(error.condition, 6)
        if error.identifier == "netcdf:libraryFailure":
            for status, condition in entry.statuses:
                lines += wrapped(f"{status}: {condition}", 6, 8)
    if entry.library:
        lines += ["", "Library functions"] + wrapped(", ".join(entry.library), 2)
    if entry.notes:
        lines += ["", "Notes"]
        lines += itertools.chain.from_iterable(wrapped(f"- {note}", 2, 4) for note in entry.notes)
    lines += ["", "Example"] + [f"  {line}" for line in entry.example]
    lines += ["", "Prints"] + [f"  {line}".rstrip() for line in entry.prints]
    return lines


def text(entries):
    parts = [text_overview(entries)]
    parts += [[f"@@ {entry.name}"] + text_entry(entry) for entry in entries]
    return "".join(line + "\n" for part in parts for line in part)


# Markdown

def cell(words):
    return words.replace("|", "\\|")


def table(head, rows):
    lines = ["", f"| {' | '.join(head)} |", f"|{'---|' * len(head)}"]
    return lines + [f"| {' | '.join(cell(word) for word in row)} |" for row in rows]


def fenced(lines, language=""):
    return ["", f"```{language}", *lines, "```"]


def anchor(title):
    return re.sub(r"[^a-z0-9_ -]", "", title.lower()).replace(" ", "-")


def markdown_entry(entry):
    lines = ["", f"### {entry.title()}", "", entry.purpose]
    lines += fenced([entry.call()], "octave")
    if entry.arguments:
        lines += table(("Argument", "In errors", "Class and shape", "Meaning"),
                       [(f"`{a.name}`", f"`{a.error_name}`", a.class_text, a.description)
                        for a in entry.arguments])
    if entry.results:
        lines += table(("Result", "Class and shape", "Meaning"),
                       [(f"`{r.name}`", r.class_text, r.description) for r in entry.results])
    else:
        lines += ["", "No results."]
    if entry.library:
        lines += ["", f"Library: {', '.join(f'`{function}`' for function in entry.library)}"]
    rows = []
    for error in entry.errors:
        rows.append((f"`{error.call()}`", error.condition))
        if error.identifier == "netcdf:libraryFailure":
            rows += [(f"`{status}`", condition) for status, condition in entry.statuses]
    lines += table(("Error", "When"), rows)
    if entry.notes:
        lines += [""] + [f"- {note}" for note in entry.notes]
    return lines + fenced(entry.example, "octave") + ["", "prints"] + fenced(entry.prints, "text")


def markdown(entries):
    families = operation_entries.by_family(entries)
    lines = ["<!-- SPDX-License-Identifier: BSD-3-Clause -->",
             "<!-- Made by docs/make_operations.py from docs/operations/: edit there. -->",
             "# Operations"]
    for paragraph in operation_entries.read_preface():
        if is_code(paragraph):
            lines += fenced(textwrap.dedent(paragraph).splitlines(), "octave")
        else:
            lines += ["", paragraph]
    lines.append("")
    for family, members in families.items():
        links = ", ".join(f"[{e.name}](#{anchor(e.title())})" for e in members)
        lines.append(f"- [{family}](#{anchor(family)}): {links}")
    for family, members in families.items():
        lines += ["", f"## {family}"]
        for entry in members:
            lines += markdown_entry(entry)
    return "".join(line + "\n" for line in lines)


# Texinfo: one section a family, one subsection an operation.

def escaped(words):
    return re.sub(r"([@{}])", r"@\1", words)


def texinfo_block(lines):
    return ["", "@example", *map(escaped, lines), "@end example"]


def texinfo_table(heading, items):
    lines = ["", f"@subsubheading {heading}", "@table @asis"]
    for item, description in items:
        lines += [f"@item {item}", description]
    return lines + ["@end table"]


def texinfo_code(words):
    return f"@code{{{escaped(words)}}}"


def node(entry):
    """A node's name holds no colon."""
    return entry.title().replace(":", "")


def texinfo_entry(entry):
    lines = ["", f"@node {node(entry)}", f"@subsection {entry.title()}",
             f"@cindex {entry.name}", "", escaped(entry.purpose)]
    lines += texinfo_block([entry.call()])
    if entry.arguments:
        items = []
        for a in entry.arguments:
            called = "" if a.error_name == a.name else f"; {texinfo_code(a.error_name)} in errors"
            items.append((f"@var{{{a.name}}}, {escaped(a.class_text)}{called}",
                          escaped(sentence(a.description))))
        lines += texinfo_table("Arguments", items)
    if entry.results:
        lines += texinfo_table("Results", [
            (f"@var{{{r.name}}}, {escaped(r.class_text)}", escaped(sentence(r.description)))
            for r in entry.results])
    items = []
    for error in entry.errors:
        items.append((texinfo_code(error.call()), escaped(sentence(error.condition))))
        if error.identifier == "netcdf:libraryFailure":
            items += [(texinfo_code(status), escaped(sentence(condition)))
                      for status, condition in entry.statuses]
    lines += texinfo_table("Errors", items)
    if entry.library:
        lines += ["", "@subsubheading Library functions",
                  ", ".join(texinfo_code(function) for function in entry.library)]
    if entry.notes:
        lines += ["", "@subsubheading Notes", "@itemize"]
        lines += [f"@item {escaped(note)}" for note in entry.notes] + ["@end itemize"]
    lines += ["", "@subsubheading Example"] + texinfo_block(entry.example)
    return lines + ["", "@noindent", "prints"] + texinfo_block(entry.prints)


def texinfo(entries):
    families = operation_entries.by_family(entries)
    lines = ["@c SPDX-License-Identifier: BSD-3-Clause",
             "@node Operations", "@chapter Operations"]
    for paragraph in operation_entries.read_preface():
        if is_code(paragraph):
            lines += texinfo_block(textwrap.dedent(paragraph).splitlines())
        else:
            lines += ["", escaped(paragraph)]
    nodes = {family: family.replace(":", "") for family in families}
    lines += ["", "@menu"] + [f"* {node}::" for node in nodes.values()] + ["@end menu"]
    for family, members in families.items():
        lines += ["", f"@node {nodes[family]}", f"@section {family}", "", "@menu"]
        lines += [f"* {node(entry)}:: {escaped(entry.purpose)}" for entry in members] + ["@end menu"]
        for entry in members:
            lines += texinfo_entry(entry)
    return "".join(line + "\n" for line in lines)


# C++: how each operation is called, for the messages of errors.

TABLES = {operation_entries.FIRST: "", operation_entries.ANY: ", OperationTable::any"}
KINDS = {"int": "integer", "int64": "integer64", "unsigned": "unsigned32", "single": "singleNumber", "rawsingle": "rawSingle", "fillvalue": "fillValue"}
CLASSES = {"double": "vxDOUBLE_CLASS", "single": "vxSINGLE_CLASS", "char": "vxCHAR_CLASS",
           **{f"{sign}int{bits}": f"vx{sign.upper()}INT{bits}_CLASS" for sign in ("", "u") for bits in (8, 16, 32, 64)}}


def camel(words):
    first, *others = re.split(r"[ _]", words)
    return first.lower() + "".join(word[0].upper() + word[1:].lower() for word in others)


def parameter_constants(entries):
    """{(name, name in errors, kind): name of its constant}"""
    constants = {}
    for argument in itertools.chain.from_iterable(entry.arguments for entry in entries):
        key = (argument.name, argument.error_name, argument.kind)
        name = camel(f"{argument.error_name.removesuffix(' name')} name" if argument.name == "name" else argument.name)
        if key not in constants and name in constants.values():
            name = camel(f"{argument.kind} {argument.name}")
        constants.setdefault(key, name)
    return constants


def forms(entries):
    constants = parameter_constants(entries)
    lines = ["// SPDX-License-Identifier: BSD-3-Clause",
             "// Made by docs/make_operations.py from docs/operations/: edit there.",
             '#include "hosts/messages/operation_forms.h"', "", "#include <iterator>", "", "namespace hosts::messages {", "", "namespace {", "",
             "// clang-format off"]
    for (name, error_name, kind), constant in constants.items():
        lines.append(f'constexpr Parameter {constant}{{"{name}", "{error_name}", '
                     f'ParameterKind::{KINDS.get(kind, kind)}}};')
    lines += ["", "constexpr OperationForm forms[] = {"]
    for entry in entries:
        parameters = [constants[a.name, a.error_name, a.kind] for a in entry.arguments]
        data = [a.class_text.removesuffix(" array") for a in entry.arguments if a.kind == "data"]
        lines.append(f'    {{"{entry.name}", "{entry.left()}", {{{", ".join(parameters)}}}, {len(parameters)}, '
                     f'{CLASSES[data[0]] if data else "vxUNKNOWN_CLASS"}{TABLES[entry.function]}}},')
    lines += ["};", "// clang-format on", "", "} // namespace", "",
              "const OperationForm* beginOperationForms() { return std::begin(forms); }",
              "const OperationForm* endOperationForms() { return std::end(forms); }", "",
              "} // namespace hosts::messages"]
    return "".join(line + "\n" for line in lines)


def main(arguments):
    entries = operation_entries.read_all_entries()
    if arguments == ["--texinfo"]:
        sys.stdout.write(texinfo(entries))
    elif arguments:
        sys.exit(__doc__)
    else:
        MARKDOWN.write_text(markdown(entries), encoding="utf-8")
        TEXT.write_text(text(entries), encoding="utf-8")
        FORMS.write_text(forms(entries), encoding="utf-8")


if __name__ == "__main__":
    main(sys.argv[1:])
