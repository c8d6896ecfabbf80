// Draws a part nearer to another one: from a motion that lies about right to one that fits.
#pragma once

#include "drawing/PartCurves.h"
#include "drawing/RigidMotion.h"

#include <cstddef>
#include <vector>

namespace drawing {

/// What a fit makes least.
enum class FitAim {
  kSquares,  ///< The sum of squared distances.
  kSum,      ///< About the sum of distances: where few places differ, all others fit.
  kLargest   ///< About the largest distance.
};

/// Fits B on A by places along both outlines and the nearest places on the other one. Where A is
/// round within 0.2 mm, places along the cut-outs count too, since such an outline tells no turn;
/// they weigh so little that they decide nothing else.
///
/// Both parts must outlive the object. An object is for one thread at a time.
class PlacementFit {
 public:
  PlacementFit(const PartCurves& a, const PartCurves& b);

  /// How badly a motion fits, from a few dozen places along all contours: the mean of their
  /// distances, those above a twentieth of the size of the part cut off there.
  double Roughly(const RigidMotion& motion) const;

  /// The mean distance of some hundred places along the outlines from the other one.
  double MeanDistance(const RigidMotion& motion) const;

  /// The motion that is drawn from `motion` to where B fits, by Gauss and Newton's method on the
  /// distances from the curves; a turn that nothing tells stays.
  RigidMotion Fitted(const RigidMotion& motion, FitAim aim);

 private:
  // A place of one part with the piece of the other that was nearest last.
  struct Follower {
    Place place;
    std::size_t hint = 0;
  };
  // One equation: turning by w and shifting by (u, v) changes the distance by
  // x u + y v + lever w.
  struct Row {
    double x = 0.0;
    double y = 0.0;
    double lever = 0.0;
    double distance = 0.0;  // Signed, along (x, y).
    double weight = 1.0;
  };

  void AddRows(const RigidMotion& motion, std::vector<Follower>& followers, const CurveTree& tree,
               bool ofA, double reach);
  void CollectRows(const RigidMotion& motion);
  void Weigh(FitAim aim);
  double LargestOfRows() const;
  bool Step(RigidMotion& motion) const;

  const PartCurves& a_;
  const PartCurves& b_;
  bool withCutOuts_;
  std::vector<Place> roughA_, roughB_;  // On the outlines.
  std::vector<Place> roughCutOutsA_, roughCutOutsB_;
  std::vector<Follower> ofA_, ofB_, ofCutOutsA_, ofCutOutsB_;
  std::vector<Row> rows_;
  std::size_t outlineRows_ = 0;   // The first ones.
  std::vector<double> emphasis_;  // What kLargest multiplies up, per row.
};

}  // namespace drawing
