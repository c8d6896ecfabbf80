#!/usr/bin/env python3
"""Prints how the library compares with its peers.

usage: ratios.py FILE, where FILE is written by
  contour_benchmarks --benchmark_out=FILE --benchmark_out_format=json

Benchmarks are named BM_<library>_<operation>_<case>[_<variant>]/<elements>, those of the library
itself BM_<class>_<operation>_<case>/<elements>, where a class begins with GX. For every operation and
case there is one line with the times of the library and one for each way of a peer, with the time
of the library divided by that of the peer: below 1 the library is quicker. Of repeated runs the
quickest counts, by processor time. The growth is the exponent k of n^k between the last two sizes,
and what Google Benchmark fits through all of them.
"""

import json
import math
import sys

NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


def split(name):
    """The question and the label of a benchmark, or nothing for a foreign name."""
    parts = name.split("_")
    if len(parts) < 4 or parts[0] != "BM":
        return None
    return "_".join(parts[2:4]), " ".join([parts[1]] + parts[4:])


def read(file):
    """The shortest times {question: {label: {elements: ns}}} and the growths {(question, label): text}."""
    with open(file, encoding="utf-8") as stream:
        report = json.load(stream)
    times, growths = {}, {}
    for entry in report["benchmarks"]:
        name, _, elements = entry["run_name"].partition("/")
        key = split(name)
        if key is None:
            continue
        question, label = key
        if entry.get("aggregate_name") == "BigO":
            growths[key] = entry["big_o"]
        if entry["run_type"] != "iteration" or not elements.isdigit():
            continue
        time = entry["cpu_time"] * NANOSECONDS[entry["time_unit"]]
        row = times.setdefault(question, {}).setdefault(label, {})
        row[int(elements)] = min(time, row.get(int(elements), math.inf))
    return report["context"], times, growths


def is_ours(label):
    return label.startswith("GX")


def with_unit(nanoseconds):
    for unit in ("ns", "us", "ms"):
        if nanoseconds < 999.5:
            return f"{nanoseconds:.3g} {unit}"
        nanoseconds /= 1000.0
    return f"{nanoseconds:.3g} s"


def exponent(row):
    sizes = sorted(row)[-2:]
    if len(sizes) < 2 or min(row[n] for n in sizes) <= 0.0:
        return ""
    low, high = sizes
    return f"n^{math.log(row[high] / row[low]) / math.log(high / low):.2f}"


def print_question(question, rows, growths, sizes):
    ours = next((row for label, row in rows.items() if is_ours(label)), {})
    print(f"\n{question}")
    for label, row in sorted(rows.items(), key=lambda item: (not is_ours(item[0]), item[0])):
        cells = []
        for n in sizes:
            if n not in row:
                cells.append("")
            elif is_ours(label):
                cells.append(with_unit(row[n]))
            else:
                cells.append(f"{ours[n] / row[n]:.3g}" if n in ours else "")
        columns = "".join(f"{cell:>10}" for cell in cells)
        print(f"  {label:<24}{columns}{exponent(row):>9}  {growths.get((question, label), '')}")


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    context, times, growths = read(sys.argv[1])
    sizes = sorted({n for rows in times.values() for row in rows.values() for n in row})
    load = " ".join(f"{value:.1f}" for value in context.get("load_avg", []))
    print(f"{context['num_cpus']} processors, load at the start {load or 'unknown'}")
    print("Times of the library; for its peers the time of the library divided by theirs.")
    print(f"{'elements':<26}" + "".join(f"{n:>10}" for n in sizes) + "   growth")
    for question, rows in sorted(times.items()):
        print_question(question, rows, growths, sizes)


if __name__ == "__main__":
    main()
