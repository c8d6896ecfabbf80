// Geometry of single entities against closed forms. All files are in millimetres unless said.
#include "drawing/DxfEntities.h"

#include "drawing/DxfReader.h"
#include "support/DxfText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace drawing {
namespace {

constexpr double kPi = 3.14159265358979323846;
// Some roundings of coordinates of the size of 100.
constexpr double kRounding = 1e-12;

Drawing Read(const std::string& entities) {
  return ReadDrawingText(support::Dxf(entities), "test.dxf");
}

GX2DArc& Arc(const Drawing& drawing, std::size_t i) {
  return dynamic_cast<GX2DArc&>(*drawing.elements.at(i).element);
}

GX2DLine& Line(const Drawing& drawing, std::size_t i) {
  return dynamic_cast<GX2DLine&>(*drawing.elements.at(i).element);
}

void ExpectPoint(const GX2DPoint& point, double x, double y, double tolerance = kRounding) {
  EXPECT_NEAR(point.X, x, tolerance);
  EXPECT_NEAR(point.Y, y, tolerance);
}

std::string Side(double x1, double y1, double x2, double y2, double bulge) {
  const auto text = [](double value) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.17g", value);
    return std::string(buffer);
  };
  return "0 LWPOLYLINE 90 2 70 0 10 " + text(x1) + " 20 " + text(y1) + " 42 " + text(bulge) +
         " 10 " + text(x2) + " 20 " + text(y2);
}

TEST(Line, RunsFromItsFirstToItsSecondPoint) {
  const Drawing drawing = Read("0 LINE 10 1 11 3 20 2 21 4");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(Line(drawing, 0).Start == GX2DPoint(1, 2));
  EXPECT_TRUE(Line(drawing, 0).End == GX2DPoint(3, 4));
}

TEST(Circle, StartsAndEndsAtItsRightWithTheMiddleAtItsLeft) {
  const Drawing drawing = Read("0 CIRCLE 10 5 20 7 40 2");
  ASSERT_EQ(drawing.elements.size(), 1u);
  const GX2DArc& circle = Arc(drawing, 0);
  EXPECT_TRUE(circle.Center == GX2DPoint(5, 7));
  EXPECT_TRUE(circle.Start == GX2DPoint(7, 7));
  EXPECT_TRUE(circle.End == GX2DPoint(7, 7));
  EXPECT_TRUE(circle.Mid == GX2DPoint(3, 7));
  EXPECT_TRUE(circle.IsCircle());
}

TEST(Arc, RunsCounterClockwiseAndIsExactAtQuarters) {
  const Drawing drawing = Read("0 ARC 10 10 20 20 40 2 50 90 51 180");
  ASSERT_EQ(drawing.elements.size(), 1u);
  const GX2DArc& arc = Arc(drawing, 0);
  EXPECT_TRUE(arc.Start == GX2DPoint(10, 22));
  EXPECT_TRUE(arc.End == GX2DPoint(8, 20));
  ExpectPoint(arc.Mid, 10 - std::sqrt(2.0), 20 + std::sqrt(2.0));
  EXPECT_FALSE(arc.IsClockwise());
}

TEST(Arc, PassesZeroWhereItsEndAngleIsTheSmaller) {
  const Drawing drawing = Read("0 ARC 10 0 20 0 40 1 50 300 51 60");
  const GX2DArc& arc = Arc(drawing, 0);
  ExpectPoint(arc.Start, 0.5, -std::sqrt(0.75));
  ExpectPoint(arc.Mid, 1, 0);
  ExpectPoint(arc.End, 0.5, std::sqrt(0.75));
}

TEST(Arc, TakesAnglesBeyondAWholeTurnAndBelowZero) {
  const Drawing drawing = Read("0 ARC 10 0 20 0 40 1 50 -90 51 720");
  const GX2DArc& arc = Arc(drawing, 0);
  ExpectPoint(arc.Start, 0, -1);
  ExpectPoint(arc.Mid, std::sqrt(0.5), -std::sqrt(0.5));
  ExpectPoint(arc.End, 1, 0);
}

