// ELLIPSE and SPLINE from the text of a drawing: what is read, what is refused and why, and the
// verdicts that follow.
#include "drawing/DxfCurves.h"

#include "drawing/Contours.h"
#include "drawing/CurveMeasures.h"
#include "drawing/DxfReader.h"
#include "drawing/PartComparison.h"
#include "support/DxfText.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

namespace drawing {
namespace {

constexpr double kPi = 3.14159265358979323846;

// Groups 10 and 20 of a row of points "x,y x,y".
std::string Points(const std::string& row, int code = 10) {
  std::string text;
  std::istringstream in(row);
  for (std::string pair; in >> pair;) {
    const std::size_t comma = pair.find(',');
    text += " " + std::to_string(code) + " " + pair.substr(0, comma) + " " +
            std::to_string(code + 10) + " " + pair.substr(comma + 1);
  }
  return text;
}

std::string Repeated(int code, const std::string& values) {
  std::string text;
  std::istringstream in(values);
  for (std::string value; in >> value;) text += " " + std::to_string(code) + " " + value;
  return text;
}

std::string Spline(int degree, const std::string& knots, const std::string& points,
                   const std::string& more = "") {
  return "0 SPLINE 5 C1 70 8 71 " + std::to_string(degree) + Repeated(40, knots) + Points(points) +
         " " + more;
}

const char* const kCubicKnots = "0 0 0 0 1 1 1 1";
const char* const kCubicPoints = "0,0 0,5 5,10 10,10";

Drawing Read(const std::string& entities, double tolerance = 0.01) {
  ReadOptions options;
  options.curveTolerance = tolerance;
  return ReadDrawingText(support::Dxf(entities), "test.dxf", options);
}

void ExpectRefused(const std::string& entity, const std::string& what) {
  SCOPED_TRACE(entity);
  const Drawing drawing = Read(entity + " 0 LINE 10 0 20 0 11 9 21 0");
  EXPECT_EQ(drawing.elements.size(), 1u);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(ToLine(drawing.complaints[0]), what);
  EXPECT_EQ(drawing.refusedByType.size(), 1u);
  EXPECT_EQ(drawing.curves.curves, 0u);
}

TEST(Ellipse, OfRatioOneIsACircle) {
  const Drawing drawing = Read("0 ELLIPSE 10 3 20 4 11 0 21 7 40 1 41 0 42 6.283185307179586");
  ASSERT_EQ(drawing.elements.size(), 1u);
  const auto& circle = dynamic_cast<GX2DArc&>(*drawing.elements[0].element);
  EXPECT_TRUE(circle.IsCircle());
  EXPECT_NEAR(circle.Radius(), 7.0, 1e-12);
  EXPECT_EQ(drawing.curves.circles, 1u);
  EXPECT_TRUE(drawing.unusedByType.empty());
  EXPECT_TRUE(drawing.complaints.empty());
}

TEST(Ellipse, IsScaledToMillimetres) {
  const Drawing drawing = ReadDrawingText(
      support::DxfWithHeader("9 $INSUNITS 70 1", "0 ELLIPSE 10 1 20 0 11 2 21 0 40 1"), "inch.dxf");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_NEAR(dynamic_cast<GX2DArc&>(*drawing.elements[0].element).Radius(), 50.8, 1e-9);
}

TEST(Ellipse, RunsFromItsFirstToItsSecondParameter) {
  const Drawing drawing = Read("0 ELLIPSE 10 0 20 0 11 10 21 0 40 1 41 4.71238898038469 42 0");
  ASSERT_EQ(drawing.elements.size(), 1u);
  GX2DElement& arc = *drawing.elements[0].element;
  EXPECT_NEAR(arc.GetStartPoint().Y, -10.0, 1e-12);
  EXPECT_NEAR(arc.GetEndPoint().X, 10.0, 1e-12);
  EXPECT_NEAR(ElementLength(arc), 5 * kPi, 1e-9);
}

TEST(Ellipse, SeenFromBelowRunsTheOtherWayRoundInTheSamePlace) {
  // Its centre and axis are coordinates of the drawing whatever the extrusion; only the minor axis
  // lies on the other side.
  const Drawing drawing =
      Read("0 ELLIPSE 10 30 20 0 11 10 21 0 40 1 41 0 42 1.5707963267948966 210 0 220 0 230 -1");
  ASSERT_EQ(drawing.elements.size(), 1u);
  GX2DElement& arc = *drawing.elements[0].element;
  EXPECT_NEAR(arc.GetStartPoint().X, 40.0, 1e-12);
  EXPECT_NEAR(arc.GetEndPoint().X, 30.0, 1e-12);
  EXPECT_NEAR(arc.GetEndPoint().Y, -10.0, 1e-12);
}

TEST(Ellipse, WithEqualParametersIsWholeWithAWarning) {
  const Drawing drawing = Read("0 ELLIPSE 10 0 20 0 11 10 21 0 40 1 41 2 42 2");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(dynamic_cast<GX2DArc&>(*drawing.elements[0].element).IsCircle());
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].done, "taken as a whole ellipse");
}

