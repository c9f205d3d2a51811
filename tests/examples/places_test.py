# SPDX-License-Identifier: BSD-3-Clause
"""examples/map.m, series.m and section.m: compares their pictures, pixel by pixel, with ncdump's output.

places_test.py          on a small made file
places_test.py --real   on the real files
"""
import datetime
import math
import os
import pathlib
import re
import sys
import tempfile

from drawn_fields import Fields, check_axes, check_cells, marks
from interpreter import ROOT, output_of, run
from picture import read_number, read_png, read_text
from real_and_made_files import ncgen, real_files

MADE = pathlib.Path(__file__).resolve().parent / "pictures" / "places.cdl"
MARK, LINE = (20, 60, 120), (120, 170, 210)


def script(name):
    return str(ROOT / "examples" / name)


def draw(folder, name, path, *arguments):
    """The pixels, the first line printed, and the numbers of the second."""
    png = pathlib.Path(folder) / "picture.png"
    at = 2 if name == "section.m" else 1
    lines = output_of(script(name), path, *arguments[:at], str(png), *arguments[at:], cwd="/")
    assert lines[0].startswith(f"{png}: ") and len(lines) == 2, lines
    numbers = [float(n) for n in re.findall(r"-?\d+(?:\.\d+)?(?:e[-+]\d+)?", lines[1])]
    return read_png(png), lines[0][len(f"{png}: "):], numbers


def cells_layout(numbers):
    wide, high, left, top, scale_left = map(int, numbers)
    return left, top, wide, high, scale_left


def shape(file, name):
    return [d.length for d in file.by_name[name].dimensions]


def check_regular_map(folder, path, file, name, record=0, turned=False):
    picture, line, numbers = draw(folder, "map.m", path, name, *[str(record)] * (record > 0))
    ny, nx = shape(file, name)[-2:][::-1] if turned else shape(file, name)[-2:]
    values = file.unpacked(name)[record * nx * ny:(record + 1) * nx * ny]
    rows = [[values[i * ny + j] for i in range(nx)] if turned else values[j * nx:(j + 1) * nx]
            for j in range(ny)]
    dims = [d.name for d in file.by_name[name].dimensions][-2:]
    lat_name, lon_name = dims[::-1] if turned else dims
    lats, lons = file.unpacked(lat_name), file.unpacked(lon_name)
    if lats[0] > lats[-1]:
        lats, rows = lats[::-1], rows[::-1]
    layout = cells_layout(numbers)
    known = check_cells(picture, rows, layout)
    check_axes(picture, rows, layout, lons, lats)
    print(f"map of {name}, record {record}: {known} values agree with ncdump")
    return picture


def box_means(lons, lats, values, size):
    """{(column, row): mean of the points in it, or None where none has a value}"""
    boxes = {}
    for lon, lat, value in zip(lons, lats, values):
        lon = (lon + 180) % 360 - 180
        boxes.setdefault((math.floor(lon / size), math.floor(lat / size)), []).append(value)
    return {at: sum(v for v in those if v is not None) / sum(v is not None for v in those)
            if any(v is not None for v in those) else None for at, those in boxes.items()}


