// One line or one arc in place of a stretch of a curve, and how far it is from it.
#pragma once

#include "drawing/CurveTrace.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <memory>

namespace drawing {

/// A stretch of a curve by its lengths along the curve.
struct Stretch {
  double from = 0.0;
  double to = 0.0;
};

/// A line or an arc between the ends of a stretch, or a circle in place of a whole closed curve.
struct CurveFit {
  enum class Kind { kNone, kLine, kArc, kCircle };

  Kind kind = Kind::kNone;
  PlaneVector center;   ///< Of arcs and circles.
  double radius = 0.0;  ///< The same.
  bool clockwise = false;
  double deviation = 0.0;  ///< Largest distance between it and the curve, millimetres.

  bool Found() const { return kind != Kind::kNone; }
};

/// The line between the ends of a stretch; none where it is farther than `limit` from the curve.
CurveFit FitLine(const CurveTrace& trace, const Stretch& stretch, double limit);

/// An arc between the ends of a stretch, no farther than `limit` from the curve.
///
/// Its centre is on the perpendicular bisector of the ends: where the normals of the curve at the
/// ends meet it; else on the circle through the middle of the stretch; else where the squares of
/// the distances are least. The first that holds counts. Thus an arc in Bezier form gives the arc
/// that it was made from.
CurveFit FitArc(const CurveTrace& trace, const Stretch& stretch, double limit);

/// The arc about the point of the bisector that is nearest to a centre that is known from
/// elsewhere.
CurveFit FitArcAbout(const CurveTrace& trace, const Stretch& stretch, const PlaneVector& center,
                     double limit);

/// A line or an arc, or none. A line counts within 0.0001 mm, or where no arc is clearly nearer.
CurveFit FitSingle(const CurveTrace& trace, const Stretch& stretch, double limit);

/// The circle in place of a closed curve that runs round once: through the places where its pieces
/// meet where that holds, since these are on the circle that a drawing program started from; else
/// the one with the least squares (I. Kasa, 1976).
///
/// A curve that is no exact circle leaves the diameter open by about its deviation. Of the
/// diameters that are left the one counts that has the fewest decimals in the unit of the drawing:
/// nobody draws holes of 3.3008 mm, and a hole in six rough pieces is to be found equal to the same
/// hole drawn as a circle.
///
/// Requires: CurveTrace::CloseExactly was called; `millimetresPerUnit` above 0.
CurveFit FitCircle(const CurveTrace& trace, double limit, double millimetresPerUnit);

/// The deviation of a fit again, at four places for every sample of the stretch.
/// Requires: `fit.Found()`.
double MeasureDeviation(const CurveTrace& trace, const Stretch& stretch, const CurveFit& fit);

/// The element of a fit.
/// Requires: `fit.Found()`.
std::unique_ptr<GX2DElement> MakeElement(const CurveTrace& trace, const Stretch& stretch,
                                         const CurveFit& fit);

}  // namespace drawing
