#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace {

using support::Line;
using support::Point;

static_assert(std::is_polymorphic_v<GX2DElementVisitor>);
static_assert(!std::has_virtual_destructor_v<GX2DElementVisitor>);

/// Spells the kinds that it is shown; refuses the ones in `refused` and stops behind `stopBehind`.
class Speller final : public GX2DElementVisitor {
 public:
  std::string seen;
  std::string refused;
  char stopBehind = '\0';

  bool Visit(const GX2DArc& /*arc*/) override { return Note('A'); }
  bool Visit(const GX2DRectangle& /*rectangle*/) override { return Note('R'); }
  bool Visit(const GX2DLine& /*line*/) override { return Note('L'); }
  bool Visit(const GX2DPoint& /*point*/) override { return Note('P'); }

 private:
  bool Note(char kind) {
    seen += kind;
    if (kind == stopBehind) {
      StopAcceptElementVisitor();
    }
    return refused.find(kind) == std::string::npos;
  }
};

/// Line, arc, point, rectangle.
void FillWithAllKinds(GX2DElmList& list) {
  support::Add(list, Line(0, 0, 1, 0), support::Circle(0, 0, 1), Point(1, 2),
               support::Rect(0, 0, 1, 1));
}

/// A line that shows itself as the point of its start.
class Disguised : public GX2DLine {
 public:
  using GX2DLine::GX2DLine;
  bool Accept(GX2DElementVisitor& visitor) override { return visitor.Visit(Start); }
};

TEST(GX2DElementVisitor, RunsUntilItIsStopped) {
  Speller visitor;
  EXPECT_FALSE(visitor.IsAcceptElementVisitorStopped());
  visitor.StopAcceptElementVisitor();
  EXPECT_TRUE(visitor.IsAcceptElementVisitorStopped());
  visitor.StopAcceptElementVisitor();
  EXPECT_TRUE(visitor.IsAcceptElementVisitorStopped());
}

TEST(GX2DElementVisitor, CopiesCarryTheStopFlag) {
  Speller stopped;
  stopped.StopAcceptElementVisitor();
  const Speller copy(stopped);
  Speller assigned;
  assigned = stopped;
  EXPECT_TRUE(copy.IsAcceptElementVisitorStopped());
  EXPECT_TRUE(assigned.IsAcceptElementVisitorStopped());
  assigned = Speller();
  EXPECT_FALSE(assigned.IsAcceptElementVisitorStopped());
  EXPECT_TRUE(stopped.IsAcceptElementVisitorStopped());
}

TEST(Accept, ShowsEachElementAsItsKind) {
  GX2DElmList list;
  FillWithAllKinds(list);
  Speller visitor;
  for (GX2DElement* element : list) {
    EXPECT_TRUE(element->Accept(visitor));
  }
  EXPECT_EQ(visitor.seen, "LAPR");
}

TEST(Accept, ReturnsWhatTheVisitReturns) {
  GX2DElmList list;
  FillWithAllKinds(list);
  Speller visitor;
  visitor.refused = "LAPR";
  for (GX2DElement* element : list) {
    EXPECT_FALSE(element->Accept(visitor));
  }
}

TEST(Accept, PaysNoHeedToTheStopFlag) {
  Speller visitor;
  visitor.StopAcceptElementVisitor();
  EXPECT_TRUE(Point(1, 2).Accept(visitor));
  EXPECT_EQ(visitor.seen, "P");
}

TEST(AcceptOfAList, OfNothingIsTrue) {
  GX2DElmList list;
  Speller visitor;
  visitor.StopAcceptElementVisitor();
  EXPECT_TRUE(list.Accept(visitor));
  EXPECT_EQ(visitor.seen, "");
}

TEST(AcceptOfAList, VisitsInOrder) {
  GX2DElmList list;
  FillWithAllKinds(list);
  Speller visitor;
  EXPECT_TRUE(list.Accept(visitor));
  EXPECT_EQ(visitor.seen, "LAPR");
}

TEST(AcceptOfAList, ARefusedVisitEndsTheWalkWithFalse) {
  GX2DElmList list;
  FillWithAllKinds(list);
  Speller visitor;
  visitor.refused = "P";
  EXPECT_FALSE(list.Accept(visitor));
  EXPECT_EQ(visitor.seen, "LAP");
}

