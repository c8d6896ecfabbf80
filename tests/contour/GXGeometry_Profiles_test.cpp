#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/ProfilePlane.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

using support::Add;
using support::ArcByAngles;
using support::Point;

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

double Above(double x) { return std::nextafter(x, kInfinity); }
double Below(double x) { return std::nextafter(x, -kInfinity); }

const GX3DPoint kPreset(-71, -72, -73);

/// Crossings of a line with a profile by both operations, which have to agree.
class ProfileCrossings : public support::ProfilePlane {
 protected:
  struct Answer {
    int count = -1;
    GX3DPoint first = kPreset;
    GX3DPoint second = kPreset;
    GX3DPoint last = kPreset;
  };

  static Answer Cross(const GX3DLine& line, GX3DElmList& profile) {
    Answer answer;
    EXPECT_EQ(GXGeometry::IntersectionPointProfile(line, answer.last, profile, Plane()), 0);
    answer.count =
        GXGeometry::IntersectionPointsProfile(line, answer.first, answer.second, profile, Plane());
    EXPECT_POINT_EQ(answer.last, answer.count == 2 ? answer.second : answer.first);
    EXPECT_EQ(answer.count == 0, answer.first == kPreset);
    EXPECT_EQ(answer.count < 2, answer.second == kPreset);
    return answer;
  }

  /// With a single line as the profile.
  static Answer Cross(const GX3DLine& line, const GX3DLine& element) {
    GX3DElmList profile;
    Add(profile, element);
    return Cross(line, profile);
  }
};

class IntersectionPointProfile : public ProfileCrossings {};
class IntersectionPointsProfile : public ProfileCrossings {};
INSTANTIATE_TEST_SUITE_P(Planes, IntersectionPointProfile, support::AllPlanes());
INSTANTIATE_TEST_SUITE_P(Planes, IntersectionPointsProfile, support::AllPlanes());

TEST_P(IntersectionPointProfile, ReturnsNothingEvenWhereItFoundACrossing) {
  GX3DElmList profile;
  AddPath(profile, {{5, -1}, {5, 3}});
  GX3DPoint point = kPreset;
  EXPECT_EQ(GXGeometry::IntersectionPointProfile(LineIn(0, 0, 8, 0), point, profile, Plane()), 0);
  EXPECT_POINT_EQ(point, In(5, 0));
}

TEST_P(IntersectionPointProfile, LeavesThePointAloneWithoutACrossing) {
  GX3DElmList profile;
  GX3DPoint point = kPreset;
  EXPECT_EQ(GXGeometry::IntersectionPointProfile(LineIn(0, 0, 8, 0), point, profile, Plane()), 0);
  EXPECT_POINT_EQ(point, kPreset);
  AddPath(profile, {{9, -1}, {9, 3}});
  EXPECT_EQ(GXGeometry::IntersectionPointProfile(LineIn(0, 0, 8, 0), point, profile, Plane()), 0);
  EXPECT_POINT_EQ(point, kPreset);
}

TEST_P(IntersectionPointProfile, KeepsTheLastCrossingInListOrder) {
  GX3DElmList profile;
  AddPath(profile, {{6, -1}, {6, 3}});
  AddPath(profile, {{2, -1}, {2, 3}});
  AddPath(profile, {{20, -1}, {20, 3}});
  GX3DPoint point = kPreset;
  EXPECT_EQ(GXGeometry::IntersectionPointProfile(LineIn(0, 0, 8, 0), point, profile, Plane()), 0);
  EXPECT_POINT_EQ(point, In(2, 0));
}

TEST_P(IntersectionPointProfile, CrossesSlopingLines) {
  // y = x / 2 and y = 6 - x meet at (4, 2).
  EXPECT_POINT_NEAR(Cross(LineIn(0, 0, 8, 4), LineIn(2, 4, 6, 0)).last, In(4, 2), 1e-14);
  EXPECT_POINT_NEAR(Cross(LineIn(8, 4, 0, 0), LineIn(6, 0, 2, 4)).last, In(4, 2), 1e-14);
}

TEST_P(IntersectionPointProfile, CrossesAnUprightElement) {
  // y = 1 + x / 4 at x = 2.
  EXPECT_POINT_NEAR(Cross(LineIn(0, 1, 8, 3), LineIn(2, 0, 2, 9)).last, In(2, 1.5), 1e-14);
  EXPECT_POINT_NEAR(Cross(LineIn(8, 3, 0, 1), LineIn(2, 9, 2, 0)).last, In(2, 1.5), 1e-14);
}

