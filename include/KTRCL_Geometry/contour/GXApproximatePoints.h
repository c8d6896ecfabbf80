// Turns long sequences of points into few arcs and lines.
#pragma once

#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <exception>
#include <vector>

/// Replaces a digitised or faceted curve by a short chain of arcs and lines. Stateless.
class KTRCL_GEOMETRY_EXPORT GXApproximatePoints {
 public:
  /// An arc that could not grow further.
  class KTRCL_GEOMETRY_EXPORT IntersectionError : public std::exception {};
  /// Two lines that are the same.
  class KTRCL_GEOMETRY_EXPORT SameLineError : public std::exception {};
  /// Two lines that do not meet.
  class KTRCL_GEOMETRY_EXPORT NoIntersectionError : public std::exception {};

  /// Appends arcs and lines along the points; the list owns them. An arc grows point by point as
  /// long as all points lie within `tolerance` (length units, inclusive) of its circle and on it;
  /// the next one starts at the point where it ended. An arc begins with three points; where the
  /// third is nearer to the first than `tolerance`, it and those behind it are passed over up to
  /// one that is not. Always true.
  ///
  ///     GX2DElmList curve;
  ///     GXApproximatePoints::ApproximateByLinesAndArcs(points, curve, 0.01);
  ///
  /// The middle of an arc is a quarter turn from its start and tells a sense only.
  ///
  /// Degenerate: fewer than three points, and points that all coincide, append nothing. Where all
  ///   from the third point of a piece on are passed over, a line to the last point ends the chain,
  ///   unless that is the start of the piece. A tolerance that is NaN passes over no points. Where
  ///   memory runs out, the elements found so far stay.
  /// Cost: quadratic in the points of one arc.
  /// Caution: the arc with which a piece begins is taken as it comes; points between its ends may
  ///   be further from it than `tolerance`.
  /// Caution: an arc along points that run clockwise begins at the end of its stretch and ends at
  ///   the start, and its middle says clockwise: taken by the middle it is the rest of the circle.
  ///   `GX2DArc(arc.Center, arc.End, arc.Start, true)` runs along the points.
  /// Caution: a straight stretch has no circle, and the work ends there without a word. Compare the
  ///   end of the last element with the last point.
  static bool ApproximateByLinesAndArcs(const std::vector<GX2DPoint>& points, GX2DElmList& elements,
                                        const double& tolerance);

 private:
  // Angles are in radians; the direction of a line counts modulo pi.
  static GX2DArc ApproximatePointsByArc(const std::vector<GX2DPoint>& points, int i, int j);
  static bool ApproximatePointsCheck(const GX2DArc& arc, const std::vector<GX2DPoint>& points,
                                     int i, int j, const double& tolerance);
  static bool ApproximatePointsCheckOrder(double a, double b, double c, bool flag);
  static double ApproximatePointsCalculateAngle(const GX2DPoint& from, const GX2DPoint& to);
  static void ApproximatePointsPerpendicularLine(const std::vector<GX2DPoint>& points, int index,
                                                 double& angle, GX2DPoint& point);
  static GX2DPoint ApproximatePointsIntersection(const double& angle1, const GX2DPoint& p1,
                                                 const double& angle2, const GX2DPoint& p2);
  static GX2DPoint ApproximatePointsProjection(const GX2DPoint& point, const double& angle,
                                               const GX2DPoint& onLine);
  static bool ApproximatePointsIsBetween(double x, double from, double to);
  static void ApproximatePointsNormalize(double& angle);
};
