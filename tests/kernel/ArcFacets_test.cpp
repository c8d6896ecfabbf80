#include <KTRCL_Geometry/kernel/Arcs.h>

#include "support/KernelArcs.h"

#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

namespace {

using support::FlatCircle;
using support::kDegree;
using support::KernelArc;
using support::KernelCircle;
using support::kInfinity;
using support::kNaN;
using support::kPi;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kX(1, 0, 0);
constexpr Vec kY(0, 1, 0);

constexpr double kRadians = 1e-14;
// Turns about an axis in space go through coordinates of some 10000, rounded to 1e-12.
constexpr double kTurned = 1e-11;

TEST(MinAngleRadianFacet3DArc, IsTwiceTheAngleWhoseCosineIsRadiusLessSagOverRadius) {
  EXPECT_NEAR(Min_angle_radian_facet_3D_arc(10, 1), 0.90205362359252, kRadians);
  EXPECT_NEAR(Min_angle_radian_facet_3D_arc(2, 1), 2 * kPi / 3, kRadians);
  EXPECT_NEAR(Min_angle_radian_facet_3D_arc(std::sqrt(2), std::sqrt(2) - 1), kPi / 2, kRadians);
}

TEST(MinAngleRadianFacet3DArc, Is0ForASagOfTheRadiusAndAbove) {
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(10, 10.5), 0.0);
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(10, 10), 0.0);
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(10, 9.99991), 0.0);
  EXPECT_NEAR(Min_angle_radian_facet_3D_arc(10, 9.99989), kPi, 1e-4);
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(10, kInfinity), 0.0);
}

TEST(MinAngleRadianFacet3DArc, Is0ForARadiusLessSagOfJust0Point0001) {
  const double bit = std::ldexp(1, -65);  // the last one of figures from 0.00012 to 0.00024
  const double radius = 0.0002 + bit, sag = 0.0001 + bit;
  ASSERT_EQ(radius - sag, 0.0001);
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(radius, sag), 0.0);
  EXPECT_GT(Min_angle_radian_facet_3D_arc(0.000202, 0.000101), 2.0);
}

TEST(MinAngleRadianFacet3DArc, Is0ForASagOfAtMost0Point0001) {
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(1, 0), 0.0);
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(1, 0.0001), 0.0);
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(1, -0.0001), 0.0);
  EXPECT_NEAR(Min_angle_radian_facet_3D_arc(1, 0.000101), 2 * std::acos(0.999899), 1e-12);
}

TEST(MinAngleRadianFacet3DArc, Is0ForARadiusOfAtMost0Point0001) {
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(0, -1), 0.0);
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(0.0001, -1), 0.0);
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(-0.0001, -1), 0.0);
}

TEST(MinAngleRadianFacet3DArc, IsNaNForACosineBeyond1) {
  EXPECT_TRUE(std::isnan(Min_angle_radian_facet_3D_arc(10, -1)));
  EXPECT_TRUE(std::isnan(Min_angle_radian_facet_3D_arc(0.000101, -1)));
  EXPECT_TRUE(std::isnan(Min_angle_radian_facet_3D_arc(kInfinity, 1)));
}

TEST(MinAngleRadianFacet3DArc, TakesANegativeRadiusByItsMagnitude) {
  EXPECT_NEAR(Min_angle_radian_facet_3D_arc(-10, -15), 4 * kPi / 3, kRadians);
}

TEST(MinAngleRadianFacet3DArc, Is0ForFiguresThatAreNoNumbers) {
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(kNaN, 1), 0.0);
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(10, kNaN), 0.0);
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(kO, Vec(kNaN, 0, 0), 1), 0.0);
}

TEST(MinAngleRadianFacet3DArc, TakesTheDistanceOfTwoPointsAsRadius) {
  EXPECT_NEAR(Min_angle_radian_facet_3D_arc(Vec(1, 2, 3), Vec(3, 5, 9), 1), 2 * std::acos(6.0 / 7),
              kRadians);
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(Vec(1, 2, 3), Vec(3, 5, 9), 7.5), 0.0);
  EXPECT_EQ(Min_angle_radian_facet_3D_arc(kO, Vec(0, 0, 0.0001), -1), 0.0);
}