TEST_P(IntersectionPointProfile, CrossesWithAnUprightLine) {
  // y = 1 + x / 4 at x = 2.
  EXPECT_POINT_NEAR(Cross(LineIn(2, 0, 2, 9), LineIn(0, 1, 8, 3)).last, In(2, 1.5), 1e-14);
  EXPECT_POINT_NEAR(Cross(LineIn(2, 9, 2, 0), LineIn(8, 3, 0, 1)).last, In(2, 1.5), 1e-14);
}

TEST_P(IntersectionPointProfile, FindsNothingBetweenUprightOrParallelLines) {
  EXPECT_EQ(Cross(LineIn(2, 0, 2, 9), LineIn(2, 1, 2, 3)).count, 0);
  EXPECT_EQ(Cross(LineIn(2, 0, 2, 9), LineIn(3, 1, 3, 3)).count, 0);
  EXPECT_EQ(Cross(LineIn(0, 0, 8, 4), LineIn(0, 0, 8, 4)).count, 0);
  EXPECT_EQ(Cross(LineIn(0, 0, 8, 4), LineIn(0, 1, 8, 5)).count, 0);
}

TEST_P(IntersectionPointProfile, FindsNothingBeyondTheEndsOfEither) {
  EXPECT_EQ(Cross(LineIn(0, 0, 4, 0), LineIn(5, -1, 5, 1)).count, 0);
  EXPECT_EQ(Cross(LineIn(6, 0, 8, 0), LineIn(5, -1, 5, 1)).count, 0);
  EXPECT_EQ(Cross(LineIn(0, 2, 8, 2), LineIn(5, -1, 5, 1)).count, 0);
  EXPECT_EQ(Cross(LineIn(0, -2, 8, -2), LineIn(5, -1, 5, 1)).count, 0);
  EXPECT_EQ(Cross(LineIn(0, 0, 4, 2), LineIn(5, 0, 7, 8)).count, 0);
  EXPECT_EQ(Cross(LineIn(5, 1, 5, 9), LineIn(0, 0, 8, 0)).count, 0);
  EXPECT_EQ(Cross(LineIn(5, -9, 5, -1), LineIn(0, 0, 8, 0)).count, 0);
  EXPECT_EQ(Cross(LineIn(9, -1, 9, 1), LineIn(0, 0, 8, 0)).count, 0);
  EXPECT_EQ(Cross(LineIn(-1, -1, -1, 1), LineIn(0, 0, 8, 0)).count, 0);
}

TEST_P(IntersectionPointProfile, TakesTheDepthFromTheLineAndNotFromTheProfile) {
  // A quarter of the way from depth 2 to depth 6, whatever the depth of the element.
  EXPECT_POINT_NEAR(Cross(GX3DLine(In(0, 0, 2), In(8, 0, 6)), LineIn(2, -1, 2, 1, 100)).last,
                    In(2, 0, 3), 1e-14);
  EXPECT_POINT_NEAR(Cross(GX3DLine(In(2, -1, 2), In(2, 3, 6)), LineIn(0, 0, 8, 0, 100)).last,
                    In(2, 0, 3), 1e-14);
  EXPECT_POINT_NEAR(Cross(GX3DLine(In(0, 0, 2), In(8, 4, 6)), LineIn(2, 0, 3, 4, -9)).last,
                    // y = x / 2 and y = 4 x - 8 meet at x = 16/7, the share 2/7 of the line.
                    In(16.0 / 7, 8.0 / 7, 2 + 4 * 2.0 / 7), 1e-14);
}

TEST_P(IntersectionPointProfile, FindsNothingWhereTheLineEndsOnAnElement) {
  const GX3DLine element = LineIn(5, -1, 5, 1);
  EXPECT_EQ(Cross(LineIn(0, 0, 5, 0), element).count, 0);
  EXPECT_EQ(Cross(LineIn(5, 0, 9, 0), element).count, 0);
  EXPECT_EQ(Cross(LineIn(0, 0, 5.01, 0), element).count, 1);
}

