// A grid over the ends of elements that answers "which element, first in order, has an end here"
// without asking them all. It lives inside one call: the ends are copied in once, elements only
// ever drop out.
#pragma once

#include <KTRCL_DataTypes/GXMath.h>

#include "foundation/Tolerance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace ktrcl_internal {

/// Ends of elements, found by place. Elements are known by their position in a sequence.
///
/// Two places coincide when each coordinate agrees within `kLengthTolerance`, exactly as
/// `IsAlmostEq` has it: inclusive, equal infinities coincide, NaN with nothing.
///
/// Every end lies in one cell of a grid whose cells are wider than twice the tolerance, so all that
/// coincides with a place lies in at most two cells per coordinate. Cells are numbered by doubles,
/// never by integers, so that places far out and infinite ones need no special road, and are hashed
/// into buckets. A bucket lists its ends in order of position; what has dropped out is unlinked
/// when it is met. Many ends at one place therefore cost no more than one.
template <std::size_t kDimension>
class EndPointIndex {
 public:
  using Place = std::array<double, kDimension>;

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  /// An index for the positions below `count`, with room for two ends each.
  explicit EndPointIndex(std::size_t count) : isDropped_(count, false) {
    ends_.reserve(2 * count);
    std::size_t buckets = 1;
    while (buckets < 2 * count) buckets *= 2;
    buckets_.resize(buckets);
  }

  /// Requires: positions come in descending order, so that the buckets list them ascending.
  void Add(std::size_t position, const Place& place) {
    // NaN coincides with nothing.
    for (const double coordinate : place) {
      if (std::isnan(coordinate)) return;
    }
    Place cell{};
    for (std::size_t i = 0; i < kDimension; ++i) cell[i] = CellOf(place[i]);
    Bucket& bucket = buckets_[BucketOf(cell)];
    ends_.push_back({place, position, bucket.first});
    bucket.first = ends_.size() - 1;
    ++bucket.size;
  }

  /// Forgets the ends of the element at `position`.
  void Drop(std::size_t position) { isDropped_[position] = true; }

  bool IsDropped(std::size_t position) const { return isDropped_[position]; }

  /// The smallest position with an end at `place`, or `kNone`.
  std::size_t First(const Place& place) {
    std::size_t first = kNone;
    ForEachBucketAt(place, [&](Bucket& bucket) {
      ForEachEnd(bucket, [&](const End& end) {
        if (end.position >= first) return false;
        if (!Coincide(end.place, place)) return true;
        first = end.position;
        return false;
      });
    });
    return first;
  }

  /// Appends the position of every end at `place`, in no particular order; an element with both
  /// ends there may come more than once.
  void AppendAll(const Place& place, std::vector<std::size_t>& positions) {
    ForEachBucketAt(place, [&](Bucket& bucket) {
      ForEachEnd(bucket, [&](const End& end) {
        if (Coincide(end.place, place)) positions.push_back(end.position);
        return true;
      });
    });
  }

  /// How many ends a search at `place` would look at.
  std::size_t CrowdAt(const Place& place) {
    std::size_t crowd = 0;
    ForEachBucketAt(place, [&](const Bucket& bucket) { crowd += bucket.size; });
    return crowd;
  }

 private:
  struct End {
    Place place;
    std::size_t position;
    std::size_t next;  ///< The next end in the same bucket, or `kNone`.
  };

  struct Bucket {
    std::size_t first = kNone;
    std::size_t size = 0;
  };

  // Wide enough that x - reach and x + reach lie in one cell or in two neighbours, rounding of the
  // quotient included. Where doubles lie so far apart that rounding could pass a whole cell, both
  // are x itself.
  static constexpr double kCellWidth = 8.0 * kLengthTolerance;

  // A little more than the tolerance: the difference that `AlmostEq` compares is rounded, so places
  // may coincide that are further apart than the tolerance by a rounding error.
  static constexpr double kReach = 1.001 * kLengthTolerance;

  // The number of a cell, or an infinity where the quotient leaves the range of doubles. Monotone
  // in x, on which the search relies. Adding 0 makes one cell of 0 and -0, which differ in their
  // bits.
  static double CellOf(double x) { return std::floor(x / kCellWidth) + 0.0; }

  static bool Coincide(const Place& a, const Place& b) {
    for (std::size_t i = 0; i < kDimension; ++i) {
      if (!GXMath::AlmostEq(a[i], b[i], kLengthTolerance)) return false;
    }
    return true;
  }

  // Mixes the bits of the cell numbers. Whole numbers differ in few, high bits only, so each word
  // is multiplied and folded down (the finaliser of Stafford's variant 13 of MurmurHash3).
  std::size_t BucketOf(const Place& cell) const {
    std::uint64_t hash = 0;
    for (const double number : cell) {
      std::uint64_t bits = 0;
      std::memcpy(&bits, &number, sizeof bits);
      hash += bits;
      hash = (hash ^ (hash >> 30)) * 0xbf58476d1ce4e5b9U;
      hash = (hash ^ (hash >> 27)) * 0x94d049bb133111ebU;
      hash ^= hash >> 31;
    }
    return static_cast<std::size_t>(hash) & (buckets_.size() - 1);
  }

  // Calls `visit` once for each bucket of the cells that can hold an end at `place`.
  template <typename Visit>
  void ForEachBucketAt(const Place& place, Visit visit) {
    Place low{};
    Place high{};
    for (std::size_t i = 0; i < kDimension; ++i) {
      if (std::isnan(place[i])) return;
      low[i] = CellOf(place[i] - kReach);
      high[i] = CellOf(place[i] + kReach);
    }
    // Cells may share a bucket.
    std::array<const Bucket*, std::size_t{1} << kDimension> seen{};
    auto seenEnd = seen.begin();
    for (std::size_t corner = 0; corner < seen.size(); ++corner) {
      Place cell = low;
      bool isNew = true;
      for (std::size_t i = 0; i < kDimension; ++i) {
        if ((corner >> i & 1U) == 0) continue;
        isNew = isNew && high[i] != low[i];
        cell[i] = high[i];
      }
      if (!isNew) continue;
      Bucket& bucket = buckets_[BucketOf(cell)];
      if (std::find(seen.begin(), seenEnd, &bucket) != seenEnd) continue;
      *seenEnd++ = &bucket;
      visit(bucket);
    }
  }

  // Calls `visit` for the ends in a bucket, in order of position, until it returns false. Ends that
  // dropped out are unlinked on the way.
  template <typename Visit>
  void ForEachEnd(Bucket& bucket, Visit visit) {
    std::size_t* link = &bucket.first;
    while (*link != kNone) {
      End& end = ends_[*link];
      if (isDropped_[end.position]) {
        *link = end.next;
        --bucket.size;
        continue;
      }
      if (!visit(end)) return;
      link = &end.next;
    }
  }

  std::vector<bool> isDropped_;
  std::vector<End> ends_;
  std::vector<Bucket> buckets_;
};

}  // namespace ktrcl_internal
