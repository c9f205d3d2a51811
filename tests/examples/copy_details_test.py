# SPDX-License-Identifier: BSD-3-Clause
"""examples/copy.m: large variables byte by byte, bounded memory, progress, and no file ever lost."""
import ctypes
import ctypes.util
import filecmp
import os
import pty
import random
import re
import resource
import signal
import subprocess
import sys
import tempfile
import time

from interpreter import ROOT, command, environment, run
from real_and_made_files import HEADERS, ncdump, ncgen

COPY = str(ROOT / "examples" / "copy.m")
MIB = 2 ** 20
netcdf = ctypes.CDLL(ctypes.util.find_library("netcdf"))


def classic_file(path, lengths, content):
    """A classic file of one byte variable: the header from ncgen, the values written after it."""
    names = [f"d{i}" for i in range(len(lengths))]
    dimensions = " ".join(f"{n} = {l} ;" for n, l in zip(names, lengths))
    cdl = path + ".cdl"
    with open(cdl, "w") as file:
        file.write(f"netcdf big {{ dimensions: {dimensions} variables: byte v({', '.join(names)}) ; }}")
    subprocess.run([os.environ["NCGEN"], "-x", "-o", path, cdl], check=True)
    size = 1
    for length in lengths:
        size *= length
    assert size % 4 == 0 and os.path.getsize(path) > size  # so the values end the file
    if content:
        with open(path, "r+b") as file:
            file.seek(-size, os.SEEK_END)
            file.write(random.Random(1).randbytes(size))


def check_values(folder):
    """Slabs end within each dimension in turn; in chunked storage they are cut along chunks."""
    original, copy = os.path.join(folder, "original.nc"), os.path.join(folder, "copy.nc")
    chunked, back = os.path.join(folder, "chunked.nc"), os.path.join(folder, "back.nc")
    shapes = [((6, 1900, 2100), "d0/1,d1/700,d2/900"), ((2, 9000, 2100), "d0/2,d1/9000,d2/1000"),
              ((1, 18 * MIB), "d0/1,d1/1000000")]
    for lengths, chunks in shapes:
        classic_file(original, lengths, content=True)
        assert run(COPY, original, copy, cwd="/").returncode == 0
        assert filecmp.cmp(original, copy, shallow=False), lengths

        subprocess.run([os.environ["NCCOPY"], "-k", "netCDF-4", "-c", chunks, original, chunked], check=True)
        done = run(COPY, "-f", chunked, copy, cwd="/")
        assert done.returncode == 0, done
        subprocess.run([os.environ["NCCOPY"], "-k", "classic", copy, back], check=True)
        assert filecmp.cmp(original, back, shallow=False), (lengths, chunks)
        for path in (original, copy, chunked, back):
            os.remove(path)


def same_dumps(original, copy):
    for options in (["-p", "9,17"], ["-hs"]):
        dumps = [[line for line in ncdump(*options, path)[1:]
                  if not re.search(":(_NCProperties|_SuperblockVersion) = ", line)]
                 for path in (original, copy)]
        assert dumps[0] == dumps[1], options


def check_deep_groups(folder):
    """The interpreter ends after 256 levels of recursion. A type and a dimension of a group below.

    Debian 12's library does not show the root's variable of the type of a group below, but that of bytes.
    """
    original, copy = os.path.join(folder, "deep.nc"), os.path.join(folder, "copy.nc")
    ncid, group, xtype, dimid, varid = (ctypes.c_int() for _ in range(5))
    assert netcdf.nc_create(original.encode(), 0x1000, ctypes.byref(ncid)) == 0
    group.value = ncid.value
    for level in range(1000):
        assert netcdf.nc_def_grp(group, b"g", ctypes.byref(group)) == 0
    assert netcdf.nc_def_opaque(group, ctypes.c_size_t(3), b"code", ctypes.byref(xtype)) == 0
    assert netcdf.nc_def_dim(group, b"n", ctypes.c_size_t(2), ctypes.byref(dimid)) == 0
    for where, name, of in ((group, b"v", xtype), (ncid, b"v", xtype), (ncid, b"w", 1)):
        assert netcdf.nc_def_var(where, name, of, 1, ctypes.byref(dimid), ctypes.byref(varid)) == 0
        assert netcdf.nc_put_var(where, varid, b"abcdef") == 0
    assert netcdf.nc_close(ncid) == 0
    done = run(COPY, original, copy, cwd="/")
    assert done.returncode == 0, done
    same_dumps(original, copy)


