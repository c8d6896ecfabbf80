// ConvertTo3DPointList: which points of a contour are listed, and where those of an arc lie.
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
using support::kPi;

std::vector<GX3DPointBoolPair> Points(GX3DElmList& list) {
  GX3DPointBoolPairList out;
  list.ConvertTo3DPointList(out);
  return {out.begin(), out.end()};
}

std::vector<bool> Flags(const std::vector<GX3DPointBoolPair>& points) {
  std::vector<bool> flags;
  for (const GX3DPointBoolPair& point : points) {
    flags.push_back(point.second);
  }
  return flags;
}

/// An arc in the plane Z = 7 from an angle on through a sweep, in degrees.
GX3DArc ArcAtHeight7(double radius, double from, double sweep) {
  return support::Arc3D(support::ArcByAngles(0, 0, radius, from, sweep), 7);
}
GX3DPoint AtHeight7(double radius, double degrees) {
  const GX2DPoint p = support::OnCircle(0, 0, radius, degrees);
  return {p.X, p.Y, 7};
}

TEST(ConvertTo3DPointList, OfNothingAppendsNothing) {
  GX3DElmList list;
  EXPECT_TRUE(Points(list).empty());
}

TEST(ConvertTo3DPointList, OfALineAppendsStartAndEnd) {
  GX3DElmList list;
  support::Add(list, support::Line(1, 2, 3, 4, 5, 6));
  const auto points = Points(list);
  ASSERT_EQ(points.size(), 2u);
  EXPECT_POINT_EQ(points[0].first, support::Point(1, 2, 3));
  EXPECT_POINT_EQ(points[1].first, support::Point(4, 5, 6));
  EXPECT_EQ(Flags(points), (std::vector<bool>{false, false}));
}

TEST(ConvertTo3DPointList, OnlyTheFirstElementGivesItsStart) {
  GX3DElmList list;
  support::Add(list, support::Line(0, 0, 0, 1, 0, 0), support::Line(50, 0, 0, 60, 0, 0));
  const auto points = Points(list);
  ASSERT_EQ(points.size(), 3u);
  EXPECT_POINT_EQ(points[1].first, support::Point(1, 0, 0));
  EXPECT_POINT_EQ(points[2].first, support::Point(60, 0, 0));
}

TEST(ConvertTo3DPointList, AppendsBehindWhatIsThere) {
  GX3DPointBoolPairList out;
  out.push_back(GX3DPointBoolPair(support::Point(9, 9, 9), true));
  GX3DElmList list;
  support::Add(list, support::Line(0, 0, 0, 1, 0, 0), ArcAtHeight7(10, 0, 12));
  list.ConvertTo3DPointList(out);
  // 12 degrees take 3 steps: two points on the way and the end.
  ASSERT_EQ(out.size(), 5u);
  EXPECT_EQ(out.front(), GX3DPointBoolPair(support::Point(9, 9, 9), true));
  EXPECT_POINT_EQ(std::next(out.begin())->first, support::Point(1, 0, 0));
  EXPECT_POINT_EQ(out.back().first, ArcAtHeight7(10, 0, 12).End);
}

TEST(ConvertTo3DPointList, WalksAnArcInEqualStepsOfAtMostFiveDegrees) {
  GX3DElmList list;
  support::Add(list, ArcAtHeight7(10, 20, 47));  // 9.4 steps, so 10 of 4.7 degrees
  const auto points = Points(list);
  ASSERT_EQ(points.size(), 11u);
  EXPECT_POINT_EQ(points.front().first, ArcAtHeight7(10, 20, 47).Start);
  EXPECT_POINT_EQ(points.back().first, ArcAtHeight7(10, 20, 47).End);
  for (std::size_t i = 1; i < 10; ++i) {
    // The angle comes from an arc cosine: good to about 1e-15, times radius and steps.
    EXPECT_POINT_NEAR(points[i].first, AtHeight7(10, 20 + 4.7 * static_cast<double>(i)), 1e-12);
    EXPECT_TRUE(points[i].second);
  }
  EXPECT_FALSE(points.front().second);
  EXPECT_FALSE(points.back().second);
}