TEST_P(IntersectionPointProfile, FindsNothingAtTheJointOfTwoElements) {
  GX3DElmList profile;
  AddPath(profile, {{5, -3}, {5, 0}, {6, 3}});
  EXPECT_EQ(Cross(LineIn(0, 0, 9, 0), profile).count, 0);
  EXPECT_EQ(Cross(LineIn(0, 0.01, 9, 0.01), profile).count, 1);
  EXPECT_EQ(Cross(LineIn(0, -0.01, 9, -0.01), profile).count, 1);
}

// Bounds. With one end at 0 and an extent of 1 the share is the coordinate itself.

TEST_P(IntersectionPointProfile, CountsStrictlyBetweenTheMarginsOfTheLine) {
  const GX3DLine level = LineIn(0, 0, 1, 0);
  const auto upright = [](double x) { return LineIn(x, -1, x, 1); };
  EXPECT_EQ(Cross(level, upright(0.0001)).count, 0);
  EXPECT_EQ(Cross(level, upright(Above(0.0001))).count, 1);
  EXPECT_EQ(Cross(level, upright(0.9999)).count, 0);
  EXPECT_EQ(Cross(level, upright(Below(0.9999))).count, 1);
  const GX3DLine standing = LineIn(0.5, 0, 0.5, 1);
  const auto across = [](double y) { return LineIn(0, y, 1, y); };
  EXPECT_EQ(Cross(standing, across(0.0001)).count, 0);
  EXPECT_EQ(Cross(standing, across(Above(0.0001))).count, 1);
  EXPECT_EQ(Cross(standing, across(0.9999)).count, 0);
  EXPECT_EQ(Cross(standing, across(Below(0.9999))).count, 1);
  // Sloping to level: the crossing of y = x - c with y = 0 is at c, up to rounding.
  const auto sloping = [](double c) { return LineIn(c - 1, -1, c + 1, 1); };
  EXPECT_EQ(Cross(level, sloping(0.000099)).count, 0);
  EXPECT_EQ(Cross(level, sloping(0.000101)).count, 1);
  EXPECT_EQ(Cross(level, sloping(0.999901)).count, 0);
  EXPECT_EQ(Cross(level, sloping(0.999899)).count, 1);
}

TEST_P(IntersectionPointProfile, CountsStrictlyBetweenTheMarginsOfTheElement) {
  const auto level = [](double y) { return LineIn(-1, y, 1.5, y); };
  for (const GX3DLine& element : {LineIn(0.5, 0, 0.5, 1), LineIn(0, 0, 1, 1)}) {
    EXPECT_EQ(Cross(level(0.0001), element).count, 0);
    EXPECT_EQ(Cross(level(Above(0.0001)), element).count, 1);
    EXPECT_EQ(Cross(level(0.9999), element).count, 0);
    EXPECT_EQ(Cross(level(Below(0.9999)), element).count, 1);
  }
  const auto upright = [](double x) { return LineIn(x, -1, x, 1); };
  EXPECT_EQ(Cross(upright(0.0001), LineIn(0, 0, 1, 0)).count, 0);
  EXPECT_EQ(Cross(upright(Above(0.0001)), LineIn(0, 0, 1, 0)).count, 1);
  EXPECT_EQ(Cross(upright(0.9999), LineIn(0, 0, 1, 0)).count, 0);
  EXPECT_EQ(Cross(upright(Below(0.9999)), LineIn(0, 0, 1, 0)).count, 1);
}

TEST_P(IntersectionPointProfile, MeasuresTheMarginAsAShareAndNotAsALength) {
  // 0.05 before the end of a line of 1000 is the share 0.99995.
  EXPECT_EQ(Cross(LineIn(0, 0, 1000, 0), LineIn(999.95, -1, 999.95, 1)).count, 0);
  EXPECT_EQ(Cross(LineIn(0, 0, 1000, 0), LineIn(999.85, -1, 999.85, 1)).count, 1);
}

TEST_P(IntersectionPointProfile, TakesALineForUprightBelow0_0001InX) {
  // Only a sloping line crosses an upright element.
  const GX3DLine upright = LineIn(0.00005, -1, 0.00005, 9);
  EXPECT_EQ(Cross(LineIn(0, 0, 0.0001, 1), upright).count, 1);
  EXPECT_EQ(Cross(LineIn(0, 0, Below(0.0001), 1), upright).count, 0);
  EXPECT_EQ(Cross(LineIn(0.0001, 0, 0, 1), upright).count, 1);
  EXPECT_EQ(Cross(LineIn(Below(0.0001), 0, 0, 1), upright).count, 0);
  // An upright one crosses at the x of its start.
  EXPECT_POINT_EQ(Cross(LineIn(0.00005, -1, 0, 1), LineIn(-1, 0, 1, 0)).last, In(0.00005, 0));
}

