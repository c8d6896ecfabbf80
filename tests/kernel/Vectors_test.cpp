#include <KTRCL_Geometry/kernel/Vectors.h>

#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using support::kInfinity;
using support::kNaN;
using support::kUnwritten;
using support::Vec;

template <std::size_t kCount>
using Inputs = const std::array<const double*, kCount>&;

constexpr double kLargest = std::numeric_limits<double>::max();

TEST(VectorAB, IsTheWayFromBToA) {
  Vec out = kUnwritten;
  Vector_a_b(Vec(1, 2, 3), Vec(5, 3, 1), out);
  EXPECT_POINT_EQ(out, Vec(-4, -1, 2));
  support::ExpectOutputMayBeAnyInput<2>({{{1, 2, 3}, {5, 3, 1}}}, [](Inputs<2> in, double* result) {
    Vector_a_b(in[0], in[1], result);
  });
}

TEST(VectorAAddB, IsTheSum) {
  Vec out = kUnwritten;
  Vector_a_add_b(Vec(1, 2, 3), Vec(5, 3, 1), out);
  EXPECT_POINT_EQ(out, Vec(6, 5, 4));
  support::ExpectOutputMayBeAnyInput<2>({{{1, 2, 3}, {5, 3, 1}}}, [](Inputs<2> in, double* result) {
    Vector_a_add_b(in[0], in[1], result);
  });
}

TEST(VectorMidAB, IsTheMiddle) {
  Vec out = kUnwritten;
  Vector_mid_a_b(Vec(1, 2, 3), Vec(5, 3, 1), out);
  EXPECT_POINT_EQ(out, Vec(3, 2.5, 2));
  support::ExpectOutputMayBeAnyInput<2>({{{1, 2, 3}, {5, 3, 1}}}, [](Inputs<2> in, double* result) {
    Vector_mid_a_b(in[0], in[1], result);
  });
}

TEST(VectorMidAB, AddsBeforeItHalves) {
  Vec out = kUnwritten;
  Vector_mid_a_b(Vec(kLargest, -kLargest, kLargest), Vec(kLargest, -kLargest, 0), out);
  EXPECT_POINT_EQ(out, Vec(kInfinity, -kInfinity, kLargest / 2));
}

TEST(VectorADotB, IsTheScalarProduct) {
  EXPECT_EQ(Vector_a_dot_b(Vec(1, 2, 3), Vec(5, -3, 2)), 5.0);
  EXPECT_EQ(Vector_a_dot_b(Vec(1, 0, 0), Vec(0, 1, 0)), 0.0);
}

// 1 disappears beside 1e16, but not beside nothing.
TEST(VectorADotB, SumsInTheOrderXYZ) {
  EXPECT_EQ(Vector_a_dot_b(Vec(1e16, 1, -1e16), Vec(1, 1, 1)), 0.0);
  EXPECT_EQ(Vector_a_dot_b(Vec(1e16, -1e16, 1), Vec(1, 1, 1)), 1.0);
}

TEST(VectorAXB, IsTheRightHandedVectorProduct) {
  Vec out = kUnwritten;
  Vector_a_x_b(Vec(1, 0, 0), Vec(0, 1, 0), out);
  EXPECT_POINT_EQ(out, Vec(0, 0, 1));
  Vector_a_x_b(Vec(1, 2, 3), Vec(4, 5, 6), out);
  EXPECT_POINT_EQ(out, Vec(-3, 6, -3));
  support::ExpectOutputMayBeAnyInput<2>({{{1, 2, 3}, {4, 5, 6}}}, [](Inputs<2> in, double* result) {
    Vector_a_x_b(in[0], in[1], result);
  });
}

TEST(VectorAXB, StandsAcrossBothVectors) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const Vec a(random.Between(-10, 10), random.Between(-10, 10), random.Between(-10, 10));
    const Vec b(random.Between(-10, 10), random.Between(-10, 10), random.Between(-10, 10));
    Vec out = kUnwritten;
    Vector_a_x_b(a, b, out);
    // Products of up to 300 in three roundings each.
    EXPECT_NEAR(support::Dot(out, a), 0, 1e-12);
    EXPECT_NEAR(support::Dot(out, b), 0, 1e-12);
  }
}

TEST(VectorAXVal, IsAMultiple) {
  Vec out = kUnwritten;
  Vector_a_x_val(Vec(1, -2, 3), -2.5, out);
  EXPECT_POINT_EQ(out, Vec(-2.5, 5, -7.5));
  support::ExpectOutputMayBeAnyInput<1>(
      {{{1, -2, 3}}}, [](Inputs<1> in, double* result) { Vector_a_x_val(in[0], -2.5, result); });
}

TEST(VectorByValues, FillsInTheOrderXYZ) {
  Vec out = kUnwritten;
  Vector_by_values(out, 1, 2, 3);
  EXPECT_POINT_EQ(out, Vec(1, 2, 3));
}

TEST(VectorByValues6, FillsAllSix) {
  std::vector<double> out(6, -1);
  Vector_by_values_6(out.data(), 1, 2, 3, 4, 5, 6);
  EXPECT_POINT_EQ(out, (std::vector<double>{1, 2, 3, 4, 5, 6}));
}

