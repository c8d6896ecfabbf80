// What the fuzz targets of the coordinate-array kernel share: bytes become numbers, points and
// flags; outputs stand between guards; and what must hold is required aloud.
//
//     KernelInput input(data, size);
//     const int unit = input.Unit();
//     const Points<4> p = input.Some<4>();
//     RequirePointRoutine("Intspt", p, [&](const auto& in, double* out) {
//       return Intspt(unit, in[0], in[1], in[2], in[3], out);
//     });
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <limits>

namespace kernel_fuzz {

/// Ends the run, so that the input is kept, unless something holds.
inline void Require(bool holds, const char* routine, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "%s: not so: %s\n", routine, what);
  std::abort();
}

inline std::uint64_t BitsOf(double number) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &number, sizeof bits);
  return bits;
}

inline double FromBits(std::uint64_t bits) {
  double number = 0.0;
  std::memcpy(&number, &bits, sizeof number);
  return number;
}

/// A NaN that no input holds: outputs and guards are full of it before a call.
inline constexpr std::uint64_t kUnwritten = 0xfff8c0dec0dec0deU;
inline constexpr int kUnwrittenInt = -1234567;

inline bool IsUnwritten(double number) { return BitsOf(number) == kUnwritten; }

/// The same figure, zeros of both signs alike; a NaN is the same as any other.
inline bool Same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

struct Point {
  double c[3];

  operator double*() { return c; }
  operator const double*() const { return c; }
};

inline bool Same(const Point& a, const Point& b) {
  return Same(a.c[0], b.c[0]) && Same(a.c[1], b.c[1]) && Same(a.c[2], b.c[2]);
}

template <std::size_t kCount>
using Points = std::array<Point, kCount>;

/// An output of `kCount` numbers between guards; stands for its array.
template <std::size_t kCount>
class Output {
 public:
  Output() {
    for (double& cell : cells_) cell = FromBits(kUnwritten);
  }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;
  ~Output() {
    for (std::size_t i = 0; i < kGuard; ++i) {
      Require(IsUnwritten(cells_[i]), "an array", "nothing is written before it");
      Require(IsUnwritten(cells_[kGuard + kCount + i]), "an array", "nothing is written behind it");
    }
  }

  operator double*() { return cells_ + kGuard; }
  double operator[](std::size_t i) const { return cells_[kGuard + i]; }

  /// Whether none of the numbers from `begin` to before `end` was written.
  bool Untouched(std::size_t begin = 0, std::size_t end = kCount) const {
    for (std::size_t i = begin; i < end; ++i) {
      if (!IsUnwritten((*this)[i])) return false;
    }
    return true;
  }
  /// Whether each of them was written.
  bool Written(std::size_t begin = 0, std::size_t end = kCount) const {
    for (std::size_t i = begin; i < end; ++i) {
      if (IsUnwritten((*this)[i])) return false;
    }
    return true;
  }

 private:
  static constexpr std::size_t kGuard = 3;
  double cells_[kCount + 2 * kGuard];
};

inline bool Same(const Output<3>& a, const Point& b) {
  return Same(a[0], b.c[0]) && Same(a[1], b.c[1]) && Same(a[2], b.c[2]);
}

/// An output of rows of `kColumns` numbers, with a guarding row on either side.
template <std::size_t kRows, std::size_t kColumns = 3>
class OutputRows {
 public:
  using Rows = double (*)[kColumns];

  OutputRows() {
    for (auto& row : rows_) {
      for (double& cell : row) cell = FromBits(kUnwritten);
    }
  }
  OutputRows(const OutputRows&) = delete;
  OutputRows& operator=(const OutputRows&) = delete;
  ~OutputRows() {
    for (std::size_t column = 0; column < kColumns; ++column) {
      Require(IsUnwritten(rows_[0][column]), "rows", "nothing is written before them");
      Require(IsUnwritten(rows_[kRows + 1][column]), "rows", "nothing is written behind them");
    }
  }

  operator Rows() { return rows_ + 1; }
  double At(std::size_t row, std::size_t column) const { return rows_[row + 1][column]; }

  bool Untouched(std::size_t row) const {
    for (const double cell : rows_[row + 1]) {
      if (!IsUnwritten(cell)) return false;
    }
    return true;
  }
  bool Written(std::size_t row) const {
    for (const double cell : rows_[row + 1]) {
      if (IsUnwritten(cell)) return false;
    }
    return true;
  }

