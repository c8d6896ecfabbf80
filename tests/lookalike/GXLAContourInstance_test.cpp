#include "support/Build.h"

#include <KTRCL_Geometry/lookalike/GXLAContourInstance.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

// A rectangle from the origin, counter-clockwise from its lower left corner.
void AddBox(GX2DElmList& list, double width, double height) {
  support::AddPolygon(list, {{0, 0}, {width, 0}, {width, height}, {0, height}});
}

// One occurrence with its two distances to a reference.
struct Distances {
  bool answered = false;
  double first = -7.0;
  double second = -7.0;
};

Distances Measure(const GXLAContourInstance& instance, const GXLAContourInstance& reference,
                  int position, bool keepCircle = false) {
  Distances result;
  result.answered = instance.GetStartPointDistanceToRefContour(reference, position, result.first,
                                                               result.second, keepCircle);
  return result;
}

TEST(GXLAContourInstance, StoresItsFieldsAndClonesTheElements) {
  GX2DElmList list;
  support::Add(list, support::Line(0, 0, 1, 0));
  GXLAContour shape(true, GXLAContourParameters::GXLADirectionCW);
  const GXLAContourInstance instance(list, &shape, true, 6);
  EXPECT_EQ(instance.GetLAContour(), &shape);
  EXPECT_TRUE(instance.IsLAContourReversed());
  EXPECT_EQ(instance.GetLAContourStartPosition(), 6);
  ASSERT_EQ(instance.size(), 1U);
  EXPECT_NE(instance[0], list[0]);
  EXPECT_EQ(support::At<GX2DLine>(instance, 0).End.X, 1.0);
}

TEST(GXLAContourInstance, CopiesPointersAndFields) {
  GX2DElmList list;
  support::Add(list, support::Line(0, 0, 1, 0));
  GXLAContour shape(true, GXLAContourParameters::GXLADirectionCW);
  const GXLAContourInstance instance(list, &shape, true, 6);
  GXLAContourInstance copy(instance);
  GXLAContourInstance assigned(GX2DElmList(), nullptr, false, 0);
  assigned = instance;
  for (GXLAContourInstance* each : {&copy, &assigned}) {
    EXPECT_EQ(each->front(), instance.front());
    EXPECT_EQ(each->GetLAContour(), &shape);
    EXPECT_TRUE(each->IsLAContourReversed());
    EXPECT_EQ(each->GetLAContourStartPosition(), 6);
    each->clear();
  }
}

TEST(GXLAContourInstanceLists, OwnOrBorrow) {
  GXLAContourInstanceList owner;
  owner.push_back(new GXLAContourInstance(GX2DElmList(), nullptr, false, 0));
  owner.push_back(nullptr);
  {
    GXLAContourInstanceRefList borrowed(owner);
    EXPECT_EQ(borrowed.front(), owner.front());
  }
  EXPECT_EQ(owner.front()->GetLAContourStartPosition(), 0);
  owner.ClearWithContent();
  EXPECT_TRUE(owner.empty());
}

TEST(StartPointDistance, IsMeasuredToBothEndsOfTheReferenceElement) {
  GX2DElmList box;
  AddBox(box, 30, 40);
  GX2DElmList hole;
  support::AddPolygon(hole, {{3, 4}, {5, 4}, {5, 6}});
  const GXLAContourInstance reference(box, nullptr, false, 0);
  const GXLAContourInstance instance(hole, nullptr, false, 0);
  // (3, 4) from (0, 0) is 5; from (30, 0) it is sqrt(27^2 + 4^2) = sqrt(745).
  const Distances distances = Measure(instance, reference, 0);
  EXPECT_TRUE(distances.answered);
  EXPECT_DOUBLE_EQ(distances.first, 5.0);
  EXPECT_DOUBLE_EQ(distances.second, std::sqrt(745.0));
}

