#include "drawing/PartModel.h"

#include "drawing/CurveMeasures.h"
#include "drawing/NumberText.h"

#include <KTRCL_DataTypes/GXMath.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace drawing {

namespace {

constexpr double kPi = 3.141592653589793;

// Per coordinate, in millimetres: below it CGXLAElementMerge takes the centres of two arcs as one.
constexpr double kCentreTolerance = 0.00001;

// How far a merged line may cut off the vertices that it passes over, in millimetres.
constexpr double kCutOffLimit = 0.01;

// Where halving the tolerance for straight vertices ends, in radians.
constexpr double kLeastStraightTolerance = 1.0e-7;

constexpr std::size_t kNamedContours = 6;
constexpr std::size_t kNamedCrossings = 3;

// The angles behind each element as the look-alike form stores them.
std::vector<double> StoredAngles(const GX2DElmList& elements, bool clockwise) {
  const double tolerance = GXLATolerances().ToleranceAngle();
  std::vector<double> angles(elements.size());
  for (std::size_t i = 0; i < elements.size(); ++i) {
    GX2DElement& behind = *elements[(i + 1) % elements.size()];
    const double angle = VertexAngle(*elements[i], behind, clockwise);
    angles[i] = GXLAElementAngle(angle, tolerance).GetAngle();
  }
  return angles;
}

// The rule of CGXLAElementMerge for one vertex: straight, between two lines or two arcs on one
// centre.
bool IsRemovable(const GX2DElement& before, const GX2DElement& behind, double angle,
                 double tolerance) {
  if (!GXMath::AlmostEq(angle, kPi, tolerance)) return false;
  const auto* arcBefore = dynamic_cast<const GX2DArc*>(&before);
  const auto* arcBehind = dynamic_cast<const GX2DArc*>(&behind);
  if (arcBefore == nullptr || arcBehind == nullptr) return arcBefore == arcBehind;
  return GXMath::AlmostEq(arcBefore->Center.X, arcBehind->Center.X, kCentreTolerance) &&
         GXMath::AlmostEq(arcBefore->Center.Y, arcBehind->Center.Y, kCentreTolerance);
}

std::vector<bool> RemovableVertices(const GX2DElmList& elements, const std::vector<double>& angles,
                                    double tolerance) {
  std::vector<bool> removable(elements.size());
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const GX2DElement& behind = *elements[(i + 1) % elements.size()];
    removable[i] = elements.size() > 1 && IsRemovable(*elements[i], behind, angles[i], tolerance);
  }
  return removable;
}

// Whether the lines from index `first` on, `count` of them, stay on the line from end to end.
bool RunIsStraight(const GX2DElmList& elements, std::size_t first, std::size_t count) {
  const std::size_t size = elements.size();
  GX2DLine whole(elements[first % size]->GetStartPoint(),
                 elements[(first + count - 1) % size]->GetEndPoint());
  for (std::size_t i = 1; i < count; ++i) {
    const GX2DPoint& vertex = elements[(first + i) % size]->GetStartPoint();
    if (DistanceToElement(vertex, whole) > kCutOffLimit) return false;
  }
  return true;
}

// Whether merging over these vertices leaves the contour where it is. Arcs on one centre do by
// themselves.
bool RunsAreStraight(const GX2DElmList& elements, const std::vector<bool>& removable) {
  const std::size_t size = elements.size();
  const auto keeper = std::find(removable.begin(), removable.end(), false);
  if (keeper == removable.end()) return dynamic_cast<GX2DArc*>(elements.front()) != nullptr;
  const auto begin = static_cast<std::size_t>(keeper - removable.begin()) + 1;
  std::size_t first = begin;
  for (std::size_t i = begin; i < begin + size; ++i) {
    if (removable[i % size]) continue;
    const bool line = dynamic_cast<GX2DLine*>(elements[i % size]) != nullptr;
    if (line && !RunIsStraight(elements, first, i - first + 1)) return false;
    first = i + 1;
  }
  return true;
}

// The merge looks at one angle at a time, so many small bends in one sense would add up.
double SafeTolerance(const GX2DElmList& elements, const std::vector<double>& angles) {
  double tolerance = kStraightTolerance;
  while (!RunsAreStraight(elements, RemovableVertices(elements, angles, tolerance))) {
    tolerance *= 0.5;
    if (tolerance < kLeastStraightTolerance) return 0.0;
  }
  return tolerance;
}

// The library merges across the seam of the list once, before all else; a seam in the middle of a
// side in many pieces would leave a false vertex. Begun behind a true vertex there is no such seam.
void BeginBehindVertex(GX2DElmList& elements, std::vector<double>& angles, double tolerance) {
  const std::vector<bool> removable = RemovableVertices(elements, angles, tolerance);
  if (!removable.back()) return;
  const auto keeper = std::find(removable.begin(), removable.end(), false);
  if (keeper == removable.end()) return;
  const auto steps = keeper - removable.begin() + 1;
  std::rotate(elements.begin(), elements.begin() + steps, elements.end());
  std::rotate(angles.begin(), angles.begin() + steps, angles.end());
}

std::unique_ptr<GXLAContour> MakeShape(const GX2DElmList& elements,
                                       const std::vector<double>& angles, bool clockwise) {
  auto shape = std::make_unique<GXLAContour>(
      true, clockwise ? GXLAContour::GXLADirectionCW : GXLAContour::GXLADirectionCCW);
  const double tolerance = GXLATolerances().ToleranceAngle();
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const double length = ElementLength(*elements[i]);
    if (dynamic_cast<GX2DArc*>(elements[i]) != nullptr) {
      auto* arc = new GXLAElementArc(length);
      shape->AddArcElement(arc);
    } else {
      auto* line = new GXLAElementLine(length);
      shape->AddLineElement(line);
    }
    auto* angle = new GXLAElementAngle(angles[i], tolerance);
    shape->AddAngleElement(angle);
  }
  return shape;
}

