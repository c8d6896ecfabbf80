// Lines and arcs as plain values, the nearest place on them, and how far one curve runs from
// another at most.
#pragma once

#include "drawing/Boxes.h"
#include "drawing/RigidMotion.h"

#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <cstddef>
#include <vector>

namespace drawing {

/// A point as a plain value.
struct Place {
  double x = 0.0;
  double y = 0.0;
};

/// Distance of two places.
double Distance(const Place& p, const Place& q);

/// The place under a motion, and the place that a motion takes there.
Place Moved(const RigidMotion& motion, const Place& p);
Place MovedBack(const RigidMotion& motion, const Place& p);

/// The motion that takes back what `motion` does.
RigidMotion Inverse(const RigidMotion& motion);

/// A line, or an arc of at most a quarter turn.
struct MeasuredPiece {
  Place start;
  Place end;
  double length = 0.0;
  double sweep = 0.0;  ///< Radians, counter-clockwise positive; 0 for lines.

  /// @name Of arcs alone

  Place centre;
  double radius = 0.0;
  double middleAngle = 0.0;  ///< Direction from the centre to the middle of the arc, radians.
  Place middleDirection;     ///< The same as a unit vector.
  double cosineOfHalf = 0.0;
};

/// The place at a share of a piece, 0 at its start and 1 at its end.
Place PlaceAt(const MeasuredPiece& piece, double share);

/// Unit vector along a piece at a share of it, in the direction of drawing.
Place DirectionAt(const MeasuredPiece& piece, double share);

/// The piece under a motion whose angle is `turn`, radians.
MeasuredPiece Moved(const MeasuredPiece& piece, const RigidMotion& motion, double turn);

/// Where a piece is nearest to a place.
struct Foot {
  double distance = 0.0;
  double share = 0.0;
};
Foot FootOn(const MeasuredPiece& piece, const Place& p);

/// The lines and arcs of a list as pieces about `origin`, arcs cut into equal parts of at most a
/// quarter turn; turned over (x negated) before `origin` is subtracted where asked for.
///
/// The radius of an arc is the mean of the distances of its ends from its centre, so that drawing
/// it the other way round changes nothing. Elements without length are left out.
std::vector<MeasuredPiece> PiecesOf(const GX2DElmList& elements, const Place& origin,
                                    bool mirrored);

/// A place on a curve of several pieces.
struct PlaceOnCurve {
  std::size_t piece = 0;
  double share = 0.0;
  double distance = 0.0;  ///< From the place that was asked for.
};

/// Finds the nearest place on a curve, exactly, in a tree of the boxes of its pieces.
class CurveTree {
 public:
  CurveTree() = default;

  /// All coordinates must be finite. Cost: n log n.
  explicit CurveTree(std::vector<MeasuredPiece> pieces);

  /// In the order in which they were given.
  const std::vector<MeasuredPiece>& Pieces() const { return pieces_; }

  /// The nearest place; the search begins with the piece `hint`, which makes it quick where that
  /// is near.
  ///
  /// Degenerate: a curve without pieces is infinitely far away.
  PlaceOnCurve Nearest(const Place& p, std::size_t hint) const;

 private:
  struct Node {
    Box box;
    std::size_t first = 0;  // Range in order_, last excluded.
    std::size_t last = 0;
    std::size_t left = 0;  // Indices of nodes, 0 in leaves.
    std::size_t right = 0;
  };

  std::size_t Build(std::size_t first, std::size_t last, const std::vector<Box>& boxes);
  void Search(const Node& node, const Place& p, PlaceOnCurve& best) const;

  std::vector<MeasuredPiece> pieces_;
  std::vector<std::size_t> order_;
  std::vector<Node> nodes_;
};

/// The largest distance found so far, and where.
struct LargestDistance {
  double distance = 0.0;
  Place place;
  bool known = false;
};

/// Measures how far a curve runs from another one at most. An object keeps its working memory from
/// one measurement to the next.
class DeviationMeter {
 public:
  /// Raises `largest` to the largest distance of a place of `from`, moved by `motion`, from `to`,
  /// if that is larger; its place is then on the moved curve.
  ///
  /// Tolerance: no place is more than 0.001 mm further away than `largest` says.
  /// It is given up, with a place beyond `limit`, as soon as there is one. Curves on which a
  /// million places do not suffice are measured as far as these go.
  void Raise(const std::vector<MeasuredPiece>& from, const RigidMotion& motion, const CurveTree& to,
             double limit, LargestDistance& largest);

 private:
  struct Probe {
    double share = 0.0;
    PlaceOnCurve near;
  };
  struct Stretch {
    Probe from;
    Probe to;
  };

  Probe Look(const MeasuredPiece& piece, double share, std::size_t hint, const CurveTree& to,
             LargestDistance& largest);
  void Divide(const MeasuredPiece& piece, const CurveTree& to, double limit,
              LargestDistance& largest);

  std::vector<MeasuredPiece> moved_;
  std::vector<Probe> probes_;  // Start, middle and end of every piece.
  std::vector<Stretch> open_;
  std::size_t looks_ = 0;
};

}  // namespace drawing
