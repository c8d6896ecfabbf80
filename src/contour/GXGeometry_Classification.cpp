// Where a point, a contour stands to a closed contour; in which direction a contour runs, what it
// encloses and how long it is.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/ElementKind.h"
#include "contour/PlainClassification.h"
#include "elements/LineMeasures.h"
#include "elements/PlaneSelector.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

using ktrcl_internal::IsExactly;
using ktrcl_internal::KindOf;
using ktrcl_internal::kLeftOutZ;
using ktrcl_internal::kLengthTolerance;
using ktrcl_internal::kPi;
using ktrcl_internal::Length;
using ktrcl_internal::PlacePoint;
using ktrcl_internal::Plain;
using ktrcl_internal::PlainVector;
using ktrcl_internal::PointAtShare;
using ktrcl_internal::PrimitiveKind;

namespace {

// One point

/// The heights at which an element can contribute to the scan of a point. An element that misses
/// them need not be looked at: the scan would find no hit on it.
///
/// A line all above or all below the level by more than `kMargin`: the level being level, a hit has
/// exactly the height of the point. It lies on the line only within 0.0001 of an end, which the
/// margin rules out, or between the perpendiculars on the ends and within 0.00001 of the carrier.
/// But a place between the perpendiculars that is higher than both ends by d is at least d away
/// from the carrier, and its foot at least d below it. Without a hit nothing is counted, whatever
/// the tolerance of the caller. Parallel to the level, the line is asked for the point itself, by
/// the same test.
///
/// An arc: the level is farther from the center than the radius of the whole circle by more than
/// the margin, so there is neither a crossing nor a touch. The height of the arc itself would not
/// do, as places beside its ends are accepted too.
///
/// All this is about exact numbers; rounding stays below a tenth of the margin as long as the point
/// and the heights of the element are of the size of `kLimit` at most; how far left or right they
/// lie does not enter into heights. Beyond it, and where a NaN makes a comparison false, the
/// element is looked at. Other kinds, and arcs of derived classes, which may answer with another
/// radius, always are.
class Window {
 public:
  explicit Window(const GX2DPoint& p) : y_(p.Y), low_(-kInfinity), high_(kInfinity) {
    if (!(std::fabs(p.X) < kLimit) || !(std::fabs(p.Y) < kLimit)) return;
    low_ = y_ - kMargin;
    high_ = y_ + kMargin;
  }

  using Iterator = GX2DElmList::const_iterator;

  /// The first element from `it` on that is to be looked at, or `end`.
  Iterator Seek(Iterator it, const Iterator& end) const {
    // A copy, so that the compiler keeps the bounds in registers.
    const Window window = *this;
    for (; it != end; ++it) {
      const GX2DElement* const element = *it;
      if (element == nullptr) return it;
      if (IsExactly<GX2DLine>(element)) {
        if (!window.Misses(static_cast<const GX2DLine&>(*element))) return it;
      } else if (!IsExactly<GX2DArc>(element) ||
                 !window.Misses(static_cast<const GX2DArc&>(*element))) {
        return it;
      }
    }
    return it;
  }

 private:
  static constexpr double kMargin = 0.0002;
  static constexpr double kLimit = 1e8;
  static constexpr double kInfinity = std::numeric_limits<double>::infinity();

  bool Misses(const GX2DLine& line) const {
    const double y1 = line.Start.Y;
    const double y2 = line.End.Y;
    if (y1 > high_) return y2 > high_ && y1 + y2 < kLimit;
    return y1 < low_ && y2 < low_ && y1 + y2 > -kLimit;
  }

  bool Misses(const GX2DArc& arc) const {
    if (arc.Center.Y <= high_ && arc.Center.Y >= low_) return false;
    const double dx = arc.Start.X - arc.Center.X;
    const double dy = arc.Start.Y - arc.Center.Y;
    const double beyond = std::fabs(arc.Center.Y - y_) - kMargin;
    return beyond > 0.0 && beyond < kLimit && beyond * beyond > dx * dx + dy * dy;
  }

