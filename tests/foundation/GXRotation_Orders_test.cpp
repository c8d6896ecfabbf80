// The 24 orders and the six operations of each, against products of elementary rotations that are
// written out here. Every test runs once per order.
#include <KTRCL_DataTypes/GXString.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr double kPi = 3.141592653589793;

using Factory = GXRotation (*)(double, double, double);
using Setter = void (GXRotation::*)(double, double, double);
using Getter = void (GXRotation::*)(double&, double&, double&) const;
using RadGetter = void (GXRotation::*)(double&, double&, double&);

struct Order {
  const char* text;
  int number;
  Factory make;
  Factory makeRad;
  Setter set;
  Setter setRad;
  Getter get;
  RadGetter getRad;

  bool IsRotating() const { return text[3] == 'r'; }
  bool Repeats() const { return text[0] == text[2]; }
  int Axis(int place) const { return text[place] - 'X'; }

  // Odd when the axes of the static form run against X, Y, Z, X. A rotating order is the static one
  // read backwards.
  bool IsOdd() const {
    const int first = IsRotating() ? Axis(2) : Axis(0);
    return Axis(1) != (first + 1) % 3;
  }
};

void PrintTo(const Order& order, std::ostream* out) { *out << order.text; }

#define KTRCL_ORDER(name, number)                                                        \
  Order {                                                                                \
#name, number, &GXRotation::name, &GXRotation::name##Rad, &GXRotation::Set##name,    \
        &GXRotation::Set##name##Rad, &GXRotation::Get##name, &GXRotation::Get##name##Rad \
  }

const std::array<Order, 24> kOrders = {
    KTRCL_ORDER(XYZs, 0),  KTRCL_ORDER(XYXs, 1),  KTRCL_ORDER(XZYs, 2),  KTRCL_ORDER(XZXs, 3),
    KTRCL_ORDER(YZXs, 4),  KTRCL_ORDER(YZYs, 5),  KTRCL_ORDER(YXZs, 6),  KTRCL_ORDER(YXYs, 7),
    KTRCL_ORDER(ZXYs, 8),  KTRCL_ORDER(ZXZs, 9),  KTRCL_ORDER(ZYXs, 10), KTRCL_ORDER(ZYZs, 11),
    KTRCL_ORDER(ZYXr, 12), KTRCL_ORDER(XYXr, 13), KTRCL_ORDER(YZXr, 14), KTRCL_ORDER(XZXr, 15),
    KTRCL_ORDER(XZYr, 16), KTRCL_ORDER(YZYr, 17), KTRCL_ORDER(ZXYr, 18), KTRCL_ORDER(YXYr, 19),
    KTRCL_ORDER(YXZr, 20), KTRCL_ORDER(ZXZr, 21), KTRCL_ORDER(XYZr, 22), KTRCL_ORDER(ZYZr, 23)};

#undef KTRCL_ORDER

// The order with the axes read backwards in the other frame: the same rotation with the angles read
// backwards. Asking it for its angles never takes the short way for the stored order.
const Order& Counterpart(const Order& order) {
  const std::string text = {order.text[2], order.text[1], order.text[0],
                            order.IsRotating() ? 's' : 'r'};
  for (const Order& candidate : kOrders) {
    if (text == candidate.text) {
      return candidate;
    }
  }
  throw std::logic_error("no order " + text);
}

struct Angles {
  double a = 0;
  double b = 0;
  double c = 0;
};

std::vector<double> Numbers(const Angles& angles) { return {angles.a, angles.b, angles.c}; }

Angles GetDegrees(const GXRotation& rotation, const Order& order) {
  Angles angles;
  (rotation.*order.get)(angles.a, angles.b, angles.c);
  return angles;
}

Angles GetRadians(GXRotation& rotation, const Order& order) {
  Angles angles;
  (rotation.*order.getRad)(angles.a, angles.b, angles.c);
  return angles;
}

using Real = long double;
using RealMatrix = std::array<std::array<Real, 3>, 3>;

