#!/usr/bin/env python3
"""Curves of drawings, as the host follows them, against ezdxf, which evaluates them by other code.

Every place of a curve that ezdxf gives must lie within the tolerance of the host's lines and arcs,
and every place of these within the tolerance of the curve. The drawings are made here; the samples
of this repository are looked at as well, and with a folder in the environment variable
KTRCL_DRAWINGS every DXF file in it.

Usage: curves_against_ezdxf.py PROGRAM        PROGRAM is curve_places
Exit status: 0 all agree, 1 some do not, 77 ezdxf is not there.
"""

import math
import os
import random
import subprocess
import sys
import tempfile

SKIPPED = 77

try:
    import ezdxf
except ImportError:
    print("skipped: the Python package ezdxf is not installed (Debian: python3-ezdxf)")
    sys.exit(SKIPPED)

TOLERANCE = 0.01
# Both sides come as chords within this distance. Fewer intervals of each piece would let bends
# between them slip through the flattening of ezdxf.
CHORD = 0.0005
INTERVALS = 64


class Segments:
    """Segments in a grid, for the distance of a place from the nearest of them."""

    def __init__(self, polylines, reach):
        self.size = max(reach, 0.25)
        self.cells = {}
        for line in polylines:
            for a, b in zip(line, line[1:]):
                self._add(a, b)

    def _add(self, a, b):
        count = max(1, math.ceil(math.dist(a, b) / self.size))
        for i in range(count):
            p = tuple(a[k] + (b[k] - a[k]) * i / count for k in (0, 1))
            q = tuple(a[k] + (b[k] - a[k]) * (i + 1) / count for k in (0, 1))
            for x in range(self._cell(min(p[0], q[0])), self._cell(max(p[0], q[0])) + 1):
                for y in range(self._cell(min(p[1], q[1])), self._cell(max(p[1], q[1])) + 1):
                    self.cells.setdefault((x, y), []).append((p, q))

    def _cell(self, value):
        return math.floor(value / self.size)

    def distance(self, p):
        """Exact up to the size of a cell; infinite beyond."""
        best = math.inf
        cx, cy = self._cell(p[0]), self._cell(p[1])
        for x in (cx - 1, cx, cx + 1):
            for y in (cy - 1, cy, cy + 1):
                for a, b in self.cells.get((x, y), ()):
                    best = min(best, from_segment(p, a, b))
        return best


def from_segment(p, a, b):
    dx, dy = b[0] - a[0], b[1] - a[1]
    square = dx * dx + dy * dy
    share = 0.0
    if square > 0.0:
        share = max(0.0, min(1.0, ((p[0] - a[0]) * dx + (p[1] - a[1]) * dy) / square))
    return math.hypot(p[0] - a[0] - share * dx, p[1] - a[1] - share * dy)


def host_curves(program, path):
    """Unit, stated deviation, refused curves and the places of every element."""
    run = subprocess.run([program, path, str(TOLERANCE)], capture_output=True, text=True, check=True)
    figures, elements = {}, []
    for line in run.stdout.splitlines():
        words = line.split()
        if words[0] == "element":
            numbers = [float(word) for word in words[1:]]
            elements.append(list(zip(numbers[::2], numbers[1::2])))
        elif words[0] == "unusable":
            return None
        else:
            figures[words[0]] = float(words[1])
    return figures["unit"], figures["deviation"], int(figures["refused"]), elements


def their_curves(document, unit):
    """The same curves by ezdxf, in millimetres; those through fit points are left to the host."""
    lines, left = [], 0
    for entity in document.modelspace().query("SPLINE ELLIPSE"):
        if entity.dxftype() == "SPLINE" and not len(entity.control_points):
            left += 1
            continue
        points = entity.flattening(CHORD / unit, INTERVALS)
        lines.append([(p.x * unit, p.y * unit) for p in points])
    return lines, left


