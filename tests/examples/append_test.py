# SPDX-License-Identifier: BSD-3-Clause
"""examples/append.m: what ncdump finds in the log after each run, and failures."""
import os
import re
import tempfile
import time

from interpreter import ROOT, output_of, run
from real_and_made_files import HEADERS, ncdump, ncgen

APPEND = str(ROOT / "examples" / "append.m")
HEADER = """dimensions:
	window = 3 ;
	time = UNLIMITED ; // (%d currently)
variables:
	double time(time) ;
		time:units = "seconds since 1970-01-01 00:00:00" ;
	int window(window) ;
		window:units = "min" ;
	float load(time, window) ;
		load:long_name = "mean number of runnable processes" ;
		load:units = "1" ;
}"""


def machine_load():
    with open("/proc/loadavg") as file:
        return [float(text) for text in file.read().split()[:3]]


def logged(path):
    """Times, and three loads for each."""
    text = "\n".join(ncdump("-p", "9,17", path))
    values = {name: [float(v) for v in body.replace("\n", "").split(",") if v.strip()]
              for name, body in re.findall(r"^ (\w+) =([^;]*);", text.partition("data:")[2], re.M)}
    assert values["window"] == [1, 5, 15]
    times = values.get("time", [])
    loads = values.get("load", [])
    return times, [loads[i:i + 3] for i in range(0, len(loads), 3)]


def check_growth(path):
    times, loads = [], []
    for arguments, new in (([], 1), (["3", "0"], 3), (["2"], 2), (["0"], 0), (["30", "0"], 30)):
        before, started = machine_load(), time.time()
        lines = output_of(APPEND, path, *arguments, cwd="/")
        ended, after = time.time(), machine_load()
        old_times, old_loads = times, loads
        times, loads = logged(path)
        assert "\n".join(ncdump("-h", path)[1:-1]) == HEADER % len(times)
        assert len(times) == len(loads) == len(old_times) + new
        assert (times[:len(old_times)], loads[:len(old_loads)]) == (old_times, old_loads)
        fresh = times[len(old_times):]
        assert fresh == sorted(fresh) and all(started <= t <= ended for t in fresh), fresh
        if arguments == ["2"]:
            assert 1 <= fresh[1] - fresh[0] < 60, fresh
        if before == after:  # the kernel looks every five seconds
            for load in loads[len(old_loads):]:
                assert all(abs(a - b) < 1e-6 for a, b in zip(load, before)), (load, before)

        assert lines[0] == f"{path}: records: {len(times)}, new: {new}", lines
        shown = [re.match(r"(\S+ \S+) +(\S+) +(\S+) +(\S+)  #*$", line).groups() for line in lines[1:]]
        expected = [(time.strftime("%Y-%m-%d %H:%M:%S", time.gmtime(t)), *(f"{v:.2f}" for v in load))
                    for t, load in list(zip(times, loads))[-20:]]
        assert shown == expected, (shown, expected)


def check_failure(arguments, expected, folder):
    done = run(APPEND, *arguments, cwd=folder)
    first = done.stderr.decode().splitlines()[0]
    assert done.returncode == 1 and not done.stdout and first.startswith("append.m: " + expected), done


with tempfile.TemporaryDirectory() as folder:
    check_growth(os.path.join(folder, "load.nc"))
    check_failure([], "usage: append.m FILE [N [SECONDS]]", folder)
    check_failure(["new.nc", "-1"], "N must be a whole number, not -1", folder)
    check_failure(["new.nc", "1", "1.5"], "SECONDS must be a whole number, not 1.5", folder)
    assert not os.path.exists(os.path.join(folder, "new.nc"))
    check_failure(["nowhere/new.nc"], "create: ", folder)
    other = os.path.join(folder, "other.nc")
    ncgen(HEADERS / "attributes.cdl", other, "classic")
    before = ncdump(other)
    check_failure([other], "inqDimID: NC_EBADDIM", folder)
    assert ncdump(other) == before
