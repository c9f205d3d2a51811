# SPDX-License-Identifier: BSD-3-Clause
"""The examples on datasets: their pictures, pixel by pixel, the files that they write as ncdump prints them, and failures.

dataset_examples_test.py          on a small made file
dataset_examples_test.py --real   on the real files
"""
import glob
import os
import pathlib
import re
import sys
import tempfile
import time

from interpreter import ROOT, output_of, run
from picture import read_png
from real_and_made_files import ncdump, ncgen

GREY, LOWEST, HIGHEST, LINE = (191, 191, 191), (68, 1, 84), (253, 231, 37), (31, 89, 153)
MADE = """netcdf made {
dimensions: lon = 4; lat = 3; depth = 3; time = UNLIMITED;
variables:
  double lon(lon); lon:units = "degrees_east";
  double lat(lat); lat:units = "degrees_north";
  double depth(depth); depth:units = "m"; depth:positive = "down";
  int time(time); time:units = "days since 2013-01-01";
  short t(time, lat, lon); t:units = "degC"; t:long_name = "temperature"; t:scale_factor = 0.5; t:_FillValue = -9s;
  float s(depth, lon); s:units = "1e-3";
data:
  lon = 0, 90, 180, 270; lat = 60, 0, -60; depth = 0, 10, 100; time = 0, 1, 2, 3, 4, 5;
  t = 1, 2, 3, 4, _, 6, 7, 8, 9, 10, 11, 12,  2, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12,  3, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12,
      _, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12,  3, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12,  1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12;
  s = 39, 38, 38, 38, 36, 36, 36, 36, 34, 34, 34, 30;
}
"""


def script(name):
    return str(ROOT / "examples" / name)


def places(picture, colour, most=1.0):
    """Columns and rows of the pixels of a colour in the left part of a picture, which has no colour scale."""
    return [(x, y) for y, row in enumerate(picture) for x, pixel in enumerate(row[:round(most * len(row))]) if pixel == colour]


def middle(pixels):
    return [sum(of) / len(pixels) for of in zip(*pixels)]


def draw(folder, name, path, *arguments):
    png = pathlib.Path(folder) / "picture.png"
    png.unlink(missing_ok=True)
    done = run(script(name), str(path), arguments[0], str(png), *arguments[1:], cwd=folder)
    assert done.returncode == 0 and not done.stderr, done
    return read_png(png)


def check_map(folder, path):
    picture = draw(folder, "map.m", path, "t")
    grey, lowest, highest = [places(picture, colour, 0.83) for colour in (GREY, LOWEST, HIGHEST)]
    cell = len(grey)
    assert cell > 10_000 and abs(len(lowest) / cell - 1) < 0.05 and abs(len(highest) / cell - 1) < 0.05, (cell, len(lowest), len(highest))
    (gx, gy), (lx, ly), (hx, hy) = map(middle, (grey, lowest, highest))
    # The missing value is in the west at the equator, the lowest north of it, the highest in the far south-east.
    assert abs(lx - gx) < 2 and ly < gy - 50 and hy > gy + 50 and hx > gx + 200, (grey[0], lowest[0], highest[0])
    assert abs((hy - gy) - (gy - ly)) < 3
    part = draw(folder, "map.m", path, "t", "time", "2013-01-02", "lon", "-90,0")
    assert not places(part, GREY, 0.83)
    lowest, highest = [middle(places(part, colour, 0.83)) for colour in (LOWEST, HIGHEST)]
    assert lowest[0] > highest[0], "90 degrees west are to the left of 0"


def check_texts_that_gnuplot_would_run(folder):
    """Texts of a file are drawn, and nothing in them is a command."""
    evil = r'\" ; system \"touch run\" `touch run` back\\slash %s @x {b}'
    cdl, path = pathlib.Path(folder) / "evil.cdl", os.path.join(folder, "evil.nc")
    cdl.write_text(f"""netcdf evil {{ dimensions: x = 2; y = 2; variables: float v(y, x); v:units = "{evil}"; v:long_name = "{evil * 9}";
        float x(x); x:long_name = "{evil}"; float y(y); y:long_name = "{evil * 3}"; data: x = 1, 2; y = 1, 2; v = 1, 2, 3, 4; }}""")
    ncgen(str(cdl), path, "classic")
    picture = draw(folder, "map.m", path, "v")
    assert len(places(picture, HIGHEST, 0.9)) > 5000
    assert not os.path.exists(os.path.join(folder, "run"))


def check_series(folder, path):
    picture = draw(folder, "series.m", path, "t", "1", "55")
    columns = sorted({x for x, _ in places(picture, LINE)})
    gaps = [b - a for a, b in zip(columns, columns[1:]) if b - a > 20]
    assert len(columns) > 200 and len(gaps) == 1, (len(columns), gaps)


def check_section(folder, path):
    picture = draw(folder, "section.m", path, "s")
    highest, lowest = places(picture, HIGHEST, 0.83), places(picture, LOWEST, 0.83)
    assert middle(highest)[1] < middle(lowest)[1] and middle(highest)[0] < middle(lowest)[0]
    # Uneven depths keep their places: the upper layer is 10 m of 145 m, the lower 90 m.
    assert len(lowest) > 5 * len(highest) > 0, (len(lowest), len(highest))


