// The geometry of single DXF entities: values out of the groups of a record, elements out of
// values.
#pragma once

#include "drawing/Curves.h"
#include "drawing/DxfTokens.h"
#include "drawing/PlaneMap.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace drawing {

/// A position in the plane, in drawing units.
struct DrawnPoint {
  double x = 0.0;
  double y = 0.0;
};

/// The heights over z = 0 that an entity reaches, in drawing units.
struct HeightRange {
  bool empty = true;
  double low = 0.0;
  double high = 0.0;

  void Add(double z);
  void Add(const HeightRange& other);

  /// Of an entity that is drawn as seen from below: its heights lead down.
  void SeeFromBelow();
};

/// A vertex of a polyline with the bulge of the side behind it.
///
/// The bulge is the tangent of a quarter of the sweep, positive for counter-clockwise sides: 0 is
/// straight, 1 a half circle, more than 1 more than half a circle.
struct PolylineVertex {
  DrawnPoint point;
  double bulge = 0.0;
};

/// Reads values from the groups of a record and keeps the first thing that is wrong with them.
class DxfValues {
 public:
  explicit DxfValues(const DxfRecord& record);

  /// The number of the one group with this code. Where it is missing, given twice or no number,
  /// the failure is set and the result is 0.
  double Required(int code);

  /// The same; a missing group is no failure and gives `fallback`.
  double Optional(int code, double fallback);

  /// The whole number of the one group with this code; a missing group gives `fallback`.
  int Integer(int code, int fallback);

  /// The number of a group that was found by other means.
  double Number(const DxfGroup& group);

  /// The text of the first group with this code, empty where there is none.
  std::string_view Text(int code) const;

  void Fail(std::string what, std::size_t line);

  const DxfRecord& Record() const;
  const std::string& Failure() const;  ///< Empty while all is well.
  std::size_t FailureLine() const;
  const std::string& DecimalComma() const;  ///< The first number with a decimal comma.
  std::size_t DecimalCommaLine() const;

 private:
  const DxfGroup* FindOnly(int code);

  const DxfRecord& record_;
  std::string failure_;
  std::size_t failureLine_ = 0;
  std::string decimalComma_;
  std::size_t decimalCommaLine_ = 0;
};

/// Makes elements in millimetres from curves in drawing units.
///
/// Points of the library that lie within 0.0001 of each other are one. An arc so short that its
/// ends or its middle and its end are one point would count as a full circle; it becomes a straight
/// line.
///
/// Lines stay lines under any map. Circles, arcs and bulged sides stay what they are under a map
/// that is a similarity, their centres, ends and middles being mapped; under any other they become
/// parts of ellipses, which wait in `curves` to be replaced by lines and arcs.
class ElementBuilder {
 public:
  /// Forgets everything and begins with another entity. The map leads from its coordinates to those
  /// of the drawing, both in drawing units.
  void Begin(double millimetresPerUnit, const PlaneMap& map);

  void AddLine(const DrawnPoint& start, const DrawnPoint& end);
  void AddCircle(const DrawnPoint& center, double radius);

  /// Counter-clockwise from one angle to the other, in degrees; equal angles give a full circle.
  void AddArc(const DrawnPoint& center, double radius, double startDegrees, double endDegrees);

  /// The side of a polyline. Bulges so small that the side leaves its chord by no more than
  /// 0.000001 mm give a straight line: the centre of such an arc lies too far away to be of use.
  void AddSide(const DrawnPoint& start, const DrawnPoint& end, double bulge);

  void Fail(std::string what);

  std::vector<std::unique_ptr<GX2DElement>> elements;
  std::vector<std::unique_ptr<Curve>> curves;  ///< In millimetres.
  std::vector<GX2DPoint> zeroLength;  ///< Places of what was left out because its ends coincide.
  std::size_t shortArcs = 0;          ///< Arcs that became lines because they are too short.
  std::size_t flatSides = 0;          ///< Sides that became lines because their bulge is too small.
  std::size_t nearCircles = 0;  ///< Arcs that count as circles because their ends are one point.
  bool equalAngles = false;     ///< An arc with equal angles was taken as a full circle.
  HeightRange heights;          ///< As given in the entity.
  bool rises = false;           ///< The ends of a line lie at different heights.
  bool hasWidth = false;        ///< A polyline had a width.
  std::string remark;           ///< Something odd that did not keep the geometry from use.
  std::string failure;          ///< Empty while all is well.

 private:
  GX2DPoint Place(double x, double y);
  void Add(std::unique_ptr<GX2DElement> element);
  void AddWholeTurn(const GX2DPoint& center, const GX2DPoint& start, const GX2DPoint& mid);
  void AddPlacedLine(const GX2DPoint& start, const GX2DPoint& end);
  void AddPlacedArc(const GX2DPoint& center, const GX2DPoint& start, const GX2DPoint& mid,
                    const GX2DPoint& end, bool overHalf);
  void AddMappedArc(const DrawnPoint& center, const PlaneVector& u, const PlaneVector& v,
                    double sweep);

  double factor_ = 1.0;
  PlaneMap map_;
  bool keepsCircles_ = true;
  double stretch_ = 1.0;  // Of a length in drawing units, at most, into millimetres.
};

/// How an entity's own coordinate system lies.
enum class Extrusion { kUp, kDown, kTilted };

/// The direction of extrusion of a record: up where it has none. Deviations from the z axis up to a
/// millionth are none.
Extrusion ReadExtrusion(DxfValues& values);

/// True for the types whose single record is the whole geometry: LINE, ARC, CIRCLE, LWPOLYLINE.
bool IsSimpleCurve(std::string_view type);

/// Adds the geometry of a record for which IsSimpleCurve holds. What is wrong stands in the failure
/// of `values` or of `builder`.
void BuildSimpleCurve(DxfValues& values, ElementBuilder& builder);

/// Adds the sides of a polyline, the closing one included where it is closed.
void BuildPolyline(const std::vector<PolylineVertex>& vertices, bool closed,
                   ElementBuilder& builder);

}  // namespace drawing
