#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Turn.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using support::Line;
using support::Point;

TEST(GX3DLine, IsBothTimesTheOriginByDefault) {
  EXPECT_POINT_EQ(GX3DLine(), Line(0, 0, 0, 0, 0, 0));
}

TEST(GX3DLine, IsMadeFromPointsOrVectors) {
  EXPECT_POINT_EQ(GX3DLine(Point(1, 2, 3), Point(4, 5, 6)),
                  (std::vector<double>{1, 2, 3, 4, 5, 6}));
  EXPECT_POINT_EQ(GX3DLine(GXVector(1, 2, 3), GXVector(4, 5, 6)), Line(1, 2, 3, 4, 5, 6));
}

TEST(GX3DLine, CopiesAreIndependent) {
  GX3DLine original = Line(1, 2, 3, 4, 5, 6);
  const GX3DLine copy(original);
  GX3DLine assigned;
  assigned = original;
  original.Start.X = 9;
  EXPECT_POINT_EQ(copy, Line(1, 2, 3, 4, 5, 6));
  EXPECT_POINT_EQ(assigned, Line(1, 2, 3, 4, 5, 6));
}

TEST(GX3DLine, HandsOutAndSetsItsOwnPoints) {
  GX3DLine line = Line(1, 2, 3, 4, 5, 6);
  EXPECT_EQ(&line.GetStartPoint(), &line.Start);
  EXPECT_EQ(&line.GetEndPoint(), &line.End);
  line.SetStartPoint(Point(7, 8, 9));
  EXPECT_POINT_EQ(line, Line(7, 8, 9, 4, 5, 6));
  line.SetEndPoint(line.Start);
  EXPECT_POINT_EQ(line, Line(7, 8, 9, 7, 8, 9));
}

TEST(GX3DLine, MovesAndScalesReachBothPoints) {
  GX3DLine line = Line(1, 2, 3, 4, 5, 6);
  line.Translate(GXVector(10, 20, 30));
  EXPECT_POINT_EQ(line, Line(11, 22, 33, 14, 25, 36));
  line.Scale(2, -1);
  EXPECT_POINT_EQ(line, Line(22, 44, 66, 28, 50, 72));
  line.ScaleX(0.5, -1);
  EXPECT_POINT_EQ(line, Line(11, 44, 66, 14, 50, 72));
  line.ScaleY(0.5, -1);
  EXPECT_POINT_EQ(line, Line(11, 22, 66, 14, 25, 72));
  line.ScaleZ(0.25, 0);
  EXPECT_POINT_EQ(line, Line(11, 22, 17, 14, 25, 18));  // 16.5 goes away from zero
}

TEST(GX3DLine, MirrorsReachBothPoints) {
  GX3DLine line = Line(1, 2, 3, 4, 5, 6);
  line.MirrorXY();
  EXPECT_POINT_EQ(line, Line(1, 2, -3, 4, 5, -6));
  line.MirrorYZ();
  EXPECT_POINT_EQ(line, Line(-1, 2, -3, -4, 5, -6));
  line.MirrorXZ();
  EXPECT_POINT_EQ(line, Line(-1, -2, -3, -4, -5, -6));
}

TEST(GX3DLine, TurnsAreThoseOfItsPoints) {
  const GX3DLine line = Line(1, 2, 3, 4, 5, 6);
  const GX3DLine axis = Line(3, 0, 1, 1, 1, 7);
  const GXRotation rotation(10, 20, 30, 5);
  GX3DLine x = line, y = line, z = line, about = line, by = line;
  x.RotateX(0.5);
  y.RotateY(0.5);
  z.RotateZ(0.5);
  about.RotateAxis(axis, 0.5);
  by.Rotate(rotation);
  for (GX3DPoint GX3DLine::*end : {&GX3DLine::Start, &GX3DLine::End}) {
    GX3DPoint px = line.*end, py = line.*end, pz = line.*end, pa = line.*end, pr = line.*end;
    px.RotateX(0.5);
    py.RotateY(0.5);
    pz.RotateZ(0.5);
    pa.RotateAxis(axis, 0.5);
    pr.Rotate(rotation);
    EXPECT_POINT_EQ(x.*end, px);
    EXPECT_POINT_EQ(y.*end, py);
    EXPECT_POINT_EQ(z.*end, pz);
    EXPECT_POINT_EQ(about.*end, pa);
    EXPECT_POINT_EQ(by.*end, pr);
  }
}

TEST(GX3DLine, TurnsAboutItselfByStaying) {
  const GX3DLine before = Line(1, 2, 3, 4, 5, 6);
  GX3DLine line = before;
  line.RotateAxis(line, 30);
  EXPECT_POINT_NEAR(line, before, support::TurnBound(before, before.End));
}

