#include "support/Build.h"
#include "support/LookAlike.h"
#include "support/RecordingEvent.h"

#include <KTRCL_Geometry/lookalike/GXLAPart.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using support::ClosedContour;
using support::kCCW;
using support::kCW;
using support::Square;

constexpr auto kEqual = GXLAContour::eNmbSegmentsEqual;

GXLAContourInstance* AddInternal(GXLAPart& part, const GXLAContour& contour, GX2DElmList& elements,
                                 GXEvent1Param<const GXString&>* trace = nullptr) {
  GXLATolerances tolerances;
  return part.AddInternalContourInstance(elements, contour, kEqual, tolerances, trace);
}

// Adds a contour of its own making; what the part keeps is the part's, what it does not keep is
// destroyed here.
GXLAContourInstance* AddInternal(GXLAPart& part, std::unique_ptr<GXLAContour> contour) {
  GX2DElmList elements;
  support::Add(elements, support::Line(0, 0, 1, 0));
  const std::size_t before = part.GetInternalLAContourList().size();
  GXLAContourInstance* instance = AddInternal(part, *contour, elements);
  if (part.GetInternalLAContourList().size() > before) contour->clear();
  return instance;
}

TEST(GXLAPart, BeginsEmpty) {
  GXLAPart part;
  EXPECT_EQ(part.GetExternalLAContour(), nullptr);
  EXPECT_EQ(part.GetExternalLAContourInstance(), nullptr);
  EXPECT_TRUE(part.GetInternalLAContourList().empty());
  EXPECT_TRUE(part.GetInternalLAContourInstanceList().empty());
  EXPECT_TRUE(part.GetInternalLAContourManager().empty());
}

