"""A small writer of ASCII DXF drawings: R12, and R2000 with its handles, owners and dictionaries.

Points are complex numbers (x + y j). Lengths are written as they are given; `unit` only says what
they mean. The text depends on the arguments alone: no date, no program name, one number format.
"""

import cmath
import math
from dataclasses import dataclass

INCH = 1
MILLIMETRE = 4
NO_UNIT = None  # the drawing does not say its unit: $INSUNITS is left out

R12 = "AC1009"
R2000 = "AC1015"


@dataclass(frozen=True)
class Line:
    start: complex
    end: complex


@dataclass(frozen=True)
class Arc:
    """Runs counter-clockwise from `start` to `end`, both in degrees."""

    center: complex
    radius: float
    start: float
    end: float


@dataclass(frozen=True)
class Circle:
    center: complex
    radius: float


@dataclass(frozen=True)
class Polyline:
    """Closed. Vertices are (point, bulge); the bulge belongs to the side that leaves the point and
    is the tangent of a quarter of its sweep, positive counter-clockwise."""

    vertices: tuple


@dataclass(frozen=True)
class Insert:
    """A block, placed, scaled along x (negative: mirrored), turned in degrees, then repeated in
    `columns` and `rows`."""

    block: str
    place: complex
    scale_x: float = 1.0
    degrees: float = 0.0
    columns: int = 1
    rows: int = 1
    steps: complex = 0j  # from column to column (x) and from row to row (y)


def number(value):
    """Ten decimals, without the zeros that say nothing; a unit in the last place of sine or cosine,
    in which machines differ, does not reach the text."""
    text = f"{value:.10f}".rstrip("0")
    text = text + "0" if text.endswith(".") else text
    return "0.0" if text == "-0.0" else text


def point_groups(point, first_code=10):
    return [
        (first_code, number(point.real)),
        (first_code + 10, number(point.imag)),
        (first_code + 20, "0.0"),
    ]


def angle_text(degrees):
    """Keeps 359.99999999999 from being written as 360.0."""
    return number(round(degrees % 360.0, 10) % 360.0)


def box(entities):
    """Lower left and upper right corner; whole circles stand in for arcs and bulged sides, the place
    of a block for what is in it."""
    low, high = complex(math.inf, math.inf), complex(-math.inf, -math.inf)
    for entity in entities:
        if isinstance(entity, Line):
            corners = [entity.start, entity.end]
        elif isinstance(entity, Polyline):
            corners = [vertex for vertex, _ in entity.vertices]
        elif isinstance(entity, Insert):
            corners = [entity.place]
        else:
            reach = complex(entity.radius, entity.radius)
            corners = [entity.center - reach, entity.center + reach]
        for corner in corners:
            low = complex(min(low.real, corner.real), min(low.imag, corner.imag))
            high = complex(max(high.real, corner.real), max(high.imag, corner.imag))
    return low, high


