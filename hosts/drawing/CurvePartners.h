// A one-to-one partner in B for every cut-out of A by places alone.
#pragma once

#include "drawing/CurveDistances.h"
#include "drawing/PartCurves.h"
#include "drawing/RigidMotion.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace drawing {

/// Raises `largest` to the largest distance between two curves, both ways, `motion` laying that of
/// B on that of A; the place is in the coordinates of A. It is given up beyond `limit`.
void RaiseBothWays(DeviationMeter& meter, const CurveTree& a, const CurveTree& b,
                   const RigidMotion& motion, double limit, LargestDistance& largest);

/// What was found for a cut-out of A.
struct CurvePartner {
  std::size_t b = static_cast<std::size_t>(-1);  ///< Index into the cut-outs of B; -1 for none.
  LargestDistance deviation;                     ///< Of the partner, in the coordinates of A.
};

/// All of them under one motion.
struct CurvePartnerSearch {
  std::vector<CurvePartner> partners;  ///< One per cut-out of A.
  std::vector<bool> taken;             ///< Per cut-out of B, whether it is somebody's partner.
  std::size_t found = 0;
};

/// Finds partners under any number of motions. Both parts must outlive the object.
class CurvePartners {
 public:
  CurvePartners(const PartCurves& a, const PartCurves& b);

  /// Gives every cut-out of A, in their order, that one of B which is still free, whose centre of
  /// gravity lies within 0.5 mm of its own and which deviates least, if by no more than `limit`; of
  /// equal ones the first.
  CurvePartnerSearch Search(const RigidMotion& motion, double limit, DeviationMeter& meter) const;

 private:
  struct Entry {
    std::int64_t column = 0;
    std::int64_t row = 0;
    double reach = 0.0;
    std::size_t index = 0;
  };
  static bool ComesBefore(const Entry& p, const Entry& q);

  std::vector<std::size_t> Near(const Place& place, double reach, double limit) const;

  const PartCurves& a_;
  const PartCurves& b_;
  std::vector<Entry> entries_;  // Of B, by cell of a grid and reach.
};

}  // namespace drawing
