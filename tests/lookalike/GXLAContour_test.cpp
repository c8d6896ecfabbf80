#include "support/LookAlike.h"

#include <KTRCL_Geometry/lookalike/GXLAContour.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace {

using support::kCCW;
using support::kCW;
using support::kNone;

// Counts destructions.
class CountedLine : public GXLAElementLine {
 public:
  CountedLine(double length, int& destroyed) : GXLAElementLine(length), destroyed_(destroyed) {}
  CountedLine(const CountedLine&) = delete;
  CountedLine& operator=(const CountedLine&) = delete;
  ~CountedLine() override { ++destroyed_; }

 private:
  int& destroyed_;
};

TEST(GXLAContour, BeginsEmptyWithIndexMinusOne) {
  const GXLAContour contour(true, kCW);
  EXPECT_TRUE(contour.empty());
  EXPECT_EQ(contour.GetContourIndex(), -1);
  EXPECT_EQ(contour.GetTotalGeometryLength(), 0.0);
  EXPECT_EQ(contour.GetTotalGeometryAngle(), 0.0);
  EXPECT_EQ(contour.GetNumberOfLines(), 0);
  EXPECT_EQ(contour.GetNumberOfArcs(), 0);
  EXPECT_TRUE(contour.IsClosed());
  EXPECT_FALSE(contour.IsOpen());
  EXPECT_EQ(contour.GetContourDirection(), kCW);
}

TEST(GXLAContour, OpenContourHasNoDirectionWhateverWasPassed) {
  const GXLAContour contour(false, kCW);
  EXPECT_TRUE(contour.IsOpen());
  EXPECT_EQ(contour.GetContourDirection(), kNone);
  EXPECT_EQ(contour.GetContourDirectionAsString().Str(), "---");
}

TEST(AddElements, KeepTheHeaderInStep) {
  const auto contour = support::ClosedContour(kCCW, "L 10 A 90 R 2.5 A 45");
  ASSERT_EQ(contour->size(), 4U);
  EXPECT_EQ(contour->GetTotalGeometryLength(), 12.5);
  EXPECT_EQ(contour->GetTotalGeometryAngle(), 90.0 * support::kDegree + 45.0 * support::kDegree);
  EXPECT_EQ(contour->GetNumberOfLines(), 1);
  EXPECT_EQ(contour->GetNumberOfArcs(), 1);
}

TEST(AddElements, RefuseNullAndChangeNothing) {
  GXLAContour contour(true, kCW);
  GXLAElementLine* line = nullptr;
  GXLAElementArc* arc = nullptr;
  GXLAElementAngle* angle = nullptr;
  EXPECT_FALSE(contour.AddLineElement(line));
  EXPECT_FALSE(contour.AddArcElement(arc));
  EXPECT_FALSE(contour.AddAngleElement(angle));
  EXPECT_TRUE(contour.empty());
  EXPECT_EQ(contour.GetNumberOfLines() + contour.GetNumberOfArcs(), 0);
}

TEST(AddElements, AppendTheVeryPointerAndReturnTrue) {
  GXLAContour contour(true, kCW);
  auto* line = new GXLAElementLine(1.0);
  auto* arc = new GXLAElementArc(2.0);
  auto* angle = new GXLAElementAngle(0.5, 0.01);
  EXPECT_TRUE(contour.AddLineElement(line));
  EXPECT_TRUE(contour.AddAngleElement(angle));
  EXPECT_TRUE(contour.AddArcElement(arc));
  EXPECT_EQ(contour[0], line);
  EXPECT_EQ(contour[1], angle);
  EXPECT_EQ(contour[2], arc);
}

TEST(FillInGXLAContourHeaderData, RecomputesFiguresAndLeavesFlagsAlone) {
  const auto contour = support::ClosedContour(kCW, "L 10 A 90 R 3 A 90 L 1 A 30");
  contour->TotalGeometryLength = -1.0;
  contour->TotalGeometryAngle = 99.0;
  contour->NumberOfLines = 77;
  contour->NumberOfArcs = 66;
  contour->SetContourIndex(5);
  contour->FillInGXLAContourHeaderData();
  EXPECT_EQ(contour->GetTotalGeometryLength(), 14.0);
  EXPECT_NEAR(contour->GetTotalGeometryAngle(), 210.0 * support::kDegree, 1e-12);
  EXPECT_EQ(contour->GetNumberOfLines(), 2);
  EXPECT_EQ(contour->GetNumberOfArcs(), 1);
  EXPECT_TRUE(contour->IsClosed());
  EXPECT_EQ(contour->GetContourDirection(), kCW);
  EXPECT_EQ(contour->GetContourIndex(), 5);
}

