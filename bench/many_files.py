#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Many files as one: opening them, and their mean, by gridio, plain C, xarray and CDO, in turns on the same files.

many_files.py OCTAVE-FOLDER [--files N] [--fields N]    OCTAVE-FOLDER: where gridio.oct is, of a release build

Prints seconds of each, the best of three rounds: on the clock, and of processors, which other work on the machine changes less.
"""
import argparse
import os
import pathlib
import resource
import subprocess
import sys
import tempfile
import time

import netCDF4
import numpy as np

HERE = pathlib.Path(__file__).resolve().parent
# What a script prints of some work, after what comes before it.
TIMED = """
%s
a = getrusage (); t = tic ();
%s
b = getrusage ();
used = @(r) r.utime.sec + r.stime.sec + 1e-6 * (r.utime.usec + r.stime.usec);
printf ("%%.6f %%.6f\\n", toc (t), used (b) - used (a));
"""
XARRAY = """
import sys, time, warnings
warnings.simplefilter("ignore")
import xarray, glob
wall, used = time.perf_counter(), time.process_time()
xarray.open_mfdataset(sorted(glob.glob("%s")), combine="nested", concat_dim="time", data_vars="minimal", coords="minimal",
                      compat="override")
print(time.perf_counter() - wall, time.process_time() - used)
"""


def make(folder, count, form, nlat, nlon):
    """Files of a day each, packed, and compressed if the format can."""
    folder.mkdir()
    rng = np.random.default_rng(1)
    field = rng.integers(0, 16, (nlat, nlon)) + np.arange(nlat)[:, None] * 10
    for day in range(count):
        with netCDF4.Dataset(folder / f"day_{day:06d}.nc", "w", format=form) as out:
            out.title = "one day of many"
            for name, size in (("time", None), ("lat", nlat), ("lon", nlon)):
                out.createDimension(name, size)
            at = out.createVariable("time", "f8", ("time",), chunksizes=(1,) if form == "NETCDF4" else None)
            at.units, at.calendar, at.standard_name = "days since 1981-01-01", "standard", "time"
            for name, units, size in (("lat", "degrees_north", nlat), ("lon", "degrees_east", nlon)):
                axis = out.createVariable(name, "f4", (name,))
                axis.units, axis[:] = units, np.linspace(-80, 80, size)
            packed = {"compression": "zlib", "chunksizes": (1, nlat, nlon)} if form == "NETCDF4" else {}
            sst = out.createVariable("sst", "i2", ("time", "lat", "lon"), fill_value=-999, **packed)
            sst.units, sst.long_name, sst.scale_factor, sst.add_offset = "degC", "sea surface temperature", 0.01, 0.0
            sst.set_auto_maskandscale(False)
            at[0] = day
            sst[0] = field + day % 100


def answer(command, **settings):
    """The two numbers that a program prints last."""
    done = subprocess.run(command, check=True, capture_output=True, text=True, env=os.environ | settings)
    return [float(word) for word in done.stdout.split()[-2:]]


def octave(arguments, script, **settings):
    return answer(["octave-cli", "--quiet", "--norc", "--path", str(HERE.parent / "hosts/octave/inst"), "--path",
                   arguments.octave, "--eval", script], OCTAVE_HISTFILE=os.devnull, **settings)


def timed(command):
    before, start = resource.getrusage(resource.RUSAGE_CHILDREN), time.perf_counter()
    subprocess.run(command, check=True, capture_output=True)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return [time.perf_counter() - start, after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime]


def best(contenders):
    """One after the other in each round."""
    results = {name: [] for name in contenders}
    for _ in range(3):
        for name, call in contenders.items():
            results[name].append(call())
    return {name: np.min(rounds, axis=0) for name, rounds in results.items()}


def report(title, results, reference):
    print(title)
    for name, (wall, used) in results.items():
        ratios = np.array([wall, used]) / results[reference]
        print(f"  {name:34s} {wall:8.2f} s  {used:8.2f} s of processors   {ratios[0]:5.2f} {ratios[1]:5.2f} of {reference}")
    sys.stdout.flush()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("octave")
    parser.add_argument("--files", type=int, default=10000)
    parser.add_argument("--fields", type=int, default=1000)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        subprocess.run(["c++", "-O2", "-std=c++17", HERE / "open_files.cpp", "-o", folder / "open_files", "-lnetcdf"],
                       check=True)
        for form, words in (("NETCDF3_CLASSIC", "classic"), ("NETCDF4", "netCDF-4")):
            files = folder / words
            make(files, arguments.files, form, 18, 36)
            pattern = f"{files}/*.nc"
            contenders = {"plain C": lambda: answer([folder / "open_files", files]),
                          "gridio_dataset": lambda: octave(arguments, TIMED % ("", f'ds = gridio_dataset ("{pattern}");'))}
            if arguments.files <= 2000:
                contenders["xarray.open_mfdataset"] = lambda: answer(["/usr/bin/python3", "-c", XARRAY % pattern])
            catalogue = folder / f"{words}.catalogue.nc"
            octave(arguments, f'gridio_catalogue ("{pattern}", "{catalogue}"); disp ([0 0])')
            contenders["gridio_dataset, of a catalogue"] = lambda: octave(arguments, TIMED % ("", f'ds = gridio_dataset ("{catalogue}");'))
            report(f"opening {arguments.files} {words} files", best(contenders), "plain C")
        fields = folder / "fields"
        make(fields, arguments.fields, "NETCDF4", 360, 720)
        pattern = f"{fields}/*.nc"
        mean = TIMED % (f'ds = gridio_dataset ("{pattern}");', 'm = mean (ds.sst, "time");')
        out = folder / "mean.nc"
        report(f"mean of {arguments.fields} compressed fields of 720 x 360 in as many files", best({
            "cdo ensmean, 1 thread": lambda: timed(["cdo", "-s", "-O", "-P", "1", "ensmean", *sorted(map(str, fields.iterdir())), out]),
            "cdo timmean -cat, 1 thread": lambda: timed(["cdo", "-s", "-O", "-P", "1", "-timmean", "-cat", pattern, out]),
            "gridio mean, 1 thread": lambda: octave(arguments, mean, GRIDIO_THREADS="1"),
            "gridio mean, all threads": lambda: octave(arguments, mean),
        }), "cdo timmean -cat, 1 thread")


main()
