#include <KTRCL_Geometry/kernel/Vectors.h>

#include "support/KernelArrays.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using support::kInfinity;
using support::kNaN;
using support::kUnwritten;
using support::Vec;

constexpr Vec kZero(0, 0, 0);

template <std::size_t kCount>
using Inputs = const std::array<const double*, kCount>&;

// Along one axis, on either side.
Vec Along(int axis, double by) {
  Vec v = kZero;
  v[axis] = by;
  return v;
}

using Comparison = int (*)(const double*, const double*);
constexpr Comparison kComparisons[] = {Pntcmp, Pntcmp1};

TEST(Pntcmp, HasAnInclusiveLimitOnEachAxis) {
  const double above = std::nextafter(0.0001, 1.0);
  for (const Comparison same : kComparisons) {
    for (int axis = 0; axis < 3; ++axis) {
      EXPECT_EQ(same(kZero, Along(axis, 0.0001)), 1);
      EXPECT_EQ(same(Along(axis, 0.0001), kZero), 1);
      EXPECT_EQ(same(kZero, Along(axis, above)), 0);
      EXPECT_EQ(same(Along(axis, above), kZero), 0);
    }
  }
}

TEST(Pntcmp, ComparesABoxAndNotADistance) {
  for (const Comparison same : kComparisons) {
    EXPECT_EQ(same(kZero, Vec(0.0001, 0.0001, 0.0001)), 1);
    EXPECT_EQ(same(Vec(0.0001, -0.0001, 0.0001), kZero), 1);
  }
}

TEST(Pntcmp, NeverHoldsForNaN) {
  for (const Comparison same : kComparisons) {
    for (int axis = 0; axis < 3; ++axis) {
      EXPECT_EQ(same(Along(axis, kNaN), kZero), 0);
      EXPECT_EQ(same(Along(axis, kNaN), Along(axis, kNaN)), 0);
      EXPECT_EQ(same(Along(axis, kInfinity), kZero), 0);
    }
  }
}

TEST(PntcmpTol, HasTheGivenInclusiveLimit) {
  for (int axis = 0; axis < 3; ++axis) {
    EXPECT_EQ(Pntcmp_tol(kZero, Along(axis, 0.5), 0.5), 1);
    EXPECT_EQ(Pntcmp_tol(Along(axis, 0.5), kZero, 0.5), 1);
    EXPECT_EQ(Pntcmp_tol(kZero, Along(axis, std::nextafter(0.5, 1.0)), 0.5), 0);
    EXPECT_EQ(Pntcmp_tol(Along(axis, std::nextafter(0.5, 1.0)), kZero, 0.5), 0);
  }
  EXPECT_EQ(Pntcmp_tol(kZero, Vec(0.5, -0.5, 0.5), 0.5), 1);
}

TEST(PntcmpTol, TakesZeroAndOddLimits) {
  EXPECT_EQ(Pntcmp_tol(kZero, kZero, 0), 1);
  EXPECT_EQ(Pntcmp_tol(kZero, kZero, -1), 0);
  EXPECT_EQ(Pntcmp_tol(kZero, kZero, kNaN), 0);
  EXPECT_EQ(Pntcmp_tol(kZero, Vec(kNaN, 0, 0), kInfinity), 0);
}

TEST(Pntcmp6, AllowsThePoint0Point0001AndTheRestOneMillionth) {
  const std::array<double, 6> zero{};
  for (std::size_t i = 0; i < 6; ++i) {
    const double limit = i < 3 ? 0.0001 : 0.000001;
    std::array<double, 6> other{};
    other[i] = -limit;
    EXPECT_EQ(Pntcmp6(zero.data(), other.data()), 1) << i;
    EXPECT_EQ(Pntcmp6(other.data(), zero.data()), 1) << i;
    other[i] = -std::nextafter(limit, 1.0);
    EXPECT_EQ(Pntcmp6(zero.data(), other.data()), 0) << i;
    EXPECT_EQ(Pntcmp6(other.data(), zero.data()), 0) << i;
    other[i] = kNaN;
    EXPECT_EQ(Pntcmp6(zero.data(), other.data()), 0) << i;
  }
}

