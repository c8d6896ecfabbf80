// The list operations against the plain double loop, written here from the operations on single
// elements: same crossings, same order, same repetitions, same bits.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

namespace {

using support::Add;
using support::Line;
using support::Point;
using support::Random;

using Points = std::vector<GX2DPoint>;

bool OnBoth(const GX2DLine& line, const GX2DArc& arc, const GX2DPoint& hit) {
  return GXGeometry::Point2DOnClosedLine(line, hit) > 0 && GXGeometry::Point2DOnArc(arc, hit);
}

void AppendPlain(const GX2DLine& a, const GX2DLine& b, Points& points) {
  GX2DPoint hit;
  if (GXGeometry::Get2DLineIntersection(a, b, hit) && GXGeometry::Point2DOnClosedLine(a, hit) > 0 &&
      GXGeometry::Point2DOnClosedLine(b, hit) > 0) {
    points.push_back(hit);
  }
}

void AppendPlain(const GX2DLine& line, const GX2DArc& arc, Points& points) {
  GX2DPoint first;
  GX2DPoint second;
  if (GXGeometry::Get2DLineArcIntersections(line, arc, first, second)) {
    for (const GX2DPoint& hit : {first, second}) {
      if (OnBoth(line, arc, hit)) {
        points.push_back(hit);
      }
    }
  }
}

void AppendPlain(const GX2DArc& a, const GX2DArc& b, Points& points) {
  GX2DPoint first;
  GX2DPoint second;
  if (GXGeometry::Get2DCirclesIntersection(a, b, first, second)) {
    for (const GX2DPoint& hit : {first, second}) {
      if (GXGeometry::Point2DOnArc(b, hit) && GXGeometry::Point2DOnArc(a, hit)) {
        points.push_back(hit);
      }
    }
  }
}

void AppendPlain(const GX2DElement* e1, const GX2DElement* e2, Points& points) {
  const GX2DLine* const line1 = dynamic_cast<const GX2DLine*>(e1);
  const GX2DLine* const line2 = dynamic_cast<const GX2DLine*>(e2);
  const GX2DArc* const arc1 = dynamic_cast<const GX2DArc*>(e1);
  const GX2DArc* const arc2 = dynamic_cast<const GX2DArc*>(e2);
  if (line1 != nullptr && line2 != nullptr) {
    AppendPlain(*line1, *line2, points);
  } else if (line1 != nullptr && arc2 != nullptr) {
    AppendPlain(*line1, *arc2, points);
  } else if (arc1 != nullptr && line2 != nullptr) {
    AppendPlain(*line2, *arc1, points);
  } else if (arc1 != nullptr && arc2 != nullptr) {
    AppendPlain(*arc1, *arc2, points);
  }
}

Points Plain(const GX2DElmList& list1, const GX2DElmList& list2) {
  Points points;
  for (const GX2DElement* const e1 : list1) {
    for (const GX2DElement* const e2 : list2) {
      AppendPlain(e1, e2, points);
    }
  }
  return points;
}

void RemoveNear(Points& points, const GX2DPoint& end) {
  Points kept;
  for (const GX2DPoint& p : points) {
    if (!p.IsAlmostEq(end, 0.0001)) {
      kept.push_back(p);
    }
  }
  points = kept;
}

bool PlainSelfIntersection(const GX2DElmList& list, Points& points) {
  bool answer = false;
  for (std::size_t i = 0; i + 1 < list.size(); ++i) {
    for (std::size_t j = i + 1; j < list.size(); ++j) {
      AppendPlain(list[i], list[j], points);
    }
    if (list[i] != nullptr) {
      RemoveNear(points, list[i]->GetStartPoint());
      RemoveNear(points, list[i]->GetEndPoint());
    }
    answer = answer || !points.empty();
  }
  return answer;
}

bool PlainMeeting(const GX2DElmList& list, const GX2DLine& line, bool unbounded) {
  for (const GX2DElement* const e : list) {
    GX2DPoint first;
    GX2DPoint second;
    if (const GX2DLine* const own = dynamic_cast<const GX2DLine*>(e)) {
      if (GXGeometry::Get2DLineIntersection(*own, line, first) &&
          GXGeometry::Point2DOnClosedLine(*own, first) > 0 &&
          (unbounded || GXGeometry::Point2DOnClosedLine(line, first) > 0)) {
        return true;
      }
    } else if (const GX2DArc* const arc = dynamic_cast<const GX2DArc*>(e)) {
      if (GXGeometry::Get2DLineArcIntersections(line, *arc, first, second)) {
        for (const GX2DPoint& hit : {first, second}) {
          if (GXGeometry::Point2DOnArc(*arc, hit) &&
              (unbounded || GXGeometry::Point2DOnClosedLine(line, hit) > 0)) {
            return true;
          }
        }
      }
    }
  }
  return false;
}

void ExpectSame(const GX2DPointList& actual, const Points& expected) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_SAME_BITS(actual[i]->X, expected[i].X);
    EXPECT_SAME_BITS(actual[i]->Y, expected[i].Y);
  }
}

