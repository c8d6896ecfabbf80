#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Turn.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace {

const double kPi = 3.141592653589793;
const GXVector kX(1, 0, 0);
const GXVector kY(0, 1, 0);
const GXVector kZ(0, 0, 1);

/// The rotation about an axis through the origin; column i is what becomes of unit vector i.
GXColBasedTransformMatrix Rotation(const GXVector& axis, double radians) {
  const GX3DLine spindle(GXVector(), axis);
  GXColBasedTransformMatrix matrix;
  matrix.Base[0] = GXVector(support::Turned(spindle, radians, GX3DPoint(1, 0, 0)));
  matrix.Base[1] = GXVector(support::Turned(spindle, radians, GX3DPoint(0, 1, 0)));
  matrix.Base[2] = GXVector(support::Turned(spindle, radians, GX3DPoint(0, 0, 1)));
  return matrix;
}

struct Turn {
  GXVector axis = GXVector(-7, -8, -9);
  double angle = -77;
};

Turn Of(const GXColBasedTransformMatrix& matrix) {
  Turn turn;
  GXGeometry::GetRotationAxisAndAngle(matrix, turn.axis, turn.angle);
  return turn;
}

void ExpectTurn(const GXColBasedTransformMatrix& matrix, const GXVector& axis, double angle,
                double tolerance = 1e-12) {
  const Turn turn = Of(matrix);
  EXPECT_POINT_NEAR(turn.axis, axis, tolerance);
  EXPECT_NEAR(turn.angle, angle, tolerance);
}

TEST(GetRotationAxisAndAngle, OfTheIdentityIsAZeroAxisAndNoAngle) {
  const Turn turn = Of(GXColBasedTransformMatrix(Rotation(kZ, 0)));
  EXPECT_POINT_EQ(turn.axis, GXVector(0, 0, 0));
  EXPECT_EQ(turn.angle, 0);
}

TEST(GetRotationAxisAndAngle, TellsTheSignAboutYAndZ) {
  ExpectTurn(Rotation(kZ, 1), kZ, 1);
  ExpectTurn(Rotation(kZ, -1), kZ, -1);
  ExpectTurn(Rotation(kY, 2.5), kY, 2.5);
  ExpectTurn(Rotation(kY, -2.5), kY, -2.5);
  ExpectTurn(Rotation(GXVector(0, 0, -1), 1), kZ, -1);
}

TEST(GetRotationAxisAndAngle, LosesTheSignAboutX) {
  ExpectTurn(Rotation(kX, 1), kX, 1);
  ExpectTurn(Rotation(kX, -1), kX, 1);
  ExpectTurn(Rotation(kX, -0.06), kX, 0.06);
}

TEST(GetRotationAxisAndAngle, ReadsTheStoredVectorsAsTheImagesOfTheAxes) {
  double quarter[3][3] = {{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}};  // x becomes y, y becomes -x
  ExpectTurn(GXColBasedTransformMatrix(quarter), kZ, kPi / 2);
}

TEST(GetRotationAxisAndAngle, OfHalfATurnIsExactlyPi) {
  for (const GXVector& axis : {kX, kY, kZ}) {
    const Turn turn = Of(Rotation(axis, kPi));
    EXPECT_POINT_NEAR(turn.axis, axis, 1e-15);
    EXPECT_EQ(turn.angle, 3.141592653589793);
  }
  const double half = std::sqrt(0.5);
  const double third = std::sqrt(1.0 / 3);
  for (const GXVector& axis : {GXVector(half, half, 0), GXVector(half, 0, half),
                               GXVector(0, half, half), GXVector(third, third, third)}) {
    const Turn turn = Of(Rotation(axis, kPi));
    EXPECT_POINT_NEAR(turn.axis, axis, 1e-14);
    EXPECT_EQ(turn.angle, 3.141592653589793);
  }
}

TEST(GetRotationAxisAndAngle, TakesForHalfATurnWhatIsOffBy0_0001OnTheRawAxis) {
  // About z the raw axis is 4 long, and the sum of both vectors is 4 sin of what is missing.
  EXPECT_EQ(Of(Rotation(kZ, kPi - 0.0000249)).angle, 3.141592653589793);
  EXPECT_EQ(Of(Rotation(kZ, -kPi + 0.0000249)).angle, 3.141592653589793);
  ExpectTurn(Rotation(kZ, kPi - 0.0000251), kZ, kPi - 0.0000251);
  ExpectTurn(Rotation(kZ, -kPi + 0.0000251), kZ, -kPi + 0.0000251);
}

