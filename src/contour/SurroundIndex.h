// Which vertex of a ring, first in order, stands at a place: the plain search, which holds the
// place against every vertex, and an index with the same answers for a ring that grows at its back.
#pragma once

#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>

#include "elements/EndPointIndex.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

namespace ktrcl_internal {

constexpr std::size_t kNoVertex = static_cast<std::size_t>(-1);

/// Position of the vertex; null where a host put none.
inline const GX2DPoint* PlaceOf(const GX2DSurroundPoint* vertex) {
  return vertex ? vertex->Point : nullptr;
}

/// Index of the first vertex that coincides with `place`, or `kNoVertex`.
inline std::size_t FirstVertexPlain(const std::vector<GX2DSurroundPoint*>& ring,
                                    const GX2DPoint& place) {
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const GX2DPoint* const other = PlaceOf(ring[i]);
    if (other && place.IsAlmostEq(*other, kLengthTolerance)) return i;
  }
  return kNoVertex;
}

/// `FirstVertexPlain` for a ring that only grows at its back while the index lives. Small rings are
/// looked through; a ring that outgrows its index gets one of twice the size.
class SurroundIndex {
 public:
  explicit SurroundIndex(const std::vector<GX2DSurroundPoint*>& ring) : ring_(ring) {}

  std::size_t First(const GX2DPoint& place) {
    if (ring_.size() < kSmallestIndexed) return FirstVertexPlain(ring_, place);
    TakeInNewVertices();
    found_.clear();
    index_->AppendAll({place.X, place.Y}, found_);
    if (found_.empty()) return kNoVertex;
    return Mirrored(*std::max_element(found_.begin(), found_.end()));
  }

 private:
  // Up to here a look at every vertex costs no more than a look at the cells around a place.
  static constexpr std::size_t kSmallestIndexed = 32;

  // The index of ends wants positions in descending order, so vertices are counted from its end.
  std::size_t Mirrored(std::size_t position) const { return capacity_ - 1 - position; }

  void TakeInNewVertices() {
    if (ring_.size() > capacity_) {
      capacity_ = 2 * ring_.size();
      index_.emplace(capacity_);
      indexed_ = 0;
    }
    for (; indexed_ < ring_.size(); ++indexed_) {
      const GX2DPoint* const place = PlaceOf(ring_[indexed_]);
      if (place) index_->Add(Mirrored(indexed_), {place->X, place->Y});
    }
  }

  const std::vector<GX2DSurroundPoint*>& ring_;
  std::optional<EndPointIndex<2>> index_;
  std::size_t capacity_ = 0;
  std::size_t indexed_ = 0;
  std::vector<std::size_t> found_;
};

}  // namespace ktrcl_internal