/// Number of crossings between the lists, after all operations have been compared.
std::size_t Compare(GX2DElmList& list1, GX2DElmList& list2) {
  const Points expected = Plain(list1, list2);
  GX2DPointList points;
  EXPECT_TRUE(GXGeometry::GetIntersections(list1, list2, points));
  ExpectSame(points, expected);
  bool found = false;
  EXPECT_TRUE(GXGeometry::CheckIfIntersection(list1, list2, found));
  EXPECT_EQ(found, !expected.empty());

  Points expectedLeft;
  const bool answer = PlainSelfIntersection(list1, expectedLeft);
  EXPECT_EQ(GXGeometry::HasSelfIntersection(list1, points), answer);
  ExpectSame(points, expectedLeft);

  for (const GX2DElement* const e : list2) {
    if (const GX2DLine* const line = dynamic_cast<const GX2DLine*>(e)) {
      for (const bool unbounded : {false, true}) {
        found = false;
        EXPECT_TRUE(GXGeometry::CheckIfIntersection(list1, *line, unbounded, found));
        EXPECT_EQ(found, PlainMeeting(list1, *line, unbounded));
      }
    }
  }
  return expected.size();
}

/// A list of lines, and now and then an arc, a circle, a point or an empty entry.
template <typename Place>
void Fill(GX2DElmList& list, Random& random, int count, Place place) {
  for (int i = 0; i < count; ++i) {
    const GX2DPoint p = place();
    const double kind = random.Between(0, 1);
    if (kind < 0.6) {
      Add(list, GX2DLine(p, place()));
    } else if (kind < 0.85) {
      const GX2DPoint start = place();
      const GX2DPoint mid = place();
      Add(list, GX2DArc(p, start, mid, place()));
      support::At<GX2DArc>(list, list.size() - 1).Normalize();
    } else if (kind < 0.95) {
      Add(list, support::Circle(p.X, p.Y, random.Between(0.5, 5)));
    } else if (kind < 0.98) {
      Add(list, p);
    } else {
      list.push_back(nullptr);
    }
  }
}

template <typename Place>
std::size_t CompareRandomLists(Random& random, int rounds, int count, Place place) {
  std::size_t crossings = 0;
  for (int round = 0; round < rounds; ++round) {
    GX2DElmList list1;
    GX2DElmList list2;
    Fill(list1, random, random.Int(2, count), place);
    Fill(list2, random, random.Int(0, count), place);
    crossings += Compare(list1, list2);
  }
  return crossings;
}

TEST(IntersectionsOfManyElements, AreThoseOfThePlainLoopAnywhere) {
  Random random;
  EXPECT_GT(CompareRandomLists(random, 10, 150, [&] { return random.Point2D(20); }), 1000U);
}

TEST(IntersectionsOfManyElements, AreThoseOfThePlainLoopOnAGrid) {
  // Corners coincide, lines overlap, are level, upright, tangent or without length.
  Random random;
  const auto place = [&] {
    const int x = random.Int(-4, 4);
    return Point(x, random.Int(-4, 4));
  };
  EXPECT_GT(CompareRandomLists(random, 10, 150, place), 1000U);
}