  double y_;
  double low_;
  double high_;
};

bool PlacePointQuickly(const GX2DElmList& contour, const GX2DPoint& p,
                       GXGeometry::ePointInContourResult& result, double tolerance) {
  const Window window(p);
  return PlacePoint(contour, p, result, tolerance,
                    [&window](const Window::Iterator& it, const Window::Iterator& end) {
                      return window.Seek(it, end);
                    });
}

// A contour

/// Hands the sample points of an element, its start excepted, to `accepts` until that is false.
template <class Accepts>
bool AllSamples(GX2DElement& element, Accepts accepts) {
  switch (KindOf(&element)) {
    case PrimitiveKind::kArc: {
      // Ten points; the sum of ten tenths stays just below 1.
      constexpr int kSamples = 10;
      constexpr double kShare = 0.1;
      const GX3DArc spatial(static_cast<const GX2DArc&>(element), kLeftOutZ);
      double t = kShare;
      for (int i = 0; i < kSamples; ++i, t += kShare) {
        if (!accepts(PointAtShare(spatial, t))) return false;
      }
      break;
    }
    case PrimitiveKind::kRectangle: {
      const std::array<double, 2> x = {element.GetMinX(), element.GetMaxX()};
      const std::array<double, 2> y = {element.GetMinY(), element.GetMaxY()};
      if (!accepts(GX2DPoint(x[0], y[0])) || !accepts(GX2DPoint(x[0], y[1])) ||
          !accepts(GX2DPoint(x[1], y[1])) || !accepts(GX2DPoint(x[1], y[0]))) {
        return false;
      }
      break;
    }
    case PrimitiveKind::kLine:
    case PrimitiveKind::kPoint:
    case PrimitiveKind::kOther:
      break;
  }
  return accepts(element.GetEndPoint());
}

// Direction

/// Given for the place of the scan line: choose it.
constexpr double kChooseX = std::numeric_limits<double>::lowest();

/// The middle of the widest gap between the X values that matter, so that the scan line passes
/// through no vertex and no extreme of an arc. False where there is no gap, or a point in the list.
bool ChooseScanLine(const GX2DElmList& list, double& x) {
  std::vector<double> values;
  values.reserve(4 * list.size());
  for (const GX2DElement* const element : list) {
    const PrimitiveKind kind = KindOf(element);
    if (kind == PrimitiveKind::kPoint) return false;
    if (kind != PrimitiveKind::kLine && kind != PrimitiveKind::kArc) continue;
    values.push_back(element->GetMaxX());
    values.push_back(element->GetMinX());
    if (kind != PrimitiveKind::kArc) continue;
    const auto& arc = static_cast<const GX2DArc&>(*element);
    values.push_back(arc.Start.X);
    values.push_back(arc.End.X);
  }
  // NaN has no place in an order.
  values.erase(std::remove_if(values.begin(), values.end(), [](double v) { return std::isnan(v); }),
               values.end());
  std::sort(values.begin(), values.end());
  values.erase(std::unique(values.begin(), values.end()), values.end());
  if (values.size() < 2) return false;

  double widest = 0.0;
  for (std::size_t i = 1; i < values.size(); ++i) {
    const double gap = values[i] - values[i - 1];
    // Strictly: of equal gaps the leftmost is kept.
    if (!(gap > widest)) continue;
    widest = gap;
    x = gap * 0.5 + values[i - 1];
  }
  return true;
}

/// The element that an upright line meets last on its way up.
class TopSearch {
 public:
  explicit TopSearch(double x) : line_(x, 0.0, x, 1.0) {}

  bool IsOdd() const { return crossings_ % 2 != 0; }
  const GX2DElement* Top() const { return top_; }

  /// False where the crossing fails, or meets the one on top so far: two lines that meet there
  /// leave open which is the upper one.
  bool Visit(const GX2DLine& line) {
    GX2DPoint hit;
    if (!GXGeometry::Get2DLineIntersection(line_, line, hit)) return false;
    ++crossings_;
    if (hit.Y == height_) return false;
    Raise(hit, line);
    return true;
  }