TEST(ConvertTo3DPointList, FollowsTheSideOfMid) {
  GX3DElmList clockwise;
  support::Add(clockwise, ArcAtHeight7(10, 20, -47));
  const auto points = Points(clockwise);
  ASSERT_EQ(points.size(), 11u);
  EXPECT_POINT_NEAR(points[3].first, AtHeight7(10, 20 - 3 * 4.7), 1e-12);

  GX3DElmList wayRound;
  support::Add(wayRound, ArcAtHeight7(10, 20, 247));  // 49.4 steps
  const auto longWay = Points(wayRound);
  ASSERT_EQ(longWay.size(), 51u);
  EXPECT_POINT_NEAR(longWay[30].first, AtHeight7(10, 20 + 30 * 247 / 50.0), 1e-12);
}

TEST(ConvertTo3DPointList, AHalfCircleTakesThirtySixSteps) {
  GX3DElmList list;
  support::Add(list, support::Arc3D(support::Arc(0, 0, 10, 0, 0, 10, -10, 0), 0));
  const auto points = Points(list);
  ASSERT_EQ(points.size(), 37u);
  EXPECT_POINT_NEAR(points[18].first, support::Point(0, 10, 0), 1e-12);
}

TEST(ConvertTo3DPointList, AFullCircleTakesSeventyTwoStepsAndDropsTheRepeatedStart) {
  GX3DElmList list;
  support::Add(list, support::Arc3D(support::Circle(3, 4, 10), 0));
  const auto points = Points(list);
  ASSERT_EQ(points.size(), 72u);
  EXPECT_POINT_EQ(points.front().first, support::Point(13, 4, 0));
  EXPECT_FALSE(points.front().second);
  EXPECT_POINT_NEAR(points[18].first, support::Point(3, 14, 0), 1e-12);
  EXPECT_TRUE(points.back().second);
}

TEST(ConvertTo3DPointList, TheSagOfFiveRulesForVeryLargeRadii) {
  // 2 arccos(1 - 5 / 10000) = 3.6241 degrees, so 80 degrees take 22.07 steps, and not 16.
  GX3DElmList list;
  support::Add(list, ArcAtHeight7(10000, 0, 80));
  const auto points = Points(list);
  ASSERT_EQ(points.size(), 24u);
  EXPECT_POINT_NEAR(points[7].first, AtHeight7(10000, 7 * 80 / 23.0), 1e-8);
}

TEST(ConvertTo3DPointList, FiveDegreesRuleBelowARadiusOfAboutFiveThousand) {
  // The two are equal at 5 / (1 - cos 2.5 degrees) = 5253. 79.5 degrees are 15.9 steps of 5
  // degrees, and 16.12 steps of the 2 arccos(1 - 5 / 5400) = 4.9316 degrees of a radius of 5400.
  GX3DElmList capped;
  support::Add(capped, ArcAtHeight7(5200, 0, 79.5));
  EXPECT_EQ(Points(capped).size(), 17u);
  GX3DElmList sagging;
  support::Add(sagging, ArcAtHeight7(5400, 0, 79.5));
  EXPECT_EQ(Points(sagging).size(), 18u);
}

TEST(ConvertTo3DPointList, RadiiBelowTheSagTakeFiveDegreesToo) {
  for (const double radius : {0.5, 3.0, 5.0}) {
    GX3DElmList list;
    support::Add(list, ArcAtHeight7(radius, 0, 47));
    EXPECT_EQ(Points(list).size(), 11u) << radius;
  }
}

TEST(ConvertTo3DPointList, AnArcOfOneStepAddsNothingNotEvenItsEnd) {
  GX3DElmList list;
  support::Add(list, support::Line(10, -5, 7, 10, 0, 7), ArcAtHeight7(10, 0, 4.5));
  const auto points = Points(list);
  ASSERT_EQ(points.size(), 2u);
  EXPECT_POINT_EQ(points.back().first, support::Point(10, 0, 7));
}

TEST(ConvertTo3DPointList, AFirstArcOfOneStepGivesItsStartAlone) {
  GX3DElmList list;
  const GX3DArc arc = ArcAtHeight7(10, 0, 4.5);
  support::Add(list, arc, GX3DLine(arc.End, support::Point(0, 0, 0)));
  const auto points = Points(list);
  ASSERT_EQ(points.size(), 2u);
  EXPECT_POINT_EQ(points[0].first, arc.Start);
  EXPECT_POINT_EQ(points[1].first, support::Point(0, 0, 0));
}