class DxfWriter:
    """Collects the groups of one drawing; `text` gives the file."""

    def __init__(self, version, unit, layers):
        self.version = version
        self.unit = unit
        self.layers = layers  # name -> colour number
        self.groups = []
        self.last_handle = 0x1F  # the fixed tables of R2000 take the handles up to here

    # -- the whole file -------------------------------------------------------------------------

    def text(self, entities, newline="\n", blocks=None):
        """`entities` is a list of (layer, entity); `blocks`, of R12 alone, has such a list for each
        name."""
        modern = self.version == R2000
        body = DxfWriter(self.version, self.unit, self.layers)
        if blocks:
            body.write_plain_blocks(blocks)
        body.section("ENTITIES")
        body.write_entities(entities)
        body.add((0, "ENDSEC"))
        self.last_handle = body.last_handle
        self.write_header(box([entity for _, entity in entities]))
        if modern:
            self.section("CLASSES")
            self.add((0, "ENDSEC"))
            self.write_modern_tables()
            self.write_blocks()
        else:
            self.write_plain_tables()
        self.groups += body.groups
        if modern:
            self.write_objects()
        self.add((0, "EOF"))
        return "".join(f"{code:3d}{newline}{value}{newline}" for code, value in self.groups)

    def add(self, *groups):
        self.groups += groups

    def section(self, name):
        self.add((0, "SECTION"), (2, name))

    def write_header(self, extent):
        self.section("HEADER")
        self.add((9, "$ACADVER"), (1, self.version))
        if self.version == R2000:
            self.add((9, "$HANDSEED"), (5, f"{self.last_handle + 1:X}"))
        if self.unit is not NO_UNIT:
            self.add((9, "$INSUNITS"), (70, self.unit))
            self.add((9, "$MEASUREMENT"), (70, 0 if self.unit == INCH else 1))
        for name, corner in zip(("$EXTMIN", "$EXTMAX"), extent):
            self.add((9, name), *point_groups(corner))
        self.add((0, "ENDSEC"))

    # -- R12 ------------------------------------------------------------------------------------

    def write_plain_tables(self):
        self.section("TABLES")
        self.add((0, "TABLE"), (2, "LTYPE"), (70, 1))
        self.add((0, "LTYPE"), (2, "CONTINUOUS"), (70, 0), (3, "Solid line"), (72, 65), (73, 0))
        self.add((40, "0.0"), (0, "ENDTAB"))
        self.add((0, "TABLE"), (2, "LAYER"), (70, len(self.layers) + 1))
        for name, colour in {"0": 7, **self.layers}.items():
            self.add((0, "LAYER"), (2, name), (70, 0), (62, colour), (6, "CONTINUOUS"))
        self.add((0, "ENDTAB"), (0, "ENDSEC"))

    def write_plain_blocks(self, blocks):
        self.section("BLOCKS")
        for name, entities in blocks.items():
            self.add((0, "BLOCK"), (8, "0"), (2, name), (70, 0), *point_groups(0j), (3, name))
            self.write_entities(entities)
            self.add((0, "ENDBLK"), (8, "0"))
        self.add((0, "ENDSEC"))

    # -- R2000 ----------------------------------------------------------------------------------

    def write_modern_tables(self):
        self.section("TABLES")
        self.table("VPORT", "8", [])
        line_types = [
            ("14", "ByBlock", ""), ("15", "ByLayer", ""), ("16", "Continuous", "Solid line"),
        ]
        self.table("LTYPE", "5", [
            self.record("LTYPE", handle, "5", "AcDbLinetypeTableRecord", name,
                        (3, description), (72, 65), (73, 0), (40, "0.0"))
            for handle, name, description in line_types
        ])
        self.table("LAYER", "2", [
            self.record("LAYER", handle, "2", "AcDbLayerTableRecord", name,
                        (62, colour), (6, "Continuous"), (370, -3), (390, "F"))
            for handle, (name, colour) in zip(("10", "11", "12"), {"0": 7, **self.layers}.items())
        ])
        self.table("STYLE", "3", [
            self.record("STYLE", "13", "3", "AcDbTextStyleTableRecord", "Standard", (40, "0.0"),
                        (41, "1.0"), (50, "0.0"), (71, 0), (42, "2.5"), (3, "txt"), (4, ""))
        ])
        self.table("VIEW", "6", [])
        self.table("UCS", "7", [])
        self.table("APPID", "9", [
            self.record("APPID", "17", "9", "AcDbRegAppTableRecord", "ACAD")
        ])
        self.table("DIMSTYLE", "A", [
            self.record("DIMSTYLE", "18", "A", "AcDbDimStyleTableRecord", "Standard")
        ], (100, "AcDbDimStyleTable"))
        self.table("BLOCK_RECORD", "1", [
            self.record("BLOCK_RECORD", handle, "1", "AcDbBlockTableRecord", name, flags=None)
            for handle, name in (("19", "*Model_Space"), ("1A", "*Paper_Space"))
        ])
        self.add((0, "ENDSEC"))

    def table(self, name, handle, records, *further):
        self.add((0, "TABLE"), (2, name), (5, handle), (330, "0"), (100, "AcDbSymbolTable"))
        self.add((70, len(records)), *further)
        for record in records:
            self.add(*record)
        self.add((0, "ENDTAB"))

    @staticmethod
    def record(kind, handle, owner, subclass, name, *further, flags=0):
        handle_code = 105 if kind == "DIMSTYLE" else 5
        groups = [(0, kind), (handle_code, handle), (330, owner)]
        groups += [(100, "AcDbSymbolTableRecord"), (100, subclass), (2, name)]
        groups += [] if flags is None else [(70, flags)]
        return groups + list(further)

    def write_blocks(self):
        self.section("BLOCKS")
        spaces = (("*Model_Space", "19", "1B", "1C"), ("*Paper_Space", "1A", "1D", "1E"))
        for name, owner, begin, end in spaces:
            paper = [(67, 1)] if name == "*Paper_Space" else []
            common = [(100, "AcDbEntity"), *paper, (8, "0")]
            self.add((0, "BLOCK"), (5, begin), (330, owner), *common)
            self.add((100, "AcDbBlockBegin"), (2, name), (70, 0), *point_groups(0j))
            self.add((3, name), (1, ""))
            self.add((0, "ENDBLK"), (5, end), (330, owner), *common)
            self.add((100, "AcDbBlockEnd"))
        self.add((0, "ENDSEC"))

    def write_objects(self):
        self.section("OBJECTS")
        self.add((0, "DICTIONARY"), (5, "C"), (330, "0"), (100, "AcDbDictionary"), (281, 1))
        self.add((3, "ACAD_GROUP"), (350, "D"), (3, "ACAD_PLOTSTYLENAME"), (350, "E"))
        self.add((0, "DICTIONARY"), (5, "D"), (330, "C"), (100, "AcDbDictionary"), (281, 1))
        self.add((0, "ACDBDICTIONARYWDFLT"), (5, "E"), (330, "C"), (100, "AcDbDictionary"))
        self.add((281, 1), (3, "Normal"), (350, "F"))
        self.add((100, "AcDbDictionaryWithDefault"), (340, "F"))
        self.add((0, "ACDBPLACEHOLDER"), (5, "F"), (330, "E"), (0, "ENDSEC"))

    # -- entities -------------------------------------------------------------------------------

    def write_entities(self, entities):
        for layer, entity in entities:
            if isinstance(entity, Line):
                self.begin("LINE", layer, "AcDbLine")
                self.add(*point_groups(entity.start), *point_groups(entity.end, 11))
            elif isinstance(entity, Polyline):
                self.write_polyline(layer, entity)
            elif isinstance(entity, Insert):
                self.write_insert(layer, entity)
            else:
                self.write_round(layer, entity)

    def begin(self, kind, layer, subclass):
        """Type, handle and layer; R12 knows neither owners nor subclass markers."""
        self.last_handle += 1
        self.add((0, kind), (5, f"{self.last_handle:X}"))
        if self.version == R2000:
            self.add((330, "19"), (100, "AcDbEntity"), (8, layer), (100, subclass))
        else:
            self.add((8, layer))

    def write_insert(self, layer, insert):
        self.begin("INSERT", layer, "AcDbBlockReference")
        self.add((2, insert.block), *point_groups(insert.place), (41, number(insert.scale_x)))
        self.add((50, angle_text(insert.degrees)), (70, insert.columns), (71, insert.rows))
        self.add((44, number(insert.steps.real)), (45, number(insert.steps.imag)))

    def write_round(self, layer, entity):
        is_arc = isinstance(entity, Arc)
        self.begin("ARC" if is_arc else "CIRCLE", layer, "AcDbCircle")
        self.add(*point_groups(entity.center), (40, number(entity.radius)))
        if is_arc:
            if self.version == R2000:
                self.add((100, "AcDbArc"))
            self.add((50, angle_text(entity.start)), (51, angle_text(entity.end)))

    def write_polyline(self, layer, polyline):
        """LWPOLYLINE in R2000, POLYLINE with its VERTEX entities in R12."""
        modern = self.version == R2000
        self.begin("LWPOLYLINE" if modern else "POLYLINE", layer, "AcDbPolyline")
        if modern:
            self.add((90, len(polyline.vertices)), (70, 1), (43, "0.0"))
        else:
            self.add((66, 1), *point_groups(0j), (70, 1))
        for vertex, bulge in polyline.vertices:
            if modern:
                self.add(*point_groups(vertex)[:2])
            else:
                self.begin("VERTEX", layer, None)
                self.add(*point_groups(vertex))
            if bulge != 0.0:
                self.add((42, number(bulge)))
        if not modern:
            self.begin("SEQEND", layer, None)


def arc_from_bulge(start, end, bulge):
    """The ARC of a bulged side. ARC runs counter-clockwise, so a negative bulge changes ends."""
    chord = end - start
    center = start + chord / 2 + 1j * chord * (1 - bulge * bulge) / (4 * bulge)
    first, last = (start, end) if bulge > 0 else (end, start)
    degrees = [math.degrees(cmath.phase(p - center)) for p in (first, last)]
    return Arc(center, abs(start - center), *degrees)