TEST(Arc, IsAFullCircleFromZeroTo360) {
  const Drawing drawing = Read("0 ARC 10 0 20 0 40 3 50 0 51 360");
  const GX2DArc& arc = Arc(drawing, 0);
  EXPECT_TRUE(arc.Start == arc.End);
  ExpectPoint(arc.Mid, -3, 0);
  EXPECT_TRUE(drawing.complaints.empty());
}

TEST(Arc, WithEqualAnglesIsAFullCircleAndComplainedAbout) {
  const Drawing drawing = Read("0 ARC 10 0 20 0 40 3 50 30 51 30");
  EXPECT_TRUE(Arc(drawing, 0).Start == Arc(drawing, 0).End);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].severity, Severity::kWarning);
  EXPECT_EQ(drawing.complaints[0].done, "taken as a full circle");
}

TEST(Arc, TooShortToBeToldFromACircleIsALineWithANote) {
  // Radius 1, sweep 0.005 degrees: a chord of 0.000087 mm.
  const Drawing drawing = Read("0 ARC 10 0 20 0 40 1 50 0 51 0.005");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(Line(drawing, 0).Start == GX2DPoint(1, 0));
  EXPECT_NEAR(Line(drawing, 0).Len(), 0.005 * kPi / 180.0, 1e-12);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].severity, Severity::kNote);
}

TEST(Arc, WhoseMiddleIsTooNearToItsEndIsALine) {
  // A chord of 0.00015 mm: the ends are two points, the middle and the end are one.
  const Drawing drawing = Read("0 ARC 10 0 20 0 40 1 50 0 51 0.0086");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_NEAR(Line(drawing, 0).Len(), 0.0086 * kPi / 180.0, 1e-12);
}

TEST(Arc, AlmostClosedStaysAnArcWithANoteThatItCountsAsACircle) {
  const Drawing drawing = Read("0 ARC 10 0 20 0 40 1 50 0 51 359.999");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(Arc(drawing, 0).IsCircle());
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].done, "such arcs count as circles");
}

TEST(Bulge, OfOneIsAHalfCircleCounterClockwise) {
  const Drawing drawing = Read(Side(0, 0, 4, 0, 1));
  ASSERT_EQ(drawing.elements.size(), 1u);
  const GX2DArc& arc = Arc(drawing, 0);
  EXPECT_TRUE(arc.Start == GX2DPoint(0, 0));
  EXPECT_TRUE(arc.End == GX2DPoint(4, 0));
  EXPECT_TRUE(arc.Center == GX2DPoint(2, 0));
  EXPECT_TRUE(arc.Mid == GX2DPoint(2, -2));
  EXPECT_FALSE(arc.IsClockwise());
}

TEST(Bulge, OfMinusOneIsAHalfCircleClockwise) {
  const Drawing drawing = Read(Side(0, 0, 4, 0, -1));
  EXPECT_TRUE(Arc(drawing, 0).Center == GX2DPoint(2, 0));
  EXPECT_TRUE(Arc(drawing, 0).Mid == GX2DPoint(2, 2));
  EXPECT_TRUE(Arc(drawing, 0).IsClockwise());
}

TEST(Bulge, IsTheTangentOfAQuarterOfTheSweep) {
  // On the circle of radius 10 about (20, -30), beginning at 25 degrees.
  const auto at = [](double degrees) {
    const double a = degrees * kPi / 180.0;
    return GX2DPoint(20 + 10 * std::cos(a), -30 + 10 * std::sin(a));
  };
  for (const double sweep :
       {1.0, 10.0, 90.0, 179.0, 181.0, 270.0, 330.0, -1.0, -45.0, -200.0, -345.0}) {
    SCOPED_TRACE(sweep);
    const GX2DPoint start = at(25);
    const GX2DPoint end = at(25 + sweep);
    const double bulge = std::tan(sweep * kPi / 720.0);
    const Drawing drawing = Read(Side(start.X, start.Y, end.X, end.Y, bulge));
    ASSERT_EQ(drawing.elements.size(), 1u);
    GX2DArc& arc = Arc(drawing, 0);
    EXPECT_TRUE(arc.Start == start);
    EXPECT_TRUE(arc.End == end);
    // The centre of a flat arc hangs on the rounding of its chord: 1e-14 / (sweep in radians)^2.
    ExpectPoint(arc.Center, 20, -30, 1e-10);
    const GX2DPoint mid = at(25 + sweep / 2);
    ExpectPoint(arc.Mid, mid.X, mid.Y, 1e-11);
    EXPECT_EQ(arc.IsClockwise(), sweep < 0);
    EXPECT_NEAR(arc.Len(), 10 * std::fabs(sweep) * kPi / 180.0, 1e-9);
  }
}

