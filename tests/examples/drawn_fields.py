# SPDX-License-Identifier: BSD-3-Clause
"""Fields as ncdump prints them, unpacked, and the cells and axes of a picture of one."""
import math
import re

from ncdump_file import File, ncdump, number, plain
from picture import BLACK, read_number

GREY = (208, 208, 208)
DEFAULT_FILL = {"byte": None, "ubyte": None}
BITS = {"byte": 8, "short": 16, "int": 32}


class Fields(File):
    """A file, with the attributes of its variables, and their values unpacked."""

    def __init__(self, path):
        super().__init__(path)
        self.attributes = {v.name: {} for v in self.variables}
        header = ncdump("-h", "-p", "9,17", path).split("\ngroup: ")[0]
        for name, attribute, text in re.findall(r"^\t\t((?:[^:\\]|\\.)+):(\w+) = (.*) ;$", header, re.M):
            self.attributes[plain(name)][attribute] = text
        self.by_name = {v.name: v for v in self.variables}

    def text(self, name, attribute):
        return self.attributes[name].get(attribute, "").strip('"')

    def numbers(self, name, attribute, type_name):
        text = self.attributes[name].get(attribute)
        return [number(t, type_name) for t in text.split(", ")] if text else []

    def unpacked(self, name):
        """A value, or None where it is missing, for each element, the slowest varying first."""
        variable = self.by_name[name]
        kind = variable.type
        missing = self.numbers(name, "_FillValue", kind) or [DEFAULT_FILL.get(kind, variable.fill)]
        missing += self.numbers(name, "missing_value", kind)
        span = self.numbers(name, "valid_range", kind)
        low = self.numbers(name, "valid_min", kind) + span[:1]
        high = self.numbers(name, "valid_max", kind) + span[1:]
        scale = (self.numbers(name, "scale_factor", "double") + [1])[0]
        offset = (self.numbers(name, "add_offset", "double") + [0])[0]
        unsigned = self.text(name, "_Unsigned") == "true"

        def value(stored):
            if stored in missing or not math.isfinite(stored):
                return None
            if unsigned:
                stored %= 2 ** BITS[kind]
            if (low and stored < low[0]) or (high and stored > high[0]):
                return None
            return stored * scale + offset
        return [value(stored) for stored in variable.values]

    def units(self, name):
        units = self.text(name, "units")
        return f" ({units})" if units else ""


def region(file, name, start, count, stride):
    """Values as rows of the two dimensions drawn, slower first, those dimensions, and the others."""
    dims = file.by_name[name].dimensions[::-1]  # fastest varying first, as in the arguments
    wide = sorted(([d for d in range(len(dims)) if count[d] > 1] +
                   [d for d in range(len(dims)) if count[d] == 1])[:2])
    values, steps = file.unpacked(name), [1]
    for d in dims:
        steps.append(steps[-1] * d.length)
    base = sum(s * step for s, step in zip(start, steps))
    x, y = wide
    rows = [[values[base + i * stride[x] * steps[x] + j * stride[y] * steps[y]]
             for i in range(count[x])] for j in range(count[y])]
    return rows, [(dims[d].name, start[d], count[d], stride[d]) for d in wide], \
        [(dims[d].name, start[d]) for d in range(len(dims)) if d not in wide]


def along(file, dimension, start, count, stride):
    """Label and values of an axis: the coordinate variable's, or the indices."""
    indices = [start + i * stride for i in range(count)]
    variable = file.by_name.get(dimension)
    if not variable or [d.name for d in variable.dimensions] != [dimension]:
        return dimension, indices
    values = file.unpacked(dimension)
    return dimension + file.units(dimension), [values[i] for i in indices]


def check_cells(picture, rows, layout):
    """Every pixel of a cell has one colour, whose place on the scale is the value's."""
    left, top, wide, high, scale_left = layout
    height = high * len(rows)
    known = [v for row in rows for v in row if v is not None]
    low, high_value = (min(known), max(known)) if known else (0, 0)
    places = {}
    for i in range(height):
        fraction = 1 - (i + 0.5) / height
        places.setdefault(picture[top + i][scale_left], []).append(fraction)
    for j, row in enumerate(rows):
        y = top + height - (j + 1) * high
        for i, value in enumerate(row):
            x = left + i * wide
            cell = {p for line in picture[y:y + high] for p in line[x:x + wide]}
            assert len(cell) == 1, (i, j, cell)
            colour = cell.pop()
            if value is None:
                assert colour == GREY, (i, j, colour)
            elif high_value > low:
                fraction = (value - low) / (high_value - low)
                tolerance = 1 / 255 + 1 / height
                assert any(abs(fraction - p) <= tolerance for p in places[colour]), (i, j, value, colour)
            else:
                assert colour in places, (i, j, colour)
    return len(known)


def check_ticks(numbers, values, what):
    """numbers holds (place counted in cells from 0.5 on, number) of each tick."""
    expected = 1 if values[0] == values[-1] else 3
    assert len(numbers) >= expected, (what, numbers, values)
    for place, shown in numbers:
        index = min(max(place - 0.5, 0), len(values) - 1)
        i = min(int(index), len(values) - 2) if len(values) > 1 else 0
        step = values[min(i + 1, len(values) - 1)] - values[i]
        exact = values[i] + (index - i) * step
        tolerance = 0.6 * abs(step) + 1e-5 * max(abs(exact), abs(shown))
        assert abs(exact - shown) <= tolerance, (what, place, shown, exact)


def marks(picture, place, along_row):
    """The positions of tick marks in a row or column of the picture outside the frame."""
    line = picture[place] if along_row else [row[place] for row in picture]
    return [i for i, pixel in enumerate(line) if pixel == BLACK]


def check_axes(picture, rows, layout, x_values, y_values):
    left, top, wide, high, scale_left = layout
    height, width = high * len(rows), wide * len(rows[0])
    shown = []
    for row in marks(picture, left - 3, along_row=False):
        if top - 1 < row < top + height:
            lengths = [n for n in range(1, 9) if read_number(picture, left - 10 - 12 * n, row)[0]
                       is not None and len(read_number(picture, left - 10 - 12 * n, row)[1]) == n]
            number_ = read_number(picture, left - 10 - 12 * max(lengths), row)[0]
            shown.append(((top + height - row) / high, number_))
    check_ticks(shown, y_values, "y")

    shown = []
    for column in marks(picture, top + height + 4, along_row=True):
        if left - 1 < column < left + width:
            for n in range(12, 0, -1):
                number_, text = read_number(picture, column - 6 * n, top + height + 18)
                if number_ is None or len(text) != n:
                    number_, text = read_number(picture, column - 6 * n - 1, top + height + 18)
                if number_ is not None and len(text) == n:
                    shown.append(((column - left) / wide, number_))
                    break
    check_ticks(shown, x_values, "x")

    known = [v for row in rows for v in row if v is not None]
    if known:
        shown = [((top + height - row) * 256 / height, read_number(picture, scale_left + 30, row)[0])
                 for row in marks(picture, scale_left + 23, along_row=False) if row <= top + height]
        low, high_value = min(known), max(known)
        check_ticks(shown, [low + (high_value - low) * i / 255 for i in range(256)], "scale")
