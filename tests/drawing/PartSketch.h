// Parts as plain values for the tests: drawn, redrawn in other ways that leave the part as it is,
// and changed.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/PartModel.h"
#include "support/Random.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace support {

/// A side of a contour. `sweep` is 0 for lines, otherwise the turn of the arc about `centre` in
/// radians, counter-clockwise positive; 2 pi with equal ends is a circle.
struct Side {
  GX2DPoint start;
  GX2DPoint end;
  GX2DPoint centre;
  double sweep = 0.0;
};

using SketchContour = std::vector<Side>;
using PartSketch = std::vector<SketchContour>;

constexpr double kFullTurn = 6.283185307179586;

inline GX2DPoint Turned(const GX2DPoint& p, const GX2DPoint& about, double radians) {
  const double x = p.X - about.X;
  const double y = p.Y - about.Y;
  return {about.X + std::cos(radians) * x - std::sin(radians) * y,
          about.Y + std::sin(radians) * x + std::cos(radians) * y};
}

inline Side LineSide(const GX2DPoint& start, const GX2DPoint& end) { return {start, end, {}, 0.0}; }

/// The arc from `start` about `centre`.
inline Side ArcSide(const GX2DPoint& start, const GX2DPoint& centre, double sweep) {
  return {start, Turned(start, centre, sweep), centre, sweep};
}

inline SketchContour CircleContour(double x, double y, double radius, double startRadians = 0.0) {
  const GX2DPoint centre(x, y);
  const GX2DPoint start = Turned({x + radius, y}, centre, startRadians);
  return {{start, start, centre, kFullTurn}};
}

inline SketchContour PolygonContour(const std::vector<GX2DPoint>& corners) {
  SketchContour contour;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    contour.push_back(LineSide(corners[i], corners[(i + 1) % corners.size()]));
  }
  return contour;
}

inline SketchContour RectangleContour(double minX, double minY, double maxX, double maxY) {
  return PolygonContour({{minX, minY}, {maxX, minY}, {maxX, maxY}, {minX, maxY}});
}

/// A polygon whose corners are rounded where the radius is above 0, as far as it fits.
inline SketchContour RoundedPolygon(const std::vector<GX2DPoint>& corners,
                                    const std::vector<double>& radii) {
  const std::size_t size = corners.size();
  std::vector<Side> fillets;  // One per corner; sharp ones have no length.
  for (std::size_t i = 0; i < size; ++i) {
    const GX2DPoint& p = corners[i];
    const GX2DPoint& q = corners[(i + size - 1) % size];
    const GX2DPoint& r = corners[(i + 1) % size];
    const double in = std::hypot(p.X - q.X, p.Y - q.Y);
    const double out = std::hypot(r.X - p.X, r.Y - p.Y);
    const double ux = (p.X - q.X) / in;
    const double uy = (p.Y - q.Y) / in;
    const double turn =
        std::atan2(ux * (r.Y - p.Y) - uy * (r.X - p.X), ux * (r.X - p.X) + uy * (r.Y - p.Y));
    const double tangent = radii[i] * std::tan(std::fabs(turn) / 2.0);
    if (!(radii[i] > 0.0) || tangent > 0.4 * std::min(in, out)) {
      fillets.push_back({p, p, p, 0.0});
      continue;
    }
    const GX2DPoint start(p.X - tangent * ux, p.Y - tangent * uy);
    const double side = turn > 0.0 ? radii[i] : -radii[i];
    fillets.push_back(ArcSide(start, {start.X - side * uy, start.Y + side * ux}, turn));
  }
  SketchContour contour;
  for (std::size_t i = 0; i < size; ++i) {
    if (fillets[i].sweep != 0.0) contour.push_back(fillets[i]);
    contour.push_back(LineSide(fillets[i].end, fillets[(i + 1) % size].start));
  }
  return contour;
}

/// A slot: two half circles of `radius` whose centres are `length` apart.
inline SketchContour SlotContour(const GX2DPoint& middle, double length, double radius,
                                 double radians) {
  const auto at = [&](double x, double y) {
    return Turned({middle.X + x, middle.Y + y}, middle, radians);
  };
  const double half = length / 2.0;
  const double halfTurn = kFullTurn / 2.0;
  return {LineSide(at(-half, -radius), at(half, -radius)),
          ArcSide(at(half, -radius), at(half, 0.0), halfTurn),
          LineSide(at(half, radius), at(-half, radius)),
          ArcSide(at(-half, radius), at(-half, 0.0), halfTurn)};
}

template <typename PointMap>
PartSketch Mapped(PartSketch sketch, double sense, const PointMap& map) {
  for (SketchContour& contour : sketch) {
    for (Side& side : contour) {
      side = {map(side.start), map(side.end), map(side.centre), sense * side.sweep};
    }
  }
  return sketch;
}