def check_filters(folder):
    """Filters of HDF5's own and szip, where it can be written."""
    original, copy = os.path.join(folder, "filters.nc"), os.path.join(folder, "copy.nc")
    filters = [(1, [5]), (2, []), (3, []), (4, [141, 8])]
    ncid, dimid, varid = (ctypes.c_int() for _ in range(3))
    assert netcdf.nc_create(original.encode(), 0x1000, ctypes.byref(ncid)) == 0
    assert netcdf.nc_def_dim(ncid, b"n", ctypes.c_size_t(1000), ctypes.byref(dimid)) == 0
    values = (ctypes.c_int * 1000)(*range(1000))
    applied = []
    for first, second in [(f, g) for f in filters for g in filters + [None] if f != g]:
        names = [f[0] for f in (first, second) if f]
        assert netcdf.nc_def_var(ncid, f"v{names}".encode(), 4, 1, ctypes.byref(dimid), ctypes.byref(varid)) == 0
        for number, parameters in [f for f in (first, second) if f]:
            array = (ctypes.c_uint * 2)(*parameters)
            status = netcdf.nc_def_var_filter(ncid, varid, number, ctypes.c_size_t(len(parameters)), array)
            if status == 0:
                applied.append(number)
        assert netcdf.nc_put_var(ncid, varid, values) == 0
    assert netcdf.nc_close(ncid) == 0
    assert {1, 2, 3} <= set(applied)
    print(f"filters applied: {sorted(set(applied))}")
    done = run(COPY, original, copy, cwd="/")
    assert done.returncode == 0, done
    same_dumps(original, copy)


def check_quantized(folder):
    original, copy = os.path.join(folder, "quantized.nc"), os.path.join(folder, "copy.nc")
    ncid, dimid, varid = (ctypes.c_int() for _ in range(3))
    assert netcdf.nc_create(original.encode(), 0x1000, ctypes.byref(ncid)) == 0
    assert netcdf.nc_def_dim(ncid, b"n", ctypes.c_size_t(1001), ctypes.byref(dimid)) == 0
    assert netcdf.nc_def_var(ncid, b"v", 5, 1, ctypes.byref(dimid), ctypes.byref(varid)) == 0
    assert netcdf.nc_def_var_quantize(ncid, varid, 1, 3) == 0
    assert netcdf.nc_put_var_float(ncid, varid, (ctypes.c_float * 1001)(*[k / 7 for k in range(1001)])) == 0
    assert netcdf.nc_close(ncid) == 0
    done = run(COPY, original, copy, cwd="/")
    assert done.returncode == 0, done
    same_dumps(original, copy)


def run_on_terminal(*args):
    """Status, peak memory in MiB, and what was shown on the terminal that stderr is."""
    shown, (terminal, stderr) = b"", pty.openpty()
    process = subprocess.Popen(command(*args), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=stderr, env=environment())
    os.close(stderr)
    while True:
        try:
            part = os.read(terminal, 4096)
        except OSError:  # the other end is closed
            break
        if not part:
            break
        shown += part
    os.close(terminal)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    return process.returncode, usage.ru_maxrss / 1024, shown.decode()


def check_memory_and_progress(folder):
    small, big = os.path.join(folder, "small.nc"), os.path.join(folder, "big.nc")
    copy = os.path.join(folder, "copy.nc")
    classic_file(small, (4,), content=False)
    classic_file(big, (256, MIB), content=False)
    status, least, _ = run_on_terminal(COPY, small, copy)
    assert status == 0
    status, most, shown = run_on_terminal(COPY, "-f", big, copy)
    assert status == 0 and filecmp.cmp(big, copy, shallow=False)
    assert most - least < 64, f"{most - least} MiB to copy 256 MiB"
    percents = [int(p) for p in re.findall(r"copy.m: +(\d+)% of 256.0 MiB, [\d.]+ s: v", shown)]
    assert percents == sorted(percents) and "copy.m: 1 variables, 256.0 MiB in " in shown, shown
    print(f"{most - least:.0f} MiB to copy 256 MiB; progress shown: {percents}")
    for path in (small, big, copy):
        os.remove(path)


def check_failure(arguments, expected, folder):
    done = run(COPY, *arguments, cwd=folder)
    lines = done.stderr.decode().splitlines()
    assert done.returncode == 1 and not done.stdout, f"{arguments}: {done}"
    assert expected in lines[0] and lines[0].startswith("copy.m: "), f"{arguments}: {lines}"