  /// False where the crossing fails. Arcs that meet at the same height do no harm.
  bool Visit(const GX2DArc& arc) {
    const GX2DPoint none(kNone, kNone);
    GX2DPoint first(kNone, 0.0);
    GX2DPoint second(kNone, 0.0);
    if (!GXGeometry::Get2DLineArcIntersections(line_, arc, first, second)) return false;
    if (!GXGeometry::Point2DOnArc(arc, first)) first = none;
    if (!GXGeometry::Point2DOnArc(arc, second)) second = none;
    if (first != none) ++crossings_;
    if (second != none) ++crossings_;
    Raise(first, arc);
    Raise(second, arc);
    return true;
  }

 private:
  static constexpr double kNone = std::numeric_limits<double>::lowest();

  void Raise(const GX2DPoint& hit, const GX2DElement& element) {
    if (!(hit.Y > height_)) return;
    height_ = hit.Y;
    top_ = &element;
  }

  GX2DLine line_;
  double height_ = kNone;
  std::size_t crossings_ = 0;
  const GX2DElement* top_ = nullptr;
};

/// Shows the search every line and arc over `x`: from its smallest X, included, to its largest.
bool SearchTop(const GX2DElmList& list, double x, TopSearch& search) {
  for (const GX2DElement* const element : list) {
    const PrimitiveKind kind = KindOf(element);
    if (kind != PrimitiveKind::kLine && kind != PrimitiveKind::kArc) continue;
    if (!(element->GetMinX() <= x) || !(element->GetMaxX() > x)) continue;
    const bool isDecidable = kind == PrimitiveKind::kLine
                                 ? search.Visit(static_cast<const GX2DLine&>(*element))
                                 : search.Visit(static_cast<const GX2DArc&>(*element));
    if (!isDecidable) return false;
  }
  return true;
}

/// Whether the line runs to the right, seen from a place below it.
bool RunsRight(const GX2DLine& line, double x) {
  const PlainVector below = {x, line.GetMinY() - 1.0, 0.0};
  return Cross(Plain(line.Start) - below, Plain(line.End) - below).z < 0.0;
}

// Surface

/// Area under the straight way from start to end, positive when it leads to the right.
double Trapezoid(const GX2DPoint& start, const GX2DPoint& end) {
  return (start.Y + end.Y) * (end.X - start.X) * 0.5;
}

double CircleSurface(const GX2DArc& circle) {
  const double radius = circle.Radius();
  return radius * kPi * radius;
}

double ArcSurface(const GX2DArc& arc) {
  // Distance of the chord from the center below which it passes through it, and sweep beyond a half
  // turn from which the triangle on the chord belongs to the sector.
  constexpr double kCentralChord = 0.00001;
  constexpr double kBeyondHalfTurn = 0.00001;
  if (arc.IsCircle()) return CircleSurface(arc);
  const double radius = arc.Radius();
  const double sweep = GXGeometry::GetArcAngleRad(GX3DArc(arc, kLeftOutZ));
  const double chord = Length(Plain(arc.End) - Plain(arc.Start));
  const double half = chord * 0.5;
  const bool isCentral = std::fabs(radius - half) <= kCentralChord;
  const double rise = isCentral ? 0.0 : std::sqrt(std::fabs(radius * radius - half * half));
  const double sector = radius * radius * sweep * 0.5;
  const double triangle = rise * chord * 0.5;
  const double trapezoid = Trapezoid(arc.Start, arc.End);
  const double segment = sweep - kPi >= kBeyondHalfTurn ? triangle + sector : sector - triangle;
  if (arc.IsClockwise()) return trapezoid + segment;
  return arc.IsCounterClockwise() ? trapezoid - segment : 0.0;
}

}  // namespace

bool GXGeometry::IsPointInClosedContour(const GX2DElmList& contour, GX2DPoint& p,
                                        ePointInContourResult& result, double tolerance) {
  return PlacePointQuickly(contour, p, result, tolerance);
}