inline PartSketch Moved(const PartSketch& sketch, double radians, double dx, double dy) {
  return Mapped(sketch, 1.0, [&](const GX2DPoint& p) {
    const GX2DPoint turned = Turned(p, {0.0, 0.0}, radians);
    return GX2DPoint(turned.X + dx, turned.Y + dy);
  });
}

inline PartSketch Mirrored(const PartSketch& sketch) {
  return Mapped(sketch, -1.0, [](const GX2DPoint& p) { return GX2DPoint(-p.X, p.Y); });
}

inline void ShiftContour(SketchContour& contour, double dx, double dy) {
  for (Side& side : contour) {
    for (GX2DPoint* p : {&side.start, &side.end, &side.centre}) p->Translate(dx, dy);
  }
}

inline SketchContour Reversed(SketchContour contour) {
  std::reverse(contour.begin(), contour.end());
  for (Side& side : contour) side = {side.end, side.start, side.centre, -side.sweep};
  return contour;
}

/// A side in pieces, as long as `shares` ascend between 0 and 1.
inline SketchContour Split(const Side& side, const std::vector<double>& shares) {
  SketchContour pieces;
  GX2DPoint from = side.start;
  double done = 0.0;
  for (const double share : shares) {
    const GX2DPoint to = side.sweep == 0.0
                             ? GX2DPoint(side.start.X + share * (side.end.X - side.start.X),
                                         side.start.Y + share * (side.end.Y - side.start.Y))
                             : Turned(side.start, side.centre, share * side.sweep);
    pieces.push_back({from, to, side.centre, (share - done) * side.sweep});
    from = to;
    done = share;
  }
  pieces.push_back({from, side.end, side.centre, (1.0 - done) * side.sweep});
  return pieces;
}

/// Splits about every third side into two to four pieces.
inline SketchContour SplitSome(const SketchContour& contour, Random& random) {
  SketchContour split;
  for (const Side& side : contour) {
    std::vector<double> shares;
    const int cuts = random.Int(0, 2) == 0 ? random.Int(1, 3) : 0;
    for (int i = 0; i < cuts; ++i) shares.push_back((i + random.Between(0.2, 0.8)) / cuts);
    const SketchContour pieces = Split(side, shares);
    split.insert(split.end(), pieces.begin(), pieces.end());
  }
  return split;
}

/// The same part by another hand: sides in pieces, contours from another start, in the other
/// direction, in another order, the whole turned and shifted.
inline PartSketch Redrawn(const PartSketch& sketch, Random& random) {
  PartSketch redrawn;
  for (const SketchContour& contour : sketch) {
    SketchContour other = SplitSome(contour, random);
    const int start = random.Int(0, static_cast<int>(other.size()) - 1);
    std::rotate(other.begin(), other.begin() + start, other.end());
    redrawn.push_back(random.Bool() ? Reversed(other) : other);
  }
  std::shuffle(redrawn.begin(), redrawn.end(), random.Engine());
  return Moved(redrawn, random.Between(-3.0, 3.0), random.Between(-500.0, 500.0),
               random.Between(-500.0, 500.0));
}

inline std::unique_ptr<GX2DElement> ElementOf(const Side& side) {
  if (side.sweep == 0.0) return std::make_unique<GX2DLine>(side.start, side.end);
  const GX2DPoint middle = Turned(side.start, side.centre, side.sweep / 2.0);
  return std::make_unique<GX2DArc>(side.centre, side.start, middle, side.end);
}

/// All sides as one drawing, in their order.
inline drawing::Drawing DrawingOf(const PartSketch& sketch) {
  drawing::Drawing made;
  made.file = "sketch";
  made.usable = true;
  for (const SketchContour& contour : sketch) {
    for (const Side& side : contour) {
      drawing::DrawnElement element;
      element.element = ElementOf(side);
      element.entity = made.entities.size();
      drawing::DrawnEntity entity;
      entity.type = side.sweep == 0.0 ? "LINE" : "ARC";
      entity.layer = "CUT";
      made.entities.push_back(entity);
      made.elements.push_back(std::move(element));
    }
  }
  return made;
}

/// The same, its elements shuffled and about half of them drawn from their other end.
inline drawing::Drawing ShuffledDrawingOf(const PartSketch& sketch, Random& random) {
  SketchContour sides;
  for (const SketchContour& contour : sketch) {
    sides.insert(sides.end(), contour.begin(), contour.end());
  }
  std::shuffle(sides.begin(), sides.end(), random.Engine());
  for (Side& side : sides) {
    if (random.Bool()) side = Reversed({side}).front();
  }
  return DrawingOf({sides});
}

inline drawing::PartModel PartOf(const PartSketch& sketch) {
  return drawing::BuildPart(DrawingOf(sketch));
}

}  // namespace support