def check_curved_map(folder, path, file, name, lon_name, lat_name, record=0):
    picture, line, numbers = draw(folder, "map.m", path, name, str(record))
    west, east, south, north = [float(n) for n in re.findall(r"(\S+) to (\S+?),", line)[0] +
                                re.findall(r"(\S+) to (\S+?),", line)[1]]
    left, top, wide, high, scale_left = cells_layout(numbers)
    columns = (scale_left - 30 - left) // wide
    size = (east - west) / (columns - 1)
    lons, lats = file.unpacked(lon_name), file.unpacked(lat_name)
    values = file.unpacked(name)[record * len(lons):(record + 1) * len(lons)]
    boxes = box_means(lons, lats, values, size)
    first = round(west / size - 0.5), round(south / size - 0.5)
    assert first == tuple(map(min, zip(*boxes))), (first, size)
    known = [v for v in boxes.values() if v is not None]
    low, spread = min(known), max(known) - min(known)
    row_count = round((north - south) / size) + 1
    for (column, row), value in boxes.items():
        x, y = left + (column - first[0]) * wide, top + (row_count - 1 - row + first[1]) * high
        colour = picture[y + high // 2][x + wide // 2]
        if value is None:
            assert colour == (208, 208, 208), ((column, row), colour)
        else:
            at = top + (row_count * high - 1) * (1 - (value - low) / spread)
            near = {picture[r][scale_left] for r in range(round(at) - 4, round(at) + 5)
                    if top <= r < top + row_count * high}
            assert colour in near, ((column, row), value, colour, near)
    assert read_text(picture, left, 24).startswith((file.text(name, "long_name") or name).split()[0])
    print(f"curved map of {name}: {len(boxes)} boxes of {size:g} degrees agree with ncdump")


def check_dates(picture, left, width, bottom, place):
    """The dates under the frame are at place(date), a fraction of the width."""
    found = 0
    for column in marks(picture, bottom + 4, along_row=True):
        if left - 1 < column <= left + width:
            for length in (10, 11):
                for shift in (0, 1):
                    text = read_text(picture, column - 6 * length - shift, bottom + 18)
                    if re.fullmatch(r"\d{4}-\d\d-\d\d", text) and length == 10:
                        at = place(datetime.datetime.fromisoformat(text))
                        assert abs(left + at * width - column) <= 1.5, (text, column, at)
                        found += 1
                        break
    assert found >= 2, found


def numbers_beside(picture, left, top, bottom):
    """(row, number) of each tick left of the frame."""
    found = []
    for row in marks(picture, left - 3, along_row=False):
        texts = [(n, *read_number(picture, left - 10 - 12 * n, row)) for n in range(8, 0, -1)]
        whole = [number for n, number, text in texts if number is not None and len(text) == n]
        if top <= row <= bottom and whole:
            found.append((row, whole[0]))
    return found


def check_series(folder, path, file, name, values, hours, since, *arguments):
    """values and hours: those expected, None if there is no value."""
    picture, line, numbers = draw(folder, "series.m", path, name, *arguments)
    width, height, left, top = map(int, numbers[:4])
    x0, x1, y0, y1 = numbers[4:]
    day0 = datetime.datetime(since.year, since.month, since.day).toordinal() + 366 + since.hour / 24
    assert f"{len(values)} values" in line and f"{values.count(None)} without value" in line, line
    centres = []
    for value, hour in zip(values, hours):
        column = left + (width - 1) * (day0 + hour / 24 - x0) / (x1 - x0)
        if value is not None:
            row = top + (height - 1) * (y1 - value) / (y1 - y0)
            assert picture[round(row)][round(column)] == MARK, (value, hour)
        centres.append(column)
    marked = sum(p == MARK for line_ in picture for p in line_)
    expected = 25 * (len(values) - values.count(None))
    assert 0.75 * expected <= marked <= expected, (marked, expected)
    for i in range(len(values) - 1):
        column = [line_[round((centres[i] + centres[i + 1]) / 2)] for line_ in picture[top:top + height]]
        drawn = LINE in column
        assert drawn == (values[i] is not None and values[i + 1] is not None), i
    check_dates(picture, left, width, top + height,
                lambda date: (date.toordinal() + 366 - x0) / (x1 - x0))
    shown = numbers_beside(picture, left, top, top + height)
    for row, number in shown:
        assert abs(y1 - (row - top) * (y1 - y0) / height - number) <= (y1 - y0) / height, (row, number)
    assert len(shown) >= 3, shown
    print(f"series of {name} {' '.join(arguments)}: {len(values) - values.count(None)} values agree")


def interpolated(depths, values, depth):
    pairs = sorted((z, v) for z, v in zip(depths, values) if z is not None and v is not None)
    for (z0, v0), (z1, v1) in zip(pairs, pairs[1:]):
        if z0 <= depth <= z1:
            return v0 + (v1 - v0) * (depth - z0) / (z1 - z0)
    return None


def check_section(folder, path, file, name, depth_name, time_name, since):
    picture, line, numbers = draw(folder, "section.m", path, name, depth_name)
    layout = cells_layout(numbers)
    left, top, wide, high, scale_left = layout
    profiles, levels = shape(file, name)
    first, last = [float(n) for n in re.search(r"depths (\S+) to (\S+?),", line).groups()]
    bottom = max(i for i, row in enumerate(picture) if row[left - 1] == (0, 0, 0)) - 1
    count = (bottom - top + 1) // high
    values, depths = file.unpacked(name), file.unpacked(depth_name)
    depths = depths if len(depths) == len(values) else depths * profiles
    rows = []
    for k in range(count):
        depth = first + (last - first) * k / (count - 1)
        rows.append([interpolated(depths[p * levels:(p + 1) * levels], values[p * levels:(p + 1) * levels], depth)
                     for p in range(profiles)])
    known = check_cells(picture, rows[::-1], layout)
    assert known > 0 and any(v is None for row in rows for v in row)
    ticks = numbers_beside(picture, left, top, top + high * count)
    assert len(ticks) >= 2 and [n for _, n in ticks] == sorted(n for _, n in ticks), ticks  # deeper is lower
    for row, depth in ticks:
        assert abs(first + (last - first) * ((row - top) / high - 0.5) / (count - 1) - depth) <= (last - first) / count
    days = [(datetime.timedelta(days=d) + since) for d in file.unpacked(time_name)]

    def place(date):
        i = max(i for i in range(profiles - 1) if days[i] <= date)
        return (i + (date - days[i]) / (days[i + 1] - days[i]) + 0.5) / profiles
    check_dates(picture, left, wide * profiles, top + high * count, place)
    print(f"section of {name} over {depth_name}: {known} cells agree with ncdump")


def check_failure(folder, name, arguments, expected):
    done = run(script(name), *arguments, cwd=folder)
    assert done.returncode == 1 and not done.stdout, done
    assert done.stderr.decode().startswith(f"{name}: {expected}"), done
    assert os.listdir(folder) == ["places.nc"], os.listdir(folder)


def check_failures(folder, path):
    for name, arguments, expected in (
            ("map.m", [path], "usage: "), ("map.m", [path, "sst", "a.png", "1.5"], "RECORD must be a whole number"),
            ("map.m", [path, "sst", "a.png", "6"], "getVarsShort: NC_EINVALCOORDS"),
            ("map.m", [path, "turned", "a.png", "1"], "turned has one record"),
            ("map.m", [path, "salinity", "a.png"], "salinity has no coordinates"),
            ("map.m", ["none.nc", "sst", "a.png"], "open: 2: "),
            ("series.m", [path, "tide"], "usage: "), ("series.m", [path, "tide", "a.png", "1", "x"], "LONGITUDE and"),
            ("series.m", [path, "sst", "a.png"], "sst is no series"),
            ("series.m", [path, "tide", "a.png", "1", "2"], "tide is no series"),
            ("section.m", [path, "salinity", "pressure"], "usage: "),
            ("section.m", [path, "salinity", "lat", "a.png"], "salinity has no two dimensions, or lat not the same"),
            ("section.m", [path, "salinity", "none", "a.png"], "inqVarID: NC_ENOTVAR")):
        check_failure(folder, name, arguments, expected)


def check_made(folder):
    path = os.path.join(folder, "places.nc")
    ncgen(MADE, path, "netCDF-4")
    check_failures(folder, path)
    file = Fields(path)
    first = check_regular_map(folder, path, file, "sst")
    assert first != check_regular_map(folder, path, file, "sst", record=1)
    assert read_text(first, 110, 24) == "Sea surface temperature (degree_C)"
    assert read_text(first, 110, 50) == "time: 2001-12-30 12:00"
    check_regular_map(folder, path, file, "turned", turned=True)
    check_curved_map(folder, path, file, "curved", "east", "north")
    check_curved_map(folder, path, file, "curved", "east", "north", record=1)

    since, hours = datetime.datetime(2001, 12, 30, 12), file.unpacked("time")
    check_series(folder, path, file, "tide", file.unpacked("tide"), hours, since)
    corner = [file.unpacked("sst")[40 * t + 39] for t in range(6)]  # the last of lat and lon
    check_series(folder, path, file, "sst", corner, hours, since, "-50", "-75")
    check_series(folder, path, file, "sst", corner, hours, since, "330", "-90")
    check_section(folder, path, file, "salinity", "pressure", "when", datetime.datetime(1999, 2, 27))
    check_section(folder, path, file, "salinity", "depth", "when", datetime.datetime(1999, 2, 27))


def check_real(folder):
    checked = 0
    for path in real_files():
        name, file = os.path.basename(path), None
        if name.startswith("nemo"):
            check_curved_map(folder, path, Fields(path), "tos", "nav_lon", "nav_lat")
        elif name.startswith("SMALL_total"):
            file = Fields(path)
            check_regular_map(folder, path, file, "tcco2", record=7)
            n = 161 * 320
            values = [file.unpacked("tcco2")[t * n + 27 * 320 + 302] for t in range(31)]
            check_series(folder, path, file, "tcco2", values, file.unpacked("time"),
                         datetime.datetime(1900, 1, 1), "-20", "60")
        elif name.startswith("34bd"):
            check_section(folder, path, Fields(path), "TEMP", "PRES", "JULD", datetime.datetime(1950, 1, 1))
        else:
            continue
        checked += 1
    print(f"{checked} files")


with tempfile.TemporaryDirectory() as folder:
    (check_real if sys.argv[1:] == ["--real"] else check_made)(folder)