def check_subset(folder, path):
    out = os.path.join(folder, "part.nc")
    lines = output_of(script("subset.m"), path, "t", out, "lon", "-90,90", "lat", "0,60", "time", "2013-01-01,2013-01-02", cwd=folder)
    assert lines == [f"{out}: 12 values, 1 missing"], lines
    text = " ".join("\n".join(ncdump(out)).split())
    for part in ("double t(time, lat, lon) ;", 't:long_name = "temperature" ;', "t = 2, 0.5, 1, 4, _, 3, 2, 1, 1, 4, 2.5, 3 ;", "lon = -90, 0, 90 ;",
                 "lat = 60, 0 ;", "time = 0, 1 ;", 'time:units = "days since 2013-01-01" ;', ':Conventions = "CF-1.11" ;'):
        assert part in text, (part, text)


def check_field(folder, path):
    lines = output_of(script("field.m"), path, cwd=folder)
    assert any(re.search(r"^ +t +.*lon x lat x time.*degC.*temperature", line) for line in lines), lines
    lines = output_of(script("field.m"), path, "t", "s", cwd=folder)
    assert "72 values, 2 of them missing, from 0.5 to 6, mean 3.335714286" in lines, lines
    assert lines[-1] == "12 values, 0 of them missing, from 30 to 39, mean 35.75", lines


def check_append(folder):
    path = os.path.join(folder, "load.nc")
    times = []
    for arguments, new in (([], 1), (["3", "0"], 3), (["2"], 2), (["0"], 0)):
        before = time.time()
        lines = output_of(script("append.m"), path, *arguments, cwd="/")
        assert lines == [f"{path}: {len(times) + new} records, {new} of them new"], lines
        text = "\n".join(ncdump("-p", "9,17", path))
        now = [float(t) for t in re.search(r" time =([^;]*);", text)[1].split(",")]
        assert now[:len(times)] == times and now == sorted(now)
        assert all(before - 1e-3 < t < time.time() + 1e-3 for t in now[len(times):]), (before, now)
        assert len(re.search(r" load =([^;]*);", text)[1].split(",")) == 3 * len(now)
        times = now
    assert "_" not in text.partition("data:")[2] and ncdump("-k", path)[0] == "classic"


def check_failures(folder, path):
    for name, arguments, expected in (
            ("field.m", [], "usage: field.m FILE"), ("field.m", ["nowhere.nc"], "open: 2: No such file"),
            ("field.m", [path, "u"], "no variable"), ("map.m", [path, "t"], "usage: map.m"),
            ("map.m", [path, "t", "m.png", "lon"], "selections are pairs"), ("map.m", [path, "t", "m.png", "lon", "400,410", "lat", "80,81"], ""),
            ("series.m", [path, "t", "m.png", "x", "1"], "LONGITUDE and LATITUDE must be numbers"),
            ("series.m", [path, "t", "m.png"], "'t' cannot be drawn along 3 dimensions"),
            ("section.m", [path, "s"], "usage: section.m"), ("subset.m", [path, "t", "n.nc"], "usage: subset.m"),
            ("append.m", ["new.nc", "-1"], "N must be a whole number"), ("append.m", ["nowhere/new.nc"], "create: ")):
        done = run(script(name), *arguments, cwd=folder)
        assert done.returncode == 1 and done.stderr.decode().startswith(f"{name}: {expected}"), (name, arguments, done)
    assert not any(os.path.exists(os.path.join(folder, left)) for left in ("m.png", "n.nc", "new.nc"))


def check_lengths():
    for name in ("field", "map", "series", "section", "subset", "append"):
        lines = len(pathlib.Path(script(f"{name}.m")).read_text().splitlines())
        assert lines <= 40, (name, lines)


def check_real(folder):
    files = {name[:5]: path for path in glob.glob(os.path.join(os.environ.get("GRIDIO_DATA", ""), "*.nc"))
             for name in [os.path.basename(path)]}
    if not {"nemo_", "34bdc", "SMALL"} <= set(files):
        sys.exit(77)
    sea = draw(folder, "map.m", files["nemo_"], "tos")
    share = len(places(sea, GREY, 0.83)) / sum(pixel != (255, 255, 255) for row in sea for pixel in row[:round(0.83 * len(row))])
    assert 0.2 < share < 0.4, f"land and ice shelves cover {share} of the map"
    warm = middle(places(sea, HIGHEST, 0.83))
    assert 0.4 < warm[1] / len(sea) < 0.65, "the warmest water is in the tropics"
    floats = draw(folder, "section.m", files["34bdc"], "TEMP", "along", "PRES")
    assert middle(places(floats, HIGHEST, 0.83))[1] < middle(places(floats, LOWEST, 0.83))[1], "warm water is above"
    draw(folder, "series.m", files["SMALL"], "tcco2", "12.5", "55")
    out = os.path.join(folder, "day.nc")
    output_of(script("subset.m"), files["SMALL"], "tcco2", out, "time", "2006-01-03", "lon", "-10,30", cwd=folder)
    assert "time = 4 ;" in "\n".join(ncdump("-h", out))


os.environ.pop("DISPLAY", None)
with tempfile.TemporaryDirectory() as scratch:
    if "--real" in sys.argv:
        check_real(scratch)
    else:
        cdl = pathlib.Path(scratch) / "made.cdl"
        cdl.write_text(MADE)
        made = os.path.join(scratch, "made.nc")
        ncgen(str(cdl), made, "classic")
        check_lengths()
        check_map(scratch, made)
        check_texts_that_gnuplot_would_run(scratch)
        check_series(scratch, made)
        check_section(scratch, made)
        check_subset(scratch, made)
        check_field(scratch, made)
        check_append(scratch)
        check_failures(scratch, made)