def check_nothing_is_lost(folder):
    original, other = os.path.join(folder, "original.nc"), os.path.join(folder, "other.nc")
    ncgen(HEADERS / "attributes.cdl", original, "classic")
    ncgen(HEADERS / "wide_types.cdl", other, "cdf5")
    with open(os.path.join(folder, "text.nc"), "w") as file:
        file.write("no netCDF file")
    os.link(original, os.path.join(folder, "link.nc"))
    os.symlink("original.nc", os.path.join(folder, "symlink.nc"))
    content = {name: open(os.path.join(folder, name), "rb").read() for name in os.listdir(folder)}

    def unchanged():
        return content == {name: open(os.path.join(folder, name), "rb").read()
                           for name in os.listdir(folder)}

    usage = "usage: copy.m [-f] IN OUT"
    check_failure([], usage, folder)
    check_failure(["original.nc"], usage, folder)
    check_failure(["-f", "original.nc"], usage, folder)
    check_failure(["original.nc", "other.nc"], "other.nc exists already; -f replaces it", folder)
    check_failure(["nowhere.nc", "copy.nc"], "open: ", folder)
    check_failure(["text.nc", "copy.nc"], "open: NC_ENOTNC", folder)
    check_failure(["-f", "text.nc", "other.nc"], "open: NC_ENOTNC", folder)
    check_failure(["original.nc", "nowhere/copy.nc"], "pCreate: 2: ", folder)
    for same in ("original.nc", "./original.nc", "link.nc", "symlink.nc", original):
        check_failure(["-f", "original.nc", same], " are the same file", folder)
        check_failure(["original.nc", same], " are the same file", folder)
    assert unchanged(), os.listdir(folder)

    assert run(COPY, "-f", "original.nc", "other.nc", cwd=folder).returncode == 0
    assert ncdump(other)[1:] == ncdump(original)[1:]
    content["other.nc"] = open(other, "rb").read()
    assert unchanged(), os.listdir(folder)


def check_full_disk(folder, kind):
    """A limit on the size of files simulates a full disk."""
    original, old = os.path.join(folder, "original.nc"), os.path.join(folder, "old.nc")
    classic_file(os.path.join(folder, "classic.nc"), (40, MIB), content=True)
    subprocess.run([os.environ["NCCOPY"], "-k", kind, os.path.join(folder, "classic.nc"), original],
                   check=True)
    with open(old, "w") as file:
        file.write("old")
    before = sorted(os.listdir(folder))

    def limit():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)  # writes fail instead
        resource.setrlimit(resource.RLIMIT_FSIZE, (20 * MIB, 20 * MIB))

    for arguments in (["original.nc", "copy.nc"], ["-f", "original.nc", "old.nc"]):
        done = subprocess.run(command(COPY, *arguments), cwd=folder, env=environment(),
                              stdin=subprocess.DEVNULL, capture_output=True, preexec_fn=limit)
        assert b"copy.m: putVara: " in done.stderr, (kind, done)
        if kind == "classic":  # after a write that failed, HDF5 may crash when the process exits
            assert done.returncode == 1 and b"warning" not in done.stderr, done
        assert done.returncode != 0, done
        assert sorted(os.listdir(folder)) == before, (kind, os.listdir(folder))
        with open(old) as file:
            assert file.read() == "old"


def check_interrupt(folder):
    original, copy = os.path.join(folder, "original.nc"), os.path.join(folder, "copy.nc")
    classic_file(original, (512, MIB), content=False)
    process = subprocess.Popen(command(COPY, original, copy), stdin=subprocess.DEVNULL,
                               stderr=subprocess.PIPE, env=environment())
    while process.poll() is None and not (os.path.exists(copy) and os.path.getsize(copy) > 32 * MIB):
        time.sleep(0.001)
    process.send_signal(signal.SIGINT)
    messages = process.communicate()[1]
    assert process.returncode == 1 and b"in " not in messages, (process.returncode, messages)
    assert sorted(os.listdir(folder)) == ["original.nc", "original.nc.cdl"], os.listdir(folder)


CHECKS = {"values": [check_values], "definitions": [check_deep_groups, check_filters, check_quantized],
          "memory": [check_memory_and_progress],
          "safety": [check_nothing_is_lost, check_interrupt,
                     lambda folder: check_full_disk(folder, "classic"),
                     lambda folder: check_full_disk(folder, "netCDF-4")]}
for check in CHECKS[sys.argv[1]]:
    with tempfile.TemporaryDirectory() as folder:
        check(folder)
