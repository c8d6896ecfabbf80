// Comparison of points, vectors and matrices in tests: per coordinate, inclusive, and never true
// for a NaN. A failure prints both sides with all their digits.
//
//     EXPECT_POINT_NEAR(line.GetMidPoint(), support::Point(0.5, 0), 1e-12);
//     EXPECT_POINT_EQ(line.Start, support::Point(0, 0));     // operator== of every double
//     EXPECT_SAME_BITS(v.X, -0.0);                           // tells the zeros apart, NaN is NaN
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iomanip>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace support {

/// The doubles of a value, in the order of its fields.
inline std::vector<double> Numbers(const GX2DPoint& p) { return {p.X, p.Y}; }
inline std::vector<double> Numbers(const GX3DPoint& p) { return {p.X, p.Y, p.Z}; }
inline std::vector<double> Numbers(const GX2DVector& v) { return {v.X, v.Y}; }
inline std::vector<double> Numbers(const GXVector& v) { return {v.X, v.Y, v.Z}; }
inline std::vector<double> Numbers(const GX2DMatrix& m) { return {m.E11, m.E12, m.E21, m.E22}; }

inline std::vector<double> NumbersOfRows(const GXVector (&rows)[3]) {
  return {rows[0].X, rows[0].Y, rows[0].Z, rows[1].X, rows[1].Y,
          rows[1].Z, rows[2].X, rows[2].Y, rows[2].Z};
}
inline std::vector<double> Numbers(const GXMatrix& m) { return NumbersOfRows(m.Base); }
inline std::vector<double> Numbers(const GXColBasedTransformMatrix& m) {
  return NumbersOfRows(m.Base);
}

inline std::vector<double> Joined(std::initializer_list<std::vector<double>> parts) {
  std::vector<double> all;
  for (const std::vector<double>& part : parts) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}
inline std::vector<double> Numbers(const GX2DLine& l) {
  return Joined({Numbers(l.Start), Numbers(l.End)});
}
inline std::vector<double> Numbers(const GX3DLine& l) {
  return Joined({Numbers(l.Start), Numbers(l.End)});
}
inline std::vector<double> Numbers(const GX2DRectangle& r) {
  return Joined({Numbers(r.Corner1), Numbers(r.Corner2)});
}
inline std::vector<double> Numbers(const GX2DArc& a) {
  return Joined({Numbers(a.Start), Numbers(a.Mid), Numbers(a.End), Numbers(a.Center)});
}
inline std::vector<double> Numbers(const GX3DArc& a) {
  return Joined({Numbers(a.Start), Numbers(a.Mid), Numbers(a.End), Numbers(a.Center)});
}
inline std::vector<double> Numbers(const std::vector<double>& numbers) { return numbers; }

inline std::string Text(const std::vector<double>& numbers) {
  std::ostringstream text;
  text << std::setprecision(std::numeric_limits<double>::max_digits10) << '(';
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    text << (i == 0 ? "" : ", ") << numbers[i];
  }
  text << ')';
  return text.str();
}

/// Whether both doubles have the same bits; every NaN counts as the same.
inline bool SameBits(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) {
    return std::isnan(a) && std::isnan(b);
  }
  std::uint64_t left = 0;
  std::uint64_t right = 0;
  std::memcpy(&left, &a, sizeof left);
  std::memcpy(&right, &b, sizeof right);
  return left == right;
}

inline testing::AssertionResult Differ(const char* actualText, const char* expectedText,
                                       const std::vector<double>& actual,
                                       const std::vector<double>& expected,
                                       const std::string& relation) {
  return testing::AssertionFailure()
         << actualText << "\n  is " << Text(actual) << "\n"
         << expectedText << "\n  is " << Text(expected) << "\nwhich is not " << relation;
}

template <typename A, typename B>
testing::AssertionResult NumbersNear(const char* actualText, const char* expectedText,
                                     const char* /*toleranceText*/, const A& actual,
                                     const B& expected, double tolerance) {
  const std::vector<double> left = Numbers(actual);
  const std::vector<double> right = Numbers(expected);
  bool near = left.size() == right.size();
  for (std::size_t i = 0; near && i < left.size(); ++i) {
    near = left[i] == right[i] || std::fabs(left[i] - right[i]) <= tolerance;
  }
  if (near) {
    return testing::AssertionSuccess();
  }
  std::ostringstream relation;
  relation << "within " << tolerance << " in each number";
  return Differ(actualText, expectedText, left, right, relation.str());
}

template <typename A, typename B>
testing::AssertionResult NumbersEqual(const char* actualText, const char* expectedText,
                                      const A& actual, const B& expected) {
  const std::vector<double> left = Numbers(actual);
  const std::vector<double> right = Numbers(expected);
  if (left == right) {
    return testing::AssertionSuccess();
  }
  return Differ(actualText, expectedText, left, right, "exactly equal");
}

inline testing::AssertionResult BitsSame(const char* actualText, const char* expectedText,
                                         double actual, double expected) {
  if (SameBits(actual, expected)) {
    return testing::AssertionSuccess();
  }
  return Differ(actualText, expectedText, {actual}, {expected}, "the same bit for bit");
}

}  // namespace support

/// Each number of a point, vector, matrix, line or arc within `tolerance` of the expected one.
#define EXPECT_POINT_NEAR(actual, expected, tolerance) \
  EXPECT_PRED_FORMAT3(support::NumbersNear, actual, expected, tolerance)
#define ASSERT_POINT_NEAR(actual, expected, tolerance) \
  ASSERT_PRED_FORMAT3(support::NumbersNear, actual, expected, tolerance)

/// Each number equal by `==`.
#define EXPECT_POINT_EQ(actual, expected) \
  EXPECT_PRED_FORMAT2(support::NumbersEqual, actual, expected)
#define ASSERT_POINT_EQ(actual, expected) \
  ASSERT_PRED_FORMAT2(support::NumbersEqual, actual, expected)

/// One double, bit for bit.
#define EXPECT_SAME_BITS(actual, expected) EXPECT_PRED_FORMAT2(support::BitsSame, actual, expected)
