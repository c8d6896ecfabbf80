#!/usr/bin/env python3
"""Draws the sample parts: `draw_samples.py [FOLDER]`, into the folder of this script by default.

A part is an outline and its cut-outs, in millimetres; every drawing is a part as described, or one
that was turned, redrawn or changed. README.md says what each drawing shows.
"""

import cmath
import math
import random
import sys
from collections.abc import Callable
from dataclasses import dataclass, replace
from pathlib import Path

sys.dont_write_bytecode = True  # the folder holds drawings, not caches

from dxf_writer import (  # noqa: E402
    INCH,
    MILLIMETRE,
    NO_UNIT,
    R12,
    R2000,
    Circle,
    DxfWriter,
    Insert,
    Line,
    Polyline,
    arc_from_bulge,
)

LAYERS = {"OUTLINE": 7, "CUTOUT": 1}
MM_PER_INCH = 25.4


# -- shapes -------------------------------------------------------------------------------------


@dataclass(frozen=True)
class Side:
    """A straight side, or an arc with its bulge, from one complex point to another."""

    start: complex
    end: complex
    bulge: float = 0.0

    def reverse(self):
        return Side(self.end, self.start, -self.bulge)

    def split(self, shares):
        """Pieces that end at the given shares of the length (0 to 1, ascending)."""
        sweep = 4 * math.atan(self.bulge)
        chord = self.end - self.start

        def point(share):
            if sweep == 0.0:
                return self.start + chord * share
            # Chords from the start lag half the turned angle behind the tangent there.
            reach = abs(chord) * math.sin(sweep * share / 2) / math.sin(sweep / 2)
            return self.start + cmath.rect(reach, cmath.phase(chord) + sweep * (share - 1) / 2)

        bounds = [0.0, *shares, 1.0]
        ends = [self.start, *map(point, shares), self.end]
        return [
            Side(ends[i], ends[i + 1], math.tan(sweep * (bounds[i + 1] - bounds[i]) / 4))
            for i in range(len(bounds) - 1)
        ]


@dataclass(frozen=True)
class Contour:
    """Closed chain of sides. A round hole is two half circles, drawn as a CIRCLE while `whole`."""

    sides: tuple
    whole: bool = False

    def moved(self, place, flip=False):
        """Every point through `place`; `flip` tells that it is a mirror image."""
        sign = -1.0 if flip else 1.0
        sides = (Side(place(s.start), place(s.end), sign * s.bulge) for s in self.sides)
        return replace(self, sides=tuple(sides))

    def turned(self, degrees, pivot):
        turn = cmath.rect(1.0, math.radians(degrees))
        return self.moved(lambda p: pivot + (p - pivot) * turn)

    def reversed(self):
        return replace(self, sides=tuple(side.reverse() for side in reversed(self.sides)))

    def restarted(self, first):
        first %= len(self.sides)
        return replace(self, sides=self.sides[first:] + self.sides[:first])

    def with_split(self, index, shares):
        index %= len(self.sides)
        pieces = tuple(self.sides[index].split(shares))
        return replace(self, sides=self.sides[:index] + pieces + self.sides[index + 1 :])


@dataclass(frozen=True)
class Part:
    outline: Contour
    cutouts: tuple = ()

    def contours(self):
        return (self.outline, *self.cutouts)

    def each(self, change):
        return Part(change(self.outline), tuple(change(c) for c in self.cutouts))

    def with_cutout(self, index, change):
        cutouts = list(self.cutouts)
        cutouts[index] = change(cutouts[index])
        return replace(self, cutouts=tuple(cutouts))

    def with_extra(self, cutout):
        return replace(self, cutouts=(*self.cutouts, cutout))

    def placed(self, degrees, offset):
        turn = cmath.rect(1.0, math.radians(degrees))
        return self.each(lambda c: c.moved(lambda p: p * turn + offset))

    def mirrored(self):
        return self.each(lambda c: c.moved(lambda p: complex(-p.real, p.imag), flip=True))


def rounded_path(corners, closed):
    """Sides along corners (x, y, radius); a radius of 0 leaves the corner sharp. The ends of an
    open path are never rounded."""
    points = [complex(x, y) for x, y, _ in corners]
    count = len(corners)
    stops = []  # (point where the corner begins, point where it ends, bulge)
    for i, (_, _, radius) in enumerate(corners):
        if radius == 0.0 or (not closed and i in (0, count - 1)):
            stops.append((points[i], points[i], 0.0))
            continue
        arriving = points[i] - points[i - 1]
        leaving = points[(i + 1) % count] - points[i]
        turn = cmath.phase(leaving / arriving)
        trim = radius * math.tan(abs(turn) / 2)
        begin = points[i] - trim * arriving / abs(arriving)
        end = points[i] + trim * leaving / abs(leaving)
        stops.append((begin, end, math.tan(turn / 4)))
    sides = []
    for i in range(count if closed else count - 1):
        begin, end, bulge = stops[(i + 1) % count]
        sides.append(Side(stops[i][1], begin))
        if bulge != 0.0:
            sides.append(Side(begin, end, bulge))
    return sides