TEST(MinAngleRadianFacet3DArc, IsTheAngleOfAFacetWithThatSag) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const double radius = random.Between(1, 100);
    const double sag = random.Between(0.01, 0.99) * radius;
    const double angle = Min_angle_radian_facet_3D_arc(radius, sag);
    EXPECT_NEAR(radius * (1 - std::cos(angle / 2)), sag, 1e-12);
  }
}

// The facets of an arc in a list of its own.
class Facets {
 public:
  ~Facets() { list.ClearWithContents(); }

  static constexpr bool kInDegrees = true;
  static constexpr bool kInRadians = false;

  int Append(const KernelArc& arc, double step, bool degrees, int unit = 0) {
    return Facet_3D_arc(unit, arc.centre, arc.start, arc.middle, arc.end, step, list, degrees);
  }
  std::size_t Count() const { return list.size(); }
  Vec Start(std::size_t i) const { return At(support::At<GX3DLine>(list, i).Start); }
  Vec End(std::size_t i) const { return At(support::At<GX3DLine>(list, i).End); }

  GX3DElmList list;

 private:
  static Vec At(const GX3DPoint& p) { return {p.X, p.Y, p.Z}; }
};

std::size_t CountOf(const KernelArc& arc, double step, bool degrees = Facets::kInDegrees,
                    int unit = 0) {
  Facets facets;
  facets.Append(arc, step, degrees, unit);
  return facets.Count();
}

void ExpectOneLine(const KernelArc& arc, double step, bool degrees = Facets::kInDegrees) {
  Facets facets;
  facets.Append(arc, step, degrees);
  ASSERT_EQ(facets.Count(), 1u);
  EXPECT_POINT_EQ(facets.Start(0), arc.start);
  EXPECT_POINT_EQ(facets.End(0), arc.end);
}

const KernelCircle kTen = FlatCircle(1, 2, 10);
const KernelArc kQuarter = kTen.Arc(0, kPi / 2);

TEST(Facet3DArc, RoundsTheCountOfAQuarterInStepsOf40To2AndOf35To3) {
  EXPECT_EQ(CountOf(kQuarter, 40), 2u);
  EXPECT_EQ(CountOf(kQuarter, 35), 3u);
  EXPECT_EQ(CountOf(kQuarter, 40 * kDegree, Facets::kInRadians), 2u);
  EXPECT_EQ(CountOf(kQuarter, 35 * kDegree, Facets::kInRadians), 3u);
}

TEST(Facet3DArc, RoundsHalvesUp) {
  EXPECT_EQ(CountOf(kQuarter, 90 / 2.4999), 2u);
  EXPECT_EQ(CountOf(kQuarter, 90 / 2.5001), 3u);
  EXPECT_EQ(CountOf(kQuarter, 90 / 1.4999), 1u);
  EXPECT_EQ(CountOf(kQuarter, 90 / 1.5001), 2u);
}

TEST(Facet3DArc, GoesFromStartToEndOverPointsOfTheArc) {
  Facets facets;
  facets.Append(kQuarter, 35, Facets::kInDegrees);
  ASSERT_EQ(facets.Count(), 3u);
  EXPECT_POINT_EQ(facets.Start(0), kQuarter.start);
  EXPECT_POINT_NEAR(facets.End(0), kTen.At(kPi / 6), kTurned);
  EXPECT_POINT_EQ(facets.Start(1), facets.End(0));
  EXPECT_POINT_NEAR(facets.End(1), kTen.At(kPi / 3), kTurned);
  EXPECT_POINT_EQ(facets.Start(2), facets.End(1));
  EXPECT_POINT_EQ(facets.End(2), kQuarter.end);
}