TEST_P(IntersectionPointProfile, FindsNothingForALineShorterThanTheGuard) {
  const GX3DLine across = LineIn(-1, 0.00005, 1, 0.00005);
  EXPECT_EQ(Cross(LineIn(0, 0, 0, 0.0001), across).count, 0);
  EXPECT_EQ(Cross(LineIn(0, 0, 0, Above(0.0001)), across).count, 1);
  EXPECT_EQ(Cross(LineIn(0, 0.0001, 0, 0), across).count, 0);
  EXPECT_EQ(Cross(LineIn(0, Above(0.0001), 0, 0), across).count, 1);
  EXPECT_EQ(Cross(GX3DLine(In(0, 0, 0), In(0, 0, 9)), LineIn(-1, 0, 1, 0)).count, 0);
}

TEST_P(IntersectionPointProfile, TakesAnElementForUprightBelow0_0001InX) {
  // As a sloping one it is met in its middle, as an upright one at the x of its start.
  const GX3DLine level = LineIn(-1, 0, 1, 0);
  EXPECT_POINT_NEAR(Cross(level, LineIn(0, -1, 0.0001, 1)).last, In(0.00005, 0), 1e-12);
  EXPECT_POINT_NEAR(Cross(level, LineIn(0, -1, Below(0.0001), 1)).last, In(0, 0), 1e-12);
  // An upright line meets none that is upright.
  const GX3DLine upright = LineIn(0.00005, -2, 0.00005, 2);
  EXPECT_EQ(Cross(upright, LineIn(0, -1, 0.0001, 1)).count, 1);
  EXPECT_EQ(Cross(upright, LineIn(0.0001, -1, 0, 1)).count, 1);
  EXPECT_EQ(Cross(upright, LineIn(0, -1, Below(0.0001), 1)).count, 0);
  EXPECT_EQ(Cross(upright, LineIn(Below(0.0001), -1, 0, 1)).count, 0);
}

TEST_P(IntersectionPointProfile, WantsAnUprightElementHigherThan0_0001) {
  const GX3DLine level = LineIn(-1, 0.00005, 1, 0.00005);
  EXPECT_EQ(Cross(level, LineIn(0, 0, 0, 0.0001)).count, 0);
  EXPECT_EQ(Cross(level, LineIn(0, 0, 0, Above(0.0001))).count, 1);
  EXPECT_EQ(Cross(level, LineIn(0, 0.0001, 0, 0)).count, 0);
  EXPECT_EQ(Cross(level, LineIn(0, Above(0.0001), 0, 0)).count, 1);
  EXPECT_EQ(Cross(LineIn(-1, 0, 1, 0), LineIn(0, 0, 0, 0)).count, 0);
}

TEST_P(IntersectionPointProfile, TakesSlopesForParallelUpTo0_0001) {
  // From (-1, -v) to (1, v) the slope is exactly v.
  const GX3DLine level = LineIn(-2, 0, 2, 0);
  EXPECT_EQ(Cross(level, LineIn(-1, -0.0001, 1, 0.0001)).count, 0);
  EXPECT_EQ(Cross(level, LineIn(-1, 0.0001, 1, -0.0001)).count, 0);
  const double above = Above(0.0001);
  EXPECT_EQ(Cross(level, LineIn(-1, -above, 1, above)).count, 1);
  EXPECT_EQ(Cross(level, LineIn(-1, above, 1, -above)).count, 1);
}

// Kinds.

TEST_P(IntersectionPointProfile, TakesAnArcByItsChord) {
  GX3DElmList profile;
  Add(profile, ArcIn(ArcByAngles(5, 0, 4, -90, 180)));  // from (5, -4) through (9, 0) to (5, 4)
  EXPECT_POINT_NEAR(Cross(LineIn(0, 1, 8, 1), profile).last, In(5, 1), 1e-12);
  EXPECT_POINT_NEAR(Cross(LineIn(0, 0, 8, 4), profile).last, In(5, 2.5), 1e-12);
}