TEST(GX3DLine, FramesReachBothPoints) {
  const GXMatrix matrix(0, 1, 0, 0, 0, 1, 1, 0, 0);  // (x, y, z) becomes (y, z, x)
  GXVector vectors[3] = {GXVector(0, 1, 0), GXVector(0, 0, 1), GXVector(1, 0, 0)};
  const GXColBasedTransformMatrix frame(vectors);
  const GX3DPoint origin(1, 1, 1);
  GX3DLine a = Line(1, 2, 3, 4, 5, 6), b = a, c = a, d = a;
  a.TransformGloLoc(origin, matrix);
  EXPECT_POINT_EQ(a, Line(1, 2, 0, 4, 5, 3));
  b.TransformGloLoc(origin, frame);
  EXPECT_POINT_EQ(b, Line(1, 2, 0, 4, 5, 3));
  c.TransformLocGlo(origin, matrix);
  EXPECT_POINT_EQ(c, Line(3, 4, 2, 6, 7, 5));
  d.TransformLocGlo(origin, frame);
  EXPECT_POINT_EQ(d, Line(3, 4, 2, 6, 7, 5));
}

TEST(GX3DLine, TheOriginOfAFrameMayBeItsOwnStart) {
  GXVector vectors[3] = {GXVector(1, 0, 0), GXVector(0, 1, 0), GXVector(0, 0, 1)};
  const GXColBasedTransformMatrix frame(vectors);
  GX3DLine a = Line(1, 2, 3, 5, 7, 9), b = a, c = a, d = a;
  a.TransformGloLoc(a.GetStartPoint(), GXMatrix());
  EXPECT_POINT_EQ(a, Line(0, 0, 0, 4, 5, 6));
  b.TransformGloLoc(b.GetStartPoint(), frame);
  EXPECT_POINT_EQ(b, Line(0, 0, 0, 4, 5, 6));
  c.TransformLocGlo(c.GetStartPoint(), GXMatrix());
  EXPECT_POINT_EQ(c, Line(2, 4, 6, 6, 9, 12));
  d.TransformLocGlo(d.GetStartPoint(), frame);
  EXPECT_POINT_EQ(d, Line(2, 4, 6, 6, 9, 12));
}

TEST(GX3DLine, AScaleFactorMayBeItsOwnCoordinate) {
  GX3DLine line = Line(2, 3, 4, 5, 6, 7);
  line.Scale(line.Start.X, -1);
  EXPECT_POINT_EQ(line, Line(4, 6, 8, 10, 12, 14));
  GX3DLine deep = Line(2, 3, 4, 5, 6, 7);
  deep.ScaleZ(deep.Start.Z, -1);
  EXPECT_POINT_EQ(deep, Line(2, 3, 16, 5, 6, 28));
}

TEST(GX3DLine, ExtentIsThatOfTheEndsInAnyOrder) {
  for (const GX3DLine& line : {Line(1, 7, 4, 5, 2, 9), Line(5, 2, 9, 1, 7, 4)}) {
    EXPECT_EQ(line.GetMinX(), 1.0);
    EXPECT_EQ(line.GetMaxX(), 5.0);
    EXPECT_EQ(line.GetMinY(), 2.0);
    EXPECT_EQ(line.GetMaxY(), 7.0);
    EXPECT_EQ(line.GetMinZ(), 4.0);
    EXPECT_EQ(line.GetMaxZ(), 9.0);
  }
}

TEST(GX3DLine, IsActuallyAPointUpTo0_0001PerCoordinate) {
  const GX3DPoint p(1, 2, 3);
  EXPECT_TRUE(GX3DLine(p, p).IsActuallyAPoint());
  EXPECT_TRUE(Line(0, 0, 0, 0.0001, -0.0001, 0.0001).IsActuallyAPoint());
  EXPECT_FALSE(Line(0, 0, 0, 0, 0, std::nextafter(0.0001, 1)).IsActuallyAPoint());
}

TEST(GX3DLine, MidPointIsHalfTheSumPerCoordinate) {
  EXPECT_POINT_EQ(Line(1, 2, 3, 4, 8, 3).GetMidPoint(), Point(2.5, 5, 3));
}

TEST(GX3DLine, GetPointAtDistanceMeasuresAFractionOfTheLength) {
  const GX3DLine line = Line(0, 0, 0, 10, 20, 40);
  EXPECT_POINT_EQ(line.GetPointAtDistance(0.25, true), Point(2.5, 5, 10));
  EXPECT_POINT_EQ(line.GetPointAtDistance(0.25, false), Point(7.5, 15, 30));
  EXPECT_POINT_EQ(line.GetPointAtDistance(0.5, true), line.GetMidPoint());
  EXPECT_POINT_EQ(line.GetPointAtDistance(1, false), line.Start);
  EXPECT_POINT_EQ(line.GetPointAtDistance(2, true), Point(20, 40, 80));
}

