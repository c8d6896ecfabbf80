// The loop of smaller reach goes where a contour passes twice through a point.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Twins.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace {

using support::Chain;
using support::Seg;

using Log = std::vector<std::string>;

template <typename Twin>
class RemoveSmallLoops : public testing::Test {
 public:
  using LoggedLine = support::Logged<typename Twin::Line>;
  using LoggedArc = support::Logged<typename Twin::Arc>;

  Chain<Twin> contour;
  Log log;

  LoggedLine* AddLine(const std::string& name, double x1, double y1, double x2, double y2) {
    return contour.Take(new LoggedLine(log, name, Seg<Twin>(x1, y1, x2, y2)));
  }
  LoggedArc* AddArc(const std::string& name, const GX2DArc& a) {
    return contour.Take(new LoggedArc(
        log, name,
        typename Twin::Arc(Twin::At(a.Center.X, a.Center.Y), Twin::At(a.Start.X, a.Start.Y),
                           Twin::At(a.Mid.X, a.Mid.Y), Twin::At(a.End.X, a.End.Y))));
  }
  /// A triangle from (x, y) and back, with its other corners `reach` * (1, 1) and (1, -1) away.
  void AddLobe(const std::string& name, double reach, double x = 0, double y = 0) {
    AddLine(name + "1", x, y, x + reach, y + reach);
    AddLine(name + "2", x + reach, y + reach, x + reach, y - reach);
    AddLine(name + "3", x + reach, y - reach, x, y);
  }
  /// What was removed, in the order of destruction.
  Log Run() {
    EXPECT_TRUE(GXGeometry::RemoveSmallLoops(contour.list));
    return log;
  }
  ~RemoveSmallLoops() override { contour.list.ClearWithContents(); }
};
TYPED_TEST_SUITE(RemoveSmallLoops, support::BothTwins, support::TwinNames);

TYPED_TEST(RemoveSmallLoops, DoesNothingBelowTwoElements) {
  EXPECT_EQ(this->Run(), Log());
  this->AddLine("a", 0, 0, 0, 0);
  EXPECT_EQ(this->Run(), Log());
  EXPECT_EQ(this->contour.list.size(), 1U);
}

TYPED_TEST(RemoveSmallLoops, LeavesASquare) {
  this->AddLine("a", 0, 0, 4, 0);
  this->AddLine("b", 4, 0, 4, 4);
  this->AddLine("c", 4, 4, 0, 4);
  this->AddLine("d", 0, 4, 0, 0);
  EXPECT_EQ(this->Run(), Log());
  EXPECT_EQ(this->contour.list.size(), 4U);
}

TYPED_TEST(RemoveSmallLoops, RemovesTheFirstLobeOfLesserReach) {
  this->AddLobe("small", 1);
  this->AddLobe("big", -5);
  EXPECT_EQ(this->Run(), (Log{"small1", "small2", "small3"}));
  EXPECT_EQ(this->contour.list.size(), 3U);
  EXPECT_POINT_EQ(this->contour.EndsAt(0), Seg<TypeParam>(0, 0, -5, -5));
}

TYPED_TEST(RemoveSmallLoops, RemovesTheSecondLobeOfLesserReach) {
  this->AddLobe("big", -5);
  this->AddLobe("small", 1);
  EXPECT_EQ(this->Run(), (Log{"small1", "small2", "small3"}));
  EXPECT_EQ(this->contour.list.size(), 3U);
}

TYPED_TEST(RemoveSmallLoops, RemovesTheSecondOfTwoLobesOfTheSameReach) {
  this->AddLobe("first", 2);
  this->AddLobe("second", -2);
  EXPECT_EQ(this->Run(), (Log{"second1", "second2", "second3"}));
}

TYPED_TEST(RemoveSmallLoops, RemovesALobeAcrossTheEndOfTheList) {
  this->AddLine("small2", 1, 1, 1, -1);
  this->AddLine("small3", 1, -1, 0, 0);
  this->AddLobe("big", -5);
  this->AddLine("small1", 0, 0, 1, 1);
  EXPECT_EQ(this->Run(), (Log{"small1", "small2", "small3"}));
  EXPECT_EQ(this->contour.list.size(), 3U);
  EXPECT_POINT_EQ(this->contour.EndsAt(0), Seg<TypeParam>(0, 0, -5, -5));
}