 private:
  double rows_[kRows + 2][kColumns];
};

/// Three rows of any numbers as an input.
struct Frame {
  using Rows = const double (*)[3];

  double rows[3][3];

  operator Rows() const { return rows; }
};

/// Calls a routine that takes points and writes one, which may be the array of any of them, and
/// that writes nothing where its result is 0. `call(inputs, out)` has the result.
template <std::size_t kCount, typename Call>
int RequirePointRoutine(const char* name, const Points<kCount>& points, Call call) {
  const auto arrays = [](const Points<kCount>& of) {
    std::array<const double*, kCount> all{};
    for (std::size_t i = 0; i < kCount; ++i) all[i] = of[i].c;
    return all;
  };
  Output<3> apart;
  const int result = static_cast<int>(call(arrays(points), apart));
  Require(result == 0 || result == 1, name, "the result is 0 or 1");
  Require(result == 1 || apart.Untouched(), name, "nothing is written with result 0");
  Require(apart.Untouched() || apart.Written(), name, "the point is written whole");
  for (std::size_t i = 0; i < kCount; ++i) {
    Points<kCount> shared = points;
    const int again = static_cast<int>(call(arrays(shared), shared[i].c));
    Require(again == result, name, "the result is the same with the output in an input");
    Require(apart.Untouched() ? Same(shared[i], points[i]) : Same(apart, shared[i]), name,
            "the output is the same in an array of the inputs");
  }
  return result;
}

/// The same for one that writes in all cases and has no result.
template <std::size_t kCount, typename Call>
void RequirePointIsWritten(const char* name, const Points<kCount>& points, Call call) {
  RequirePointRoutine(name, points, [&](const auto& in, double* out) {
    call(in, out);
    Require(!IsUnwritten(out[0]), name, "the point is written");
    return 1;
  });
}

