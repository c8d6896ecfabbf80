// Straight continuations become one line, arcs of one circle one arc.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Twins.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using support::Chain;
using support::Seg;

using Log = std::vector<std::string>;

/// The twin's arc through four points.
template <typename Twin>
typename Twin::Arc ArcOf(const GX2DArc& a) {
  return {Twin::At(a.Center.X, a.Center.Y), Twin::At(a.Start.X, a.Start.Y),
          Twin::At(a.Mid.X, a.Mid.Y), Twin::At(a.End.X, a.End.Y)};
}

template <typename Twin>
class Stitch : public testing::Test {
 public:
  using LoggedLine = support::Logged<typename Twin::Line>;
  using LoggedArc = support::Logged<typename Twin::Arc>;

  Chain<Twin> contour;
  Log log;

  LoggedLine* AddLine(const std::string& name, double x1, double y1, double x2, double y2) {
    return contour.Take(new LoggedLine(log, name, Seg<Twin>(x1, y1, x2, y2)));
  }
  LoggedArc* AddArc(const std::string& name, const GX2DArc& arc) {
    return contour.Take(new LoggedArc(log, name, ArcOf<Twin>(arc)));
  }
  void Run(bool lines = true, bool arcs = true) {
    EXPECT_TRUE(GXGeometry::Stitch(contour.list, lines, arcs));
  }
  ~Stitch() override { contour.list.ClearWithContents(); }
};
TYPED_TEST_SUITE(Stitch, support::BothTwins, support::TwinNames);

TYPED_TEST(Stitch, DoesNothingBelowTwoElements) {
  this->Run();
  auto* const circle = this->AddArc("a", support::Circle(0, 0, 5));
  this->Run();
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({circle}));
  EXPECT_POINT_EQ(*circle, ArcOf<TypeParam>(support::Circle(0, 0, 5)));
}

TYPED_TEST(Stitch, KeepsTheLastOfARunOfLines) {
  this->AddLine("a", 0, 0, 1, 1);
  this->AddLine("b", 1, 1, 3, 3);
  auto* const c = this->AddLine("c", 3, 3, 4, 4);
  this->Run();
  EXPECT_EQ(this->log, (Log{"a", "b"}));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({c}));
  EXPECT_POINT_EQ(*c, Seg<TypeParam>(0, 0, 4, 4));
}

TYPED_TEST(Stitch, LeavesALineThatTurnsBack) {
  this->AddLine("a", 0, 0, 10, 0);
  this->AddLine("b", 10, 0, 4, 0);
  this->AddLine("c", 4, 0, 4, 4);
  this->Run();
  EXPECT_EQ(this->log, Log());
}

TYPED_TEST(Stitch, AsksForAParameterStrictlyAboveOne) {
  this->AddLine("a", 0, 0, 10, 0);
  auto* const b = this->AddLine("b", 10, 0, 10, 0);
  this->AddLine("c", 10, 0, 10, 4);
  this->Run();
  EXPECT_EQ(this->log, Log());
  b->End = TypeParam::At(10.0000001, 0);
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
}

TYPED_TEST(Stitch, LeavesALineOfLengthZeroBeforeAnother) {
  this->AddLine("zero", 0, 0, 0, 0);  // in line with everything, but every parameter on it is 0
  this->AddLine("b", 0, 0, 3, 4);
  this->AddLine("c", 3, 4, 0, 9);
  this->Run();
  EXPECT_EQ(this->log, Log());
}

TYPED_TEST(Stitch, AsksForEndsWithinOneTenThousandth) {
  this->AddLine("a", -10, 0, 0, 0);
  auto* const b = this->AddLine("b", 0.0001, -0.0001, 4, 0);
  this->AddLine("c", 4.00011, 0, 9, 0);
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(-10, 0, 4, 0));
}