TEST(IntersectionsOfManyElements, AreThoseOfThePlainLoopJustBesideAGrid) {
  // A little off the grid, on either side of each tolerance.
  Random random;
  const double offsets[] = {0, 0.000005, 0.00001, 0.000015, 0.00005, 0.0001, 0.00015};
  const auto off = [&] { return offsets[random.Int(0, 6)] * (random.Bool() ? 1 : -1); };
  const auto place = [&] {
    const double x = random.Int(-3, 3) + off();
    return Point(x, random.Int(-3, 3) + off());
  };
  EXPECT_GT(CompareRandomLists(random, 10, 150, place), 1000U);
}

TEST(IntersectionsOfManyElements, AreThoseOfThePlainLoopInATinyDrawing) {
  Random random;
  EXPECT_GT(CompareRandomLists(random, 5, 80, [&] { return random.Point2D(0.0002); }), 10U);
}

TEST(IntersectionsOfManyElements, AreThoseOfThePlainLoopFarFromTheOrigin) {
  Random random;
  for (const double shift : {1e5, 1e8, 1e12}) {
    CompareRandomLists(random, 4, 80, [&] {
      const GX2DPoint p = random.Point2D(20);
      return Point(p.X + shift, p.Y - shift);
    });
  }
}

TEST(IntersectionsOfManyElements, AreThoseOfThePlainLoopForNumbersThatAreNotFinite) {
  Random random;
  const double infinity = std::numeric_limits<double>::infinity();
  const double odd[] = {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 1e308};
  const auto number = [&] {
    return random.Int(0, 40) == 0 ? odd[random.Int(0, 3)] : random.Between(-10, 10);
  };
  CompareRandomLists(random, 10, 80, [&] {
    const double x = number();
    return Point(x, number());
  });
}

TEST(IntersectionsOfManyElements, AreThoseOfThePlainLoopForShortElementsAnywhere) {
  // Neighbours in the list lie anywhere in the drawing.
  Random random;
  for (int round = 0; round < 2; ++round) {
    GX2DElmList lists[2];
    for (GX2DElmList& list : lists) {
      // Two long ones in front, so that the first entries are crossed as well.
      Add(list, Line(-40, 3, 40, -2), Line(-3, -40, 2, 40));
      for (int i = 0; i < 800; ++i) {
        const GX2DPoint centre = random.Point2D(30);
        Fill(list, random, 1, [&] {
          const GX2DPoint offset = random.Point2D(1);
          return Point(centre.X + offset.X, centre.Y + offset.Y);
        });
      }
    }
    EXPECT_GT(Compare(lists[0], lists[1]), 100U);
  }
}

TEST(IntersectionsOfManyElements, AreThoseOfThePlainLoopForChains) {
  // Each line starts where the last one ended, as in a contour; both chains stay in one square.
  Random random;
  std::size_t crossings = 0;
  const auto step = [&](double from) {
    return std::clamp(from + random.Between(-3, 3), -15.0, 15.0);
  };
  for (int round = 0; round < 3; ++round) {
    GX2DElmList lists[2];
    for (GX2DElmList& list : lists) {
      GX2DPoint last = random.Point2D(15);
      for (int i = 0; i < 400; ++i) {
        const double x = step(last.X);
        const GX2DPoint next(x, step(last.Y));
        Add(list, GX2DLine(last, next));
        last = next;
      }
    }
    crossings += Compare(lists[0], lists[1]);
  }
  EXPECT_GT(crossings, 100U);
}

TEST(IntersectionsOfManyElements, FindTheJointsOfALongChain) {
  // A zigzag of 2000 lines crosses itself nowhere, and with the line through its middle at every
  // line.
  GX2DElmList chain;
  for (int i = 0; i < 2000; ++i) {
    Add(chain, Line(i, i % 2 == 0 ? -1 : 1, i + 1, i % 2 == 0 ? 1 : -1));
  }
  GX2DPointList points;
  EXPECT_FALSE(GXGeometry::HasSelfIntersection(chain, points));
  EXPECT_TRUE(points.empty());
  GX2DElmList middle;
  Add(middle, Line(-1, 0, 2001, 0));
  EXPECT_TRUE(GXGeometry::GetIntersections(middle, chain, points));
  ASSERT_EQ(points.size(), 2000U);
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_POINT_NEAR(*points[i], Point(static_cast<double>(i) + 0.5, 0), 1e-9);
  }
}

}  // namespace