def polygon(*corners):
    return Contour(tuple(rounded_path(corners, closed=True)))


def rectangle(x, y, width, height, radius=0.0):
    right, top = x + width, y + height
    return polygon((x, y, radius), (right, y, radius), (right, top, radius), (x, top, radius))


def hole(x, y, diameter):
    left, right = complex(x - diameter / 2, y), complex(x + diameter / 2, y)
    return Contour((Side(right, left, 1.0), Side(left, right, 1.0)), whole=True)


def center_of(round_hole):
    return (round_hole.sides[0].start + round_hole.sides[0].end) / 2


def slot(x, y, length, width):
    """Long hole along x: two straight sides and two half circles."""
    half, radius = (length - width) / 2, width / 2
    a, b = complex(x - half, y - radius), complex(x + half, y - radius)
    c, d = complex(x + half, y + radius), complex(x - half, y + radius)
    return Contour((Side(a, b), Side(b, c, 1.0), Side(c, d), Side(d, a, 1.0)))


def curved_slot(radius, width, first, last):
    """Kidney-shaped slot about the origin between two directions in degrees."""
    bulge = math.tan(math.radians(last - first) / 4)
    inner, outer = radius - width / 2, radius + width / 2
    a, b = (cmath.rect(outer, math.radians(angle)) for angle in (first, last))
    c, d = (cmath.rect(inner, math.radians(angle)) for angle in (last, first))
    return Contour((Side(a, b, bulge), Side(b, c, 1.0), Side(c, d, -bulge), Side(d, a, 1.0)))


def bolt_circle(diameter, hole_diameter, directions):
    places = [cmath.rect(diameter / 2, math.radians(angle)) for angle in directions]
    return tuple(hole(place.real, place.imag, hole_diameter) for place in places)


def shifted(dx, dy):
    return lambda contour: contour.moved(lambda p: p + complex(dx, dy))


def resized(diameter):
    """Another diameter for a round hole about the same centre."""
    return lambda contour: hole(center_of(contour).real, center_of(contour).imag, diameter)


# -- the parts ----------------------------------------------------------------------------------


def bracket(inner_radius=12.0):
    outline = polygon(
        (0, 0, 10), (120, 0, 6), (120, 35, 6), (35, 35, inner_radius), (35, 90, 6), (0, 90, 6)
    )
    holes = (hole(62, 17.5, 9), hole(102, 17.5, 9), hole(17.5, 48, 11), hole(17.5, 74, 11))
    return Part(outline, holes)


def flange(bore=62.0, first_bolt=0.0):
    bolts = bolt_circle(104, 11, [first_bolt + 60 * i for i in range(6)])
    return Part(rectangle(-70, -70, 140, 140, 20), (hole(0, 0, bore), *bolts))


def gusset(tip=()):
    """`tip` replaces the sharp outer corner of the foot."""
    foot = tip or [(150, 0, 0)]
    corners = [(14, 0, 0), *foot, (150, 18, 5), (18, 100, 5), (0, 100, 0), (0, 14, 0)]
    holes = (hole(46, 40, 26), hole(126, 12, 8.5), hole(12, 80, 8.5))
    return Part(polygon(*corners), holes)


PANEL_WINDOW, PANEL_FIRST_SLOT, PANEL_GRID, PANEL_GLAND = 0, 2, 7, 31


def panel(radius=6.0):
    """Front panel: window, connector, five slots, 24 vent holes, gland hole, four fixing holes."""
    outline = polygon(
        (0, 0, radius), (320, 0, radius), (320, 170, radius), (290, 170, 3), (290, 200, radius),
        (0, 200, radius),
    )
    window, connector = rectangle(130, 120, 90, 55), rectangle(250, 50, 38, 16, 3)
    slots = [slot(64, y, 44, 8) for y in (36, 68, 100, 132, 164)]
    grid = [hole(120 + 22 * i, 32 + 22 * j, 10) for j in range(4) for i in range(6)]
    fixing = [hole(x, y, 6.5) for x, y in ((14, 14), (306, 14), (306, 156), (14, 186))]
    return Part(outline, (window, connector, *slots, *grid, hole(268, 112, 22.5), *fixing))