// Points of a picture: P1 and Q1 coincide without being equal, P2 and Q2 do so too.
constexpr Vec kP1(1, 2, 3), kQ1(1.00005, 2, 3);
constexpr Vec kP2(7, 8, 9), kQ2(7, 8.00005, 9);
constexpr Vec kFar1(50, 0, 0), kFar2(0, 50, 0);

TEST(CommonPoint, IsTheEndOfAThatIsAnEndOfB) {
  struct Case {
    Vec a1, a2, b1, b2, expected;
  };
  const Case cases[] = {
      {kP1, kFar1, kQ1, kFar2, kP1}, {kP1, kFar1, kFar2, kQ1, kP1}, {kFar1, kP1, kQ1, kFar2, kP1},
      {kFar1, kP1, kFar2, kQ1, kP1}, {kP1, kP2, kQ2, kQ1, kP1},     {kP2, kP1, kQ2, kQ1, kP2},
  };
  for (const Case& c : cases) {
    Vec out = kUnwritten;
    EXPECT_EQ(Common_point_pointer_2Points1_in_2Points2(c.a1, c.a2, c.b1, c.b2, out), 1);
    EXPECT_POINT_EQ(out, c.expected);
  }
}

TEST(NotCommonPoint, IsTheOtherEndOfA) {
  struct Case {
    Vec a1, a2, b1, b2, expected;
  };
  const Case cases[] = {
      {kP1, kFar1, kQ1, kFar2, kFar1}, {kP1, kFar1, kFar2, kQ1, kFar1},
      {kFar1, kP1, kQ1, kFar2, kFar1}, {kFar1, kP1, kFar2, kQ1, kFar1},
      {kP1, kP2, kQ2, kQ1, kP2},       {kP2, kP1, kQ2, kQ1, kP1},
  };
  for (const Case& c : cases) {
    Vec out = kUnwritten;
    EXPECT_EQ(Not_Common_point_pointer_2Points1_in_2Points2(c.a1, c.a2, c.b1, c.b2, out), 1);
    EXPECT_POINT_EQ(out, c.expected);
  }
}

TEST(GetNotSameVector, IsTheFarEndOfCD) {
  struct Case {
    Vec a, b, c, d, expected;
  };
  const Case cases[] = {
      {kP1, kFar1, kQ1, kFar2, kFar2},
      {kP1, kFar1, kFar2, kQ1, kFar2},
      {kFar1, kP1, kQ1, kFar2, kFar2},
      {kFar1, kP1, kFar2, kQ1, kFar2},
      // The pairs are tried as a c, a d, b c, b d, and the first one decides.
      {kP1, kP1, kQ1, kP1, kP1},
      {kP1, kP2, kQ1, kQ2, kQ2},
      {kP1, kP2, kQ2, kQ1, kQ2},
      {kFar1, kP1, kQ1, kP1, kP1},
  };
  for (const Case& c : cases) {
    Vec out = kUnwritten;
    EXPECT_EQ(Get_not_same_vector(c.a, c.b, c.c, c.d, out), 1);
    EXPECT_POINT_EQ(out, c.expected);
  }
}

TEST(SelectionAmongEnds, WritesNothingWhereNoEndsCoincide) {
  const Vec beside(1.00015, 2, 3);
  Vec out = kUnwritten;
  EXPECT_EQ(Common_point_pointer_2Points1_in_2Points2(kP1, kFar1, beside, kP2, out), 0);
  EXPECT_EQ(Not_Common_point_pointer_2Points1_in_2Points2(kP1, kFar1, beside, kP2, out), 0);
  EXPECT_EQ(Get_not_same_vector(kP1, kFar1, beside, kP2, out), 0);
  const Vec odd(kNaN, kNaN, kNaN);
  EXPECT_EQ(Common_point_pointer_2Points1_in_2Points2(odd, odd, odd, odd, out), 0);
  EXPECT_EQ(Not_Common_point_pointer_2Points1_in_2Points2(odd, odd, odd, odd, out), 0);
  EXPECT_EQ(Get_not_same_vector(odd, odd, odd, odd, out), 0);
  EXPECT_POINT_EQ(out, kUnwritten);
}

