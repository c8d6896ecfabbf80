// A curve as samples that lie close together: what the approximation by lines and arcs works on and
// what its deviation is measured against.
#pragma once

#include "drawing/Curves.h"

#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

/// Ends of curves, in millimetres, each coordinate, that are one point: as for the networks.
inline constexpr double kCurveEndGap = 0.0001;

/// One place of a curve. Directions have length 1; curvatures are positive where the curve bends to
/// the left, in 1 / mm. Both are given in front of the sample and behind it; they differ at corners
/// and where curves or their pieces meet.
struct TraceSample {
  PlaneVector place;
  double length = 0.0;  ///< Along the curve, from its start.
  PlaneVector in;
  PlaneVector out;
  double curvatureIn = 0.0;
  double curvatureOut = 0.0;
  bool isBreak = false;  ///< An end, or where pieces meet.
};

/// A curve as a row of samples. Between two of them it is taken as the cubic with their directions
/// (Hermite's form), which lies far nearer to the curve than the chord.
class CurveTrace {
 public:
  CurveTrace() = default;

  /// Appends a sample; its length is counted on by the chord. One that lies at the place of the
  /// last one only gives it the direction and the curvature behind.
  void Add(const TraceSample& sample);

  const std::vector<TraceSample>& Samples() const;
  double Length() const;  ///< 0 for fewer than two samples.

  /// The place at a length along the curve, limited to its ends; a sample's own place at its
  /// length. Requires: two samples.
  PlaneVector PlaceAt(double length) const;

  /// The direction just behind or just in front of a length.
  PlaneVector DirectionAt(double length, bool behind) const;

  /// Index of the first sample whose length is above (strict) `length`; the count where none is.
  std::size_t FirstBehind(double length) const;

  /// Both ends are one point.
  bool IsClosed() const;

  void Reverse();

  /// Goes on with another curve that starts where this one ends; the end of this one counts.
  void Append(const CurveTrace& next);

  /// Makes the end of a closed curve exactly its start.
  void CloseExactly();

  /// Gives samples the direction of the step beside them where their own one would take the cubic
  /// farther than twice `chord` aside: where a curve nearly stands still, its derivative may tell
  /// the direction of another place.
  void MendDirections(double chord);

  /// Begins a closed curve at another place, with a sample of its own there. What stood at a length
  /// from `length` on now stands at that less `length`, all else at that and Length() - `length`
  /// more: computed just so, lengths that were equal stay equal.
  /// Requires: CloseExactly was called; `length` from 0 up to (not included) Length().
  void BeginAt(double length);

 private:
  TraceSample SampleAt(double length) const;

  std::vector<TraceSample> samples_;
};

/// Follows a curve. Neighbouring samples are so close that the chord between them leaves the curve
/// by less than `chord` and that the curve turns by no more than 0.3 radians, down to steps of
/// 0.0001 mm.
///
/// Returns: an empty text with the samples in `trace`; otherwise why the curve cannot be followed:
///   it takes more than `mostSamples`, its figures are too large, it lies so far out that rounding
///   is more than `chord`, or its pieces do not meet.
/// Degenerate: a curve without extent gives fewer than two samples.
std::string TraceCurve(const Curve& curve, double chord, std::size_t mostSamples,
                       CurveTrace& trace);

}  // namespace drawing