TEST(Facet3DArc, AppendsToWhatTheListHolds) {
  Facets facets;
  support::Add(facets.list, support::Line(7, 8, 9, 10, 11, 12));
  const GX3DElement* const first = facets.list.at(0);
  facets.Append(kQuarter, 40, Facets::kInDegrees);
  ASSERT_EQ(facets.Count(), 3u);
  EXPECT_EQ(facets.list.at(0), first);
  EXPECT_POINT_EQ(facets.Start(0), Vec(7, 8, 9));
  EXPECT_POINT_EQ(facets.Start(1), kQuarter.start);
  facets.Append(kQuarter, 40, Facets::kInDegrees);
  ASSERT_EQ(facets.Count(), 5u);
  EXPECT_POINT_EQ(facets.Start(3), kQuarter.start);
}

TEST(Facet3DArc, Returns1InAllCases) {
  Facets facets;
  EXPECT_EQ(facets.Append(kQuarter, 35, Facets::kInDegrees), 1);
  EXPECT_EQ(facets.Append(kQuarter, 0, Facets::kInDegrees), 1);
  EXPECT_EQ(facets.Append({kO, kX, kY, kX}, 0, Facets::kInDegrees), 1);
}

TEST(Facet3DArc, GivesOneLineForASpanBelowTheStep) {
  ExpectOneLine(kQuarter, 90.001);
  ExpectOneLine(kQuarter, 1e300);
  ExpectOneLine(kQuarter, kInfinity);
  ExpectOneLine(kQuarter, 1.571, Facets::kInRadians);
}

TEST(Facet3DArc, GivesOneLineForAStepBelow0Point0001Radians) {
  const KernelArc narrow = kTen.Arc(0, 0.01);
  ExpectOneLine(narrow, 0.0000999, Facets::kInRadians);
  ExpectOneLine(narrow, 0, Facets::kInRadians);
  ExpectOneLine(narrow, 0.0057, Facets::kInDegrees);
  EXPECT_EQ(CountOf(narrow, 0.0001, Facets::kInRadians), 100u);
  EXPECT_EQ(CountOf(narrow, 0.00573, Facets::kInDegrees), 100u);
}

TEST(Facet3DArc, GivesOneLineForANegativeStep) {
  ExpectOneLine(kQuarter, -35);
  ExpectOneLine(kQuarter, -1e-9);
  ExpectOneLine(kQuarter, -kInfinity);
}

TEST(Facet3DArc, GivesOneLineForAStepThatIsNoNumber) { ExpectOneLine(kQuarter, kNaN); }

TEST(Facet3DArc, GivesOneLineForCentreStartAndMiddleInLine) {
  ExpectOneLine({kO, kX, Vec(-1, 0, 0), kY}, 10);
  ExpectOneLine({kO, kX, kX, kY}, 10);
  ExpectOneLine({kO, kX, kO, kY}, 10);
  ExpectOneLine({kO, kX, Vec(-1, 0, 0), Vec(-1, 0, 0)}, 10);
}

// The normal is shorter than 0.0001, and with it the span 0.
TEST(Facet3DArc, GivesOneLineForASmallArc) {
  ExpectOneLine(FlatCircle(0, 0, 0.0099).Arc(0, kPi), 10);
  EXPECT_EQ(CountOf(FlatCircle(0, 0, 0.0101).Arc(0, kPi), 10), 18u);
}

TEST(Facet3DArc, GivesNothingForEndsAtMost0Point0001ApartWhereItWouldBeOneLine) {
  EXPECT_EQ(CountOf({kO, kX, kY, kX}, 10), 0u);
  EXPECT_EQ(CountOf({kO, kX, kY, Vec(1, 0.0001, 0)}, 10), 0u);
  EXPECT_EQ(CountOf({kO, kX, kY, Vec(1, 0, -0.0001)}, 10), 0u);
  EXPECT_EQ(CountOf({kO, kX, kY, Vec(1, 0.00008, 0.00008)}, 10), 1u);
  ExpectOneLine({kO, kX, kY, Vec(1, 0.000101, 0)}, 10);
}