TEST(GX3DLine, LengthIsEuclidean) {
  EXPECT_EQ(Line(1, 1, 1, 3, 4, 7).Len(), 7.0);  // 4 + 9 + 36
  EXPECT_EQ(Line(3, 4, 5, 3, 4, 5).Len(), 0.0);
  EXPECT_EQ(Line(0, 0, 0, 1e-200, 0, 0).Len(), 0.0);
}

TEST(GX3DLine, SwapPointsSwapsTheEnds) {
  GX3DLine line = Line(1, 2, 3, 4, 5, 6);
  line.SwapPoints();
  EXPECT_POINT_EQ(line, Line(4, 5, 6, 1, 2, 3));
}

/// The four pairings of line and arc, each with the common points of the same ends.
template <typename Pair>
class HasEqualPoint : public testing::Test {
 protected:
  static GX3DLine Make(const GX3DLine* /*kind*/, const GX3DPoint& start, const GX3DPoint& end) {
    return {start, end};
  }
  static GX3DArc Make(const GX3DArc* /*kind*/, const GX3DPoint& start, const GX3DPoint& end) {
    return {Point(70, 70, 70), start, Point(80, 80, 80), end};
  }
  /// The common point of an element from a to b with one from c to d, the preset when there is
  /// none.
  static GX3DPoint Common(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                          const GX3DPoint& d) {
    auto one = Make(static_cast<typename Pair::first_type*>(nullptr), a, b);
    auto other = Make(static_cast<typename Pair::second_type*>(nullptr), c, d);
    GX3DPoint out(-77, -77, -77);
    const bool found = one.HasEqualPoint(other, out);
    EXPECT_EQ(found, out != Point(-77, -77, -77));
    return out;
  }
};

using Pairings = testing::Types<std::pair<GX3DLine, GX3DLine>, std::pair<GX3DLine, GX3DArc>,
                                std::pair<GX3DArc, GX3DLine>, std::pair<GX3DArc, GX3DArc>>;
struct PairingNames {
  template <typename Pair>
  static std::string GetName(int /*position*/) {
    const auto name = [](bool isLine) { return isLine ? "Line" : "Arc"; };
    return std::string(name(std::is_same_v<typename Pair::first_type, GX3DLine>)) + "With" +
           name(std::is_same_v<typename Pair::second_type, GX3DLine>);
  }
};
TYPED_TEST_SUITE(HasEqualPoint, Pairings, PairingNames);

TYPED_TEST(HasEqualPoint, HandsOutTheCoordinatesOfTheOther) {
  const GX3DPoint p(0, 0, 0), near(0.0001, -0.0001, 0.0001), q(5, 0, 0), r(9, 9, 9);
  EXPECT_POINT_EQ(this->Common(p, q, near, r), near);  // start with start
  EXPECT_POINT_EQ(this->Common(p, q, r, near), near);  // start with end
  EXPECT_POINT_EQ(this->Common(q, p, near, r), near);  // end with start
  EXPECT_POINT_EQ(this->Common(q, p, r, near), near);  // end with end
}

TYPED_TEST(HasEqualPoint, TestsTheStartOfThisFirst) {
  const GX3DPoint p(0, 0, 0), q(5, 0, 0), nearP(0.00005, 0, 0), nearQ(5.00005, 0, 0);
  EXPECT_POINT_EQ(this->Common(p, q, nearP, nearQ), nearP);
  EXPECT_POINT_EQ(this->Common(p, q, nearQ, nearP), nearP);
}

TYPED_TEST(HasEqualPoint, TestsTheStartOfTheOtherBeforeItsEnd) {
  const GX3DPoint p(0, 0, 0), q(5, 0, 0), one(0.00005, 0, 0), two(-0.00005, 0, 0);
  EXPECT_POINT_EQ(this->Common(p, q, one, two), one);
  EXPECT_POINT_EQ(this->Common(q, p, one, two), one);
}

TYPED_TEST(HasEqualPoint, WithoutOneWritesNothing) {
  const GX3DPoint p(0, 0, 0), q(5, 0, 0), beyond(std::nextafter(0.0001, 1), 0, 0), r(9, 9, 9);
  EXPECT_POINT_EQ(this->Common(p, q, beyond, r), Point(-77, -77, -77));
}

}  // namespace