TEST(FillInGXLAContourHeaderData, ZeroesTheFiguresOfAnEmptySequence) {
  GXLAContour contour(true, kCW);
  contour.TotalGeometryLength = 4.0;
  contour.NumberOfArcs = 2;
  contour.FillInGXLAContourHeaderData();
  EXPECT_EQ(contour.GetTotalGeometryLength(), 0.0);
  EXPECT_EQ(contour.GetNumberOfArcs(), 0);
}

TEST(ClearWithContent, DestroysTheElementsAndLeavesTheHeader) {
  int destroyed = 0;
  GXLAContour contour(true, kCW);
  GXLAElementLine* line = new CountedLine(4.0, destroyed);
  contour.AddLineElement(line);
  contour.push_back(nullptr);
  contour.ClearWithContent();
  EXPECT_EQ(destroyed, 1);
  EXPECT_TRUE(contour.empty());
  EXPECT_EQ(contour.GetTotalGeometryLength(), 4.0);
  EXPECT_EQ(contour.GetNumberOfLines(), 1);
}

TEST(GXLAContour, DestructorDestroysTheElements) {
  int destroyed = 0;
  {
    GXLAContour contour(true, kCW);
    GXLAElementLine* line = new CountedLine(4.0, destroyed);
    contour.AddLineElement(line);
  }
  EXPECT_EQ(destroyed, 1);
}

TEST(GXLAContour, CopySharesTheElements) {
  const auto original = support::ClosedContour(kCW, "L 10 A 90");
  original->SetContourIndex(3);
  GXLAContour copy(*original);
  EXPECT_EQ(copy[0], (*original)[0]);
  EXPECT_EQ(copy.GetContourIndex(), 3);
  EXPECT_EQ(copy.GetTotalGeometryLength(), 10.0);
  copy.clear();
}

TEST(GXLAContour, AssignmentSharesTheElementsAndForgetsItsOwn) {
  int destroyed = 0;
  GXLAElementLine* line = new CountedLine(4.0, destroyed);
  const std::unique_ptr<GXLAElementLine> keeper(line);
  GXLAContour receiver(false, kNone);
  receiver.AddLineElement(line);
  const auto source = support::ClosedContour(kCCW, "R 2 A 10");
  receiver = *source;
  EXPECT_EQ(destroyed, 0);
  ASSERT_EQ(receiver.size(), 2U);
  EXPECT_EQ(receiver[0], (*source)[0]);
  EXPECT_TRUE(receiver.IsClosed());
  EXPECT_EQ(receiver.GetNumberOfLines(), 0);
  EXPECT_EQ(receiver.GetNumberOfArcs(), 1);
  receiver.clear();
}

TEST(ContourFlags, ClosedAndOpenLeaveTheDirection) {
  GXLAContour contour(true, kCW);
  contour.SetLAContourOpen();
  EXPECT_TRUE(contour.IsOpen());
  EXPECT_EQ(contour.GetContourDirection(), kCW);
  contour.SetLAContourClosed();
  EXPECT_TRUE(contour.IsClosed());
  EXPECT_EQ(contour.GetContourDirection(), kCW);
}

TEST(ContourDirection, IsSetAskedAndToldInWords) {
  GXLAContour contour(true, kNone);
  EXPECT_EQ(contour.GetContourDirectionAsString().Str(), "---");
  EXPECT_FALSE(contour.IsContourDirectionCW());
  EXPECT_FALSE(contour.IsContourDirectionCCW());
  contour.SetContourDirectionCW();
  EXPECT_TRUE(contour.IsContourDirectionCW());
  EXPECT_EQ(contour.GetContourDirectionAsString().Str(), "CW");
  contour.SetContourDirectionCCW();
  EXPECT_TRUE(contour.IsContourDirectionCCW());
  EXPECT_FALSE(contour.IsContourDirectionCW());
  EXPECT_EQ(contour.GetContourDirectionAsString().Str(), "CCW");
}

