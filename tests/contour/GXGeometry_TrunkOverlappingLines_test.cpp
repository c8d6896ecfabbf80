// Lines that double back over the line before them.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Twins.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace {

using support::Chain;
using support::Seg;

using Log = std::vector<std::string>;

template <typename Twin>
class TrunkOverlappingLines : public testing::Test {
 public:
  Chain<Twin> contour;
  Log log;

  support::Logged<typename Twin::Line>* Add(const std::string& name, double x1, double y1,
                                            double x2, double y2) {
    return contour.Take(
        new support::Logged<typename Twin::Line>(log, name, Seg<Twin>(x1, y1, x2, y2)));
  }
  void Run() { EXPECT_TRUE(GXGeometry::TrunkOverlappingLines(contour.list)); }
  ~TrunkOverlappingLines() override { contour.list.ClearWithContents(); }
};
TYPED_TEST_SUITE(TrunkOverlappingLines, support::BothTwins, support::TwinNames);

TYPED_TEST(TrunkOverlappingLines, DoesNothingBelowTwoElements) {
  this->Run();
  auto* const a = this->Add("a", 3, 3, 3, 3);
  this->Run();
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({a}));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(3, 3, 3, 3));
}

TYPED_TEST(TrunkOverlappingLines, KeepsTheSecondOfALineThatTurnsBack) {
  this->Add("a", 0, 0, 10, 0);
  auto* const b = this->Add("b", 10, 0, 4, 0);
  auto* const c = this->Add("c", 4, 0, 4, 4);
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({b, c}));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(0, 0, 4, 0));
}

TYPED_TEST(TrunkOverlappingLines, RunsBackBehindTheStart) {
  this->Add("a", 0, 0, 10, 0);
  auto* const b = this->Add("b", 10, 0, -3, 0);
  this->Add("c", -3, 0, -3, 4);
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(0, 0, -3, 0));
}

TYPED_TEST(TrunkOverlappingLines, LeavesAStraightContinuation) {
  this->Add("a", 0, 0, 4, 0);
  this->Add("b", 4, 0, 10, 0);
  this->Add("c", 10, 0, 10, 4);
  this->Run();
  EXPECT_EQ(this->log, Log());
  EXPECT_EQ(this->contour.list.size(), 3U);
}

TYPED_TEST(TrunkOverlappingLines, AsksForAParameterStrictlyBelowOne) {
  this->Add("a", 0, 0, 10, 0);
  this->Add("b", 10, 0, 10, 0);  // its end is at the parameter 1
  this->Add("c", 10, 0, 10, 4);
  this->Run();
  // b itself is no line to follow: from it every point is in line, c's end at the parameter 0.
  EXPECT_EQ(this->log, (Log{"b"}));
  Chain<TypeParam> slight;
  slight.AddLine(0, 0, 10, 0);
  slight.AddLine(10, 0, 9.9999999, 0);
  slight.AddLine(9.9999999, 0, 9.9999999, 4);
  EXPECT_TRUE(GXGeometry::TrunkOverlappingLines(slight.list));
  EXPECT_EQ(slight.list.size(), 2U);
}

TYPED_TEST(TrunkOverlappingLines, AsksForEndsWithinOneTenThousandth) {
  this->Add("a", -10, 0, 0, 0);
  auto* const b = this->Add("b", 0.0001, -0.0001, -4, 0);
  this->Add("c", -4, 0, -4, 4);
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(-10, 0, -4, 0));
  Chain<TypeParam> apart;
  apart.AddLine(-10, 0, 0, 0);
  apart.AddLine(0.00011, 0, -4, 0);
  apart.AddLine(-4, 0, -4, 4);
  EXPECT_TRUE(GXGeometry::TrunkOverlappingLines(apart.list));
  EXPECT_EQ(apart.list.size(), 3U);
}

/// Whether a line back to a point `off` the first line counts as one over it.
template <typename Twin>
bool FoldsAt(double off) {
  Chain<Twin> chain;
  chain.AddLine(0, 0, 10, 0);
  chain.AddLine(10, 0, 4, off);
  chain.AddLine(4, off, 4, 4);
  EXPECT_TRUE(GXGeometry::TrunkOverlappingLines(chain.list));
  return chain.list.size() == 2;
}

