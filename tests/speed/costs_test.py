# SPDX-License-Identifier: BSD-3-Clause
"""costs_test.py PROGRAMS [--write]: holds each path of the gateway to the instructions and allocations in costs.txt.

Instructions may differ by 5 percent, or by as many as depend on where the linker places the texts that are compared;
allocations not at all. A change that is worth its cost, or a gain to be kept, is written down with --write.
"""
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "bench"))
import gateway_costs  # noqa: E402

BY_PLACE = 20
TABLE = pathlib.Path(__file__).with_name("costs.txt")
HEADING = """# SPDX-License-Identifier: BSD-3-Clause
# What each path of the gateway costs, written by costs_test.py: name | instructions in gridio's own code | instructions
# of the gateway in all, but for the netCDF library | allocations beside those of the library and of the results, which
# the interpreter makes with more when it makes them itself
"""


def rows(costs):
    return {cost.name: (cost.own, cost.gateway, cost.allocations) for cost in costs}


def read_table():
    table = {}
    for line in TABLE.read_text().splitlines():
        if not line.startswith("#"):
            name, *numbers = line.split("|")
            table[name.strip()] = tuple(int(number) for number in numbers)
    return table


def differences(expected, found):
    for name in expected.keys() | found.keys():
        before, now = expected.get(name), found.get(name)
        if before is None or now is None:
            yield f"{name}: {before} became {now}"
            continue
        for what, old, new in zip(("own instructions", "instructions"), before, now):
            if abs(new - old) > max(0.05 * old, BY_PLACE):
                yield f"{name}: {old:,} {what} became {new:,}"
        if now[2] > 0:
            yield f"{name}: {now[2]} allocations of the gateway's own, where there are to be none"
        if now[2] != before[2]:
            yield f"{name}: {before[2]} allocations became {now[2]}"


def main():
    found = rows(gateway_costs.costs(pathlib.Path(sys.argv[1]).resolve()))
    if "--write" in sys.argv:
        TABLE.write_text(HEADING + "".join(f"{name:20}|{own:6}|{all_:6}|{allocations:3}\n"
                                           for name, (own, all_, allocations) in found.items()))
        return
    problems = sorted(differences(read_table(), found))
    for problem in problems:
        print(problem)
    if problems:
        sys.exit("The gateway's cost has changed; tests/speed/costs_test.py --write keeps the new numbers.")
    print(f"{len(found)} paths cost what they did")


if __name__ == "__main__":
    main()
