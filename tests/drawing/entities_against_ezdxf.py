#!/usr/bin/env python3
"""Entities of drawings, out of blocks and seen from below, against ezdxf, which places them by other
code.

Random drawings are made here: nests of blocks, scaled evenly and unevenly, mirrored, turned, in
arrays, with every type of entity, each of them on a layer of its own. For each layer every place of
ezdxf's must lie within the tolerance of the host's elements and the other way round. The samples of
this repository, and with a folder in the environment variable KTRCL_DRAWINGS every DXF file in it,
are compared too: entity by entity where they have handles, as a whole where they have none.

Usage: entities_against_ezdxf.py PROGRAM        PROGRAM is entity_places
Exit status: 0 all agree, 1 some do not, 77 ezdxf is not there.
"""

import collections
import math
import os
import random
import subprocess
import sys
import tempfile

SKIPPED = 77

try:
    import ezdxf
    from ezdxf.entities import Ellipse
    from ezdxf.math.transformtools import NonUniformScalingError
except ImportError:
    print("skipped: the Python package ezdxf is not installed (Debian: python3-ezdxf)")
    sys.exit(SKIPPED)

from curves_against_ezdxf import CHORD, INTERVALS, TOLERANCE, Segments, given_drawings

SEED = 20261120
DRAWINGS = 16
DOWN = (0, 0, -1)


def origin(kind, handle):
    """The handle; one for all curves, for the host lets an element run on into the next of them."""
    return "of curves" if kind in ("ELLIPSE", "SPLINE") and handle else handle


def host_elements(program, path):
    """Unit, stated deviation, entities left out, and elements: handle, layer, places."""
    run = subprocess.run([program, path, str(TOLERANCE)], capture_output=True, text=True, check=True)
    figures, elements = {}, []
    for line in run.stdout.splitlines():
        words = line.split()
        if words[0] == "element":
            numbers = [float(word) for word in words[4:]]
            places_of_it = list(zip(numbers[::2], numbers[1::2]))
            handle = "" if words[2] == "_" else words[2]
            elements.append((origin(words[1], handle), words[3], places_of_it))
        elif words[0] == "unusable":
            return None
        else:
            figures[words[0]] = float(words[1])
    return figures["unit"], figures["deviation"], int(figures["left"]), elements


def moved(entity, matrix):
    try:
        return entity.transform(matrix)
    except NonUniformScalingError:
        return Ellipse.from_arc(entity).transform(matrix)


def leaves(entity):
    """The entities without blocks and polylines that stand for one, by ezdxf, each with the
    origin of the entity that it comes from.

    A nest is taken apart from the innermost block out: an INSERT that an uneven scale has sheared is
    no INSERT any more, and ezdxf puts the nearest one in its place.
    """
    kind = entity.dxftype()
    if kind == "INSERT":
        for one in entity.multi_insert() if entity.mcount > 1 else (entity,):
            matrix = one.matrix44()
            for part in one.block():
                for handle, leaf in leaves(part):
                    yield handle, moved(leaf, matrix)
    elif kind in ("LWPOLYLINE", "POLYLINE"):
        for side in entity.virtual_entities():
            yield origin(kind, entity.dxf.handle), side
    elif kind in ("LINE", "CIRCLE", "ARC", "ELLIPSE", "SPLINE"):
        yield origin(kind, entity.dxf.handle), entity.copy()


def places(entity, unit):
    kind = entity.dxftype()
    if kind == "LINE":
        points = [entity.dxf.start, entity.dxf.end]
    elif kind in ("ELLIPSE", "SPLINE"):
        points = entity.flattening(CHORD / unit, INTERVALS)
    else:
        points = entity.flattening(CHORD / unit)
    return [(p.x * unit, p.y * unit) for p in points]


def their_elements(document, unit):
    """Like those of the host."""
    elements = []
    for entity in document.modelspace():
        for handle, leaf in leaves(entity):
            line = places(leaf, unit)
            if len(line) > 1 and line[0] != line[-1] or len(line) > 2:
                elements.append((handle, leaf.dxf.layer.replace(" ", "_"), line))
    return elements


def grouped(elements, key):
    groups = collections.defaultdict(list)
    for handle, layer, line in elements:
        groups[key(handle, layer)].append(line)
    return groups


def farthest(lines, grid):
    return max(grid.distance(p) for line in lines for p in line)


def compare_group(name, ours, theirs, limit):
    assert ours, f"{name}: the host has nothing of it"
    assert theirs, f"{name}: ezdxf has nothing of it"
    off = farthest(theirs, Segments(ours, limit))
    assert off <= limit, f"{name}: a place of ezdxf is {off:.5f} mm from the host's elements"
    back = farthest(ours, Segments(theirs, limit))
    assert back <= limit, f"{name}: a place of the host is {back:.5f} mm from ezdxf's"
    return max(off, back)