TYPED_TEST(TrunkOverlappingLines, IsTenTimesWiderInSpace) {
  const bool flat = std::is_same_v<TypeParam, support::Flat>;
  EXPECT_TRUE(FoldsAt<TypeParam>(0.000009));
  EXPECT_EQ(FoldsAt<TypeParam>(0.00001), !flat);  // strict in the plane
  EXPECT_EQ(FoldsAt<TypeParam>(0.00005), !flat);
  EXPECT_EQ(FoldsAt<TypeParam>(0.000099), !flat);
  EXPECT_FALSE(FoldsAt<TypeParam>(0.0001));  // strict in space
  EXPECT_FALSE(FoldsAt<TypeParam>(0.001));
}

TYPED_TEST(TrunkOverlappingLines, FoldsAChainInOnePass) {
  this->Add("a", 0, 0, 10, 0);
  this->Add("b", 10, 0, 6, 0);
  auto* const c = this->Add("c", 6, 0, 2, 0);
  auto* const d = this->Add("d", 2, 0, 2, 4);
  this->Run();
  EXPECT_EQ(this->log, (Log{"a", "b"}));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({c, d}));
  EXPECT_POINT_EQ(*c, Seg<TypeParam>(0, 0, 2, 0));
}

TYPED_TEST(TrunkOverlappingLines, TestsTheShortenedLineAgainstTheNext) {
  // After the fold b runs from 0 to 4, and c goes on beyond its end.
  this->Add("a", 0, 0, 10, 0);
  auto* const b = this->Add("b", 10, 0, 4, 0);
  auto* const c = this->Add("c", 4, 0, 6, 0);
  auto* const d = this->Add("d", 6, 0, 6, 4);
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({b, c, d}));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(0, 0, 4, 0));
}

TYPED_TEST(TrunkOverlappingLines, FoldsTheLastWithTheFirst) {
  auto* const first = this->Add("first", 10, 0, 4, 0);
  auto* const between = this->Add("between", 4, 0, 0, 5);
  this->Add("last", 0, 0, 10, 0);
  this->Run();
  EXPECT_EQ(this->log, (Log{"last"}));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({first, between}));
  EXPECT_POINT_EQ(*first, Seg<TypeParam>(0, 0, 4, 0));
}

TYPED_TEST(TrunkOverlappingLines, FoldsALineThereAndBackToALineOfLengthZero) {
  this->Add("a", 0, 0, 10, 0);
  auto* const b = this->Add("b", 10, 0, 0, 0);
  this->Run();
  EXPECT_EQ(this->log, (Log{"a"}));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({b}));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(0, 0, 0, 0));
}

TYPED_TEST(TrunkOverlappingLines, LetsALineOfLengthZeroBeTakenUpByItsSuccessor) {
  // Any point is in line with it, at the parameter 0.
  this->Add("zero", 0, 0, 0, 0);
  auto* const b = this->Add("b", 0.00005, 0, 3, 4);
  auto* const c = this->Add("c", 3, 4, 3, 9);
  this->Run();
  EXPECT_EQ(this->log, (Log{"zero"}));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({b, c}));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(0, 0, 3, 4));
}

TYPED_TEST(TrunkOverlappingLines, PassesOverOtherKinds) {
  Chain<TypeParam>& chain = this->contour;
  chain.AddArc(0, 0, 10, 0);
  chain.AddLine(10, 0, 4, 0);
  chain.AddArc(4, 0, 10, 0);
  chain.AddPoint(10, 0);
  chain.AddForeign(10, 0, 4, 0);
  this->Run();
  EXPECT_EQ(chain.list.size(), 5U);
}

TYPED_TEST(TrunkOverlappingLines, LeavesASquare) {
  this->Add("a", 0, 0, 4, 0);
  this->Add("b", 4, 0, 4, 4);
  this->Add("c", 4, 4, 0, 4);
  this->Add("d", 0, 4, 0, 0);
  this->Run();
  EXPECT_EQ(this->log, Log());
}

}  // namespace
