// Memory that runs out in the middle of an approximation. The allocation of the whole program is
// replaced for that; it works as usual but where a test says otherwise. Under the address
// sanitizer, which brings an allocation of its own, there is nothing here.
#include <KTRCL_Geometry/contour/GXApproximatePoints.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <new>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#define KTRCL_SANITIZER_ALLOCATES
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KTRCL_SANITIZER_ALLOCATES
#endif
#endif

#ifndef KTRCL_SANITIZER_ALLOCATES

namespace {

/// Allocations that still succeed; below 0 there is no end to them.
long remaining = -1;

}  // namespace

// Kept out of line: a compiler that sees malloc and free through them takes the pair for a
// mismatch.
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (remaining == 0) throw std::bad_alloc();
  if (remaining > 0) --remaining;
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace {

/// Lets so many allocations succeed while it lives.
class Allowance {
 public:
  explicit Allowance(long allocations) { remaining = allocations; }
  Allowance(const Allowance&) = delete;
  Allowance& operator=(const Allowance&) = delete;
  ~Allowance() { remaining = -1; }
};

/// Approximates; "threw" tells whether an exception came out.
bool Approximate(const std::vector<GX2DPoint>& points, GX2DElmList& list, long allocations,
                 bool& threw) {
  const Allowance allowance(allocations);
  try {
    return GXApproximatePoints::ApproximateByLinesAndArcs(points, list, -1.0);
  } catch (const std::bad_alloc&) {
    threw = true;
    return false;
  }
}

TEST(ApproximateByLinesAndArcs, EndsWithTheElementsFoundSoFarWhereMemoryRunsOut) {
  // At a tolerance of -1 each arc takes three points.
  std::vector<GX2DPoint> points;
  for (int i = 0; i <= 40; ++i) {
    points.push_back(support::OnCircle(0, 0, 10, 4.0 * i));
  }
  GX2DElmList all;
  bool threw = false;
  ASSERT_TRUE(Approximate(points, all, -1, threw));
  ASSERT_EQ(all.size(), 20U);
  std::size_t found = 0;
  for (long allocations = 0; found < all.size(); ++allocations) {
    ASSERT_LE(allocations, 100);
    GX2DElmList list;
    EXPECT_TRUE(Approximate(points, list, allocations, threw));
    ASSERT_FALSE(threw) << "after " << allocations << " allocations";
    EXPECT_GE(list.size(), found);
    found = list.size();
    for (std::size_t i = 0; i < found; ++i) {
      EXPECT_POINT_EQ(support::At<GX2DArc>(list, i), support::At<GX2DArc>(all, i));
    }
  }
}

}  // namespace

#endif