def key_of(elements, made_here):
    """By what elements are grouped, in words, and the key of an element."""
    if made_here:
        return "layers", lambda handle, layer: f"layer {layer}"
    if all(handle for handle, _, _ in elements):
        return "entities", lambda handle, layer: f"entity {handle}"
    return "whole", lambda handle, layer: "all"


def compare(program, path, made_here):
    """Returns a line that tells the result, or raises AssertionError."""
    host = host_elements(program, path)
    if host is None:
        return "not usable"
    unit, deviation, left, ours = host
    try:
        theirs = their_elements(ezdxf.readfile(path), unit)
    except (ezdxf.DXFError, OSError, UnicodeDecodeError, ZeroDivisionError, TypeError) as error:
        assert not made_here, f"{type(error).__name__}: {error}"
        return f"not compared ({type(error).__name__})"
    limit = deviation + 2 * CHORD
    if made_here:
        assert left == 0, f"{left} entities are left out"
        assert deviation <= TOLERANCE, f"states a deviation of {deviation}"
    words, key = key_of(ours, made_here)
    ours, theirs = grouped(ours, key), grouped(theirs, key)
    off = 0.0
    for name in sorted(set(ours) | set(theirs)):
        off = max(off, compare_group(name, ours.get(name), theirs.get(name), limit))
    return f"{len(theirs)} {words}, off by {off:.5f} mm, stated {deviation:.5f}"


class Maker:
    """Draws at random."""

    def __init__(self, seed):
        self.rng = random.Random(seed)
        self.document = ezdxf.new("R2000")
        self.document.header["$INSUNITS"] = 4
        self.count = 0

    def attributes(self):
        self.count += 1
        return {"layer": f"E{self.count}"}

    def extruded(self):
        attributes = self.attributes()
        if self.rng.random() < 0.4:
            attributes["extrusion"] = DOWN
        return attributes

    def point(self):
        return (self.rng.uniform(-20, 20), self.rng.uniform(-20, 20))

    def entity(self, layout):
        rng = self.rng
        kind = rng.choice(["line", "circle", "arc", "light", "heavy", "ellipse", "spline"])
        if kind == "line":
            layout.add_line(self.point(), self.point(), dxfattribs=self.extruded())
        elif kind == "circle":
            layout.add_circle(self.point(), rng.uniform(1, 9), dxfattribs=self.extruded())
        elif kind == "arc":
            start = rng.uniform(0, 360)
            layout.add_arc(self.point(), rng.uniform(1, 9), start, start + rng.uniform(20, 340),
                           dxfattribs=self.extruded())
        elif kind in ("light", "heavy"):
            vertices = [(*self.point(), rng.choice([0, rng.uniform(-2, 2)])) for _ in range(4)]
            add = layout.add_lwpolyline if kind == "light" else layout.add_polyline2d
            add(vertices, format="xyb", close=rng.random() < 0.5, dxfattribs=self.extruded())
        elif kind == "ellipse":
            turn, start = rng.uniform(0, 6), rng.uniform(0, 6)
            size = rng.uniform(3, 9)
            layout.add_ellipse(self.point(), (size * math.cos(turn), size * math.sin(turn)),
                               rng.uniform(0.2, 0.9), start, start + rng.uniform(1, 5),
                               dxfattribs=self.extruded())
        else:
            layout.add_open_spline([(*self.point(), 0) for _ in range(6)],
                                   dxfattribs=self.attributes())

    def insert(self, layout, name):
        rng = self.rng
        scale = rng.uniform(0.5, 2)
        attributes = self.extruded()
        attributes["rotation"] = rng.choice([0, 90, rng.uniform(0, 360)])
        attributes["xscale"] = rng.choice([1, -1]) * scale
        attributes["yscale"] = rng.choice([1, -1]) * rng.choice([scale, rng.uniform(0.5, 2)])
        if rng.random() < 0.3:
            attributes.update(column_count=2, row_count=3, column_spacing=rng.uniform(-40, 40),
                              row_spacing=rng.uniform(-40, 40))
        layout.add_blockref(name, self.point(), dxfattribs=attributes)

    def drawing(self, path):
        names = []
        for index in range(3):
            block = self.document.blocks.new(f"B{index}", base_point=self.point())
            for _ in range(3):
                self.entity(block)
            if names:
                self.insert(block, self.rng.choice(names))
            names.append(block.name)
        layout = self.document.modelspace()
        for _ in range(3):
            self.entity(layout)
        for name in names:
            self.insert(layout, name)
        self.document.saveas(path)


def main(program):
    wrong = 0
    with tempfile.TemporaryDirectory() as folder:
        tasks = []
        for index in range(DRAWINGS):
            path = os.path.join(folder, f"random-{SEED + index}.dxf")
            Maker(SEED + index).drawing(path)
            tasks.append((path, True))
        tasks += [(path, False) for path in given_drawings()]
        for path, made_here in tasks:
            name = os.path.basename(path)
            try:
                print(f"{name}: {compare(program, path, made_here)}")
            except AssertionError as error:
                wrong += 1
                print(f"{name}: WRONG: {error}")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
