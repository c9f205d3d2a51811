# SPDX-License-Identifier: BSD-3-Clause
"""Which bytes a terminal may take for commands."""


def controls_of(data):
    """The indices of the bytes that belong to control characters: C0, DEL and C1, as UTF-8 or alone."""
    found, at = set(), 0
    while at < len(data):
        for count in (1, 2, 3, 4):
            try:
                character = data[at:at + count].decode("utf-8")
                break
            except UnicodeDecodeError:
                character = None
        if character is None:
            count, character = 1, chr(data[at])
        if ord(character) < 32 or 127 <= ord(character) < 160:
            found.update(range(at, at + count))
        at += count
    return found
