// Plain arrays as the kernel takes them, with the comparisons of support/Near.h, and the checks
// that its routines share: the unit flag, outputs that are also inputs.
//
//     Vec out = support::kUnwritten;
//     EXPECT_EQ(Project_point_on_plane(a, b, c, p, out), 1);
//     EXPECT_POINT_NEAR(out, Vec(1, 2, 0), 1e-15);
#pragma once

#include "support/Near.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <limits>
#include <vector>

namespace support {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Point or vector; stands for its array wherever one is asked for.
struct Vec {
  constexpr Vec(double x, double y, double z) : c{x, y, z} {}
  explicit Vec(const double* p) : c{p[0], p[1], p[2]} {}

  operator double*() { return c; }
  operator const double*() const { return c; }
  double& operator[](int i) { return c[i]; }
  double operator[](int i) const { return c[i]; }

  double c[3];
};

inline Vec operator+(const Vec& a, const Vec& b) { return {a[0] + b[0], a[1] + b[1], a[2] + b[2]}; }
inline Vec operator-(const Vec& a, const Vec& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }
inline Vec operator*(double s, const Vec& a) { return {s * a[0], s * a[1], s * a[2]}; }
inline double Dot(const Vec& a, const Vec& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
inline Vec Cross(const Vec& a, const Vec& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
inline double Length(const Vec& a) { return std::sqrt(Dot(a, a)); }

/// Rows X, Y, Z; stands for its array wherever one is asked for.
struct Frame {
  using Rows = double (*)[3];
  using ConstRows = const double (*)[3];

  constexpr Frame(const Vec& x, const Vec& y, const Vec& z)
      : rows{{x.c[0], x.c[1], x.c[2]}, {y.c[0], y.c[1], y.c[2]}, {z.c[0], z.c[1], z.c[2]}} {}
  explicit Frame(ConstRows from) : Frame(Vec(from[0]), Vec(from[1]), Vec(from[2])) {}

  operator Rows() { return rows; }
  operator ConstRows() const { return rows; }
  Vec Row(int i) const { return Vec(rows[i]); }

  double rows[3][3];
};

inline Frame Transposed(const Frame& f) {
  return {Vec(f.rows[0][0], f.rows[1][0], f.rows[2][0]),
          Vec(f.rows[0][1], f.rows[1][1], f.rows[2][1]),
          Vec(f.rows[0][2], f.rows[1][2], f.rows[2][2])};
}

inline std::vector<double> Numbers(const Vec& v) { return {v[0], v[1], v[2]}; }
inline std::vector<double> Numbers(const Frame& f) {
  return Joined({Numbers(f.Row(0)), Numbers(f.Row(1)), Numbers(f.Row(2))});
}

/// What outputs hold before a call that must leave them alone.
constexpr Vec kUnwritten(11.5, -12.25, 13.125);
constexpr Frame kUnwrittenFrame({21.5, 22.5, 23.5}, {24.5, 25.5, 26.5}, {27.5, 28.5, 29.5});
constexpr Frame kGlobalAxes({1, 0, 0}, {0, 1, 0}, {0, 0, 1});

/// Expects `result(unit)` to read exactly 1 as inches and everything else as millimetres.
template <typename Result, typename Value>
void ExpectOnly1IsInches(Result result, Value millimetres, Value inches) {
  EXPECT_EQ(result(0), millimetres);
  EXPECT_EQ(result(1), inches);
  EXPECT_EQ(result(2), millimetres);
  EXPECT_EQ(result(-1), millimetres);
}

/// Expects `result(unit)` to read every value but 0 as inches.
template <typename Result, typename Value>
void ExpectAllBut0AreInches(Result result, Value millimetres, Value inches) {
  EXPECT_EQ(result(0), millimetres);
  EXPECT_EQ(result(1), inches);
  EXPECT_EQ(result(2), inches);
  EXPECT_EQ(result(-1), inches);
}

/// Expects `call(inputs, out)` to write the same whether `out` is an array of its own or any one of
/// the inputs.
template <std::size_t kCount, typename Call>
void ExpectOutputMayBeAnyInput(const std::array<Vec, kCount>& inputs, Call call) {
  const auto pointers = [](const std::array<Vec, kCount>& points) {
    std::array<const double*, kCount> all{};
    for (std::size_t i = 0; i < kCount; ++i) {
      all[i] = points[i].c;
    }
    return all;
  };
  Vec apart = kUnwritten;
  call(pointers(inputs), apart.c);
  for (std::size_t i = 0; i < kCount; ++i) {
    std::array<Vec, kCount> shared = inputs;
    call(pointers(shared), shared[i].c);
    EXPECT_POINT_EQ(shared[i], apart) << "with the output in input " << i;
  }
}

}  // namespace support