def bezel():
    """Switch plate for two switches, symmetric about both middle lines."""
    windows = (rectangle(-23, -61, 46, 54, 2), rectangle(-23, 7, 46, 54, 2))
    screws = tuple(hole(x, y, 4.5) for x in (-33, 33) for y in (-34, 34))
    return Part(rectangle(-43, -73, 86, 146, 8), (*windows, *screws))


def chain_guard():
    """Side plate over two sprockets: two big arcs, their tangents, a lug on the lower tangent."""
    big, small, distance = 95.0, 55.0, 260.0
    contact = math.acos((big - small) / distance)
    up, down = cmath.rect(1.0, contact), cmath.rect(1.0, -contact)
    begin, end = big * down, distance + small * down
    along = (end - begin) / abs(end - begin)
    lug = [begin + along * t - 1j * along * h for t, h in ((85, 0), (90, 30), (140, 30), (145, 0))]
    path = [(begin, 0), *zip(lug, (6, 8, 8, 6)), (end, 0)]
    sides = rounded_path([(p.real, p.imag, radius) for p, radius in path], closed=False)
    sides.append(Side(end, distance + small * up, math.tan(contact / 2)))
    sides.append(Side(distance + small * up, big * up))
    sides.append(Side(big * up, begin, math.tan((math.pi - contact) / 2)))
    bolt = begin + along * 115 - 1j * along * 17
    cutouts = (
        hole(0, 0, 72), hole(distance, 0, 42), hole(bolt.real, bolt.imag, 9),
        curved_slot(66, 14, 100, 165), curved_slot(66, 14, 195, 260), slot(150, 18, 70, 20),
        *bolt_circle(168, 7, (70, 180, 290)),
    )
    return Part(Contour(tuple(sides)), cutouts)


def round_cover():
    bolts = bolt_circle(134, 9, (0, 72, 144, 216, 288))
    opening, pin = rectangle(22, 14, 24, 16), hole(0, 48, 6)
    return Part(hole(0, 0, 160), (hole(0, 0, 40), *bolts, opening, pin))


# -- ways of drawing ----------------------------------------------------------------------------


def redrawn(part, seed):
    """The same part, drawn by somebody else: the other way round, from other starts, straight sides
    and arcs in pieces, cut-outs in another order, the first round hole as two half circles."""
    rng = random.Random(seed)

    def change(contour):
        contour = contour.reversed().restarted(1 + int(rng.random() * len(contour.sides)))
        if contour.whole:
            return contour
        arcs = [i for i, side in enumerate(contour.sides) if side.bulge != 0.0]
        lines = [i for i, side in enumerate(contour.sides) if side.bulge == 0.0]
        cuts = {lines[0]: [0.25, 0.6], lines[-1]: [0.5]} if lines else {}
        if arcs:
            widest = max(arcs, key=lambda i: abs(contour.sides[i].bulge))
            cuts[widest] = [0.4]
        for index in sorted(cuts, reverse=True):
            contour = contour.with_split(index, cuts[index])
        # Begin within a side in pieces, so that the first and the last piece belong together.
        return contour.restarted(min(cuts) + 1)

    part = part.each(change)
    first_round = [c.whole for c in part.cutouts].index(True)
    part = part.with_cutout(first_round, lambda c: replace(c, whole=False).turned(25, center_of(c)))
    return replace(part, cutouts=tuple(sorted(part.cutouts, key=lambda _: rng.random())))


def whole_circle(contour):
    return Circle(center_of(contour), abs(contour.sides[0].end - contour.sides[0].start) / 2)


def loose_entities(part):
    """LINE, ARC and CIRCLE."""
    entities = []
    for contour in part.contours():
        layer = "OUTLINE" if contour is part.outline else "CUTOUT"
        if contour.whole:
            entities.append((layer, whole_circle(contour)))
            continue
        for side in contour.sides:
            straight = side.bulge == 0.0
            line_or_arc = Line(side.start, side.end) if straight else arc_from_bulge(**vars(side))
            entities.append((layer, line_or_arc))
    return entities


def chained_entities(part):
    """One polyline with bulges for each contour, CIRCLE for round holes."""
    entities = []
    for contour in part.contours():
        layer = "OUTLINE" if contour is part.outline else "CUTOUT"
        vertices = tuple((side.start, side.bulge) for side in contour.sides)
        entities.append((layer, whole_circle(contour) if contour.whole else Polyline(vertices)))
    return entities