TEST(Ellipse, WithABadFigureIsRefused) {
  const std::string line = "test.dxf:20: error: ELLIPSE: ";
  ExpectRefused("0 ELLIPSE 10 0 20 0 11 1 21 0 40 0",
                line + "its ratio is not above 0 and up to 1; not used");
  ExpectRefused("0 ELLIPSE 10 0 20 0 11 1 21 0 40 1.5",
                line + "its ratio is not above 0 and up to 1; not used");
  ExpectRefused("0 ELLIPSE 10 0 20 0 11 1 21 0 40 -0.5",
                line + "its ratio is not above 0 and up to 1; not used");
  ExpectRefused("0 ELLIPSE 10 0 20 0 11 0 21 0 40 1",
                line + "its major axis has no length; not used");
  ExpectRefused("0 ELLIPSE 10 0 20 0 11 1 40 1", line + "group 21 is missing; not used");
  ExpectRefused("0 ELLIPSE 10 0 20 0 11 1 21 0", line + "group 40 is missing; not used");
  ExpectRefused("0 ELLIPSE 10 0 20 0 11 1 21 0 40 nan",
                "test.dxf:30: error: ELLIPSE: \"nan\" is no number (group 40); not used");
  ExpectRefused("0 ELLIPSE 10 0 20 0 11 1e308 21 1e308 40 1",
                line + "a coordinate is too large; not used");
  ExpectRefused("0 ELLIPSE 10 0 20 0 11 1 21 0 40 1 210 1 220 0 230 0",
                line + "its extrusion is not along z; not used");
}

TEST(Ellipse, TooLargeToBeFollowedIsRefused) {
  const Drawing drawing = Read("0 ELLIPSE 10 0 20 0 11 1e12 21 0 40 0.5");
  EXPECT_TRUE(drawing.elements.empty());
  EXPECT_EQ(drawing.refusedByType.at("ELLIPSE"), 1);
}

TEST(Spline, BecomesArcsWithinTheTolerance) {
  const Drawing drawing = Read(Spline(3, kCubicKnots, kCubicPoints));
  ASSERT_FALSE(drawing.elements.empty());
  EXPECT_EQ(drawing.curves.curves, 1u);
  EXPECT_EQ(drawing.curves.arcs + drawing.curves.lines, drawing.elements.size());
  EXPECT_GT(drawing.curves.largestDeviation, 0.0);
  EXPECT_LE(drawing.curves.largestDeviation, 0.01);
  EXPECT_TRUE(drawing.elements.front().element->GetStartPoint() == GX2DPoint(0, 0));
  EXPECT_TRUE(drawing.elements.back().element->GetEndPoint() == GX2DPoint(10, 10));
  EXPECT_TRUE(drawing.complaints.empty());
  EXPECT_LT(Read(Spline(3, kCubicKnots, kCubicPoints), 0.5).elements.size(),
            drawing.elements.size());
}

TEST(Spline, OfDegreeOneIsTheRowOfItsPointsExactly) {
  const Drawing drawing = Read(Spline(1, "0 0 1 2 3 3", "0,0 7,1 9,8 0.1,0.2"));
  ASSERT_EQ(drawing.elements.size(), 3u);
  EXPECT_EQ(drawing.elements[1].element->GetStartPoint().X, 7.0);
  EXPECT_EQ(drawing.elements[2].element->GetEndPoint().Y, 0.2);
  EXPECT_EQ(drawing.curves.lines, 3u);
  EXPECT_EQ(drawing.curves.largestDeviation, 0.0);
}

TEST(Spline, WithWeightsIsRational) {
  const Drawing drawing =
      Read(Spline(2, "0 0 0 1 1 1", "5,0 5,5 0,5", Repeated(41, "1 0.7071067811865476 1")));
  ASSERT_EQ(drawing.elements.size(), 1u);
  const auto& arc = dynamic_cast<GX2DArc&>(*drawing.elements[0].element);
  EXPECT_NEAR(arc.Radius(), 5.0, 1e-9);
  EXPECT_NEAR(arc.Center.X, 0.0, 1e-9);
}