TEST(Facet3DArc, GoesAllTheWayRoundAReflexArc) {
  Facets facets;
  facets.Append(kTen.Arc(0.5, 1.5 * kPi), 90, Facets::kInDegrees);
  ASSERT_EQ(facets.Count(), 3u);
  EXPECT_POINT_NEAR(facets.End(0), kTen.At(0.5 + kPi / 2), kTurned);
  EXPECT_POINT_NEAR(facets.End(1), kTen.At(0.5 + kPi), kTurned);
  EXPECT_POINT_EQ(facets.End(2), kTen.At(0.5 + 1.5 * kPi));
}

TEST(Facet3DArc, GoesWithTheSenseOfTheArc) {
  Facets facets;
  facets.Append(kTen.Arc(0, -kPi / 2), 45, Facets::kInDegrees);
  ASSERT_EQ(facets.Count(), 2u);
  EXPECT_POINT_NEAR(facets.End(0), kTen.At(-kPi / 4), kTurned);
}

TEST(Facet3DArc, EndsAFullCircleAtTheEndWhereverThatLies) {
  Facets facets;
  facets.Append(kTen.Full(0, 2), 90, Facets::kInDegrees);
  ASSERT_EQ(facets.Count(), 4u);
  EXPECT_POINT_NEAR(facets.End(0), kTen.At(kPi / 2), kTurned);
  EXPECT_POINT_NEAR(facets.End(1), kTen.At(kPi), kTurned);
  EXPECT_POINT_NEAR(facets.End(2), kTen.At(1.5 * kPi), kTurned);
  EXPECT_POINT_EQ(facets.End(3), kTen.At(2));
}

// 2 pi over 0.0001 is 62831.85: no step gives more.
TEST(Facet3DArc, GivesAtMost62832LinesForAFullCircle) {
  EXPECT_EQ(CountOf(kTen.Full(0, 2), 0.0001, Facets::kInRadians), 62832u);
}

TEST(Facet3DArc, TurnsBackByTheMinus1OfAnEndAtTheCentre) {
  Facets facets;
  facets.Append({kTen.centre, kTen.At(0), kTen.At(1), kTen.centre}, 0.5, Facets::kInRadians);
  ASSERT_EQ(facets.Count(), 2u);
  EXPECT_POINT_NEAR(facets.End(0), kTen.At(-0.5), kTurned);
  EXPECT_POINT_EQ(facets.End(1), kTen.centre);
}

// Start and middle stand 0.00005 apart, seen from the centre.
TEST(Facet3DArc, HandsTheUnitFlagToInline) {
  const KernelArc arc = {kO, Vec(10, 0, 0), Vec(10, 0.0005, 0), Vec(0, 10, 0)};
  const auto count = [&](int unit) { return CountOf(arc, 30, Facets::kInDegrees, unit); };
  support::ExpectOnly1IsInches(count, std::size_t{1}, std::size_t{3});
}

TEST(Facet3DArc, HandsTheUnitFlagToTheTurns) {
  const KernelArc arc = support::CircleBeforeTheFixedPoint(0.05).Arc(0, 2);
  const auto turned = [&](int unit) {
    Facets facets;
    facets.Append(arc, 1, Facets::kInRadians, unit);
    return facets.End(0)[1] != arc.start[1];
  };
  support::ExpectOnly1IsInches(turned, false, true);
}

TEST(Facet3DArc, RepeatsTheLastPointWhereTheTurnFails) {
  const KernelArc arc = support::CircleBeforeTheFixedPoint(0).Arc(0, 3);
  Facets facets;
  facets.Append(arc, 1, Facets::kInRadians);
  ASSERT_EQ(facets.Count(), 3u);
  EXPECT_POINT_EQ(facets.End(0), arc.start);
  EXPECT_POINT_EQ(facets.End(1), arc.start);
  EXPECT_POINT_EQ(facets.Start(2), arc.start);
  EXPECT_POINT_EQ(facets.End(2), arc.end);
}