TEST_P(IntersectionPointProfile, DoesNotSeeTheBulgeOfAnArc) {
  GX3DElmList profile;
  Add(profile, ArcIn(ArcByAngles(5, 0, 4, -90, 180)));
  EXPECT_EQ(Cross(LineIn(7, 1, 20, 1), profile).count, 0);
  EXPECT_EQ(Cross(LineIn(7, -9, 7, 9), profile).count, 0);
}

TEST_P(IntersectionPointProfile, PassesOverOtherKinds) {
  std::vector<std::string> log;  // outlives the profile
  GX3DElmList profile;
  profile.push_back(nullptr);
  profile.push_back(new support::Foreign3D(In(5, -1), In(5, 1)));
  Add(profile, In(5, 0));
  EXPECT_EQ(Cross(LineIn(0, 0, 8, 0), profile).count, 0);
  profile.push_back(new support::Logged<GX3DLine>(log, "derived", LineIn(6, -1, 6, 1)));
  EXPECT_POINT_EQ(Cross(LineIn(0, 0, 8, 0), profile).last, In(6, 0));
}

TEST_P(IntersectionPointProfile, DoesNotChangeTheProfile) {
  GX3DElmList profile;
  AddPath(profile, {{5, -1}, {5, 1}});
  Cross(LineIn(0, 0, 8, 0), profile);
  ASSERT_EQ(profile.size(), 1u);
  EXPECT_POINT_EQ(support::At<GX3DLine>(profile, 0), LineIn(5, -1, 5, 1));
}

TEST_P(IntersectionPointProfile, MayWriteIntoTheLine) {
  GX3DElmList profile;
  AddPath(profile, {{2, -1}, {2, 1}});
  AddPath(profile, {{6, -1}, {6, 1}});
  GX3DLine line(In(0, 0, 2), In(8, 0, 10));
  EXPECT_EQ(GXGeometry::IntersectionPointProfile(line, line.End, profile, Plane()), 0);
  EXPECT_POINT_NEAR(line.End, In(6, 0, 8), 1e-14);
}

// More than one.

TEST_P(IntersectionPointsProfile, CountsNoneOneAndMore) {
  GX3DElmList profile;
  const GX3DLine line = LineIn(0, 0, 8, 0);
  EXPECT_EQ(Cross(line, profile).count, 0);
  AddPath(profile, {{4, -1}, {4, 1}});
  const Answer one = Cross(line, profile);
  EXPECT_EQ(one.count, 1);
  EXPECT_POINT_EQ(one.first, In(4, 0));
  AddPath(profile, {{1, -1}, {1, 1}});
  const Answer two = Cross(line, profile);
  EXPECT_EQ(two.count, 2);
  EXPECT_POINT_EQ(two.first, In(4, 0));
  EXPECT_POINT_EQ(two.second, In(1, 0));
}

TEST_P(IntersectionPointsProfile, OfThreeHandsOutTheFirstAndTheThirdInListOrder) {
  GX3DElmList profile;
  AddPath(profile, {{4, -1}, {4, 1}});
  AddPath(profile, {{1, -1}, {1, 1}});
  AddPath(profile, {{9, -1}, {9, 1}});  // no crossing
  AddPath(profile, {{2, -1}, {2, 1}});
  const Answer three = Cross(LineIn(0, 0, 8, 0), profile);
  EXPECT_EQ(three.count, 2);
  EXPECT_POINT_EQ(three.first, In(4, 0));
  EXPECT_POINT_EQ(three.second, In(2, 0));
}

TEST_P(IntersectionPointsProfile, MixesLinesAndArcs) {
  GX3DElmList profile;
  Add(profile, ArcIn(ArcByAngles(6, 0, 1, 90, 180)));
  AddPath(profile, {{2, -1}, {2, 1}});
  const Answer both = Cross(GX3DLine(In(0, 0, 0), In(8, 0, 8)), profile);
  EXPECT_EQ(both.count, 2);
  EXPECT_POINT_NEAR(both.first, In(6, 0, 6), 1e-12);
  EXPECT_POINT_NEAR(both.second, In(2, 0, 2), 1e-12);
}