TEST(ConvertTo3DPointList, AnArcOfTwoStepsAddsOnePointAndItsEnd) {
  GX3DElmList list;
  support::Add(list, ArcAtHeight7(10, 0, 6));
  const auto points = Points(list);
  ASSERT_EQ(points.size(), 3u);
  EXPECT_POINT_NEAR(points[1].first, AtHeight7(10, 3), 1e-12);
  EXPECT_EQ(Flags(points), (std::vector<bool>{false, true, false}));
}

TEST(ConvertTo3DPointList, TwoHalfCirclesRepeatNoFirstPoint) {
  GX3DElmList list;
  support::Add(list, support::Arc3D(support::Arc(0, 0, 10, 0, 0, 10, -10, 0), 0),
               support::Arc3D(support::Arc(0, 0, -10, 0, 0, -10, 10, 0), 0));
  const auto points = Points(list);
  // 1 + 36 + 36, less the last, which lies on the first.
  ASSERT_EQ(points.size(), 72u);
  EXPECT_TRUE(points.back().second);
}

TEST(ConvertTo3DPointList, AClosedTriangleGivesItsThreeCorners) {
  GX3DElmList list;
  support::AddPolygon(list, {{0, 0, 0}, {4, 0, 0}, {4, 3, 1}});
  EXPECT_EQ(Points(list).size(), 3u);
}

TEST(ConvertTo3DPointList, TheLastPointGoesWithinATenThousandthOfTheFirst) {
  const double beyond = std::nextafter(0.0001, 1.0);
  for (const bool apart : {false, true}) {
    GX3DElmList list;
    support::Add(list, support::Line(0, 0, 0, 4, 0, 0),
                 support::Line(4, 0, 0, 0.0001, -0.0001, apart ? beyond : 0.0001));
    EXPECT_EQ(Points(list).size(), apart ? 3u : 2u);
  }
}

TEST(ConvertTo3DPointList, TwoPointsStayEvenIfTheyCoincide) {
  GX3DElmList list;
  support::Add(list, support::Line(1, 1, 1, 1, 1, 1));
  EXPECT_EQ(Points(list).size(), 2u);
}

TEST(ConvertTo3DPointList, RemovesOneRepetitionOnly) {
  GX3DElmList list;
  support::Add(list, support::Line(1, 1, 1, 1, 1, 1), support::Line(1, 1, 1, 1, 1, 1));
  EXPECT_EQ(Points(list).size(), 2u);
}

TEST(ConvertTo3DPointList, AnEmptyListStillClosesWhatIsThere) {
  GX3DPointBoolPairList out;
  for (const double x : {0.0, 1.0, 0.0}) {
    out.push_back(GX3DPointBoolPair(support::Point(x, 0, 0), true));
  }
  GX3DElmList list;
  list.ConvertTo3DPointList(out);
  EXPECT_EQ(out.size(), 2u);
}