TEST(Spline, SeenFromBelowLiesWhereItsPointsLie) {
  const Drawing drawing = Read(Spline(3, kCubicKnots, kCubicPoints, "210 0 220 0 230 -1"));
  ASSERT_FALSE(drawing.elements.empty());
  EXPECT_TRUE(drawing.elements.back().element->GetEndPoint() == GX2DPoint(10, 10));
}

TEST(Spline, WithFitPointsAloneGoesThroughThem) {
  const Drawing drawing = Read("0 SPLINE 70 8 71 3 72 0 73 0 74 4" +
                               Points("0,0 10,5 20,-5 30,0", 11) + " 12 1 22 0 32 0");
  ASSERT_GT(drawing.elements.size(), 3u);
  for (const GX2DPoint& fit : {GX2DPoint(10, 5), GX2DPoint(20, -5)}) {
    double nearest = 1e300;
    for (const DrawnElement& element : drawing.elements) {
      nearest = std::min(nearest, DistanceToElement(fit, *element.element));
    }
    EXPECT_LE(nearest, 0.01);
  }
  // It starts along x.
  double x = 0.0;
  double y = 0.0;
  ASSERT_TRUE(TangentAt(*drawing.elements.front().element, false, x, y));
  EXPECT_GT(x, 0.0);
  EXPECT_NEAR(y / x, 0.0, 0.05);
}

TEST(Spline, WithControlPointsLeavesItsFitPointsOut) {
  const Drawing drawing = Read(Spline(3, kCubicKnots, kCubicPoints, "74 1 11 500 21 500"));
  ASSERT_FALSE(drawing.elements.empty());
  for (const DrawnElement& e : drawing.elements) EXPECT_LT(e.element->GetEndPoint().X, 11.0);
}

TEST(Spline, MarkedAsClosedWithItsEndsApartIsTakenAsDrawnWithAWarning) {
  const Drawing drawing =
      Read("0 SPLINE 70 11 71 3" + Repeated(40, kCubicKnots) + Points(kCubicPoints));
  EXPECT_FALSE(drawing.elements.empty());
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(ToLine(drawing.complaints[0]),
            "test.dxf:20: warning: SPLINE: it is marked as closed, and its ends do not meet; taken "
            "as drawn");
}

TEST(Spline, WithHeightsIsProjectedWithTheOthers) {
  const Drawing drawing =
      Read("0 SPLINE 70 8 71 1" + Repeated(40, "0 0 1 1") + " 10 0 20 0 30 5 10 9 20 0 30 5");
  EXPECT_EQ(drawing.elements.size(), 1u);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].done, "projected along z");
}

TEST(Spline, WithWrongCountsIsRefused) {
  const std::string line = "test.dxf:20: error: SPLINE C1: ";
  ExpectRefused(Spline(3, "0 0 0 0 1 1 1", kCubicPoints),
                line + "it has 7 knots; 4 control points of degree 3 have 8; not used");
  ExpectRefused(Spline(3, kCubicKnots, kCubicPoints, "72 9"),
                line + "it states 9 knots and has 8; not used");
  ExpectRefused(Spline(3, kCubicKnots, kCubicPoints, "73 2000000000"),
                line + "it states 2000000000 control points and has 4; not used");
  ExpectRefused(Spline(3, kCubicKnots, kCubicPoints, "74 3"),
                line + "it states 3 fit points and has 0; not used");
  ExpectRefused(Spline(3, "0 0 0 1 1 1", "0,0 1,1 2,0"),
                line + "degree 3 needs more than its 3 control points; not used");
  ExpectRefused(Spline(3, kCubicKnots, kCubicPoints, "41 1 41 1"),
                line + "it has 2 weights for 4 control points; not used");
}

TEST(Spline, WithABadDegreeIsRefused) {
  const std::string line = "test.dxf:20: error: SPLINE C1: ";
  ExpectRefused(Spline(0, kCubicKnots, kCubicPoints),
                line + "its degree is 0, not from 1 to 25; not used");
  ExpectRefused(Spline(-3, kCubicKnots, kCubicPoints),
                line + "its degree is -3, not from 1 to 25; not used");
  ExpectRefused(Spline(26, kCubicKnots, kCubicPoints),
                line + "its degree is 26, not from 1 to 25; not used");
  ExpectRefused("0 SPLINE 5 C1 70 8" + Repeated(40, kCubicKnots) + Points(kCubicPoints),
                line + "group 71 is missing; not used");
}