TEST(GetRotationAxisAndAngle, TakesATinyRotationForHalfATurn) {
  // About z the raw axis is (2 - 2 cos) long, next to the square of the angle, and twice that has
  // to exceed 0.0001: 2 * 0.00707^2 is 0.00009997, 2 * 0.00708^2 is 0.00010025.
  ExpectTurn(Rotation(kZ, 0.00707), kZ, kPi);
  ExpectTurn(Rotation(kZ, -0.00707), kZ, kPi);
  ExpectTurn(Rotation(kX, 0.001), kX, kPi, 1e-9);
  ExpectTurn(Rotation(kZ, 0.00708), kZ, std::sin(0.00708));
}

TEST(GetRotationAxisAndAngle, Below0_05TakesTheAxisFromTheMatrixAndItsLengthAsTheAngle) {
  // About a coordinate axis the length is the sine: 0.01 within 0.0000002.
  ExpectTurn(Rotation(kZ, 0.01), kZ, std::sin(0.01));
  ExpectTurn(Rotation(kZ, -0.01), GXVector(0, 0, -1), std::sin(0.01));
  ExpectTurn(Rotation(kY, -0.03), GXVector(0, -1, 0), std::sin(0.03));
  ExpectTurn(Rotation(kX, 0.03), kX, std::sin(0.03));
  ExpectTurn(Rotation(kX, -0.03), GXVector(-1, 0, 0), std::sin(0.03));
}

TEST(GetRotationAxisAndAngle, TakesTheSmallBranchStrictlyBelow0_05) {
  // The sine of 0.0499 is 0.0000207 less than it.
  ExpectTurn(Rotation(kZ, 0.0499), kZ, std::sin(0.0499));
  ExpectTurn(Rotation(kZ, -0.0499), GXVector(0, 0, -1), std::sin(0.0499));
  ExpectTurn(Rotation(kZ, 0.0501), kZ, 0.0501);
  ExpectTurn(Rotation(kZ, -0.0501), kZ, -0.0501);
}

TEST(GetRotationAxisAndAngle, ReadsTheSmallAxisFromOneHalfOfTheMatrix) {
  // The differences from the axes are (5, 0, 0), (0, 10, 0) and (3, 0, 4). The cross product of the
  // first two is (0, 0, 50), that of the last two (40, 0, -30): equally long, so the second is the
  // axis. Its least figure is z, and across it (0, -40, 0) and (0, -290, 0) have no angle. Then
  // (z of column 1, x of column 2, y of column 0) is the answer, however large.
  double rows[3][3] = {{6, 0, 0}, {0, 11, 0}, {3, 0, 5}};
  ExpectTurn(GXColBasedTransformMatrix(rows), kY, 3);
}

TEST(GetRotationAxisAndAngle, OfAStretchedDiagonalIsAZeroAxisAndNoAngle) {
  double rows[3][3] = {{2, 0, 0}, {0, 3, 0}, {0, 0, 4}};
  const Turn turn = Of(GXColBasedTransformMatrix(rows));
  EXPECT_POINT_EQ(turn.axis, GXVector(0, 0, 0));
  EXPECT_EQ(turn.angle, 0);
}

TEST(GetRotationAxisAndAngle, DescribesTheRotation) {
  support::Random random;
  for (int i = 0; i < 3000; ++i) {
    GXVector axis = random.Vector3D(1);
    if (axis.Len() < 0.1) continue;
    axis.Standard();
    if (std::hypot(axis.Y, axis.Z) < 0.1) continue;  // next to x the sign is not reliable
    const double angle = (random.Bool() ? 1 : -1) * random.Between(0.06, 3.1);
    const GXColBasedTransformMatrix matrix = Rotation(axis, angle);
    const Turn turn = Of(matrix);
    EXPECT_NEAR(turn.axis.Len(), 1, 1e-12) << i;
    EXPECT_NEAR(std::fabs(turn.angle), std::fabs(angle), 1e-9) << i;
    const GXColBasedTransformMatrix again = Rotation(turn.axis, turn.angle);
    // At 0.06 rad the raw axis is some 0.002 long and exact to 1e-16: 13 digits.
    ASSERT_POINT_NEAR(again, matrix, 1e-9) << i;
  }
}

TEST(GetRotationAxisAndAngle, DescribesSmallRotationsToTheirSquare) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    GXVector axis = random.Vector3D(1);
    if (axis.Len() < 0.1) continue;
    const double angle = random.Between(0.02, 0.049);
    const GXColBasedTransformMatrix matrix = Rotation(axis, angle);
    const Turn turn = Of(matrix);
    EXPECT_NEAR(turn.axis.Len(), 1, 1e-12) << i;
    // Each raw figure differs from angle * axis by half the square of the angle at most, three of
    // them, and the formula itself by the square again.
    ASSERT_POINT_NEAR(Rotation(turn.axis, turn.angle), matrix, 2 * angle * angle) << i;
  }
}

// Small whole numbers are exact and full of ties; the steps are followed in integers.