/// Bytes as the arguments of routines. Behind the last byte there are zeros.
class KernelInput {
 public:
  KernelInput(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

  std::uint8_t Byte() {
    if (left_ == 0) return 0;
    --left_;
    return *data_++;
  }

  bool Flag() { return (Byte() & 1U) != 0; }

  /// Any `int`, mostly a small one.
  int Whole() {
    const std::uint8_t kind = Byte();
    if (kind < 240) return kind % 16 - 3;
    return static_cast<int>(static_cast<std::int32_t>(Raw() >> 32U));
  }

  /// A unit flag: the two readings of it, and strangers.
  int Unit() {
    constexpr int kUsual[] = {0, 0, 1, 1, 2, -1};
    const std::uint8_t kind = Byte();
    return kind < 240 ? kUsual[kind % 6] : Whole();
  }

  /// Any number: small, decimal, an earlier one or just beside it, strange, or the bits as they
  /// are.
  double Number() {
    const double number = AnyNumber();
    earlier_[count_++ % kKept] = number;
    return number;
  }

  /// Any point, often one that stands in a special way to earlier ones.
  Point SomePoint() {
    const Point point = AnyPoint();
    points_[pointCount_++ % kKept] = point;
    return point;
  }

  template <std::size_t kCount>
  Points<kCount> Some() {
    Points<kCount> points;
    for (Point& point : points) point = SomePoint();
    return points;
  }

  template <std::size_t kCount>
  std::array<double, kCount> Numbers() {
    std::array<double, kCount> numbers{};
    for (double& number : numbers) number = Number();
    return numbers;
  }

 private:
  static constexpr std::size_t kKept = 8;

  std::uint64_t Raw() {
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits = (bits << 8U) | Byte();
    return bits;
  }

  double Earlier() { return earlier_[Byte() % kKept]; }
  const Point& EarlierPoint() { return points_[Byte() % kKept]; }

  double AnyNumber() {
    switch (Byte() % 8) {
      case 0:
      case 1:
        return Byte() % 32 - 10;
      case 2:
        return static_cast<std::int8_t>(Byte());
      case 3:
        return (256 * static_cast<std::int8_t>(Byte()) + Byte()) / 100.0;
      case 4:
        return Earlier();
      case 5:
        return Beside(Earlier());
      case 6:
        return Strange();
      default:
        break;
    }
    const double number = FromBits(Raw());
    // One NaN for all, since what is carried through could read as unwritten.
    return std::isnan(number) ? std::numeric_limits<double>::quiet_NaN() : number;
  }

  /// A number off another one by about a tolerance, or by a last place.
  double Beside(double number) {
    constexpr double kSteps[] = {1e-4, 1e-5, 1e-6, 1e-7, 1e-8, 5e-5, 1e-2, 3.937007874015748e-06};
    const std::uint8_t kind = Byte();
    const double side = (kind & 1U) != 0 ? 1.0 : -1.0;
    if (kind >= 192) return std::nextafter(number, side * std::numeric_limits<double>::infinity());
    return number + side * kSteps[(kind >> 1U) % 8];
  }

  double Strange() {
    using Limits = std::numeric_limits<double>;
    constexpr double kPi = 3.14159265358979323846;
    constexpr double kStrange[] = {Limits::quiet_NaN(),
                                   Limits::infinity(),
                                   -Limits::infinity(),
                                   Limits::max(),
                                   Limits::lowest(),
                                   Limits::min(),
                                   Limits::denorm_min(),
                                   -0.0,
                                   1e154,
                                   1e-154,
                                   1e-4,
                                   kPi,
                                   kPi / 2,
                                   2 * kPi,
                                   90.01,
                                   1e9};
    return kStrange[Byte() % 16];
  }

  Point AnyPoint() {
    const std::uint8_t kind = Byte() % 8;
    if (kind < 4) {
      const double x = Number();
      const double y = Number();
      return {{x, y, kind == 0 ? 0.0 : Number()}};
    }
    const Point point = EarlierPoint();
    if (kind == 4) return point;
    if (kind == 5) return Beside(point);
    const Point other = EarlierPoint();
    return kind == 6 ? InLine(point, other) : Turned(point, other);
  }

  Point InLine(const Point& a, const Point& b) {
    constexpr double kPlaces[] = {0.5, 2.0, -1.0, 0.25, 1.0001, -0.0001, 1000.0};
    const std::uint8_t kind = Byte() % 8;
    const double t = kind < 7 ? kPlaces[kind] : Number();
    Point out;
    for (int i = 0; i < 3; ++i) out.c[i] = a.c[i] + t * (b.c[i] - a.c[i]);
    return out;
  }

  Point Beside(Point point) {
    const int i = Byte() % 3;
    point.c[i] = Beside(point.c[i]);
    return point;
  }

  /// A quarter or half a turn about another point, in the plane: the same circle.
  Point Turned(const Point& centre, const Point& point) {
    const double x = point.c[0] - centre.c[0];
    const double y = point.c[1] - centre.c[1];
    switch (Byte() % 3) {
      case 0:
        return {{centre.c[0] - y, centre.c[1] + x, point.c[2]}};
      case 1:
        return {{centre.c[0] - x, centre.c[1] - y, point.c[2]}};
      default:
        return {{centre.c[0] + y, centre.c[1] - x, point.c[2]}};
    }
  }

  const std::uint8_t* data_;
  std::size_t left_;
  std::array<double, kKept> earlier_{};
  std::size_t count_ = 0;
  // The last one is the point that all turns are made with: an axis through it fails.
  Points<kKept> points_{{{{0, 0, 0}},
                         {{10, 0, 0}},
                         {{0, 10, 0}},
                         {{10, 10, 0}},
                         {{0, 0, 10}},
                         {{1234.1234, 5678.5678, 9012.9012}}}};
  std::size_t pointCount_ = 0;
};

/// Cases in one input beyond these say nothing new and slow the search.
inline constexpr int kMostCases = 64;

/// Hands an input to all of `runs`. It holds cases one behind the other, each with its length in
/// front as one byte, so that a small file can keep many of them.
inline void RunAll(const std::uint8_t* data, std::size_t size,
                   std::initializer_list<void (*)(KernelInput&)> runs) {
  int cases = 0;
  do {
    const std::size_t length = size == 0 ? 0 : std::min<std::size_t>(data[0], size - 1);
    const std::size_t front = size == 0 ? 0 : 1;
    for (const auto run : runs) {
      KernelInput input(data + front, length);
      run(input);
    }
    data += front + length;
    size -= front + length;
  } while (size > 0 && ++cases < kMostCases);
}

}  // namespace kernel_fuzz