TEST(Bulge, TooFlatForAnArcIsALineWithANote) {
  // Height of the side: 0.5 * 100 * 1e-8 = 0.0000005 mm.
  const Drawing drawing = Read(Side(0, 0, 100, 0, 1e-8));
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(Line(drawing, 0).End == GX2DPoint(100, 0));
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].done, "such sides are straight lines");
}

TEST(Bulge, JustSteepEnoughForAnArcIsAnArc) {
  // Height 0.0000015 mm.
  EXPECT_NO_THROW(Arc(Read(Side(0, 0, 100, 0, 3e-8)), 0));
}

TEST(Bulge, OfAnySizeIsReadWithoutOverflow) {
  for (const double bulge : {1e300, -1e300, 1e-300, 1e154, -1e200}) {
    SCOPED_TRACE(bulge);
    const Drawing drawing = Read(Side(0, 0, 1, 0, bulge));
    EXPECT_TRUE(drawing.usable);
    for (const DrawnElement& drawn : drawing.elements) {
      EXPECT_TRUE(std::isfinite(drawn.element->GetStartPoint().X));
    }
  }
}

TEST(LightPolyline, ClosesWithTheBulgeOfItsLastVertex) {
  const Drawing drawing = Read("0 LWPOLYLINE 90 3 70 1 10 0 20 0 10 4 20 0 10 4 20 2 42 1");
  ASSERT_EQ(drawing.elements.size(), 3u);
  EXPECT_TRUE(Arc(drawing, 2).Start == GX2DPoint(4, 2));
  EXPECT_TRUE(Arc(drawing, 2).End == GX2DPoint(0, 0));
  // Counter-clockwise, so the middle is half a chord to the right of (4, 2) -> (0, 0).
  EXPECT_TRUE(Arc(drawing, 2).Mid == GX2DPoint(1, 3));
  EXPECT_EQ(drawing.entities.size(), 1u);
}

TEST(LightPolyline, StaysOpenWithoutTheFlag) {
  EXPECT_EQ(Read("0 LWPOLYLINE 90 3 70 0 10 0 20 0 10 4 20 0 10 4 20 2").elements.size(), 2u);
  EXPECT_EQ(Read("0 LWPOLYLINE 90 3 70 128 10 0 20 0 10 4 20 0 10 4 20 2").elements.size(), 2u);
}

TEST(LightPolyline, OfTwoHalfCirclesIsTwoArcs) {
  const Drawing drawing = Read("0 LWPOLYLINE 90 2 70 1 10 0 20 0 42 1 10 4 20 0 42 1");
  ASSERT_EQ(drawing.elements.size(), 2u);
  EXPECT_TRUE(Arc(drawing, 0).Mid == GX2DPoint(2, -2));
  EXPECT_TRUE(Arc(drawing, 1).Mid == GX2DPoint(2, 2));
}

TEST(LightPolyline, DropsAClosingSideOfLengthZeroWithANote) {
  const Drawing drawing = Read("0 LWPOLYLINE 90 4 70 1 10 0 20 0 10 4 20 0 10 4 20 2 10 0 20 0");
  EXPECT_EQ(drawing.elements.size(), 3u);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(ToLine(drawing.complaints[0]),
            "test.dxf:20: note: LWPOLYLINE: 1 side has length zero; dropped");
}