RealMatrix Elementary(int axis, double degrees) {
  const double radians = degrees * kPi / 180.0;
  const Real c = std::cos(static_cast<Real>(radians));
  const Real s = std::sin(static_cast<Real>(radians));
  const auto i = static_cast<std::size_t>(axis);
  const std::size_t j = (i + 1) % 3;
  const std::size_t k = (i + 2) % 3;
  RealMatrix m = {};
  m[i][i] = 1;
  m[j][j] = c;
  m[j][k] = -s;
  m[k][j] = s;
  m[k][k] = c;
  return m;
}

RealMatrix Times(const RealMatrix& left, const RealMatrix& right) {
  RealMatrix product = {};
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      for (std::size_t k = 0; k < 3; ++k) {
        product[i][j] += left[i][k] * right[k][j];
      }
    }
  }
  return product;
}

// About fixed axes a later rotation stands to the left, about moved axes to the right.
std::vector<double> Reference(const Order& order, const Angles& angles) {
  const RealMatrix first = Elementary(order.Axis(0), angles.a);
  const RealMatrix second = Elementary(order.Axis(1), angles.b);
  const RealMatrix third = Elementary(order.Axis(2), angles.c);
  const RealMatrix m =
      order.IsRotating() ? Times(Times(first, second), third) : Times(third, Times(second, first));
  std::vector<double> numbers;
  for (const auto& row : m) {
    for (const Real number : row) {
      numbers.push_back(static_cast<double>(number));
    }
  }
  return numbers;
}

// Away from the gimbal positions by 10 degrees, and in the range in which the angles of an order
// are given back: the middle angle within a quarter turn, or from 0 to plus or minus 180 where the
// first axis is repeated, with the sign of the parity.
Angles CanonicalAngles(const Order& order, support::Random& random) {
  Angles angles;
  angles.a = random.Between(-179, 179);
  angles.b = random.Between(-80, 80);
  angles.c = random.Between(-179, 179);
  if (order.Repeats()) {
    angles.b = order.IsOdd() ? angles.b - 90 : angles.b + 90;
  }
  return angles;
}

bool IsNearGimbal(const Order& order, double middleDegrees) {
  const double radians = middleDegrees * kPi / 180.0;
  return std::fabs(order.Repeats() ? std::sin(radians) : std::cos(radians)) < 0.1;
}

// The protected operations.
class OpenRotation : public GXRotation {
 public:
  using GXRotation::ConvertOrd2String;
  using GXRotation::ConvertString2Ord;
  using GXRotation::Get;
  using GXRotation::GetRad;
  using GXRotation::GXRotation;
  using GXRotation::Set;
  using GXRotation::SetRad;
};

class GXRotationOrders : public testing::TestWithParam<Order> {};

INSTANTIATE_TEST_SUITE_P(All, GXRotationOrders, testing::ValuesIn(kOrders),
                         [](const testing::TestParamInfo<Order>& row) {
                           return std::string(row.param.text);
                         });

TEST_P(GXRotationOrders, NumberAndTextBelongTogether) {
  const Order& order = GetParam();
  EXPECT_EQ(OpenRotation::ConvertOrd2String(order.number).Str(), order.text);
  EXPECT_EQ(OpenRotation::ConvertString2Ord(order.text), order.number);
  EXPECT_EQ(GXRotation(1, 2, 3, order.number).GetOStr().Str(), order.text);
  EXPECT_EQ(GXRotation(1, 2, 3, GXString(order.text)).GetO(), order.number);
}

TEST_P(GXRotationOrders, TheFactoryKeepsDegreesAsTheyAre) {
  const Order& order = GetParam();
  const GXRotation rotation = order.make(10.1, -725.5, 1e9);
  EXPECT_EQ(rotation.A, 10.1);
  EXPECT_EQ(rotation.B, -725.5);
  EXPECT_EQ(rotation.C, 1e9);
  EXPECT_EQ(rotation.O, order.number);
}

TEST_P(GXRotationOrders, TheFactoryOfRadiansStoresDegrees) {
  const Order& order = GetParam();
  const GXRotation rotation = order.makeRad(0.1, -7.3, 2.2);
  EXPECT_SAME_BITS(rotation.A, 0.1 * 180.0 / kPi);
  EXPECT_SAME_BITS(rotation.B, -7.3 * 180.0 / kPi);
  EXPECT_SAME_BITS(rotation.C, 2.2 * 180.0 / kPi);
  EXPECT_EQ(rotation.O, order.number);
}