struct Whole {
  long x, y, z;
};
Whole operator-(const Whole& a, const Whole& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
Whole Cross(const Whole& a, const Whole& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
long Dot(const Whole& a, const Whole& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
double Length(const Whole& a) { return std::sqrt(static_cast<double>(Dot(a, a))); }
GXVector Unit(const Whole& a) {
  const double length = Length(a);
  if (length == 0) return {0, 0, 0};
  return {static_cast<double>(a.x) / length, static_cast<double>(a.y) / length,
          static_cast<double>(a.z) / length};
}

Whole LongestOf(const Whole& a, const Whole& b, const Whole& c) {
  const Whole& longer = Dot(a, a) > Dot(b, b) ? a : b;
  return Dot(c, c) >= Dot(longer, longer) ? c : longer;
}

/// Position of the figure that is least with its sign; of equal ones the later, except that of the
/// first two the second goes before the first.
int LeastOf(const Whole& p) {
  const int lesser = p.y <= p.x ? 1 : 0;
  return p.z <= (lesser == 1 ? p.y : p.x) ? 2 : lesser;
}

/// The angle is NaN where a vector without length would leave it to the sign of a zero.
Turn ExpectedOf(const Whole (&c)[3]) {
  const Whole e[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  const Whole d[3] = {c[0] - e[0], c[1] - e[1], c[2] - e[2]};
  const Whole axis = LongestOf(Cross(d[0], d[1]), Cross(d[1], d[2]), Cross(d[2], d[0]));
  Turn turn;
  turn.axis = Unit(axis);
  turn.angle = 0;
  if (Dot(axis, axis) == 0) return turn;
  const int k = LeastOf(axis);
  const Whole u = Cross(axis, e[k]);
  const Whole w = Cross(axis, c[k]);
  turn.angle = kPi;
  if (u.x != -w.x || u.y != -w.y || u.z != -w.z) {
    const Whole across = Cross(u, w);
    if (Dot(across, across) == 0 && Dot(u, w) == 0) {
      turn.angle = std::numeric_limits<double>::quiet_NaN();
      return turn;
    }
    turn.angle = std::atan2(Length(across), static_cast<double>(Dot(u, w)));
    if (across.y * axis.y + 2 * across.z * axis.z < 0) turn.angle = -turn.angle;
  }
  if (std::fabs(turn.angle) < 0.05) {
    const Whole raw = {c[1].z, c[2].x, c[0].y};
    turn.angle = Length(raw);
    turn.axis = Unit(raw);
  }
  return turn;
}

TEST(GetRotationAxisAndAngle, KeepsItsOrderOfTiesOnMatricesOfWholeNumbers) {
  support::Random random;
  for (int i = 0; i < 20000; ++i) {
    Whole c[3];
    GXColBasedTransformMatrix matrix;
    for (int j = 0; j < 3; ++j) {
      c[j] = {random.Int(-2, 2), random.Int(-2, 2), random.Int(-2, 2)};
      matrix.Base[j] = GXVector(static_cast<double>(c[j].x), static_cast<double>(c[j].y),
                                static_cast<double>(c[j].z));
    }
    const Turn expected = ExpectedOf(c);
    if (std::isnan(expected.angle)) continue;
    const Turn turn = Of(matrix);
    ASSERT_POINT_NEAR(turn.axis, expected.axis, 1e-14)
        << i << ' ' << support::Text(support::Numbers(matrix));
    ASSERT_NEAR(turn.angle, expected.angle, 1e-14)
        << i << ' ' << support::Text(support::Numbers(matrix));
  }
}

TEST(GetRotationAxisAndAngle, MayWriteIntoTheMatrix) {
  for (const double angle : {2.0, 0.03, kPi}) {
    const GXColBasedTransformMatrix matrix = Rotation(GXVector(1, 2, -3), angle);
    const Turn expected = Of(matrix);
    for (int i = 0; i < 3; ++i) {
      GXColBasedTransformMatrix copy(matrix);
      double found = 0;
      GXGeometry::GetRotationAxisAndAngle(copy, copy.Base[i], found);
      EXPECT_POINT_EQ(copy.Base[i], expected.axis);
      EXPECT_EQ(found, expected.angle);
      GXColBasedTransformMatrix other(matrix);
      GXVector axis;
      GXGeometry::GetRotationAxisAndAngle(other, axis, other.Base[i].X);
      EXPECT_POINT_EQ(axis, expected.axis);
      EXPECT_EQ(other.Base[i].X, expected.angle);
    }
  }
}

TEST(GetRotationAxisAndAngle, SurvivesNumbersThatAreNotFinite) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double odd :
       {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 1e308, 1e-320}) {
    for (int i = 0; i < 9; ++i) {
      double rows[3][3] = {{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}};
      rows[i / 3][i % 3] = odd;
      Of(GXColBasedTransformMatrix(rows));
    }
  }
}

}  // namespace