def shuffled_entities(seed):
    """Loose entities in any order, every second line or so from its other end."""

    def entities_of(part):
        rng = random.Random(seed)
        entities = sorted(loose_entities(part), key=lambda _: rng.random())
        return [
            (layer, Line(e.end, e.start) if isinstance(e, Line) and rng.random() < 0.5 else e)
            for layer, e in entities
        ]

    return entities_of


def shortened(line, at_start, at_end):
    """`line` without a piece of the given length at either end."""
    along = (line.end - line.start) / abs(line.end - line.start)
    return Line(line.start + along * at_start, line.end - along * at_end)


def messy_entities(part):
    """What careless hands leave behind: gaps of 0.02 and 0.08 mm, one side drawn twice (the second
    time the other way round) and a piece of another one once more, a line without length, and all
    of it shuffled and half of it turned round."""
    entities = shuffled_entities(81)(part)
    lines = [i for i, (_, entity) in enumerate(entities) if isinstance(entity, Line)]
    for index, cuts in zip(lines, ((0.02, 0.0), (0.0, 0.08), (0.05, 0.03))):
        layer, line = entities[index]
        entities[index] = (layer, shortened(line, *cuts))
    layer, twice = entities[lines[3]]
    entities.insert(2, (layer, Line(twice.end, twice.start)))
    layer, longer = entities[lines[-1] + 1]
    entities.append((layer, shortened(longer, 5.0, 7.5)))
    entities.insert(5, (layer, Line(twice.start, twice.start)))
    return entities


@dataclass(frozen=True)
class Sheet:
    """Several things in one drawing: loose entities, and blocks that are inserted."""

    entities: tuple
    blocks: dict

    def text(self):
        return DxfWriter(R12, MILLIMETRE, LAYERS).text(list(self.entities), blocks=self.blocks)


@dataclass(frozen=True)
class Drawing:
    part: Part
    entities_of: Callable = loose_entities
    version: str = R12
    unit: int | None = MILLIMETRE
    figures_in_inches: bool = False
    newline: str = "\n"

    def text(self):
        scale = MM_PER_INCH if self.figures_in_inches else 1.0
        part = self.part.each(lambda c: c.moved(lambda p: p / scale))
        return DxfWriter(self.version, self.unit, LAYERS).text(self.entities_of(part), self.newline)


def other_hand(part, degrees, offset, seed):
    """`part` turned, shifted and redrawn as shuffled lines and arcs."""
    return Drawing(redrawn(part, seed).placed(degrees, offset), shuffled_entities(seed))


def in_inches(part, **settings):
    return Drawing(part, **{"version": R2000, "unit": INCH, "figures_in_inches": True, **settings})


def chained(part, **settings):
    return Drawing(part, chained_entities, **settings)


# -- the drawings -------------------------------------------------------------------------------


def bracket_drawings():
    part = bracket()
    swapped = part.with_cutout(1, resized(11)).with_cutout(3, resized(9))
    return {
        "bracket": Drawing(part),
        "bracket-turned": other_hand(part, 37, 412.5 - 87.25j, seed=11),
        "bracket-polyline": chained(
            redrawn(part, seed=12).placed(-90, 0j), version=R2000, newline="\r\n"
        ),
        "bracket-hole-moved": Drawing(part.with_cutout(1, shifted(-2, 0))),
        "bracket-extra-hole": Drawing(part.with_extra(hole(17.5, 17.5, 9))),
        "bracket-mirrored": Drawing(part.mirrored()),
        "bracket-radius": Drawing(bracket(inner_radius=10.0)),
        "bracket-hole-size": Drawing(part.with_cutout(0, resized(9.5))),
        "bracket-holes-swapped": Drawing(swapped),
        "bracket-blank": Drawing(replace(part, cutouts=())),
        "bracket-inch": in_inches(part),
        "bracket-no-unit": Drawing(part, unit=NO_UNIT),
        "bracket-inch-no-unit": in_inches(part, unit=NO_UNIT),
    }


def flange_drawings():
    part = flange()
    return {
        "flange": chained(part),
        "flange-turned": other_hand(part, -118.5, -230 + 64j, seed=21),
        "flange-mirrored": chained(part.mirrored()),
        "flange-bolts-30": chained(flange(first_bolt=30.0)),
        "flange-bolts-15": chained(flange(first_bolt=15.0)),
        "flange-bore": chained(flange(bore=62.5)),
        "flange-inch": in_inches(part.placed(90, 3 + 4j), entities_of=chained_entities),
    }