TEST_P(GXRotationOrders, TheSettersStoreAnglesAndOrder) {
  const Order& order = GetParam();
  GXRotation rotation = Counterpart(order).make(1, 2, 3);
  (rotation.*order.set)(10.1, -725.5, 1e9);
  EXPECT_POINT_EQ((std::vector<double>{rotation.A, rotation.B, rotation.C}),
                  (std::vector<double>{10.1, -725.5, 1e9}));
  EXPECT_EQ(rotation.O, order.number);

  GXRotation radians = Counterpart(order).make(1, 2, 3);
  (radians.*order.setRad)(0.1, -7.3, 2.2);
  EXPECT_SAME_BITS(radians.A, 0.1 * 180.0 / kPi);
  EXPECT_SAME_BITS(radians.B, -7.3 * 180.0 / kPi);
  EXPECT_SAME_BITS(radians.C, 2.2 * 180.0 / kPi);
  EXPECT_EQ(radians.O, order.number);
}

TEST_P(GXRotationOrders, GetInTheStoredOrderHandsOutTheStoredBits) {
  const Order& order = GetParam();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const Angles& stored : {Angles{10.1, -725.5, 1e9}, Angles{-0.0, 90, nan}}) {
    GXRotation rotation = order.make(stored.a, stored.b, stored.c);
    const Angles degrees = GetDegrees(rotation, order);
    EXPECT_SAME_BITS(degrees.a, stored.a);
    EXPECT_SAME_BITS(degrees.b, stored.b);
    EXPECT_SAME_BITS(degrees.c, stored.c);
    const Angles radians = GetRadians(rotation, order);
    EXPECT_SAME_BITS(radians.a, stored.a * kPi / 180.0);
    EXPECT_SAME_BITS(radians.b, stored.b * kPi / 180.0);
    EXPECT_SAME_BITS(radians.c, stored.c * kPi / 180.0);
  }
}

TEST_P(GXRotationOrders, TheProtectedFormsTakeTheNumber) {
  const Order& order = GetParam();
  OpenRotation rotation;
  rotation.Set(10, 20, 30, order.number);
  EXPECT_TRUE(rotation.O == order.number && rotation.A == 10 && rotation.C == 30);
  Angles angles;
  rotation.Get(angles.a, angles.b, angles.c, order.number);
  EXPECT_POINT_EQ(Numbers(angles), (std::vector<double>{10, 20, 30}));
  rotation.SetRad(0.1, 0.2, 0.3, order.number);
  EXPECT_SAME_BITS(rotation.B, 0.2 * 180.0 / kPi);
  rotation.GetRad(angles.a, angles.b, angles.c, order.number);
  EXPECT_SAME_BITS(angles.b, rotation.B * kPi / 180.0);
}

TEST_P(GXRotationOrders, TheMatrixIsTheProductOfThreeElementaryRotations) {
  const Order& order = GetParam();
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const Angles angles = {random.Between(-400, 400), random.Between(-400, 400),
                           random.Between(-400, 400)};
    const GXRotation rotation = order.make(angles.a, angles.b, angles.c);
    // Sums of two products of three sines and cosines, each rounded once.
    EXPECT_POINT_NEAR(rotation.GetRotationMatrix(), Reference(order, angles), 1e-15);
  }
}

TEST_P(GXRotationOrders, AQuarterTurnAboutTheFirstAxisTurnsTheNextIntoTheOneBehind) {
  const Order& order = GetParam();
  const int axis = order.Axis(0);
  double from[3] = {};
  double to[3] = {};
  from[(axis + 1) % 3] = 1;
  to[(axis + 2) % 3] = 1;
  EXPECT_POINT_NEAR(order.make(90, 0, 0) * GXVector(from), GXVector(to), 1e-15);
}

TEST_P(GXRotationOrders, ReadingBackwardsInTheOtherFrameIsTheSameRotationBitForBit) {
  const Order& order = GetParam();
  const GXRotation rotation = order.make(10, 20, 30);
  const GXRotation counterpart = Counterpart(order).make(30, 20, 10);
  EXPECT_TRUE(rotation == counterpart);
  EXPECT_TRUE(rotation.IsAlmostEq(counterpart));
}