TEST(AcceptOfAList, ARaisedFlagEndsTheWalkWithTrueBehindTheElement) {
  GX2DElmList list;
  FillWithAllKinds(list);
  Speller visitor;
  visitor.stopBehind = 'A';
  EXPECT_TRUE(list.Accept(visitor));
  EXPECT_EQ(visitor.seen, "LA");
}

TEST(AcceptOfAList, RefusalGoesBeforeTheStopFlag) {
  GX2DElmList list;
  FillWithAllKinds(list);
  Speller visitor;
  visitor.stopBehind = 'A';
  visitor.refused = "A";
  EXPECT_FALSE(list.Accept(visitor));
}

TEST(AcceptOfAList, AFlagRaisedBeforehandLetsOneElementThrough) {
  GX2DElmList list;
  FillWithAllKinds(list);
  Speller visitor;
  visitor.StopAcceptElementVisitor();
  EXPECT_TRUE(list.Accept(visitor));
  EXPECT_EQ(visitor.seen, "L");
}

TEST(AcceptOfAList, ElementsOfOtherKindsAnswerForThemselves) {
  GX2DElmList list;
  support::Add(list, Line(0, 0, 1, 0), support::Foreign2D({0, 0}, {1, 1}), Point(1, 1));
  Speller visitor;
  EXPECT_TRUE(list.Accept(visitor));
  EXPECT_EQ(visitor.seen, "LP");
  support::At<support::Foreign2D>(list, 1).accepted = false;
  visitor.seen.clear();
  EXPECT_FALSE(list.Accept(visitor));
  EXPECT_EQ(visitor.seen, "L");
}

TEST(GX2DElementCreator, CopiesEachOfTheFourKinds) {
  GX2DPoint point(1, 2);
  GX2DLine line(1, 2, 3, 4);
  GX2DRectangle rectangle(1, 2, 3, 4);
  GX2DArc arc = support::Arc(0, 0, 1, 0, 0.5, 0.5, 0, 1);
  const std::unique_ptr<GX2DElement> a(GX2DElementCreator::GX2DElement(point));
  const std::unique_ptr<GX2DElement> b(GX2DElementCreator::GX2DElement(line));
  const std::unique_ptr<GX2DElement> c(GX2DElementCreator::GX2DElement(rectangle));
  const std::unique_ptr<GX2DElement> d(GX2DElementCreator::GX2DElement(arc));
  EXPECT_POINT_EQ(dynamic_cast<GX2DPoint&>(*a), point);
  EXPECT_POINT_EQ(dynamic_cast<GX2DLine&>(*b), line);
  EXPECT_POINT_EQ(dynamic_cast<GX2DRectangle&>(*c), rectangle);
  EXPECT_POINT_EQ(dynamic_cast<GX2DArc&>(*d), arc);
  EXPECT_NE(a.get(), static_cast<GX2DElement*>(&point));
}

TEST(GX2DElementCreator, CreatesNothingForAnElementThatShowsNothing) {
  support::Foreign2D stranger({0, 0}, {1, 1});
  EXPECT_EQ(GX2DElementCreator::GX2DElement(stranger), nullptr);
}

TEST(GX2DElementCreator, CopiesADerivedLineAsALine) {
  std::vector<std::string> log;
  support::Logged<GX2DLine> line(log, "line", Line(1, 2, 3, 4));
  const std::unique_ptr<GX2DElement> copy(GX2DElementCreator::GX2DElement(line));
  const GX2DElement& made = *copy;
  EXPECT_EQ(typeid(made), typeid(GX2DLine));
  EXPECT_POINT_EQ(dynamic_cast<const GX2DLine&>(made), line);
}

TEST(GX2DElementCreator, CopiesWhatTheElementShows) {
  Disguised line(1, 2, 3, 4);
  const std::unique_ptr<GX2DElement> copy(GX2DElementCreator::GX2DElement(line));
  EXPECT_POINT_EQ(dynamic_cast<GX2DPoint&>(*copy), Point(1, 2));
}

TEST(GX2DElementCreator, IsAVisitorWhoseVisitsAreItsOwnAffair) {
  static_assert(std::is_base_of_v<GX2DElementVisitor, GX2DElementCreator>);
  const GX2DElementCreator creator;
  EXPECT_FALSE(creator.IsAcceptElementVisitorStopped());
}

}  // namespace