TEST(Spline, WithBadKnotsIsRefused) {
  ExpectRefused(Spline(3, "0 0 0 0 1 1 0.5 1", kCubicPoints),
                "test.dxf:40: error: SPLINE C1: its knots decrease; not used");
  ExpectRefused(Spline(3, "2 2 2 2 2 2 2 2", kCubicPoints),
                "test.dxf:20: error: SPLINE C1: its knots span nothing; not used");
  ExpectRefused(Spline(3, "-1e308 -1e308 -1e308 -1e308 1e308 1e308 1e308 1e308", kCubicPoints),
                "test.dxf:20: error: SPLINE C1: its knots are too large; not used");
  ExpectRefused(Spline(3, "0 0 0 0 nan 1 1 1", kCubicPoints),
                "test.dxf:36: error: SPLINE C1: \"nan\" is no number (group 40); not used");
  ExpectRefused(Spline(1, "0 0 1 1 2 2", "0,0 5,0 7,0 9,0"),
                "test.dxf:20: error: SPLINE C1: it falls apart at a knot; not used");
}

TEST(Spline, WithAWeightNotAboveZeroIsRefused) {
  ExpectRefused(Spline(3, kCubicKnots, kCubicPoints, "41 1 41 0 41 1 41 1"),
                "test.dxf:62: error: SPLINE C1: a weight is not above 0; not used");
  ExpectRefused(Spline(3, kCubicKnots, kCubicPoints, "41 1 41 1 41 -2 41 1"),
                "test.dxf:64: error: SPLINE C1: a weight is not above 0; not used");
}

TEST(Spline, WithBadPointsIsRefused) {
  ExpectRefused("0 SPLINE 5 C1 71 3" + Repeated(40, kCubicKnots) + " 10 0 20 0 10 1 10 2 20 0",
                "test.dxf:48: error: SPLINE C1: a control point has no group 20; not used");
  ExpectRefused("0 SPLINE 5 C1 71 3" + Repeated(40, kCubicKnots) + " 20 0 10 1 20 2",
                "test.dxf:42: error: SPLINE C1: group 20 stands without a group 10; not used");
  ExpectRefused("0 SPLINE 5 C1 71 3 10 inf 20 0",
                "test.dxf:26: error: SPLINE C1: \"inf\" is no number (group 10); not used");
  ExpectRefused("0 SPLINE 5 C1 71 3",
                "test.dxf:20: error: SPLINE C1: it has neither control points nor two fit points "
                "that differ; not used");
  ExpectRefused("0 SPLINE 5 C1 71 3 11 5 21 5 11 5 21 5",
                "test.dxf:20: error: SPLINE C1: it has neither control points nor two fit points "
                "that differ; not used");
  ExpectRefused(Spline(3, kCubicKnots, "0,0 1e308,0 -1e308,5 1,1"),
                "test.dxf:20: error: SPLINE C1: a coordinate is too large; not used");
  ExpectRefused(Spline(3, kCubicKnots, kCubicPoints, "210 0 220 1 230 0"),
                "test.dxf:20: error: SPLINE C1: its extrusion is not along z; not used");
}

TEST(Spline, WithoutExtentIsLeftOutWithAWarning) {
  ExpectRefused(Spline(3, kCubicKnots, "4,4 4,4 4,4 4,4"),
                "test.dxf:20: warning: SPLINE C1: its length is zero; not used");
}

TEST(Spline, WithFarTooManyPointsIsRefusedBeforeItIsFollowed) {
  std::string points;
  std::string knots = "0";
  for (int i = 0; i < 20001; ++i) {
    points += std::to_string(i) + "," + std::to_string(i % 7) + " ";
    knots += " " + std::to_string(i);
  }
  const Drawing drawing = Read(Spline(1, knots + " 20001", points));
  ASSERT_EQ(drawing.complaints.size(), 2u);
  EXPECT_EQ(drawing.complaints[1].what, "it has more than 20000 points");
}

TEST(Spline, ByTheHundredStaysWithinTheSamplesOfADrawing) {
  // Each ellipse takes thousands of samples; together they would take more than two millions.
  std::string many;
  for (int i = 0; i < 300; ++i) many += " 0 ELLIPSE 10 0 20 0 11 500 21 0 40 0.9";
  const Drawing drawing = Read(many, 0.001);
  EXPECT_GT(drawing.refusedByType.at("ELLIPSE"), 0);
  EXPECT_GT(drawing.curves.curves, 0u);
}