TEST(StartPointDistance, TakesTheElementsAtHalfThePositions) {
  GX2DElmList box;
  AddBox(box, 30, 40);
  GX2DElmList hole;
  support::AddPolygon(hole, {{9, 9}, {30, 45}, {9, 45}});
  const GXLAContourInstance reference(box, nullptr, false, 0);
  const GXLAContourInstance instance(hole, nullptr, false, 2);
  // Element 1 of the hole starts at (30, 45); element 2 of the box runs from (30, 40) to (0, 40).
  const Distances distances = Measure(instance, reference, 4);
  EXPECT_DOUBLE_EQ(distances.first, 5.0);
  EXPECT_DOUBLE_EQ(distances.second, std::sqrt(925.0));
}

TEST(StartPointDistance, OfACircleIsMeasuredFromItsCentre) {
  GX2DElmList box;
  AddBox(box, 30, 40);
  const GXLAContourInstance reference(box, nullptr, false, 0);
  for (const double startDegrees : {0.0, 77.0, 180.0}) {
    GX2DElmList hole;
    const GX2DPoint start = support::OnCircle(3, 4, 2, startDegrees);
    support::Add(hole, GX2DArc(GX2DPoint(3, 4), start, start, false));
    const GXLAContourInstance instance(hole, nullptr, false, 0);
    const Distances distances = Measure(instance, reference, 0);
    EXPECT_DOUBLE_EQ(distances.first, 5.0);
    EXPECT_DOUBLE_EQ(distances.second, std::sqrt(745.0));
  }
}

TEST(StartPointDistance, ToACircularReferenceGoesToItsCentreUnlessKept) {
  GX2DElmList outer;
  support::Add(outer, support::Circle(0, 0, 100));
  GX2DElmList hole;
  support::AddPolygon(hole, {{3, 4}, {5, 4}, {5, 6}});
  const GXLAContourInstance reference(outer, nullptr, false, 0);
  const GXLAContourInstance instance(hole, nullptr, false, 0);
  const Distances centre = Measure(instance, reference, 0, false);
  EXPECT_DOUBLE_EQ(centre.first, 5.0);
  EXPECT_DOUBLE_EQ(centre.second, 5.0);
  // Kept: to the circle's start and end (100, 0): sqrt(97^2 + 4^2) = sqrt(9425).
  const Distances kept = Measure(instance, reference, 0, true);
  EXPECT_DOUBLE_EQ(kept.first, std::sqrt(9425.0));
  EXPECT_DOUBLE_EQ(kept.second, std::sqrt(9425.0));
}

TEST(StartPointDistance, AFullCircleIsToldByEqualEndsAlone) {
  // Mid on the end makes no circle here: only start and end are looked at.
  GX2DElmList outer;
  support::Add(outer, support::Arc(0, 0, 10, 0, 0, 10, 0, 10));
  GX2DElmList hole;
  support::AddPolygon(hole, {{10, 3}, {12, 3}, {12, 5}});
  const GXLAContourInstance reference(outer, nullptr, false, 0);
  const GXLAContourInstance instance(hole, nullptr, false, 0);
  EXPECT_DOUBLE_EQ(Measure(instance, reference, 0).first, 3.0);
}