def gusset_drawings():
    part = gusset()
    return {
        "gusset": Drawing(part),
        "gusset-turned": other_hand(part, 201.3, 55.5 + 310j, seed=31),
        "gusset-mirrored": other_hand(part.mirrored(), 74, 20 - 35j, seed=32),
        "gusset-hole-moved": Drawing(part.with_cutout(0, shifted(1.2, -1.6))),
        "gusset-edge-broken": Drawing(gusset(tip=[(149.96, 0, 0), (150, 0.04, 0)])),
        "gusset-chamfered": Drawing(gusset(tip=[(148, 0, 0), (150, 2, 0)])),
    }


def panel_drawings():
    part = panel()
    middle_slot = PANEL_FIRST_SLOT + 2
    modern = {"version": R2000}
    return {
        "panel": chained(part, **modern),
        "panel-turned": other_hand(part, 143.7, -75.2 + 18.8j, seed=41),
        "panel-loose": Drawing(part),
        "panel-slot-turned": chained(
            part.with_cutout(middle_slot, lambda c: c.turned(90, 64 + 100j)), **modern
        ),
        "panel-hole-moved": chained(part.with_cutout(PANEL_GLAND, shifted(0, 2)), **modern),
        "panel-extra-hole": chained(part.with_extra(hole(306, 112, 6.5)), **modern),
        "panel-mirrored": chained(part.mirrored(), **modern),
        "panel-radius": chained(panel(radius=8.0), **modern),
        "panel-hole-size": chained(part.with_cutout(PANEL_GRID + 9, resized(10.5)), **modern),
        "panel-window-rounded": chained(
            part.with_cutout(PANEL_WINDOW, lambda _: rectangle(130, 120, 90, 55, 4)), **modern
        ),
        "panel-inch": in_inches(
            redrawn(part, seed=42).placed(180, 12.7 + 25.4j), entities_of=chained_entities
        ),
    }


def bezel_drawings():
    part = bezel()
    return {
        "bezel": chained(part),
        "bezel-turned": other_hand(part, 12.25, 90 + 90j, seed=51),
        "bezel-mirrored": chained(part.mirrored()),
        "bezel-window-moved": chained(part.with_cutout(1, shifted(0, -2))),
    }


def chain_guard_drawings():
    part = chain_guard()
    return {
        "chain-guard": chained(part, version=R2000),
        "chain-guard-turned": other_hand(part, 290, 1000 - 500j, seed=61),
        "chain-guard-mirrored": chained(part.mirrored(), version=R2000),
        "chain-guard-inch": in_inches(part),
        "chain-guard-slot-turned": chained(
            part.with_cutout(5, lambda c: c.turned(90, 150 + 18j)), version=R2000
        ),
    }


def round_cover_drawings():
    part = round_cover()
    return {
        "round-cover": Drawing(part),
        "round-cover-turned": other_hand(part, 64, 31 + 7j, seed=71),
        "round-cover-hole-moved": Drawing(
            part.with_cutout(3, lambda c: c.turned(math.degrees(2 / 67), 0j))
        ),
    }


def messy_drawings():
    return {
        "messy-bracket": Drawing(bracket(), messy_entities),
        "messy-sheet": messy_sheet(),
    }


def messy_sheet():
    """A gusset, a latch that is drawn as a block and inserted as its mirror image, six tabs by one
    insertion, and an outline that is open by 0.5 mm."""
    latch = Part(polygon((0, 0, 4), (60, 0, 0), (60, 18, 6), (22, 30, 0), (0, 30, 4)), (hole(12, 15, 8),))
    tab = Part(rectangle(0, 0, 20, 12, 2), (slot(10, 6, 9, 4),))
    blocks = {"LATCH": messy_entities(latch), "TAB": loose_entities(tab)}
    open_outline = loose_entities(Part(rectangle(200, 0, 50, 40, 0)))
    layer, side = open_outline[2]
    open_outline[2] = (layer, shortened(side, 0.5, 0.0))
    inserts = (
        ("OUTLINE", Insert("LATCH", 270 + 70j, scale_x=-1.0, degrees=20.0)),
        ("OUTLINE", Insert("TAB", 0 - 60j, columns=3, rows=2, steps=30 + 20j)),
    )
    return Sheet((*shuffled_entities(82)(gusset()), *open_outline, *inserts), blocks)


def main(arguments):
    folder = Path(arguments[0]) if arguments else Path(__file__).resolve().parent
    families = (
        bracket_drawings, flange_drawings, gusset_drawings, panel_drawings, bezel_drawings,
        chain_guard_drawings, round_cover_drawings, messy_drawings,
    )
    for family in families:
        for name, drawing in family().items():
            (folder / f"{name}.dxf").write_bytes(drawing.text().encode("ascii"))


if __name__ == "__main__":
    main(sys.argv[1:])