TEST(Facet3DArc, EndsForPointsThatAreNotFinite) {
  for (const double bad : {kNaN, kInfinity, -kInfinity}) {
    const Vec far(bad, bad, bad);
    EXPECT_LE(CountOf({far, kX, kY, Vec(-1, 0, 0)}, 1), 63u);
    EXPECT_LE(CountOf({kO, far, kY, Vec(-1, 0, 0)}, 1), 63u);
    EXPECT_LE(CountOf({kO, kX, far, Vec(-1, 0, 0)}, 1), 180u);
    EXPECT_LE(CountOf({kO, kX, kY, far}, 1), 63u);
  }
}

TEST(Facet3DArc, ChainsEqualTurnsOnTheCircleThatAddUpToTheSpan) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const KernelCircle circle = support::RandomCircle(random);
    const double from = random.Between(-4, 4), span = support::RandomSpan(random, 0.2);
    const double step = random.Between(0.03, 0.5);
    const KernelArc arc = circle.Arc(from, span);
    Facets facets;
    facets.Append(arc, step, Facets::kInRadians, i % 2);
    const auto n = static_cast<std::size_t>(std::lround(std::fabs(span) / step));
    ASSERT_EQ(facets.Count(), n == 0 ? 1 : n);
    double sum = 0;
    Vec last = arc.start;
    for (std::size_t k = 0; k < facets.Count(); ++k) {
      ASSERT_POINT_EQ(facets.Start(k), last);
      last = facets.End(k);
      const double part = static_cast<double>(k + 1) / static_cast<double>(facets.Count());
      ASSERT_POINT_NEAR(last, circle.At(from + span * part), 1e-10);
      EXPECT_NEAR(support::Length(last - circle.centre), circle.radius, kTurned);
      const double chord = support::Length(last - facets.Start(k));
      sum += 2 * std::asin(chord / 2 / circle.radius);
    }
    EXPECT_POINT_EQ(last, arc.end);
    EXPECT_NEAR(sum, std::fabs(span), 1e-9);
  }
}

// pi over 0.4510268 is 6.965.
TEST(CalSegmentN, TruncatesTheCountAnd1) {
  EXPECT_EQ(Cal_segment_n(10, 1), 7);
  EXPECT_EQ(Cal_segment_n(1, 0.29), 5);
  EXPECT_EQ(Cal_segment_n(1, 0.3), 4);
}

TEST(CalSegmentN, DoesNotGuardASagFromTheRadiusOn) {
  EXPECT_EQ(Cal_segment_n(10, 10), 3);
  EXPECT_EQ(Cal_segment_n(10, 15), 2);
  EXPECT_EQ(Cal_segment_n(10, 20), 2);
  EXPECT_EQ(Cal_segment_n(-10, -1), 7);
}

TEST(CalSegmentN, Is0WhereThatIsNoCount) {
  EXPECT_EQ(Cal_segment_n(10, 0), 0);
  EXPECT_EQ(Cal_segment_n(10, 1e-20), 0);
  EXPECT_EQ(Cal_segment_n(10, -1), 0);
  EXPECT_EQ(Cal_segment_n(10, 21), 0);
  EXPECT_EQ(Cal_segment_n(0, 1), 0);
  EXPECT_EQ(Cal_segment_n(0, 0), 0);
  EXPECT_EQ(Cal_segment_n(kNaN, 1), 0);
  EXPECT_EQ(Cal_segment_n(10, kNaN), 0);
  EXPECT_EQ(Cal_segment_n(kInfinity, 1), 0);
  EXPECT_EQ(Cal_segment_n(10, kInfinity), 0);
}

// The cosine next to 1 is 1 - 2^-53, whose arc is 2^-26: pi times 67108864 and 1.
TEST(CalSegmentN, ReachesItsGreatestCountAtTheCosineNextTo1) {
  const double sag = std::ldexp(1, -53);
  EXPECT_NEAR(Cal_segment_n(1, sag), kPi * std::ldexp(1, 26) + 1, 2);
}

}  // namespace