TEST_P(IntersectionPointsProfile, AgreesWithTheCrossProductForm) {
  support::Random random;
  int crossings = 0;
  for (int i = 0; i < 2000; ++i) {
    const GX2DLine a(random.Point2D(10), random.Point2D(10));
    const GX2DLine b(random.Point2D(10), random.Point2D(10));
    const long double ax = a.End.X - a.Start.X, ay = a.End.Y - a.Start.Y;
    const long double bx = b.End.X - b.Start.X, by = b.End.Y - b.Start.Y;
    const long double cross = ax * by - ay * bx;
    if (std::fabs(ax) < 0.1L || std::fabs(bx) < 0.1L || std::fabs(cross) < 0.1L) continue;
    const long double cx = b.Start.X - a.Start.X, cy = b.Start.Y - a.Start.Y;
    const long double t = (cx * by - cy * bx) / cross;
    const long double s = (cx * ay - cy * ax) / cross;
    const auto clear = [](long double share) {
      return std::fabs(share - 0.0001L) > 1e-9L && std::fabs(share - 0.9999L) > 1e-9L;
    };
    if (!clear(t) || !clear(s)) continue;
    const bool inside = t > 0.0001L && t < 0.9999L && s > 0.0001L && s < 0.9999L;
    const Answer answer = Cross(GX3DLine(In(a.Start.X, a.Start.Y, 1), In(a.End.X, a.End.Y, 3)),
                                LineIn(b.Start.X, b.Start.Y, b.End.X, b.End.Y));
    ASSERT_EQ(answer.count, inside ? 1 : 0) << i;
    if (!inside) continue;
    ++crossings;
    // Slopes up to 200 and offsets up to 2000 are held to some 1e-13.
    EXPECT_POINT_NEAR(answer.first,
                      In(static_cast<double>(a.Start.X + t * ax),
                         static_cast<double>(a.Start.Y + t * ay), static_cast<double>(1 + 2 * t)),
                      1e-8)
        << i;
  }
  EXPECT_GT(crossings, 200);
}

TEST_P(IntersectionPointsProfile, FindsNothingInCoordinatesThatAreNoNumbers) {
  for (const GX3DLine& line : {LineIn(kNaN, 0, 8, 0), LineIn(0, kNaN, 8, 0), LineIn(0, 0, kNaN, 0),
                               LineIn(0, 0, 8, kNaN), LineIn(3, kNaN, 3, 8)}) {
    EXPECT_EQ(Cross(line, LineIn(3, -1, 3, 1)).count, 0);
    EXPECT_EQ(Cross(line, LineIn(0, -1, 6, 1)).count, 0);
    EXPECT_EQ(Cross(LineIn(0, 0, 8, 0), line).count, 0);
    EXPECT_EQ(Cross(LineIn(3, -1, 3, 1), line).count, 0);
  }
}

TEST_P(IntersectionPointsProfile, SurvivesInfinitiesAndHugeNumbers) {
  for (const double odd : {kInfinity, -kInfinity, 1e308, -1e308, 1e-320}) {
    for (const GX3DLine& line : {LineIn(odd, 0, 8, 1), LineIn(0, odd, 8, 1), LineIn(0, 0, odd, odd),
                                 LineIn(3, odd, 3, 0), LineIn(-odd, -odd, odd, odd)}) {
      for (const GX3DLine& other : {line, LineIn(3, -1, 3, 1), LineIn(0, -1, 6, 1)}) {
        GX3DPoint first, second;
        GX3DElmList profile;
        Add(profile, other, line);
        const int count =
            GXGeometry::IntersectionPointsProfile(other, first, second, profile, Plane());
        EXPECT_TRUE(count >= 0 && count <= 2);
      }
    }
  }
}

TEST(ProfileCrossingsOfAnotherPlane, AreNone) {
  GX3DElmList profile;
  Add(profile, support::Line(5, -1, 0, 5, 1, 0));
  for (const int plane : {0, 4, -1, 1000000}) {
    GX3DPoint first = kPreset;
    GX3DPoint second = kPreset;
    const GX3DLine line(Point(0, 0, 0), Point(8, 0, 0));
    EXPECT_EQ(GXGeometry::IntersectionPointProfile(line, first, profile, plane), 0);
    EXPECT_EQ(GXGeometry::IntersectionPointsProfile(line, first, second, profile, plane), 0);
    EXPECT_POINT_EQ(first, kPreset);
    EXPECT_POINT_EQ(second, kPreset);
  }
}

}  // namespace