TEST(SelectionAmongEnds, MayWriteToItsInputs) {
  const std::array<Vec, 4> ends{{kFar1, kP1, kQ1, kFar2}};
  support::ExpectOutputMayBeAnyInput<4>(ends, [](Inputs<4> in, double* out) {
    EXPECT_EQ(Common_point_pointer_2Points1_in_2Points2(in[0], in[1], in[2], in[3], out), 1);
  });
  support::ExpectOutputMayBeAnyInput<4>(ends, [](Inputs<4> in, double* out) {
    EXPECT_EQ(Not_Common_point_pointer_2Points1_in_2Points2(in[0], in[1], in[2], in[3], out), 1);
  });
  support::ExpectOutputMayBeAnyInput<4>(ends, [](Inputs<4> in, double* out) {
    EXPECT_EQ(Get_not_same_vector(in[0], in[1], in[2], in[3], out), 1);
  });
}

Vec Another(const Vec& o, const Vec& p1, const Vec& p2) {
  Vec out = kUnwritten;
  EXPECT_EQ(Vector_another_Pnt(o, p1, p2, out), 1);
  return out;
}

TEST(VectorAnotherPnt, IsThePointThatTheFirstOneIsNot) {
  EXPECT_POINT_EQ(Another(kQ1, kP1, kFar1), kFar1);
  EXPECT_POINT_EQ(Another(kQ1, kFar1, kP1), kFar1);
}

// p1 is the farther one, but o coincides with it.
TEST(VectorAnotherPnt, TriesThePairsBeforeTheDistances) {
  const Vec near(0.00001, 0, 0);
  const Vec farther(0.00005, 0, 0);
  EXPECT_POINT_EQ(Another(kZero, farther, near), near);
  EXPECT_POINT_EQ(Another(kZero, near, farther), farther);
}

TEST(VectorAnotherPnt, IsTheFartherOneElseAndTheFirstOnATie) {
  EXPECT_POINT_EQ(Another(kZero, Vec(3, 0, 0), Vec(0, 4, 0)), Vec(0, 4, 0));
  EXPECT_POINT_EQ(Another(kZero, Vec(0, 4, 0), Vec(3, 0, 0)), Vec(0, 4, 0));
  EXPECT_POINT_EQ(Another(kZero, Vec(3, 0, 0), Vec(0, -3, 0)), Vec(3, 0, 0));
}

TEST(VectorEndpPnt, IsTheWayToTheSameChoice) {
  const auto way = [](const Vec& o, const Vec& p1, const Vec& p2) {
    Vec out = kUnwritten;
    EXPECT_EQ(Vector_endp_Pnt(o, p1, p2, out), 1);
    return out;
  };
  EXPECT_POINT_EQ(way(kP1, kP1, kFar1), Vec(49, -2, -3));
  EXPECT_POINT_EQ(way(kP1, kFar1, kP1), Vec(49, -2, -3));
  EXPECT_POINT_EQ(way(Vec(1, 0, 0), Vec(3, 0, 0), Vec(1, 4, 0)), Vec(0, 4, 0));
  EXPECT_POINT_EQ(way(Vec(1, 0, 0), Vec(3, 0, 0), Vec(1, -2, 0)), Vec(2, 0, 0));
  EXPECT_POINT_EQ(way(kZero, Vec(0.00005, 0, 0), Vec(0.00001, 0, 0)), Vec(0.00001, 0, 0));
}

TEST(VectorAnotherPnt, MayWriteToItsInputsAsMayVectorEndpPnt) {
  const std::array<Vec, 3> points{{kZero, {3, 1, 2}, {0, 4, 1}}};
  support::ExpectOutputMayBeAnyInput<3>(points, [](Inputs<3> in, double* out) {
    EXPECT_EQ(Vector_another_Pnt(in[0], in[1], in[2], out), 1);
  });
  support::ExpectOutputMayBeAnyInput<3>(points, [](Inputs<3> in, double* out) {
    EXPECT_EQ(Vector_endp_Pnt(in[0], in[1], in[2], out), 1);
  });
}

}  // namespace