/// Whether a line on to a point `off` the first line counts as its continuation.
template <typename Twin>
bool JoinsAt(double off) {
  Chain<Twin> chain;
  chain.AddLine(0, 0, 10, 0);
  chain.AddLine(10, 0, 20, off);
  chain.AddLine(20, off, 20, 9);
  EXPECT_TRUE(GXGeometry::Stitch(chain.list, true, true));
  return chain.list.size() == 2;
}

TYPED_TEST(Stitch, TakesLinesWithinOneHundredThousandthForCollinearInBothTwins) {
  EXPECT_TRUE(JoinsAt<TypeParam>(0.000009));
  EXPECT_FALSE(JoinsAt<TypeParam>(0.00001));  // strict
  EXPECT_FALSE(JoinsAt<TypeParam>(0.00005));
}

TYPED_TEST(Stitch, JoinsTheLastWithTheFirst) {
  auto* const first = this->AddLine("first", 5, 0, 10, 0);
  auto* const second = this->AddLine("second", 10, 0, 5, 8);
  auto* const third = this->AddLine("third", 5, 8, 0, 0);
  this->AddLine("last", 0, 0, 5, 0);
  this->Run();
  EXPECT_EQ(this->log, (Log{"last"}));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({first, second, third}));
  EXPECT_POINT_EQ(*first, Seg<TypeParam>(0, 0, 10, 0));
}

TYPED_TEST(Stitch, StitchesOnlyTheKindsAskedFor) {
  this->AddLine("a", 0, 0, 1, 0);
  this->AddLine("b", 1, 0, 5, 0);
  this->AddArc("c", support::Arc(0, 0, 5, 0, 3, 4, 0, 5));
  this->AddArc("d", support::Arc(0, 0, 0, 5, -3, 4, -5, 0));
  this->Run(false, false);
  EXPECT_EQ(this->log, Log());
  this->Run(false, true);
  EXPECT_EQ(this->log, (Log{"c"}));
  this->Run(true, false);
  EXPECT_EQ(this->log, (Log{"c", "a"}));
}

TYPED_TEST(Stitch, PassesOverOtherKindsAndPairsOfLineAndArc) {
  Chain<TypeParam>& chain = this->contour;
  this->AddLine("a", 0, 0, 1, 0);
  chain.AddPoint(1, 0);
  this->AddLine("b", 1, 0, 5, 0);
  this->AddArc("c", support::Arc(0, 0, 5, 0, 3, 4, 0, 5));
  chain.AddForeign(0, 5, 0, 5);
  this->AddArc("d", support::Arc(0, 0, 0, 5, -3, 4, -5, 0));
  this->Run();
  EXPECT_EQ(this->log, Log());
}

TYPED_TEST(Stitch, ContinuesAnArcOfTheSameSense) {
  for (const bool reversed : {false, true}) {
    Chain<TypeParam> chain;
    const GX2DArc a =
        reversed ? support::Arc(0, 0, -5, 0, -3, 4, 0, 5) : support::Arc(0, 0, 5, 0, 4, 3, 0, 5);
    const GX2DArc b =
        reversed ? support::Arc(0, 0, 0, 5, 3, 4, 4, 3) : support::Arc(0, 0, 0, 5, -3, 4, -4, 3);
    chain.Take(new typename TypeParam::Arc(ArcOf<TypeParam>(a)));
    auto* const kept = chain.Take(new typename TypeParam::Arc(ArcOf<TypeParam>(b)));
    EXPECT_TRUE(GXGeometry::Stitch(chain.list, true, true));
    EXPECT_EQ(chain.Entries(), chain.Order({kept}));
    // Only the start moves; mid stays where it was.
    EXPECT_POINT_EQ(*kept, ArcOf<TypeParam>(GX2DArc(b.Center, a.Start, b.Mid, b.End)));
  }
}

TYPED_TEST(Stitch, ClosesACircleOfTheSameSenseWithTheEndOnTheMid) {
  this->AddArc("a", support::Arc(0, 0, 5, 0, 0, 5, -5, 0));
  auto* const b = this->AddArc("b", support::Arc(0, 0, -5, 0, 0, -5, 5, 0));
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({b}));
  EXPECT_POINT_EQ(*b, ArcOf<TypeParam>(support::Arc(0, 0, -5, 0, 0, -5, 0, -5)));
}

