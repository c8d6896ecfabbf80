// A curve as few lines and arcs within a tolerance.
#pragma once

#include "drawing/CurveFits.h"
#include "drawing/CurveTrace.h"

#include <vector>

namespace drawing {

/// An element in place of a stretch of a curve.
struct CurvePiece {
  Stretch stretch;
  CurveFit fit;  ///< Found.
};

/// A curve in lines and arcs.
struct CurveApproximation {
  std::vector<CurvePiece> pieces;  ///< In order, without gaps; each begins where the last one ends.
  double shift = 0.0;  ///< Length by which the start of a closed curve was moved along it.
};

/// Replaces a curve by lines and arcs that are nowhere farther than `tolerance` (millimetres,
/// inclusive) from it.
///
/// What is one circle, one arc or one line within half the tolerance becomes just that, first the
/// whole curve, then each stretch between corners. All else is split where the curvature jumps and
/// where it is largest or smallest, and every part, in which it then only grows or falls, is handed
/// as points to the library's ApproximateByLinesAndArcs, the end with the stronger curvature first.
/// Neighbours that one element can stand for become one. So the result follows from the shape: it
/// hardly depends on where the curve begins, which way it runs and how it lies.
///
/// The library's operation ends silently at a straight stretch; there a line leads on, and the work
/// begins again behind it. Of its arcs, the places where they meet and the centres are used; they
/// are measured, and what is too far from the curve is divided further.
///
/// A closed curve may be begun elsewhere; `trace` is then turned likewise, and its end is exactly
/// its start.
///
/// Requires: two samples that are nowhere farther apart than the trace was made for; `tolerance`
///   above 0; `millimetresPerUnit` is that of FitCircle.
CurveApproximation ApproximateCurve(CurveTrace& trace, double tolerance, double millimetresPerUnit);

}  // namespace drawing
