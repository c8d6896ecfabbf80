#!/usr/bin/env python3
"""Drawings that the host has written, as ezdxf reads them.

Both versions must be read, pass its audit without an error and without
anything that it would mend, and hold every entity as it was written: kind, layer, colour, linetype
and figures.

Usage: writer_against_ezdxf.py PROGRAM        PROGRAM is written_drawings
Exit status: 0 all agree, 1 some do not, 77 ezdxf is not there.
"""

import json
import math
import os
import subprocess
import sys
import tempfile

SKIPPED = 77

try:
    import ezdxf
    from ezdxf import recover
    from ezdxf.lldxf.validator import is_valid_table_name
except ImportError:
    print("skipped: the Python package ezdxf is not installed (Debian: python3-ezdxf)")
    sys.exit(SKIPPED)

MILLIMETRES = 4
NEAR = 1e-9


def near(a, b, limit=NEAR):
    return math.dist(a, b) <= limit


def flat(vector):
    return (vector.x, vector.y)


def check_arc(arc, expected):
    start, end, middle = (tuple(p) for p in expected["points"])
    assert near(flat(arc.start_point), start), f"starts at {flat(arc.start_point)}, not {start}"
    assert near(flat(arc.end_point), end), f"ends at {flat(arc.end_point)}, not {end}"
    radius = arc.dxf.radius
    assert abs(radius - expected["radius"]) <= NEAR, f"radius {radius}"
    sweep = (arc.dxf.end_angle - arc.dxf.start_angle) % 360.0
    turn = math.radians(arc.dxf.start_angle + sweep / 2)
    center = arc.dxf.center
    found = (center.x + radius * math.cos(turn), center.y + radius * math.sin(turn))
    assert near(found, middle, 5 * NEAR), f"leads through {found}, not {middle}"


def two_vertices(entity):
    """Start and end of a polyline of one side, and its bulge. The angles that ezdxf makes of it
    would be too coarse for the ends of a flat arc."""
    if entity.dxftype() == "LWPOLYLINE":
        vertices = entity.get_points("xyb")
    else:
        vertices = [(*flat(v.dxf.location), v.dxf.get("bulge", 0.0)) for v in entity.vertices]
    assert len(vertices) == 2, f"{len(vertices)} vertices"
    return [vertex[:2] for vertex in vertices], vertices[0][2]


def check_side(entity, expected):
    points, bulge = two_vertices(entity)
    start, end = points if bulge > 0 else points[::-1]
    wanted_start, wanted_end, wanted_middle = (tuple(p) for p in expected["points"])
    assert near(start, wanted_start), f"starts at {start}, not {wanted_start}"
    assert near(end, wanted_end), f"ends at {end}, not {wanted_end}"
    chord = (end[0] - start[0], end[1] - start[1])
    share = abs(bulge) / 2
    middle = (
        (start[0] + end[0]) / 2 + chord[1] * share,
        (start[1] + end[1]) / 2 - chord[0] * share,
    )
    # The middle that is expected was computed about a centre far away.
    limit = max(5 * NEAR, 1e-15 * expected["radius"])
    assert near(middle, wanted_middle, limit), f"leads through {middle}, not {wanted_middle}"


def check_geometry(entity, expected):
    kind, wanted = entity.dxftype(), expected["kind"]
    if kind in ("LWPOLYLINE", "POLYLINE"):
        assert wanted == "ARC" and expected["radius"] > 1e4, f"{kind} for {wanted}"
        check_side(entity, expected)
        return
    assert kind == wanted, f"{kind} for {wanted}"
    points = [tuple(p) for p in expected["points"]]
    if kind == "LINE":
        assert near(flat(entity.dxf.start), points[0]), f"starts at {entity.dxf.start}"
        assert near(flat(entity.dxf.end), points[1]), f"ends at {entity.dxf.end}"
    elif kind == "CIRCLE":
        assert near(flat(entity.dxf.center), points[0]), f"centre {entity.dxf.center}"
        assert abs(entity.dxf.radius - expected["radius"]) <= NEAR, f"radius {entity.dxf.radius}"
    else:
        check_arc(entity, expected)


def is_fit(name):
    """Whether a name may stand in a file as it is."""
    return (
        name != ""
        and name == name.strip(" ")
        and not any(c in '<>/\\":;?*|=`\ufffd' or ord(c) < 32 or 127 <= ord(c) < 160 for c in name)
    )


def check_name(wanted, found, names):
    """Names that are fit are kept; others are fit now, and no two have become one."""
    assert is_valid_table_name(found) and is_fit(found), f"the name {found!r} is not fit"
    if is_fit(wanted):
        assert found == wanted, f"the name {wanted!r} became {found!r}"
    before = names.setdefault(found.upper(), wanted.upper())
    assert before == wanted.upper(), f"{wanted!r} and {before!r} are both {found!r}"


def check_entity(entity, expected, layers, linetypes):
    dxf = entity.dxf
    check_name(expected["layer"], dxf.layer, layers)
    check_name(expected["linetype"], dxf.get("linetype", "BYLAYER"), linetypes)
    assert dxf.get("color", 256) == expected["colour"], f"colour {dxf.get('color', 256)}"
    document = entity.doc
    assert dxf.layer in document.layers, f"the layer {dxf.layer} is in no table"
    assert dxf.get("linetype", "BYLAYER") in document.linetypes, f"linetype {dxf.linetype}"
    assert dxf.handle, "it has no handle"
    check_geometry(entity, expected)


def read(path, name):
    """The document and its audit. The strict reader of ezdxf leaves \\U+XXXX as it stands; the other
    one, which mends what it can and tells it, does not."""
    if name.startswith("other-letters"):
        return recover.readfile(path)
    document = ezdxf.readfile(path)
    return document, document.audit()


def check_drawing(path, name, expected):
    document, audit = read(path, name)
    assert not audit.errors, f"the audit finds {[e.message for e in audit.errors]}"
    assert not audit.fixes, f"the audit mends {[e.message for e in audit.fixes]}"
    assert document.dxfversion == expected["version"], f"version {document.dxfversion}"
    if expected["version"] != "AC1009":
        assert document.header["$INSUNITS"] == MILLIMETRES, "the unit is not millimetres"
    entities = list(document.modelspace())
    wanted = expected["entities"]
    assert len(entities) == len(wanted), f"{len(entities)} entities, not {len(wanted)}"
    layers, linetypes = {}, {}
    for i, (entity, one) in enumerate(zip(entities, wanted)):
        try:
            check_entity(entity, one, layers, linetypes)
        except AssertionError as error:
            raise AssertionError(f"entity {i} ({entity}): {error}") from error
    handles = {entity.dxf.handle for entity in entities}
    assert len(handles) == len(entities), "two entities have one handle"
    return len(entities)


def main():
    failures = entities = 0
    with tempfile.TemporaryDirectory() as folder:
        run = subprocess.run([sys.argv[1], folder], capture_output=True, text=True, check=True)
        for expected in json.loads(run.stdout):
            name = expected["file"]
            try:
                count = check_drawing(os.path.join(folder, name), name, expected)
                entities += count
                print(f"{name}: {count} entities agree")
            except (AssertionError, ezdxf.DXFError) as error:
                failures += 1
                print(f"{name}: WRONG: {error}")
    print(f"{entities} entities compared, {failures} drawings wrong")
    return 1 if failures or not entities else 0


if __name__ == "__main__":
    sys.exit(main())