TEST(ConvertTo3DPointList, OtherKindsAndNullEntriesAddNothing) {
  GX3DElmList list;
  support::Add(list, support::Point(9, 9, 9),
               support::Foreign3D(support::Point(0, 0, 0), support::Point(1, 1, 1)));
  list.push_back(nullptr);
  support::Add(list, support::Line(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(Points(list).size(), 2u);
}

TEST(ConvertTo3DPointList, ChangesNoElement) {
  GX3DElmList list;
  const GX3DArc arc = ArcAtHeight7(10, 20, 47);
  support::Add(list, arc);
  Points(list);
  EXPECT_POINT_EQ(support::At<GX3DArc>(list, 0), arc);
}

TEST(ConvertTo3DPointList, ArcsInAnyPlaneAreWalkedInTheirPlane) {
  support::Random random;
  for (int round = 0; round < 100; ++round) {
    // An orthonormal frame by Gram and Schmidt.
    GXVector x = random.Vector3D(1);
    GXVector y = random.Vector3D(1);
    const double lengthX = std::sqrt(x.X * x.X + x.Y * x.Y + x.Z * x.Z);
    ASSERT_GT(lengthX, 0.0);
    x = GXVector(x.X / lengthX, x.Y / lengthX, x.Z / lengthX);
    const double along = x.X * y.X + x.Y * y.Y + x.Z * y.Z;
    y = GXVector(y.X - along * x.X, y.Y - along * x.Y, y.Z - along * x.Z);
    const double lengthY = std::sqrt(y.X * y.X + y.Y * y.Y + y.Z * y.Z);
    if (lengthY < 0.1) {
      continue;
    }
    y = GXVector(y.X / lengthY, y.Y / lengthY, y.Z / lengthY);
    const GX3DPoint centre = random.Point3D(100);
    const double radius = random.Between(1, 50);
    const auto on = [&](double radians) {
      const double c = radius * std::cos(radians);
      const double s = radius * std::sin(radians);
      return GX3DPoint(centre.X + c * x.X + s * y.X, centre.Y + c * x.Y + s * y.Y,
                       centre.Z + c * x.Z + s * y.Z);
    };
    // Between two multiples of the step, so that rounding does not decide the count.
    const int steps = random.Int(2, 60);
    const double sweep = (steps - random.Between(0.2, 0.8)) * kPi / 36;
    GX3DElmList list;
    support::Add(list, GX3DArc(centre, on(0), on(sweep / 2), on(sweep)));
    const auto points = Points(list);
    ASSERT_EQ(points.size(), static_cast<std::size_t>(steps) + 1);
    for (int i = 1; i < steps; ++i) {
      // The sweep comes from an arc cosine, whose error near 0 and pi is the square root of that
      // of the cosine: about 1e-8 at worst for sweeps that keep away from them as these do.
      ASSERT_POINT_NEAR(points[static_cast<std::size_t>(i)].first, on(sweep * i / steps), 1e-8);
    }
  }
}

TEST(ConvertTo3DPointList, ACircleWithMidOppositeItsStartFoldsOntoALineAlongX) {
  // Start, mid and center span no plane: the second and third row of the frame are null and it has
  // no inverse. It stays as it is, so that X becomes the stepped vector (10 cos, 10 sin, 0) times
  // the unit vector to the start, and nothing is added to Y and Z.
  for (const bool alongY : {false, true}) {
    const GXVector towards = alongY ? GXVector(0, 10, 0) : GXVector(10, 0, 0);
    const GX3DPoint center(3, 4, 5);
    GX3DElmList list;
    support::Add(list, GX3DArc(center, center + towards, center - towards, center + towards));
    const auto points = Points(list);
    ASSERT_EQ(points.size(), 72u);
    for (std::size_t i = 1; i < points.size(); ++i) {
      const double radians = kPi / 36 * static_cast<double>(i);
      const double x = alongY ? std::sin(radians) : std::cos(radians);
      EXPECT_POINT_NEAR(points[i].first, support::Point(3 + 10 * x, 4, 5), 1e-12);
    }
  }
}

TEST(ConvertTo3DPointList, ArcsWithoutSweepGiveTheirStartAlone) {
  GX3DElmList list;
  support::Add(list, GX3DArc(support::Point(0, 0, 0), support::Point(10, 0, 0),
                             support::Point(5, 0, 0), support::Point(0, 10, 0)));
  EXPECT_EQ(Points(list).size(), 1u);
}

TEST(ConvertTo3DPointList, EndsForArcsThatAreNoPlaces) {
  for (const double bad : {kNaN, kInf}) {
    for (int field = 0; field < 4; ++field) {
      GX3DArc arc = ArcAtHeight7(10, 0, 90);
      GX3DPoint* const points[] = {&arc.Start, &arc.Mid, &arc.End, &arc.Center};
      points[field]->Y = bad;
      GX3DElmList list;
      support::Add(list, arc);
      EXPECT_LE(Points(list).size(), 1000002u);
    }
  }
}

TEST(ConvertTo3DPointList, AMillionPointsAreTheMostThatOneCallAdds) {
  // 1 - 5 / 1e18 is 1: the step has no length and no number of steps would do.
  GX3DElmList list;
  for (int i = 0; i < 2; ++i) {
    support::Add(list, support::Arc3D(support::Arc(0, 0, 1e18, 0, 0, 1e18, -1e18, 0), 0));
  }
  const std::size_t count = Points(list).size();
  EXPECT_GT(count, 72u);
  EXPECT_LE(count, 1000200u);
}

}  // namespace
