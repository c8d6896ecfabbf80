#include <KTRCL_Geometry/lookalike/GXLAElements.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

double Stored(double angle, double tolerance) {
  return GXLAElementAngle(angle, tolerance).GetAngle();
}

TEST(GXLAElementAngle, StoresAStraightContinuationAsPlusPi) {
  EXPECT_NEAR(Stored(kPi, 0.01), kPi, 1e-12);
}

TEST(GXLAElementAngle, StoresMinusPiAsPlusPi) { EXPECT_NEAR(Stored(-kPi, 0.01), kPi, 1e-12); }

TEST(GXLAElementAngle, StoresThreePiAsPlusPi) {
  EXPECT_NEAR(Stored(3.0 * kPi, 0.01), kPi, 1e-12);
  EXPECT_NEAR(Stored(-3.0 * kPi, 0.01), kPi, 1e-12);
}

TEST(GXLAElementAngle, StoresAQuarterTurnUnchanged) {
  EXPECT_EQ(Stored(kPi / 2.0, 0.01), kPi / 2.0);
  EXPECT_EQ(Stored(-kPi / 2.0, 0.01), -kPi / 2.0);
  EXPECT_EQ(Stored(0.0, 0.01), 0.0);
}

TEST(GXLAElementAngle, EndsAtPlusPiWithToleranceZero) { EXPECT_EQ(Stored(kPi, 0.0), kPi); }

TEST(GXLAElementAngle, ReachesOverPiByTheTolerance) {
  // Slightly above pi goes to slightly above -pi and comes back: pi + 0.005 stays what it is.
  EXPECT_NEAR(Stored(kPi + 0.005, 0.01), kPi + 0.005, 1e-12);
  // Slightly below pi is within the tolerance too and makes the same way.
  EXPECT_NEAR(Stored(kPi - 0.005, 0.01), kPi - 0.005, 1e-12);
  // Beyond the tolerance it stays on the negative side.
  EXPECT_NEAR(Stored(kPi + 0.02, 0.01), 0.02 - kPi, 1e-12);
}

TEST(GXLAElementAngle, AddsAndSubtractsWholeTurnsOneAtATime) {
  const double angle = 2.0 + 3.0 * kTwoPi;
  EXPECT_EQ(Stored(angle, 0.01), angle - kTwoPi - kTwoPi - kTwoPi);
  EXPECT_EQ(Stored(-2.0 - kTwoPi, 0.01), -2.0 - kTwoPi + kTwoPi);
}

TEST(GXLAElementAngle, BringsHugeAnglesIntoRange) {
  for (const double angle : {1e7, -1e7, 1e300, -1e300}) {
    const double stored = Stored(angle, 0.01);
    EXPECT_LE(std::fabs(stored), kPi + 0.01) << angle;
  }
  // 1e7 lies 1591549 turns and a rest behind 0: the rest by exact remainder.
  EXPECT_NEAR(Stored(1e7, 0.01), std::remainder(1e7, kTwoPi), 1e-9);
}

TEST(GXLAElementAngle, StoresWhatIsNotFiniteWithoutReduction) {
  EXPECT_EQ(Stored(kInfinity, 0.01), kInfinity);
  EXPECT_EQ(Stored(-kInfinity, 0.01), -kInfinity);
  EXPECT_TRUE(std::isnan(Stored(kNaN, 0.01)));
  EXPECT_EQ(Stored(9.0, kInfinity), 9.0);
  EXPECT_EQ(Stored(9.0, kNaN), 9.0);
}

TEST(GXLAElementAngle, EndsForEveryFiniteTolerance) {
  for (const double tolerance : {-10.0, -kPi, 3.0, kPi, kTwoPi, 100.0, 1e300}) {
    for (const double angle : {0.0, 1.0, kPi, -kPi, 7.0, -7.0}) {
      EXPECT_TRUE(std::isfinite(Stored(angle, tolerance))) << angle << " " << tolerance;
    }
  }
}

TEST(GXLAElementAngle, CopiesItsValue) {
  const GXLAElementAngle angle(1.5, 0.01);
  const GXLAElementAngle copy(angle);
  GXLAElementAngle assigned(0.0, 0.01);
  assigned = angle;
  EXPECT_EQ(copy.GetAngle(), 1.5);
  EXPECT_EQ(assigned.GetAngle(), 1.5);
}

TEST(GXLAElementSegment, LineIsALineAndNoArc) {
  const GXLAElementLine line(10.0);
  EXPECT_TRUE(line.IsALine());
  EXPECT_FALSE(line.IsAnArc());
}

TEST(GXLAElementSegment, ArcIsAnArcAndNoLine) {
  const GXLAElementArc arc(10.0);
  EXPECT_FALSE(arc.IsALine());
  EXPECT_TRUE(arc.IsAnArc());
}

TEST(GXLAElementSegment, KeepsAndChangesItsLength) {
  GXLAElementLine line(10.0);
  EXPECT_EQ(line.GetSegmentLength(), 10.0);
  line.SetSegmentLength(12.5);
  EXPECT_EQ(line.GetSegmentLength(), 12.5);
  const GXLAElementLine copy(line);
  EXPECT_EQ(copy.GetSegmentLength(), 12.5);
  GXLAElementLine assigned(0.0);
  assigned = line;
  EXPECT_EQ(assigned.GetSegmentLength(), 12.5);
}

TEST(GXLAElementSegment, DefaultLengthIsZero) {
  struct Plain : GXLAElementSegment {
    bool IsALine() const override { return false; }
    bool IsAnArc() const override { return false; }
  };
  EXPECT_EQ(Plain().GetSegmentLength(), 0.0);
}

TEST(GXLAElement, TellsItsKindAtRunTime) {
  const std::unique_ptr<GXLAElement> element = std::make_unique<GXLAElementArc>(1.0);
  EXPECT_NE(dynamic_cast<GXLAElementSegment*>(element.get()), nullptr);
  EXPECT_NE(dynamic_cast<GXLAElementArc*>(element.get()), nullptr);
  EXPECT_EQ(dynamic_cast<GXLAElementLine*>(element.get()), nullptr);
  EXPECT_EQ(dynamic_cast<GXLAElementAngle*>(element.get()), nullptr);
}

TEST(GXLATolerances, GiveTheSameThreeValuesAlways) {
  const GXLATolerances first;
  const GXLATolerances second(first);
  for (const GXLATolerances* tolerances : {&first, &second, &first}) {
    EXPECT_EQ(tolerances->ToleranceLengthMM(), 0.05);
    EXPECT_EQ(tolerances->ToleranceLengthInch(), 0.0008);
    EXPECT_EQ(tolerances->ToleranceAngle(), 0.01);
  }
}

}  // namespace