TYPED_TEST(Stitch, TellsTheSenseByAMidThatStaysBehind) {
  // Quarters, counter-clockwise. With the first two taken up the third starts at (5, 0), and seen
  // from there its mid lies clockwise: the fourth is of the opposite sense and stays.
  const double h = 5 * std::sqrt(0.5);
  this->AddArc("a", support::Arc(0, 0, 5, 0, h, h, 0, 5));
  this->AddArc("b", support::Arc(0, 0, 0, 5, -h, h, -5, 0));
  auto* const c = this->AddArc("c", support::Arc(0, 0, -5, 0, -h, -h, 0, -5));
  auto* const d = this->AddArc("d", support::Arc(0, 0, 0, -5, h, -h, 5, 0));
  this->Run();
  EXPECT_EQ(this->log, (Log{"a", "b"}));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({c, d}));
  EXPECT_POINT_EQ(*c, ArcOf<TypeParam>(support::Arc(0, 0, 5, 0, -h, -h, 0, -5)));
}

TYPED_TEST(Stitch, LeavesArcsOfTheSameSenseThatDoNotMeetEndToStart) {
  this->AddArc("a", support::Arc(0, 0, 5, 0, 4, 3, 0, 5));
  this->AddArc("b", support::Arc(0, 0, -3, 4, -4, 3, -5, 0));                  // apart
  this->AddArc("c", support::Arc(0, 0, -4, 3, -4.5, std::sqrt(4.75), -5, 0));  // ends together
  this->Run();
  EXPECT_EQ(this->log, Log());
}

TYPED_TEST(Stitch, AsksForArcEndsWithinOneTenThousandth) {
  this->AddArc("a", support::Arc(0, 0, 5, 0, 4, 3, 0, 5));
  auto* const b = this->AddArc("b", support::Arc(0, 0, -0.0001, 5, -3, 4, -5, 0));
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
  EXPECT_POINT_EQ(b->Start, TypeParam::At(5, 0));
  this->contour.list.ClearWithContents();
  this->log.clear();
  this->AddArc("a", support::Arc(0, 0, 5, 0, 4, 3, 0, 5));
  this->AddArc("b", support::Arc(0, 0, -0.00011, 5, -3, 4, -5, 0));
  this->Run();
  EXPECT_EQ(this->log, Log());
}

TYPED_TEST(Stitch, TurnsAnArcOfTheOppositeSenseWithTheSameEndIntoACircle) {
  // a counter-clockwise up to (0, 5), b clockwise from (-5, 0) to the same end. The start of b
  // takes the end of a, which is its own end as well.
  this->AddArc("a", support::Arc(0, 0, 5, 0, 4, 3, 0, 5));
  auto* const b = this->AddArc("b", support::Arc(0, 0, -5, 0, -3, 4, 0, 5));
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
  EXPECT_POINT_EQ(*b, ArcOf<TypeParam>(support::Arc(0, 0, 0, 5, -3, 4, 0, 5)));
}

TYPED_TEST(Stitch, ClosesACircleOfOppositeSenseWithTheEndOnTheMid) {
  this->AddArc("a", support::Arc(0, 0, 5, 0, 0, 5, -5, 0));
  auto* const b = this->AddArc("b", support::Arc(0, 0, 5, 0, 0, -5, -5, 0));
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
  EXPECT_POINT_EQ(*b, ArcOf<TypeParam>(support::Arc(0, 0, 5, 0, 0, -5, 0, -5)));
}

TYPED_TEST(Stitch, LeavesArcsOfOppositeSenseThatDoNotEndTogether) {
  this->AddArc("a", support::Arc(0, 0, 5, 0, 4, 3, 0, 5));  // counter-clockwise
  this->AddArc("b", support::Arc(0, 0, 0, 5, 3, 4, 4, 3));  // clockwise, from its end back
  this->Run();
  EXPECT_EQ(this->log, Log());
}