// Numbers that programs do not write: heaps of knots, weights many orders apart, places far away.
std::string WildSpline(support::Random& random) {
  const auto pick = [&](const std::vector<std::string>& from) {
    return from[static_cast<std::size_t>(random.Int(0, static_cast<int>(from.size()) - 1))];
  };
  const std::vector<std::string> places = {"0",    "1",   "-57.3", "1e-9", "88.125", "-99.5",
                                           "1e15", "1e6", "1e300", "33",   "41.75",  "-12"};
  const std::vector<std::string> weights = {"1", "0.5", "1e-9", "1e9", "1e300", "5e-324"};
  const std::vector<double> steps = {0.0, 0.0, 1.0, 0.25, 1e-12, 1e-300, 1e9};
  const int degree = random.Int(1, 25);
  const int count = degree + random.Int(1, 12);
  std::string text = "0 SPLINE 70 8 71 " + std::to_string(degree);
  double knot = 0.0;
  for (int i = 0; i < count + degree + 1; ++i) {
    std::ostringstream number;
    number << knot;
    text += " 40 " + number.str();
    knot += steps[static_cast<std::size_t>(random.Int(0, 6))];
  }
  const bool weighted = random.Bool();
  for (int i = 0; i < count; ++i) {
    text += " 10 " + pick(places) + " 20 " + pick(places);
    if (weighted) text += " 41 " + pick(weights);
  }
  return text + " ";
}

TEST(Spline, WithWildFiguresIsRefusedOrFollowedWithinTheTolerance) {
  support::Random random;
  std::size_t followed = 0;
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE(round);
    const Drawing drawing = Read(WildSpline(random) + WildSpline(random));
    EXPECT_LE(drawing.curves.largestDeviation, 0.01);
    const auto refused = drawing.refusedByType.find("SPLINE");
    const std::size_t left =
        refused == drawing.refusedByType.end() ? 0 : static_cast<std::size_t>(refused->second);
    EXPECT_EQ(drawing.curves.curves + left, 2u);
    followed += drawing.curves.curves;
  }
  EXPECT_GT(followed, 20u);
}

const char* const kOutline =
    "0 LWPOLYLINE 90 4 70 1 10 0 20 0 10 120 20 0 10 120 20 70 10 0 20 70 ";

PartModel Part(const std::string& entities) { return BuildPart(Read(kOutline + entities)); }

Comparison Compare(const std::string& a, const std::string& b) {
  const PartModel partA = Part(a);
  const PartModel partB = Part(b);
  EXPECT_TRUE(partA.usable) << partA.obstacle;
  EXPECT_TRUE(partB.usable) << partB.obstacle;
  if (!partA.usable || !partB.usable) return {};
  return CompareParts(partA, partB, CompareOptions());
}

// A circle of radius 5 about (30, 40) in four quarters of a SPLINE each.
std::string CircleInQuarters() {
  const char* const knots = kCubicKnots;
  return Spline(3, knots, "35,40 35,42.7614237 32.7614237,45 30,45") +
         Spline(3, knots, "25,40 25,42.7614237 27.2385763,45 30,45") +
         Spline(3, knots, "25,40 25,37.2385763 27.2385763,35 30,35") +
         Spline(3, knots, "30,35 32.7614237,35 35,37.2385763 35,40");
}

TEST(Verdict, FindsAHoleDrawnInFourSplinesEqualToACircle) {
  const Comparison comparison = Compare("0 CIRCLE 10 30 20 40 40 5", CircleInQuarters());
  EXPECT_TRUE(comparison.same) << comparison.verdict;
}

TEST(Verdict, TellsAHoleDrawnInSplinesFromASmallerCircle) {
  EXPECT_FALSE(Compare("0 CIRCLE 10 30 20 40 40 4.9", CircleInQuarters()).same);
}

TEST(Verdict, FindsAnEllipticalHoleEqualHoweverItIsDrawn) {
  // The same ellipse: along its other axis' end, from below, and beginning elsewhere.
  const std::string plain = "0 ELLIPSE 10 60 20 35 11 20 21 0 40 0.4 41 0 42 6.283185307179586";
  const std::string other =
      "0 ELLIPSE 10 60 20 35 11 -20 21 0 40 0.4 41 1 42 7.283185307179586 230 -1";
  EXPECT_TRUE(Compare(plain, other).same);
  EXPECT_TRUE(Compare(plain, plain).same);
  EXPECT_FALSE(Compare(plain, "0 ELLIPSE 10 60 20 35 11 20 21 0 40 0.41").same);
}

TEST(Verdict, FindsAnEllipticalHoleInTwoHalvesEqualToTheWhole) {
  const std::string head = "0 ELLIPSE 10 60 20 35 11 20 21 0 40 0.4 ";
  const Comparison comparison =
      Compare(head, head + "41 0.5 42 3.5 " + head + "41 3.5 42 6.783185307179586");
  EXPECT_TRUE(comparison.same) << comparison.verdict;
}

}  // namespace
}  // namespace drawing
