// Random numbers that are the same on every run: the seed comes from the name of the running test,
// so that a new test beside it changes nothing, and every failure prints it.
//
//     support::Random random;
//     for (int i = 0; i < 1000; ++i) {
//       const double x = random.Between(-10, 10);
//       ...
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>

namespace support {

/// The running test as "Suite.Name".
inline std::string TestName() {
  const testing::TestInfo* const info = testing::UnitTest::GetInstance()->current_test_info();
  if (info == nullptr) {
    return "outside a test";
  }
  return std::string(info->test_suite_name()) + "." + info->name();
}

/// Generator of one test. While it lives, failures print its seed.
class Random {
 public:
  Random() : Random(Fnv1a(TestName())) {}
  explicit Random(std::uint64_t seed)
      : engine_(seed), trace_(__FILE__, __LINE__, "random seed " + std::to_string(seed)) {}
  Random(const Random&) = delete;
  Random& operator=(const Random&) = delete;

  /// Evenly from `low` up to `high`.
  double Between(double low, double high) { return low + (high - low) * Unit(); }

  /// A whole number from `low` to `high`, both included; `low` must not be above `high`.
  int Int(int low, int high) {
    const auto count = static_cast<std::uint64_t>(static_cast<std::int64_t>(high) - low) + 1;
    return static_cast<int>(low + static_cast<std::int64_t>(engine_() % count));
  }

  bool Bool() { return Int(0, 1) == 1; }

  GX2DPoint Point2D(double extent) {
    const double x = Between(-extent, extent);
    const double y = Between(-extent, extent);
    return {x, y};
  }
  GX3DPoint Point3D(double extent) {
    const double x = Between(-extent, extent);
    const double y = Between(-extent, extent);
    const double z = Between(-extent, extent);
    return {x, y, z};
  }
  GXVector Vector3D(double extent) { return {Point3D(extent)}; }

  /// For the algorithms of the standard library.
  std::mt19937_64& Engine() { return engine_; }

 private:
  static std::uint64_t Fnv1a(const std::string& text) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char c : text) {
      hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    }
    return hash;
  }

  // From 53 random bits; the distributions of the standard library differ between implementations.
  double Unit() { return static_cast<double>(engine_() >> 11) * (1.0 / 9007199254740992.0); }

  std::mt19937_64 engine_;
  testing::ScopedTrace trace_;
};

}  // namespace support