TYPED_TEST(Stitch, LetsTheSecondTakeAllOfAFirstThatIsACircle) {
  const GX2DArc onStart = support::Circle(0, 0, 5);
  const GX2DArc onMid = support::Arc(0, 0, 5, 0, 0, 5, 0, 5);
  for (const GX2DArc& circle : {onStart, onMid}) {
    Chain<TypeParam> chain;
    chain.Take(new typename TypeParam::Arc(ArcOf<TypeParam>(circle)));
    auto* const b = chain.Take(new typename TypeParam::Arc(
        ArcOf<TypeParam>(support::Arc(0.0001, -0.0001, -2.9999, 3.9999, -4, 3, -4.9999, -0.0001))));
    EXPECT_TRUE(GXGeometry::Stitch(chain.list, true, true));
    EXPECT_EQ(chain.Entries(), chain.Order({b}));
    EXPECT_POINT_EQ(*b, ArcOf<TypeParam>(circle));
  }
}

TYPED_TEST(Stitch, TakesTheFirstOfTwoCircles) {
  this->AddArc("a", support::Circle(0, 0, 5));
  auto* const b = this->AddArc("b", support::Circle(0, 0, 5, true));
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
  EXPECT_POINT_EQ(*b, ArcOf<TypeParam>(support::Circle(0, 0, 5)));
}

TYPED_TEST(Stitch, DropsAnArcBeforeACircle) {
  this->AddArc("a", support::Arc(0, 0, 5, 0, 4, 3, 0, 5));
  auto* const b = this->AddArc("b", support::Circle(0, 0, 5, true));
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({b}));
  EXPECT_POINT_EQ(*b, ArcOf<TypeParam>(support::Circle(0, 0, 5, true)));
}

/// Whether a quarter circle of radius 5 is stitched to the next one with another center and radius.
template <typename Twin>
bool JoinsWith(double centerX, double centerY, double radius) {
  Chain<Twin> chain;
  chain.Take(new typename Twin::Arc(ArcOf<Twin>(support::Arc(0, 0, 5, 0, 4, 3, 0, 5))));
  chain.Take(new typename Twin::Arc(ArcOf<Twin>(
      support::Arc(centerX, centerY, centerX, centerY + radius, -3, 4, centerX - radius, 0))));
  EXPECT_TRUE(GXGeometry::Stitch(chain.list, true, true));
  return chain.list.size() == 1;
}

TYPED_TEST(Stitch, AsksForOneCenterAndOneRadius) {
  EXPECT_TRUE(JoinsWith<TypeParam>(0, 0, 5));
  EXPECT_TRUE(JoinsWith<TypeParam>(0.0001, 0, 5));
  EXPECT_FALSE(JoinsWith<TypeParam>(0.00011, 0, 5));
  EXPECT_TRUE(JoinsWith<TypeParam>(0, -0.00009, 5));
  EXPECT_FALSE(JoinsWith<TypeParam>(0, -0.00011, 5));
  EXPECT_TRUE(JoinsWith<TypeParam>(0, 0, 5.000009));
  EXPECT_FALSE(JoinsWith<TypeParam>(0, 0, 5.000011));
  EXPECT_FALSE(JoinsWith<TypeParam>(0, 0, 4.999989));
}

TYPED_TEST(Stitch, TakesRadiiAtExactlyTheToleranceForOne) {
  // 2e-5 - 1e-5 is exactly 1e-5. The first is a circle, since its points are that near together.
  this->AddArc("a", support::Arc(0, 0, 0.00002, 0, 0, 0.00002, -0.00002, 0));
  auto* const b = this->AddArc("b", support::Arc(0, 0, 0.00001, 0, 0, 0.00001, -0.00001, 0));
  this->Run();
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({b}));
}