TYPED_TEST(RemoveSmallLoops, RemovesTheMiddleOfTheListFromTheDoublePointOn) {
  this->AddLine("big2", -5, -5, -5, 5);
  this->AddLine("big3", -5, 5, 0, 0);
  this->AddLobe("small", 1);
  this->AddLine("big1", 0, 0, -5, -5);
  EXPECT_EQ(this->Run(), (Log{"small1", "small2", "small3"}));
  EXPECT_POINT_EQ(this->contour.EndsAt(0), Seg<TypeParam>(-5, -5, -5, 5));
  EXPECT_POINT_EQ(this->contour.EndsAt(2), Seg<TypeParam>(0, 0, -5, -5));
}

TYPED_TEST(RemoveSmallLoops, ComparesStartsWithinOneTenThousandth) {
  this->AddLobe("small", 1);
  this->AddLobe("big", -5, 0.0001, -0.0001);
  EXPECT_EQ(this->Run().size(), 3U);
  this->contour.list.ClearWithContents();
  this->log.clear();
  this->AddLobe("small", 1);
  this->AddLobe("big", -5, 0.00011, 0);
  EXPECT_EQ(this->Run(), Log());
}

TYPED_TEST(RemoveSmallLoops, MeasuresTheReachAndNotTheLength) {
  // The first lobe is a long zigzag that stays within 3, the second two lines of reach 4.
  this->AddLine("a1", 0, 0, 3, 0);
  this->AddLine("a2", 3, 0, -3, 0.5);
  this->AddLine("a3", -3, 0.5, 2.9, 0.5);
  this->AddLine("a4", 2.9, 0.5, 0, 0);
  this->AddLine("b1", 0, 0, 4, 0);
  this->AddLine("b2", 4, 0, 0, 0);
  EXPECT_EQ(this->Run(), (Log{"a1", "a2", "a3", "a4"}));
}

TYPED_TEST(RemoveSmallLoops, DoesNotMeasureEnds) {
  this->AddLine("a1", 0, 0, 1, 0);
  this->AddLine("a2", 1, 0, 100, 0);
  this->AddLine("b1", 0, 0, 2, 0);
  this->AddLine("b2", 2, 0, 0, 0);
  EXPECT_EQ(this->Run(), (Log{"a1", "a2"}));
}

TYPED_TEST(RemoveSmallLoops, MeasuresTheFarPointOfAnArc) {
  // A circle through the double point reaches 4, its diameter; the lines reach 3.
  this->AddArc("circle", support::Arc(2, 0, 0, 0, 2, 2, 0, 0));
  this->AddLine("b1", 0, 0, 0, 3);
  this->AddLine("b2", 0, 3, 0, 0);
  EXPECT_EQ(this->Run(), (Log{"b1", "b2"}));
}

TYPED_TEST(RemoveSmallLoops, MeasuresTheFarPointOfALaterArc) {
  // A fan: out to (3, 5), over the top of the circle about (0, 5) and back. Its starts reach
  // sqrt(34) = 5.83, the far point (0, 8) of the arc 8, and the lines 7.
  this->AddLine("a1", 0, 0, 3, 5);
  this->AddArc("a2", support::Arc(0, 5, 3, 5, 0, 8, -3, 5));
  this->AddLine("a3", -3, 5, 0, 0);
  this->AddLine("b1", 0, 0, 7, 0);
  this->AddLine("b2", 7, 0, 0, 0);
  EXPECT_EQ(this->Run(), (Log{"b1", "b2"}));
}

TYPED_TEST(RemoveSmallLoops, LeavesOutAFarPointOffTheArc) {
  // The arc goes over the near quarter only: (4, 0) is on its circle, not on it. Starts of a: 0
  // and |(2, 2)| = 2.83.
  this->AddArc("a1", support::Arc(2, 0, 0, 0, 0.5, 1, 2, 2));
  this->AddLine("a2", 2, 2, 0, 0);
  this->AddLine("b1", 0, 0, 0, 3);
  this->AddLine("b2", 0, 3, 0, 0);
  EXPECT_EQ(this->Run(), (Log{"a1", "a2"}));
}

TYPED_TEST(RemoveSmallLoops, MeasuresOnlyTheStartOfAnArcAboutTheDoublePoint) {
  this->AddLine("a1", 0, 0, 2, 0);
  this->AddArc("a2", support::Arc(0, 0, 2, 0, 0, 2, -2, 0));
  this->AddLine("a3", -2, 0, 0, 0);
  this->AddLine("b1", 0, 0, 0, 2.001);
  this->AddLine("b2", 0, 2.001, 0, 0);
  EXPECT_EQ(this->Run(), (Log{"a1", "a2", "a3"}));
}

