// Drawings as they come: clean parts whose elements were shuffled, turned round, cut in pieces,
// doubled and pulled apart at their joints.
#pragma once

#include "PartSketch.h"
#include "drawing/Drawing.h"
#include "support/Random.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace support {

/// Two to five outer contours side by side, each with up to three cut-outs, one of them with an
/// island now and then. No corner is sharper than about twenty degrees, no side shorter than 1.
inline PartSketch RandomParts(Random& random) {
  PartSketch sketch;
  const int parts = random.Int(2, 5);
  for (int part = 0; part < parts; ++part) {
    const double x = 200.0 * part;
    std::vector<GX2DPoint> corners;
    std::vector<double> radii;
    const int count = random.Int(4, 9);
    for (int i = 0; i < count; ++i) {
      const double angle = kFullTurn * (i + random.Between(-0.15, 0.15)) / count;
      const double reach = random.Between(60.0, 80.0);
      corners.emplace_back(x + reach * std::cos(angle), reach * std::sin(angle));
      radii.push_back(random.Bool() ? random.Between(2.0, 8.0) : 0.0);
    }
    sketch.push_back(RoundedPolygon(corners, radii));
    if (random.Bool()) sketch.push_back(CircleContour(x, 20.0, random.Between(1.0, 8.0)));
    if (random.Bool()) {
      sketch.push_back(SlotContour({x, -10.0}, random.Between(5.0, 20.0), random.Between(1.0, 4.0),
                                   random.Between(0.0, 3.0)));
    }
    if (random.Bool()) {
      sketch.push_back(RectangleContour(x - 15.0, 0.0, x - 5.0, 10.0));
      if (random.Bool()) sketch.push_back(CircleContour(x - 10.0, 5.0, 2.0));
    }
  }
  return sketch;
}

/// How a drawing is spoiled.
struct Mess {
  double gap = 0.1;       ///< Joints are pulled apart by up to this.
  bool contained = true;  ///< Stretches of sides are drawn once more.
  bool specks = true;     ///< Lines of less than 0.0001 at joints.
};

/// Draws sides that are lines shorter at their ends, so that the ends of neighbours are up to the
/// gap apart: where two lines meet, both lie on their straight lines, where a line meets an arc the
/// arc stays, so that the joint can be found again exactly.
inline void PullApart(SketchContour& contour, double gap, Random& random) {
  const auto retract = [](Side& side, bool atStart, double by) {
    GX2DPoint& p = atStart ? side.start : side.end;
    const GX2DPoint& q = atStart ? side.end : side.start;
    const double length = std::hypot(q.X - p.X, q.Y - p.Y);
    p = GX2DPoint(p.X + by / length * (q.X - p.X), p.Y + by / length * (q.Y - p.Y));
  };
  if (contour.size() < 2) return;
  for (std::size_t i = 0; i < contour.size(); ++i) {
    Side& side = contour[i];
    Side& next = contour[(i + 1) % contour.size()];
    if (random.Int(0, 2) != 0) continue;
    if (side.sweep == 0.0) retract(side, false, random.Between(0.0, 0.49 * gap));
    if (next.sweep == 0.0) retract(next, true, random.Between(0.0, 0.49 * gap));
  }
}

inline void AddSide(drawing::Drawing& drawn, const Side& side, const std::string& layer) {
  drawing::DrawnEntity entity;
  entity.type = side.sweep == 0.0 ? "LINE" : "ARC";
  entity.layer = layer;
  entity.linetype = "BYLAYER";
  entity.line = 10 * drawn.entities.size() + 1;
  drawing::DrawnElement element;
  element.element = ElementOf(side);
  element.entity = drawn.entities.size();
  drawn.entities.push_back(entity);
  drawn.elements.push_back(std::move(element));
}

/// A drawing of a sketch in a mess. Circles are drawn in one, two or four arcs.
inline drawing::Drawing MessyDrawingOf(const PartSketch& sketch, const Mess& mess, Random& random) {
  drawing::Drawing drawn;
  drawn.file = "messy";
  drawn.usable = true;
  const auto add = [&](const Side& side, const std::string& layer) {
    AddSide(drawn, random.Bool() ? Reversed({side}).front() : side, layer);
  };
  for (std::size_t i = 0; i < sketch.size(); ++i) {
    const std::string layer = i % 2 == 0 ? "CUT" : "CUT" + std::to_string(i);
    SketchContour contour = sketch[i];
    if (contour.size() > 1) {
      contour = SplitSome(contour, random);
      PullApart(contour, mess.gap, random);
    } else if (const int cut = random.Int(0, 2); cut > 0) {
      contour =
          cut == 1 ? Split(contour.front(), {0.5}) : Split(contour.front(), {0.25, 0.5, 0.75});
    }
    for (const Side& side : contour) {
      add(side, layer);
      if (random.Int(0, 3) == 0) add(side, layer);
      if (mess.contained && random.Int(0, 5) == 0) add(Split(side, {0.3, 0.6})[1], layer);
      if (mess.specks && random.Int(0, 7) == 0) {
        add(LineSide(side.end, {side.end.X + 0.00003, side.end.Y}), layer);
      }
    }
  }
  std::shuffle(drawn.elements.begin(), drawn.elements.end(), random.Engine());
  drawn.zeroLength.push_back({drawn.entities.front(), GX2DPoint(1, 2)});
  return drawn;
}

}  // namespace support
