// The scan that leaves out elements far above or below the point against the one that looks at all
// of them, on contours and heaps made to mislead it: heights around the margin and the tolerance,
// steep, level and tiny lines, arcs that hardly reach the level, far places and no numbers.

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/PlainClassification.h"
#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <iostream>
#include <limits>
#include <memory>
#include <vector>

namespace {

using ktrcl_internal::PlacePointPlainly;
using support::Random;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

template <std::size_t kCount>
double OneOf(const std::array<double, kCount>& values, Random& random) {
  return values[static_cast<std::size_t>(random.Int(0, static_cast<int>(kCount) - 1))];
}

/// Where the numbers of a contour come from.
enum class Family { kField, kFewHeights, kAroundMargin, kTiny, kFar, kExtremes };
constexpr std::array<Family, 6> kFamilies = {Family::kField,        Family::kFewHeights,
                                             Family::kAroundMargin, Family::kTiny,
                                             Family::kFar,          Family::kExtremes};

double Coordinate(Family family, Random& random) {
  static constexpr std::array<double, 6> kFar = {1e7, 9.9e7, 1e8, 1e10, 1e12, 1e15};
  static constexpr std::array<double, 14> kExtremes = {0.0,   -0.0,      1e-320,     1e-160, 1e17,
                                                       1e18,  1e154,     -1e154,     1e300,  -1e300,
                                                       1e308, kInfinity, -kInfinity, kNaN};
  switch (family) {
    case Family::kFewHeights:
      return 1.0 * random.Int(-2, 2);
    case Family::kAroundMargin:
      // Multiples of half the tolerance around a few heights; the margin is four of them.
      return 1.0 * random.Int(-1, 1) + 0.00005 * random.Int(-8, 8);
    case Family::kTiny:
      return 0.00002 * random.Int(-20, 20);
    case Family::kFar: {
      // Neighbouring doubles and small steps far out, where rounding is as large as the margin.
      const double far = OneOf(kFar, random) * (random.Bool() ? 1.0 : -1.0);
      return random.Bool() ? far + 0.0001 * random.Int(-5, 5)
                           : far * (1.0 + 2.3e-16 * random.Int(-4, 4));
    }
    case Family::kExtremes:
      return random.Bool() ? OneOf(kExtremes, random) : random.Between(-2.0, 2.0);
    case Family::kField:
      break;
  }
  return random.Between(-100.0, 100.0);
}

GX2DPoint PointOf(Family family, Random& random) {
  // Far numbers on one axis at a time, so that lines are steep or level out there too.
  const bool mixed = family == Family::kFar && random.Bool();
  const double x = Coordinate(mixed && random.Bool() ? Family::kAroundMargin : family, random);
  const double y = Coordinate(mixed && random.Bool() ? Family::kAroundMargin : family, random);
  return {x, y};
}

std::unique_ptr<GX2DElement> ArcOf(const GX2DPoint& start, const GX2DPoint& end, Family family,
                                   Random& random) {
  switch (random.Int(0, 3)) {
    case 0:
      return std::make_unique<GX2DArc>(PointOf(family, random), start, end, random.Bool());
    case 1:
      return std::make_unique<GX2DArc>(PointOf(family, random), start, PointOf(family, random),
                                       end);
    case 2:
      return std::make_unique<GX2DArc>(
          support::Circle(start.X, start.Y, random.Between(0.0, 2.0), random.Bool()));
    default: {
      // A true arc between the ends: the center on their bisector.
      const double t = random.Between(-2.0, 2.0);
      const GX2DPoint center((start.X + end.X) * 0.5 - (end.Y - start.Y) * t,
                             (start.Y + end.Y) * 0.5 + (end.X - start.X) * t);
      return std::make_unique<GX2DArc>(center, start, end, random.Bool());
    }
  }
}

void AddElement(GX2DElmList& list, const GX2DPoint& start, const GX2DPoint& end, Family family,
                Random& random) {
  const int dice = random.Int(0, 399);
  if (dice == 0) {
    list.push_back(nullptr);
  } else if (dice == 1) {
    list.push_back(new GX2DPoint(start));
  } else if (dice == 2) {
    list.push_back(new GX2DRectangle(start, end));
  } else if (dice == 3) {
    list.push_back(new support::Foreign2D(start, end));
  } else if (dice < 120) {
    list.push_back(ArcOf(start, end, family, random).release());
  } else {
    list.push_back(new GX2DLine(start, end));
  }
}

/// A contour, closed as a rule.
void Fill(GX2DElmList& list, Family family, Random& random) {
  const int count = random.Int(0, 9) == 0 ? 1 : random.Int(2, 14);
  const GX2DPoint first = PointOf(family, random);
  GX2DPoint last = first;
  for (int i = 1; i <= count; ++i) {
    GX2DPoint next = PointOf(family, random);
    if (random.Int(0, 4) == 0) next.Y = last.Y + 0.00001 * random.Int(-3, 3);
    if (random.Int(0, 4) == 0) next.X = last.X + 0.000005 * random.Int(-3, 3);
    if (i == count && random.Int(0, 9) != 0) next = first;
    AddElement(list, last, next, family, random);
    last = next;
  }
}

/// A place that has something to do with the contour: near a height or a place on it, or anywhere.
GX2DPoint Probe(const GX2DElmList& list, Family family, Random& random) {
  GX2DPoint p = PointOf(family, random);
  GX2DElement* const element =
      list[static_cast<std::size_t>(random.Int(0, static_cast<int>(list.size()) - 1))];
  if (element == nullptr || random.Int(0, 5) == 0) return p;
  GX2DPoint near = random.Bool() ? element->GetStartPoint() : element->GetEndPoint();
  if (random.Int(0, 2) == 0) element->GetParametricPoint(near, random.Between(-0.001, 1.001));
  if (random.Int(0, 3) == 0) near.Y = random.Bool() ? element->GetMaxY() : element->GetMinY();
  p.Y = near.Y + 0.00005 * random.Int(-7, 7);
  if (random.Bool()) p.X = near.X + 0.00005 * random.Int(-3, 3);
  return p;
}

double ToleranceOf(Random& random) {
  static constexpr std::array<double, 14> kTolerances = {0.0001, 0.0001, 0.0001,    0.0, 0.00001,
                                                         0.0002, 0.001,  0.1,       3.0, 1e9,
                                                         1e300,  -1.0,   kInfinity, kNaN};
  return OneOf(kTolerances, random);
}

struct Answer {
  bool result;
  GXGeometry::ePointInContourResult place;
  bool operator==(const Answer& other) const {
    return result == other.result && place == other.place;
  }
};

Answer Quick(const GX2DElmList& list, GX2DPoint p, double tolerance) {
  auto place = GXGeometry::ePointOnContour;
  const bool result = GXGeometry::IsPointInClosedContour(list, p, place, tolerance);
  return {result, place};
}

Answer Plain(const GX2DElmList& list, const GX2DPoint& p, double tolerance) {
  auto place = GXGeometry::ePointOnContour;
  const bool result = PlacePointPlainly(list, p, place, tolerance);
  return {result, place};
}

constexpr int kListsPerFamily = 3000;
constexpr int kProbesPerList = 12;

TEST(QuickPointInContour, AnswersAsTheScanOfAllElements) {
  Random random;
  std::size_t cases = 0;
  std::array<std::size_t, 3> places{};
  for (const Family family : kFamilies) {
    for (int i = 0; i < kListsPerFamily; ++i) {
      GX2DElmList list;
      Fill(list, family, random);
      for (int k = 0; k < kProbesPerList; ++k) {
        const GX2DPoint p = Probe(list, family, random);
        const double tolerance = ToleranceOf(random);
        const Answer expected = Plain(list, p, tolerance);
        ASSERT_TRUE(Quick(list, p, tolerance) == expected)
            << "family " << static_cast<int>(family) << " list " << i << " probe " << k;
        ++cases;
        ++places.at(static_cast<std::size_t>(expected.place));
      }
    }
  }
  std::cout << cases << " cases: " << places[0] << " outside, " << places[1] << " inside, "
            << places[2] << " on the contour\n";
  // The comparison means something only where all three answers occur.
  for (const std::size_t count : places) EXPECT_GT(count, cases / 100);
}

TEST(QuickPointInContour, AnswersAsTheScanOfAllElementsForSingleLinesAndArcs) {
  // Nothing else hides a wrong answer here: a contribution of the only element shows in the parity
  // or as a place on the contour.
  Random random;
  std::size_t cases = 0;
  for (const Family family : kFamilies) {
    for (int i = 0; i < 20000; ++i) {
      GX2DElmList list;
      const GX2DPoint start = PointOf(family, random);
      GX2DPoint end = PointOf(family, random);
      if (random.Bool()) end.X = start.X + 0.000005 * random.Int(-3, 3);
      AddElement(list, start, end, family, random);
      const GX2DPoint p = Probe(list, family, random);
      const double tolerance = ToleranceOf(random);
      ASSERT_TRUE(Quick(list, p, tolerance) == Plain(list, p, tolerance))
          << "family " << static_cast<int>(family) << " element " << i;
      ++cases;
    }
  }
  std::cout << cases << " cases\n";
}

/// An arc that claims to be larger than its points say.
class WideArc : public GX2DArc {
 public:
  using GX2DArc::GX2DArc;
  double Radius() const override { return 10.0; }
};

TEST(QuickPointInContour, LooksAtArcsThatAnswerWithARadiusOfTheirOwn) {
  GX2DElmList list;
  list.push_back(new WideArc(GX2DPoint(0, 0), GX2DPoint(1, 0), GX2DPoint(0, 1), GX2DPoint(-1, 0)));
  list.push_back(new GX2DLine(-1, 0, 1, 0));
  for (const double y : {-10.0, -9.0, -5.0, 0.0, 0.5, 5.0, 9.0, 10.0}) {
    for (const double x : {-9.0, -0.5, 0.5, 9.0}) {
      EXPECT_TRUE(Quick(list, {x, y}, 0.0001) == Plain(list, {x, y}, 0.0001)) << x << " " << y;
    }
  }
}

}  // namespace