TEST_P(GXRotationOrders, AnglesComeBackThroughEveryOtherOrder) {
  const Order& order = GetParam();
  support::Random random;
  for (const Order& other : kOrders) {
    int tried = 0;
    for (int i = 0; i < 40; ++i) {
      const Angles angles = CanonicalAngles(order, random);
      const GXRotation rotation = order.make(angles.a, angles.b, angles.c);
      const Angles through = GetDegrees(rotation, other);
      if (IsNearGimbal(other, through.b)) {
        continue;
      }
      ++tried;
      EXPECT_POINT_NEAR(Reference(other, through), Reference(order, angles), 1e-14);
      const GXRotation converted = other.make(through.a, through.b, through.c);
      // 1e-15 in the matrix, 57 degrees per radian, ten times that beside the gimbal position.
      EXPECT_POINT_NEAR(Numbers(GetDegrees(converted, order)), Numbers(angles), 1e-11)
          << "through " << other.text;
    }
    EXPECT_GT(tried, 20) << other.text;
  }
}

TEST_P(GXRotationOrders, GetOfAnotherOrderIsGetRadInDegrees) {
  const Order& order = GetParam();
  support::Random random;
  const Angles angles = CanonicalAngles(order, random);
  GXRotation rotation = order.make(angles.a, angles.b, angles.c);
  for (const Order& other : kOrders) {
    if (other.number == order.number) {
      continue;
    }
    const Angles degrees = GetDegrees(rotation, other);
    const Angles radians = GetRadians(rotation, other);
    EXPECT_SAME_BITS(degrees.a, radians.a * 180.0 / kPi);
    EXPECT_SAME_BITS(degrees.b, radians.b * 180.0 / kPi);
    EXPECT_SAME_BITS(degrees.c, radians.c * 180.0 / kPi);
  }
}

TEST_P(GXRotationOrders, InAGimbalPositionTheLastRotationIs0AndTheMatrixIsKept) {
  const Order& order = GetParam();
  const Order& source = Counterpart(order);
  const std::array<double, 2> middles =
      order.Repeats() ? std::array<double, 2>{0, 180} : std::array<double, 2>{90, -90};
  support::Random random;
  for (const double middle : middles) {
    for (int i = 0; i < 20; ++i) {
      const Angles stored = {random.Between(-179, 179), middle, random.Between(-179, 179)};
      GXRotation rotation = source.make(stored.a, stored.b, stored.c);
      const Angles angles = GetDegrees(rotation, order);
      const Angles radians = GetRadians(rotation, order);
      // The zero belongs to the third angle of the static form and is negated with the others in
      // an odd order.
      const double zero = order.IsOdd() ? -0.0 : 0.0;
      EXPECT_SAME_BITS(order.IsRotating() ? angles.a : angles.c, zero);
      EXPECT_SAME_BITS(order.IsRotating() ? radians.a : radians.c, zero);
      EXPECT_POINT_NEAR(Reference(order, angles), Reference(source, stored), 1e-14);
    }
  }
}

// The middle angle in radians, `distance` away from a gimbal position.
double BesideGimbal(const Order& order, double distance) {
  if (!order.Repeats()) {
    return kPi / 2 - distance;
  }
  return order.IsOdd() ? -distance : distance;
}

TEST_P(GXRotationOrders, TheGimbalBranchEndsAtTwoToTheMinus19) {
  const Order& order = GetParam();
  const Order& source = Counterpart(order);
  const double edge = std::ldexp(1.0, -19);  // 1.907e-06

  GXRotation inside = source.makeRad(0.5, BesideGimbal(order, edge * 0.99), 0.25);
  const Angles lost = GetRadians(inside, order);
  EXPECT_EQ(order.IsRotating() ? lost.a : lost.c, 0.0);

  GXRotation outside = source.makeRad(0.5, BesideGimbal(order, edge * 1.01), 0.25);
  const Angles kept = GetRadians(outside, order);
  // The stored angles read backwards; a relative error of 1e-16 / 2e-6 in the small elements.
  EXPECT_NEAR(kept.a, 0.25, 1e-9);
  EXPECT_NEAR(kept.c, 0.5, 1e-9);
}

