// The search for the smallest upright box, which finds sine and cosine once, against the search
// that turns the whole list by `RotateAxis` time and again: the same angle on random contours.

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXBoundBox.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using support::Random;

/// A line of a class of its own.
class HostLine : public GX2DLine {
 public:
  using GX2DLine::GX2DLine;
};

double PlainAngle(const GX2DElmList& list, double step) {
  GXBoundBox box;
  list.GetBoundBox(box);
  double bestArea = box.GetArea();
  double bestAngle = 0.0;
  if (bestArea < 0.0001) return bestAngle;
  const GX2DPoint corner(box.Minimum.X, box.Minimum.Y);
  GX2DElmList turned;
  turned.Clone(list);
  for (double angle = step; angle < 90.0; angle += step) {
    turned.RotateAxis(corner, step);
    turned.GetBoundBox(box);
    if (box.GetArea() < bestArea) {
      bestArea = box.GetArea();
      bestAngle = angle;
    }
  }
  return bestAngle;
}

void AddAnything(GX2DElmList& list, double extent, Random& random) {
  const GX2DPoint a = random.Point2D(extent);
  const GX2DPoint b = random.Point2D(extent);
  switch (random.Int(0, 9)) {
    case 0:
      support::Add(list, a);
      break;
    case 1:
      support::Add(list, GX2DRectangle(a, b));
      break;
    case 2:
      support::Add(list, HostLine(a, b));
      break;
    case 3:
      // Left out of the copy that is turned, but not of the first box.
      support::Add(list, support::Foreign2D(a, b));
      break;
    case 4:
    case 5:
      support::Add(list, GX2DArc(a, b, random.Point2D(extent), random.Point2D(extent)));
      break;
    default:
      support::Add(list, GX2DLine(a, b));
  }
}

TEST(GetAngleWithMinBoundingBox, TurnsToTheLastBitAsRotateAxisDoes) {
  // Boxes of a turned square come back every quarter turn, and those of a regular polygon of n
  // corners every n-th part of a turn: which of the equal angles wins is decided by rounding alone.
  Random random;
  for (int corners = 3; corners < 40; ++corners) {
    SCOPED_TRACE(std::to_string(corners) + " corners");
    const double x = random.Between(-100.0, 100.0);
    GX2DElmList list;
    for (int i = 0; i < corners; ++i) {
      const double part = 360.0 / corners;
      support::Add(list, GX2DLine(support::OnCircle(x, 3.0, 10.0, part * i),
                                  support::OnCircle(x, 3.0, 10.0, part * (i + 1))));
    }
    for (const double step : {0.25, 1.0, 360.0 / corners / 4.0, 45.0, 89.9}) {
      EXPECT_EQ(GXGeometry::GetAngleWithMinBoundingBox(list, step, false), PlainAngle(list, step));
    }
  }
}

TEST(GetAngleWithMinBoundingBox, FindsTheAngleOfThePlainSearchOnAnyList) {
  Random random;
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    const double extent = std::pow(10.0, random.Int(-1, 4));
    GX2DElmList list;
    for (int i = random.Int(1, 8); i > 0; --i) AddAnything(list, extent, random);
    const double step = random.Between(0.7, 20.0);
    EXPECT_EQ(GXGeometry::GetAngleWithMinBoundingBox(list, step, false), PlainAngle(list, step));
  }
}

}  // namespace