bool GXGeometry::IsContourInClosedContour(const GX2DElmList& enclosing, GX2DElmList& tested,
                                          bool onContourCountsAsInside) {
  const auto isInside = [&](const GX2DPoint& sample) {
    ePointInContourResult place = ePointOutsideContour;
    // What cannot be answered is left as outside.
    PlacePointQuickly(enclosing, sample, place, kLengthTolerance);
    return place == ePointInsideContour || (place == ePointOnContour && onContourCountsAsInside);
  };
  if (!tested.empty() && tested.front() != nullptr && !isInside(tested.front()->GetStartPoint())) {
    return false;
  }
  for (GX2DElement* const element : tested) {
    if (element != nullptr && !AllSamples(*element, isInside)) return false;
  }
  return true;
}

bool GXGeometry::CheckDirectionOfElementList(GX2DElmList& list, bool& isClockwise,
                                             bool requireEvenCrossings, double x) {
  if (x == kChooseX && !ChooseScanLine(list, x)) return false;
  TopSearch search(x);
  if (!SearchTop(list, x, search)) return false;
  if (requireEvenCrossings && search.IsOdd()) return false;
  const GX2DElement* const top = search.Top();
  if (top == nullptr) return false;
  if (KindOf(top) == PrimitiveKind::kLine) {
    isClockwise = RunsRight(static_cast<const GX2DLine&>(*top), x);
    return true;
  }
  // Where the chords of the arc give no answer the flag keeps what it held, and hosts are used to
  // hearing that all went well.
  GX2DElmList chords;
  top->AddAsPolygon(chords);
  CheckDirectionOfElementList(chords, isClockwise, false, x);
  return true;
}

double GXGeometry::GetContourSurface(const GX2DElmList& contour, bool absolute) {
  if (contour.empty() || !contour.IsClosed(kLengthTolerance)) return 0.0;
  if (contour.size() == 1) {
    const GX2DElement* const only = contour.front();
    const PrimitiveKind kind = KindOf(only);
    if (kind == PrimitiveKind::kRectangle)
      return static_cast<const GX2DRectangle&>(*only).GetArea();
    if (kind == PrimitiveKind::kArc && static_cast<const GX2DArc&>(*only).IsCircle()) {
      return CircleSurface(static_cast<const GX2DArc&>(*only));
    }
  }
  double sum = 0.0;
  for (const GX2DElement* const element : contour) {
    const PrimitiveKind kind = KindOf(element);
    if (kind == PrimitiveKind::kLine) {
      const auto& line = static_cast<const GX2DLine&>(*element);
      sum += Trapezoid(line.Start, line.End);
    } else if (kind == PrimitiveKind::kArc) {
      sum += ArcSurface(static_cast<const GX2DArc&>(*element));
    }
  }
  return absolute ? std::fabs(sum) : sum;
}

double GXGeometry::GetContourPerimeter(const GX2DElmList& contour) {
  double sum = 0.0;
  for (const GX2DElement* const element : contour) {
    if (element != nullptr) sum += element->Len();
  }
  return sum;
}

bool GXGeometry::Point2DOnElmList(const GX2DElmList& list, const GX2DPoint& p) {
  for (const GX2DElement* const element : list) {
    switch (KindOf(element)) {
      case PrimitiveKind::kLine:
        if (Point2DOnClosedLine(static_cast<const GX2DLine&>(*element), p) != 0) return true;
        break;
      case PrimitiveKind::kArc:
        if (Point2DOnArc(static_cast<const GX2DArc&>(*element), p)) return true;
        break;
      case PrimitiveKind::kPoint:
        if (static_cast<const GX2DPoint&>(*element).IsAlmostEq(p, kLengthTolerance)) return true;
        break;
      case PrimitiveKind::kRectangle: {
        // Whatever stands behind a rectangle is not looked at.
        GX2DElmList sides;
        element->AddAsPolygon(sides);
        return Point2DOnElmList(sides, p);
      }
      case PrimitiveKind::kOther:
        break;
    }
  }
  return false;
}