TEST(AddExternalContourInstance, KeepsACopyOfTheContourAndClonesTheElements) {
  GXLAPart part;
  GX2DElmList elements;
  support::AddPolygon(elements, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  const auto square = Square(kCCW);
  GXLAContourInstance* instance = part.AddExternalContourInstance(elements, *square);
  EXPECT_EQ(instance, part.GetExternalLAContourInstance());
  ASSERT_NE(part.GetExternalLAContour(), nullptr);
  EXPECT_NE(part.GetExternalLAContour(), square.get());
  EXPECT_EQ(part.GetExternalLAContour()->front(), square->front());
  EXPECT_EQ(instance->GetLAContour(), part.GetExternalLAContour());
  EXPECT_FALSE(instance->IsLAContourReversed());
  EXPECT_EQ(instance->GetLAContourStartPosition(), 0);
  EXPECT_EQ(instance->size(), 4U);
  EXPECT_NE(instance->front(), elements.front());
  square->clear();
}

TEST(AddExternalContourInstance, ASecondCallReplacesBothPointersAndDestroysNothing) {
  GXLAPart part;
  GX2DElmList elements;
  support::Add(elements, support::Line(0, 0, 1, 0));
  const auto first = Square(kCCW);
  const auto second = Square(kCCW);
  const std::unique_ptr<GXLAContourInstance> firstInstance(
      part.AddExternalContourInstance(elements, *first));
  const std::unique_ptr<GXLAContour> firstContour(part.GetExternalLAContour());
  part.AddExternalContourInstance(elements, *second);
  EXPECT_NE(part.GetExternalLAContour(), firstContour.get());
  EXPECT_NE(part.GetExternalLAContourInstance(), firstInstance.get());
  EXPECT_EQ(firstContour->size(), 8U);
  EXPECT_EQ(firstInstance->size(), 1U);
  // The kept copies own the elements of both.
  first->clear();
  second->clear();
}

TEST(AddInternalContourInstance, GroupsTenEqualCircles) {
  GXLAPart part;
  for (int i = 0; i < 10; ++i) {
    GX2DElmList elements;
    const GX2DPoint start = support::OnCircle(5.0 * i, 0, 2, 36.0 * i);
    support::Add(elements, GX2DArc(GX2DPoint(5.0 * i, 0), start, start, i % 2 == 0));
    const auto circle = ClosedContour(i % 2 == 0 ? kCW : kCCW, "R 12.566370614359172 A 180");
    AddInternal(part, *circle, elements);
    if (i == 0) circle->clear();
  }
  EXPECT_EQ(part.GetInternalLAContourList().size(), 1U);
  EXPECT_EQ(part.GetInternalLAContourInstanceList().size(), 10U);
  EXPECT_EQ(part.GetInternalLAContourManager().size(), 1U);
  EXPECT_EQ(part.GetInternalLAContourManager().CountNmbContourInstances(), 10);
}

TEST(AddInternalContourInstance, TheFirstOfAShapeIsNotReversedLaterOnesAre) {
  GXLAPart part;
  const GXLAContourInstance* first = AddInternal(part, Square(kCCW));
  const GXLAContourInstance* later = AddInternal(part, Square(kCCW));
  const GXLAContourInstance* backward = AddInternal(part, Square(kCW));
  EXPECT_FALSE(first->IsLAContourReversed());
  EXPECT_EQ(first->GetLAContourStartPosition(), 0);
  EXPECT_TRUE(later->IsLAContourReversed());
  EXPECT_TRUE(backward->IsLAContourReversed());
  EXPECT_EQ(later->GetLAContour(), first->GetLAContour());
}

TEST(AddInternalContourInstance, StoresTheStartPositionOfTheOccurrence) {
  GXLAPart part;
  AddInternal(part, ClosedContour(kCCW, "L 5 A 90 L 6 A 80 L 7 A 70"));
  const GXLAContourInstance* later =
      AddInternal(part, ClosedContour(kCCW, "L 7 A 70 L 5 A 90 L 6 A 80"));
  // The stored shape's first segment, 5, is found at position 2 of the occurrence.
  EXPECT_EQ(later->GetLAContourStartPosition(), 2);
}

TEST(AddInternalContourInstance, KeepsLongShapesInFrontOfShortOnes) {
  GXLAPart part;
  AddInternal(part, support::Rectangle(1, 2));
  AddInternal(part, support::Rectangle(10, 20));
  EXPECT_EQ(part.GetInternalLAContourList().front()->GetTotalGeometryLength(), 60.0);
  EXPECT_EQ(part.GetInternalLAContourList().back()->GetTotalGeometryLength(), 6.0);
}

TEST(AddInternalContourInstance, KeepsInstancesInTheOrderOfAdding) {
  GXLAPart part;
  GXLAContourInstance* first = AddInternal(part, support::Rectangle(1, 2));
  GXLAContourInstance* second = AddInternal(part, support::Rectangle(10, 20));
  GXLAContourInstance* third = AddInternal(part, support::Rectangle(1, 2));
  const GXLAContourInstanceList& instances = part.GetInternalLAContourInstanceList();
  EXPECT_EQ(std::vector<GXLAContourInstance*>(instances.begin(), instances.end()),
            std::vector<GXLAContourInstance*>({first, second, third}));
  const auto& group = part.GetInternalLAContourManager().at(first->GetLAContour());
  EXPECT_EQ(std::vector<GXLAContourInstance*>(group.begin(), group.end()),
            std::vector<GXLAContourInstance*>({first, third}));
}

TEST(AddInternalContourInstance, AnOpenContourJoinsOnTheBasicChecksWithPositionZero) {
  GXLAPart part;
  AddInternal(part, support::OpenContour("L 10 A 90 L 20 A 30 L 5"));
  const GXLAContourInstance* later =
      AddInternal(part, support::OpenContour("L 20 A 30 L 5 A 90 L 10"));
  EXPECT_EQ(part.GetInternalLAContourList().size(), 1U);
  EXPECT_EQ(later->GetLAContourStartPosition(), 0);
  EXPECT_FALSE(later->IsLAContourReversed());
}

TEST(AddInternalContourInstance, GivesNullAtANullEntry) {
  GXLAPart part;
  part.GetInternalLAContourList().push_back(nullptr);
  GX2DElmList elements;
  const auto square = Square(kCW);
  EXPECT_EQ(AddInternal(part, *square, elements), nullptr);
  EXPECT_TRUE(part.GetInternalLAContourInstanceList().empty());
}

TEST(AddInternalContourInstance, HandsTheTraceToTheComparison) {
  GXLAPart part;
  AddInternal(part, Square(kCCW));
  support::RecordingEvent trace;
  GX2DElmList elements;
  const auto triangle = ClosedContour(kCW, "L 3 A 90 L 4 A 37 L 5 A 53");
  AddInternal(part, *triangle, elements, trace.Event());
  triangle->clear();
  EXPECT_EQ(trace.Texts(), std::vector<std::string>({"Number of lines mismatch : 4 / 3"}));
}

TEST(GXLAPart, CopiesShareEverything) {
  GXLAPart part;
  GX2DElmList elements;
  const auto square = Square(kCCW);
  part.AddExternalContourInstance(elements, *square);
  square->clear();
  AddInternal(part, support::Rectangle(1, 2));
  GXLAPart copy(part);
  GXLAPart assigned;
  assigned = part;
  for (GXLAPart* each : {&copy, &assigned}) {
    EXPECT_EQ(each->GetExternalLAContour(), part.GetExternalLAContour());
    EXPECT_EQ(each->GetExternalLAContourInstance(), part.GetExternalLAContourInstance());
    EXPECT_EQ(each->GetInternalLAContourList().front(), part.GetInternalLAContourList().front());
    EXPECT_EQ(each->GetInternalLAContourManager().size(), 1U);
    each->ExternalLAContour = nullptr;
    each->ExternalLAContourInstance = nullptr;
    each->GetInternalLAContourList().clear();
    each->GetInternalLAContourInstanceList().clear();
  }
}

// Remembers what it visits; false at the n-th part.
class Recorder : public GXLAPartVisitor {
 public:
  explicit Recorder(std::size_t stopAt) : stopAt_(stopAt) {}
  bool Visit(GXLAPart& part) override {
    visited.push_back(&part);
    return visited.size() != stopAt_;
  }
  std::vector<GXLAPart*> visited;

 private:
  std::size_t stopAt_;
};

TEST(PartListAccept, EndsAtTheFirstFalse) {
  GXLAPartList parts;
  GXLAPartCreator creator(parts);
  GXLAPart* first = creator.CreateLAPart();
  GXLAPart* second = creator.CreateLAPart();
  creator.CreateLAPart();
  Recorder recorder(2);
  EXPECT_FALSE(parts.Accept(recorder));
  EXPECT_EQ(recorder.visited, std::vector<GXLAPart*>({first, second}));
}

TEST(PartListAccept, IsTrueForAnEmptyListAndPassesOverNull) {
  GXLAPartList parts;
  Recorder recorder(99);
  EXPECT_TRUE(parts.Accept(recorder));
  parts.push_back(nullptr);
  EXPECT_TRUE(parts.Accept(recorder));
  EXPECT_TRUE(recorder.visited.empty());
}

TEST(GXLAPart, AcceptGivesTheVisitorsResult) {
  GXLAPart part;
  Recorder refuses(1);
  Recorder agrees(9);
  EXPECT_FALSE(part.Accept(refuses));
  EXPECT_TRUE(part.Accept(agrees));
  EXPECT_EQ(agrees.visited, std::vector<GXLAPart*>({&part}));
}

TEST(GXLAPartCreator, AppendsToTheListThatOwnsTheParts) {
  GXLAPartList parts;
  GXLAPartCreator creator(parts);
  GXLAPart* part = creator.CreateLAPart();
  EXPECT_EQ(parts.back(), part);
  GXLAPartList copy(parts);
  EXPECT_EQ(copy.front(), part);
  copy.clear();
  parts.ClearWithContents();
  EXPECT_TRUE(parts.empty());
}

TEST(GXLAPartCreator, IsMadeOfAListWithoutBeingNamed) {
  static_assert(std::is_convertible_v<GXLAPartList&, GXLAPartCreator>);
  GXLAPartList parts;
  const auto create = [](GXLAPartCreator creator) { return creator.CreateLAPart(); };
  GXLAPart* const part = create(parts);
  EXPECT_EQ(part, parts.back());
}

TEST(GXLAPartsEqual, AssignmentGivesItself) {
  GXLAPartsEqual a;
  const GXLAPartsEqual b;
  EXPECT_EQ(&(a = b), &a);
}

}  // namespace
