// A one-to-one partner in B for every cut-out of A under a rigid motion.
#pragma once

#include "drawing/LookAlikeParts.h"
#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"
#include "drawing/RigidMotion.h"
#include "drawing/WalkedContour.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace drawing {

/// A cut-out as the search for partners needs it.
struct PlacedCutOut {
  explicit PlacedCutOut(const ShapedContour& contour);

  std::size_t group;    ///< Index into the groups of both parts, kNoCutOut where it is in none.
  GX2DPoint reference;  ///< The centre of a circle, else the centre of gravity of the curve.
  bool circle;          ///< A single full circle.
  double radius;        ///< Of a circle, else 0.
  WalkedContour walk;
  /// Walks from each of these run along the walk of the group's shape in A, point by point.
  std::vector<WalkStart> starts;
};

/// The partners under one motion.
struct PartnerSearch {
  std::vector<Partner> partners;  ///< One per cut-out of A; without the two-distance test.
  std::vector<bool> taken;        ///< Per cut-out of B, whether it is somebody's partner.
  std::size_t found = 0;
  double largestDeviation = 0.0;  ///< Of the partners that were found, mm.
};

/// Finds partners under any number of motions that lay B on A.
class CutOutPartners {
 public:
  CutOutPartners(const PartModel& a, const PartModel& b, const std::vector<ShapeGroup>& groups,
                 GXLAContour::eNmbSegmentsMode mode);

  const std::vector<PlacedCutOut>& A() const;
  const std::vector<PlacedCutOut>& B() const;

  /// Gives every cut-out of A, in their order, the cut-out of its group in B that is still free and
  /// deviates least, if that is within kPositionLimit.
  PartnerSearch Search(const RigidMotion& motion) const;

  /// For the cut-outs without partner: the nearest free one of the group, and how far it deviates.
  void NameNearest(const RigidMotion& motion, PartnerSearch& search) const;

  /// Cut-outs of B whose reference point lies within `radius` (at most 1 mm) of the place that the
  /// motion takes to `p`, ascending.
  std::vector<std::size_t> Near(const RigidMotion& motion, const GX2DPoint& p, double radius) const;

 private:
  using Cell = std::uint64_t;

  void CollectNear(Cell cell, const GX2DPoint& place, double radius,
                   std::vector<std::size_t>& near) const;
  double Deviation(const PlacedCutOut& a, const PlacedCutOut& b, const RigidMotion& motion) const;
  void FindStarts(PlacedCutOut& cutOut, const GXLAContour& shape, const ShapedContour& contour,
                  GXLAContour::eNmbSegmentsMode mode) const;

  std::vector<PlacedCutOut> a_;
  std::vector<PlacedCutOut> b_;
  std::unordered_map<Cell, std::vector<std::size_t>> cells_;  // Of the reference points of B.
};

}  // namespace drawing
