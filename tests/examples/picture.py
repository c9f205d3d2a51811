# SPDX-License-Identifier: BSD-3-Clause
"""Reads PNG pictures without the interpreter."""
import struct
import zlib


def read_png(path):
    """Rows of (red, green, blue) pixels of an 8-bit RGB file."""
    data = path.read_bytes()
    assert data[:8] == b"\x89PNG\r\n\x1a\n", path
    at, packed = 8, b""
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        at += 12 + length
        if kind == b"IHDR":
            width, height, depth, colour, _, _, interlaced = struct.unpack(">IIBBBBB", body)
            assert (depth, colour, interlaced) == (8, 2, 0), body
        packed += body if kind == b"IDAT" else b""
    raw = zlib.decompress(packed)
    rows, before = [], bytes(3 * width)
    for y in range(height):
        line = raw[y * (3 * width + 1):(y + 1) * (3 * width + 1)]
        before = unfilter(line[0], bytearray(line[1:]), before)
        rows.append([tuple(before[i:i + 3]) for i in range(0, 3 * width, 3)])
    return rows


def unfilter(kind, line, above):
    if kind == 1:
        for i in range(3, len(line)):
            line[i] = line[i] + line[i - 3] & 255
    elif kind == 2:
        line = bytes(map(lambda a, b: a + b & 255, line, above))
    elif kind == 3:
        for i, up in enumerate(above):
            line[i] = line[i] + ((line[i - 3] if i > 2 else 0) + up) // 2 & 255
    elif kind == 4:
        for i, up in enumerate(above):
            left, corner = (line[i - 3], above[i - 3]) if i > 2 else (0, 0)
            to_left, to_up, to_corner = abs(up - corner), abs(left - corner), abs(left + up - 2 * corner)
            nearest = left if to_left <= to_up and to_left <= to_corner else \
                up if to_up <= to_corner else corner
            line[i] = line[i] + nearest & 255
    return bytes(line)