TEST(InvertContourDirection, SwapsTheTwoSenses) {
  GXLAContour contour(true, kCW);
  contour.InvertContourDirection();
  EXPECT_EQ(contour.GetContourDirection(), kCCW);
  contour.InvertContourDirection();
  EXPECT_EQ(contour.GetContourDirection(), kCW);
}

TEST(InvertContourDirection, LeavesAContourWithoutDirectionSo) {
  GXLAContour contour(true, kNone);
  contour.InvertContourDirection();
  EXPECT_EQ(contour.GetContourDirection(), kNone);
}

TEST(GetNextCircIt, StepsForwardAndWrapsBehindTheLast) {
  const auto contour = support::ClosedContour(kCW, "L 1 A 10 L 2 A 20");
  GXLAContour::iterator it = contour->begin();
  contour->GetNextCircIt(it);
  EXPECT_EQ(it - contour->begin(), 1);
  it = contour->end() - 1;
  contour->GetNextCircIt(it);
  EXPECT_EQ(it, contour->begin());
}

TEST(GetNextCircIt, FromTheEndStepsFromTheBeginning) {
  const auto contour = support::ClosedContour(kCW, "L 1 A 10 L 2 A 20");
  GXLAContour::iterator it = contour->end();
  contour->GetNextCircIt(it);
  EXPECT_EQ(it - contour->begin(), 1);
}

TEST(GetNextCircIt, ReverseStepsBackwardAndWrapsBeforeTheFirst) {
  const auto contour = support::ClosedContour(kCW, "L 1 A 10 L 2 A 20");
  // A reverse iterator reads the element in front of its underlying position.
  GXLAContour::reverse_iterator it(contour->begin() + 3);
  EXPECT_EQ(*it, (*contour)[2]);
  contour->GetNextCircIt(it);
  EXPECT_EQ(*it, (*contour)[1]);
  contour->GetNextCircIt(it);
  EXPECT_EQ(*it, (*contour)[0]);
  contour->GetNextCircIt(it);
  EXPECT_EQ(*it, (*contour)[3]);
  EXPECT_EQ(it.base(), contour->end());
}

TEST(GetNextCircIt, ReverseFromTheBeginningStepsFromTheEnd) {
  const auto contour = support::ClosedContour(kCW, "L 1 A 10 L 2 A 20");
  GXLAContour::reverse_iterator it(contour->begin());
  contour->GetNextCircIt(it);
  EXPECT_EQ(*it, (*contour)[2]);
}

TEST(GetNextCircIt, OfASingleElementStaysThere) {
  const auto contour = support::ClosedContour(kCW, "L 1");
  GXLAContour::iterator forward = contour->begin();
  contour->GetNextCircIt(forward);
  EXPECT_EQ(forward, contour->begin());
  GXLAContour::reverse_iterator backward(contour->end());
  contour->GetNextCircIt(backward);
  EXPECT_EQ(*backward, (*contour)[0]);
}

TEST(GetNextCircIt, OnAnEmptySequenceLeavesTheIterator) {
  GXLAContour contour(true, kCW);
  GXLAContour::iterator forward = contour.end();
  contour.GetNextCircIt(forward);
  EXPECT_EQ(forward, contour.end());
  GXLAContour::reverse_iterator backward = contour.rend();
  contour.GetNextCircIt(backward);
  EXPECT_EQ(backward, contour.rend());
}

TEST(GetNextCircIt, WalksConstantContoursAlike) {
  const auto contour = support::ClosedContour(kCW, "L 1 A 10 L 2 A 20");
  const GXLAContour& constant = *contour;
  GXLAContour::const_iterator forward = constant.end() - 1;
  constant.GetNextCircIt(forward);
  EXPECT_EQ(forward, constant.begin());
  GXLAContour::const_reverse_iterator backward(constant.begin() + 1);
  constant.GetNextCircIt(backward);
  EXPECT_EQ(*backward, constant[3]);
}

}  // namespace