def compare(program, path, name):
    """Returns the number of curves that were compared, or raises AssertionError."""
    try:
        document = ezdxf.readfile(path)
    except (ezdxf.DXFError, OSError, UnicodeDecodeError) as error:
        print(f"{name}: ezdxf cannot read it ({type(error).__name__})")
        return 0
    host = host_curves(program, path)
    if host is None:
        return 0
    unit, deviation, refused, ours = host
    theirs, left = their_curves(document, unit)
    if not theirs:
        return 0
    assert refused == 0, f"{refused} curves were refused"
    assert deviation <= TOLERANCE, f"states a deviation of {deviation}"
    limit = deviation + 2 * CHORD
    ours_grid, theirs_grid = Segments(ours, limit), Segments(theirs, limit)
    off = max(ours_grid.distance(p) for line in theirs for p in line)
    assert off <= limit, f"a place of a curve is {off:.5f} mm from the elements, stated {deviation:.5f}"
    back = 0.0
    if left == 0:
        back = max(theirs_grid.distance(p) for line in ours for p in line)
        assert back <= limit, f"an element is {back:.5f} mm from the curves, stated {deviation:.5f}"
    print(f"{name}: {len(theirs)} curves, {len(ours)} elements, off by {max(off, back):.5f} mm, "
          f"stated {deviation:.5f}")
    return len(theirs)


def random_points(rng, count, size):
    return [(rng.uniform(0, size), rng.uniform(0, size)) for _ in range(count)]


def periodic_knots(degree, count):
    return [float(i) for i in range(count + degree + 1)]


def make_drawings(folder):
    """Ellipses and splines of all kinds, in millimetres and in inches."""
    rng = random.Random(20240229)
    for unit, size in ((4, 150.0), (1, 6.0)):
        document = ezdxf.new("R2000")
        document.header["$INSUNITS"] = unit
        space = document.modelspace()
        for ratio in (1.0, 0.95, 0.5, 0.1):
            for start, end in ((0, math.tau), (1.0, 4.0), (5.0, 1.0)):
                axis = (size * rng.uniform(0.05, 0.2), size * rng.uniform(0.05, 0.2))
                space.add_ellipse(random_points(rng, 1, size)[0], axis, ratio, start, end)
        space.add_ellipse((0, 0), (0.2 * size, 0.1 * size), 0.6, 0.5, 4.0,
                          dxfattribs={"extrusion": (0, 0, -1)})
        for degree in range(2, 7):
            points = random_points(rng, degree + 1 + rng.randint(0, 6), size)
            space.add_open_spline(points, degree)
            weights = [rng.uniform(0.3, 3.0) for _ in points]
            space.add_rational_spline(random_points(rng, len(points), size), weights, degree)
            ring = random_points(rng, 6, size)
            ring += ring[:degree]
            knots = periodic_knots(degree, len(ring))
            space.add_spline(None, degree, dxfattribs={"flags": 11})
            spline = space[-1]
            spline.control_points = ring
            spline.knots = knots
        path = os.path.join(folder, f"made-in-unit-{unit}.dxf")
        document.saveas(path)
        yield path


def given_drawings():
    """The samples, and what lies in the folder that the environment names."""
    samples = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "samples")
    for folder in filter(None, (samples, os.environ.get("KTRCL_DRAWINGS"))):
        for name in sorted(os.listdir(folder)):
            if name.lower().endswith(".dxf"):
                yield os.path.join(folder, name)


def drawings(folder):
    yield from make_drawings(folder)
    yield from given_drawings()


def main():
    program = sys.argv[1]
    failures = curves = 0
    with tempfile.TemporaryDirectory() as folder:
        for path in drawings(folder):
            name = os.path.basename(path)
            try:
                curves += compare(program, path, name)
            except AssertionError as error:
                failures += 1
                print(f"{name}: WRONG: {error}")
    print(f"{curves} curves compared, {failures} drawings wrong")
    return 1 if failures or not curves else 0


if __name__ == "__main__":
    sys.exit(main())