TEST_P(GXRotationOrders, TheInverseKeepsTheOrderAndUndoesTheRotation) {
  const Order& order = GetParam();
  support::Random random;
  for (int i = 0; i < 50; ++i) {
    const Angles angles = CanonicalAngles(order, random);
    const GXRotation rotation = order.make(angles.a, angles.b, angles.c);
    const GXRotation inverse = rotation.GetInverse();
    EXPECT_EQ(inverse.O, order.number);
    EXPECT_EQ(rotation.A, angles.a);
    GXMatrix transposed = rotation.GetRotationMatrix();
    transposed.Transpose();
    EXPECT_POINT_NEAR(inverse.GetRotationMatrix(), transposed, 1e-13);

    GXRotation inPlace(rotation);
    inPlace.Inverse();
    EXPECT_POINT_EQ((std::vector<double>{inPlace.A, inPlace.B, inPlace.C}),
                    (std::vector<double>{inverse.A, inverse.B, inverse.C}));
    EXPECT_EQ(inPlace.O, order.number);
  }
}

TEST_P(GXRotationOrders, AProductIsGivenInTheOrderOfItsLeftSide) {
  const Order& order = GetParam();
  support::Random random;
  int tried = 0;
  for (const Order& other : kOrders) {
    const Angles left = CanonicalAngles(order, random);
    const Angles right = CanonicalAngles(other, random);
    const GXRotation a = order.make(left.a, left.b, left.c);
    const GXRotation b = other.make(right.a, right.b, right.c);
    const GXRotation product = a * b;
    EXPECT_EQ(product.O, order.number);
    if (IsNearGimbal(order, product.B)) {
      continue;
    }
    ++tried;
    EXPECT_POINT_NEAR(product.GetRotationMatrix(), a.GetRotationMatrix() * b.GetRotationMatrix(),
                      1e-13);
  }
  EXPECT_GT(tried, 12);
}

// Degrees whose sine is exactly `sine` after conversion; sine and angle differ too little near 0
// for there to be none.
double DegreesOfExactSine(double sine) {
  double degrees = sine * 180.0 / kPi * (1 - 1e-12);
  for (int i = 0; i < 100000 && std::sin(degrees * kPi / 180.0) < sine; ++i) {
    degrees = std::nextafter(degrees, 1.0);
  }
  return degrees;
}

TEST(GXRotationGimbal, TheThresholdItselfIsInTheGimbalBranchOfARepeatedAxis) {
  const double edge = std::ldexp(1.0, -19);
  const double middle = DegreesOfExactSine(edge);
  ASSERT_EQ(std::sin(middle * kPi / 180.0), edge);
  for (const Order& order : kOrders) {
    if (!order.Repeats()) {
      continue;
    }
    // The first angle of the static form is 0, so that the square root in the test is exact. In the
    // gimbal branch it takes over the 20 degrees of the last one.
    const double b = order.IsOdd() ? -middle : middle;
    const GXRotation rotation =
        order.IsRotating() ? Counterpart(order).make(0, b, 20) : Counterpart(order).make(20, b, 0);
    const Angles angles = GetDegrees(rotation, order);
    EXPECT_EQ(order.IsRotating() ? angles.a : angles.c, 0.0) << order.text;
    EXPECT_NEAR(order.IsRotating() ? angles.c : angles.a, 20, 1e-9) << order.text;
  }
}

TEST(GXRotationOrderTexts, AnUnknownNumberGivesAnEmptyText) {
  for (const int number :
       {-1, 24, 100, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_EQ(OpenRotation::ConvertOrd2String(number).Str(), "");
  }
}

TEST(GXRotationOrderTexts, AnUnknownTextGives0) {
  for (const char* const text : {"", "xyzs", "zyxr", "ZYZ", "ZYZr ", " ZYZr", "XXXs", "ZYZx"}) {
    EXPECT_EQ(OpenRotation::ConvertString2Ord(text), 0) << text;
  }
  EXPECT_EQ(OpenRotation::ConvertString2Ord(GXString(std::string("ZYZr\0", 5))), 0);
}

}  // namespace
