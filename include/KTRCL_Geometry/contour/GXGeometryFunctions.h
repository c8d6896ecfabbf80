// Parallel copies of lines and arcs, the bricks of an offset contour.
#pragma once

#include <KTRCL_Geometry/Export.h>

class GX2DArc;
class GX2DLine;

/// Makes parallel copies of lines and arcs, and trims neighbouring copies to their common point.
/// Chaining them is the host's. Only the absolute value of a distance counts; the side comes from
/// the operation. Stateless.
///
///     GX2DLine first = GXGeometryFunctions::GetLeftLineAtDistance(line, 2.0);
///     GX2DArc second = GXGeometryFunctions::GetLeftArcAtDistance(arc, 2.0);
///     GXGeometryFunctions::DoIntersection_FromLine_ToArc(first, second);
class KTRCL_GEOMETRY_EXPORT GXGeometryFunctions {
 public:
  GXGeometryFunctions();

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXGeometryFunctions();

  /// Direction of a line, -pi to pi radians, counter-clockwise from x; 0 for a line below 0.0001 in
  /// both axes, strictly.
  static double GetAngleRad(const GX2DLine& line);

  /// @name Parallel copies

  /// Copy on the left of the line, seen along it, with its length and direction.
  ///
  /// Degenerate: a line below 0.0001 in both axes is moved along y.
  static GX2DLine GetLeftLineAtDistance(const GX2DLine& line, double distance);

  /// Copy on the right of the line, otherwise as above.
  static GX2DLine GetRightLineAtDistance(const GX2DLine& line, double distance);

  /// Copy whose start and end lie nearer to the center by the distance.
  ///
  /// Caution: the middle moves by only half the distance, so it does not lie on the new circle.
  /// Caution: at a distance beyond the radius the copy passes through the center and comes out on
  ///   the other side.
  static GX2DArc GetInnerArcAtDistance(const GX2DArc& arc, double distance);

  /// Copy whose start and end lie further from the center by the distance.
  ///
  /// Caution: the middle moves by only half the distance, so it does not lie on the new circle.
  static GX2DArc GetOuterArcAtDistance(const GX2DArc& arc, double distance);

  /// Copy on the left of the arc, seen along it: the outer one of a clockwise arc, otherwise the
  /// inner one.
  static GX2DArc GetLeftArcAtDistance(const GX2DArc& arc, double distance);

  /// Copy on the right of the arc: the inner one of a clockwise arc, otherwise the outer one.
  static GX2DArc GetRightArcAtDistance(const GX2DArc& arc, double distance);

  /// @name Trimming
  //
  // Each makes the common point of two neighbours the end of the first and the start of the second.
  // Lines are unbounded and arcs are circles. Of two common points the first counts only where it
  // is strictly nearer to the place named. Middles and centers of arcs stay. Returns: false, with
  // nothing changed, where there is no common point.

  /// Trims at the crossing of the lines.
  static bool DoIntersection_FromLine_ToLine(GX2DLine& from, GX2DLine& to);

  /// Trims at the crossing nearer to the end of the line.
  static bool DoIntersection_FromLine_ToArc(GX2DLine& from, GX2DArc& to);

  /// Trims at the crossing nearer to the start of the line.
  static bool DoIntersection_FromArc_ToLine(GX2DArc& from, GX2DLine& to);

  /// Trims at the crossing nearer to the end of the first arc.
  ///
  /// Caution: false also for half circles and full circles, which `Get2DCirclesIntersection` does
  ///   not take, and for circles that only touch.
  static bool DoIntersection_FromArc_ToArc(GX2DArc& from, GX2DArc& to);
};