TEST(Extrusion, DownMirrorsArcsCirclesAndPolylinesButNoLines) {
  const std::string down = " 210 0 220 0 230 -1 ";
  const Drawing drawing = Read("0 ARC 10 10 20 0 40 2 50 0 51 90" + down +
                               "0 CIRCLE 10 5 20 1 40 1" + down + "0 LINE 10 1 20 0 11 2 21 0" +
                               down + "0 LWPOLYLINE 90 2 70 0 10 1 20 0 42 1 10 3 20 0" + down);
  ASSERT_EQ(drawing.elements.size(), 4u);
  const GX2DArc& arc = Arc(drawing, 0);
  EXPECT_TRUE(arc.Center == GX2DPoint(-10, 0));
  EXPECT_TRUE(arc.Start == GX2DPoint(-12, 0));
  EXPECT_TRUE(arc.End == GX2DPoint(-10, 2));
  EXPECT_TRUE(arc.IsClockwise());
  EXPECT_TRUE(Arc(drawing, 1).Center == GX2DPoint(-5, 1));
  EXPECT_TRUE(Line(drawing, 2).Start == GX2DPoint(1, 0));
  EXPECT_TRUE(Arc(drawing, 3).Start == GX2DPoint(-1, 0));
  EXPECT_TRUE(Arc(drawing, 3).Mid == GX2DPoint(-2, -1));
  EXPECT_TRUE(Arc(drawing, 3).IsClockwise());
  EXPECT_TRUE(drawing.complaints.empty());
}

TEST(Extrusion, WithRoundingErrorsIsStillAlongZ) {
  const Drawing drawing = Read("0 CIRCLE 10 5 20 1 40 1 210 1e-17 220 -1e-9 230 -1.0000001");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(Arc(drawing, 0).Center == GX2DPoint(-5, 1));
}

TEST(Coordinates, OfAnySizeAreReadAndNoneBecomesInfinite) {
  const Drawing drawing =
      Read("0 LINE 10 1e300 20 0 11 -1e300 21 1e-300 0 CIRCLE 10 1.7e308 20 0 40 1.7e308");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(Line(drawing, 0).Start.X, 1e300);
  EXPECT_EQ(drawing.refusedByType.at("CIRCLE"), 1);
}

TEST(Coordinates, ThatSwallowTheRadiusAreAnError) {
  const Drawing drawing = Read("0 CIRCLE 10 1e18 20 0 40 1");
  EXPECT_TRUE(drawing.elements.empty());
  EXPECT_EQ(drawing.complaints.back().what, "its radius is lost beside its coordinates");
}

TEST(Coordinates, AreConvertedToMillimetres) {
  const Drawing drawing =
      ReadDrawingText(support::DxfWithHeader("9 $INSUNITS 70 1",
                                             "0 LINE 10 1 20 2 11 3 21 4 0 CIRCLE 10 1 20 0 40 2"),
                      "inch.dxf");
  ASSERT_EQ(drawing.elements.size(), 2u);
  ExpectPoint(Line(drawing, 0).Start, 25.4, 50.8);
  ExpectPoint(Line(drawing, 0).End, 76.2, 101.6);
  ExpectPoint(Arc(drawing, 1).Start, 76.2, 0);
}

TEST(ElementBuilder, ForgetsTheEntityBefore) {
  ElementBuilder builder;
  builder.Begin(1.0, PlaneMap());
  builder.AddLine({0, 0}, {0, 0});
  builder.AddLine({0, 0}, {1, 0});
  builder.Fail("something");
  EXPECT_EQ(builder.zeroLength.size(), 1u);
  EXPECT_EQ(builder.elements.size(), 1u);
  builder.Begin(2.0, SeenFromBelow());
  EXPECT_EQ(builder.zeroLength.size(), 0u);
  EXPECT_TRUE(builder.elements.empty());
  EXPECT_TRUE(builder.failure.empty());
  builder.AddLine({0, 0}, {1, 1});
  EXPECT_TRUE(dynamic_cast<GX2DLine&>(*builder.elements[0]).End == GX2DPoint(-2, 2));
}

}  // namespace
}  // namespace drawing