TEST(StartPointDistance, RefusesOddAndOutsidePositionsAndLeavesTheOutputs) {
  GX2DElmList box;
  AddBox(box, 30, 40);
  const GXLAContourInstance reference(box, nullptr, false, 0);
  const GXLAContourInstance good(box, nullptr, false, 0);
  for (const int position :
       {1, 3, 8, -2, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    const Distances byReference = Measure(good, reference, position);
    EXPECT_FALSE(byReference.answered) << position;
    EXPECT_EQ(byReference.first, -7.0);
    EXPECT_EQ(byReference.second, -7.0);
    const GXLAContourInstance bad(box, nullptr, false, position);
    EXPECT_FALSE(Measure(bad, reference, 0).answered) << position;
  }
}

TEST(StartPointDistance, RefusesNullElements) {
  GX2DElmList box;
  AddBox(box, 30, 40);
  const GXLAContourInstance reference(box, nullptr, false, 0);
  GXLAContourInstance hollow(box, nullptr, false, 0);
  delete hollow[0];
  hollow[0] = nullptr;
  EXPECT_FALSE(Measure(hollow, reference, 0).answered);
  EXPECT_FALSE(Measure(reference, hollow, 0).answered);
}

// ---- HasSamePositionToRefContour

struct Fixture {
  Fixture() {
    AddBox(box, 30, 40);
    support::AddPolygon(hole, {{3, 4}, {5, 4}, {5, 6}});
  }
  GX2DElmList box;
  GX2DElmList hole;
};

TEST(SamePosition, HoldsForTheSamePlace) {
  const Fixture f;
  const GXLAContourInstance reference(f.box, nullptr, false, 0);
  const GXLAContourInstance instance(f.hole, nullptr, false, 0);
  const Distances d = Measure(instance, reference, 0);
  EXPECT_TRUE(instance.HasSamePositionToRefContour(d.first, d.second, reference, 0, 0, false));
}

TEST(SamePosition, HoldsWhereTheReferenceSideIsDrawnTheOtherWay) {
  const Fixture f;
  const GXLAContourInstance reference(f.box, nullptr, false, 0);
  const GXLAContourInstance instance(f.hole, nullptr, false, 0);
  const Distances d = Measure(instance, reference, 0);
  GX2DElmList turned;
  support::Add(turned, support::Line(30, 0, 0, 0));
  const GXLAContourInstance other(turned, nullptr, false, 0);
  const Distances exchanged = Measure(instance, other, 0);
  EXPECT_DOUBLE_EQ(exchanged.first, d.second);
  EXPECT_TRUE(instance.HasSamePositionToRefContour(d.first, d.second, other, 0, 0, false));
}

TEST(SamePosition, HoldsFromTheOtherEndOfTheElement) {
  const Fixture f;
  const GXLAContourInstance reference(f.box, nullptr, false, 0);
  // The same first side drawn the other way: its end lies where the hole's start was.
  GX2DElmList backward;
  support::Add(backward, support::Line(5, 4, 3, 4));
  const GXLAContourInstance instance(backward, nullptr, false, 0);
  const double d1 = 5.0;
  const double d2 = std::sqrt(745.0);
  EXPECT_TRUE(instance.HasSamePositionToRefContour(d1, d2, reference, 0, 0, false));
  EXPECT_TRUE(instance.HasSamePositionToRefContour(d2, d1, reference, 0, 0, false));
}

TEST(SamePosition, AcceptsDistancesUpToAHundredth) {
  const Fixture f;
  const GXLAContourInstance reference(f.box, nullptr, false, 0);
  const GXLAContourInstance instance(f.hole, nullptr, false, 0);
  const Distances d = Measure(instance, reference, 0);
  EXPECT_TRUE(instance.HasSamePositionToRefContour(d.first + 0.009, d.second - 0.009, reference, 0,
                                                   0, false));
  EXPECT_FALSE(
      instance.HasSamePositionToRefContour(d.first + 0.02, d.second, reference, 0, 0, false));
  EXPECT_FALSE(
      instance.HasSamePositionToRefContour(d.first, d.second + 0.02, reference, 0, 0, false));
}

TEST(SamePosition, DoesNotMixTheTwoEndsOfTheElement) {
  // From the start 5 and sqrt(745), from the end (5, 4) sqrt(41) and sqrt(641): one figure of each
  // does not do.
  const Fixture f;
  const GXLAContourInstance reference(f.box, nullptr, false, 0);
  const GXLAContourInstance instance(f.hole, nullptr, false, 0);
  EXPECT_FALSE(instance.HasSamePositionToRefContour(5.0, std::sqrt(641.0), reference, 0, 0, false));
  EXPECT_FALSE(instance.HasSamePositionToRefContour(std::sqrt(41.0), std::sqrt(745.0), reference, 0,
                                                    0, false));
  EXPECT_TRUE(instance.HasSamePositionToRefContour(std::sqrt(41.0), std::sqrt(641.0), reference, 0,
                                                   0, false));
}

TEST(SamePosition, TakesTheElementAtOffsetPlusStartPosition) {
  const Fixture f;
  const GXLAContourInstance reference(f.box, nullptr, false, 0);
  const GXLAContourInstance instance(f.hole, nullptr, false, 2);
  // Element (2 + 2) / 2 = 2 runs from (5, 6) to (3, 4).
  EXPECT_TRUE(instance.HasSamePositionToRefContour(std::sqrt(61.0), std::sqrt(661.0), reference, 0,
                                                   2, false));
  EXPECT_TRUE(instance.HasSamePositionToRefContour(5.0, std::sqrt(745.0), reference, 0, 2, false));
  EXPECT_FALSE(instance.HasSamePositionToRefContour(std::sqrt(41.0), std::sqrt(641.0), reference, 0,
                                                    2, false));
}

TEST(SamePosition, DoesNotWrapAround) {
  const Fixture f;
  const GXLAContourInstance reference(f.box, nullptr, false, 0);
  const GXLAContourInstance instance(f.hole, nullptr, false, 4);
  // (4 + 4) / 2 = 4 lies past the three elements, though a circular reading would give element 1.
  EXPECT_FALSE(instance.HasSamePositionToRefContour(std::sqrt(41.0), std::sqrt(641.0), reference, 0,
                                                    4, false));
}

TEST(SamePosition, RefusesOddNegativeAndOverflowingArguments) {
  const Fixture f;
  const double d1 = 5.0;
  const double d2 = std::sqrt(745.0);
  const int most = std::numeric_limits<int>::max();
  const GXLAContourInstance reference(f.box, nullptr, false, 0);
  const GXLAContourInstance instance(f.hole, nullptr, false, 0);
  EXPECT_FALSE(instance.HasSamePositionToRefContour(d1, d2, reference, 1, 0, false));
  EXPECT_FALSE(instance.HasSamePositionToRefContour(d1, d2, reference, 0, 1, false));
  EXPECT_FALSE(instance.HasSamePositionToRefContour(d1, d2, reference, -2, 0, false));
  EXPECT_FALSE(instance.HasSamePositionToRefContour(d1, d2, reference, 0, -2, false));
  EXPECT_FALSE(instance.HasSamePositionToRefContour(d1, d2, reference, 0, most - 1, false));
  const GXLAContourInstance odd(f.hole, nullptr, false, 1);
  EXPECT_FALSE(odd.HasSamePositionToRefContour(d1, d2, reference, 0, 0, false));
  const GXLAContourInstance huge(f.hole, nullptr, false, most - 1);
  EXPECT_FALSE(huge.HasSamePositionToRefContour(d1, d2, reference, 0, most - 1, false));
  // Two negatives that cancel are negative positions all the same.
  const GXLAContourInstance negative(f.hole, nullptr, false, -2);
  EXPECT_FALSE(negative.HasSamePositionToRefContour(d1, d2, reference, 0, 2, false));
}

TEST(SamePosition, PlacesCirclesByTheirCentres) {
  GX2DElmList outer;
  support::Add(outer, support::Circle(0, 0, 100));
  GX2DElmList hole;
  support::Add(hole, support::Circle(3, 4, 1));
  const GXLAContourInstance reference(outer, nullptr, false, 0);
  const GXLAContourInstance instance(hole, nullptr, false, 0);
  EXPECT_TRUE(instance.HasSamePositionToRefContour(5.0, 5.0, reference, 0, 0, false));
  EXPECT_FALSE(instance.HasSamePositionToRefContour(5.0, 5.0, reference, 0, 0, true));
  const double kept = std::sqrt(97.0 * 97.0 + 16.0);
  EXPECT_TRUE(instance.HasSamePositionToRefContour(kept, kept, reference, 0, 0, true));
}

}  // namespace
