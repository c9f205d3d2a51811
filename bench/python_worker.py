# SPDX-License-Identifier: BSD-3-Clause
"""The same work as bench/native_worker.cpp, by the Python binding, its mask and scale switched off."""
import sys
from time import perf_counter

import netCDF4
import numpy


def open_file(path):
    file = netCDF4.Dataset(path)
    file.set_auto_maskandscale(False)
    file.set_auto_chartostring(False)
    return file


def new_file(form, path):
    return netCDF4.Dataset(path, "w", format="NETCDF4" if form == "netcdf4" else "NETCDF3_CLASSIC")


def read_whole(form, path, count):
    file = open_file(path)
    variable = file.variables["v"]
    start = perf_counter()
    values = variable[:]
    seconds = perf_counter() - start
    file.close()
    return seconds, values


def read_short_as_double(form, path, count):
    """The binding reads in the file's type, and the array converts."""
    file = open_file(path)
    variable = file.variables["v"]
    start = perf_counter()
    values = variable[:].astype("f8")
    seconds = perf_counter() - start
    file.close()
    return seconds, values


def read_strided(form, path, count):
    file = open_file(path)
    variable = file.variables["v"]
    start = perf_counter()
    values = variable[:count, ::2, ::2]
    seconds = perf_counter() - start
    file.close()
    return seconds, values


def write_whole(form, path, count, dtype, fills, values):
    values = values.reshape(-1, 256, 256)
    start = perf_counter()
    file = new_file(form, path)
    for name, length in (("z", count // 65536), ("y", 256), ("x", 256)):
        file.createDimension(name, length)
    if not fills:
        file.set_fill_off()
    variable = file.createVariable("v", dtype, ("z", "y", "x"), fill_value=None if fills else False)
    variable.set_auto_maskandscale(False)
    variable[:] = values
    file.close()
    return perf_counter() - start, 0


def numbers(count):
    return numpy.tile(numpy.arange(1009) * 0.25, count // 1009 + 1)[:count]


def write_double(form, path, count):
    return write_whole(form, path, count, "f8", True, numbers(count))


def write_without_fill(form, path, count):
    return write_whole(form, path, count, "f8", False, numbers(count))


def read_chunks_maps(form, path, maps):
    file = open_file(path)
    variable = file.variables["v"]
    total = 0.0
    start = perf_counter()
    for i in range(20):
        total += float(variable[i * 37 % maps][0, 0])
    seconds = perf_counter() - start
    file.close()
    return seconds, total


def maxima(form, path, maps):
    """Decoded, as datasets do it."""
    file = netCDF4.Dataset(path)
    variable = file.variables["v"]
    total = 0.0
    start = perf_counter()
    for i in range(maps):
        total += float(variable[i].max())
    seconds = perf_counter() - start
    file.close()
    return seconds, total


def write_chunks(form, path, maps):
    """The values are those of a file, which is read first."""
    _, values = read_whole(form, path.replace("written", "source"), maps)
    start = perf_counter()
    file = new_file(form, path)
    for name, length in (("z", maps), ("y", 1000), ("x", 1000)):
        file.createDimension(name, length)
    variable = file.createVariable("v", values.dtype, ("z", "y", "x"), zlib=True, complevel=4, shuffle=True,
                                   chunksizes=(1, 500, 500))
    variable.set_auto_maskandscale(False)
    variable[:] = values
    file.close()
    return perf_counter() - start, 0


def write_text(form, path, count):
    letters = numpy.frombuffer(b"abcdefghijklmnopqrstuvwxyz" * (count // 26 + 1), "S1")[:count]
    return write_whole(form, path, count, "S1", True, letters)


def read_values(form, path, count):
    file = open_file(path)
    variable = file.variables["v"]
    total = 0.0
    positions = [i * 7919 % 100000 for i in range(count)]
    start = perf_counter()
    for i in positions:
        total += variable[i]
    seconds = perf_counter() - start
    file.close()
    return seconds, total


def read_blocks(form, path, count):
    file = open_file(path)
    variable = file.variables["v"]
    total = 0.0
    positions = [i * 7919 % 100000 for i in range(count)]
    start = perf_counter()
    for i in positions:
        total += variable[i:i + 100][0]
    seconds = perf_counter() - start
    file.close()
    return seconds, total


def append_records(form, path, count):
    row = numpy.arange(10.0)
    start = perf_counter()
    file = new_file(form, path)
    file.createDimension("time", None)
    file.createDimension("x", 10)
    variable = file.createVariable("v", "f8", ("time", "x"))
    variable.set_auto_maskandscale(False)
    for i in range(count):
        variable[i, :] = row
    file.close()
    return perf_counter() - start, 0


def open_inquire_close(form, path, count):
    total = 0
    start = perf_counter()
    for _ in range(count):
        file = netCDF4.Dataset(path)
        total += len(file.variables)
        file.close()
    return perf_counter() - start, total


def read_attributes(form, path, count):
    file = open_file(path)
    variable = file.variables["v"]
    start = perf_counter()
    for _ in range(0, count, 2):
        units = variable.getncattr("units")
        limits = variable.getncattr("valid_range")
    seconds = perf_counter() - start
    file.close()
    return seconds, ord(units[0]) + limits[1]


def write_attributes(form, path, count):
    start = perf_counter()
    file = new_file(form, path)
    for i in range(count):
        file.setncattr("a", float(i))
    file.close()
    return perf_counter() - start, 0


def inquire_variables(form, path, count):
    """Answered from the binding's own memory: the library is not asked."""
    file = open_file(path)
    total = 0
    start = perf_counter()
    for _ in range(count):
        total += file.variables["v10"]._varid
    seconds = perf_counter() - start
    file.close()
    return seconds, total


WORKS = {"read_double": read_whole, "read_short": read_whole, "read_packed": read_whole,
         "read_text": read_whole, "read_strings": read_whole,
         "read_chunks_float": read_whole, "read_chunks_short": read_whole,
         "write_chunks_float": write_chunks, "write_chunks_short": write_chunks} | {
    work.__name__: work for work in (
        maxima, read_chunks_maps, read_short_as_double, read_strided, write_double, write_without_fill, write_text, read_values,
        read_blocks, append_records, open_inquire_close, read_attributes, write_attributes,
        inquire_variables)}


def checksum(values):
    if numpy.ndim(values) == 0:
        return float(values)
    values = values.reshape(-1)
    if values.dtype.kind == "O":
        values = numpy.array([sum(text.encode()) for text in values])
    if values.dtype.kind == "S":
        values = values.view("u1")
    sample = values[::4099].astype("f8")
    return values.sum(dtype="f8") + (sample * (numpy.arange(sample.size) % 7 + 1)).sum()


def main():
    values = None
    for line in sys.stdin:
        command, *words = line.split()
        if command == "run":
            values = None
            seconds, values = WORKS[words[0]](words[1], words[2], int(words[3]))
            print(f"{seconds:.9f}", flush=True)
        elif command == "check":
            print(repr(float(checksum(values))), flush=True)
            values = None
        else:
            print(f"netCDF4 {netCDF4.__version__}, numpy {numpy.__version__},"
                  f" libnetcdf {netCDF4.__netcdf4libversion__}", flush=True)


main()