TEST(VectorCopyAToB, CopiesTheFirstToTheSecond) {
  const Vec from(1, 2, 3);
  Vec to = kUnwritten;
  Vector_copy_a_to_b(from, to);
  EXPECT_POINT_EQ(to, Vec(1, 2, 3));
  Vector_copy_a_to_b(to, to);
  EXPECT_POINT_EQ(to, Vec(1, 2, 3));
}

TEST(VectorCopyAToB6, CopiesTheFirstToTheSecond) {
  const std::vector<double> from{1, 2, 3, 4, 5, 6};
  std::vector<double> to(6, -1);
  Vector_copy_a_to_b_6(from.data(), to.data());
  EXPECT_POINT_EQ(to, from);
  Vector_copy_a_to_b_6(to.data(), to.data());
  EXPECT_POINT_EQ(to, from);
}

TEST(VectorCopyAToB66, CopiesTheFirstToTheSecond) {
  double from[6][6];
  double to[6][6];
  for (int row = 0; row < 6; ++row) {
    for (int column = 0; column < 6; ++column) {
      from[row][column] = 10 * row + column;
      to[row][column] = -1;
    }
  }
  Vector_copy_a_to_b_66(from, to);
  for (int round = 0; round < 2; ++round) {
    for (int row = 0; row < 6; ++row) {
      for (int column = 0; column < 6; ++column) {
        EXPECT_EQ(to[row][column], 10 * row + column);
        EXPECT_EQ(from[row][column], 10 * row + column);
      }
    }
    Vector_copy_a_to_b_66(to, to);
  }
}

TEST(VectorLen, IsTheEuclideanLength) {
  EXPECT_EQ(Vector_len(Vec(3, -4, 12)), 13.0);
  EXPECT_EQ(Vector_len(Vec(0, 0, 0)), 0.0);
  EXPECT_EQ(Vector_len(Vec(-kInfinity, 0, 0)), kInfinity);
  EXPECT_TRUE(std::isnan(Vector_len(Vec(0, kNaN, 0))));
}

TEST(VectorLen6, IsTheEuclideanLengthOverSixComponents) {
  const double a[6] = {1, 2, 3, 4, 5, 3};  // 1 + 4 + 9 + 16 + 25 + 9 = 64
  EXPECT_EQ(Vector_len_6(a), 8.0);
  const double last[6] = {0, 0, 0, 0, 0, -7};
  EXPECT_EQ(Vector_len_6(last), 7.0);
}

TEST(VectorLenAB, IsTheDistance) {
  EXPECT_EQ(Vector_len_a_b(Vec(1, 2, 3), Vec(4, -2, 15)), 13.0);
  EXPECT_EQ(Vector_len_a_b(Vec(1, 2, 3), Vec(1, 2, 3)), 0.0);
  EXPECT_TRUE(std::isnan(Vector_len_a_b(Vec(kInfinity, 0, 0), Vec(kInfinity, 0, 0))));
}

TEST(VectorStandard, DividesByTheLength) {
  Vec a(3, 0, -4);
  Vector_standard(a);
  EXPECT_POINT_EQ(a, Vec(0.6, 0, -0.8));
  Vec b(0, 49, 0);  // 49 * (1 / 49) is below 1 by a rounding
  Vector_standard(b);
  EXPECT_POINT_EQ(b, Vec(0, 1, 0));
}

TEST(VectorStandard, LeavesAVectorOfLength0Point00005AsItIs) {
  Vec a(0, 0, 0.00005);
  Vector_standard(a);
  EXPECT_POINT_EQ(a, Vec(0, 0, 0.00005));
  EXPECT_EQ(Vector_len(a), 0.00005);
}

// The length of a vector along an axis is exact: the root of a rounded square gives the number
// back.
TEST(VectorStandard, ActsOnlyAboveALengthOf0Point0001) {
  Vec at(0, -0.0001, 0);
  Vector_standard(at);
  EXPECT_POINT_EQ(at, Vec(0, -0.0001, 0));
  Vec above(0, -std::nextafter(0.0001, 1.0), 0);
  Vector_standard(above);
  EXPECT_POINT_EQ(above, Vec(0, -1, 0));
}

TEST(VectorStandard, LeavesZeroAndNaNAlone) {
  Vec zero(0, 0, 0);
  Vector_standard(zero);
  EXPECT_POINT_EQ(zero, Vec(0, 0, 0));
  Vec odd(kNaN, 5, 0);
  Vector_standard(odd);
  EXPECT_EQ(odd[1], 5.0);
}

TEST(VectorStandard, GivesLength1InTheSameDirection) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const Vec a(random.Between(-1e3, 1e3), random.Between(-1e3, 1e3), random.Between(-1e3, 1e3));
    Vec unit = a;
    Vector_standard(unit);
    EXPECT_NEAR(support::Length(unit), 1.0, 4e-16);  // one rounding per component
    EXPECT_NEAR(support::Length(support::Cross(unit, a)), 0.0, 1e-12);
    EXPECT_GT(support::Dot(unit, a), 0.0);
  }
}

}  // namespace