TYPED_TEST(Stitch, LooksAtTheLastAndTheFirstArc) {
  auto* const first = this->AddArc("first", support::Arc(0, 0, 0, 5, -3, 4, -5, 0));
  auto* const line = this->AddLine("line", -5, 0, 5, 0);
  this->AddArc("last", support::Arc(0, 0, 5, 0, 4, 3, 0, 5));
  this->Run();
  EXPECT_EQ(this->log, (Log{"last"}));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({first, line}));
  EXPECT_POINT_EQ(*first, ArcOf<TypeParam>(support::Arc(0, 0, 5, 0, -3, 4, -5, 0)));
}

// With start, mid and center in line there is no cross product: counter-clockwise in the plane, but
// without a normal in space.
TEST(StitchOfAnArcWithoutASense, IsCounterClockwiseInThePlane) {
  GX2DElmList list;
  support::Add(list, support::Arc(0, 0, 5, 0, 2, 0, 0, 5), support::Arc(0, 0, 0, 5, -3, 4, -5, 0));
  EXPECT_TRUE(GXGeometry::Stitch(list, true, true));
  EXPECT_EQ(list.size(), 1U);
}
TEST(StitchOfAnArcWithoutASense, IsOfNeitherSenseInSpace) {
  GX3DElmList list;
  support::Add(list, support::Arc3D(support::Arc(0, 0, 5, 0, 2, 0, 0, 5), 0),
               support::Arc3D(support::Arc(0, 0, 0, 5, -3, 4, -5, 0), 0));
  EXPECT_TRUE(GXGeometry::Stitch(list, true, true));
  EXPECT_EQ(list.size(), 2U);
}
TEST(StitchOfAnArcWithoutASense, AgreesWithAnotherOfItsKindInSpace) {
  GX3DElmList list;
  support::Add(list, support::Arc3D(support::Arc(0, 0, 5, 0, 2, 0, 0, 5), 0),
               support::Arc3D(support::Arc(0, 0, 0, 5, 0, 2, -5, 0), 0));
  EXPECT_TRUE(GXGeometry::Stitch(list, true, true));
  ASSERT_EQ(list.size(), 1U);
  EXPECT_POINT_EQ(support::At<GX3DArc>(list, 0).Start, support::Point(5, 0, 0));
}

/// Whether a quarter from X to Y is stitched to one from Y on, in a plane turned about Y.
bool JoinsTilted(double radians) {
  const double c = std::cos(radians), s = std::sin(radians);
  GX3DElmList list;
  support::Add(list, support::Arc3D(support::Arc(0, 0, 5, 0, 4, 3, 0, 5), 0),
               GX3DArc(support::Point(0, 0, 0), support::Point(0, 5, 0),
                       support::Point(-3 * c, 4, -3 * s), support::Point(-5 * c, 0, -5 * s)));
  EXPECT_TRUE(GXGeometry::Stitch(list, true, true));
  return list.size() == 1;
}

TEST(StitchInSpace, AsksForOneNormalWithinOneTenThousandth) {
  EXPECT_TRUE(JoinsTilted(0.0));
  EXPECT_TRUE(JoinsTilted(0.00009));  // the normal differs by about as much
  EXPECT_FALSE(JoinsTilted(0.00011));
  EXPECT_FALSE(JoinsTilted(-0.00011));
  EXPECT_FALSE(JoinsTilted(support::kPi / 2));
}

TEST(StitchInSpace, TellsOppositeNormals) {
  // b runs clockwise about the normal of a and has its end: its start takes the end of a.
  GX3DElmList list;
  support::Add(list, support::Arc3D(support::Arc(0, 0, 5, 0, 4, 3, 0, 5), 7),
               support::Arc3D(support::Arc(0, 0, -5, 0, -3, 4, 0, 5), 7));
  EXPECT_TRUE(GXGeometry::Stitch(list, true, true));
  ASSERT_EQ(list.size(), 1U);
  EXPECT_POINT_EQ(support::At<GX3DArc>(list, 0).Start, support::Point(0, 5, 7));
}

}  // namespace