double HalfGirth(const Box& box) { return (box.maxX - box.minX) + (box.maxY - box.minY); }

std::vector<const Contour*> UsableContours(const PartModel& part) {
  std::vector<const Contour*> usable;
  for (const auto& contour : part.contours) {
    if (contour->usable) usable.push_back(contour.get());
  }
  return usable;
}

// The contours that no other one holds, the largest first.
std::vector<const Contour*> Outermost(const std::vector<const Contour*>& contours) {
  std::vector<const Contour*> outermost;
  for (const Contour* contour : contours) {
    if (contour->depth == 0 && contour->coincidesWith == kNoContour) outermost.push_back(contour);
  }
  std::stable_sort(outermost.begin(), outermost.end(), [](const Contour* p, const Contour* q) {
    return HalfGirth(p->box) > HalfGirth(q->box);
  });
  return outermost;
}

// The contours of one part, the outer one first.
std::vector<const Contour*> ContoursOf(const PartModel& part, const DrawingPart& chosen) {
  std::vector<const Contour*> contours = {part.contours[chosen.outer].get()};
  for (const std::size_t cutOut : chosen.cutOuts) contours.push_back(part.contours[cutOut].get());
  return contours;
}

std::string NameOf(const PartModel& part, const Contour& contour) {
  const DrawnElement& drawn = part.drawing.elements[contour.origins.front()];
  const Box& box = contour.box;
  std::string text = "from " + PlaceText(GX2DPoint(box.minX, box.minY)) + " to " +
                     PlaceText(GX2DPoint(box.maxX, box.maxY));
  if (drawn.entity < part.drawing.entities.size()) {
    text += " on layer " + part.drawing.entities[drawn.entity].layer;
  }
  return text;
}

std::string SeveralOuterText(const PartModel& part, const std::vector<const Contour*>& outermost) {
  std::string text = "the drawing holds " + CountText(part.parts.size(), "part") +
                     ", of which --part chooses one; several contours that no other one holds: ";
  const std::size_t named = std::min(outermost.size(), kNamedContours);
  for (std::size_t i = 0; i < named; ++i) {
    text += (i == 0 ? "" : "; ") + NameOf(part, *outermost[i]);
  }
  if (outermost.size() > named) text += "; and more";
  const std::size_t crossings = std::min(part.crossings.size(), kNamedCrossings);
  for (std::size_t i = 0; i < crossings; ++i) text += "; " + CrossingText(part.crossings[i]);
  return text;
}

std::string NoContourText(const PartModel& part) {
  std::string text = "no closed contour in the drawing";
  if (!part.contours.empty()) text += "; the first is " + part.contours.front()->obstacle;
  return text;
}

void ShapeContours(PartModel& part, const std::vector<const Contour*>& contours,
                   const Contour& outer) {
  part.outer = ShapeContour(outer);
  for (const Contour* contour : contours) {
    if (contour != &outer) part.cutOuts.push_back(ShapeContour(*contour));
  }
  std::stable_sort(part.cutOuts.begin(), part.cutOuts.end(), [](const auto& p, const auto& q) {
    return p->shape->GetTotalGeometryLength() > q->shape->GetTotalGeometryLength();
  });
}

}  // namespace

std::unique_ptr<ShapedContour> ShapeContour(const Contour& contour) {
  auto shaped = std::make_unique<ShapedContour>();
  shaped->source = &contour;
  shaped->elements.Clone(contour.elements);
  const bool clockwise = contour.clockwise;
  std::vector<double> angles = StoredAngles(shaped->elements, clockwise);
  const double tolerance = SafeTolerance(shaped->elements, angles);
  BeginBehindVertex(shaped->elements, angles, tolerance);
  shaped->shape = MakeShape(shaped->elements, angles, clockwise);
  CGXLAElementMerge::MergeContour(*shaped->shape, shaped->elements, tolerance);
  return shaped;
}

PartModel BuildPart(Drawing drawing, std::size_t number) {
  PartModel part;
  part.drawing = std::move(drawing);
  part.number = number;
  if (!part.drawing.usable) {
    part.obstacle = part.drawing.refusal;
    return part;
  }
  part.networks = FindNetworks(part.drawing);
  part.contours = BuildContours(part.drawing, part.networks);
  part.crossings = NestContours(part.contours);
  part.parts = FindParts(part.contours);
  std::vector<const Contour*> contours = UsableContours(part);
  if (contours.empty()) {
    part.obstacle = NoContourText(part);
    return part;
  }
  const std::vector<const Contour*> outermost = Outermost(contours);
  const Contour* outer = outermost.front();
  if (number > part.parts.size()) {
    part.obstacle = "the drawing holds " + CountText(part.parts.size(), "part");
    return part;
  }
  if (number != kWholeDrawing) {
    contours = ContoursOf(part, part.parts[number - 1]);
    outer = contours.front();
  } else if (outermost.size() > 1) {
    part.obstacle = SeveralOuterText(part, outermost);
    return part;
  }
  ShapeContours(part, contours, *outer);
  part.usable = true;
  return part;
}

std::string CrossingText(const Crossing& crossing) {
  return "contours " + std::to_string(crossing.first + 1) + " and " +
         std::to_string(crossing.second + 1) + " cross at " + PlacesText(crossing.points);
}

}  // namespace drawing