TYPED_TEST(RemoveSmallLoops, RemovesALineOfLengthZero) {
  this->AddLine("a", 0, 0, 4, 0);
  this->AddLine("zero", 4, 0, 4, 0);
  this->AddLine("b", 4, 0, 4, 4);
  this->AddLine("c", 4, 4, 0, 0);
  EXPECT_EQ(this->Run(), (Log{"zero"}));
}

TYPED_TEST(RemoveSmallLoops, RemovesTheSecondOfTwoLinesOfLengthZero) {
  this->AddLine("first", 1, 1, 1, 1);
  this->AddLine("second", 1, 1, 1, 1);
  EXPECT_EQ(this->Run(), (Log{"second"}));
}

TYPED_TEST(RemoveSmallLoops, StartsAgainAfterEachRemoval) {
  // Three lobes at one point: the first two are compared with all the rest, then with each other.
  this->AddLobe("a", 2);
  this->AddLobe("b", 1);
  this->AddLobe("c", -3);
  // a (2.8) against b and c (4.2): a goes. Then b against c: b goes.
  EXPECT_EQ(this->Run(), (Log{"a1", "a2", "a3", "b1", "b2", "b3"}));
  EXPECT_EQ(this->contour.list.size(), 3U);
}

TYPED_TEST(RemoveSmallLoops, StartsAgainAtTheFront) {
  // A big outline with loops at (4, 0) and (4, 4); each goes in its turn.
  this->AddLine("o1", 0, 0, 4, 0);
  this->AddLobe("p", 0.5, 4, 0);
  this->AddLine("o2", 4, 0, 4, 4);
  this->AddLobe("q", 0.25, 4, 4);
  this->AddLine("o3", 4, 4, 0, 4);
  this->AddLine("o4", 0, 4, 0, 0);
  EXPECT_EQ(this->Run(), (Log{"p1", "p2", "p3", "q1", "q2", "q3"}));
  EXPECT_EQ(this->contour.list.size(), 4U);
}

TYPED_TEST(RemoveSmallLoops, TakesTheFirstDoublePassBehindTheElement) {
  // Starts at the origin at 0, 2 and 4. The range from 0 to 2 reaches 1, the rest 9: it goes; then
  // 0 to 2 again reaches 9 and the rest 5.
  this->AddLine("a1", 0, 0, 1, 0);
  this->AddLine("a2", 1, 0, 0, 0);
  this->AddLine("b1", 0, 0, 9, 0);
  this->AddLine("b2", 9, 0, 0, 0);
  this->AddLine("c1", 0, 0, 0, 5);
  this->AddLine("c2", 0, 5, 0, 0);
  EXPECT_EQ(this->Run(), (Log{"a1", "a2", "c1", "c2"}));
}

TYPED_TEST(RemoveSmallLoops, EndsOnCoordinatesThatAreNoNumbers) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  this->AddLine("a", nan, 0, 1, 0);
  this->AddLine("b", nan, 0, infinity, 0);
  this->AddLine("c", infinity, 0, 1, 0);
  this->AddLine("d", infinity, 0, nan, 0);
  this->Run();
  EXPECT_LE(this->contour.list.size(), 4U);
}

TYPED_TEST(RemoveSmallLoops, LeavesNoTwoStartsTogether) {
  support::Random random;
  for (int round = 0; round < 200; ++round) {
    Chain<TypeParam> chain;
    double x = 0, y = 0;
    for (int i = random.Int(2, 40); i > 0; --i) {
      const double nextX = random.Int(0, 4), nextY = random.Int(0, 4);
      chain.AddLine(x, y, nextX, nextY);
      x = nextX;
      y = nextY;
    }
    EXPECT_TRUE(GXGeometry::RemoveSmallLoops(chain.list));
    ASSERT_FALSE(chain.list.empty());
    for (std::size_t i = 0; i < chain.list.size(); ++i) {
      for (std::size_t j = i + 1; j < chain.list.size(); ++j) {
        EXPECT_FALSE(chain.EndsAt(i).Start == chain.EndsAt(j).Start);
      }
      if (i + 1 < chain.list.size()) {
        EXPECT_POINT_EQ(chain.EndsAt(i).End, chain.EndsAt(i + 1).Start);
      }
    }
  }
}

}  // namespace
